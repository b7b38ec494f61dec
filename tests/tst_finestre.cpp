// Every screen at the sizes of the desktops the program meets: at 1024×768 nothing falls off the
// frame and every button can be reached; at 1920×1080 a maximised screen lets its grids and lists
// grow; a screen maximised once leaves the next one with its own frame. Every screen opens with
// the keyboard on its first field or its main button, never on its close mark.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "core/mdistile.h"
#include "cornice/mdipannello.h"
#include "piattaforma/griglia.h"
#include "piattaforma/serverhttp.h"
#include "piattaforma/vistagriglia.h"
#include "supporto/strumentiprova.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

bool dentroUnaVista(QWidget *w, QWidget *schermo) {
    for (QWidget *p = w->parentWidget(); p && p != schermo; p = p->parentWidget())
        if (qobject_cast<QAbstractScrollArea *>(p))
            return true;
    return false;
}

// The controls a user sees on a screen (the insides of grids and lists excluded).
QList<QWidget *> controlliVisibili(QWidget *schermo) {
    QList<QWidget *> visibili;
    const QList<QWidget *> tutti = schermo->findChildren<QWidget *>();
    for (QWidget *w : tutti)
        if (w->isVisibleTo(schermo) && !w->isWindow() && !dentroUnaVista(w, schermo) &&
            (qobject_cast<QAbstractButton *>(w) || qobject_cast<QLabel *>(w) ||
             qobject_cast<QAbstractScrollArea *>(w)))
            visibili.append(w);
    return visibili;
}

// Where a control stands, in the coordinates of the frame's area (or of the dialog).
QRect rettangolo(QWidget *w, QWidget *riferimento) {
    return QRect(w->mapTo(riferimento, QPoint(0, 0)), w->size());
}

// Scrolls as a user would until the whole control is in sight (or as much of it as fits).
void mostraNelloScorrimento(QScrollArea *scorrimento, QWidget *schermo, QWidget *c) {
    const QRect r(c->mapTo(schermo, QPoint(0, 0)), c->size());
    const QSize vista = scorrimento->viewport()->size();
    const auto porta = [](QScrollBar *barra, int inizio, int fine, int lato) {
        if (fine > barra->value() + lato)
            barra->setValue(fine - lato);
        if (inizio < barra->value())
            barra->setValue(inizio);
    };
    porta(scorrimento->horizontalScrollBar(), r.left(), r.right() + 1, vista.width());
    porta(scorrimento->verticalScrollBar(), r.top(), r.bottom() + 1, vista.height());
}

QStringList schermiDaProvare(MdiPannello &p) {
    QStringList nomi = p.schermiRegistrati();
    // The waiting box belongs to long operations, not to the menu.
    nomi.removeAll(u"frmAttendere"_s);
    return nomi;
}

// The staff's messages on a loopback site, so that the messages screen opens as well.
bool avviaConSito(AmbienteProva &a, ServerHttp &server) {
    const QString cartella = u"/comunicazioniVp/"_s;
    server.imposta(cartella + u"new.htm"_s, "1");
    for (const QString &nome : {u"data.htm"_s, u"titolo.htm"_s, u"riga1.htm"_s, u"riga2.htm"_s,
                                u"riga3.htm"_s, u"riga4.htm"_s, u"staff.htm"_s})
        server.imposta(cartella + nome, "Prova");
    server.imposta(cartella + u"link.htm"_s, "");
    if (!server.avvia())
        return false;
    a.impostaSito(server.radice());
    return a.avvia();
}

// A control that takes the keyboard: a field, a list or grid, a button.
bool campoOPulsante(QWidget *w) {
    return qobject_cast<QAbstractButton *>(w) || qobject_cast<QLineEdit *>(w) ||
           qobject_cast<QComboBox *>(w) || qobject_cast<QAbstractSpinBox *>(w) ||
           qobject_cast<QAbstractItemView *>(w) || qobject_cast<QTextEdit *>(w) ||
           qobject_cast<QPlainTextEdit *>(w) || qobject_cast<QAbstractSlider *>(w);
}

