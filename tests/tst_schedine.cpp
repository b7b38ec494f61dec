// The coupons of the week: the coupon, picchetto and prognosis files read back against their
// writers, with the shift a "-" in a team's name makes; the checks of the prognosis; and the three
// coupon screens as a user meets them: a prognosis typed, saved, cleared and reloaded, the team
// click that opens the league table, the print to PDF, the export.
#include "supporto/ambienteprova.h"
#include "supporto/anteprimaprova.h"
#include "supporto/strumentiprova.h"

#include "campionati/frmclassifiche.h"
#include "campionati/mostraclassifica.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/vistagriglia.h"
#include "schedine/fileschedine.h"
#include "schedine/frmschedina.h"
#include "schedine/pronostico.h"
#include "schedine/schedinamanuale.h"
#include "schedine/schedinasettimana.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using StrumentiProva::controllo;
using Tipo = FileSchedine::Tipo;

Q_DECLARE_METATYPE(FileSchedine::Tipo)
Q_DECLARE_METATYPE(Pronostico::Esito)

namespace {

// Teams of the Serie A list of the delivered data folder (FC INTERNAZIONALE MILANO heads its
// table; BOLOGNA FC 1909 is in it too).
const QString Inter = u"FC INTERNAZIONALE MILANO"_s;
const QString Bologna = u"BOLOGNA FC 1909"_s;

QStringList picchetto(int primaRiga = 1) {
    QStringList righe{u"Picchetto di prova"_s};
    for (int k = primaRiga; k <= 14; ++k)
        righe.append(u"%1-CASA %1-OSPITE %1-%2-%3- %4 "_s.arg(k).arg(40 + k).arg(30).arg(30 - k));
    return righe;
}

QStringList schedina(const QString &intestazione) {
    QStringList righe{intestazione};
    for (int k = 1; k <= 14; ++k)
        righe.append(u"%1 - CASA %1 - OSPITE %1 -"_s.arg(k));
    return righe;
}

QStringList quattordici(const QString &testo) {
    return QStringList(14, testo);
}

FrmSchedina *apri(AmbienteProva &a, const QString &voce, const QString &nome) {
    a.pannello().findChild<QAction *>(voce)->trigger();
    return qobject_cast<FrmSchedina *>(a.pannello().trovaSchermo(nome));
}

QLineEdit *casella(QWidget *frm, int i) {
    return controllo<QLineEdit>(frm, u"txtPronostico(%1)"_s.arg(i));
}

QList<int> segnate(const Griglia &g) {
    QList<int> righe;
    for (int r = 1; r < g.righe(); ++r)
        if (g.colore(r, 0) == Griglia::daBGR(MostraClassifica::TestoSegnata))
            righe.append(r);
    return righe;
}

} // namespace

class TstSchedine : public QObject {
    Q_OBJECT

private slots:
    // Files.
    void schedinaRiletta_data();
    void schedinaRiletta();
    void trattinoNelNome();
    void schedinaVuota();
    void fileCorti_data();
    void fileCorti();
    void pronosticoRiletto();
    // Logic of the prognosis and of the team search.
    void controlli_data();
    void controlli();
    void rigaStampa();
    void legaDellaSquadra();
    void stampaRegistrata();
    // Screens.
    void treSchermi_data();
    void treSchermi();
    void pronosticoDigitato();
    void caselleDalFile_data();
    void caselleDalFile();
    void clicSuSquadra();
    void squadraSenzaLega();
    void stampaInPdf();
    void treInsieme();
    void fileMancante();
};

// --- files

void TstSchedine::schedinaRiletta_data() {
    QTest::addColumn<Tipo>("tipo");
    QTest::addColumn<QString>("file");
    QTest::newRow("infrasettimanale")
        << Tipo::Infrasettimanale << u"SchedinaProssimoConcorso.txt"_s;
    QTest::newRow("sabato") << Tipo::Sabato << u"SchedinaSabato.txt"_s;
    QTest::newRow("domenica") << Tipo::Domenica << u"SchedinaDomenica.txt"_s;
}

