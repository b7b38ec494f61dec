// The program on the keyboard, as a user works it: Enter clicks the default button of a screen,
// Esc closes the dialogs and the boxes, Alt and a letter open the menus, Ctrl+P prints the screen
// with the focus and no other, and the tool tips tell what the abbreviations stand for.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "core/frmattendere.h"
#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/dialoghiqt.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/frmanteprima.h"
#include "stampa/frmstampapagine.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

template <typename T> T *cerca(const QObject *dove, const QString &nome) {
    T *trovato = dove->findChild<T *>(nome);
    if (!trovato)
        qFatal("controllo assente: %s", qPrintable(nome));
    return trovato;
}

// The clicks of every push button of a screen, with the buttons' own work taken away: the test
// sees which button a key reached, and nothing else happens.
class Clic {
public:
    explicit Clic(QWidget *schermo) {
        const QList<QPushButton *> pulsanti = schermo->findChildren<QPushButton *>();
        for (QPushButton *p : pulsanti) {
            QObject::disconnect(p, &QPushButton::clicked, nullptr, nullptr);
            m_spie.emplace_back(p->objectName(),
                                std::make_unique<QSignalSpy>(p, &QPushButton::clicked));
        }
    }
    // The names of the buttons clicked, one entry a click.
    QStringList cliccati() const {
        QStringList nomi;
        for (const auto &[nome, spia] : m_spie)
            for (qsizetype i = 0; i < spia->size(); ++i)
                nomi.append(nome);
        return nomi;
    }

private:
    std::vector<std::pair<QString, std::unique_ptr<QSignalSpy>>> m_spie;
};

// Makes a window the active one, as the user's click on it does.
bool attiva(QWidget *finestra) {
    finestra = finestra->window();
    finestra->activateWindow();
    QApplication::setActiveWindow(finestra);
    return QTest::qWaitFor([finestra] { return QApplication::activeWindow() == finestra; }, 2000);
}

// Puts the focus on a control, its window active, as after the user's click or Tab.
bool metteFuoco(QWidget *controllo) {
    if (!attiva(controllo))
        return false;
    controllo->setFocus(Qt::OtherFocusReason);
    return QTest::qWaitFor([controllo] { return QApplication::focusWidget() == controllo; }, 2000);
}

// Runs `azione` on the first visible top-level widget that `trova` accepts, as soon as it shows.
void quandoAppare(const std::function<bool(QWidget *)> &trova,
                  const std::function<void(QWidget *)> &azione) {
    auto *timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, trova, azione] {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->isVisible() && trova(w)) {
                timer->stop();
                timer->deleteLater();
                azione(w);
                return;
            }
    });
    // Never left behind: a box that doesn't show fails the test, not the next one.
    QTimer::singleShot(5000, timer, [timer] {
        timer->stop();
        timer->deleteLater();
    });
    timer->start();
}

// The form of the helper's own tests: fields, an editor, a list that keeps Enter, a part with
// its own button, the default and one more button.
struct Modulo {
    QWidget schermo;
    QLineEdit *campo = new QLineEdit(&schermo);
    QPlainTextEdit *note = new QPlainTextEdit(&schermo);
    QListWidget *elenco = new QListWidget(&schermo);
    QGroupBox *gruppo = new QGroupBox(&schermo);
    QLineEdit *campoGruppo = new QLineEdit(gruppo);
    QPushButton *cerca = new QPushButton(u"Cerca"_s, gruppo);
    QPushButton *ok = new QPushButton(u"OK"_s, &schermo);
    QPushButton *altro = new QPushButton(u"Altro"_s, &schermo);
    // A field that is a part of its own, made before it has a parent.
    QLineEdit *campoProprio = new QLineEdit;
    QPushButton *vai = new QPushButton(u"Vai"_s, &schermo);