// What is wrong with the focus of a screen just opened; empty when it is on a control of it.
QString fuocoSbagliato(QWidget *schermo) {
    QWidget *fuoco = QApplication::focusWidget();
    if (!fuoco)
        return u"nessun controllo ha il fuoco"_s;
    const QString nome = u"%1 (%2)"_s.arg(fuoco->objectName(),
                                          QString::fromLatin1(fuoco->metaObject()->className()));
    if (!schermo->isAncestorOf(fuoco))
        return u"il fuoco è fuori dallo schermo, su "_s + nome;
    if (fuoco->objectName() == u"lblEsci"_s)
        return u"il fuoco è sulla X di chiusura"_s;
    if (!campoOPulsante(fuoco))
        return u"il fuoco non è su un campo né su un pulsante: "_s + nome;
    return {};
}

bool attivaCornice(MdiPannello &p) {
    QCoreApplication::processEvents();
    p.activateWindow();
    return QTest::qWaitForWindowActive(&p);
}

// Types the text as a user does: each key to the window that has the keyboard.
void digita(const QString &testo) {
    for (const QChar c : testo)
        QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
}

} // namespace

class TstFinestre : public QObject {
    Q_OBJECT

private slots:
    void ogniSchermoEntra_data();
    void ogniSchermoEntra();
    void ingranditoCresce();
    void ingranditoNonToglieLaCornice();
    void segniFissiNonSpostanoIGruppi();
    void primoFuocoDiOgniSchermo();
    void spazioNonChiudeLoSchermoAppenaAperto();
    void tastiArrivanoAGestioneEComunicazioni();
    void controlloIndicatoDalloSchermo();
    void colonnaAllargataSiLegge_data();
    void colonnaAllargataSiLegge();
};

