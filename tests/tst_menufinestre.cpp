// The windows of the frame as a user handles them: the menu "Finestre" (arrange, close all, the
// list of the open screens), the keys that move between screens and close them, Ctrl+Z in the
// workspace of the 9, the frame's first size on the desktop, the status tips of the menu and the
// credits box.
#include "supporto/ambienteprova.h"

#include "analisi/frmcolonne9.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "cornice/mdiprogramma.h"
#include "piattaforma/impostazioni.h"
#include "supporto/strumentiprova.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Pannello = u"frmPannelloSegni"_s;

QMenu *menuFinestre(MdiPannello &p) {
    return p.findChild<QMenu *>(u"mnuFinestre"_s);
}

// Opens the menu "Finestre" from the menu bar, as a click on its title does.
QMenu *apriMenuFinestre(MdiPannello &p) {
    QMenu *m = menuFinestre(p);
    QMenuBar *barra = p.menuBar();
    QTest::mouseClick(barra, Qt::LeftButton, {}, barra->actionGeometry(m->menuAction()).center());
    if (!QTest::qWaitForWindowExposed(m))
        return nullptr;
    return m;
}

// The entries of the menu that list the open screens.
QList<QAction *> elenco(QMenu *m) {
    QList<QAction *> voci;
    const QList<QAction *> tutte = m->actions();
    for (QAction *a : tutte)
        if (a->objectName().startsWith(u"mnuFinestra("_s))
            voci.append(a);
    return voci;
}

// Clicks an entry of an open menu; the menu closes.
void scegli(QMenu *m, QAction *a) {
    QTest::mouseClick(m, Qt::LeftButton, {}, m->actionGeometry(a).center());
    QTRY_VERIFY(!m->isVisible());
}

// Opens screens from their menu entries, in that order.
void apri(MdiPannello &p, const QStringList &voci) {
    for (const QString &voce : voci)
        p.findChild<QAction *>(voce)->trigger();
}

QStringList nomi(const QList<QWidget *> &schermi) {
    QStringList n;
    for (const QWidget *s : schermi)
        n.append(s->objectName());
    return n;
}

QString nomeAttivo(MdiPannello &p) {
    const QWidget *s = p.schermoAttivo();
    return s ? s->objectName() : QString();
}

// Every action under a menu, its submenus' included.
void azioniDi(const QWidget *menu, QList<QAction *> &azioni) {
    const QList<QAction *> proprie = menu->actions();
    for (QAction *a : proprie) {
        azioni.append(a);
        if (a->menu())
            azioniDi(a->menu(), azioni);
    }
}

} // namespace

class TstMenuFinestre : public QObject {
    Q_OBJECT

private slots:
    void elencoDelleFinestre();
    void sovrapponiEAffianca();
    void chiudiTutteTranneIlPannello();
    void tastiTraGliSchermi_data();
    void tastiTraGliSchermi();
    void tastiDiChiusura_data();
    void tastiDiChiusura();
    void schermoInUnaFinestraPropria();
    void ctrlZNelLavoroDel9();
    void primaDimensione_data();
    void primaDimensione();
    void geometriaDaUnoSchermoPiuGrande();
    void suggerimentiDelMenu();
    void suggerimentoNonCancellaLAvviso();
    void creditsELicenza();
    void affiancateColMenuAperto_data();
    void affiancateColMenuAperto();
};

