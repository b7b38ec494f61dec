#include "cornice/mdipannello.h"

#include "core/colonna.h"
#include "core/glossario.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "cornice/frmguida.h"
#include "cornice/mdiattesa.h"
#include "cornice/mdifinestre.h"
#include "cornice/mdiscorrimento.h"
#include "cornice/suggerimentimenu.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/schermo.h"
#include "stampa/frmmenugriglie.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

enum class Tipo { Sottomenu, Voce, Separatore };

struct VoceMenu {
    const char *nome;
    const char *didascalia; // UTF-8
    const char *genitore;   // "" for the menu bar
    Tipo tipo;
    const char *schermo; // the screen the entry opens, or "" when its action is registered
};

// The whole menu of the frame, in display order. A "&" marks the access key of an entry, a letter
// of its own within its menu (a country has the same one in both menus of countries); "&&" is a
// plain "&".
constexpr VoceMenu Menu[] = {
    {"mnuGestione", "&Gestione archivi", "", Tipo::Sottomenu, ""},
    {"mnuArchivio", "&Visualizza archivio", "mnuGestione", Tipo::Voce, "frmArchivio"},
    {"mnuInserisci", "&Inserisci colonna", "mnuGestione", Tipo::Voce, "frmInserisci"},
    {"mnuModifica", "&Modifica archivio", "mnuGestione", Tipo::Voce, ""},
    {"mnuSchedina", "&Pronostici && Schedine", "", Tipo::Sottomenu, ""},
    {"mnuProssimoConcorso", "Schedina &infrasettimanale", "mnuSchedina", Tipo::Voce,
     "frmSchedinaProssimoConcorso"},
    {"mnuSchedinaSabato", "Schedina del &Sabato", "mnuSchedina", Tipo::Voce, "frmSchedinaSabato"},
    {"mnuSchedinaDomenica", "Schedina della &Domenica", "mnuSchedina", Tipo::Voce,
     "frmSchedinaDomenica"},
    {"mnuAggManual", "&Aggiorna manualmente", "mnuSchedina", Tipo::Voce, "frmAggManual"},
    {"mnuQuote", "Le &Quote", "mnuSchedina", Tipo::Voce, "frmQuote"},
    {"mnuFunzioni", "&Funzioni", "", Tipo::Sottomenu, ""},
    {"mnuPannelloSegni", "Le &Terzine e La cinquina", "mnuFunzioni", Tipo::Voce,
     "frmPannelloSegni"},
    {"mnuSistema", "Sviluppo siste&ma integrale", "mnuFunzioni", Tipo::Voce, "frmSistema"},
    {"mnuCinquineMai", "Le &Cinquine mai uscite", "mnuFunzioni", Tipo::Voce, "frmCinquineMai"},
    {"mnuDettagliCV", "&Dettagli ultima CV", "mnuFunzioni", Tipo::Voce, "frmDettagliUltimaCV"},
    {"mnuAnalisi9", "&Analisi del \"9\"", "mnuFunzioni", Tipo::Voce, "frmColonne9"},
    {"mnuStatSegni", "&Statistica dei 14 segni", "mnuFunzioni", Tipo::Voce, "frmStatSegni"},
    {"mnuFormule", "&Formule derivate", "mnuFunzioni", Tipo::Voce, "frmFormule"},
    {"mnuCampionato", "&Campionato", "", Tipo::Sottomenu, ""},
    {"mnuVisCampionato", "&Visualizza campionato", "mnuCampionato", Tipo::Voce, "frmCampionato"},
    {"mnuGestisciSquadre", "&Gestisci squadre", "mnuCampionato", Tipo::Voce, "frmGestSquadre"},
    {"mnuAggiornaCampionato", "&Aggiorna campionato 2011-2012", "mnuCampionato", Tipo::Voce, ""},
    {"mnuAggiornaCampionatiStranieri", "Aggiorna Campionati &Stranieri", "mnuCampionato",
     Tipo::Voce, "frmAggiornaConcorsiStranieri"},
    {"mnuInternet", "&Aggiorna da Internet", "", Tipo::Sottomenu, ""},
    {"mnuTutto", "&Tutto", "mnuInternet", Tipo::Sottomenu, ""},
    {"mnuCampionatoItaliano", "Campionato &italiano", "mnuTutto", Tipo::Voce, "frmInternet"},
    {"mnuCampionatiStranieri", "Campionati &stranieri", "mnuTutto", Tipo::Voce, ""},
    {"mnuPartiStraniere", "&Parti", "mnuInternet", Tipo::Sottomenu, ""},
    {"mnuSoloArchivi", "Solo &Archivi (Aggiorna/Ripara)", "mnuPartiStraniere", Tipo::Voce,
     "frmAggiornaSoloArchivi"},
    {"mnuSoloClassifiche", "Solo &Classifiche", "mnuPartiStraniere", Tipo::Sottomenu, ""},
    {"mnuTutte", "Campionato &italiano", "mnuSoloClassifiche", Tipo::Voce,
     "frmAggiornaSoloClassifiche"},
    {"mnuParti", "&Straniere per parti", "mnuSoloClassifiche", Tipo::Sottomenu, ""},
    {"mnuInghilterra", "I&nghilterra", "mnuParti", Tipo::Voce, ""},
    {"mnuSpagna", "&Spagna", "mnuParti", Tipo::Voce, ""},
    {"mnuGermania", "&Germania", "mnuParti", Tipo::Voce, ""},
    {"mnuFrancia", "&Francia", "mnuParti", Tipo::Voce, ""},
    {"mnuOlanda", "&Olanda", "mnuParti", Tipo::Voce, ""},
    {"mnuScozia", "Sco&zia", "mnuParti", Tipo::Voce, ""},
    {"mnuPortogallo", "&Portogallo", "mnuParti", Tipo::Voce, ""},
    {"mnuSvizzera", "S&vizzera", "mnuParti", Tipo::Voce, ""},
    {"mnuAustria", "A&ustria", "mnuParti", Tipo::Voce, ""},
    {"mnuGrecia", "G&recia", "mnuParti", Tipo::Voce, ""},
    {"mnuBelgio", "Be&lgio", "mnuParti", Tipo::Voce, ""},
    {"mnuArgentinaAp", "Argen&tina Ap", "mnuParti", Tipo::Voce, ""},
    {"mnuSoloSchedinaMontepremi", "Solo &Schedine e Picchetti", "mnuPartiStraniere", Tipo::Voce,
     "frmAggiornaSoloSchedinaMontepremi"},
    {"mnuAggQuote", "&Quote", "mnuPartiStraniere", Tipo::Voce, ""},
    {"mnuClassifiche", "C&lassifiche", "", Tipo::Sottomenu, ""},
    {"mnuSerieA", "Serie &A", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuSerieB", "Serie &B", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuSerieC1A", "Serie C&1A", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuSerieC1B", "S&erie C1B", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuSerieC2A", "Serie C&2A", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuSerieC2B", "Ser&ie C2B", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuSerieC2C", "Serie &C2C", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassInghilterra", "I&nghilterra", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassSpagna", "&Spagna", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassGermania", "&Germania", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassFrancia", "&Francia", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassOlanda", "&Olanda", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassScozia", "Sco&zia", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassPortogallo", "&Portogallo", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassSvizzera", "S&vizzera", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassAustria", "A&ustria", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassGrecia", "G&recia", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassBelgio", "Be&lgio", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuClassArgentinaAp", "Argen&tina Ap", "mnuClassifiche", Tipo::Voce, ""},
    {"mnuFinestre", "Fi&nestre", "", Tipo::Sottomenu, ""},
    {"mnuSovrapponi", "&Sovrapponi", "mnuFinestre", Tipo::Voce, ""},
    {"mnuAffianca", "&Affianca", "mnuFinestre", Tipo::Voce, ""},
    {"mnuChiudiTutte", "&Chiudi tutte", "mnuFinestre", Tipo::Voce, ""},
    {"", "", "mnuFinestre", Tipo::Separatore, ""},
    {"mnuInfo", "&Info", "", Tipo::Sottomenu, ""},
    {"mnuCredits", "&Credits", "mnuInfo", Tipo::Voce, ""},
    {"mnuInformazioni", "&Informazioni su Vespara", "mnuInfo", Tipo::Voce, ""},
    {"mnuAggiornamenti", "&Verifica Aggiornamenti", "mnuInfo", Tipo::Voce, ""},
    {"mnuComunicazioni", "C&omunicazioni OnLine", "mnuInfo", Tipo::Voce, ""},
    {"mnuGuida", "&Guida in linea", "mnuInfo", Tipo::Voce, ""},
    {"mnuNovita", "Le &Novità di questa Versione", "mnuInfo", Tipo::Voce, "frmRelease"},
    {"mnuLotto", "&Altri Giochi", "mnuInfo", Tipo::Voce, ""},
    {"", "", "mnuInfo", Tipo::Separatore, ""},
    {"mnuImpostazioni", "I&mpostazioni…", "mnuInfo", Tipo::Voce, "frmImpostazioni"},
    {"mnuEsci", "&Esci", "", Tipo::Voce, ""},
};

