// The reports of the program laid out on the page document, and the grid printer, read back
// from the records and the recording device.
#include "supporto/archiviosintetico.h"

#include "analisi/colonne9.h"
#include "analisi/stampacolonne9.h"
#include "analisi/stampapannello.h"
#include "core/archiviocolonne.h"
#include "archivio/stampaarchivio.h"
#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/griglia.h"
#include "stampa/documentopagine.h"
#include "stampa/flexprinter.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Op = DispositivoRegistratore::Operazione;

// A grid of the workspace with n columns of the 9 below its header.
void griglia9(Griglia &g, int n) {
    const auto blocco = g.inBlocco();
    g.setColonne(4);
    g.setRighe(n + 1);
    g.setRigheFisse(1);
    const QStringList teste{u"Pos."_s, u"Colonna del 9"_s, u"Freq."_s, u"Rit."_s};
    for (int c = 0; c < 4; ++c)
        g.setTesto(0, c, teste.at(c));
    for (int i = 1; i <= n; ++i) {
        g.setTesto(i, 0, QString::number(i));
        g.setTesto(i, 1, Colonne9::elenco().at(i - 1));
        g.setTesto(i, 2, u" %1"_s.arg(i % 7));
        g.setTesto(i, 3, i % 3 ? u" 4"_s : u"-"_s);
    }
}

// The records of each page, from its "Nuova Pagina" to its "Fine Pagina" included.
QList<QList<RecordPagina>> pagine(const QList<RecordPagina> &record) {
    QList<QList<RecordPagina>> p;
    for (const RecordPagina &r : record) {
        if (r.tipo == DocumentoPagine::TipoNuovaPagina)
            p.append(QList<RecordPagina>());
        p.last().append(r);
    }
    return p;
}

QStringList testi(const QList<RecordPagina> &record) {
    QStringList t;
    for (const RecordPagina &r : record)
        if (r.tipo == DocumentoPagine::TipoTesto)
            t.append(r.testo);
    return t;
}

QList<RecordPagina> corpo(const QList<RecordPagina> &pagina) {
    QList<RecordPagina> c;
    for (const RecordPagina &r : pagina)
        if (r.tipo == DocumentoPagine::TipoTesto && r.font == u"Courier New"_s)
            c.append(r);
    return c;
}

} // namespace

class TstStampa : public QObject {
    Q_OBJECT

private slots:
    void elencoDel9Impaginato_data();
    void elencoDel9Impaginato();
    void testaDelleColonneDel9();
    void elencoDiTutteLeColonne();
    void cinquineDelPannello();
    void archivioStorico();
    void grigliaSullaPagina();
    void allineamentiDelleCelle_data();
    void allineamentiDelleCelle();
    void codiceDelleColonne();

private:
    QTemporaryDir m_dir;
    QString file() const { return m_dir.filePath(u"_$$_TEMP.TMP"_s); }
};

void TstStampa::elencoDel9Impaginato_data() {
    QTest::addColumn<int>("colonne");
    QTest::addColumn<int>("pagine");
    QTest::addColumn<int>("righeUltima");
    QTest::newRow("una") << 1 << 1 << 1;
    QTest::newRow("57") << 57 << 1 << 57;
    // The page breaks right after its 58th column: a second page with the head alone.
    QTest::newRow("58") << 58 << 2 << 0;
    QTest::newRow("59") << 59 << 2 << 1;
    QTest::newRow("116") << 116 << 3 << 0;
    QTest::newRow("117") << 117 << 3 << 1;
}

