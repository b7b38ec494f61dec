#pragma once

#include <QWidget>

class Griglia;
class QLabel;
class QLineEdit;
class QPushButton;
class StatoProgramma;

// The teams editor: renames the teams of the seven Italian series and sets the season.
class FrmGestSquadre : public QWidget {
    Q_OBJECT
public:
    explicit FrmGestSquadre(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmGestSquadre() override;

    Griglia &griglia() const { return *m_griglia; }
    // The team list on show ("SerieA.txt" on opening).
    QString fileCorrente() const;

private:
    void carica(int serie);
    void scegliRiga(int riga);
    void mostraEditor(bool visibile);
    void conferma();
    void applica();

    StatoProgramma &m_stato;
    Griglia *m_griglia;
    int m_serie = 0;
    int m_riga = -1;
    QLineEdit *m_mskAnno;
    QLabel *m_lblNome;
    QLineEdit *m_txtNome;
    QPushButton *m_cmdConferma;
    QPushButton *m_cmdAnnulla;
};
