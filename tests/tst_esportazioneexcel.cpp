// The export of grids to Excel: the hand-over of a grid, the layout of the workbook read back cell
// by cell with openpyxl (numbers and texts, column widths, the frozen header), the capacity of the
// table, the save dialog with its proposed name and folder, the note of the status bar and the
// pop-up of the grids.
#include "supporto/ambienteprova.h"
#include "supporto/letturaxlsx.h"

#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmmenugriglie.h"

#include <QAction>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QMenu>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <QWidget>

#include <cmath>
#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

using Preparazione = std::function<void(StatoProgramma &)>;
Q_DECLARE_METATYPE(Preparazione)

namespace {

// A program state on a temporary folder; workbooks go to the folder "uscita" in it.
struct Banco {
    QTemporaryDir dir;
    DialoghiProva d;
    Impostazioni i{dir.filePath(u"i.ini"_s)};
    Schermo s;
    StatoProgramma stato{d, i, s};

    Banco() { QDir(dir.path()).mkdir(u"uscita"_s); }
    QString uscita(const QString &nome) const { return dir.filePath(u"uscita/"_s + nome); }
    QStringList fileInUscita() const {
        return QDir(dir.filePath(u"uscita"_s))
            .entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
};

using LetturaXlsx::leggi;
using LetturaXlsx::lettoreDisponibile;
using LetturaXlsx::Lettura;

#define RICHIEDE_LETTORE()                                                                         \
    do {                                                                                           \
        if (!lettoreDisponibile())                                                                 \
            QSKIP("python3 con openpyxl non disponibile");                                         \
    } while (false)

// The letters of a sheet column, 0 being A.
QString lettere(int c) {
    QString s;
    for (++c; c > 0; c = (c - 1) / 26)
        s.prepend(QChar(u'A' + (c - 1) % 26));
    return s;
}

std::unique_ptr<Griglia> griglia(const QList<QStringList> &righe) {
    auto g = std::make_unique<Griglia>(int(righe.size()),
                                       righe.isEmpty() ? 0 : int(righe.first().size()));
    for (int r = 0; r < righe.size(); ++r)
        for (int c = 0; c < righe.at(r).size(); ++c)
            g->setTesto(r, c, righe.at(r).at(c));
    return g;
}

QList<QStringList> testi(const Griglia &g) {
    QList<QStringList> t;
    for (int r = 0; r < g.righe(); ++r) {
        QStringList riga;
        for (int c = 0; c < g.colonne(); ++c)
            riga.append(g.testo(r, c));
        t.append(riga);
    }
    return t;
}

// A source grid of `righe` rows and `colonne` columns whose cells say where they are.
void preparaCelleNumerate(StatoProgramma &stato, int righe, int colonne) {
    Griglia g(righe, colonne);
    for (int r = 0; r < righe; ++r)
        for (int c = 0; c < colonne; ++c)
            g.setTesto(r, c, u"r%1c%2"_s.arg(r).arg(c));
    EsportazioneExcel::prepara(stato, g, u"Prova"_s);
}

const QString titoloColonne9 = u"Le colonne del 9 da giocare, alla data 01/02/2024"_s;

// The folder where a save is proposed when none is remembered.
QString cartellaIniziale() {
    const QString documenti = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return !documenti.isEmpty() && QFileInfo(documenti).isDir() ? documenti : QDir::homePath();
}

// The cells of a sheet that tell numbers from texts: each in its column (0 is A), with the type
// and the value that openpyxl reads back. Column A holds counters and other texts; B is a column
// of the 9, C one of single signs stacked over their counts as in the signs panel, D one with a
// terzina, E a column of the 14.
struct CasoTipo {
    int colonna;
    QString testo;
    QString tipo;
    QString valore;
};

const QList<CasoTipo> &casiTipo() {
    static const QList<CasoTipo> casi = {
        {0, u"-12"_s, u"n"_s, u"-12"_s},
        {0, u"0"_s, u"n"_s, u"0"_s},
        {0, u"12"_s, u"n"_s, u"12"_s},
        {0, u" 12"_s, u"n"_s, u"12"_s},
        {0, u"  7  "_s, u"n"_s, u"7"_s},
        {0, u"3.5"_s, u"n"_s, u"3.5"_s},
        {0, u"3,5"_s, u"n"_s, u"3.5"_s},
        {0, u"-0,25"_s, u"n"_s, u"-0.25"_s},
        {0, u"-0"_s, u"n"_s, u"0"_s},
        {0, u"123456789012345"_s, u"n"_s, u"123456789012345"_s},
        {0, u"1234567890123456"_s, u"s"_s, u"1234567890123456"_s},
        {0, u"+5"_s, u"s"_s, u"+5"_s},
        {0, u"-"_s, u"s"_s, u"-"_s},
        {0, u"007"_s, u"s"_s, u"007"_s},
        {0, u"1e5"_s, u"s"_s, u"1e5"_s},
        {0, u"inf"_s, u"s"_s, u"inf"_s},
        {0, u"nan"_s, u"s"_s, u"nan"_s},
        {0, u"1.234.567"_s, u"s"_s, u"1.234.567"_s},
        {0, u",5"_s, u"s"_s, u",5"_s},
        {0, u"12bis"_s, u"s"_s, u"12bis"_s},
        {0, u"(12)"_s, u"s"_s, u"(12)"_s},
        {1, u"111111111"_s, u"s"_s, u"111111111"_s},
        {1, u"1X21X21X2"_s, u"s"_s, u"1X21X21X2"_s},
        {1, u"222222222"_s, u"s"_s, u"222222222"_s},
        {2, u"1"_s, u"n"_s, u"1"_s},
        {2, u"X"_s, u"s"_s, u"X"_s},
        {2, u"2"_s, u"n"_s, u"2"_s},
        {2, u" 15"_s, u"n"_s, u"15"_s},
        {3, u"1X2"_s, u"s"_s, u"1X2"_s},
        {3, u"12"_s, u"s"_s, u"12"_s},
        {4, u"21112212212112"_s, u"s"_s, u"21112212212112"_s},
    };
    return casi;
}

// The sheet of casiTipo() written once and read back: each case in its column, one row down
// from the one before it in that column.
struct FoglioTipi {
    QTemporaryDir dir;
    std::optional<Lettura> lettura;
    QList<QString> celle; // the cell of each case
};

const FoglioTipi &foglioTipi() {
    static FoglioTipi foglio = [] {
        FoglioTipi f;
        QList<QStringList> righe;
        QList<int> prossima(5, 0);
        for (const CasoTipo &caso : casiTipo()) {
            const int r = prossima[caso.colonna]++;
            if (righe.size() <= r)
                righe.resize(r + 1, QStringList(5));
            righe[r][caso.colonna] = caso.testo;
            f.celle.append(lettere(caso.colonna) + QString::number(r + 1));
        }
        const QString file = f.dir.filePath(u"tipi.xlsx"_s);
        EsportazioneExcel::scriviCelle(file, righe);
        f.lettura = leggi(file);
        return f;
    }();
    return foglio;
}

} // namespace

class TestEsportazioneExcel : public QObject {
    Q_OBJECT

private slots:
    void prepara();
    void preparaLimiteColonne_data();
    void preparaLimiteColonne();
    void oggi();
    void numeroSemplice_data();
    void numeroSemplice();
    void sequenzaDiSegni_data();
    void sequenzaDiSegni();
    void larghezzeColonne_data();
    void larghezzeColonne();
    void tipiDelleCelle_data();
    void tipiDelleCelle();
    void testoIntestazioni_data();
    void testoIntestazioni();
    void cartellaDiUnaTabella();
    void corpoSecondoDimensioni_data();
    void corpoSecondoDimensioni();
    void capacitaTabella_data();
    void capacitaTabella();
    void fileNonScrivibile_data();
    void fileNonScrivibile();
    void esporta_data();
    void esporta();
    void esportaTroppeRigheNonChiedeIlNome();
    void esportaRicordaLaCartella();
    void scriviCelle();
    void menuGriglie();
    void menuGriglieSegnalaIGuasti();
    void menuGriglieDistrutto();
};

void TestEsportazioneExcel::prepara() {
    Banco b;
    // What a previous export left behind must go.
    Griglia &nascosta = b.stato.GrigliaEsportazione();
    nascosta.setColonne(6);
    nascosta.setRighe(5);
    for (int r = 0; r < 5; ++r)
        for (int c = 0; c < 6; ++c)
            nascosta.setTesto(r, c, u"vecchio"_s);
    b.stato.IntestazioniEsportazione = QStringList(300, u"vecchia"_s);

    const auto sorgente = griglia({{u"Colonna"_s, u"Freq."_s, u"Rit."_s},
                                   {u" 1X2"_s, u"12"_s, u""_s},
                                   {u"X21"_s, u""_s, u"7"_s}});
    EsportazioneExcel::prepara(b.stato, *sorgente, titoloColonne9);

    QCOMPARE(nascosta.righe(), 3);
    QCOMPARE(nascosta.colonne(), 3);
    const QList<QStringList> attese = {
        {u""_s, u""_s, u""_s}, {u" 1X2"_s, u"12"_s, u""_s}, {u"X21"_s, u""_s, u"7"_s}};
    QCOMPARE(testi(nascosta), attese);
    QCOMPARE(b.stato.TitoloEsportazione, titoloColonne9);
    QCOMPARE(b.stato.IntestazioniEsportazione.size(), 244);
    QCOMPARE(b.stato.IntestazioniEsportazione.mid(0, 3),
             (QStringList{u"Colonna"_s, u"Freq."_s, u"Rit."_s}));
    QCOMPARE(b.stato.IntestazioniEsportazione.mid(3), QStringList(241));
    QCOMPARE(b.stato.RigheEsportazione, 2);
    QCOMPARE(b.stato.ColonneEsportazione, 3);
}

void TestEsportazioneExcel::preparaLimiteColonne_data() {
    QTest::addColumn<int>("colonne");
    QTest::addColumn<bool>("accettata");
    QTest::newRow("244 colonne") << 244 << true;
    QTest::newRow("245 colonne") << 245 << false;
}

void TestEsportazioneExcel::preparaLimiteColonne() {
    QFETCH(int, colonne);
    QFETCH(bool, accettata);
    Banco b;
    preparaCelleNumerate(b.stato, 4, 2);
    const QList<QStringList> grigliaPrima = testi(b.stato.GrigliaEsportazione());
    const QStringList intestazioniPrima = b.stato.IntestazioniEsportazione;

    Griglia g(2, colonne);
    g.setTesto(0, colonne - 1, u"ultima"_s);
    g.setTesto(1, colonne - 1, u"fine"_s);
    bool guasto = false;
    try {
        EsportazioneExcel::prepara(b.stato, g, u"Larga"_s);
    } catch (const ErroreEsecuzione &e) {
        guasto = true;
        QVERIFY2(e.testo().contains(u"244"_s), qPrintable(e.testo()));
    }
    QCOMPARE(guasto, !accettata);
    if (accettata) {
        QCOMPARE(b.stato.IntestazioniEsportazione.size(), 244);
        QCOMPARE(b.stato.IntestazioniEsportazione.last(), u"ultima"_s);
        QCOMPARE(b.stato.GrigliaEsportazione().testo(1, 243), u"fine"_s);
        QCOMPARE(b.stato.ColonneEsportazione, 244);
    } else {
        // The fault leaves the previous export as it was.
        QCOMPARE(testi(b.stato.GrigliaEsportazione()), grigliaPrima);
        QCOMPARE(b.stato.IntestazioniEsportazione, intestazioniPrima);
        QCOMPARE(b.stato.TitoloEsportazione, u"Prova"_s);
        QCOMPARE(b.stato.RigheEsportazione, 3);
        QCOMPARE(b.stato.ColonneEsportazione, 2);
    }
}

void TestEsportazioneExcel::oggi() {
    const QString testo = EsportazioneExcel::oggi();
    QVERIFY2(QRegularExpression(u"^\\d\\d/\\d\\d/\\d{4}$"_s).match(testo).hasMatch(),
             qPrintable(testo));
    const QDate letta = QDate::fromString(testo, u"dd/MM/yyyy"_s);
    // Around midnight the day may have turned between the two readings.
    QVERIFY(letta == QDate::currentDate() || letta.addDays(1) == QDate::currentDate());
}

void TestEsportazioneExcel::numeroSemplice_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<bool>("numero");
    QTest::addColumn<double>("valore");