    Modulo() {
        schermo.setObjectName(u"schermo"_s);
        campo->setObjectName(u"campo"_s);
        note->setObjectName(u"note"_s);
        elenco->setObjectName(u"elenco"_s);
        elenco->addItems({u"uno"_s, u"due"_s});
        campoGruppo->setObjectName(u"campoGruppo"_s);
        cerca->setObjectName(u"cerca"_s);
        ok->setObjectName(u"ok"_s);
        altro->setObjectName(u"altro"_s);
        campoProprio->setObjectName(u"campoProprio"_s);
        vai->setObjectName(u"vai"_s);
        MdiTastiera::pulsantePredefinito(campoProprio, vai);
        auto *lg = new QVBoxLayout(gruppo);
        lg->addWidget(campoGruppo);
        lg->addWidget(cerca);
        auto *l = new QVBoxLayout(&schermo);
        for (QWidget *w : {static_cast<QWidget *>(campo), static_cast<QWidget *>(note),
                           static_cast<QWidget *>(elenco), static_cast<QWidget *>(gruppo),
                           static_cast<QWidget *>(ok), static_cast<QWidget *>(altro),
                           static_cast<QWidget *>(campoProprio), static_cast<QWidget *>(vai)})
            l->addWidget(w);
        MdiTastiera::pulsantePredefinito(&schermo, ok);
        MdiTastiera::pulsantePredefinito(gruppo, cerca);
        MdiTastiera::tieneInvio(elenco);
    }
};

QString suggerimentoIntestazione(VistaGriglia *vista, int colonna) {
    return vista->model()->headerData(colonna, Qt::Horizontal, Qt::ToolTipRole).toString();
}

} // namespace

class TstTastiera : public QObject {
    Q_OBJECT

private slots:
    void invioDelModulo_data();
    void invioDelModulo();
    void predefinitoSegueIlFuoco();
    void invioNegliSchermi_data();
    void invioNegliSchermi();
    void invioNelleParti_data();
    void invioNelleParti();
    void escChiudeIDialoghi_data();
    void escChiudeIDialoghi();
    void boxDaTastiera_data();
    void boxDaTastiera();
    void escAnnullaLAttesa();
    void tastiDiAccessoDeiMenu();
    void altEUnaLetteraApronoIlMenu();
    void ctrlPStampaSoloLoSchermoColFuoco_data();
    void ctrlPStampaSoloLoSchermoColFuoco();
    void ctrlPNellAnteprima();
    void ctrlPNonEsceDalloSchermo();
    void suggerimentiDelleSigle_data();
    void suggerimentiDelleSigle();
    void suggerimentiRichiestiRestano();
    void suggerimentoMostratoSullIntestazione();
};

// --- Enter

void TstTastiera::invioDelModulo_data() {
    QTest::addColumn<QString>("fuoco");
    QTest::addColumn<int>("tasto");
    QTest::addColumn<int>("modificatori");
    QTest::addColumn<bool>("okAbilitato");
    QTest::addColumn<QStringList>("cliccati");
    const int nessuno = Qt::NoModifier;
    QTest::newRow("campo") << u"campo"_s << int(Qt::Key_Return) << nessuno << true
                           << QStringList{u"ok"_s};
    QTest::newRow("Invio del tastierino")
        << u"campo"_s << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << true
        << QStringList{u"ok"_s};
    QTest::newRow("Ctrl+Invio") << u"campo"_s << int(Qt::Key_Return) << int(Qt::ControlModifier)
                                << true << QStringList{};
    QTest::newRow("editor a più righe")
        << u"note"_s << int(Qt::Key_Return) << nessuno << true << QStringList{};
    QTest::newRow("elenco che tiene l'Invio")
        << u"elenco"_s << int(Qt::Key_Return) << nessuno << true << QStringList{};
    QTest::newRow("pulsante col fuoco")
        << u"altro"_s << int(Qt::Key_Return) << nessuno << true << QStringList{u"altro"_s};
    QTest::newRow("parte col suo pulsante")
        << u"campoGruppo"_s << int(Qt::Key_Return) << nessuno << true << QStringList{u"cerca"_s};
    QTest::newRow("campo col suo pulsante")
        << u"campoProprio"_s << int(Qt::Key_Return) << nessuno << true << QStringList{u"vai"_s};
    QTest::newRow("predefinito spento")
        << u"campo"_s << int(Qt::Key_Return) << nessuno << false << QStringList{};
}

void TstTastiera::invioDelModulo() {
    QFETCH(QString, fuoco);
    QFETCH(int, tasto);
    QFETCH(int, modificatori);
    QFETCH(bool, okAbilitato);
    QFETCH(QStringList, cliccati);
    Modulo m;
    m.ok->setEnabled(okAbilitato);
    m.schermo.show();
    QWidget *w = cerca<QWidget>(&m.schermo, fuoco);
    QVERIFY(metteFuoco(w));
    Clic clic(&m.schermo);
    const QString prima = m.note->toPlainText();
    QSignalSpy invioDelCampo(m.campoProprio, &QLineEdit::returnPressed);
    QTest::keyClick(w, Qt::Key(tasto), Qt::KeyboardModifiers(modificatori));
    QCOMPARE(clic.cliccati(), cliccati);
    // A field that is a part has its Enter first, then its button is clicked.
    QCOMPARE(invioDelCampo.size(), w == m.campoProprio ? 1 : 0);
    // The editor keeps its Enter: a new line.
    if (w == m.note)
        QCOMPARE(m.note->toPlainText(), prima + u'\n');
}