void TstSchedine::schedinaRiletta() {
    QFETCH(Tipo, tipo);
    QFETCH(QString, file);
    QTemporaryDir dir;
    const FileSchedine::Intestazione testa{u"23"_s, u"Mercoledì"_s, u"05/03/2011"_s, u"20:45"_s};
    FileSchedine::Squadre squadre;
    for (int k = 0; k < 14; ++k)
        squadre[k] = {u"casa %1"_s.arg(k + 1), u"Ospite %1"_s.arg(k + 1)};
    FileSchedine::scriviSchedina(dir.path(), tipo, testa, squadre);
    const QByteArray byte = StrumentiProva::contenuto(dir.filePath(file));
    QVERIFY(byte.startsWith("Concorso n. 23 del Mercoled\xec 05/03/2011 Ore 20:45\r\n1-CASA 1-"
                            "OSPITE 1-\r\n2-CASA 2-OSPITE 2-\r\n"));
    QVERIFY(byte.endsWith("\r\n14-CASA 14-OSPITE 14-\r\n"));
    QCOMPARE(byte.count("\r\n"), 15);

    // The coupon screen's reading: the heading whole, the pieces trimmed, the empty fourth.
    const FileSchedine::Schedina s = FileSchedine::leggiSchedina(dir.path(), tipo);
    QCOMPARE(s.intestazione, u"Concorso n. 23 del Mercoledì 05/03/2011 Ore 20:45"_s);
    QCOMPARE(s.partite.size(), 14);
    QCOMPARE(s.partite.at(13), (QStringList{u"14"_s, u"CASA 14"_s, u"OSPITE 14"_s, QString()}));
    // The manual update's reading gives back what was written.
    const SchedinaManuale::Pagina p = SchedinaManuale::carica(dir.path(), tipo);
    QCOMPARE((FileSchedine::Intestazione{p.concorso, p.giorno, p.data, p.ora}), testa);
    QCOMPARE(p.squadre[0][0], u"CASA 1"_s);
    QCOMPARE(p.squadre[13][1], u"OSPITE 14"_s);
}

void TstSchedine::trattinoNelNome() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QStringList righe = schedina(u"Concorso n. 9 del Sabato 12/03/2011 Ore 15:00"_s);
    righe[2] = u"2-SANT-ANGELO-ROMA-"_s;
    righe[3] = u"3-A-B-C-D-"_s;
    a.scrivi(u"SchedinaSabato.txt"_s, righe);
    a.scrivi(u"PicchettoSabato.txt"_s, picchetto());
    auto *frm = apri(a, u"mnuSchedinaSabato"_s, u"frmSchedinaSabato"_s);
    QVERIFY(frm);
    const Griglia &g = frm->griglia();
    // The name splits: ANGELO takes the away column, ROMA the first of the picchetto, which the
    // picchetto then overwrites.
    QCOMPARE(g.testo(1, 1), u"SANT"_s);
    QCOMPARE(g.testo(1, 2), u"ANGELO"_s);
    QCOMPARE(g.testo(1, 3), u"42"_s);
    QCOMPARE(g.testo(1, 5), u"28"_s);
    QCOMPARE(g.testo(2, 2), u"B"_s);
    // The manual update reads the same shifted pieces.
    const SchedinaManuale::Pagina p = SchedinaManuale::carica(a.cartella(), Tipo::Sabato);
    QCOMPARE(p.squadre[1][0], u"SANT"_s);
    QCOMPARE(p.squadre[1][1], u"ANGELO"_s);

    // Seven pieces no longer fit the six columns: the screen does not open.
    QTest::mouseClick(controllo<QPushButton>(frm, u"lblEsci"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(u"frmSchedinaSabato"_s));
    righe[3] = u"3-A-B-C-D-E-F-"_s;
    a.scrivi(u"SchedinaSabato.txt"_s, righe);
    a.dialoghi.svuota();
    QVERIFY(!apri(a, u"mnuSchedinaSabato"_s, u"frmSchedinaSabato"_s));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
}

void TstSchedine::schedinaVuota() {
    QTemporaryDir dir;
    const QString vuota = u"Concorso n. -- del -- --/--/---- Ore --:--"_s;
    FileDati::scriviRighe(dir.filePath(u"SchedinaDomenica.txt"_s), schedina(vuota));
    // The manual page stays blank: the teams of the lines after the heading are not read.
    const SchedinaManuale::Pagina p = SchedinaManuale::carica(dir.path(), Tipo::Domenica);
    QCOMPARE(p.concorso, QString());
    QCOMPARE(p.data, u"--/--/----"_s);
    QCOMPARE(p.squadre[0][0], QString());
    // The coupon screen shows the heading's first "-" piece and the matches all the same.
    const FileSchedine::Schedina s = FileSchedine::leggiSchedina(dir.path(), Tipo::Domenica);
    QCOMPARE(s.intestazione, u"Concorso n. "_s);
    QCOMPARE(s.partite.at(0).at(1), u"CASA 1"_s);
    // Applying the blank page writes the heading with its fields empty.
    SchedinaManuale::applica(dir.path(), Tipo::Domenica, p);
    const QStringList riscritte = FileDati::leggiRighe(dir.filePath(u"SchedinaDomenica.txt"_s));
    QCOMPARE(riscritte.first(), u"Concorso n.  del  --/--/---- Ore "_s);
    QCOMPARE(riscritte.at(1), u"1---"_s);
}