void TstFinestre::ogniSchermoEntra_data() {
    QTest::addColumn<QSize>("cornice");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("1280x800") << QSize(1280, 800);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TstFinestre::ogniSchermoEntra() {
    QFETCH(QSize, cornice);
    AmbienteProva a(cornice);
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(cornice);
    QTRY_COMPARE(p.size(), cornice);
    const QStringList nomi = schermiDaProvare(p);
    QVERIFY(nomi.size() >= 10);
    for (const QString &nome : nomi) {
        p.chiudiSchermi();
        QCoreApplication::processEvents();
        QWidget *schermo = p.apriSchermo(nome);
        if (!schermo)
            continue; // a screen that refuses to open here says so in its own box
        QCoreApplication::processEvents();
        QWidget *finestra = MdiStile::finestraDi(schermo);
        const bool dialogo = qobject_cast<QDialog *>(schermo) != nullptr;
        QWidget *riferimento = dialogo ? schermo : p.area()->viewport();
        const QRect spazio = dialogo ? schermo->rect() : p.area()->viewport()->rect();
        const QString dove = u"%1 a %2x%3"_s.arg(nome).arg(cornice.width()).arg(cornice.height());
        if (!dialogo)
            QVERIFY2(spazio.contains(rettangolo(finestra, riferimento)),
                     qPrintable(dove + u": la finestra esce dall'area"_s));
        else
            QVERIFY2(schermo->width() <= cornice.width() && schermo->height() <= cornice.height(),
                     qPrintable(dove + u": il dialogo è più grande della cornice"_s));
        // The screen keeps the size its layout needs: where the window is smaller, it scrolls.
        QVERIFY2(schermo->width() >= schermo->minimumSizeHint().width() &&
                     schermo->height() >= schermo->minimumSizeHint().height(),
                 qPrintable(dove + u": schermo schiacciato"_s));
        // Every control can be brought into view, and no label is cut.
        const QList<QWidget *> controlli = controlliVisibili(schermo);
        auto *scorrimento = qobject_cast<QScrollArea *>(
            schermo->parentWidget() ? schermo->parentWidget()->parentWidget() : nullptr);
        for (QWidget *c : controlli) {
            QWidget *vista = scorrimento ? scorrimento->viewport() : schermo;
            if (scorrimento) {
                mostraNelloScorrimento(scorrimento, schermo, c);
                QCoreApplication::processEvents();
            }
            const QRect r = rettangolo(c, vista);
            QVERIFY2(vista->rect().contains(r) || r.width() > vista->width() ||
                         r.height() > vista->height(),
                     qPrintable(dove + u": %1 non raggiungibile (%2,%3 %4x%5 in %6x%7)"_s
                                           .arg(c->objectName())
                                           .arg(r.x())
                                           .arg(r.y())
                                           .arg(r.width())
                                           .arg(r.height())
                                           .arg(vista->width())
                                           .arg(vista->height())));
            if (auto *l = qobject_cast<QLabel *>(c); l && !l->wordWrap() && !l->text().isEmpty() &&
                                                     l->textFormat() != Qt::RichText &&
                                                     !l->text().contains(u'<'))
                // A label that names its field's access key shows its text without the mark.
                QVERIFY2(l->width() >=
                             l->fontMetrics().horizontalAdvance(
                                 l->buddy() ? StrumentiProva::testoMostrato(l->text()) : l->text()),
                         qPrintable(dove + u": etichetta tagliata \"%1\""_s.arg(l->text())));
        }
        for (qsizetype i = 0; i < controlli.size(); ++i)
            for (qsizetype j = i + 1; j < controlli.size(); ++j) {
                QWidget *u = controlli[i];
                QWidget *v = controlli[j];
                if (u->parentWidget() != v->parentWidget())
                    continue;
                const QRect comune = u->geometry() & v->geometry();
                QVERIFY2(comune.width() <= 1 || comune.height() <= 1,
                         qPrintable(dove + u": %1 e %2 si sovrappongono"_s.arg(u->objectName(),
                                                                               v->objectName())));
            }
        AmbienteProva::fotografa(dialogo ? schermo : static_cast<QWidget *>(&p),
                                 u"%1-%2"_s.arg(nome).arg(cornice.width()));
    }
}

void TstFinestre::ingranditoCresce() {
    // Maximised at 1920×1080, the grids and lists of a screen take the room they are given.
    AmbienteProva a(QSize(1920, 1080));
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(1920, 1080);
    const QStringList nomi = schermiDaProvare(p);
    int provati = 0;
    for (const QString &nome : nomi) {
        p.chiudiSchermi();
        QCoreApplication::processEvents();
        QWidget *schermo = p.apriSchermo(nome);
        if (!schermo || qobject_cast<QDialog *>(schermo))
            continue;
        auto *s = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(schermo));
        QVERIFY(s);
        QList<QAbstractScrollArea *> viste;
        for (QAbstractScrollArea *v : schermo->findChildren<QAbstractScrollArea *>())
            if ((qobject_cast<QTableView *>(v) || qobject_cast<QListWidget *>(v)) &&
                v->isVisibleTo(schermo))
                viste.append(v);
        if (viste.isEmpty())
            continue;
        QList<QSize> prima;
        for (QAbstractScrollArea *v : std::as_const(viste))
            prima.append(v->size());
        s->showMaximized();
        QCoreApplication::processEvents();
        if (schermo->maximumSize().width() < p.area()->width() ||
            schermo->maximumSize().height() < p.area()->height())
            continue; // a screen of fixed size keeps it
        ++provati;
        bool cresciuta = false;
        for (qsizetype i = 0; i < viste.size(); ++i)
            cresciuta = cresciuta || viste[i]->width() > prima[i].width() ||
                        viste[i]->height() > prima[i].height();
        QVERIFY2(cresciuta, qPrintable(nome + u": le griglie non crescono"_s));
        AmbienteProva::fotografa(&p, u"%1-ingrandito"_s.arg(nome));
    }
    QVERIFY(provati >= 3);
}

void TstFinestre::ingranditoNonToglieLaCornice() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.chiudiSchermi();
    QWidget *primo = p.apriSchermo(u"frmColonne9"_s);
    QVERIFY(primo);
    auto *s1 = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(primo));
    s1->showMaximized();
    QVERIFY(s1->isMaximized());
    QWidget *secondo = p.apriSchermo(u"frmArchivio"_s);
    QVERIFY(secondo);
    auto *s2 = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(secondo));
    QCoreApplication::processEvents();
    QVERIFY(!s2->isMaximized());
    QCOMPARE(p.area()->activeSubWindow(), s2);
    // Its own title bar: the sub-window is larger than the screen it holds.
    QVERIFY(s2->height() > secondo->height());
}