    QTest::newRow("negativo") << u"-12"_s << true << -12.0;
    QTest::newRow("zero") << u"0"_s << true << 0.0;
    QTest::newRow("intero") << u"12"_s << true << 12.0;
    QTest::newRow("con il posto del segno") << u" 12"_s << true << 12.0;
    QTest::newRow("tra spazi e tabulazioni") << u"\t 12 \t"_s << true << 12.0;
    QTest::newRow("decimale col punto") << u"3.5"_s << true << 3.5;
    QTest::newRow("decimale con la virgola") << u"3,5"_s << true << 3.5;
    QTest::newRow("decimale negativo") << u"-0,25"_s << true << -0.25;
    QTest::newRow("zero negativo") << u"-0"_s << true << 0.0;
    QTest::newRow("zeri finali") << u"3,50"_s << true << 3.5;
    QTest::newRow("15 cifre") << u"123456789012345"_s << true << 123456789012345.0;
    QTest::newRow("15 cifre con decimali") << u"1234567890,12345"_s << true << 1234567890.12345;
    QTest::newRow("16 cifre") << u"1234567890123456"_s << false << 0.0;
    QTest::newRow("16 cifre con decimali") << u"12345678901,12345"_s << false << 0.0;
    QTest::newRow("segno più") << u"+5"_s << false << 0.0;
    QTest::newRow("solo il meno") << u"-"_s << false << 0.0;
    QTest::newRow("vuoto") << QString() << false << 0.0;
    QTest::newRow("solo spazi") << u"   "_s << false << 0.0;
    QTest::newRow("zeri iniziali") << u"007"_s << false << 0.0;
    QTest::newRow("doppio zero") << u"00"_s << false << 0.0;
    QTest::newRow("zeri iniziali negativo") << u"-07"_s << false << 0.0;
    QTest::newRow("esponente") << u"1e5"_s << false << 0.0;
    QTest::newRow("infinito") << u"inf"_s << false << 0.0;
    QTest::newRow("non numero") << u"nan"_s << false << 0.0;
    QTest::newRow("separatori delle migliaia") << u"1.234.567"_s << false << 0.0;
    QTest::newRow("punto finale") << u"1."_s << false << 0.0;
    QTest::newRow("senza parte intera") << u",5"_s << false << 0.0;
    QTest::newRow("spazio in mezzo") << u"1 000"_s << false << 0.0;
    QTest::newRow("numero e testo") << u"12bis"_s << false << 0.0;
    QTest::newRow("tra parentesi") << u"(12)"_s << false << 0.0;
    QTest::newRow("segni") << u"1X2"_s << false << 0.0;
    QTest::newRow("cifre arabe") << u"\u0661\u0662"_s << false << 0.0;
}