void TstSchedine::fileCorti_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("righe");
    QTest::addColumn<QString>("errore"); // a part of the fault's text
    QStringList corto = picchetto();
    corto.removeLast();
    QTest::newRow("picchetto di 14 righe") << u"PicchettoDomenica.txt"_s << corto << u"14 righe"_s;
    QStringList senzaX = picchetto();
    senzaX[5] = u"5-CASA-OSPITE-40-30"_s;
    QTest::newRow("riga del picchetto senza il 2")
        << u"PicchettoDomenica.txt"_s << senzaX << u"non ha le percentuali"_s;
    QTest::newRow("pronostico di 15 righe")
        << u"PronosticoDomenica.txt"_s << QStringList(15, u"1"_s) << u"15 righe"_s;
    QTest::newRow("intestazione monca")
        << u"SchedinaDomenica.txt"_s << schedina(u"Concorso n. 12 del Domenica"_s)
        << u"otto parti"_s;
}

void TstSchedine::fileCorti() {
    QFETCH(QString, file);
    QFETCH(QStringList, righe);
    QFETCH(QString, errore);
    QTemporaryDir dir;
    FileDati::scriviRighe(dir.filePath(u"SchedinaDomenica.txt"_s), schedina(u"Concorso n. 1 del "
                                                                            "Domenica 6/3/2011 "
                                                                            "Ore 15:00"_s));
    FileDati::scriviRighe(dir.filePath(u"PicchettoDomenica.txt"_s), picchetto());
    FileDati::scriviRighe(dir.filePath(u"PronosticoDomenica.txt"_s), quattordici(QString()));
    FileDati::scriviRighe(dir.filePath(file), righe);
    const QString testo = StrumentiProva::errore([&] {
        FileSchedine::leggiSchedina(dir.path(), Tipo::Domenica);
        FileSchedine::leggiPicchetto(dir.path(), Tipo::Domenica);
        FileSchedine::leggiPronostico(dir.path(), Tipo::Domenica);
        SchedinaManuale::carica(dir.path(), Tipo::Domenica);
    });
    QVERIFY2(testo.contains(errore), qPrintable(testo));
}

void TstSchedine::pronosticoRiletto() {
    QTemporaryDir dir;
    const QStringList caselle{u"1"_s, u"x"_s, u"2X1"_s};
    FileSchedine::scriviPronostico(dir.path(), Tipo::Infrasettimanale, Pronostico::righe(caselle));
    QCOMPARE(StrumentiProva::contenuto(dir.filePath(u"Pronostico.txt"_s)),
             QByteArray("1\r\nX\r\n2X1\r\n"));
    QCOMPARE(FileSchedine::leggiPronostico(dir.path(), Tipo::Infrasettimanale),
             (QStringList{u"1"_s, u"X"_s, u"2X1"_s}));
    // Cleared: 14 empty lines, read back as 14 empty boxes.
    FileSchedine::scriviPronostico(dir.path(), Tipo::Infrasettimanale, quattordici(QString()));
    QCOMPARE(StrumentiProva::contenuto(dir.filePath(u"Pronostico.txt"_s)),
             QByteArray("\r\n").repeated(14));
    QCOMPARE(FileSchedine::leggiPronostico(dir.path(), Tipo::Infrasettimanale),
             quattordici(QString()));
}

// --- logic

