#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <array>

class ArchivioColonne;
class Griglia;

// The integral system of the 9: up to ten terzine for each of the three blocks of the nine signs,
// and every combination of one terzina of each block. The three groups come from the signs
// panel; the system goes to the workspace of the 9 with its figures in the archive.
class SistemaIntegrale {
public:
    static constexpr int Gruppi = 3;
    static constexpr int TerzinePerGruppo = 10;
    using Terzine = std::array<QStringList, Gruppi>;
    // One row of the table handed to the workspace: the nine signs, Freq. and Rit.
    using Riga = std::array<QString, 3>;

    // The grid of a group: 3 rows (the signs of a terzina) by 10 columns, every cell centred.
    static void prepara(Griglia &griglia);
    // The group's terzine written from column 0 on, one sign to a cell; the rest left empty.
    static void riempi(Griglia &griglia, const QStringList &terzine);
    // The terzine a group's grid holds: each column whose first cell is not empty, its three
    // cells joined.
    static QStringList terzine(const Griglia &griglia);

    // The number of columns of the system: the product of the three counts.
    static int totale(const Terzine &gruppi);
    // Every combination "terzina 1-terzina 2-terzina 3" in the order of the groups, the third
    // terzina moving fastest; nothing when a group is empty.
    static QStringList genera(const Terzine &gruppi);

    // The table of the system: rows 1 to `totale` (given as the text of the last generation's
    // count) from the lines of the list with their "-" removed, each with the frequency of its
    // column among the first nine signs of the archive's contests and the delay from its last
    // exit ("" and "-" for a column never drawn). More lines than rows, the list of several
    // generations, is a run-time fault.
    static QList<Riga> tabella(const QStringList &righe, const QString &totale,
                               const ArchivioColonne &archivio);
};