void TstStampa::elencoDel9Impaginato() {
    QFETCH(int, colonne);
    QFETCH(int, pagine);
    QFETCH(int, righeUltima);
    Griglia g;
    griglia9(g, colonne);
    DocumentoPagine d(file());
    StampaColonne9::scrivi(d, g, u"21/11/2026"_s);
    const QList<RecordPagina> record = DocumentoPagine::leggi(file());
    const auto p = ::pagine(record);
    QCOMPARE(p.size(), pagine);
    QCOMPARE(DocumentoPagine::contaPagine(record), pagine);
    QCOMPARE(corpo(p.last()).size(), righeUltima * 4);
    for (int i = 0; i + 1 < p.size(); ++i)
        QCOMPARE(corpo(p.at(i)).size(), 58 * 4);
    // Every column of the grid, in order, at x 2.6, 4.6, 6.1, 7.3 cm.
    QStringList celle;
    int riga = 0;
    for (const auto &pagina : p) {
        const QList<RecordPagina> c = corpo(pagina);
        for (int i = 0; i < c.size(); ++i) {
            static constexpr float X[] = {2.6f, 4.6f, 6.1f, 7.3f};
            QCOMPARE(c.at(i).x1, X[i % 4] * 567.0f);
            QCOMPARE(c.at(i).dimensione, qint16(10));
            QCOMPARE(c.at(i).grassetto, qint16(0));
            QCOMPARE(c.at(i).colore, qint16(0));
            celle.append(c.at(i).testo);
        }
        if (!c.isEmpty()) {
            QCOMPARE(c.first().y1, 4.7f * 567.0f);
            ++riga;
        }
    }
    QCOMPARE(celle.size(), colonne * 4);
    QCOMPARE(celle.at(1), u"111111111"_s);
    // The leading blank of Freq. is lost when the record is read back, as the program has it.
    QCOMPARE(celle.at(2), u"1"_s);
    QCOMPARE(celle.at(4 * (colonne - 1) + 1), Colonne9::elenco().at(colonne - 1));
    if (colonne >= 58)
        QCOMPARE(corpo(p.first()).last().y1, float(4.0f + 0.35f * 59) * 567.0f);
}

void TstStampa::testaDelleColonneDel9() {
    DocumentoPagine d(file());
    Griglia g;
    griglia9(g, 60);
    StampaColonne9::scrivi(d, g, u"21/11/2026"_s);
    const auto p = pagine(DocumentoPagine::leggi(file()));
    QCOMPARE(p.size(), 2);
    const QStringList testa{u"Vespara."_s,
                            u"Stampa delle terzine Vespara."_s,
                            u"Data: 21/11/2026"_s,
                            u"Elenco Colonne del 9."_s,
                            u"Pagina 1"_s,
                            u"Vespara."_s,
                            u"Stampa delle terzine Vespara."_s};
    QCOMPARE(testi(p.at(0)).mid(0, 7), testa);
    QStringList seconda = testa;
    seconda[4] = u"Pagina 2"_s;
    QCOMPARE(testi(p.at(1)).mid(0, 7), seconda);
    // The kinds of the head in order: the rule under the head is drawn twice from page 2 on.
    const auto tipi = [](const QList<RecordPagina> &pagina) {
        QStringList t;
        for (const RecordPagina &r : pagina) {
            if (r.tipo == DocumentoPagine::TipoTesto && r.font == u"Courier New"_s)
                break;
            t.append(r.tipo == DocumentoPagine::TipoLinea ? u"L%1"_s.arg(r.y1 / 567.0f, 0, 'f', 1)
                                                          : r.tipo.left(1));
        }
        return t.join(u' ');
    };
    QCOMPARE(tipi(p.at(0)), u"N T T L2.0 T T L26.5 T T T"_s);
    QCOMPARE(tipi(p.at(1)), u"N T T L2.0 T T L2.0 L26.5 T T T"_s);
    const RecordPagina &vespara = p.at(0).at(1);
    QCOMPARE(vespara.testo, u"Vespara."_s);
    QCOMPARE(vespara.colore, qint16(4));
    QCOMPARE(vespara.font, u"Arial"_s);
    QVERIFY(vespara.grassetto != 0);
    QCOMPARE(vespara.x1, 567.0f);
    QCOMPARE(vespara.y1, 1.5f * 567.0f);
    const RecordPagina &elenco = p.at(0).at(5);
    QCOMPARE(elenco.testo, u"Elenco Colonne del 9."_s);
    QCOMPARE(elenco.dimensione, qint16(13));
    QCOMPARE(elenco.colore, qint16(12));
}