void TstSchedine::controlli_data() {
    QTest::addColumn<QStringList>("caselle");
    QTest::addColumn<Pronostico::Esito>("esito");
    using E = Pronostico::Esito;
    const auto con = [](int i, const QString &t, const QString &resto = u"1"_s) {
        QStringList c = quattordici(resto);
        c[i] = t;
        return c;
    };
    QTest::newRow("fisse") << quattordici(u"1"_s) << E::Salvabile;
    QTest::newRow("tripla e doppia") << con(3, u"1X2"_s, u"X2"_s) << E::Salvabile;
    QTest::newRow("x minuscola") << con(0, u"x"_s) << E::Salvabile;
    QTest::newRow("vuota") << con(13, QString()) << E::CasellaVuota;
    QTest::newRow("11") << con(4, u"11"_s) << E::SegnoRipetuto;
    QTest::newRow("1X1, ripetuto a distanza") << con(4, u"1X1"_s) << E::SegnoRipetuto;
    QTest::newRow("3") << con(4, u"3"_s) << E::SegnoNonValido;
    QTest::newRow("1A, in silenzio") << con(4, u"1A"_s) << E::SegnoNonValidoSenzaMessaggio;
    // The checks run in order over all boxes: an empty box anywhere comes first.
    QStringList ordine = con(0, u"11"_s);
    ordine[13] = QString();
    QTest::newRow("vuota prima del doppione") << ordine << E::CasellaVuota;
    QStringList doppione = con(0, u"3"_s);
    doppione[13] = u"22"_s;
    QTest::newRow("doppione prima del non valido") << doppione << E::SegnoRipetuto;
}

void TstSchedine::controlli() {
    QFETCH(QStringList, caselle);
    QFETCH(Pronostico::Esito, esito);
    QCOMPARE(Pronostico::controlla(caselle), esito);
}

void TstSchedine::rigaStampa() {
    const QStringList caselle{u"1"_s, u"X"_s, u"2"_s, u"1X"_s, u"X2"_s, u"1"_s, u"1X2"_s,
                              u"2"_s, u"X"_s, u"1"_s, u"1"_s,  u"2"_s,  u"X"_s, u"12"_s};
    QCOMPARE(Pronostico::rigaStampa(caselle), u"1 X 2 -1X X2 1 -1X2 2 X -1 1 2 X 12 "_s);
    for (const QChar c : u"1xX2\b"_s)
        QVERIFY(Pronostico::tastoAmmesso(c));
    for (const QChar c : u"3aA0 -"_s)
        QVERIFY(!Pronostico::tastoAmmesso(c));
}

void TstSchedine::legaDellaSquadra() {
    QHash<QString, QStringList> squadre;
    squadre.insert(u"A"_s, {u" Roma "_s, u"lazio"_s});
    squadre.insert(u"C2C"_s, {u"TARANTO"_s});
    squadre.insert(u"Inghilterra"_s, {u"ROMA"_s, u"ARSENAL"_s});
    squadre.insert(u"ArgentinaAp"_s, {u"BOCA JUNIORS"_s});
    // The first league in the order of the searches wins; names trimmed, in upper case.
    QCOMPARE(SchedinaSettimana::legaDi(squadre, u"ROMA"_s), u"A"_s);
    QCOMPARE(SchedinaSettimana::legaDi(squadre, u"LAZIO"_s), u"A"_s);
    QCOMPARE(SchedinaSettimana::legaDi(squadre, u"TARANTO"_s), u"C2C"_s);
    QCOMPARE(SchedinaSettimana::legaDi(squadre, u"ARSENAL"_s), u"Inghilterra"_s);
    QCOMPARE(SchedinaSettimana::legaDi(squadre, u"BOCA JUNIORS"_s), u"ArgentinaAp"_s);
    QCOMPARE(SchedinaSettimana::legaDi(squadre, u"BOCA"_s), QString());
}