void TstMenuFinestre::elencoDelleFinestre() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    apri(p, {u"mnuArchivio"_s, u"mnuStatSegni"_s, u"mnuFormule"_s});
    const QList<QWidget *> aperti = p.schermiAperti();
    QCOMPARE(nomi(aperti),
             (QStringList{Pannello, u"frmArchivio"_s, u"frmStatSegni"_s, u"frmFormule"_s}));

    QMenu *m = apriMenuFinestre(p);
    QVERIFY(m);
    const QList<QAction *> voci = elenco(m);
    QCOMPARE(voci.size(), aperti.size());
    for (qsizetype i = 0; i < voci.size(); ++i) {
        // Numbered, with the digit as access key, and named by the screen's title.
        QVERIFY2(voci[i]->text().startsWith(u"&%1 "_s.arg(i + 1)), qPrintable(voci[i]->text()));
        QCOMPARE(voci[i]->text().mid(3), aperti[i]->windowTitle().simplified());
        QVERIFY(voci[i]->isEnabled());
        // The last opened is the active one, and only it is checked.
        QCOMPARE(voci[i]->isChecked(), i == aperti.size() - 1);
    }
    // The list comes after the fixed entries and a separator.
    const QList<QAction *> tutte = m->actions();
    QCOMPARE(tutte.at(0)->objectName(), u"mnuSovrapponi"_s);
    QCOMPARE(tutte.at(1)->objectName(), u"mnuAffianca"_s);
    QCOMPARE(tutte.at(2)->objectName(), u"mnuChiudiTutte"_s);
    QVERIFY(tutte.at(3)->isSeparator());
    QCOMPARE(tutte.at(4), voci.first());

    // Picking an entry brings its screen forward; the menu shows it checked next time.
    scegli(m, voci.at(1));
    QCOMPARE(nomeAttivo(p), u"frmArchivio"_s);
    QCOMPARE(p.area()->activeSubWindow()->widget()->findChild<QWidget *>(u"frmArchivio"_s),
             aperti.at(1));
    m = apriMenuFinestre(p);
    QVERIFY(m);
    const QList<QAction *> dopo = elenco(m);
    QCOMPARE(dopo.size(), 4);
    QVERIFY(dopo.at(1)->isChecked());
    QVERIFY(!dopo.at(3)->isChecked());
    m->hide();
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::sovrapponiEAffianca() {
    AmbienteProva a(QSize(1024, 768));
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(1024, 768);
    QTRY_COMPARE(p.size(), QSize(1024, 768));
    apri(p, {u"mnuArchivio"_s, u"mnuStatSegni"_s, u"mnuFormule"_s});
    const QList<QMdiSubWindow *> finestre = p.area()->subWindowList(QMdiArea::CreationOrder);
    QCOMPARE(finestre.size(), 4);
    const auto posizioni = [&] {
        QList<QRect> r;
        for (const QMdiSubWindow *s : finestre)
            r.append(s->geometry());
        return r;
    };
    const QList<QRect> prima = posizioni();

    QMenu *m = apriMenuFinestre(p);
    QVERIFY(m);
    scegli(m, p.azione(u"mnuAffianca"_s));
    const QList<QRect> affiancate = posizioni();
    QVERIFY(affiancate != prima);
    // Everything in sight: the area needs no scroll bar.
    QRect area = p.area()->viewport()->rect();
    QCOMPARE(area.size(), p.area()->maximumViewportSize());
    for (qsizetype i = 0; i < affiancate.size(); ++i) {
        QVERIFY2(area.contains(affiancate[i]), qPrintable(finestre[i]->windowTitle()));
        // Side by side: no window covers another.
        for (qsizetype j = i + 1; j < affiancate.size(); ++j)
            QVERIFY(!affiancate[i].intersects(affiancate[j]));
    }

    m = apriMenuFinestre(p);
    QVERIFY(m);
    scegli(m, p.azione(u"mnuSovrapponi"_s));
    const QList<QRect> sovrapposte = posizioni();
    QVERIFY(sovrapposte != affiancate);
    area = p.area()->viewport()->rect();
    QCOMPARE(area.size(), p.area()->maximumViewportSize());
    // In cascade: each a step lower and further right than the one before, all within the area.
    const QList<QMdiSubWindow *> ordine = p.area()->subWindowList(QMdiArea::StackingOrder);
    for (qsizetype i = 0; i < ordine.size(); ++i) {
        QVERIFY2(area.contains(ordine[i]->geometry()),
                 qPrintable(u"%1,%2 %3x%4 min %5x%6"_s.arg(ordine[i]->x())
                                .arg(ordine[i]->y())
                                .arg(ordine[i]->width())
                                .arg(ordine[i]->height())
                                .arg(ordine[i]->minimumSizeHint().width())
                                .arg(ordine[i]->minimumSizeHint().height())));
        if (i > 0) {
            QVERIFY(ordine[i]->x() > ordine[i - 1]->x());
            QVERIFY(ordine[i]->y() > ordine[i - 1]->y());
        }
    }
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::chiudiTutteTranneIlPannello() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    // With the panel alone there is nothing to close.
    QMenu *m = apriMenuFinestre(p);
    QVERIFY(m);
    QVERIFY(!p.azione(u"mnuChiudiTutte"_s)->isEnabled());
    QVERIFY(p.azione(u"mnuAffianca"_s)->isEnabled());
    m->hide();

    apri(p, {u"mnuArchivio"_s, u"mnuInserisci"_s, u"mnuFormule"_s});
    QCOMPARE(p.schermiAperti().size(), 4);
    m = apriMenuFinestre(p);
    QVERIFY(m);
    QVERIFY(p.azione(u"mnuChiudiTutte"_s)->isEnabled());
    scegli(m, p.azione(u"mnuChiudiTutte"_s));
    QTRY_COMPARE(nomi(p.schermiAperti()), QStringList{Pannello});
    QTRY_COMPARE(p.area()->subWindowList().size(), 1);

    // The panel closed too, nothing is open: the entries are off, the list is empty.
    p.area()->closeAllSubWindows();
    QTRY_VERIFY(p.schermiAperti().isEmpty());
    m = apriMenuFinestre(p);
    QVERIFY(m);
    for (const char *voce : {"mnuSovrapponi", "mnuAffianca", "mnuChiudiTutte"})
        QVERIFY2(!p.azione(QString::fromLatin1(voce))->isEnabled(), voce);
    QVERIFY(elenco(m).isEmpty());
    m->hide();
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::tastiTraGliSchermi_data() {
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QString>("controllo");
    // A field, which takes Tab for itself; a grid, which moves its cell with Tab.
    QTest::newRow("campo") << u"frmInserisci"_s << u"txtColonna"_s;
    QTest::newRow("griglia") << u"frmArchivio"_s << QString();
}

void TstMenuFinestre::tastiTraGliSchermi() {
    QFETCH(QString, schermo);
    QFETCH(QString, controllo);
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    apri(p,
         {u"mnuStatSegni"_s, schermo == u"frmArchivio"_s ? u"mnuArchivio"_s : u"mnuInserisci"_s});
    const QStringList ordine = nomi(p.schermiAperti());
    QCOMPARE(ordine, (QStringList{Pannello, u"frmStatSegni"_s, schermo}));
    QWidget *s = p.trovaSchermo(schermo);
    QWidget *fuoco =
        controllo.isEmpty() ? s->findChild<QTableView *>() : s->findChild<QWidget *>(controllo);
    QVERIFY(fuoco);
    fuoco->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), fuoco);

    // Forward goes round from the last to the first.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QTRY_COMPARE(nomeAttivo(p), Pannello);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    QTRY_COMPARE(nomeAttivo(p), u"frmStatSegni"_s);
    // Back, as the desktop sends Ctrl+Shift+Tab and as a plain Shift on Tab.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab,
                    Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(nomeAttivo(p), Pannello);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab,
                    Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(nomeAttivo(p), schermo);
    // The focus is back where it was in that screen.
    QTRY_COMPARE(QApplication::focusWidget(), fuoco);
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::tastiDiChiusura_data() {
    QTest::addColumn<QKeyCombination>("tasto");
    QTest::newRow("Ctrl+W") << QKeyCombination(Qt::ControlModifier, Qt::Key_W);
    QTest::newRow("Ctrl+F4") << QKeyCombination(Qt::ControlModifier, Qt::Key_F4);
}

