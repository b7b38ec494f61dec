#pragma once

#include "schedine/schedinasettimana.h"

#include <QList>
#include <QWidget>

class Griglia;
class QLabel;
class QLineEdit;
class RegistroSchermi;
class StatoProgramma;
class VistaGriglia;

// A coupon of the week (Sunday, Saturday or midweek, as its model says): the 14 matches with the
// public's percentages, the user's prognosis in 14 boxes, stored only when saved; a click on a
// team opens the table of its league with the two teams of the match marked.
class FrmSchedina : public QWidget {
    Q_OBJECT
public:
    FrmSchedina(StatoProgramma &stato, RegistroSchermi &registro,
                const SchedinaSettimana::Modello &modello, QWidget *genitore = nullptr);
    ~FrmSchedina() override;

    Griglia &griglia() const { return *m_griglia; }
    QStringList caselle() const;

protected:
    void showEvent(QShowEvent *evento) override;

private:
    void scegliSquadra(int riga, int colonna);
    void cancella();
    void salva();
    void stampa();
    QString titoloStampa() const;

    StatoProgramma &m_stato;
    RegistroSchermi &m_registro;
    const SchedinaSettimana::Modello &m_modello;
    Griglia *m_griglia;
    VistaGriglia *m_vista;
    QLabel *m_titolo;
    QLabel *m_lblConcorso;
    QList<QLineEdit *> m_txtPronostico;
    bool m_posizionata = false;
};