void TstStampa::elencoDiTutteLeColonne() {
    Griglia tutte;
    griglia9(tutte, Colonne9::Numero);
    DocumentoPagine d(file());
    StampaColonne9::scrivi(d, tutte, u"21/11/2026"_s);
    const QList<RecordPagina> record = DocumentoPagine::leggi(file());
    // 19683 = 339 * 58 + 21.
    QCOMPARE(DocumentoPagine::contaPagine(record), 340);
    QCOMPARE(corpo(pagine(record).last()).size(), 21 * 4);
}

void TstStampa::cinquineDelPannello() {
    Griglia c(10, 243);
    for (int col = 0; col < 243; ++col) {
        for (int r = 0; r < 5; ++r)
            c.setTesto(r, col, Colonne9::elenco().at(col).right(5).mid(r, 1));
        c.setTesto(7, col, QString::number(col));
        c.setTesto(9, col, QString::number(243 - col));
    }
    DocumentoPagine d(file());
    StampaPannello::scriviCinquine(d, c, u"21/11/2026"_s);
    const QList<RecordPagina> record = DocumentoPagine::leggi(file());
    // 243 = 4 * 58 + 11.
    const auto p = pagine(record);
    QCOMPARE(p.size(), 5);
    const QStringList primi = testi(p.first());
    QVERIFY(primi.contains(u"Vespara!"_s));
    QVERIFY(primi.contains(u"Le Cinquine"_s));
    QVERIFY(primi.contains(u"Data: 21/11/2026"_s));
    QVERIFY(primi.contains(u"Pagina 1"_s));
    QVERIFY(testi(p.last()).contains(u"Pagina 5"_s));
    const QStringList tutti = testi(record);
    const qsizetype i = tutti.indexOf(Colonne9::elenco().at(5).right(5));
    QVERIFY(i >= 0);
    QCOMPARE(tutti.at(i + 1), u"Rit. 5"_s);
    QCOMPARE(tutti.at(i + 2), u"Freq. 238"_s);
}

void TstStampa::archivioStorico() {
    QCOMPARE(StampaArchivio::riga({u"2011"_s, u"34"_s, u"1121X22122112X"_s, u"6"_s, u"2"_s, u"6"_s,
                                   u"9"_s, u"2"_s, u"4"_s}),
             u"2011   34    1121X22122112X   6   2   6   9     2     4"_s);
    const ArchivioColonne archivio = ArchivioColonne::daRighe(archivioSintetico(500));
    DocumentoPagine d(file());
    StampaArchivio::scrivi(d, archivio, u"21/11/2026"_s);
    const QList<RecordPagina> record = DocumentoPagine::leggi(file());
    // 54 contests a page: 500 = 9 * 54 + 14.
    const auto p = pagine(record);
    QCOMPARE(p.size(), 10);
    QCOMPARE(corpo(p.first()).size(), 54);
    QCOMPARE(corpo(p.last()).size(), 14);
    QVERIFY(testi(p.first()).contains(u"Archivio storico"_s));
    QVERIFY(testi(p.first()).contains(u"Parall."_s));
    const RigaArchivio &ultima = archivio.ultima();
    QCOMPARE(corpo(p.last()).last().testo,
             StampaArchivio::riga(QStringList(ultima.begin(), ultima.end())));
}