void TstMenuFinestre::tastiDiChiusura() {
    QFETCH(QKeyCombination, tasto);
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    apri(p, {u"mnuArchivio"_s, u"mnuInserisci"_s});
    QWidget *campo = p.trovaSchermo(u"frmInserisci"_s)->findChild<QLineEdit *>(u"txtStagione"_s);
    campo->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), campo);
    QTest::keyClick(campo, tasto.key(), tasto.keyboardModifiers());
    QTRY_COMPARE(nomi(p.schermiAperti()), (QStringList{Pannello, u"frmArchivio"_s}));
    // The one now active goes next, and only it.
    QTRY_COMPARE(nomeAttivo(p), u"frmArchivio"_s);
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget()
                                                : static_cast<QWidget *>(&p),
                    tasto.key(), tasto.keyboardModifiers());
    QTRY_COMPARE(nomi(p.schermiAperti()), QStringList{Pannello});
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::schermoInUnaFinestraPropria() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    apri(p, {u"mnuArchivio"_s});
    // A screen that is a window of its own (and modal) is listed and closed like the others, and
    // keeps the user while it is open.
    QWidget *messaggio = p.apriSchermo(u"frmInviaMessaggio"_s);
    QVERIFY(messaggio);
    // As the desktop gives a new window the focus.
    messaggio->activateWindow();
    QTRY_VERIFY(messaggio->isActiveWindow());
    QCOMPARE(nomi(p.schermiAperti()),
             (QStringList{Pannello, u"frmArchivio"_s, u"frmInviaMessaggio"_s}));
    QCOMPARE(nomeAttivo(p), u"frmInviaMessaggio"_s);
    QWidget *fuoco = QApplication::focusWidget();
    QVERIFY(fuoco && messaggio->isAncestorOf(fuoco));
    QTest::keyClick(fuoco, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(nomeAttivo(p), u"frmInviaMessaggio"_s);
    QTest::keyClick(fuoco, Qt::Key_W, Qt::ControlModifier);
    QTRY_COMPARE(nomi(p.schermiAperti()), (QStringList{Pannello, u"frmArchivio"_s}));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::ctrlZNelLavoroDel9() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    FrmColonne9 *frm = a.apriAnalisi9();
    QVERIFY(frm);
    auto *tot = frm->findChild<QLabel *>(u"lblTot"_s);
    auto *prec = frm->findChild<QPushButton *>(u"cmdPrec"_s);
    auto *pos = frm->findChild<QLineEdit *>(u"txtFiltroPos"_s);
    auto *segno = frm->findChild<QLineEdit *>(u"txtFiltroSegno"_s);
    auto *applica = frm->findChild<QPushButton *>(u"cmdFiltro"_s);
    auto *vista = frm->findChild<QTableView *>();
    QVERIFY(tot && prec && pos && segno && applica && vista);
    const QString universo = tot->text();
    QCOMPARE(universo, u"19683"_s);
    const auto righe = [&] { return vista->model()->rowCount(); };
    const int righeUniverso = righe();

    // Nothing to take back yet: the key does nothing, as the button is off.
    QVERIFY(!prec->isEnabled());
    vista->setFocus();
    QTest::keyClick(vista, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(tot->text(), universo);

    // One step: sign 1 fixed in the third place.
    StrumentiProva::clic(frm->findChild<QAbstractButton *>(u"chkFiltra"_s));
    QVERIFY(pos->isVisible());
    pos->clear();
    QTest::keyClicks(pos, u"3"_s);
    segno->clear();
    QTest::keyClicks(segno, u"1"_s);
    QTest::mouseClick(applica, Qt::LeftButton);
    QCOMPARE(tot->text(), u"6561"_s);
    QVERIFY(righe() < righeUniverso);
    QVERIFY(prec->isEnabled());

    // Ctrl+Z with the focus in the grid: the grid is back, as the button leaves it.
    vista->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), vista);
    QTest::keyClick(vista, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(tot->text(), universo);
    QCOMPARE(righe(), righeUniverso);
    const bool precDopoIlTasto = prec->isEnabled();

    // A step taken back by the button leaves the same screen. (The place of a fixed sign stays
    // taken after the undo, by the key as by the button: another place.)
    pos->clear();
    QTest::keyClicks(pos, u"5"_s);
    segno->clear();
    QTest::keyClicks(segno, u"X"_s);
    QTest::mouseClick(applica, Qt::LeftButton);
    QCOMPARE(tot->text(), u"6561"_s);
    QTest::mouseClick(prec, Qt::LeftButton);
    QCOMPARE(tot->text(), universo);
    QCOMPARE(righe(), righeUniverso);
    QCOMPARE(prec->isEnabled(), precDopoIlTasto);

    // From a field with nothing typed to take back, the key reaches the screen.
    pos->clear();
    QTest::keyClicks(pos, u"7"_s);
    segno->clear();
    QTest::keyClicks(segno, u"2"_s);
    QTest::mouseClick(applica, Qt::LeftButton);
    QCOMPARE(tot->text(), u"6561"_s);
    auto *cerca = frm->findChild<QLineEdit *>(u"txtColonna"_s);
    QVERIFY(cerca);
    cerca->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), cerca);
    QTest::keyClick(cerca, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(tot->text(), universo);
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstMenuFinestre::primaDimensione_data() {
    QTest::addColumn<QSize>("desktop");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("1280x800") << QSize(1280, 800);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TstMenuFinestre::primaDimensione() {
    QFETCH(QSize, desktop);
    AmbienteProva a(desktop);
    MdiProgramma programma(a.cartella(), a.dialoghi, a.impostazioni(), a.schermo);
    QVERIFY(programma.avvia());
    MdiPannello &p = programma.pannello();
    p.mostra();
    QVERIFY(p.isMaximized());
    // Made normal, the frame lies wholly on the desktop, in its middle.
    p.showNormal();
    QTRY_VERIFY(!p.isMaximized());
    const QRect area(QPoint(0, 0), desktop);
    QVERIFY2(area.contains(p.frameGeometry()),
             qPrintable(u"%1,%2 %3x%4"_s.arg(p.x()).arg(p.y()).arg(p.width()).arg(p.height())));
    QVERIFY(std::abs(p.geometry().center().x() - area.center().x()) <= 1);
    // Where there is room, the size the frame was made for.
    if (desktop.width() >= 1920)
        QCOMPARE(p.size(), MdiPannello::DimensioniIniziali);
    else
        QVERIFY(p.width() < desktop.width() && p.height() < desktop.height());
    p.close();
}

void TstMenuFinestre::geometriaDaUnoSchermoPiuGrande() {
    AmbienteProva a(QSize(1920, 1080));
    {
        MdiProgramma grande(a.cartella(), a.dialoghi, a.impostazioni(), a.schermo);
        QVERIFY(grande.avvia());
        MdiPannello &p = grande.pannello();
        p.mostra();
        p.showNormal();
        p.setGeometry(200, 150, 1600, 900);
        QTRY_COMPARE(p.size(), QSize(1600, 900));
        // Kept as it changes.
        QTRY_COMPARE(a.impostazioni().valore(Impostazioni::GeometriaCornice).toByteArray(),
                     p.saveGeometry());
        p.close();
    }
    // The same user on a small desktop.
    a.schermo.imposta(QSize(1024, 768));
    MdiProgramma piccolo(a.cartella(), a.dialoghi, a.impostazioni(), a.schermo);
    QVERIFY(piccolo.avvia());
    MdiPannello &p = piccolo.pannello();
    p.mostra();
    QVERIFY(!p.isMaximized());
    QTRY_VERIFY(p.isVisible());
    QVERIFY2(QRect(0, 0, 1024, 768).contains(p.frameGeometry()),
             qPrintable(u"%1,%2 %3x%4"_s.arg(p.x()).arg(p.y()).arg(p.width()).arg(p.height())));
    p.close();
}

void TstMenuFinestre::suggerimentiDelMenu() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    apri(p, {u"mnuArchivio"_s});
    // The list of the open screens is made when the menu opens.
    QMenu *m = apriMenuFinestre(p);
    QVERIFY(m);
    QCOMPARE(elenco(m).size(), 2);
    QList<QAction *> azioni;
    azioniDi(p.menuBar(), azioni);
    int voci = 0;
    for (const QAction *az : std::as_const(azioni)) {
        if (az->isSeparator())
            continue;
        ++voci;
        QVERIFY2(!az->statusTip().trimmed().isEmpty(), qPrintable(az->objectName()));
        QVERIFY2(az->statusTip().endsWith(u'.'), qPrintable(az->objectName()));
    }
    QVERIFY(voci > 80);
    m->hide();
}

void TstMenuFinestre::suggerimentoNonCancellaLAvviso() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    const QString nota = u"File salvato in /tmp/prova.xlsx"_s;
    a.stato().dialoghi().avvisoStato(nota);
    QCOMPARE(p.avvisoStato(), nota);
    // The pointer over "Affianca" in the open menu: its tip in the status bar.
    QMenu *m = apriMenuFinestre(p);
    QVERIFY(m);
    QAction *affianca = p.azione(u"mnuAffianca"_s);
    QTest::mouseMove(m, m->actionGeometry(affianca).center());
    QTRY_COMPARE(p.statusBar()->currentMessage(), affianca->statusTip());
    m->hide();
    // The menu gone, the note of the program is there as it was.
    QTRY_VERIFY(p.statusBar()->currentMessage().isEmpty());
    QCOMPARE(p.avvisoStato(), nota);
    QTRY_VERIFY(p.findChild<QLabel *>(u"lblAvviso"_s)->isVisible());
}

