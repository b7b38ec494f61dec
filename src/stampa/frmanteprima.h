#pragma once

#include "stampa/documentopagine.h"

#include <QList>
#include <QWidget>

class QComboBox;
class QLabel;
class QProgressBar;
class QScrollArea;
class QStatusBar;
class StatoProgramma;

// The preview of a page document (PrnPrv): one page at a time on a scaled sheet of A4 paper,
// with the page movement, the zoom, the print of a range of pages and the export of the texts.
class FrmAnteprima : public QWidget {
    Q_OBJECT
public:
    // AvviaAnteprima: shows the document of the temporary page file, or says there is nothing
    // to show. Returns the window, or nullptr.
    static FrmAnteprima *avvia(StatoProgramma &stato, QWidget *cornice,
                               const QString &percorso = DocumentoPagine::percorsoPredefinito());

    // Shows a document held in memory. A preview `soloVisione` (the play slips) neither prints
    // nor exports: its pages are only to look at.
    static FrmAnteprima *mostra(StatoProgramma &stato, QWidget *cornice, QList<RecordPagina> record,
                                bool soloVisione = false);

    FrmAnteprima(StatoProgramma &stato, QList<RecordPagina> record, QWidget *cornice);
    ~FrmAnteprima() override;

    int pagine() const { return m_pagine; }
    int paginaMostrata() const; // from 1
    void mostraPagina(int pagina);
    // The sheet's size in twips (A4 in the orientation of the document) and the zoom in percent.
    QSizeF foglio() const;
    int zoom() const;
    const QList<RecordPagina> &record() const { return m_record; }
    // AggiornaAvanzamento: the progress bar of the window, during a print.
    void aggiornaAvanzamento(int prima, int ultima, int corrente);

private:
    class Foglio;
    void soloVisione();
    void impostaA4();
    void stampa();
    void esporta();

    StatoProgramma &m_stato;
    QList<RecordPagina> m_record;
    int m_pagine = 0;
    QComboBox *m_ePag = nullptr;
    QLabel *m_tPag = nullptr;
    QComboBox *m_zVal = nullptr;
    QScrollArea *m_area = nullptr;
    Foglio *m_prv = nullptr;
    QStatusBar *m_barra = nullptr;
    QProgressBar *m_avanzamento = nullptr;
};