void TestEsportazioneExcel::numeroSemplice() {
    QFETCH(QString, testo);
    QFETCH(bool, numero);
    QFETCH(double, valore);
    const std::optional<double> letto = Griglia::numeroSemplice(testo);
    QCOMPARE(letto.has_value(), numero);
    if (numero) {
        QCOMPARE(*letto, valore);
        QVERIFY(!std::signbit(*letto) || valore < 0);
    }
}

void TestEsportazioneExcel::sequenzaDiSegni_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<bool>("sequenza");

    QTest::newRow("terzina") << u"1X2"_s << true;
    QTest::newRow("coppia con la X") << u"XX"_s << true;
    QTest::newRow("cinquina") << u"2X112"_s << true;
    QTest::newRow("colonna del 9") << u"1X21X21X2"_s << true;
    QTest::newRow("colonna del 9 senza X") << u"112112112"_s << true;
    QTest::newRow("colonna del 14 senza X") << u"21112212212112"_s << true;
    QTest::newRow("otto segni senza X") << u"11211211"_s << false;
    QTest::newRow("un segno") << u"X"_s << false;
    QTest::newRow("uno") << u"1"_s << false;
    QTest::newRow("un numero di 1 e 2") << u"12"_s << false;
    QTest::newRow("x minuscola") << u"1x2"_s << false;
    QTest::newRow("con spazi") << u"1X2 1X2 1X2"_s << false;
    QTest::newRow("altro segno") << u"1X3"_s << false;
    QTest::newRow("vuoto") << QString() << false;
}