struct PulsanteBarra {
    int indice;
    const char *testo; // the caption under the picture
    const char *suggerimento;
    const char *simbolo; // drawn on the button's tile
    QRgb colore;
    const char *schermo;
};

constexpr PulsanteBarra Barra[] = {
    {1, "Inserisci", "Inserisci colonna", "+", 0x2e7d32, "frmInserisci"},
    {2, "Schedine", "Le tre schedine", "1X2", 0x1565c0, ""},
    {3, "Quote", "Le Quote", "€", 0xef6c00, "frmQuote"},
    {4, "Analisi 9", "Analisi del \"9\"", "9", 0x6a1b9a, "frmColonne9"},
    {11, "Sistema", "Sviluppo sistema integrale", "3³", 0xad1457, "frmSistema"},
    {5, "Statistica", "Statistica dei 14 segni", "14", 0x00838f, "frmStatSegni"},
    {6, "Squadre", "Gestisci squadre", "Sq", 0x558b2f, "frmGestSquadre"},
    {7, "Messaggio", "Invia un messaggio", "@", 0x5d4037, ""},
    {8, "Sito", "Il sito di Vespara", "www", 0x283593, ""},
    {9, "Guida", "Guida in linea", "?", 0x0277bd, ""},
    {10, "Esci", "Esci", "×", 0xc62828, ""},
};

