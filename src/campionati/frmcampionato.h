#pragma once

#include "campionati/filecampionati.h"

#include <QWidget>

class Griglia;
class QLabel;
class QListWidget;
class QProgressBar;
class StatoProgramma;

// The calendar of Serie A or Serie B: the dates of the rounds and the matches of the one chosen;
// and the refresh of the seven calendars from the site.
class FrmCampionato : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = " Il Calendario del  Campionato 2010 - 2011";
    static constexpr const char *DatiMancanti =
        "Attenzione! Alcuni dati sembrano mancare. Utilizzare la funzione di Aggiornamento per "
        "risolvere il problema.";

    explicit FrmCampionato(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmCampionato() override;

    Griglia &griglia() const { return *m_griglia; }

private:
    void caricaSerie(int serie);
    void mostraGiornata(int indice);
    void preparaGriglia();
    void scarica();

    StatoProgramma &m_stato;
    Griglia *m_griglia;
    QListWidget *m_lstDate;
    QLabel *m_lblGiornata;
    QProgressBar *m_barra;
    FileCampionati::Calendario m_calendario;
    int m_serie = 0;
};
