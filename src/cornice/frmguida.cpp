#include "cornice/frmguida.h"

#include "piattaforma/dialoghi.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QResizeEvent>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QTextBrowser>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int RuoloFile = Qt::UserRole;

QUrl indirizzoDi(const QString &pagina) {
    return QUrl(u"qrc"_s + Guida::risorse() + u'/' + pagina);
}

// The longest line of the page, in characters.
constexpr int LetterePerRiga = 160;

// The size the window opens at, when the desktop has room for it.
constexpr QSize DimensioniPreferite(1000, 720);

} // namespace

FrmGuida::FrmGuida(Dialoghi &dialoghi, QWidget *genitore)
    : QWidget(genitore, Qt::Window)
    , m_dialoghi(dialoghi)
    , m_txtCerca(new QLineEdit(this))
    , m_lstIndice(new QTreeWidget(this))
    , m_txtPagina(new QTextBrowser(this))
    , m_cmdIndietro(new QPushButton(u"Indietro"_s, this))
    , m_cmdAvanti(new QPushButton(u"Avanti"_s, this))
    , m_cmdIndice(new QPushButton(u"Inizio"_s, this)) {
    setObjectName(u"frmGuida"_s);
    setWindowTitle(u"Guida di Vespara"_s);

    m_cmdIndietro->setObjectName(u"cmdIndietro"_s);
    m_cmdIndietro->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    m_cmdIndietro->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    m_cmdIndietro->setToolTip(u"La pagina precedente (Alt+Sinistra)"_s);
    m_cmdAvanti->setObjectName(u"cmdAvanti"_s);
    m_cmdAvanti->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    m_cmdAvanti->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    m_cmdAvanti->setToolTip(u"La pagina seguente (Alt+Destra)"_s);
    m_cmdIndice->setObjectName(u"cmdIndice"_s);
    m_cmdIndice->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
    m_cmdIndice->setToolTip(u"La prima pagina della guida (Alt+Home)"_s);
    for (QPushButton *p : {m_cmdIndietro, m_cmdAvanti, m_cmdIndice})
        p->setAutoDefault(false);
    m_cmdIndietro->setEnabled(false);
    m_cmdAvanti->setEnabled(false);

    m_txtCerca->setObjectName(u"txtCerca"_s);
    m_txtCerca->setPlaceholderText(u"Cerca nella guida…"_s);
    m_txtCerca->setClearButtonEnabled(true);
    m_txtCerca->setToolTip(
        u"Le pagine che contengono tutte le parole scritte, senza badare a maiuscole e "
        "accenti; Invio apre la prima"_s);

    m_lstIndice->setObjectName(u"lstIndice"_s);
    m_lstIndice->setHeaderHidden(true);
    m_lstIndice->setRootIsDecorated(true);
    m_lstIndice->setUniformRowHeights(true);
    m_lstIndice->header()->setStretchLastSection(true);

    m_txtPagina->setObjectName(u"txtPagina"_s);
    m_txtPagina->setOpenLinks(false);
    // The text at a size that reads well, with the body's margins of a page.
    m_txtPagina->document()->setDocumentMargin(14);
    m_txtPagina->document()->setDefaultStyleSheet(
        u"h1 { color: #1d3f72; } h2 { color: #1d3f72; } code { background-color: #eef1f6; } "
        "table { border-collapse: collapse; } th { background-color: #e6ebf3; } "
        "a { color: #0b57a4; }"_s);

    auto *sinistra = new QWidget(this);
    auto *colonna = new QVBoxLayout(sinistra);
    colonna->setContentsMargins(0, 0, 0, 0);
    auto *lblCerca = new QLabel(u"&Cerca:"_s, sinistra);
    lblCerca->setObjectName(u"lblCerca"_s);
    lblCerca->setBuddy(m_txtCerca);
    colonna->addWidget(lblCerca);
    colonna->addWidget(m_txtCerca);
    auto *lblIndice = new QLabel(u"&Indice:"_s, sinistra);
    lblIndice->setObjectName(u"lblIndice"_s);
    lblIndice->setBuddy(m_lstIndice);
    colonna->addWidget(lblIndice);
    colonna->addWidget(m_lstIndice, 1);

    auto *divisore = new QSplitter(Qt::Horizontal, this);
    divisore->setObjectName(u"divGuida"_s);
    divisore->setChildrenCollapsible(false);
    divisore->addWidget(sinistra);
    divisore->addWidget(m_txtPagina);
    divisore->setStretchFactor(0, 0);
    divisore->setStretchFactor(1, 1);
    divisore->setSizes({270, 730});

    auto *pulsanti = new QHBoxLayout;
    pulsanti->addWidget(m_cmdIndietro);
    pulsanti->addWidget(m_cmdAvanti);
    pulsanti->addWidget(m_cmdIndice);
    pulsanti->addStretch();
    auto *tutto = new QVBoxLayout(this);
    tutto->addLayout(pulsanti);
    tutto->addWidget(divisore, 1);

    connect(m_cmdIndietro, &QPushButton::clicked, m_txtPagina, &QTextBrowser::backward);
    connect(m_cmdAvanti, &QPushButton::clicked, m_txtPagina, &QTextBrowser::forward);
    connect(m_cmdIndice, &QPushButton::clicked, this,
            [this] { mostraPagina(Guida::paginaIniziale()); });
    connect(m_txtPagina, &QTextBrowser::backwardAvailable, m_cmdIndietro, &QPushButton::setEnabled);
    connect(m_txtPagina, &QTextBrowser::forwardAvailable, m_cmdAvanti, &QPushButton::setEnabled);
    connect(m_txtPagina, &QTextBrowser::anchorClicked, this, &FrmGuida::seguiCollegamento);
    connect(m_txtPagina, &QTextBrowser::sourceChanged, this, &FrmGuida::paginaCambiata);
    connect(m_txtCerca, &QLineEdit::textChanged, this, &FrmGuida::mostraRisultati);
    // Enter opens the first page found, as in the search of a desktop's help.
    connect(m_txtCerca, &QLineEdit::returnPressed, this, [this] {
        for (int i = 0; i < m_lstIndice->topLevelItemCount(); ++i)
            if (QTreeWidgetItem *v = m_lstIndice->topLevelItem(i);
                !v->data(0, RuoloFile).toString().isEmpty()) {
                m_lstIndice->setCurrentItem(v);
                sceltaVoce(v);
                return;
            }
    });
    connect(m_lstIndice, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *v) { sceltaVoce(v); });
    connect(m_lstIndice, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem *v) { sceltaVoce(v); });
    connect(m_lstIndice, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem *v) { sceltaVoce(v); });

    // Down from the search field goes to the pages it found, as in a desktop's help.
    m_txtCerca->installEventFilter(this);
    // On a wide window the lines stop at a length that reads well.
    m_txtPagina->setLineWrapMode(QTextEdit::FixedPixelWidth);
    m_txtPagina->viewport()->installEventFilter(this);

    creaIndice();
    adattaDimensioni();
    mostraPagina(Guida::paginaIniziale());
}