// A toolbar picture: a coloured tile with a short symbol; Qt greys it when the button is off.
QIcon tessera(const QString &simbolo, QColor colore) {
    QPixmap p(56, 56);
    p.fill(Qt::transparent);
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sfumatura(0, 0, 0, 56);
    sfumatura.setColorAt(0, colore.lighter(125));
    sfumatura.setColorAt(1, colore.darker(115));
    g.setPen(QPen(colore.darker(150), 2));
    g.setBrush(sfumatura);
    g.drawRoundedRect(QRectF(3, 3, 50, 50), 10, 10);
    QFont f(u"Liberation Sans"_s);
    f.setBold(true);
    f.setPixelSize(simbolo.size() >= 3 ? 17 : simbolo.size() == 2 ? 24 : 32);
    g.setFont(f);
    g.setPen(Qt::white);
    g.drawText(QRectF(3, 3, 50, 50), Qt::AlignCenter, simbolo);
    return QIcon(p);
}

QString testo(const char *utf8) {
    return QString::fromUtf8(utf8);
}

QString nomePulsante(int indice) {
    return u"TB(%1)"_s.arg(indice);
}

// The pictures of the message indicator: an envelope, at rest and in three frames of light.
QPixmap busta(const QColor &luce) {
    QPixmap p(32, 32);
    p.fill(Qt::transparent);
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    if (luce.isValid()) {
        g.setPen(Qt::NoPen);
        g.setBrush(luce);
        g.drawEllipse(QRectF(1, 1, 30, 30));
    }
    g.setPen(QPen(QColor(60, 60, 90), 1.5));
    g.setBrush(QColor(250, 250, 245));
    const QRectF corpo(5, 9, 22, 15);
    g.drawRect(corpo);
    g.drawPolyline(QPolygonF{corpo.topLeft(), QPointF(16, 18), corpo.topRight()});
    return p;
}

} // namespace

MdiPannello::MdiPannello(StatoProgramma &stato)
    : m_stato(stato) {
    setObjectName(u"mdiPannello"_s);
    setWindowTitle(u"Vespara!"_s);
    setWindowIcon(tessera(u"V"_s, QColor(0x1d3f72)));
    creaCruscotto();
    creaMenu();
    creaBarra();
    aggiornaAbilitazioni();
    creaBarraStato();
    m_attesa = new MdiAttesa(m_stato.rete(), this);
    m_geometria = new QTimer(this);
    m_geometria->setSingleShot(true);
    m_geometria->setInterval(400);
    connect(m_geometria, &QTimer::timeout, this, [this] {
        m_stato.impostazioni().imposta(Impostazioni::GeometriaCornice, saveGeometry());
    });
    m_stato.setRegistro(this);
    // The window system names the window with the focus. Coming from none of the program's, the
    // user is back from elsewhere; from one of the program's, the program itself moved the focus.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow *finestra) {
        const bool daFuori = !m_programmaAttivo;
        m_programmaAttivo = finestra != nullptr;
        if (daFuori && finestra && finestra == windowHandle())
            emit attivata();
    });
    // F1 must reach the frame from the windows of the screens too, also modal ones.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *ora) {
        if (ora && ora->window() != this)
            portaLaGuida(ora->window());
    });
}

MdiPannello::~MdiPannello() {
    m_stato.dialoghi().setGestoreStato({});
    m_stato.setRegistro(nullptr);
}

