#pragma once

#include "analisi/selezioneterzine.h"

#include <QWidget>

class Griglia;
class QComboBox;
class QLabel;
class StatoProgramma;
class VistaGriglia;

// The panel of the terzine, cinquine and coppie: delay and frequency of every group of signs in
// the archive, computed once when the screen opens. It is also where the terzine of the system
// generator are chosen.
class FrmPannelloSegni : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo =
        " Statistiche dei 14 segni nelle Terzine e nella Cinquina finale";

    explicit FrmPannelloSegni(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmPannelloSegni() override;

    Griglia &terzine() const { return *m_terzine; }
    Griglia &cinquine() const { return *m_cinquine; }
    Griglia &coppie() const { return *m_coppie; }
    const SelezioneTerzine &selezione() const { return m_selezione; }

private:
    // A grid shown whole; one too wide for a screen scrolls sideways.
    VistaGriglia *creaVista(const QString &nome, Griglia *griglia);
    void clicTerzine(int riga, int colonna);
    // "Terzine" and "Coppie" go to the printer, "Cinquine" to the preview.
    void stampa(const QString &scelta);

    StatoProgramma &m_stato;
    Griglia *m_terzine;
    Griglia *m_cinquine;
    Griglia *m_coppie;
    SelezioneTerzine m_selezione;
};