void TestEsportazioneExcel::sequenzaDiSegni() {
    QFETCH(QString, testo);
    QFETCH(bool, sequenza);
    QCOMPARE(EsportazioneExcel::sequenzaDiSegni(testo), sequenza);
}

void TestEsportazioneExcel::larghezzeColonne_data() {
    QTest::addColumn<QList<QStringList>>("righe");
    QTest::addColumn<QList<int>>("escluse");
    QTest::addColumn<QList<double>>("attese");

    // 1.1 characters a character, rounded up, and 2 more; 4 at least, 60 at most.
    QTest::newRow("secondo il testo più lungo") << QList<QStringList>{{u"Squadra"_s, u"Punti"_s},
                                                                      {u"Roma"_s, u"40"_s},
                                                                      {u"Fiorentina"_s, u"7"_s}}
                                                << QList<int>() << QList<double>{13, 8};
    QTest::newRow("spazi ai bordi non contano")
        << QList<QStringList>{{u"   12   "_s, u" ab"_s, u"abc"_s}} << QList<int>()
        << QList<double>{5, 5, 6};
    QTest::newRow("minimo") << QList<QStringList>{{u"1"_s}} << QList<int>() << QList<double>{4};
    QTest::newRow("massimo") << QList<QStringList>{{QString(200, u'x')}} << QList<int>()
                             << QList<double>{60};
    QTest::newRow("colonna vuota: larghezza del foglio")
        << QList<QStringList>{{u""_s, u"abc"_s}, {u"  "_s}} << QList<int>() << QList<double>{0, 6};
    QTest::newRow("righe escluse")
        << QList<QStringList>{{QString(80, u't')},
                              {},
                              {QString(300, u'h'), QString(300, u'h'), QString(300, u'h')},
                              {u"(19683)"_s, u"1X21X21X2"_s}}
        << QList<int>{0, 2} << QList<double>{10, 12, 0};
    QTest::newRow("nessuna riga") << QList<QStringList>() << QList<int>() << QList<double>();
}

void TestEsportazioneExcel::larghezzeColonne() {
    QFETCH(QList<QStringList>, righe);
    QFETCH(QList<int>, escluse);
    QFETCH(QList<double>, attese);
    QCOMPARE(EsportazioneExcel::larghezzeColonne(righe, escluse), attese);
}

void TestEsportazioneExcel::tipiDelleCelle_data() {
    QTest::addColumn<int>("caso");
    for (int i = 0; i < casiTipo().size(); ++i) {
        const CasoTipo &c = casiTipo().at(i);
        QTest::addRow("%c: \"%s\"", char('A' + c.colonna), qPrintable(c.testo)) << i;
    }
}

void TestEsportazioneExcel::tipiDelleCelle() {
    RICHIEDE_LETTORE();
    QFETCH(int, caso);
    const FoglioTipi &foglio = foglioTipi();
    QVERIFY(foglio.lettura);
    const CasoTipo &c = casiTipo().at(caso);
    const QString cella = foglio.celle.at(caso);
    QCOMPARE(foglio.lettura->tipi.value(cella), c.tipo);
    QCOMPARE(foglio.lettura->valori.value(cella), c.valore);
}

void TestEsportazioneExcel::testoIntestazioni_data() {
    QTest::addColumn<QStringList>("intestazioni");
    QTest::addColumn<QString>("atteso");

    QStringList tre(244);
    tre[0] = u"h1"_s;
    tre[1] = u"h2"_s;
    tre[2] = u"h3"_s;
    // 244 texts have 243 commas between them; the last one is cut.
    QTest::newRow("tre testi su 244") << tre << u"h1,h2,h3"_s + QString(240, u',');
    QTest::newRow("lista di tre") << QStringList{u"h1"_s, u"h2"_s, u"h3"_s}
                                  << u"h1,h2,h3"_s + QString(240, u',');
    QTest::newRow("tutti vuoti") << QStringList(244) << QString(242, u',');
    QTest::newRow("lista vuota") << QStringList() << QString(242, u',');
    QStringList ultima(244);
    ultima[243] = u"z"_s;
    QTest::newRow("solo l'ultimo") << ultima << QString(242, u',') + u"z"_s;
    QStringList lunga(250, u"a"_s);
    QString attesa = QStringList(244, u"a"_s).join(u',');
    attesa.remove(attesa.lastIndexOf(u','), 1);
    QTest::newRow("oltre 244: contano i primi") << lunga << attesa;
}