void TstTastiera::predefinitoSegueIlFuoco() {
    // The button Enter would click is the one drawn as default, as in a dialog.
    Modulo m;
    m.schermo.show();
    QVERIFY(m.ok->isDefault());
    QVERIFY(!m.cerca->isDefault());
    QVERIFY(metteFuoco(m.campoGruppo));
    QVERIFY(m.cerca->isDefault());
    QVERIFY(!m.ok->isDefault());
    QVERIFY(metteFuoco(m.altro));
    QVERIFY(m.altro->isDefault());
    QVERIFY(!m.ok->isDefault());
    QVERIFY(!m.cerca->isDefault());
    QVERIFY(metteFuoco(m.campo));
    QVERIFY(m.ok->isDefault());
    QVERIFY(!m.altro->isDefault());
    QVERIFY(!m.cerca->isDefault());
}

void TstTastiera::invioNegliSchermi_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QString>("fuoco"); // empty: where the screen puts it when it opens
    QTest::addColumn<QStringList>("cliccati");
    const auto riga = [](const char *nome, const QString &voce, const QString &schermo,
                         const QString &fuoco, const QStringList &cliccati) {
        QTest::newRow(nome) << voce << schermo << fuoco << cliccati;
    };
    riga("inserimento", u"mnuInserisci"_s, u"frmInserisci"_s, u"txtColonna"_s, {u"cmdInserisci"_s});
    riga("inserimento, stagione", u"mnuInserisci"_s, u"frmInserisci"_s, u"txtStagione"_s,
         {u"cmdInserisci"_s});
    riga("inserimento, ANNULLA col fuoco", u"mnuInserisci"_s, u"frmInserisci"_s, u"Command1"_s,
         {u"Command1"_s});
    riga("modifica", u"mnuModifica"_s, u"frmGestione"_s, u"txtConcorso"_s, {u"Command1"_s});
    riga("aggiornamento completo", u"mnuCampionatoItaliano"_s, u"frmInternet"_s, QString(),
         {u"cmdAggiorna"_s});
    riga("aggiornamento parziale", u"mnuSoloArchivi"_s, u"frmAggiornaSoloArchivi"_s, QString(),
         {u"cmdAggiorna"_s});
    riga("nuova versione", u"frmAggiornamenti"_s, u"frmAggiornamenti"_s, u"chkMostra"_s,
         {u"Command1"_s});
    riga("altri giochi", u"mnuLotto"_s, u"frmAltriGiochi"_s, QString(), {u"cmdEsci"_s});
    riga("novità", u"mnuNovita"_s, u"frmRelease"_s, u"WebBrowser1"_s, {u"cmdChiudi"_s});
    riga("messaggio allo staff", u"TB(7)"_s, u"frmInviaMessaggio"_s, u"txtNome"_s, {u"cmdInvia"_s});
    riga("impostazioni", u"mnuImpostazioni"_s, u"frmImpostazioni"_s, QString(), {u"cmdOk"_s});
    // No obvious action: Enter clicks nothing.
    riga("archivio", u"mnuArchivio"_s, u"frmArchivio"_s, u"Griglia"_s, {});
    riga("pannello dei segni", QString(), u"frmPannelloSegni"_s, u"Griglia"_s, {});
    riga("analisi del 9", u"TB(4)"_s, u"frmColonne9"_s, u"Griglia"_s, {});
}