void TstSchedine::stampaRegistrata() {
    Griglia g;
    SchedinaSettimana::prepara(g);
    FileSchedine::Schedina s;
    for (int k = 1; k <= 14; ++k)
        s.partite.append({QString::number(k), u"CASA %1"_s.arg(k), u"OSPITE %1"_s.arg(k), {}});
    std::array<FileSchedine::Percentuali, FileSchedine::Partite> p;
    p.fill({u"50"_s, u"30"_s, u"20"_s});
    SchedinaSettimana::riempi(g, s, p);
    DispositivoRegistratore d;
    SchedinaSettimana::stampa(d, g, u" La schedina infrasettimanale"_s, u"Concorso n. 3"_s,
                              quattordici(u"1"_s));
    QList<DispositivoRegistratore::Chiamata> testi;
    QRectF area;
    for (const auto &c : d.chiamate) {
        if (c.operazione == DispositivoRegistratore::Operazione::Testo)
            testi.append(c);
        if (c.operazione == DispositivoRegistratore::Operazione::TestoInRettangolo ||
            c.operazione == DispositivoRegistratore::Operazione::Rettangolo)
            area = area.isNull() ? c.rettangolo : area.united(c.rettangolo);
    }
    QCOMPARE(testi.size(), 4);
    QCOMPARE(testi.at(0).testo, u" La schedina infrasettimanale"_s);
    QCOMPARE(testi.at(1).testo, u"Concorso n. 3"_s);
    QCOMPARE(testi.at(1).colore, QColor(192, 0, 0));
    QCOMPARE(testi.at(1).carattere.dimensione, 14.0);
    QCOMPARE(testi.at(2).testo, u"Tuo pronostico: "_s);
    QCOMPARE(testi.at(3).testo, u"1 1 1 -1 1 1 -1 1 1 -1 1 1 1 1 "_s);
    QCOMPARE(testi.at(3).carattere.dimensione, 12.0);
    // The headings stand one under the other, in the order printed.
    for (int i = 1; i < 4; ++i)
        QVERIFY(testi.at(i).rettangolo.y() > testi.at(i - 1).rettangolo.y());
    // All 14 matches on the page, the grid in its middle both ways.
    bool ultima = false;
    for (const auto &c : d.chiamate)
        ultima = ultima || c.testo == u"OSPITE 14"_s;
    QVERIFY(ultima);
    const QSizeF pagina = d.dimensionePagina();
    QVERIFY(qAbs(area.center().x() - pagina.width() / 2) < 30);
    QVERIFY(qAbs(area.center().y() - pagina.height() / 2) < 30);
}

// --- screens

void TstSchedine::treSchermi_data() {
    QTest::addColumn<QString>("voce");
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("titolo");
    QTest::addColumn<QString>("pronostico");
    QTest::addColumn<QString>("etichetta");
    QTest::addColumn<QString>("esportazione");
    QTest::newRow("domenica") << u"mnuSchedinaDomenica"_s << u"frmSchedinaDomenica"_s
                              << u" La Schedina della Domenica"_s << u"PronosticoDomenica.txt"_s
                              << u"Pronostico"_s << u"La Schedina della Domenica, alla data "_s;
    QTest::newRow("sabato") << u"mnuSchedinaSabato"_s << u"frmSchedinaSabato"_s
                            << u"La Schedina del Sabato"_s << u"PronosticoSabato.txt"_s
                            << u"Tuo pronostico"_s << u"La Schedina del Sabato, alla data "_s;
    QTest::newRow("infrasettimanale")
        << u"mnuProssimoConcorso"_s << u"frmSchedinaProssimoConcorso"_s
        << u" La schedina infrasettimanale"_s << u"Pronostico.txt"_s << u"Tuo pronostico"_s
        << u"La Schedina infrasettimanale, alla data "_s;
}

void TstSchedine::treSchermi() {
    QFETCH(QString, voce);
    QFETCH(QString, nome);
    QFETCH(QString, titolo);
    QFETCH(QString, pronostico);
    QFETCH(QString, etichetta);
    QFETCH(QString, esportazione);
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.scrivi(pronostico, {u"1"_s, u"x2"_s});
    auto *frm = apri(a, voce, nome);
    QVERIFY(frm);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QCOMPARE(frm->windowTitle(), titolo);
    QCOMPARE(controllo<QLabel>(frm, u"lblPronostico"_s)->text(), etichetta);
    QCOMPARE(frm->findChild<QLabel *>(u"lblRis(14)"_s) != nullptr,
             nome == u"frmSchedinaDomenica"_s);
    // The delivered coupon: its heading, 14 matches, the picchetto, the prognosis in upper case.
    const QString heading = controllo<QLabel>(frm, u"lblConcorso"_s)->text();
    QVERIFY2(heading.startsWith(u"Concorso n. "_s) && heading.contains(u" Ore "_s),
             qPrintable(heading));
    const Griglia &g = frm->griglia();
    for (int r = 0; r < 14; ++r) {
        QCOMPARE(g.testo(r, 0), QString::number(r + 1));
        QVERIFY(!g.testo(r, 1).isEmpty());
        const int somma = g.testo(r, 3).toInt() + g.testo(r, 4).toInt() + g.testo(r, 5).toInt();
        QCOMPARE(somma, 100);
    }
    QCOMPARE(g.sfondo(0, 0), QColor(255, 255, 192));
    QCOMPARE(g.sfondo(13, 5), QColor(255, 224, 192));
    QCOMPARE(casella(frm, 1)->text(), u"1"_s);
    QCOMPARE(casella(frm, 2)->text(), u"X2"_s);
    QCOMPARE(casella(frm, 3)->text(), QString());
    // The place it opens at: left 0, 100 pixels down.
    QCOMPARE(MdiStile::finestraDi(frm)->pos(), QPoint(0, 100));
    AmbienteProva::fotografa(&a.pannello(), nome);

    // The right button hands the grid to the export.
    StrumentiProva::clicDestro(controllo<VistaGriglia>(frm, u"Griglia"_s), 2, 1);
    QTRY_VERIFY(a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s)->isVisible());
    a.pannello().findChild<QMenu *>(u"frmMenuGriglie"_s)->hide();
    QVERIFY2(a.stato().TitoloEsportazione.startsWith(esportazione),
             qPrintable(a.stato().TitoloEsportazione));
    QCOMPARE(a.stato().ColonneEsportazione, 6);
}