void TstFinestre::segniFissiNonSpostanoIGruppi() {
    // Opening the input of the fixed signs makes its own group taller; every other group keeps its
    // size, and the search of a column its place too.
    AmbienteProva a(QSize(1024, 768));
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(1024, 768);
    p.chiudiSchermi();
    QWidget *frm = p.apriSchermo(u"frmColonne9"_s);
    QVERIFY(frm);
    QTest::mouseClick(frm->findChild<QPushButton *>(u"cmdAvvia"_s), Qt::LeftButton);
    auto *chk = frm->findChild<QCheckBox *>(u"chkFiltra"_s);
    QTRY_VERIFY(chk->isEnabled());
    QCoreApplication::processEvents();
    auto gruppi = [frm] {
        QHash<QString, QSize> dove;
        for (QGroupBox *g : frm->findChildren<QGroupBox *>())
            if (!g->isAncestorOf(frm->findChild<QWidget *>(u"picFiltro"_s)))
                dove.insert(g->title() + u'|' + QString::number(g->x()), g->size());
        return dove;
    };
    const auto prima = gruppi();
    QVERIFY(prima.size() >= 6);
    QGroupBox *ricerca = nullptr;
    for (QGroupBox *g : frm->findChildren<QGroupBox *>())
        if (g->title() == u"Esamina colonna"_s)
            ricerca = g;
    QVERIFY(ricerca);
    const QRect doveRicerca(ricerca->mapTo(frm, QPoint(0, 0)), ricerca->size());
    QTest::mouseClick(chk, Qt::LeftButton, {}, QPoint(6, chk->height() / 2));
    QTRY_VERIFY(frm->findChild<QWidget *>(u"picFiltro"_s)->isVisible());
    QCoreApplication::processEvents();
    const auto dopo = gruppi();
    QCOMPARE(dopo, prima);
    QCOMPARE(QRect(ricerca->mapTo(frm, QPoint(0, 0)), ricerca->size()), doveRicerca);
    AmbienteProva::fotografa(&p, u"frmColonne9-segni-fissi"_s);
}

void TstFinestre::primoFuocoDiOgniSchermo() {
    QTemporaryDir cartella;
    ServerHttp server(cartella.path());
    AmbienteProva a;
    QVERIFY(avviaConSito(a, server));
    MdiPannello &p = a.pannello();
    const QStringList nomi = schermiDaProvare(p);
    QStringList aperti;
    for (const QString &nome : nomi) {
        p.chiudiSchermi();
        // The user opens a screen from the frame, which has the keyboard then (a closed dialog
        // gives it back on a desktop; the test's platform does not).
        QVERIFY(attivaCornice(p));
        QWidget *schermo = p.apriSchermo(nome);
        if (!schermo)
            continue; // a screen that refuses to open here says so in its own box
        aperti.append(nome);
        QTRY_VERIFY2(fuocoSbagliato(schermo).isEmpty(),
                     qPrintable(nome + u": "_s + fuocoSbagliato(schermo)));
        QCOMPARE(QApplication::focusWidget(), MdiStile::controlloIniziale(schermo));
    }
    // The messages too, and the screens without a title bar.
    for (const QString &nome : {u"frmComm"_s, u"frmGestione"_s, u"frmClassifiche"_s,
                                u"frmPannelloSegni"_s, u"frmStatSegni"_s})
        QVERIFY2(aperti.contains(nome), qPrintable(nome));
    QVERIFY(aperti.size() >= 20);
}