void TstTastiera::invioNegliSchermi() {
    QFETCH(QString, voce);
    QFETCH(QString, schermo);
    QFETCH(QString, fuoco);
    QFETCH(QStringList, cliccati);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *frm = nullptr;
    if (voce.isEmpty())
        frm = a.pannello().trovaSchermo(schermo);
    else if (voce.startsWith(u"frm"_s))
        frm = a.pannello().apriSchermo(voce);
    else {
        a.pannello().findChild<QAction *>(voce)->trigger();
        frm = a.pannello().trovaSchermo(schermo);
    }
    QVERIFY2(frm, qPrintable(schermo));
    QWidget *w = fuoco.isEmpty() ? nullptr : cerca<QWidget>(frm, fuoco);
    if (w) {
        QVERIFY(metteFuoco(w));
    } else {
        QVERIFY(attiva(frm));
        w = QApplication::focusWidget();
        QVERIFY(w && frm->isAncestorOf(w));
    }
    Clic clic(frm);
    QTest::keyClick(w, Qt::Key_Return);
    QCOMPARE(clic.cliccati(), cliccati);
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstTastiera::invioNelleParti_data() {
    // The workspace of the 9 has no one action: Enter in a box runs that box's command.
    QTest::addColumn<QString>("fuoco");
    QTest::addColumn<QString>("pulsante");
    QTest::newRow("formula") << u"cmbX"_s << u"cmdOk"_s;
    QTest::newRow("segno presente") << u"cmbSegnoPresente"_s << u"cmdAvviaFiltro"_s;
    QTest::newRow("terzine") << u"optTerzina(2)"_s << u"cmdSegniDiversi"_s;
    QTest::newRow("segno in casella") << u"cmbCasella"_s << u"cmdEliminaSegno"_s;
    QTest::newRow("frequenza") << u"cmbFreq"_s << u"cmdFreq"_s;
    QTest::newRow("consecutivi") << u"cmbPres2"_s << u"cmdCons"_s;
    QTest::newRow("ricerca") << u"txtColonna"_s << u"Command1"_s;
    QTest::newRow("segno fisso") << u"txtFiltroSegno"_s << u"cmdFiltro"_s;
}

void TstTastiera::invioNelleParti() {
    QFETCH(QString, fuoco);
    QFETCH(QString, pulsante);
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
    QWidget *frm = a.pannello().trovaSchermo(u"frmColonne9"_s);
    QVERIFY(frm);
    QTest::mouseClick(cerca<QPushButton>(frm, u"cmdAvvia"_s), Qt::LeftButton);
    QVERIFY(QTest::qWaitForWindowActive(&a.pannello()));
    auto *chk = cerca<QCheckBox>(frm, u"chkFiltra"_s);
    QTest::mouseClick(chk, Qt::LeftButton, {}, QPoint(8, chk->height() / 2));
    QWidget *w = cerca<QWidget>(frm, fuoco);
    QVERIFY(metteFuoco(w));
    QVERIFY(cerca<QPushButton>(frm, pulsante)->isDefault());
    Clic clic(frm);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(clic.cliccati(), QStringList{pulsante});
}

// --- Esc

void TstTastiera::escChiudeIDialoghi_data() {
    QTest::addColumn<QString>("dialogo");
    QTest::newRow("messaggio allo staff") << u"frmInviaMessaggio"_s;
    QTest::newRow("anteprima") << u"PrnPrv"_s;
    QTest::newRow("stampa dell'anteprima") << u"PrnPrn"_s;
}

void TstTastiera::escChiudeIDialoghi() {
    QFETCH(QString, dialogo);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *w = nullptr;
    std::unique_ptr<FrmStampaPagine> stampa;
    if (dialogo == u"frmInviaMessaggio"_s) {
        a.pannello().findChild<QAction *>(u"TB(7)"_s)->trigger();
        w = a.pannello().trovaSchermo(dialogo);
    } else {
        // The preview of the archive, from its browser.
        a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
        QWidget *archivio = a.pannello().trovaSchermo(u"frmArchivio"_s);
        QTest::mouseClick(cerca<QPushButton>(archivio, u"imgStampa"_s), Qt::LeftButton);
        auto *anteprima = a.pannello().findChild<FrmAnteprima *>();
        QVERIFY(anteprima);
        w = anteprima;
        if (dialogo == u"PrnPrn"_s) {
            stampa = std::make_unique<FrmStampaPagine>(a.stato(), *anteprima);
            stampa->show();
            w = stampa.get();
        }
    }
    QVERIFY(w);
    QVERIFY(w->isVisible());
    QPointer<QWidget> vivo(w);
    QVERIFY(attiva(w));
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : w, Qt::Key_Escape);
    QTRY_VERIFY(!vivo || !vivo->isVisible());
    if (stampa)
        QCOMPARE(stampa->result(), int(QDialog::Rejected));
    QVERIFY(a.dialoghi.boxes.isEmpty());
}

