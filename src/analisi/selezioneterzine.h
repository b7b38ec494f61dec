#pragma once

#include <QColor>
#include <QStringList>

#include <array>

class Griglia;

// The three groups of terzine that the signs panel hands to the system generator. A click on the
// delay or frequency of a terzina in the 1ª, 2ª or 3ª block adds it to that block's group and
// marks its sign cell in the group's colour; a click on a marked sign cell takes it out again.
// The marks in the grid are the state of the selection, as the user sees it.
class SelezioneTerzine {
public:
    static constexpr int Gruppi = 3;
    static constexpr int MassimoPerGruppo = 10;

    // The colours of the marks of group 1, 2, 3 (light red, pale cyan, dark yellow).
    static QColor coloreGruppo(int gruppo);

    enum class Esito { Nulla, Aggiunta, Rimozione };
    struct Risultato {
        Esito esito = Esito::Nulla;
        int gruppo = 0; // 1 to 3
        QString terzina;
    };

    explicit SelezioneTerzine(Griglia &griglia);

    // A click on the cell (riga, colonna) of the panel's grid of the terzine.
    Risultato clic(int riga, int colonna);

    // ContaGruppo1..3.
    int conta(int gruppo) const { return int(m_gruppi.at(gruppo - 1).size()); }
    // The terzine of a group, in the order of the columns of the generator's grid.
    const QStringList &terzine(int gruppo) const { return m_gruppi.at(gruppo - 1); }

private:
    bool marcata(int gruppo, int colonna) const;
    QString terzinaDi(int colonna) const;
    Risultato aggiungi(int gruppo, int colonna);
    Risultato rimuovi(int gruppo, int colonna);

    Griglia &m_griglia;
    std::array<QStringList, Gruppi> m_gruppi;
};