void TstSchedine::pronosticoDigitato() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    auto *frm = apri(a, u"mnuSchedinaDomenica"_s, u"frmSchedinaDomenica"_s);
    QVERIFY(frm);
    const QString file = a.file(u"PronosticoDomenica.txt"_s);
    const QByteArray vuoto = StrumentiProva::contenuto(file);
    QCOMPARE(vuoto, QByteArray("\r\n").repeated(14));
    // Only signs pass, and "x" stands as "X" at once.
    QTest::keyClicks(casella(frm, 1), u"3ax"_s);
    QCOMPARE(casella(frm, 1)->text(), u"X"_s);
    QTest::keyClicks(casella(frm, 1), u"1"_s);
    QCOMPARE(casella(frm, 1)->text(), u"X1"_s);
    for (int i = 2; i <= 13; ++i)
        QTest::keyClicks(casella(frm, i), i % 3 == 0 ? u"x2"_s : u"1"_s);
    // One box empty: the save stops with its message.
    auto *image2 = controllo<QPushButton>(frm, u"Image2"_s);
    QTest::mouseClick(image2, Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(),
             QStringList{u"Attenzione. Una o più caselle del pronostico sono vuote."_s});
    QCOMPARE(StrumentiProva::contenuto(file), vuoto);
    a.dialoghi.svuota();
    QTest::keyClicks(casella(frm, 14), u"2"_s);
    // Enter in a box saves.
    QTest::keyClick(casella(frm, 14), Qt::Key_Return);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Il sistema è stato salvato correttamente."_s});
    const QByteArray salvato = StrumentiProva::contenuto(file);
    QCOMPARE(salvato,
             QByteArray("X1\r\n1\r\nX2\r\n1\r\n1\r\nX2\r\n1\r\n1\r\nX2\r\n1\r\n1\r\nX2\r\n1"
                        "\r\n2\r\n"));

    // No: the boxes empty, the file as it was, the prognosis back at the next opening.
    a.dialoghi.svuota();
    a.dialoghi.risposte.enqueue(false);
    QTest::mouseClick(controllo<QPushButton>(frm, u"Image1"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi().size(), 1);
    QVERIFY(a.dialoghi.testi().first().startsWith(u"Cancellare tutto il pronostico? "_s));
    QVERIFY(a.dialoghi.testi().first().endsWith(u"Clicare su Sì per eliminiare definitivamente "
                                                "il pronostico."_s));
    QCOMPARE(frm->caselle(), quattordici(QString()));
    QCOMPARE(StrumentiProva::contenuto(file), salvato);
    QTest::mouseClick(controllo<QPushButton>(frm, u"lblEsci"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(u"frmSchedinaDomenica"_s));
    frm = apri(a, u"mnuSchedinaDomenica"_s, u"frmSchedinaDomenica"_s);
    QVERIFY(frm);
    QCOMPARE(casella(frm, 1)->text(), u"X1"_s);
    QCOMPARE(casella(frm, 14)->text(), u"2"_s);

    // Yes: the file holds 14 empty lines.
    a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(controllo<QPushButton>(frm, u"Image1"_s), Qt::LeftButton);
    QCOMPARE(frm->caselle(), quattordici(QString()));
    QCOMPARE(StrumentiProva::contenuto(file), vuoto);
}

void TstSchedine::caselleDalFile_data() {
    QTest::addColumn<QString>("casella");
    QTest::addColumn<QString>("messaggio"); // empty: the save ends in silence
    QTest::newRow("11") << u"11"_s
                        << u"Controllare il pronostico. Una o più caselle del pronostico "
                           "contengono segni non validi."_s;
    QTest::newRow("3") << u"3"_s
                       << u"Controllare il pronostico. Alcune caselle contengono segni non "
                          "validi."_s;
    QTest::newRow("1A") << u"1A"_s << QString();
}

void TstSchedine::caselleDalFile() {
    QFETCH(QString, casella);
    QFETCH(QString, messaggio);
    AmbienteProva a;
    QVERIFY(a.avvia());
    QStringList righe = quattordici(u"1"_s);
    righe[6] = casella;
    a.scrivi(u"PronosticoSabato.txt"_s, righe);
    const QByteArray prima = StrumentiProva::contenuto(a.file(u"PronosticoSabato.txt"_s));
    auto *frm = apri(a, u"mnuSchedinaSabato"_s, u"frmSchedinaSabato"_s);
    QVERIFY(frm);
    QCOMPARE(::casella(frm, 7)->text(), casella);
    QTest::mouseClick(controllo<QPushButton>(frm, u"Image2"_s), Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), messaggio.isEmpty() ? QStringList() : QStringList{messaggio});
    QCOMPARE(StrumentiProva::contenuto(a.file(u"PronosticoSabato.txt"_s)), prima);
}

