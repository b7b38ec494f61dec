#include "stampa/frmanteprima.h"

#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/dispositivopittore.h"
#include "piattaforma/guardia.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmstampapagine.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A4 at 567 twips a centimetre.
constexpr qreal LatoCorto = 11907;
constexpr qreal LatoLungo = 16839.9;
// The shadow stands 40 twips behind the sheet.
constexpr qreal Ombra = 40;
constexpr qreal TwipsPerPixel = 15;
const QList<int> Zoom{25, 50, 75, 100, 125, 150, 200};
constexpr int ZoomIniziale = 75;

} // namespace

// Prv, with PicOmbra behind it: the sheet drawn at the zoom, the page's records on it.
class FrmAnteprima::Foglio : public QWidget {
public:
    Foglio(FrmAnteprima &anteprima, QWidget *genitore)
        : QWidget(genitore)
        , m_anteprima(anteprima) {
        setObjectName(u"Prv"_s);
    }

    void imposta(QSizeF foglio, int zoom, int pagina) {
        m_foglio = foglio;
        m_scala = zoom / 100.0 / TwipsPerPixel;
        m_pagina = pagina;
        const qreal margine = 2 * Ombra * m_scala + 24;
        setFixedSize(int(foglio.width() * m_scala + margine),
                     int(foglio.height() * m_scala + margine));
        update();
    }
    int pagina() const { return m_pagina; }
    qreal scala() const { return m_scala; }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter p(this);
        const QRectF carta(12, 12, m_foglio.width() * m_scala, m_foglio.height() * m_scala);
        p.fillRect(carta.translated(Ombra * m_scala + 2, Ombra * m_scala + 2),
                   QColor(60, 60, 60, 150));
        p.fillRect(carta, Qt::white);
        p.setPen(QColor(150, 150, 150));
        p.drawRect(carta);
        p.setClipRect(carta);
        p.translate(carta.topLeft());
        DispositivoPittore dispositivo(p, m_scala, m_scala, m_foglio);
        eseguiProtetto(m_anteprima.m_stato.dialoghi(), [&] {
            DocumentoPagine::disegnaPagina(m_anteprima.m_record, m_pagina, dispositivo);
        });
    }

private:
    FrmAnteprima &m_anteprima;
    QSizeF m_foglio{LatoCorto, LatoLungo};
    qreal m_scala = 0.05;
    int m_pagina = 1;
};

FrmAnteprima *FrmAnteprima::avvia(StatoProgramma &stato, QWidget *cornice,
                                  const QString &percorso) {
    QList<RecordPagina> record = DocumentoPagine::leggi(percorso);
    if (DocumentoPagine::contaPagine(record) == 0) {
        stato.dialoghi().informazione(u"Anteprima non disponibile"_s,
                                      u"Non ci sono pagine da stampare!"_s);
        return nullptr;
    }
    return mostra(stato, cornice, std::move(record));
}

FrmAnteprima *FrmAnteprima::mostra(StatoProgramma &stato, QWidget *cornice,
                                   QList<RecordPagina> record, bool soloVisione) {
    // One preview at a time, as there is one page document.
    if (cornice)
        for (auto *vecchia : cornice->findChildren<FrmAnteprima *>(Qt::FindDirectChildrenOnly))
            vecchia->close();
    auto *anteprima = new FrmAnteprima(stato, std::move(record), cornice);
    if (soloVisione)
        anteprima->soloVisione();
    anteprima->show();
    anteprima->raise();
    anteprima->activateWindow();
    return anteprima;
}