void TstFinestre::spazioNonChiudeLoSchermoAppenaAperto() {
    // The screens without a title bar have their red X: a Space right after the opening goes to
    // the control that has the keyboard, and the screen stays.
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    int provati = 0;
    for (const QString &nome : schermiDaProvare(p)) {
        p.chiudiSchermi();
        QVERIFY(attivaCornice(p));
        QPointer<QWidget> schermo = p.apriSchermo(nome);
        if (!schermo || !schermo->findChild<QPushButton *>(u"lblEsci"_s))
            continue;
        ++provati;
        QTRY_VERIFY2(fuocoSbagliato(schermo).isEmpty(),
                     qPrintable(nome + u": "_s + fuocoSbagliato(schermo)));
        QWidget *fuoco = QApplication::focusWidget();
        // A push button in focus would act on Space: the button of the screen's own action is
        // fine, but not the close mark; a check box or option would change, so none is first.
        QVERIFY2(fuoco->objectName() != u"lblEsci"_s, qPrintable(nome));
        if (qobject_cast<QAbstractButton *>(fuoco))
            continue; // that button's own action, not the closing, is what Space does
        QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Space);
        QCoreApplication::processEvents();
        QVERIFY2(schermo && p.trovaSchermo(nome) == schermo, qPrintable(nome + u" chiuso"_s));
        // A blank typed in a field is taken back, so that the screen closes with nothing changed.
        if (auto *campo = qobject_cast<QLineEdit *>(fuoco))
            campo->undo();
    }
    QVERIFY(provati >= 5);
    // Tab still reaches the close mark, and there a Space closes the screen.
    p.chiudiSchermi();
    QCoreApplication::processEvents();
    QPointer<QWidget> gestione = p.apriSchermo(u"frmGestione"_s);
    QVERIFY(gestione);
    auto *esci = gestione->findChild<QPushButton *>(u"lblEsci"_s);
    QVERIFY(esci->focusPolicy() & Qt::TabFocus);
    for (int i = 0; i < 20 && QApplication::focusWidget() != esci; ++i)
        QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), esci);
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Space);
    QTRY_VERIFY(!p.trovaSchermo(u"frmGestione"_s));
}

void TstFinestre::tastiArrivanoAGestioneEComunicazioni() {
    QTemporaryDir cartella;
    ServerHttp server(cartella.path());
    AmbienteProva a;
    QVERIFY(avviaConSito(a, server));
    MdiPannello &p = a.pannello();

    // The edit of the archive, from its menu entry (behind the waiting box): the keys typed
    // go to its first field.
    p.findChild<QAction *>(u"mnuModifica"_s)->trigger();
    QWidget *gestione = p.trovaSchermo(u"frmGestione"_s);
    QVERIFY(gestione);
    QTRY_VERIFY2(fuocoSbagliato(gestione).isEmpty(), qPrintable(fuocoSbagliato(gestione)));
    auto *stagione = gestione->findChild<QLineEdit *>(u"txtStagione"_s);
    QCOMPARE(QApplication::focusWidget(), stagione);
    const QString prima = stagione->text();
    digita(u"7"_s);
    QCOMPARE(stagione->text(), prima + u"7"_s);
    QCOMPARE(a.dialoghi.boxes.size(), 0);

    // The messages, from their menu entry: the keyboard is on the screen, and Tab walks it.
    p.findChild<QAction *>(u"mnuComunicazioni"_s)->trigger();
    QWidget *comm = p.trovaSchermo(u"frmComm"_s);
    QVERIFY(comm);
    QTRY_VERIFY2(fuocoSbagliato(comm).isEmpty(), qPrintable(fuocoSbagliato(comm)));
    QWidget *primo = QApplication::focusWidget();
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget() != primo);
    QVERIFY(comm->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(a.dialoghi.boxes.size(), 0);
}

void TstFinestre::controlloIndicatoDalloSchermo() {
    // A screen that names its first control has the keyboard there; a control that can't take
    // it (disabled) leaves another control of the screen, never the close mark.
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    QWidget *gestione = p.apriSchermo(u"frmGestione"_s);
    QVERIFY(gestione);
    auto *colonna = gestione->findChild<QLineEdit *>(u"txtColonna"_s);
    auto *stagione = gestione->findChild<QLineEdit *>(u"txtStagione"_s);
    QTRY_COMPARE(QApplication::focusWidget(), stagione);
    MdiStile::primoControllo(gestione, colonna);
    QCOMPARE(MdiStile::controlloIniziale(gestione), colonna);
    MdiStile::primoFuoco(gestione);
    QTRY_COMPARE(QApplication::focusWidget(), colonna);
    colonna->setEnabled(false);
    stagione->setEnabled(false);
    QWidget *poi = MdiStile::controlloIniziale(gestione);
    QVERIFY(poi && poi != colonna && poi != stagione);
    QVERIFY(poi->isEnabled() && gestione->isAncestorOf(poi));
    QVERIFY(poi->objectName() != u"lblEsci"_s);
}