void TestEsportazioneExcel::testoIntestazioni() {
    QFETCH(QStringList, intestazioni);
    QFETCH(QString, atteso);
    const QString testo = EsportazioneExcel::testoIntestazioni(intestazioni);
    QCOMPARE(testo, atteso);
    QCOMPARE(testo.count(u','), 242);
}

void TestEsportazioneExcel::cartellaDiUnaTabella() {
    RICHIEDE_LETTORE();
    QCOMPARE(lettere(242), u"II"_s); // the last cell of the header range
    Banco b;
    const auto sorgente = griglia(
        {{u"h1"_s, u"h2"_s, u"h3"_s}, {u"a"_s, u""_s, u" 12"_s}, {u"Lunedì"_s, u"007"_s, u"x"_s}});
    EsportazioneExcel::prepara(b.stato, *sorgente, titoloColonne9);
    const QString file = b.uscita(u"tabella.xlsx"_s);
    EsportazioneExcel::scrivi(file, b.stato);
    QCOMPARE(b.fileInUscita(), QStringList{u"tabella.xlsx"_s});

    const std::optional<Lettura> l = leggi(file);
    QVERIFY(l);
    const QString intestazione = u"h1,h2,h3"_s + QString(240, u',');
    QMap<QString, QString> attese;
    attese.insert(u"A1"_s, u"Vespara - "_s + titoloColonne9);
    for (int c = 0; c < 243; ++c)
        attese.insert(lettere(c) + u"3"_s, intestazione);
    attese.insert(u"A4"_s, u"a"_s);
    attese.insert(u"C4"_s, u"12"_s);
    attese.insert(u"A5"_s, u"Lunedì"_s);
    attese.insert(u"B5"_s, u"007"_s);
    attese.insert(u"C5"_s, u"x"_s);
    QCOMPARE(l->valori.value(u"A3"_s), intestazione);
    QCOMPARE(l->valori.value(u"EX3"_s), intestazione);
    QCOMPARE(l->valori.value(u"II3"_s), intestazione);
    QVERIFY(!l->valori.contains(u"IJ3"_s));
    QVERIFY(!l->valori.contains(u"B4"_s));
    // Nothing more and nothing less, so empty cells stayed empty.
    QCOMPARE(l->valori, attese);
    // " 12" is the number 12; "007" is no plain number and stays the text it was.
    QCOMPARE(l->tipi.value(u"C4"_s), u"n"_s);
    QCOMPARE(l->tipi.value(u"B5"_s), u"s"_s);
    QCOMPARE(l->tipi.value(u"A3"_s), u"s"_s);
    // The header stays in sight: the panes are frozen below row 3.
    QCOMPARE(l->riquadro, u"A4"_s);
    // Each column of the table as wide as its longest text ("Lunedì", "007", "12"); neither
    // the title nor the long header row widen them, and the columns with nothing but the header
    // keep the sheet's default.
    QCOMPARE(l->larghezze.keys(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    const QMap<QString, double> attese2{{u"A"_s, 9}, {u"B"_s, 6}, {u"C"_s, 5}};
    for (auto i = attese2.cbegin(); i != attese2.cend(); ++i) {
        // The file keeps the width with the padding of its cells, less than a character more.
        const double letta = l->larghezze.value(i.key());
        QVERIFY2(letta >= i.value() && letta < i.value() + 1,
                 qPrintable(u"%1: %2 invece di %3"_s.arg(i.key()).arg(letta).arg(i.value())));
    }
}

void TestEsportazioneExcel::corpoSecondoDimensioni_data() {
    QTest::addColumn<int>("righe");
    QTest::addColumn<int>("colonne");
    QTest::addColumn<QStringList>("corpo");

    const QStringList tutto = {u"A4=r1c0"_s, u"B4=r1c1"_s, u"C4=r1c2"_s, u"A5=r2c0"_s, u"B5=r2c1"_s,
                               u"C5=r2c2"_s, u"A6=r3c0"_s, u"B6=r3c1"_s, u"C6=r3c2"_s};
    QTest::newRow("come la griglia") << 3 << 3 << tutto;
    QTest::newRow("meno righe e colonne")
        << 2 << 2 << QStringList{u"A4=r1c0"_s, u"B4=r1c1"_s, u"A5=r2c0"_s, u"B5=r2c1"_s};
    QTest::newRow("oltre la griglia: vuote") << 5 << 4 << tutto;
    QTest::newRow("nessuna riga") << 0 << 3 << QStringList();
}

void TestEsportazioneExcel::corpoSecondoDimensioni() {
    RICHIEDE_LETTORE();
    QFETCH(int, righe);
    QFETCH(int, colonne);
    QFETCH(QStringList, corpo);
    Banco b;
    preparaCelleNumerate(b.stato, 4, 3);
    b.stato.RigheEsportazione = righe;
    b.stato.ColonneEsportazione = colonne;
    const QString file = b.uscita(u"corpo.xlsx"_s);
    EsportazioneExcel::scrivi(file, b.stato);

    const std::optional<Lettura> l = leggi(file);
    QVERIFY(l);
    QStringList letto;
    for (auto i = l->valori.cbegin(); i != l->valori.cend(); ++i)
        if (i.key() != u"A1"_s && !i.key().endsWith(u'3'))
            letto.append(i.key() + u'=' + i.value());
    letto.sort();
    corpo.sort();
    QCOMPARE(letto, corpo);
}

void TestEsportazioneExcel::capacitaTabella_data() {
    QTest::addColumn<Preparazione>("preparazione");
    QTest::addColumn<QString>("guasto"); // empty: written
    QTest::addColumn<QString>("ultimaCella");

    QTest::newRow("10000 righe") << Preparazione([](StatoProgramma &s) {
        preparaCelleNumerate(s, 10001, 1);
    }) << QString() << u"A10003=r10000c0"_s;
    QTest::newRow("10001 righe") << Preparazione([](StatoProgramma &s) {
        preparaCelleNumerate(s, 10002, 1);
    }) << u"più di 10000 righe"_s << QString();
    QTest::newRow("griglia di 245 colonne") << Preparazione([](StatoProgramma &s) {
        preparaCelleNumerate(s, 3, 2);
        s.GrigliaEsportazione().setColonne(245);
    }) << u"più di 244 colonne"_s << QString();
    QTest::newRow("righe dichiarate oltre 10000") << Preparazione([](StatoProgramma &s) {
        preparaCelleNumerate(s, 3, 2);
        s.RigheEsportazione = 10001;
    }) << u"non valide"_s << QString();
    QTest::newRow("colonne dichiarate oltre 244") << Preparazione([](StatoProgramma &s) {
        preparaCelleNumerate(s, 3, 2);
        s.ColonneEsportazione = 245;
    }) << u"non valide"_s << QString();
    QTest::newRow("righe negative") << Preparazione([](StatoProgramma &s) {
        preparaCelleNumerate(s, 3, 2);
        s.RigheEsportazione = -1;
    }) << u"non valide"_s << QString();
}

void TestEsportazioneExcel::capacitaTabella() {
    QFETCH(Preparazione, preparazione);
    QFETCH(QString, guasto);
    QFETCH(QString, ultimaCella);
    Banco b;
    preparazione(b.stato);
    const QString file = b.uscita(u"grande.xlsx"_s);
    QString testo;
    try {
        EsportazioneExcel::scrivi(file, b.stato);
    } catch (const ErroreEsecuzione &e) {
        testo = e.testo();
    }
    if (!guasto.isEmpty()) {
        QVERIFY2(testo.contains(guasto), qPrintable(testo));
        QCOMPARE(b.fileInUscita(), QStringList());
        return;
    }
    QCOMPARE(testo, QString());
    QCOMPARE(b.fileInUscita(), QStringList{u"grande.xlsx"_s});
    if (!lettoreDisponibile())
        return;
    const std::optional<Lettura> l = leggi(file);
    QVERIFY(l);
    const qsizetype uguale = ultimaCella.indexOf(u'=');
    QCOMPARE(l->valori.value(ultimaCella.left(uguale)), ultimaCella.mid(uguale + 1));
    QCOMPARE(l->valori.size(), 1 + 243 + 10000);
}

void TestEsportazioneExcel::fileNonScrivibile_data() {
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QList<QStringList>>("righe");
    QTest::addColumn<QString>("guasto");

    QTest::newRow("cartella inesistente")
        << u"manca/prova.xlsx"_s << QList<QStringList>{{u"a"_s}} << u"Impossibile creare"_s;
    QTest::newRow("testo troppo lungo per una cella")
        << u"lungo.xlsx"_s << QList<QStringList>{{u"a"_s, QString(40000, u'x')}} << u"32767"_s;
    QTest::newRow("oltre l'ultima colonna di un foglio")
        << u"largo.xlsx"_s << QList<QStringList>{QStringList(16385, u"a"_s)}
        << u"dimensioni di un foglio"_s;
}

void TestEsportazioneExcel::fileNonScrivibile() {
    QFETCH(QString, nome);
    QFETCH(QList<QStringList>, righe);
    QFETCH(QString, guasto);
    Banco b;
    const QString file = b.uscita(nome);
    QString testo;
    try {
        EsportazioneExcel::scriviCelle(file, righe);
    } catch (const ErroreEsecuzione &e) {
        testo = e.testo();
    }
    QVERIFY2(testo.contains(guasto), qPrintable(testo));
    QVERIFY2(testo.contains(QDir::toNativeSeparators(file)), qPrintable(testo));
    QVERIFY(!QFile::exists(file));
    QCOMPARE(b.fileInUscita(), QStringList());
}

void TestEsportazioneExcel::esporta_data() {
    QTest::addColumn<QString>("nome"); // empty: the dialog is cancelled
    QTest::addColumn<QStringList>("scritti");

    QTest::newRow("annullato") << QString() << QStringList();
    QTest::newRow("senza estensione") << u"prova"_s << QStringList{u"prova.xlsx"_s};
    QTest::newRow("con il punto finale") << u"prova."_s << QStringList{u"prova.xlsx"_s};
    QTest::newRow("con estensione") << u"prova.xlsx"_s << QStringList{u"prova.xlsx"_s};
    QTest::newRow("con un'altra estensione") << u"prova.dati"_s << QStringList{u"prova.dati"_s};
}

void TestEsportazioneExcel::esporta() {
    QFETCH(QString, nome);
    QFETCH(QStringList, scritti);
    Banco b;
    EsportazioneExcel::prepara(b.stato,
                               *griglia({{u"Squadra"_s, u"Punti"_s}, {u"Roma"_s, u"40"_s}}),
                               u"Classifica, alla data 03/04/2024"_s);
    if (!nome.isEmpty())
        b.d.fileDaSalvare.enqueue(b.uscita(nome));
    EsportazioneExcel::esporta(b.stato);

    QCOMPARE(b.d.ultimoTitoloSalvataggio, u"Specifica il nome del file..."_s);
    QCOMPARE(b.d.ultimoFiltroSalvataggio, u"Cartella di lavoro Excel (*.xlsx)"_s);
    // The name comes from the title, the date's slashes made dashes.
    QCOMPARE(QFileInfo(b.d.ultimaPropostaSalvataggio).fileName(),
             u"Classifica, alla data 03-04-2024.xlsx"_s);
    QCOMPARE(QFileInfo(b.d.ultimaPropostaSalvataggio).absolutePath(), cartellaIniziale());
    QCOMPARE(b.fileInUscita(), scritti);
    QVERIFY(b.d.boxes.isEmpty());
    // The status bar says where the workbook went; a cancel says nothing.
    if (scritti.isEmpty()) {
        QCOMPARE(b.d.avvisiStato, QStringList());
    } else {
        QCOMPARE(b.d.avvisiStato, QStringList{u"File salvato in "_s +
                                              QDir::toNativeSeparators(b.uscita(scritti.first()))});
    }
    if (scritti.isEmpty() || !lettoreDisponibile())
        return;
    const std::optional<Lettura> l = leggi(b.uscita(scritti.first()));
    QVERIFY(l);
    QCOMPARE(l->valori.value(u"A1"_s), u"Vespara - Classifica, alla data 03/04/2024"_s);
    QCOMPARE(l->valori.value(u"A4"_s), u"Roma"_s);
    QCOMPARE(l->valori.value(u"B4"_s), u"40"_s);
}

void TestEsportazioneExcel::esportaTroppeRigheNonChiedeIlNome() {
    Banco b;
    preparaCelleNumerate(b.stato, 10002, 1);
    b.d.fileDaSalvare.enqueue(b.uscita(u"grande.xlsx"_s));
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, EsportazioneExcel::esporta(b.stato));
    QCOMPARE(b.d.ultimoTitoloSalvataggio, QString());
    QCOMPARE(b.d.fileDaSalvare.size(), 1);
    QCOMPARE(b.fileInUscita(), QStringList());
}

void TestEsportazioneExcel::esportaRicordaLaCartella() {
    Banco b;
    EsportazioneExcel::prepara(b.stato, *griglia({{u"Formula"_s}, {u"4-1-4"_s}}),
                               u"Riepilogo Formule, alla data 23/11/2026"_s);
    const QString nome = u"Riepilogo Formule, alla data 23-11-2026.xlsx"_s;
    // Cancelled: nothing is remembered.
    EsportazioneExcel::esporta(b.stato);
    QCOMPARE(b.d.ultimaPropostaSalvataggio, QDir(cartellaIniziale()).filePath(nome));
    QCOMPARE(b.i.valore(Impostazioni::CartellaSalvataggi).toString(), QString());

    // Saved under another name in "uscita": the next proposal is there, with the title's name.
    QVERIFY(QDir(b.dir.path()).mkdir(u"uscita/sotto"_s));
    const QString sotto = b.uscita(u"sotto"_s);
    b.d.fileDaSalvare.enqueue(QDir(sotto).filePath(u"mio.xlsx"_s));
    EsportazioneExcel::esporta(b.stato);
    QVERIFY(QFile::exists(QDir(sotto).filePath(u"mio.xlsx"_s)));
    QCOMPARE(b.i.valore(Impostazioni::CartellaSalvataggi).toString(), sotto);
    EsportazioneExcel::esporta(b.stato);
    QCOMPARE(b.d.ultimaPropostaSalvataggio, QDir(sotto).filePath(nome));

    // A failed write remembers nothing and says nothing: the fault box is enough.
    b.d.avvisiStato.clear();
    b.d.fileDaSalvare.enqueue(b.uscita(u"manca/prova.xlsx"_s));
    QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, EsportazioneExcel::esporta(b.stato));
    QCOMPARE(b.i.valore(Impostazioni::CartellaSalvataggi).toString(), sotto);
    QCOMPARE(b.d.avvisiStato, QStringList());

    // The folder is gone: the proposal goes back to where it started.
    QVERIFY(QDir(sotto).removeRecursively());
    EsportazioneExcel::esporta(b.stato);
    QCOMPARE(b.d.ultimaPropostaSalvataggio, QDir(cartellaIniziale()).filePath(nome));

    // The folder is kept in the settings store, so another session proposes it too.
    b.d.fileDaSalvare.enqueue(b.uscita(u"di nuovo.xlsx"_s));
    EsportazioneExcel::esporta(b.stato);
    Impostazioni riaperte(b.dir.filePath(u"i.ini"_s));
    QCOMPARE(riaperte.valore(Impostazioni::CartellaSalvataggi).toString(),
             QFileInfo(b.uscita(u"di nuovo.xlsx"_s)).absolutePath());
}