void MdiPannello::creaCruscotto() {
    auto *centrale = new QWidget(this);
    auto *colonna = new QVBoxLayout(centrale);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(0);

    auto *picUltima = new QFrame(centrale);
    picUltima->setObjectName(u"picUltima"_s);
    picUltima->setFrameShape(QFrame::StyledPanel);
    picUltima->setStyleSheet(
        u"#picUltima { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #1d3f72, "
        "stop:1 #12294d); border: none; border-bottom: 2px solid #e0a526; }"
        "#picUltima QLabel { color: white; background: transparent; }"
        "#lblTitoloUltima { color: #f2c75c; }"
        "#imgComm { border: none; background: transparent; }"_s);

    auto *titolo = new QLabel(u"Ultima colonna vincente"_s, picUltima);
    titolo->setObjectName(u"lblTitoloUltima"_s);
    MdiStile::grassetto(titolo);

    m_lblColonna = new QLabel(picUltima);
    m_lblColonna->setObjectName(u"lblColonna"_s);
    QFont fColonna(u"Liberation Mono"_s);
    fColonna.setStyleHint(QFont::Monospace);
    fColonna.setPointSize(PuntiColonnaMassimi);
    fColonna.setBold(true);
    m_lblColonna->setFont(fColonna);
    m_lblColonna->setTextInteractionFlags(Qt::TextSelectableByMouse);

    m_lblData = new QLabel(picUltima);
    m_lblData->setObjectName(u"lblData"_s);
    m_lblData->setToolTip(u"L'anno e il numero (n.) del concorso."_s);
    QFont fData = m_lblData->font();
    fData.setPointSizeF(fData.pointSizeF() * 1.15);
    fData.setBold(true);
    m_lblData->setFont(fData);

    m_lblDati9 = new QLabel(picUltima);
    m_lblDati9->setObjectName(u"lblDati9"_s);
    m_lblDati9->setToolTip(Glossario::formulaNove());
    m_lblDati = new QLabel(picUltima);
    m_lblDati->setObjectName(u"lblDati"_s);
    // The abbreviations of Colonna::lineaQuattordici, one a line.
    m_lblDati->setToolTip(QStringList{Glossario::formulaQuattordici(),
                                      Glossario::sigla(u"Int."_s, Glossario::interruzioni()),
                                      Glossario::sigla(u"Simm."_s, Glossario::simmetrie()),
                                      Glossario::sigla(u"Paral."_s, Glossario::parallele())}
                              .join(u'\n'));
    for (QLabel *l : {m_lblDati9, m_lblDati}) {
        QFont f = l->font();
        f.setPointSizeF(f.pointSizeF() * 1.1);
        l->setFont(f);
    }

    const std::array<QColor, 4> luci{QColor(), QColor(255, 230, 120), QColor(255, 170, 60),
                                     QColor(235, 90, 60)};
    for (int i = 0; i < 4; ++i) {
        m_pic[i] = new QLabel(picUltima);
        m_pic[i]->setObjectName(u"pic%1"_s.arg(i));
        m_pic[i]->setPixmap(busta(luci[i]));
        m_pic[i]->hide();
    }
    m_imgComm = new QPushButton(picUltima);
    m_imgComm->setObjectName(u"imgComm"_s);
    m_imgComm->setIcon(m_pic[0]->pixmap());
    m_imgComm->setIconSize(QSize(32, 32));
    m_imgComm->setFlat(true);
    m_imgComm->setCursor(Qt::PointingHandCursor);
    m_imgComm->setToolTip(u"Non ci sono nuovi messaggi."_s);
    m_timer1 = new QTimer(this);
    m_timer1->setObjectName(u"Timer1"_s);
    m_timer1->setInterval(300);
    connect(m_timer1, &QTimer::timeout, this, &MdiPannello::passoIndicatore);

    auto *sinistra = new QVBoxLayout;
    sinistra->setSpacing(2);
    sinistra->addWidget(titolo);
    sinistra->addWidget(m_lblColonna);
    sinistra->addWidget(m_lblData);
    auto *destra = new QVBoxLayout;
    destra->setSpacing(4);
    destra->addStretch();
    destra->addWidget(m_lblDati9);
    destra->addWidget(m_lblDati);
    destra->addStretch();
    auto *riga = new QHBoxLayout(picUltima);
    riga->setContentsMargins(16, 8, 16, 8);
    riga->setSpacing(SpazioCruscotto);
    riga->addLayout(sinistra);
    riga->addLayout(destra);
    riga->addStretch();
    riga->addWidget(m_imgComm, 0, Qt::AlignVCenter);

    m_area = new QMdiArea(centrale);
    m_area->setObjectName(u"areaSchermi"_s);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setBackground(QColor(96, 108, 128));
    // A screen maximised once leaves the next one opening in its own window, with its frame.
    m_area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    // A screen closed gives the focus back to the one the user was in before it.
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    m_area->viewport()->installEventFilter(this);

    colonna->addWidget(picUltima);
    colonna->addWidget(m_area, 1);
    setCentralWidget(centrale);
}

void MdiPannello::creaBarraStato() {
    // The program's notes, such as where a file went, stand in the status bar for a while. They
    // have a label of their own, so that the status tips of menus pass over them without wiping
    // them, and the user can select the path to copy it.
    QStatusBar *barra = statusBar();
    barra->setObjectName(u"BarraStato"_s);
    m_lblAvviso = new QLabel(barra);
    m_lblAvviso->setObjectName(u"lblAvviso"_s);
    m_lblAvviso->setTextInteractionFlags(Qt::TextSelectableByMouse);
    barra->addWidget(m_lblAvviso, 1);
    auto *scadenza = new QTimer(this);
    scadenza->setObjectName(u"tmrAvviso"_s);
    scadenza->setSingleShot(true);
    scadenza->setInterval(DurataAvvisoStato);
    connect(scadenza, &QTimer::timeout, m_lblAvviso, &QLabel::clear);
    m_stato.dialoghi().setGestoreStato([this, scadenza](const QString &testo) {
        m_lblAvviso->setText(testo);
        scadenza->start();
    });
}

QString MdiPannello::avvisoStato() const {
    return m_lblAvviso->text();
}

