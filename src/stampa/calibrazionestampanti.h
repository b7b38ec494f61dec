#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The offsets of the play slips for each printer, in the file Vpprn.PRN of the data folder: one
// line a printer, "name,X,Y", X and Y as the user typed them, in twips. The table in memory
// (RigheStampanti) has room for exactly 10 lines; once an offset has changed, the file holds all
// 10, the unused ones empty.
class CalibrazioneStampanti {
public:
    static constexpr int Righe = 10;
    using Tabella = std::array<QString, Righe>;

    static QString nomeFile() { return QStringLiteral("Vpprn.PRN"); }
    static QString messaggioPrimoAvvio();
    // Whether the file is there: without it, the screen is at its first start.
    static bool esiste(const QString &cartella);

    // The first start: a line "name,0,0" for each installed printer, in the system's order, into
    // the table and the file. More printers than the table holds is a run-time fault, and no file
    // is written.
    static Tabella crea(const QString &cartella, const QStringList &stampanti);
    // The file, line by line from the first entry. More lines than the table holds is a run-time
    // fault.
    static Tabella leggi(const QString &cartella);
    // The offsets of the printer: those of the last line whose first field is its name, or
    // nothing when no line matches. A matching line without two commas is a run-time fault.
    static std::optional<std::pair<QString, QString>> scostamenti(const Tabella &tabella,
                                                                  const QString &stampante);
    // The printer's lines take the new offsets, and the whole table is written: 10 lines. A
    // failed write leaves the file as it was and is a run-time fault.
    static void aggiorna(Tabella &tabella, const QString &cartella, const QString &stampante,
                         const QString &x, const QString &y);
};
