#pragma once

#include "piattaforma/ordinealternato.h"

#include <QWidget>

class Griglia;
class StatoProgramma;

// The derived formulas: for each of the 47 formulas of the 9, how often it came out and how many
// contests ago. Computed once, when the screen opens.
class FrmFormule : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Le Formule derivate";
    // Widths in twips and back colours (blue-green-red) of "Pos.", "Formula", "Freq.", "Rit.".
    static constexpr int Larghezze[4] = {500, 800, 800, 800};
    static constexpr quint32 Colori[4] = {0xC0FFFF, 0x80C0FF, 0xC0C0FF, 0xFFFFC0};

    explicit FrmFormule(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmFormule() override;

    Griglia &griglia() const { return *m_griglia; }

private:
    void riempi();

    StatoProgramma &m_stato;
    Griglia *m_griglia;
    OrdineAlternato m_ordine;
};