void MdiPannello::creaMenu() {
    QHash<QString, QMenu *> sottomenu;
    for (const VoceMenu &v : Menu) {
        const QString nome = testo(v.nome);
        const QString genitore = testo(v.genitore);
        QMenu *contenitore = genitore.isEmpty() ? nullptr : sottomenu.value(genitore);
        if (v.tipo == Tipo::Sottomenu) {
            QMenu *m = contenitore ? contenitore->addMenu(testo(v.didascalia))
                                   : menuBar()->addMenu(testo(v.didascalia));
            m->setObjectName(nome);
            m->menuAction()->setObjectName(nome);
            m->menuAction()->setStatusTip(SuggerimentiMenu::per(nome));
            sottomenu.insert(nome, m);
            continue;
        }
        if (v.tipo == Tipo::Separatore) {
            if (contenitore)
                contenitore->addSeparator();
            continue;
        }
        auto *a = new QAction(testo(v.didascalia), this);
        a->setObjectName(nome);
        a->setStatusTip(SuggerimentiMenu::per(nome));
        if (contenitore)
            contenitore->addAction(a);
        else
            menuBar()->addAction(a);
        m_voci.insert(nome, a);
        if (*v.schermo)
            m_schermoDiVoce.insert(nome, testo(v.schermo));
        connect(a, &QAction::triggered, this, [this, nome] { eseguiAzione(nome); });
    }

    registraAzione(u"mnuEsci"_s, [this] { close(); });
    registraAzione(u"mnuGuida"_s, [this] { apriGuida(); });
    // The keys every desktop program has: F1 for the guide, Ctrl+Q to end.
    m_voci.value(u"mnuGuida"_s)->setShortcut(QKeySequence::HelpContents);
    // F1 reaches the frame from every window of the program; a modal dialog blocks the frame, so
    // each window of a screen carries the action too (portaLaGuida).
    m_voci.value(u"mnuGuida"_s)->setShortcutContext(Qt::ApplicationShortcut);
    m_voci.value(u"mnuEsci"_s)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    m_voci.value(u"mnuEsci"_s)->setShortcutContext(Qt::ApplicationShortcut);
    // Ctrl+, opens the settings, as in most desktop programs.
    m_voci.value(u"mnuImpostazioni"_s)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    registraAzione(u"mnuInformazioni"_s, [this] {
        m_stato.dialoghi().informazione(u"Informazioni su Vespara"_s, testoInformazioni());
    });
    registraAzione(u"mnuCredits"_s,
                   [this] { m_stato.dialoghi().informazione(u"Credits"_s, testoCredits()); });
    m_finestre = new MdiFinestre(*this, sottomenu.value(u"mnuFinestre"_s));
}

void MdiPannello::creaBarra() {
    auto *tb = addToolBar(u"TB"_s);
    tb->setObjectName(u"TB"_s);
    tb->setMovable(false);
    tb->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    tb->setIconSize(QSize(28, 28));
    tb->setCursor(Qt::PointingHandCursor);
    for (const PulsanteBarra &p : Barra) {
        const QString nome = nomePulsante(p.indice);
        auto *a =
            tb->addAction(tessera(testo(p.simbolo), QColor::fromRgb(p.colore)), testo(p.testo));
        a->setObjectName(nome);
        a->setToolTip(testo(p.suggerimento));
        m_voci.insert(nome, a);
        if (*p.schermo)
            m_schermoDiVoce.insert(nome, testo(p.schermo));
        connect(a, &QAction::triggered, this, [this, nome] { eseguiAzione(nome); });
        if (p.indice == 9 || p.indice == 10)
            tb->addSeparator();
    }
    registraAzione(nomePulsante(9), [this] { apriGuida(); });
    registraAzione(nomePulsante(10), [this] { close(); });
}

void MdiPannello::registraSchermo(const QString &nome, Fabbrica fabbrica) {
    m_fabbriche.insert(nome, std::move(fabbrica));
    aggiornaAbilitazioni();
}

void MdiPannello::registraAzione(const QString &nome, std::function<void()> azione) {
    m_azioni.insert(nome, std::move(azione));
    aggiornaAbilitazioni();
}

QAction *MdiPannello::azione(const QString &nome) const {
    return m_voci.value(nome);
}

void MdiPannello::aggiornaAbilitazioni() {
    for (auto it = m_voci.cbegin(); it != m_voci.cend(); ++it) {
        const QString schermo = m_schermoDiVoce.value(it.key());
        it.value()->setEnabled(m_azioni.contains(it.key()) ||
                               (!schermo.isEmpty() && m_fabbriche.contains(schermo)));
    }
}

void MdiPannello::eseguiAzione(const QString &nome) {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        if (const auto azione = m_azioni.value(nome))
            azione();
        else if (const QString schermo = m_schermoDiVoce.value(nome); !schermo.isEmpty())
            mostraSchermo(schermo);
    });
}

QMdiSubWindow *MdiPannello::sottofinestra(const QString &nome) const {
    const QList<QMdiSubWindow *> finestre = m_area->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow *s : finestre)
        if (const QWidget *schermo = MdiScorrimento::schermoDi(s);
            schermo && schermo->objectName() == nome)
            return s;
    return nullptr;
}

QStringList MdiPannello::schermiRegistrati() const {
    QStringList nomi = m_fabbriche.keys();
    nomi.sort();
    return nomi;
}

QWidget *MdiPannello::trovaSchermo(const QString &nome) const {
    if (QMdiSubWindow *s = sottofinestra(nome))
        return MdiScorrimento::schermoDi(s);
    // Dialog screens stand outside the area, as the frame's children.
    for (QDialog *d : findChildren<QDialog *>(nome, Qt::FindDirectChildrenOnly))
        if (d->isVisible())
            return d;
    return nullptr;
}