void TstTastiera::boxDaTastiera_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<int>("tasto");
    QTest::addColumn<bool>("risposta"); // of the question
    const int esc = Qt::Key_Escape;
    const int invio = Qt::Key_Return;
    QTest::newRow("informazione, Esc") << u"informazione"_s << esc << false;
    QTest::newRow("avviso, Esc") << u"avviso"_s << esc << false;
    QTest::newRow("critico, Esc") << u"critico"_s << esc << false;
    QTest::newRow("domanda, Esc: No") << u"domanda"_s << esc << false;
    QTest::newRow("informazione, Invio") << u"informazione"_s << invio << false;
    QTest::newRow("domanda, Invio: Sì") << u"domanda"_s << invio << true;
    QTest::newRow("schermo piccolo, Esc") << u"frmAvviso"_s << esc << false;
    QTest::newRow("schermo piccolo, Invio") << u"frmAvviso"_s << invio << false;
}

void TstTastiera::boxDaTastiera() {
    // The boxes of the program close from the keyboard: Esc as the cancel (No for a question),
    // Enter as the default button.
    QFETCH(QString, box);
    QFETCH(int, tasto);
    QFETCH(bool, risposta);
    bool premuto = false;
    bool chiuso = false;
    quandoAppare(
        [&box](QWidget *w) {
            return box == u"frmAvviso"_s ? w->objectName() == box
                                         : qobject_cast<QMessageBox *>(w) != nullptr;
        },
        [&premuto, &chiuso, tasto](QWidget *w) {
            premuto = true;
            attiva(w);
            QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : w,
                            Qt::Key(tasto));
            chiuso = !w->isVisible();
            if (!chiuso)
                w->close(); // the test goes on, and fails
        });
    if (box == u"frmAvviso"_s) {
        // On a screen of 800x600 the start warns and waits: the key lets it go on.
        AmbienteProva a(QSize(800, 600));
        QVERIFY(a.avvia());
        QVERIFY(premuto);
        QVERIFY(chiuso);
        return;
    }
    QWidget finestra;
    finestra.show();
    DialoghiQt dialoghi(&finestra);
    const QString titolo = u"Vespara"_s;
    if (box == u"informazione"_s)
        dialoghi.informazione(titolo, u"Testo"_s);
    else if (box == u"avviso"_s)
        dialoghi.avviso(titolo, u"Testo"_s);
    else if (box == u"critico"_s)
        dialoghi.critico(titolo, u"Testo"_s);
    else
        QCOMPARE(dialoghi.domanda(titolo, u"Procedere?"_s), risposta);
    QVERIFY(premuto);
    QVERIFY(chiuso);
}

void TstTastiera::escAnnullaLAttesa() {
    // The waiting box stays until its owner is done; Esc stops the operation it waits for.
    QWidget cornice;
    cornice.show();
    FrmAttendere attesa(&cornice);
    int annullato = 0;
    attesa.setAnnullamento([&annullato] { ++annullato; });
    attesa.show();
    QVERIFY(attiva(&attesa));
    QTest::keyClick(&attesa, Qt::Key_Escape);
    QCOMPARE(annullato, 1);
    QVERIFY(attesa.isVisible());
    // Enter doesn't cancel by mistake.
    attesa.setAnnullamento([&annullato] { ++annullato; });
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &attesa,
                    Qt::Key_Return);
    QCOMPARE(annullato, 1);
}

// --- menus

void TstTastiera::tastiDiAccessoDeiMenu() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    // Every entry of the menu bar and of each menu has its access key, a letter of its own
    // within that menu.
    QList<QWidget *> menu{a.pannello().menuBar()};
    int voci = 0;
    while (!menu.isEmpty()) {
        QWidget *m = menu.takeFirst();
        QHash<QString, QString> chiavi;
        const QList<QAction *> azioni = m->actions();
        for (QAction *azione : azioni) {
            if (azione->isSeparator())
                continue;
            ++voci;
            const QString testo = azione->text();
            QCOMPARE(testo.count(u'&') - 2 * testo.count(u"&&"_s), 1);
            const QString chiave = QKeySequence::mnemonic(testo).toString().toUpper();
            QVERIFY2(!chiave.isEmpty(), qPrintable(testo));
            QVERIFY2(!chiavi.contains(chiave),
                     qPrintable(u"%1 in %2: %3 come %4"_s.arg(chiave, m->objectName(), testo,
                                                              chiavi.value(chiave))));
            chiavi.insert(chiave, testo);
            if (azione->menu())
                menu.append(azione->menu());
        }
    }
    QCOMPARE(voci, 80);
    // The toolbar's captions carry no mark: they show as they are.
    for (int i = 1; i <= 11; ++i)
        QVERIFY(!a.pannello().azione(u"TB(%1)"_s.arg(i))->text().contains(u'&'));
}

