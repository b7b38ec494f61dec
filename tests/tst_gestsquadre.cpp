// The teams editor as a user meets it: the season check, a team renamed in upper case and
// written, the season reaching anno.txt and the frame's title, the options and their lists.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "campionati/frmgestsquadre.h"
#include "campionati/gestionesquadre.h"
#include "campionati/leghe.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::clic;
using StrumentiProva::controllo;
using StrumentiProva::scriviSopra;

namespace {

void clicRiga(VistaGriglia *v, int riga) {
    QTest::mouseClick(v->viewport(), Qt::LeftButton, {},
                      v->visualRect(v->model()->index(riga, 1)).center());
}

} // namespace

class TstGestSquadre : public QObject {
    Q_OBJECT

private slots:
    void stagione_data();
    void stagione();
    void rinominaEApplica();
    void nomeVuotoEStagioneErrata();
    void opzioni();
};

void TstGestSquadre::stagione_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<bool>("valida");
    QTest::newRow("2011-2012") << u"2011-2012"_s << true;
    QTest::newRow("2025-2026") << u"2025-2026"_s << true;
    QTest::newRow("stesso anno") << u"2025-2025"_s << true;
    QTest::newRow("secondo anno prima") << u"2025-2019"_s << true;
    QTest::newRow("prima del 2011") << u"2010-2011"_s << false;
    QTest::newRow("due anni") << u"2025-2027"_s << false;
    QTest::newRow("vuota") << u"-"_s << false;
}

void TstGestSquadre::stagione() {
    QFETCH(QString, testo);
    QFETCH(bool, valida);
    QCOMPARE(GestioneSquadre::stagioneValida(testo), valida);
}

