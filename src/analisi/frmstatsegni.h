#pragma once

#include "piattaforma/ordinealternato.h"

#include <QWidget>

class Griglia;
class StatoProgramma;

// The statistics of the 14 signs: for each position and sign, the frequency in the archive and in
// the present year and the delay. Computed once, when the screen opens.
class FrmStatSegni : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Statistica dei 14 segni";
    // Back colours of the columns "Pos.", then of the three blocks (blue-green-red).
    static constexpr quint32 ColorePosizione = 0xC0FFFF;
    static constexpr quint32 ColoriBlocchi[3] = {0xC0C0FF, 0xC0E0FF, 0xFFFFC0};

    explicit FrmStatSegni(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmStatSegni() override;

    Griglia &griglia() const { return *m_griglia; }

private:
    void preparaTitoli();
    void riempi();

    StatoProgramma &m_stato;
    Griglia *m_titoli;
    Griglia *m_griglia;
    OrdineAlternato m_ordine;
};