QWidget *MdiPannello::apriSchermo(const QString &nome) {
    if (QWidget *esistente = trovaSchermo(nome)) {
        attivaSchermo(esistente);
        return esistente;
    }
    const Fabbrica fabbrica = m_fabbriche.value(nome);
    if (!fabbrica)
        return nullptr;
    QWidget *schermo = fabbrica(m_stato, *this);
    if (!schermo)
        return nullptr;
    schermo->setObjectName(nome);
    if (auto *dialogo = qobject_cast<QDialog *>(schermo)) {
        dialogo->setParent(this, dialogo->windowFlags() | Qt::Dialog);
        dialogo->setAttribute(Qt::WA_DeleteOnClose);
        // The keys that move between the screens work in its window as in the frame.
        m_finestre->aggiungiTasti(dialogo);
        dialogo->show();
        MdiStile::primoFuoco(dialogo);
        return dialogo;
    }
    schermo->setAttribute(Qt::WA_DeleteOnClose);
    QMdiSubWindow *s =
        m_area->addSubWindow(new MdiScorrimento(schermo), schermo->windowFlags() & ~Qt::Window);
    s->setAttribute(Qt::WA_DeleteOnClose);
    // A screen closed by its own button takes its sub-window along. Queued: the sub-window may be
    // the one being destroyed, and a queued call to a deleted object is dropped.
    connect(schermo, &QObject::destroyed, s, &QMdiSubWindow::close, Qt::QueuedConnection);
    s->setWindowIcon(windowIcon());
    m_finestre->prendiTasti(s);
    s->adjustSize();
    // Never larger than the area, and in its middle unless the screen keeps its own place.
    if (m_area->isVisible())
        entroLArea(s);
    if (!schermo->property(PosizioneFissa).toBool())
        centraSchermo(schermo);
    s->show();
    m_area->setActiveSubWindow(s);
    MdiStile::primoFuoco(schermo);
    return schermo;
}

void MdiPannello::mostraSchermo(const QString &nome) {
    eseguiProtetto(m_stato.dialoghi(), [&] { apriSchermo(nome); });
}

void MdiPannello::rimostraSchermo(const QString &nome) {
    if (QWidget *vecchio = trovaSchermo(nome)) {
        // The old screen leaves the registry at once, though Qt deletes it later.
        vecchio->setObjectName(QString());
        MdiStile::finestraDi(vecchio)->close();
    }
    mostraSchermo(nome);
}

bool MdiPannello::avvisaSchermo(const QString &nome, const char *metodo) {
    QWidget *schermo = trovaSchermo(nome);
    return schermo && QMetaObject::invokeMethod(schermo, metodo);
}

QList<QWidget *> MdiPannello::schermiAperti() const {
    QList<QWidget *> schermi;
    const QList<QMdiSubWindow *> finestre = m_area->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow *s : finestre)
        if (QWidget *schermo = MdiScorrimento::schermoDi(s))
            schermi.append(schermo);
    for (QDialog *d : findChildren<QDialog *>(Qt::FindDirectChildrenOnly))
        if (d->isVisible() && d->testAttribute(Qt::WA_DeleteOnClose))
            schermi.append(d);
    return schermi;
}

QWidget *MdiPannello::schermoAttivo() const {
    const QList<QWidget *> aperti = schermiAperti();
    for (QWidget *schermo : aperti)
        if (schermo->isWindow() && schermo->isActiveWindow())
            return schermo;
    // The area's current sub-window stays current while a box or another program has the focus.
    return MdiScorrimento::schermoDi(m_area->currentSubWindow());
}

void MdiPannello::attivaSchermo(QWidget *schermo) {
    if (auto *s = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(schermo))) {
        if (!isActiveWindow())
            activateWindow();
        if (s->isMinimized())
            s->showNormal();
        s->show();
        m_area->setActiveSubWindow(s);
        return;
    }
    schermo->show();
    schermo->raise();
    schermo->activateWindow();
}

QString MdiPannello::titoloSchermo(const QWidget *schermo) const {
    const QString titolo = schermo->windowTitle().simplified();
    if (!titolo.isEmpty())
        return titolo;
    // A screen without a title bar is named as the menu entry that opens it.
    for (auto it = m_schermoDiVoce.cbegin(); it != m_schermoDiVoce.cend(); ++it)
        if (it.value() == schermo->objectName() && it.key().startsWith(u"mnu"_s))
            return m_voci.value(it.key())->iconText();
    return schermo->objectName();
}

void MdiPannello::chiudiSchermi() {
    // From the last opened to the first. A closed screen leaves the registry at once, although
    // Qt deletes it later: the caller may be one of these screens, still inside its own event.
    QList<QMdiSubWindow *> finestre = m_area->subWindowList(QMdiArea::CreationOrder);
    std::reverse(finestre.begin(), finestre.end());
    for (QMdiSubWindow *s : finestre) {
        s->close();
        if (s->parent())
            m_area->removeSubWindow(s);
        s->hide();
        s->deleteLater();
    }
    const QList<QDialog *> dialoghi = findChildren<QDialog *>(Qt::FindDirectChildrenOnly);
    for (QDialog *d : dialoghi)
        if (d->isVisible() && d->testAttribute(Qt::WA_DeleteOnClose)) {
            d->close();
            d->setObjectName(QString());
        }
}

void MdiPannello::aggiornaTitolo() {
    setWindowTitle(u"Vespara! ® | Versione %1 | Stagione %2"_s.arg(
        QCoreApplication::applicationVersion(), m_stato.Stagione));
}