FrmAnteprima::FrmAnteprima(StatoProgramma &stato, QList<RecordPagina> record, QWidget *cornice)
    : QWidget(cornice, Qt::Window)
    , m_stato(stato)
    , m_record(std::move(record))
    , m_pagine(DocumentoPagine::contaPagine(m_record)) {
    setObjectName(u"PrnPrv"_s);
    setWindowTitle(u"Vespara - Anteprima di stampa"_s);
    setAttribute(Qt::WA_DeleteOnClose);

    auto *toolbar = new QToolBar(this);
    toolbar->setObjectName(u"Toolbar"_s);
    toolbar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto chiave = [this, toolbar](const QString &nome, const QString &suggerimento,
                                        auto azione, const QKeySequence &tasto = {}) {
        QAction *a = toolbar->addAction(nome);
        a->setObjectName(nome);
        a->setShortcut(tasto);
        a->setToolTip(tasto.isEmpty() ? suggerimento
                                      : u"%1 (%2)"_s.arg(suggerimento,
                                                         tasto.toString(QKeySequence::NativeText)));
        connect(a, &QAction::triggered, this,
                [this, azione] { eseguiProtetto(m_stato.dialoghi(), azione); });
        return a;
    };
    QAction *azioneStampa = chiave(
        u"Stampa"_s, u"Stampa"_s, [this] { stampa(); }, MdiTastiera::tastoStampa());
    // Ctrl+P as on every screen that prints, with the focus anywhere in the preview.
    MdiTastiera::stampa(this, azioneStampa);
    QAction *zoom = chiave(u"Zoom"_s, u"Scala dell'anteprima"_s, [] {});
    auto *menuZoom = new QMenu(this);
    const auto voceZoom = [this, menuZoom](const QString &nome, int passo) {
        QAction *a = menuZoom->addAction(nome);
        a->setObjectName(nome);
        connect(a, &QAction::triggered, this, [this, passo] {
            if (passo == 0) {
                m_zVal->setFocus();
                m_zVal->showPopup();
                return;
            }
            const int i = m_zVal->currentIndex() + passo;
            if (i >= 0 && i < m_zVal->count())
                m_zVal->setCurrentIndex(i);
        });
    };
    voceZoom(u"Avanti"_s, 1);
    voceZoom(u"Indietro"_s, -1);
    voceZoom(u"Configura"_s, 0);
    zoom->setMenu(menuZoom);
    if (auto *pulsante = qobject_cast<QToolButton *>(toolbar->widgetForAction(zoom)))
        pulsante->setPopupMode(QToolButton::InstantPopup);
    toolbar->addSeparator();
    chiave(
        u"Prima"_s, u"Prima pagina"_s, [this] { mostraPagina(1); }, QKeySequence(Qt::Key_Home));
    chiave(
        u"Precedente"_s, u"Pagina precedente"_s, [this] { mostraPagina(paginaMostrata() - 1); },
        QKeySequence(Qt::Key_PageUp));
    chiave(
        u"Successiva"_s, u"Pagina successiva"_s, [this] { mostraPagina(paginaMostrata() + 1); },
        QKeySequence(Qt::Key_PageDown));
    chiave(
        u"Ultima"_s, u"Ultima pagina"_s, [this] { mostraPagina(m_pagine); },
        QKeySequence(Qt::Key_End));
    toolbar->addSeparator();
    chiave(u"Info"_s, u"Informazioni"_s, [this] {
        m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(),
                                        Dialoghi::titoloApplicazione());
    });
    chiave(u"Esporta"_s, u"Esporta in Excel"_s, [this] { esporta(); });
    chiave(
        u"Esci"_s, u"Chiudi l'anteprima"_s, [this] { close(); }, QKeySequence(Qt::Key_Escape));

    m_ePag = new QComboBox(this);
    m_ePag->setObjectName(u"ePag"_s);
    m_ePag->setToolTip(u"Pagina da visualizzare"_s);
    for (int i = 1; i <= m_pagine; ++i)
        m_ePag->addItem(QString::number(i));
    m_tPag = new QLabel(u"di %1"_s.arg(m_pagine), this);
    m_tPag->setObjectName(u"tPag"_s);
    m_zVal = new QComboBox(this);
    m_zVal->setObjectName(u"zVal"_s);
    m_zVal->setToolTip(u"Scala dell'anteprima"_s);
    for (const int z : Zoom)
        m_zVal->addItem(u"%1%"_s.arg(z), z);
    m_zVal->setCurrentIndex(int(Zoom.indexOf(ZoomIniziale)));
    toolbar->addSeparator();
    toolbar->addWidget(new QLabel(u" Pagina corrente: "_s, this));
    toolbar->addWidget(m_ePag);
    toolbar->addWidget(m_tPag);
    toolbar->addWidget(new QLabel(u"   Zoom: "_s, this));
    toolbar->addWidget(m_zVal);

    m_area = new QScrollArea(this);
    m_area->setObjectName(u"areaFoglio"_s);
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setBackgroundRole(QPalette::Dark);
    m_area->horizontalScrollBar()->setObjectName(u"hBar"_s);
    m_area->verticalScrollBar()->setObjectName(u"vBar"_s);
    m_prv = new Foglio(*this, m_area);
    m_area->setWidget(m_prv);

    m_barra = new QStatusBar(this);
    m_barra->setObjectName(u"BarraInferiore"_s);
    m_avanzamento = new QProgressBar(this);
    m_avanzamento->setObjectName(u"barAvanzamento"_s);
    m_avanzamento->setMaximumWidth(240);
    m_avanzamento->setTextVisible(false);
    m_avanzamento->hide();
    m_barra->addPermanentWidget(m_avanzamento);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(toolbar);
    layout->addWidget(m_area, 1);
    layout->addWidget(m_barra);

    connect(m_ePag, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (i >= 0)
            mostraPagina(i + 1);
    });
    connect(m_zVal, &QComboBox::currentIndexChanged, this, [this] { impostaA4(); });
    resize(1000, 760);
    impostaA4();
}