void TstGestSquadre::rinominaEApplica() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"mnuGestisciSquadre"_s)->trigger();
    auto *s = qobject_cast<FrmGestSquadre *>(a.pannello().trovaSchermo(u"frmGestSquadre"_s));
    QVERIFY(s);
    QCOMPARE(s->windowTitle(), u" Gestione Squadre"_s);
    QCOMPARE(s->fileCorrente(), u"SerieA.txt"_s);
    const QStringList serieA = FileDati::leggiRighe(a.file(u"SerieA.txt"_s));
    QCOMPARE(serieA.size(), 20);
    const Griglia &g = s->griglia();
    QCOMPARE(g.testo(1, 1), serieA.first());
    QCOMPARE(g.testo(21, 0), u"21"_s);
    QCOMPARE(g.testo(21, 1), QString());
    QCOMPARE(g.larghezzaColonna(1), 6000);
    auto *txtNome = controllo<QLineEdit>(s, u"txtNome"_s);
    QVERIFY(!txtNome->isVisibleTo(s));

    // A row with a team opens the editor on its name; the new name is upper case as typed.
    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    clicRiga(vista, 3);
    QVERIFY(txtNome->isVisibleTo(s));
    QCOMPARE(controllo<QLabel>(s, u"lblNome"_s)->text(), u"Inserisci il nuovo nome"_s);
    QCOMPARE(txtNome->text(), serieA.at(2));
    scriviSopra(txtNome, u"nuova squadra"_s);
    QCOMPARE(txtNome->text(), u"NUOVA SQUADRA"_s);
    QTest::keyClick(txtNome, Qt::Key_Return);
    QVERIFY(!txtNome->isVisibleTo(s));
    QCOMPARE(g.testo(3, 1), u"NUOVA SQUADRA"_s);
    // An empty row opens nothing.
    clicRiga(vista, 21);
    QVERIFY(!txtNome->isVisibleTo(s));

    auto *mskAnno = controllo<QLineEdit>(s, u"mskAnno"_s);
    QCOMPARE(mskAnno->text(), FileDati::leggiPrimaRiga(a.file(u"anno.txt"_s)));
    mskAnno->selectAll();
    QTest::keyClicks(mskAnno, u"20262027"_s);
    QCOMPARE(mskAnno->text(), u"2026-2027"_s);
    QTest::mouseClick(controllo<QPushButton>(s, u"cmdApplica"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Modifiche effettuate."_s});
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    QCOMPARE(FileDati::leggiRighe(a.file(u"anno.txt"_s)), QStringList{u"2026-2027"_s});
    QVERIFY2(a.pannello().windowTitle().endsWith(u" | Stagione 2026-2027"_s),
             qPrintable(a.pannello().windowTitle()));
    QStringList attese = serieA;
    attese[2] = u"NUOVA SQUADRA"_s;
    QCOMPARE(FileDati::leggiRighe(a.file(u"SerieA.txt"_s)), attese);
    QCOMPARE(a.stato().Squadre.value(u"A"_s), attese);
    AmbienteProva::fotografa(&a.pannello(), u"frmGestSquadre"_s);
    QTest::mouseClick(controllo<QPushButton>(s, u"cmdEsci"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(u"frmGestSquadre"_s));
}

void TstGestSquadre::nomeVuotoEStagioneErrata() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"TB(6)"_s)->trigger();
    auto *s = qobject_cast<FrmGestSquadre *>(a.pannello().trovaSchermo(u"frmGestSquadre"_s));
    QVERIFY(s);
    clicRiga(controllo<VistaGriglia>(s, u"Griglia"_s), 1);
    auto *txtNome = controllo<QLineEdit>(s, u"txtNome"_s);
    scriviSopra(txtNome, QString());
    QTest::mouseClick(controllo<QPushButton>(s, u"cmdConferma"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(),
             QStringList{u"Attenzione! Inserire un nome valido per la squadra."_s});
    QCOMPARE(a.dialoghi.boxes.last().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(txtNome->isVisibleTo(s));
    QTest::mouseClick(controllo<QPushButton>(s, u"cmdAnnulla"_s), Qt::LeftButton);
    QVERIFY(!txtNome->isVisibleTo(s));

    const QByteArray anno = StrumentiProva::contenuto(a.file(u"anno.txt"_s));
    const QByteArray serieA = StrumentiProva::contenuto(a.file(u"SerieA.txt"_s));
    auto *mskAnno = controllo<QLineEdit>(s, u"mskAnno"_s);
    mskAnno->selectAll();
    QTest::keyClicks(mskAnno, u"20252027"_s);
    a.dialoghi.svuota();
    QTest::mouseClick(controllo<QPushButton>(s, u"cmdApplica"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Attenzione! Le date del Campionato sono errate."_s});
    QCOMPARE(StrumentiProva::contenuto(a.file(u"anno.txt"_s)), anno);
    QCOMPARE(StrumentiProva::contenuto(a.file(u"SerieA.txt"_s)), serieA);
}

void TstGestSquadre::opzioni() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"mnuGestisciSquadre"_s)->trigger();
    auto *s = qobject_cast<FrmGestSquadre *>(a.pannello().trovaSchermo(u"frmGestSquadre"_s));
    QVERIFY(s);
    auto *vista = controllo<VistaGriglia>(s, u"Griglia"_s);
    // A rename not applied is lost with a change of option.
    clicRiga(vista, 2);
    scriviSopra(controllo<QLineEdit>(s, u"txtNome"_s), u"PERSA"_s);
    QTest::mouseClick(controllo<QPushButton>(s, u"cmdConferma"_s), Qt::LeftButton);
    clic(controllo<QRadioButton>(s, u"opt1B"_s));
    QCOMPARE(s->fileCorrente(), u"SerieC1B.txt"_s);
    QCOMPARE(s->griglia().testo(1, 1), FileDati::leggiRighe(a.file(u"SerieC1B.txt"_s)).first());
    clic(controllo<QRadioButton>(s, u"optA"_s));
    QVERIFY(s->griglia().testo(2, 1) != u"PERSA"_s);
    // An empty list: every row empty, none opens the editor.
    clic(controllo<QRadioButton>(s, u"opt2C"_s));
    QCOMPARE(s->fileCorrente(), u"SerieC2C.txt"_s);
    for (int r = 1; r <= 21; ++r)
        QCOMPARE(s->griglia().testo(r, 1), QString());
    clicRiga(vista, 1);
    QVERIFY(!controllo<QLineEdit>(s, u"txtNome"_s)->isVisibleTo(s));
}

QTEST_MAIN(TstGestSquadre)
#include "tst_gestsquadre.moc"