bool FrmGuida::eventFilter(QObject *oggetto, QEvent *evento) {
    if (oggetto == m_txtPagina->viewport() && evento->type() == QEvent::Resize) {
        const int leggibile = m_txtPagina->fontMetrics().averageCharWidth() * LetterePerRiga;
        m_txtPagina->setLineWrapColumnOrWidth(
            std::min(static_cast<QResizeEvent *>(evento)->size().width(), leggibile));
    }
    if (oggetto == m_txtCerca && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Down) {
        m_lstIndice->setFocus(Qt::TabFocusReason);
        if (!m_lstIndice->currentItem())
            for (QTreeWidgetItemIterator it(m_lstIndice, QTreeWidgetItemIterator::Selectable); *it;
                 ++it) {
                m_lstIndice->setCurrentItem(*it);
                break;
            }
        return true;
    }
    return QWidget::eventFilter(oggetto, evento);
}

void FrmGuida::adattaDimensioni() {
    const QScreen *s = screen() ? screen() : QGuiApplication::primaryScreen();
    const QSize disponibile = s ? s->availableGeometry().size() : DimensioniPreferite;
    resize(DimensioniPreferite.boundedTo(disponibile * 9 / 10));
}

void FrmGuida::creaIndice() {
    const QSignalBlocker blocco(m_lstIndice);
    m_lstIndice->clear();
    const QList<Guida::Sezione> sezioni = m_guida.indice();
    for (const Guida::Sezione &sezione : sezioni) {
        auto *intestazione = new QTreeWidgetItem(m_lstIndice, {sezione.nome});
        QFont f = intestazione->font(0);
        f.setBold(true);
        intestazione->setFont(0, f);
        intestazione->setFlags(Qt::ItemIsEnabled);
        for (const Guida::Pagina *p : sezione.pagine) {
            auto *voce = new QTreeWidgetItem(intestazione, {p->titolo});
            voce->setData(0, RuoloFile, p->file);
            voce->setToolTip(0, p->titolo);
        }
        intestazione->setExpanded(true);
    }
    // The index is as wide as its longest title, so that no title is cut: the full index is the
    // widest the list ever shows.
    int larghezza = 0;
    for (QTreeWidgetItemIterator it(m_lstIndice); *it; ++it) {
        int livello = 0;
        for (const QTreeWidgetItem *v = (*it)->parent(); v; v = v->parent())
            ++livello;
        larghezza =
            std::max(larghezza, (livello + 1) * m_lstIndice->indentation() +
                                    QFontMetrics((*it)->font(0)).horizontalAdvance((*it)->text(0)));
    }
    m_lstIndice->setMinimumWidth(
        std::max(m_lstIndice->minimumWidth(),
                 larghezza + 2 * m_lstIndice->frameWidth() +
                     m_lstIndice->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 8));
    // The page shown stays marked in the index.
    const QString corrente = paginaCorrente();
    for (QTreeWidgetItemIterator it(m_lstIndice); *it; ++it)
        if ((*it)->data(0, RuoloFile).toString() == corrente)
            m_lstIndice->setCurrentItem(*it);
}

