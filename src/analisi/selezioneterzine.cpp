#include "analisi/selezioneterzine.h"

#include "piattaforma/griglia.h"

QColor SelezioneTerzine::coloreGruppo(int gruppo) {
    static const std::array<QColor, Gruppi> colori{QColor(255, 128, 128), QColor(192, 255, 255),
                                                   QColor(192, 192, 0)};
    return colori.at(gruppo - 1);
}

SelezioneTerzine::SelezioneTerzine(Griglia &griglia)
    : m_griglia(griglia) {}

bool SelezioneTerzine::marcata(int gruppo, int colonna) const {
    // Group g marks the sign cell of row g - 1.
    return m_griglia.sfondo(gruppo - 1, colonna) == coloreGruppo(gruppo);
}

QString SelezioneTerzine::terzinaDi(int colonna) const {
    return m_griglia.testo(0, colonna) + m_griglia.testo(1, colonna) + m_griglia.testo(2, colonna);
}

SelezioneTerzine::Risultato SelezioneTerzine::clic(int riga, int colonna) {
    if (riga < 0 || colonna < 0 || riga >= m_griglia.righe() || colonna >= m_griglia.colonne())
        return {};
    // The six tests run in this order; a row allows at most one of them.
    for (int g = 1; g <= Gruppi; ++g)
        if (riga == g - 1 && marcata(g, colonna))
            return rimuovi(g, colonna);
    // The delay rows of the 1ª, 2ª, 3ª block are 6, 8, 10, their frequency rows 15, 17, 19.
    for (int g = 1; g <= Gruppi; ++g)
        if ((riga == 4 + 2 * g || riga == 13 + 2 * g) && conta(g) <= MassimoPerGruppo - 1 &&
            !marcata(g, colonna))
            return aggiungi(g, colonna);
    return {};
}

SelezioneTerzine::Risultato SelezioneTerzine::aggiungi(int gruppo, int colonna) {
    m_griglia.setSfondo(gruppo - 1, colonna, coloreGruppo(gruppo));
    m_griglia.setGrassetto(gruppo - 1, colonna, true);
    const QString terzina = terzinaDi(colonna);
    m_gruppi[gruppo - 1].append(terzina);
    return {Esito::Aggiunta, gruppo, terzina};
}

SelezioneTerzine::Risultato SelezioneTerzine::rimuovi(int gruppo, int colonna) {
    m_griglia.setSfondo(gruppo - 1, colonna, Qt::white);
    m_griglia.setGrassetto(gruppo - 1, colonna, false);
    const QString terzina = terzinaDi(colonna);
    m_gruppi[gruppo - 1].removeAll(terzina);
    return {Esito::Rimozione, gruppo, terzina};
}