void TstTastiera::altEUnaLetteraApronoIlMenu() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *gestione = a.pannello().findChild<QMenu *>(u"mnuGestione"_s);
    QTest::keyClick(&a.pannello(), Qt::Key_G, Qt::AltModifier);
    QTRY_VERIFY(gestione->isVisible());
    // "V" in the open menu: "Visualizza archivio".
    QTest::keyClick(gestione, Qt::Key_V);
    QTRY_VERIFY(a.pannello().trovaSchermo(u"frmArchivio"_s));
    QVERIFY(!gestione->isVisible());
}

// --- Ctrl+P

void TstTastiera::ctrlPStampaSoloLoSchermoColFuoco_data() {
    QTest::addColumn<QString>("schermo");
    QTest::addColumn<QString>("fuoco");
    QTest::newRow("pannello dei segni") << u"frmPannelloSegni"_s << u"cmbStampa"_s;
    QTest::newRow("analisi del 9") << u"frmColonne9"_s << u"txtColonna"_s;
    QTest::newRow("archivio") << u"frmArchivio"_s << u"Griglia"_s;
}

void TstTastiera::ctrlPStampaSoloLoSchermoColFuoco() {
    QFETCH(QString, schermo);
    QFETCH(QString, fuoco);
    AmbienteProva a;
    QVERIFY(a.avvia());
    // The three screens that print, open together.
    a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
    a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
    const QStringList schermi{u"frmPannelloSegni"_s, u"frmColonne9"_s, u"frmArchivio"_s};
    std::vector<std::unique_ptr<Clic>> clic;
    for (const QString &nome : schermi) {
        QWidget *frm = a.pannello().trovaSchermo(nome);
        QVERIFY2(frm, qPrintable(nome));
        clic.push_back(std::make_unique<Clic>(frm));
    }
    QVERIFY(metteFuoco(cerca<QWidget>(a.pannello().trovaSchermo(schermo), fuoco)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
    for (qsizetype i = 0; i < schermi.size(); ++i)
        QCOMPARE(clic[i]->cliccati(),
                 schermi.at(i) == schermo ? QStringList{u"imgStampa"_s} : QStringList{});
}

void TstTastiera::ctrlPNonEsceDalloSchermo() {
    // One screen that prints and one that doesn't: Ctrl+P in the second prints nothing.
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().chiudiSchermi();
    a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
    a.pannello().findChild<QAction *>(u"mnuInserisci"_s)->trigger();
    QWidget *archivio = a.pannello().trovaSchermo(u"frmArchivio"_s);
    QWidget *inserisci = a.pannello().trovaSchermo(u"frmInserisci"_s);
    QVERIFY(archivio && inserisci);
    Clic clic(archivio);
    QVERIFY(metteFuoco(cerca<QWidget>(inserisci, u"txtColonna"_s)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(clic.cliccati(), QStringList{});
    QVERIFY(metteFuoco(cerca<QWidget>(archivio, u"Griglia"_s)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(clic.cliccati(), QStringList{u"imgStampa"_s});
}

void TstTastiera::ctrlPNellAnteprima() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
    QWidget *archivio = a.pannello().trovaSchermo(u"frmArchivio"_s);
    QTest::mouseClick(cerca<QPushButton>(archivio, u"imgStampa"_s), Qt::LeftButton);
    auto *anteprima = a.pannello().findChild<FrmAnteprima *>();
    QVERIFY(anteprima);
    auto *stampa = cerca<QAction>(anteprima, u"Stampa"_s);
    QCOMPARE(stampa->toolTip(), u"Stampa (Ctrl+P)"_s);
    QObject::disconnect(stampa, &QAction::triggered, nullptr, nullptr);
    QSignalSpy stampe(stampa, &QAction::triggered);
    Clic clicArchivio(archivio);
    QVERIFY(attiva(anteprima));
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : anteprima,
                    Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(stampe.size(), 1);
    QCOMPARE(clicArchivio.cliccati(), QStringList{});
}

// --- tool tips

void TstTastiera::suggerimentiDelleSigle_data() {
    QTest::addColumn<QString>("schermo"); // empty: the frame
    QTest::addColumn<QString>("controllo");
    QTest::addColumn<int>("riga"); // -1: the control's own tool tip; else a cell of its grid
    QTest::addColumn<int>("colonna");
    QTest::addColumn<QStringList>("parti");
    const auto riga = [](const char *nome, const QString &schermo, const QString &controllo, int r,
                         int c, const QStringList &parti) {
        QTest::newRow(nome) << schermo << controllo << r << c << parti;
    };
    const QString pannello = u"frmPannelloSegni"_s;
    const QString nove = u"frmColonne9"_s;
    const QString archivio = u"frmArchivio"_s;
    riga("cruscotto, formula del 9", QString(), u"lblDati9"_s, -1, 0,
         {u"Formula del 9: quanti 1, quanti X e quanti 2 ci sono nelle prime nove partite"_s});
    riga(
        "cruscotto, formula del 14 e le sigle", QString(), u"lblDati"_s, -1, 0,
        {u"Formula del 14: quanti 1, quanti X e quanti 2"_s,
         u"\nInt. = Interruzioni: quante volte il segno cambia da una partita alla successiva"_s,
         u"\nSimm. = Simmetrie: quante delle 7 coppie di partite speculari (1ª e 14ª"_s,
         u"\nParal. = Parallele: quante delle 7 coppie di partite a distanza di sette (1ª e 8ª"_s});
    riga("cruscotto, numero del concorso", QString(), u"lblData"_s, -1, 0, {u"numero (n.)"_s});
    riga("terzine, R", pannello, u"Griglia"_s, 4, 13,
         {u"R = Ritardo: quanti concorsi sono passati dall'ultima uscita della terzina"_s,
          u"0 se è uscita nell'ultimo concorso"_s});
    riga("terzine, F", pannello, u"Griglia"_s, 13, 0,
         {u"F = Frequenza: in quanti concorsi dell'archivio è uscita la terzina"_s});
    riga("terzine, 1ª del ritardo", pannello, u"Griglia"_s, 5, 26,
         {u"Ritardo nella 1ª terzina (partite 1-3)"_s});
    riga("terzine, 4ª della frequenza", pannello, u"Griglia"_s, 20, 0,
         {u"Frequenza nella 4ª terzina (partite 10-12)"_s});
    riga("cinquine, R", pannello, u"GrigliaCinquine"_s, 6, 100,
         {u"R = Ritardo"_s, u"cinquina nelle partite 10-14"_s});
    riga("cinquine, F", pannello, u"GrigliaCinquine"_s, 8, 0, {u"F = Frequenza"_s});
    riga("coppie, R", pannello, u"GrigliaCoppie"_s, 3, 4,
         {u"R = Ritardo"_s, u"205 se non è uscita negli ultimi 205 concorsi"_s});
    riga("coppie, F", pannello, u"GrigliaCoppie"_s, 5, 4,
         {u"F = Frequenza: in quanti degli ultimi 205 concorsi è uscita la coppia"_s});
    riga("terzina", pannello, u"lblTerzine"_s, -1, 0,
         {u"Terzina: i segni di tre partite consecutive"_s, u"4ª: partite 10-12"_s});
    riga("cinquina", pannello, u"lblCinquine"_s, -1, 0, {u"Cinquina finale"_s});
    riga("coppia", pannello, u"lblCoppie"_s, -1, 0, {u"Coppia finale"_s, u"13 e 14"_s});
    riga("Pos.", nove, u"Griglia"_s, 0, 0, {u"Pos. = Posizione"_s});
    riga("Colonna del 9", nove, u"Griglia"_s, 0, 1, {u"non si ordina"_s});
    riga("Freq.", nove, u"Griglia"_s, 0, 2,
         {u"Freq. = Frequenza: in quanti concorsi dell'archivio è uscita la colonna del 9."_s,
          u"ordina"_s});
    riga("Rit.", nove, u"Griglia"_s, 0, 3, {u"Rit. = Ritardo"_s, u"\"-\" se non è mai uscita"_s});
    riga("formula", nove, u"cmb1"_s, -1, 0, {}); // the box holds it, see below
    riga("Pos. del segno fisso", nove, u"txtFiltroPos"_s, -1, 0, {u"Pos. = Posizione"_s});
    riga("terzina del 9", nove, u"optTerzina(1)"_s, -1, 0, {u"Terzina:"_s, u"3ª: partite 7-9)"_s});
    riga("frequenza cercata", nove, u"lblFreq"_s, -1, 0, {u"Frequenza:"_s});
    riga("ritardo cercato", nove, u"lblRit"_s, -1, 0, {u"Ritardo:"_s});
    riga("con frequenza", nove, u"cmbFreq"_s, -1, 0, {u"frequenza (Freq.)"_s});
    riga("Num.", archivio, u"Griglia"_s, 0, 1, {u"Num. = Numero del concorso"_s});
    riga("Interr.", archivio, u"Griglia"_s, 0, 6, {u"Interr. = Interruzioni"_s});
    riga("Simm.", archivio, u"Griglia"_s, 0, 7, {u"Simm. = Simmetrie"_s});
    riga("Parall.", archivio, u"Griglia"_s, 0, 8, {u"Parall. = Parallele"_s});
}

void TstTastiera::suggerimentiDelleSigle() {
    QFETCH(QString, schermo);
    QFETCH(QString, controllo);
    QFETCH(int, riga);
    QFETCH(int, colonna);
    QFETCH(QStringList, parti);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QWidget *dove = &a.pannello();
    if (schermo == u"frmColonne9"_s)
        a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
    else if (schermo == u"frmArchivio"_s)
        a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
    if (!schermo.isEmpty())
        dove = a.pannello().trovaSchermo(schermo);
    QVERIFY(dove);
    QString testo;
    if (riga < 0) {
        auto *w = cerca<QWidget>(dove, controllo);
        testo = w->toolTip();
        // The box of the formula explains it for its three fields.
        if (controllo == u"cmb1"_s) {
            QVERIFY(testo.isEmpty());
            auto *gruppo = qobject_cast<QGroupBox *>(w->parentWidget());
            QVERIFY(gruppo);
            QVERIFY(gruppo->toolTip().startsWith(u"Formula del 9:"_s));
            return;
        }
    } else {
        auto *vista = cerca<VistaGriglia>(dove, controllo);
        testo =
            vista->model()->data(vista->model()->index(riga, colonna), Qt::ToolTipRole).toString();
        if (riga == 0 && vista->griglia()->righeFisse() == 1)
            QCOMPARE(suggerimentoIntestazione(vista, colonna), testo);
    }
    QVERIFY2(!testo.isEmpty(), qPrintable(controllo));
    for (const QString &parte : parti)
        QVERIFY2(testo.contains(parte), qPrintable(testo));
}

void TstTastiera::suggerimentiRichiestiRestano() {
    // The tool tips the screens always had are as they were.
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
    QWidget *nove = a.pannello().trovaSchermo(u"frmColonne9"_s);
    QCOMPARE(cerca<QPushButton>(nove, u"imgStampa"_s)->toolTip(), u"Stampa Prospetto"_s);
    QCOMPARE(cerca<QPushButton>(nove, u"imgStampaSchedine"_s)->toolTip(), u"Stampa schedine"_s);
    QCOMPARE(cerca<QPushButton>(nove, u"lblEsci(1)"_s)->toolTip(), u"Libera la posizione"_s);
    a.pannello().findChild<QAction *>(u"mnuArchivio"_s)->trigger();
    QWidget *archivio = a.pannello().trovaSchermo(u"frmArchivio"_s);
    QCOMPARE(cerca<QPushButton>(archivio, u"imgStampa"_s)->toolTip(), u"Stampa"_s);
    QCOMPARE(a.pannello().azione(u"TB(1)"_s)->toolTip(), u"Inserisci colonna"_s);
    QCOMPARE(a.pannello().imgComm()->toolTip(), u"Connessione non attiva."_s);
}

void TstTastiera::suggerimentoMostratoSullIntestazione() {
    // What the user sees with the mouse on the header of "Rit.".
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
    auto *vista = cerca<VistaGriglia>(a.pannello().trovaSchermo(u"frmColonne9"_s), u"Griglia"_s);
    QHeaderView *intestazione = vista->horizontalHeader();
    QVERIFY(intestazione->isVisible());
    const QPoint punto(intestazione->sectionViewportPosition(3) + intestazione->sectionSize(3) / 2,
                       intestazione->height() / 2);
    QHelpEvent aiuto(QEvent::ToolTip, punto, intestazione->viewport()->mapToGlobal(punto));
    QApplication::sendEvent(intestazione->viewport(), &aiuto);
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY2(QToolTip::text().startsWith(u"Rit. = Ritardo"_s), qPrintable(QToolTip::text()));
    QToolTip::hideText();
}

QTEST_MAIN(TstTastiera)
#include "tst_tastiera.moc"