void FrmGuida::mostraRisultati() {
    m_parole = Guida::paroleDi(m_txtCerca->text());
    if (m_parole.isEmpty()) {
        creaIndice();
        evidenzia();
        return;
    }
    const QSignalBlocker blocco(m_lstIndice);
    m_lstIndice->clear();
    const QList<Guida::Risultato> trovate = m_guida.cerca(m_txtCerca->text());
    for (const Guida::Risultato &r : trovate) {
        auto *voce = new QTreeWidgetItem(m_lstIndice, {r.pagina->titolo});
        voce->setData(0, RuoloFile, r.pagina->file);
        voce->setToolTip(0, r.occorrenze == 1 ? u"1 volta nel testo"_s
                                              : u"%1 volte nel testo"_s.arg(r.occorrenze));
    }
    if (trovate.isEmpty()) {
        auto *nulla = new QTreeWidgetItem(m_lstIndice, {u"Nessuna pagina trovata"_s});
        nulla->setFlags(Qt::NoItemFlags);
    }
    evidenzia();
}

void FrmGuida::sceltaVoce(QTreeWidgetItem *voce) {
    if (!voce)
        return;
    const QString file = voce->data(0, RuoloFile).toString();
    if (!file.isEmpty() && file != paginaCorrente())
        mostraPagina(file);
}

void FrmGuida::mostraPagina(const QString &pagina) {
    const QString file = m_guida.pagina(pagina) ? pagina : Guida::paginaIniziale();
    if (file == paginaCorrente())
        return;
    m_txtPagina->setSource(indirizzoDi(file));
}

QString FrmGuida::paginaCorrente() const {
    return m_txtPagina->source().fileName();
}

void FrmGuida::seguiCollegamento(const QUrl &indirizzo) {
    const QUrl assoluto = m_txtPagina->source().resolved(indirizzo);
    if (assoluto.scheme() == u"qrc"_s) {
        m_txtPagina->setSource(assoluto);
        return;
    }
    // A page of the web goes to the desktop's browser.
    if (!m_dialoghi.apriConDesktop(assoluto))
        m_dialoghi.avviso(Dialoghi::titoloApplicazione(),
                          u"Impossibile aprire %1."_s.arg(assoluto.toString()));
}

void FrmGuida::paginaCambiata(const QUrl &indirizzo) {
    // The index follows the page, whichever way it was reached (a link, Back, F1). The browser
    // tells the new address before its history has it.
    const QString corrente = indirizzo.fileName();
    const QTreeWidgetItem *scelta = m_lstIndice->currentItem();
    if (!scelta || scelta->data(0, RuoloFile).toString() != corrente) {
        const QSignalBlocker blocco(m_lstIndice);
        m_lstIndice->setCurrentItem(nullptr);
        for (QTreeWidgetItemIterator it(m_lstIndice); *it; ++it)
            if ((*it)->data(0, RuoloFile).toString() == corrente) {
                m_lstIndice->setCurrentItem(*it);
                break;
            }
    }
    evidenzia();
}

void FrmGuida::evidenzia() {
    // The words of the search stand out in the page, and the first one is brought into sight.
    QList<QTextEdit::ExtraSelection> segni;
    const QString testo = m_txtPagina->document()->toRawText();
    const QList<std::pair<qsizetype, qsizetype>> posti = Guida::trova(testo, m_parole);
    QTextCharFormat formato;
    formato.setBackground(QColor(255, 226, 110));
    for (const auto &[inizio, lunghezza] : posti) {
        QTextCursor c(m_txtPagina->document());
        c.setPosition(int(inizio));
        c.setPosition(int(inizio + lunghezza), QTextCursor::KeepAnchor);
        segni.append({c, formato});
    }
    m_txtPagina->setExtraSelections(segni);
    if (!segni.isEmpty()) {
        QTextCursor primo = segni.first().cursor;
        primo.clearSelection();
        m_txtPagina->setTextCursor(primo);
        m_txtPagina->ensureCursorVisible();
    }
}

void FrmGuida::apri(const QString &pagina, bool modale) {
    const Qt::WindowModality modalita = modale ? Qt::ApplicationModal : Qt::NonModal;
    if (windowModality() != modalita) {
        // Qt takes a new modality only from a hidden window.
        hide();
        setWindowModality(modalita);
    }
    mostraPagina(pagina);
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}