void TstFinestre::colonnaAllargataSiLegge_data() {
    QTest::addColumn<QSize>("cornice");
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<int>("colonna");
    QTest::addColumn<int>("trascina"); // pixels the edge is dragged; 0: a double click on it
    for (const QSize dimensione : {QSize(1024, 768), QSize(1920, 1080)}) {
        const QByteArray dove = QByteArray::number(dimensione.width());
        QTest::newRow("archivio, " + dove)
            << dimensione << u"mnuArchivio"_s << u"frmArchivio"_s << 2 << 90;
        QTest::newRow("classifica, " + dove)
            << dimensione << u"mnuSerieA"_s << u"frmClassifiche"_s << 1 << 0;
    }
}

void TstFinestre::colonnaAllargataSiLegge() {
    // A column fitted to its texts by a double click on the edge of its header is read whole:
    // the grid and its window grow with it as far as the frame allows, and the column can be
    // brought into sight.
    QFETCH(QSize, cornice);
    QFETCH(QString, voce);
    QFETCH(QString, schermo);
    QFETCH(int, colonna);
    QFETCH(int, trascina);
    AmbienteProva a(cornice);
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(cornice);
    QTRY_COMPARE(p.size(), cornice);
    p.chiudiSchermi();
    QCoreApplication::processEvents();
    p.findChild<QAction *>(voce)->trigger();
    QWidget *frm = p.trovaSchermo(schermo);
    QVERIFY(frm);
    QCoreApplication::processEvents();
    auto *vista = frm->findChild<VistaGriglia *>(u"Griglia"_s);
    QVERIFY(vista);
    const Griglia &g = *vista->griglia();
    int piuLungo = 0;
    for (int r = 1; r < g.righe(); ++r) {
        QFont f = vista->font();
        f.setBold(g.grassetto(r, colonna));
        if (g.dimensioneCarattere(r, colonna) > 0)
            f.setPointSizeF(g.dimensioneCarattere(r, colonna));
        piuLungo = std::max(piuLungo, QFontMetrics(f).horizontalAdvance(g.testo(r, colonna)));
    }
    const int prima = vista->columnWidth(colonna);
    if (trascina == 0) {
        QVERIFY2(prima < piuLungo, "la colonna si legge già tutta: nulla da provare");
        StrumentiProva::doppioClicBordo(vista, colonna);
        QVERIFY(vista->columnWidth(colonna) >= piuLungo);
    } else {
        StrumentiProva::trascinaBordo(vista, colonna, trascina);
        QCOMPARE(vista->columnWidth(colonna), prima + trascina);
    }
    QCOMPARE(Griglia::twipsInPixel(g.larghezzaColonna(colonna)), prima);
    QCoreApplication::processEvents();
    QWidget *finestra = MdiStile::finestraDi(frm);
    QTRY_VERIFY(p.area()->viewport()->rect().contains(finestra->geometry()));
    // The whole column in sight, once scrolled to.
    vista->scrollTo(g.index(1, colonna));
    auto *scorrimento = qobject_cast<QScrollArea *>(frm->parentWidget()->parentWidget());
    QVERIFY(scorrimento);
    const QRect cella = vista->visualRect(g.index(1, colonna));
    const QRect inVista(vista->viewport()->mapTo(frm, cella.topLeft()), cella.size());
    mostraNelloScorrimento(scorrimento, frm, vista);
    QCoreApplication::processEvents();
    QVERIFY(vista->viewport()->rect().contains(cella));
    QVERIFY2(scorrimento->widget()->rect().contains(inVista), "colonna fuori dallo schermo");
    if (cornice.width() >= 1920)
        QVERIFY(scorrimento->viewport()->width() >= frm->width()); // all of it, no scrolling
    AmbienteProva::fotografa(&p, u"%1-colonna-allargata-%2"_s.arg(schermo).arg(cornice.width()));
}

QTEST_MAIN(TstFinestre)
#include "tst_finestre.moc"
