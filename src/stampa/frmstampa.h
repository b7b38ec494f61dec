#pragma once

#include "stampa/stampaschedine.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class StatoProgramma;

// The play slips (frmStampa): the printer and its offsets, all the columns or an interval, the
// signs of the last five boxes, the box of the 9, and the run that prints them as marks. The
// workspace of the 9 opens it, after placing the columns in ColonneStampa.
class FrmStampa : public QWidget {
    Q_OBJECT
public:
    // Form_Load. A fault of the printers' file (more than 10 printers or lines, a line without
    // its two commas) is raised from here: the screen doesn't open and the file stays as it was.
    explicit FrmStampa(StatoProgramma &stato, QWidget *genitore = nullptr);

    // The workspace handed over `colonne` columns: lblSistema shows their number, and the lists
    // of the interval run from 1 to UltimaColonnaStampa.
    void consegna(int colonne);

    // cmdStampa: the checks, the print dialog, the run.
    void stampa();
    // "Anteprima schedine": the same checks, and the run in the preview over the slips' boxes.
    void anteprima();

private:
    void riempiIntervallo();
    // The cmbStampante click: the printer's offsets, and the printer becomes the last used.
    void sceltaStampante();
    // A change of txtPosX or txtPosY: the offsets are stored and the file written.
    void cambioScostamento();
    std::array<QString, 5> ultime() const;
    // The run the screen would print: the columns, its interval, its signs and offsets.
    StampaSchedine::Giocata giocata(int prima, int ultima) const;
    // The first of the checks that fails, shown with the critical icon; false then.
    bool controlla();

    StatoProgramma &m_stato;
    QComboBox *m_cmbStampante = nullptr;
    QLineEdit *m_txtPosX = nullptr;
    QLineEdit *m_txtPosY = nullptr;
    QLabel *m_lblSistema = nullptr;
    QRadioButton *m_optTutte = nullptr;
    QRadioButton *m_optIntervallo = nullptr;
    QComboBox *m_cmbDa = nullptr;
    QComboBox *m_cmbA = nullptr;
    std::array<QLineEdit *, 5> m_txtUltime{};
    QCheckBox *m_chk9 = nullptr;
};