void MdiPannello::aggiornaCruscotto() {
    // An archive that could not be read at start-up leaves the dashboard empty until the repair.
    if (m_stato.NumeroColonne() == 0) {
        for (QLabel *l : {m_lblColonna, m_lblData, m_lblDati9, m_lblDati})
            l->clear();
        return;
    }
    const RigaArchivio &r = m_stato.ColonneArchivio.riga(m_stato.NumeroColonne() - 1);
    const QStringList campi(r.begin(), r.end());
    m_lblColonna->setText(Colonna::lineaColonna(r[ArchivioColonne::ColonnaCampo]));
    m_lblData->setText(
        Colonna::lineaConcorso(r[ArchivioColonne::Stagione], r[ArchivioColonne::Concorso]));
    m_lblDati9->setText(Colonna::lineaNove(r[ArchivioColonne::ColonnaCampo]));
    m_lblDati->setText(Colonna::lineaQuattordici(campi));
    adattaCruscotto();
}

void MdiPannello::adattaCruscotto() {
    // The 14 signs are drawn as large as the frame's width allows, so that a narrow desktop
    // (1024 pixels) shows the whole dashboard and a wide one the signs at their full size.
    auto larghezza = [](const QLabel *l, const QFont &f) {
        return QFontMetrics(f).horizontalAdvance(l->text());
    };
    const int destra = std::max(larghezza(m_lblDati9, m_lblDati9->font()),
                                larghezza(m_lblDati, m_lblDati->font()));
    const int resto = 2 * 16 + 3 * SpazioCruscotto + destra + m_imgComm->sizeHint().width();
    QFont f = m_lblColonna->font();
    int punti = PuntiColonnaMassimi;
    for (; punti > PuntiColonnaMinimi; --punti) {
        f.setPointSize(punti);
        if (resto + larghezza(m_lblColonna, f) <= width())
            break;
    }
    f.setPointSize(punti);
    m_lblColonna->setFont(f);
    // The frame may always be made as narrow as the smallest signs allow.
    f.setPointSize(PuntiColonnaMinimi);
    m_lblColonna->setMinimumWidth(larghezza(m_lblColonna, f));
}

void MdiPannello::apriMenuGriglie(QPoint globale) {
    if (!m_menuGriglie)
        m_menuGriglie = new FrmMenuGriglie(m_stato, this);
    m_menuGriglie->apri(globale);
}

void MdiPannello::avviaIndicatore() {
    m_fotogramma = 0;
    m_timer1->start();
}

void MdiPannello::fermaIndicatore() {
    m_timer1->stop();
    m_imgComm->setIcon(m_pic[0]->pixmap());
}

void MdiPannello::passoIndicatore() {
    m_imgComm->setIcon(m_pic[1 + m_fotogramma]->pixmap());
    m_fotogramma = (m_fotogramma + 1) % 3;
}

void MdiPannello::entroLArea(QMdiSubWindow *s) const {
    const QSize area = m_area->viewport()->size();
    if (s->isMaximized() || area.isEmpty())
        return;
    s->setGeometry(dentro(s->geometry(), QRect(QPoint(0, 0), area)));
}

bool MdiPannello::eventFilter(QObject *oggetto, QEvent *e) {
    // The area got smaller (the frame shown on a small desktop, or made smaller): the screens
    // stay inside it, scrolling where they must, rather than going off its edges.
    if (oggetto == m_area->viewport() && e->type() == QEvent::Resize) {
        const QList<QMdiSubWindow *> finestre = m_area->subWindowList();
        for (QMdiSubWindow *s : finestre)
            entroLArea(s);
    }
    return QMainWindow::eventFilter(oggetto, e);
}

void MdiPannello::centraSchermo(QWidget *schermo) const {
    QWidget *finestra = MdiStile::finestraDi(schermo);
    const QSize area = finestra->parentWidget() ? finestra->parentWidget()->size() : size();
    finestra->move(std::max(0, (area.width() - finestra->width()) / 2),
                   std::max(0, (area.height() - finestra->height()) / 2));
}

void MdiPannello::centraControllo(QWidget *controllo) {
    if (const QWidget *form = controllo->parentWidget())
        controllo->move((form->width() - controllo->width()) / 2,
                        (form->height() - controllo->height()) / 2);
}

void MdiPannello::apriGuida() {
    if (!m_guida) {
        m_guida = std::make_unique<FrmGuida>(m_stato.dialoghi());
        m_guida->setWindowIcon(windowIcon());
    }
    // Over an application-modal dialog the guide must be modal too, or it could not be read.
    const QWidget *modale = QApplication::activeModalWidget();
    m_guida->apri(paginaDellaGuida(), modale && modale != m_guida.get() &&
                                          modale->windowModality() == Qt::ApplicationModal);
}