void TstSchedine::clicSuSquadra() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QStringList righe = schedina(u"Concorso n. 40 del Domenica 6/3/2011 Ore 15:00"_s);
    righe[3] = u"3-"_s + Inter + u"-"_s + Bologna + u"-"_s;
    a.scrivi(u"SchedinaDomenica.txt"_s, righe);
    auto *frm = apri(a, u"mnuSchedinaDomenica"_s, u"frmSchedinaDomenica"_s);
    QVERIFY(frm);
    auto *vista = controllo<VistaGriglia>(frm, u"Griglia"_s);
    // A click off the teams changes nothing.
    QTest::mouseClick(vista->viewport(), Qt::LeftButton, {},
                      vista->visualRect(vista->model()->index(2, 4)).center());
    QVERIFY(!a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(!frm->griglia().grassetto(2, 1));

    // The away team's cell: the match is chosen, Serie A holds the home team.
    QTest::mouseClick(vista->viewport(), Qt::LeftButton, {},
                      vista->visualRect(vista->model()->index(2, 2)).center());
    QCOMPARE(a.stato().SquadraCasa, Inter);
    QCOMPARE(a.stato().SquadraOspite, Bologna);
    QCOMPARE(a.stato().LegaClassifica, u"A"_s);
    QVERIFY(frm->griglia().grassetto(2, 1));
    QVERIFY(frm->griglia().grassetto(2, 2));
    auto *tabella = qobject_cast<FrmClassifiche *>(a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(tabella);
    QVERIFY(a.dialoghi.boxes.isEmpty());
    // Both teams marked in the table; the coupon keeps the match's box for the user's return.
    const Griglia &t = tabella->griglia();
    QList<int> attese;
    for (int r = 1; r < t.righe(); ++r)
        if (t.testo(r, 1) == Inter || t.testo(r, 1) == Bologna)
            attese.append(r);
    QCOMPARE(attese.size(), 2);
    QCOMPARE(segnate(t), attese);
    QVERIFY(a.pannello().trovaSchermo(u"frmClassifiche"_s)->isActiveWindow());
    // As far to the right as the area lets it: it hides little of the coupon.
    const QRect posto = MdiStile::finestraDi(tabella)->geometry();
    QCOMPARE(posto.right() + 1, MdiStile::finestraDi(tabella)->parentWidget()->width());
    QVERIFY(posto.left() > MdiStile::finestraDi(frm)->geometry().center().x());
    AmbienteProva::fotografa(&a.pannello(), u"frmSchedinaDomenica-classifica"_s);
    auto *finestra = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(frm));
    QVERIFY(finestra);
    finestra->mdiArea()->setActiveSubWindow(finestra);
    QTRY_COMPARE(QApplication::focusWidget(), casella(frm, 3));

    // Another match: the first loses its mark, a new table takes the old one's place.
    QTest::mouseClick(vista->viewport(), Qt::LeftButton, {},
                      vista->visualRect(vista->model()->index(0, 1)).center());
    QVERIFY(!frm->griglia().grassetto(2, 1));
    QVERIFY(!frm->griglia().grassetto(2, 2));
    QVERIFY(frm->griglia().grassetto(0, 1));
    QCOMPARE(a.stato().SquadraCasa, u"CASA 1"_s);

    // Closing the coupon forgets the match.
    QTest::mouseClick(controllo<QPushButton>(frm, u"lblEsci"_s), Qt::LeftButton);
    QTRY_VERIFY(!a.pannello().trovaSchermo(u"frmSchedinaDomenica"_s));
    QTRY_COMPARE(a.stato().SquadraCasa, u"0"_s);
    QCOMPARE(a.stato().SquadraOspite, u"0"_s);
    QCOMPARE(a.stato().LegaClassifica, QString());
}

