#pragma once

#include "piattaforma/ordinealternato.h"

#include <QWidget>

class Griglia;
class QLabel;
class StatoProgramma;

// The table of the league in LegaClassifica, with the two teams of SquadraCasa and SquadraOspite
// marked: the table file shown as it stands, until the user sorts it by a click on a header.
class FrmClassifiche : public QWidget {
    Q_OBJECT
public:
    explicit FrmClassifiche(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmClassifiche() override;

    Griglia &griglia() const { return *m_griglia; }

protected:
    void showEvent(QShowEvent *evento) override;

private:
    void stampa();

    StatoProgramma &m_stato;
    Griglia *m_griglia;
    QLabel *m_lblConcorso;
    bool m_posizionata = false;
    OrdineAlternato m_ordine;
};