QString MdiPannello::paginaDellaGuida() const {
    if (!m_guida)
        return Guida::paginaCornice();
    const Guida &guida = m_guida->guida();
    QWidget *attiva = QApplication::activeWindow();
    // A window just closed may still be named the active one.
    if (attiva && !attiva->isVisible())
        attiva = nullptr;
    if (attiva == m_guida.get())
        return u"guida.html"_s;
    if (attiva && attiva != this) {
        // A dialog screen, or a window opened by a screen (its box, its preview): the page of
        // the nearest one the guide documents; a window of the frame's own goes by the screen
        // in use in the area.
        QWidget *w = attiva;
        for (; w && w != this; w = w->parentWidget())
            if (m_fabbriche.contains(w->objectName()))
                return guida.paginaDiSchermo(w->objectName());
            else if (const QString pagina = guida.paginaDi(w->objectName()); !pagina.isEmpty())
                return pagina;
        if (!w)
            return Guida::paginaCornice();
    }
    if (const QMdiSubWindow *s = m_area->currentSubWindow())
        if (const QWidget *schermo = MdiScorrimento::schermoDi(s))
            return guida.paginaDiSchermo(schermo->objectName());
    return Guida::paginaCornice();
}

void MdiPannello::portaLaGuida(QWidget *finestra) {
    // A window of the program's own (its screens are named "frm...") carries the action of F1:
    // a modal one blocks the frame, and the frame's action with it.
    // Not a pop-up: a menu would show the action as one of its entries.
    const Qt::WindowType tipo = finestra->windowType();
    if ((tipo == Qt::Window || tipo == Qt::Dialog) && finestra->objectName().startsWith(u"frm"_s) &&
        finestra->contextMenuPolicy() != Qt::ActionsContextMenu)
        finestra->addAction(m_voci.value(u"mnuGuida"_s));
}

void MdiPannello::changeEvent(QEvent *e) {
    QMainWindow::changeEvent(e);
    if (e->type() == QEvent::WindowStateChange)
        ricordaGeometria();
}

QString MdiPannello::testoLicenza() {
    return u"Vespara è software libero: si può ridistribuire e modificare secondo i termini della "
           "GNU General Public License, versione 3 o successiva (GPL-3.0-or-later)."_s;
}

QString MdiPannello::testoCredits() {
    return u"Vespara! ® Versione %1\n"
           "Copyright © 2026 gli sviluppatori di Vespara.\n\n"_s.arg(
               QCoreApplication::applicationVersion()) +
           testoLicenza();
}

QString MdiPannello::testoInformazioni() {
    return u"Vespara! Versione %1\n"
           "Qt %2 (compilato con Qt %3)\n"
           "Copyright © 2026 gli sviluppatori di Vespara.\n\n"_s.arg(
               QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion()),
               QStringLiteral(QT_VERSION_STR)) +
           testoLicenza() + u"\n\n"_s +
           u"L'archivio consegnato con il programma è costruito dai risultati reali delle partite "
           "di Serie A e Serie B, stagioni dal 2013-14 al 2025-26, tratti da una banca dati di "
           "pubblico dominio (CC0). Non è l'archivio ufficiale dei concorsi del Totocalcio."_s;
}

void MdiPannello::mostra() {
    // Whatever the frame was left at, on another desktop maybe, it opens within this one.
    const QRect area = m_stato.schermo().areaDisponibile(screen());
    const QByteArray geometria =
        m_stato.impostazioni().valore(Impostazioni::GeometriaCornice).toByteArray();
    if (!geometria.isEmpty() && restoreGeometry(geometria)) {
        const bool ingrandita = isMaximized();
        if (ingrandita)
            setWindowState(windowState() & ~Qt::WindowMaximized);
        setGeometry(entroLoSchermo(geometry(), area));
        if (ingrandita)
            showMaximized();
        else
            show();
        return;
    }
    // The first time, maximised; made normal, it stands in the middle of the desktop.
    QRect normale(QPoint(0, 0), DimensioniIniziali);
    normale.moveCenter(area.center());
    setGeometry(entroLoSchermo(normale, area));
    showMaximized();
}

QRect MdiPannello::entroLoSchermo(QRect r, const QRect &area) {
    // Room for the title bar and the borders that the window manager adds around the frame.
    return dentro(r, area.adjusted(BordoFinestra.left(), BordoFinestra.top(),
                                   -BordoFinestra.right(), -BordoFinestra.bottom()));
}

QRect MdiPannello::dentro(QRect r, const QRect &spazio) {
    r.setSize(r.size().boundedTo(spazio.size()));
    r.moveLeft(std::clamp(r.left(), spazio.left(), spazio.right() + 1 - r.width()));
    r.moveTop(std::clamp(r.top(), spazio.top(), spazio.bottom() + 1 - r.height()));
    return r;
}

void MdiPannello::ricordaGeometria() {
    // Kept as the user changes it, so that closing the frame saves nothing.
    if (isVisible())
        m_geometria->start();
}

void MdiPannello::resizeEvent(QResizeEvent *e) {
    QMainWindow::resizeEvent(e);
    adattaCruscotto();
    ricordaGeometria();
}

void MdiPannello::moveEvent(QMoveEvent *e) {
    QMainWindow::moveEvent(e);
    ricordaGeometria();
}

void MdiPannello::closeEvent(QCloseEvent *e) {
    // Every writer persists as it works: closing the frame ends the program at once. An operation
    // still under way (an update waiting for the site) stops where it is and writes nothing more.
    m_stato.rete().chiudi();
    m_stato.dialoghi().silenzia();
    if (m_guida)
        m_guida->close();
    e->accept();
    emit chiusa();
}
