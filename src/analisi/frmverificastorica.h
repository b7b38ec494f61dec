#pragma once

#include "analisi/verificastorica.h"
#include "piattaforma/ordinealternato.h"

#include <QWidget>

class Griglia;
class QChartView;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;
class StatoProgramma;

// The historical check of the chain of filters the workspace of the 9 hands over: the chain in
// words, the contests to replay, then per contest the column drawn, the columns kept and whether
// the drawn one was among them, the summary against chance and the chart of the kept columns.
class FrmVerificaStorica : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Verifica storica dei filtri";

    explicit FrmVerificaStorica(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmVerificaStorica() override;

    // The chain to check: shown in words, the results of another chain cleared.
    void consegna(const CatenaFiltri &catena);
    const VerificaStorica::Esito &esito() const { return m_esito; }

private:
    void avvia();
    void mostra();
    void disegnaGrafico();

    StatoProgramma &m_stato;
    CatenaFiltri m_catena;
    VerificaStorica::Esito m_esito;
    Griglia *m_griglia;
    OrdineAlternato m_ordine;
    QListWidget *m_lstCatena;
    QSpinBox *m_txtConcorsi;
    QPushButton *m_cmdAvvia;
    QLabel *m_lblPrese;
    QLabel *m_lblMedia;
    QLabel *m_lblCaso;
    QLabel *m_lblGiudizio;
    QChartView *m_grafico;
};