FrmAnteprima::~FrmAnteprima() = default;

void FrmAnteprima::soloVisione() {
    setWindowTitle(u"Vespara - Anteprima delle schedine"_s);
    const QString motivo =
        u"Le schedine si stampano dalla finestra «Stampe e Impostazioni» con «Stampa schedine»."_s;
    for (const QString &nome : {u"Stampa"_s, u"Esporta"_s})
        if (auto *a = findChild<QAction *>(nome)) {
            a->setEnabled(false);
            a->setToolTip(motivo);
        }
}

int FrmAnteprima::paginaMostrata() const {
    return m_ePag->currentIndex() + 1;
}

QSizeF FrmAnteprima::foglio() const {
    return m_stato.paginaOrizzontale() ? QSizeF(LatoLungo, LatoCorto)
                                       : QSizeF(LatoCorto, LatoLungo);
}

int FrmAnteprima::zoom() const {
    return m_zVal->currentData().toInt();
}

void FrmAnteprima::impostaA4() {
    // SetA4: the sheet at the zoom, the scroll bars from the top, the same page.
    m_prv->imposta(foglio(), zoom(), paginaMostrata());
    m_area->horizontalScrollBar()->setValue(0);
    m_area->verticalScrollBar()->setValue(0);
    mostraPagina(paginaMostrata());
}

void FrmAnteprima::mostraPagina(int pagina) {
    // At either end of the document the movement does nothing.
    if (pagina < 1 || pagina > m_pagine)
        return;
    if (m_ePag->currentIndex() != pagina - 1)
        m_ePag->setCurrentIndex(pagina - 1);
    m_prv->imposta(foglio(), zoom(), pagina);
    m_barra->showMessage(u"Pagina %1 di %2"_s.arg(pagina).arg(m_pagine));
}

void FrmAnteprima::aggiornaAvanzamento(int prima, int ultima, int corrente) {
    const int larghezza = 1000;
    const int riempimento =
        DocumentoPagine::riempimentoAvanzamento(larghezza, prima, ultima, corrente);
    if (riempimento < 0)
        return;
    m_avanzamento->setRange(0, larghezza);
    m_avanzamento->setValue(std::min(riempimento, larghezza));
    m_avanzamento->show();
}

void FrmAnteprima::stampa() {
    FrmStampaPagine dialogo(m_stato, *this);
    dialogo.exec();
    m_avanzamento->hide();
}

void FrmAnteprima::esporta() {
    // The texts go to a workbook of the temporary folder, opened with the spreadsheet program.
    const QString percorso = QDir(QDir::tempPath()).filePath(u"Vespara-anteprima.xlsx"_s);
    EsportazioneExcel::scriviCelle(percorso, DocumentoPagine::celleEsportazione(m_record));
    if (!m_stato.dialoghi().apriConDesktop(QUrl::fromLocalFile(percorso)))
        m_stato.dialoghi().avviso(
            Dialoghi::titoloApplicazione(),
            u"Impossibile aprire il file %1."_s.arg(QDir::toNativeSeparators(percorso)));
}