void TstStampa::grigliaSullaPagina() {
    Griglia g(3, 3);
    g.setRigheFisse(1);
    g.setTesto(0, 0, u"A"_s);
    g.setTesto(1, 1, u"12"_s);
    g.setTesto(2, 2, u"testo"_s);
    g.setLarghezzaColonna(0, 500);
    g.setLarghezzaColonna(1, 700);
    g.setLarghezzaColonna(2, 900);
    g.setAltezzaRiga(2, 400);
    g.setSfondo(2, 2, QColor(255, 0, 0));
    g.setGrassetto(2, 2, true);
    g.setColore(2, 2, QColor(0, 0, 255));
    FlexPrinter f(g);
    f.RowsFrom = 0;
    f.RowsTo = 2;
    f.BordoSinistro = 1000;
    f.BordoSuperiore = 2000;
    QCOMPARE(f.larghezza(), 2100.0);
    QCOMPARE(f.altezza(), 240.0 + 240.0 + 400.0);
    DispositivoRegistratore d;
    f.stampa(d);
    QCOMPARE(d.testi(), (QStringList{u"A"_s, u"12"_s, u"testo"_s}));
    // Four rules across and four down.
    QCOMPARE(d.conta(Op::Linea), 8);
    QCOMPARE(f.CurX(), 3100.0);
    QCOMPARE(f.CurY(), 2880.0);
    // The fixed row is grey, the red cell is red; white cells are not painted.
    QList<QColor> sfondi;
    for (const auto &c : d.chiamate)
        if (c.operazione == Op::Rettangolo)
            sfondi.append(c.riempimento);
    QCOMPARE(sfondi, (QList<QColor>{QColor(224, 224, 224), QColor(224, 224, 224),
                                    QColor(224, 224, 224), QColor(255, 0, 0)}));
    const auto &testo = d.chiamate.at(d.chiamate.size() - 9);
    QCOMPARE(testo.testo, u"testo"_s);
    QVERIFY(testo.carattere.grassetto);
    QCOMPARE(testo.colore, QColor(0, 0, 255));
    // The cell's rectangle, less the inset, from the corner of the grid.
    QCOMPARE(testo.rettangolo, QRectF(1000 + 500 + 700 + 45, 2000 + 480, 900 - 90, 400));
    // Only the rows asked for.
    f.RowsFrom = 1;
    f.RowsTo = 1;
    DispositivoRegistratore soloUna;
    f.stampa(soloUna);
    QCOMPARE(soloUna.testi(), QStringList{u"12"_s});
}

void TstStampa::allineamentiDelleCelle_data() {
    QTest::addColumn<int>("cella");
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("atteso");
    QTest::newRow("0") << 0 << u"x"_s << int(Qt::AlignLeft | Qt::AlignTop);
    QTest::newRow("1") << 1 << u"x"_s << int(Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("2") << 2 << u"x"_s << int(Qt::AlignLeft | Qt::AlignBottom);
    QTest::newRow("3") << 3 << u"x"_s << int(Qt::AlignHCenter | Qt::AlignTop);
    QTest::newRow("4") << 4 << u"x"_s << int(Qt::AlignHCenter | Qt::AlignVCenter);
    QTest::newRow("5") << 5 << u"x"_s << int(Qt::AlignHCenter | Qt::AlignBottom);
    QTest::newRow("6") << 6 << u"x"_s << int(Qt::AlignRight | Qt::AlignTop);
    QTest::newRow("7") << 7 << u"x"_s << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("8") << 8 << u"x"_s << int(Qt::AlignRight | Qt::AlignBottom);
    QTest::newRow("9 numero") << 9 << u" 12"_s << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("9 testo") << 9 << u"Roma"_s << int(Qt::AlignLeft | Qt::AlignVCenter);
}

void TstStampa::allineamentiDelleCelle() {
    QFETCH(int, cella);
    QFETCH(QString, testo);
    QFETCH(int, atteso);
    QCOMPARE(int(FlexPrinter::allineamento(cella, testo)), atteso);
}

void TstStampa::codiceDelleColonne() {
    Griglia g(1, 3);
    g.setLarghezzaColonna(0, 500);
    g.setLarghezzaColonna(1, 0);
    g.setLarghezzaColonna(2, 900);
    const QStringList righe = FlexPrinter(g).codiceColonne().split(u"\r\n"_s);
    QCOMPARE(righe.at(2), u".ColWidth(0) = 500"_s);
    QCOMPARE(righe.at(3), u"'You must set positive value to follwing line"_s);
    QCOMPARE(righe.at(4), u".ColWidth(1) = 0"_s);
    QCOMPARE(righe.at(5), u".ColWidth(2) = 900"_s);
}

QTEST_MAIN(TstStampa)
#include "tst_stampa.moc"