void TstMenuFinestre::creditsELicenza() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"mnuCredits"_s)->trigger();
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    const QString credits = a.dialoghi.boxes.first().testo;
    QVERIFY(!credits.contains(u"Tutti i diritti riservati"_s, Qt::CaseInsensitive));
    for (const QString &parte :
         {QCoreApplication::applicationVersion(), u"© 2026 gli sviluppatori di Vespara"_s,
          u"GNU General Public License"_s, u"GPL-3.0-or-later"_s})
        QVERIFY2(credits.contains(parte), qPrintable(parte));
    // The same copyright and licence as "Informazioni su Vespara".
    a.pannello().findChild<QAction *>(u"mnuInformazioni"_s)->trigger();
    QCOMPARE(a.dialoghi.boxes.size(), 2);
    const QString informazioni = a.dialoghi.boxes.last().testo;
    const QStringList righe = credits.split(u'\n', Qt::SkipEmptyParts);
    for (const QString &riga : righe.mid(1))
        QVERIFY2(informazioni.contains(riga), qPrintable(riga));
}

void TstMenuFinestre::affiancateColMenuAperto_data() {
    QTest::addColumn<QSize>("desktop");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TstMenuFinestre::affiancateColMenuAperto() {
    QFETCH(QSize, desktop);
    AmbienteProva a(desktop);
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.setGeometry(QRect(QPoint(0, 0), desktop));
    QTRY_COMPARE(p.size(), desktop);
    apri(p, {u"mnuInserisci"_s, u"mnuStatSegni"_s, u"mnuFormule"_s});
    p.azione(u"mnuAffianca"_s)->trigger();
    const QRect area = p.area()->viewport()->rect();
    const QList<QMdiSubWindow *> finestre = p.area()->subWindowList();
    for (const QMdiSubWindow *s : finestre)
        QVERIFY(area.contains(s->geometry()));
    QMenu *m = apriMenuFinestre(p);
    QVERIFY(m);
    QCOMPARE(elenco(m).size(), 4);
    // The menu opens under its title, on the desktop.
    QVERIFY(QRect(p.mapToGlobal(QPoint(0, 0)), desktop).contains(m->geometry()));
    // What the user sees: the frame with the open menu over it.
    if (!qEnvironmentVariableIsEmpty("VESPARA_FOTO")) {
        QPixmap foto = p.grab();
        QPainter pittore(&foto);
        pittore.drawPixmap(p.mapFromGlobal(m->pos()), m->grab());
        pittore.end();
        const QString nome = u"finestre-%1x%2"_s.arg(desktop.width()).arg(desktop.height());
        const QDir cartella(qEnvironmentVariable("VESPARA_FOTO"));
        QVERIFY(cartella.mkpath(u"."_s));
        QVERIFY(foto.save(cartella.filePath(nome + u".png"_s)));
    }
    m->hide();
}

QTEST_MAIN(TstMenuFinestre)
#include "tst_menufinestre.moc"