void TstSchedine::squadraSenzaLega() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.scrivi(u"SchedinaProssimoConcorso.txt"_s,
             schedina(u"Concorso n. 41 del Mercoledì 9/3/2011 Ore 20:45"_s));
    auto *frm = apri(a, u"mnuProssimoConcorso"_s, u"frmSchedinaProssimoConcorso"_s);
    QVERIFY(frm);
    auto *vista = controllo<VistaGriglia>(frm, u"Griglia"_s);
    QTest::mouseClick(vista->viewport(), Qt::LeftButton, {},
                      vista->visualRect(vista->model()->index(9, 1)).center());
    // No list holds "CASA 10": no table, but the row marked and the focus on its box.
    QVERIFY(!a.pannello().trovaSchermo(u"frmClassifiche"_s));
    QVERIFY(a.dialoghi.boxes.isEmpty());
    QCOMPARE(a.stato().SquadraCasa, u"CASA 10"_s);
    QCOMPARE(a.stato().LegaClassifica, QString());
    QVERIFY(frm->griglia().grassetto(9, 1));
    QCOMPARE(QApplication::focusWidget(), casella(frm, 10));
}

void TstSchedine::stampaInPdf() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    QTemporaryDir uscita;
    a.stato().FileStampaPdf = uscita.filePath(u"schedina.pdf"_s);
    a.scrivi(u"PronosticoSabato.txt"_s, quattordici(u"1X"_s));
    auto *frm = apri(a, u"mnuSchedinaSabato"_s, u"frmSchedinaSabato"_s);
    QVERIFY(frm);
    auto *imgStampa = controllo<QPushButton>(frm, u"imgStampa"_s);
    a.dialoghi.risposte.enqueue(false);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    QCOMPARE(a.dialoghi.testi(), QStringList{u"Procedere con  la stampa?"_s});
    QVERIFY(!QFile::exists(a.stato().FileStampaPdf));
    a.dialoghi.risposte.enqueue(true);
    QTest::mouseClick(imgStampa, Qt::LeftButton);
    if (!QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty())
        QCOMPARE(AnteprimaProva::paginePdf(a.stato().FileStampaPdf), 1);
    else
        QVERIFY(QFile::exists(a.stato().FileStampaPdf));
    if (const QByteArray cartella = qgetenv("VESPARA_FOTO"); !cartella.isEmpty())
        QFile::copy(a.stato().FileStampaPdf,
                    QString::fromLocal8Bit(cartella) + u"/frmSchedinaSabato.pdf"_s);
}

void TstSchedine::treInsieme() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.pannello().findChild<QAction *>(u"TB(2)"_s)->trigger();
    QVERIFY(a.dialoghi.boxes.isEmpty());
    // Fanned out at top 1000 twips, left 500, 3000 and 4000: Sunday's on top.
    const std::pair<const char *, QPoint> attesi[] = {
        {"frmSchedinaProssimoConcorso", QPoint(33, 67)},
        {"frmSchedinaSabato", QPoint(200, 67)},
        {"frmSchedinaDomenica", QPoint(267, 67)},
    };
    for (const auto &[nome, posto] : attesi) {
        QWidget *frm = a.pannello().trovaSchermo(QString::fromLatin1(nome));
        QVERIFY2(frm, nome);
        QCOMPARE(MdiStile::finestraDi(frm)->pos(), posto);
    }
    auto *domenica = MdiStile::finestraDi(a.pannello().trovaSchermo(u"frmSchedinaDomenica"_s));
    QCOMPARE(qobject_cast<QMdiSubWindow *>(domenica)->mdiArea()->activeSubWindow(), domenica);
    AmbienteProva::fotografa(&a.pannello(), u"TB2"_s);
}

void TstSchedine::fileMancante() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    a.rimuovi(u"Picchetto.txt"_s);
    QVERIFY(!apri(a, u"mnuProssimoConcorso"_s, u"frmSchedinaProssimoConcorso"_s));
    QCOMPARE(a.dialoghi.boxes.size(), 1);
    QCOMPARE(a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY(a.dialoghi.boxes.first().testo.contains(u"Picchetto.txt"_s));
}

QTEST_MAIN(TstSchedine)
#include "tst_schedine.moc"