void TestEsportazioneExcel::scriviCelle() {
    RICHIEDE_LETTORE();
    Banco b;
    const QString file = b.uscita(u"anteprima.xlsx"_s);
    EsportazioneExcel::scriviCelle(file, {{u"Colonna"_s, u"Freq."_s, u"Rit."_s},
                                          {},
                                          {u""_s, u" 0"_s, u""_s, u"fine"_s},
                                          {u"1X2 1X2 1X2"_s}});
    const std::optional<Lettura> l = leggi(file);
    QVERIFY(l);
    QMap<QString, QString> attese;
    attese.insert(u"A1"_s, u"Colonna"_s);
    attese.insert(u"B1"_s, u"Freq."_s);
    attese.insert(u"C1"_s, u"Rit."_s);
    attese.insert(u"B3"_s, u"0"_s);
    attese.insert(u"D3"_s, u"fine"_s);
    attese.insert(u"A4"_s, u"1X2 1X2 1X2"_s);
    QCOMPARE(l->valori, attese);
    QCOMPARE(l->tipi.value(u"B3"_s), u"n"_s);
    QCOMPARE(l->tipi.value(u"A4"_s), u"s"_s);
    // Without a layout nothing is frozen and every row sizes its column: "1X2 1X2 1X2" makes A
    // the widest.
    QCOMPARE(l->riquadro, u"-"_s);
    QCOMPARE(l->larghezze.keys(), (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
    QVERIFY(l->larghezze.value(u"A"_s) > l->larghezze.value(u"B"_s));
    QVERIFY(l->larghezze.value(u"B"_s) > l->larghezze.value(u"D"_s));
}

void TestEsportazioneExcel::menuGriglie() {
    Banco b;
    QWidget schermata;
    schermata.setObjectName(u"frmProva"_s);
    new FrmMenuGriglie(b.stato, &schermata);

    QMenu *menu = schermata.findChild<QMenu *>(u"frmMenuGriglie"_s);
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 1);
    QAction *voce = menu->actions().first();
    QCOMPARE(voce->objectName(), u"mnuExcel"_s);
    QCOMPARE(voce->text(), u"Esporta in file Excel"_s);

    EsportazioneExcel::prepara(b.stato, *griglia({{u"Colonna"_s, u"Freq."_s}, {u"1X2"_s, u"3"_s}}),
                               u"Le colonne del 9 da giocare, alla data 05/06/2024"_s);
    auto *frm = schermata.findChild<FrmMenuGriglie *>();
    QVERIFY(frm);
    frm->apri(QPoint(100, 100));
    QTRY_VERIFY(menu->isVisible());

    // Cancelled: nothing written.
    voce->trigger();
    QCOMPARE(b.d.ultimoTitoloSalvataggio, u"Specifica il nome del file..."_s);
    QCOMPARE(b.fileInUscita(), QStringList());

    QCOMPARE(b.d.avvisiStato, QStringList());

    b.d.fileDaSalvare.enqueue(b.uscita(u"colonne"_s));
    voce->trigger();
    QCOMPARE(b.fileInUscita(), QStringList{u"colonne.xlsx"_s});
    QVERIFY(b.d.boxes.isEmpty());
    QCOMPARE(b.d.avvisiStato, QStringList{u"File salvato in "_s +
                                          QDir::toNativeSeparators(b.uscita(u"colonne.xlsx"_s))});
    menu->hide();
    if (!lettoreDisponibile())
        return;
    const std::optional<Lettura> l = leggi(b.uscita(u"colonne.xlsx"_s));
    QVERIFY(l);
    QCOMPARE(l->valori.value(u"A1"_s),
             u"Vespara - Le colonne del 9 da giocare, alla data 05/06/2024"_s);
    QCOMPARE(l->valori.value(u"A4"_s), u"1X2"_s);
    QCOMPARE(l->valori.value(u"B4"_s), u"3"_s);
}

void TestEsportazioneExcel::menuGriglieSegnalaIGuasti() {
    Banco b;
    QWidget schermata;
    FrmMenuGriglie frm(b.stato, &schermata);
    preparaCelleNumerate(b.stato, 3, 2);
    const QString file = b.uscita(u"manca/prova.xlsx"_s);
    b.d.fileDaSalvare.enqueue(file);
    frm.mnuExcel()->trigger();
    QCOMPARE(b.d.boxes.size(), 1);
    QCOMPARE(b.d.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY2(b.d.boxes.first().testo.contains(QDir::toNativeSeparators(file)),
             qPrintable(b.d.boxes.first().testo));
    QCOMPARE(b.fileInUscita(), QStringList());
    QCOMPARE(b.d.avvisiStato, QStringList());
}

void TestEsportazioneExcel::menuGriglieDistrutto() {
    Banco b;
    {
        // The pop-up goes with its owner, whether the owner goes first or the screen does.
        QWidget schermata;
        auto *frm = new FrmMenuGriglie(b.stato, &schermata);
        QPointer<QMenu> menu = frm->menu();
        delete frm;
        QVERIFY(menu.isNull());
    }
    auto *schermata = new QWidget;
    QPointer<FrmMenuGriglie> frm = new FrmMenuGriglie(b.stato, schermata);
    QPointer<QMenu> menu = frm->menu();
    delete schermata;
    QVERIFY(frm.isNull());
    QVERIFY(menu.isNull());
    // Without a screen the pop-up is its own.
    {
        FrmMenuGriglie solo(b.stato, nullptr);
        menu = solo.menu();
        QVERIFY(!menu.isNull());
    }
    QVERIFY(menu.isNull());
}

QTEST_MAIN(TestEsportazioneExcel)
#include "tst_esportazioneexcel.moc"
