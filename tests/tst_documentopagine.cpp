#include "supporto/strumentiprova.h"

#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/erroreesecuzione.h"
#include "stampa/documentopagine.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>

Q_DECLARE_METATYPE(RecordPagina)

using namespace Qt::StringLiterals;
using Op = DispositivoRegistratore::Operazione;

namespace {

constexpr int L = DocumentoPagine::LunghezzaRecord;

using namespace StrumentiProva;

// A text field as it must stand in the file: Latin-1, padded with blanks.
QByteArray campo(const QByteArray &testo, int larghezza) {
    return testo.leftJustified(larghezza, ' ', true);
}

QByteArray int16Le(qint16 v) {
    QByteArray b(2, '\0');
    qToLittleEndian(v, b.data());
    return b;
}

QByteArray int32Le(qint32 v) {
    QByteArray b(4, '\0');
    qToLittleEndian(v, b.data());
    return b;
}

// Field by field from the bytes, independently of the program's decoder.
float floatA(const QByteArray &b, int pos) {
    return std::bit_cast<float>(qFromLittleEndian<quint32>(b.constData() + pos));
}

RecordPagina record(const QString &tipo) {
    RecordPagina r;
    r.tipo = tipo;
    return r;
}

RecordPagina testo(const QString &t, int colore = 0, float x = 0, float y = 0) {
    RecordPagina r = record(u"Testo"_s);
    r.testo = t;
    r.colore = qint16(colore);
    r.x1 = x;
    r.y1 = y;
    r.font = u"Arial"_s;
    r.dimensione = 10;
    return r;
}

RecordPagina box(int colore, float x1 = 0, float y1 = 0, float x2 = 0, float y2 = 0) {
    RecordPagina r = record(u"Box"_s);
    r.colore = qint16(colore);
    r.x1 = x1;
    r.y1 = y1;
    r.x2 = x2;
    r.y2 = y2;
    return r;
}

// The calls of the recorder, one word each: "T:<text>", "R" (rectangle), "L", "I", "N" (new
// page), "F" (end of document).
QString traccia(const DispositivoRegistratore &d) {
    QStringList parti;
    for (const auto &c : d.chiamate) {
        switch (c.operazione) {
        case Op::Testo:
            parti.append(u"T:"_s + c.testo);
            break;
        case Op::Rettangolo:
            parti.append(u"R"_s);
            break;
        case Op::Linea:
            parti.append(u"L"_s);
            break;
        case Op::Immagine:
            parti.append(u"I"_s);
            break;
        case Op::NuovaPagina:
            parti.append(u"N"_s);
            break;
        case Op::FineDocumento:
            parti.append(u"F"_s);
            break;
        default:
            parti.append(u"?"_s);
        }
    }
    return parti.join(u' ');
}

} // namespace

class TstDocumentoPagine : public QObject {
    Q_OBJECT

private slots:
    void init();

    void documentoVuoto();
    void campiTesto_data();
    void campiTesto();
    void campiBox();
    void sequenzaPagine();
    void percorsoPredefinito();
    void pulisceFileTemporanei();
    void erroriScrittura_data();
    void erroriScrittura();
    void documentoGrande();

    void andataERitorno_data();
    void andataERitorno();
    void decodificaNonSpoglia();
    void leggiSpoglia();
    void leggiDifettoso_data();
    void leggiDifettoso();

    void contaPagine_data();
    void contaPagine();
    void tavolozza_data();
    void tavolozza();
    void stampaIntervallo_data();
    void stampaIntervallo();
    void stampaAnnullata_data();
    void stampaAnnullata();
    void coloriDisegno();
    void coloreInesistente_data();
    void coloreInesistente();
    void disegnaPagina();
    void testoDestra_data();
    void testoDestra();
    void esportazione_data();
    void esportazione();
    void riempimento_data();
    void riempimento();

private:
    QList<RecordPagina> cinquePagine();

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_file;
};

void TstDocumentoPagine::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_file = m_dir->filePath(u"_$$_TEMP.TMP"_s);
}

void TstDocumentoPagine::documentoVuoto() {
    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    QVERIFY(doc.aperto());
    doc.fineDocumento();
    QVERIFY(!doc.aperto());

    const QByteArray b = contenuto(m_file);
    QCOMPARE(b.size(), 2 * L);
    QByteArray vuoto = campo("Nuova Pagina", 20) + QByteArray(22, '\0') + campo("", 40) +
                       QByteArray(4, '\0') + campo("", 100);
    QCOMPARE(b.left(L), vuoto);
    vuoto.replace(0, 20, campo("Fine Pagina", 20));
    QCOMPARE(b.mid(L), vuoto);
}

void TstDocumentoPagine::campiTesto_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("font");
    QTest::addColumn<int>("grassetto");
    QTest::addColumn<QByteArray>("testoAtteso");
    QTest::addColumn<QByteArray>("fontAtteso");

    const QString lungo = QString(99, u'x') + u"èyz"_s;
    QTest::newRow("corto") << u"1 X 2"_s << u"Arial"_s << 0 << campo("1 X 2", 100)
                           << campo("Arial", 40);
    QTest::newRow("accentato") << u"Lunedì è"_s << u"Courier New"_s << 1
                               << campo("Luned\xec \xe8", 100) << campo("Courier New", 40);
    QTest::newRow("tagliato a 100")
        << lungo << QString(45, u'f') << -1 << QByteArray(99, 'x') + "\xe8" << QByteArray(40, 'f');
    QTest::newRow("fuori da Latin-1")
        << u"1 € 2"_s << u"Arial"_s << 1 << campo("1 ? 2", 100) << campo("Arial", 40);
    QTest::newRow("spazi in testa restano")
        << u"  7"_s << u"Arial"_s << 0 << campo("  7", 100) << campo("Arial", 40);
}

void TstDocumentoPagine::campiTesto() {
    QFETCH(QString, testo);
    QFETCH(QString, font);
    QFETCH(int, grassetto);
    QFETCH(QByteArray, testoAtteso);
    QFETCH(QByteArray, fontAtteso);

    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    doc.scriviTesto(1.5f, 2.0f, testo, font, 12, grassetto, 4);
    doc.fineDocumento();

    const QByteArray tutto = contenuto(m_file);
    QCOMPARE(tutto.size(), 3 * L);
    QCOMPARE(tutto.mid(0, 20), campo("Nuova Pagina", 20));
    QCOMPARE(tutto.mid(2 * L, 20), campo("Fine Pagina", 20));

    const QByteArray b = tutto.mid(L, L);
    QCOMPARE(b.mid(0, 20), campo("Testo", 20));
    QCOMPARE(b.mid(20, 4), QByteArray(4, '\0'));
    QCOMPARE(b.mid(24, 2), QByteArray("\x04\x00", 2));
    // 1.5 cm = 850.5 twips = 0x4454A000, little-endian; 2 cm = 1134 = 0x448DC000.
    QCOMPARE(b.mid(26, 4), QByteArray("\x00\xa0\x54\x44", 4));
    QCOMPARE(b.mid(30, 4), QByteArray("\x00\xc0\x8d\x44", 4));
    QCOMPARE(b.mid(34, 8), QByteArray(8, '\0'));
    QCOMPARE(b.mid(42, 40), fontAtteso);
    QCOMPARE(b.mid(82, 2), QByteArray("\x0c\x00", 2));
    QCOMPARE(b.mid(84, 2), int16Le(qint16(grassetto)));
    QCOMPARE(b.mid(86, 100), testoAtteso);
}

void TstDocumentoPagine::campiBox() {
    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    doc.scriviBox(1.0f, 2.0f, 3.0f, 0.5f, 7, 12);
    doc.scriviBox(0, 0, 0, 0, -2, 20); // a colour beyond the palette is written as it is
    doc.fineDocumento();

    const QByteArray tutto = contenuto(m_file);
    QCOMPARE(tutto.size(), 4 * L);
    QByteArray b = tutto.mid(L, L);
    QCOMPARE(b.mid(0, 20), campo("Box", 20));
    QCOMPARE(b.mid(20, 4), int32Le(7));
    QCOMPARE(b.mid(24, 2), int16Le(12));
    QCOMPARE(floatA(b, 26), 567.0f);
    QCOMPARE(floatA(b, 30), 1134.0f);
    QCOMPARE(floatA(b, 34), 1701.0f);
    QCOMPARE(floatA(b, 38), 283.5f);
    QCOMPARE(b.mid(42, 40), campo("", 40));
    QCOMPARE(b.mid(82, 4), QByteArray(4, '\0'));
    QCOMPARE(b.mid(86, 100), campo("", 100));

    b = tutto.mid(2 * L, L);
    QCOMPARE(b.mid(20, 4), QByteArray("\xfe\xff\xff\xff", 4));
    QCOMPARE(b.mid(24, 2), int16Le(20));
}

void TstDocumentoPagine::sequenzaPagine() {
    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    doc.scriviTesto(1, 1, u"a"_s, u"Arial"_s, 10, 0, 0);
    doc.nuovaPagina();
    doc.nuovaPagina();
    doc.scriviBox(1, 1, 2, 2, 0, 0);
    doc.fineDocumento();

    const QByteArray b = contenuto(m_file);
    QCOMPARE(b.size() % L, 0);
    QStringList tipi;
    for (int i = 0; i < b.size(); i += L)
        tipi.append(QString::fromLatin1(b.mid(i, 20)).trimmed());
    QCOMPARE(tipi, QStringList({u"Nuova Pagina"_s, u"Testo"_s, u"Fine Pagina"_s, u"Nuova Pagina"_s,
                                u"Fine Pagina"_s, u"Nuova Pagina"_s, u"Box"_s, u"Fine Pagina"_s}));
    QCOMPARE(DocumentoPagine::contaPagine(DocumentoPagine::leggi(m_file)), 3);

    // A second document on the same writer starts from nothing.
    doc.nuovoDocumento();
    doc.fineDocumento();
    QCOMPARE(contenuto(m_file).size(), 2 * L);
}

void TstDocumentoPagine::percorsoPredefinito() {
    QCOMPARE(DocumentoPagine::percorsoPredefinito(),
             QDir(QDir::tempPath()).filePath(u"_$$_TEMP.TMP"_s));
    QCOMPARE(DocumentoPagine().percorso(), DocumentoPagine::percorsoPredefinito());
}

void TstDocumentoPagine::pulisceFileTemporanei() {
    const QDir dir(m_dir->path());
    const QStringList daTogliere = {u"_$$_TEMP.TMP"_s, u"_$$_VECCHIO.TMP"_s, u"_$$_.TMP"_s,
                                    u"_$$_minuscolo.tmp"_s};
    const QStringList daTenere = {u"altro.TMP"_s, u"_$$_TEMP.TXT"_s, u"X_$$_A.TMP"_s, u"_$_A.TMP"_s,
                                  u"Archivio.txt"_s};
    for (const QString &n : daTogliere + daTenere)
        QVERIFY(scriviGrezzo(dir.filePath(n), QByteArray(500, 'z')));
    QVERIFY(dir.mkdir(u"_$$_CARTELLA.TMP"_s));

    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();

    for (const QString &n : daTogliere.mid(1))
        QVERIFY2(!dir.exists(n), qPrintable(n));
    for (const QString &n : daTenere)
        QCOMPARE(contenuto(dir.filePath(n)), QByteArray(500, 'z'));
    QVERIFY(QFileInfo(dir.filePath(u"_$$_CARTELLA.TMP"_s)).isDir());

    doc.fineDocumento();
    // The old 500 bytes of the page file are gone, not overwritten in part.
    QCOMPARE(contenuto(m_file).size(), 2 * L);
}

void TstDocumentoPagine::erroriScrittura_data() {
    QTest::addColumn<int>("caso");
    QTest::newRow("testo prima di aprire") << 0;
    QTest::newRow("box dopo la fine") << 1;
    QTest::newRow("pagina prima di aprire") << 2;
    QTest::newRow("fine due volte") << 3;
    QTest::newRow("cartella mancante") << 4;
    QTest::newRow("dimensione oltre 16 bit") << 5;
    QTest::newRow("colore oltre 16 bit") << 6;
}

void TstDocumentoPagine::erroriScrittura() {
    QFETCH(int, caso);
    const QString percorso = caso == 4 ? m_dir->filePath(u"manca/_$$_TEMP.TMP"_s) : m_file;
    DocumentoPagine doc(percorso);
    if (caso == 1 || caso == 3 || caso >= 5)
        doc.nuovoDocumento();
    if (caso == 1 || caso == 3)
        doc.fineDocumento();

    const QString e = errore([&] {
        switch (caso) {
        case 0:
            doc.scriviTesto(1, 1, u"a"_s, u"Arial"_s, 10, 0, 0);
            break;
        case 1:
            doc.scriviBox(1, 1, 2, 2, 0, 0);
            break;
        case 2:
            doc.nuovaPagina();
            break;
        case 3:
            doc.fineDocumento();
            break;
        case 4:
            doc.nuovoDocumento();
            break;
        case 5:
            doc.scriviTesto(1, 1, u"a"_s, u"Arial"_s, 40000, 0, 0);
            break;
        case 6:
            doc.scriviBox(1, 1, 2, 2, 0, -40000);
            break;
        }
    });
    QVERIFY2(!e.isEmpty(), "nessun errore");
    if (caso == 4)
        QVERIFY(e.contains(u"manca"_s));
    if (caso >= 5) {
        // The faulty record isn't written; the document goes on.
        doc.fineDocumento();
        QCOMPARE(contenuto(m_file).size(), 2 * L);
    }
}

void TstDocumentoPagine::documentoGrande() {
    // A list of the 19683 columns of the 9: about 90 000 records over 340 pages, well past the
    // writer's buffer, so the chunks must join without a gap.
    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    int righePagina = 0;
    int pagine = 1;
    for (int i = 0; i < 19683; ++i) {
        if (righePagina == 58) {
            doc.nuovaPagina();
            ++pagine;
            righePagina = 0;
        }
        const float y = 1.5f + 0.45f * float(righePagina);
        doc.scriviTesto(1, y, QString::number(i + 1), u"Courier New"_s, 9, 0, 0);
        doc.scriviTesto(2.5f, y, u"1X21X21X2"_s, u"Courier New"_s, 9, 1, 0);
        doc.scriviTesto(6, y, u"12"_s, u"Courier New"_s, 9, 0, 12);
        doc.scriviBox(0.8f, y, 19, y + 0.45f, 0, i % 2 ? 0 : 7);
        ++righePagina;
    }
    doc.fineDocumento();
    QCOMPARE(pagine, 340);

    const qint64 attesi = 19683 * 4 + 2 * 340;
    QCOMPARE(QFileInfo(m_file).size(), attesi * L);
    const QList<RecordPagina> r = DocumentoPagine::leggi(m_file);
    QCOMPARE(r.size(), qsizetype(attesi));
    QCOMPARE(DocumentoPagine::contaPagine(r), 340);
    // The text of the last column, four records from the end.
    QCOMPARE(r[r.size() - 5].testo, u"19683"_s);
    QCOMPARE(r.last().tipo, u"Fine Pagina"_s);
    // A record just beyond the first chunk of a megabyte.
    const qsizetype k = (1 << 20) / L + 3;
    QVERIFY(r[k].tipo == u"Testo"_s || r[k].tipo == u"Box"_s || r[k].tipo.contains(u"Pagina"_s));
}

void TstDocumentoPagine::andataERitorno_data() {
    QTest::addColumn<RecordPagina>("originale");

    QTest::newRow("nuova pagina") << record(u"Nuova Pagina"_s);
    QTest::newRow("fine pagina") << record(u"Fine Pagina"_s);
    RecordPagina t = testo(u"Totocalcio è"_s, 15, 850.5f, -3.25f);
    t.font = u"Courier New"_s;
    t.dimensione = -7;
    t.grassetto = -1;
    QTest::newRow("testo") << t;
    RecordPagina b = box(9, 1.f, 2.f, 1e7f, -0.001f);
    b.spessore = std::numeric_limits<qint32>::min();
    QTest::newRow("box") << b;
    RecordPagina l = record(u"Linea"_s);
    l.x1 = 10;
    l.y1 = 20;
    l.x2 = 30;
    l.y2 = 40;
    QTest::newRow("linea") << l;
    RecordPagina i = record(u"Immagine"_s);
    i.x1 = 567;
    i.y1 = 1134;
    i.x2 = 2835;
    i.y2 = 1417.5f;
    i.testo = u"/cartella/logo schedina.bmp"_s;
    QTest::newRow("immagine") << i;
}

void TstDocumentoPagine::andataERitorno() {
    QFETCH(RecordPagina, originale);
    QByteArray tutto;
    for (int k = 0; k < 3; ++k)
        tutto += DocumentoPagine::codifica(originale);
    QCOMPARE(tutto.size(), 3 * L);
    QVERIFY(scriviGrezzo(m_file, tutto));

    const QList<RecordPagina> letti = DocumentoPagine::leggi(m_file);
    QCOMPARE(letti.size(), 3);
    for (const RecordPagina &r : letti)
        QVERIFY(r == originale);
}

void TstDocumentoPagine::decodificaNonSpoglia() {
    const RecordPagina r = DocumentoPagine::decodifica(DocumentoPagine::codifica(testo(u"ab"_s)));
    QCOMPARE(r.tipo, u"Testo"_s + QString(15, u' '));
    QCOMPARE(r.font, u"Arial"_s + QString(35, u' '));
    QCOMPARE(r.testo, u"ab"_s + QString(98, u' '));
    QCOMPARE(r.dimensione, qint16(10));

    QVERIFY(!errore([] { DocumentoPagine::decodifica(QByteArray(L - 1, ' ')); }).isEmpty());
    QVERIFY(!errore([] { DocumentoPagine::decodifica(QByteArray(L + 1, ' ')); }).isEmpty());
}

void TstDocumentoPagine::leggiSpoglia() {
    // Blanks go at both ends of the three texts: a text's leading blanks are lost on reading.
    RecordPagina r = testo(u"   12  "_s);
    r.font = u" Arial "_s;
    r.tipo = u" Testo"_s;
    QVERIFY(scriviGrezzo(m_file, DocumentoPagine::codifica(r)));
    const QList<RecordPagina> letti = DocumentoPagine::leggi(m_file);
    QCOMPARE(letti.size(), 1);
    QCOMPARE(letti[0].tipo, u"Testo"_s);
    QCOMPARE(letti[0].font, u"Arial"_s);
    QCOMPARE(letti[0].testo, u"12"_s);
}

void TstDocumentoPagine::leggiDifettoso_data() {
    QTest::addColumn<int>("lunghezza"); // -1: no file
    QTest::addColumn<bool>("errore");
    QTest::newRow("file mancante") << -1 << true;
    QTest::newRow("187 byte") << 187 << true;
    QTest::newRow("185 byte") << 185 << true;
    QTest::newRow("record parziale in coda") << 2 * L + 100 << true;
    QTest::newRow("un byte in coda") << 3 * L + 1 << true;
    QTest::newRow("vuoto") << 0 << false;
    QTest::newRow("due record") << 2 * L << false;
}

void TstDocumentoPagine::leggiDifettoso() {
    QFETCH(int, lunghezza);
    QFETCH(bool, errore);
    if (lunghezza >= 0) {
        QByteArray b;
        while (b.size() < lunghezza)
            b += DocumentoPagine::codifica(testo(u"x"_s));
        QVERIFY(scriviGrezzo(m_file, b.left(lunghezza)));
    }
    QList<RecordPagina> letti;
    const QString e = ::errore([&] { letti = DocumentoPagine::leggi(m_file); });
    QCOMPARE(!e.isEmpty(), errore);
    if (errore)
        QVERIFY(e.contains(u"file delle pagine"_s));
    else
        QCOMPARE(letti.size(), lunghezza / L);
}

void TstDocumentoPagine::contaPagine_data() {
    QTest::addColumn<QList<RecordPagina>>("record");
    QTest::addColumn<int>("pagine");
    const RecordPagina np = record(u"Nuova Pagina"_s);
    const RecordPagina fp = record(u"Fine Pagina"_s);
    QTest::newRow("niente") << QList<RecordPagina>() << 0;
    QTest::newRow("una") << QList<RecordPagina>({np, testo(u"Nuova Pagina"_s), fp}) << 1;
    QTest::newRow("tre") << QList<RecordPagina>({np, fp, np, box(1), fp, np, fp}) << 3;
    QTest::newRow("campo con spazi")
        << QList<RecordPagina>({record(u"Nuova Pagina        "_s), fp}) << 1;
}

void TstDocumentoPagine::contaPagine() {
    QFETCH(QList<RecordPagina>, record);
    QFETCH(int, pagine);
    QCOMPARE(DocumentoPagine::contaPagine(record), pagine);
}

void TstDocumentoPagine::tavolozza_data() {
    QTest::addColumn<int>("indice");
    QTest::addColumn<QColor>("colore");
    QTest::newRow("0") << 0 << QColor(0, 0, 0);
    QTest::newRow("1") << 1 << QColor(0, 0, 128);
    QTest::newRow("4") << 4 << QColor(128, 0, 0);
    QTest::newRow("6") << 6 << QColor(128, 128, 0);
    QTest::newRow("7") << 7 << QColor(192, 192, 192);
    QTest::newRow("8") << 8 << QColor(128, 128, 128);
    QTest::newRow("11") << 11 << QColor(0, 255, 255);
    QTest::newRow("12") << 12 << QColor(255, 0, 0);
    QTest::newRow("14") << 14 << QColor(255, 255, 0);
    QTest::newRow("15") << 15 << QColor(255, 255, 255);
    QTest::newRow("-1") << -1 << QColor();
    QTest::newRow("16") << 16 << QColor();
}

void TstDocumentoPagine::tavolozza() {
    QFETCH(int, indice);
    QFETCH(QColor, colore);
    QColor c;
    const QString e = errore([&] { c = DocumentoPagine::colore(indice); });
    QCOMPARE(e.isEmpty(), colore.isValid());
    QCOMPARE(c, colore);
}

// Five pages written by the program: page n holds the text "P<n>" in colour n, then a box of
// colour 0.
QList<RecordPagina> TstDocumentoPagine::cinquePagine() {
    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    for (int n = 1; n <= 5; ++n) {
        if (n > 1)
            doc.nuovaPagina();
        doc.scriviTesto(1, float(n), u"P"_s + QString::number(n), u"Arial"_s, 10, 0, n);
        doc.scriviBox(1, 1, 2, 2, 0, 0);
    }
    doc.fineDocumento();
    return DocumentoPagine::leggi(m_file);
}

void TstDocumentoPagine::stampaIntervallo_data() {
    QTest::addColumn<int>("prima");
    QTest::addColumn<int>("ultima");
    QTest::addColumn<QString>("disegno");
    QTest::addColumn<QList<int>>("avanzamenti");
    QTest::addColumn<int>("domande"); // calls of annullato: where the run stopped

    QTest::newRow("2-3") << 2 << 3 << u"T:P2 R N T:P3 R F"_s << QList<int>{1, 2} << 5;
    QTest::newRow("1-1") << 1 << 1 << u"T:P1 R F"_s << QList<int>{1} << 2;
    QTest::newRow("tutte") << 1 << 5 << u"T:P1 R N T:P2 R N T:P3 R N T:P4 R N T:P5 R F"_s
                           << QList<int>{1, 2, 3, 4, 5} << 10;
    QTest::newRow("3-1") << 3 << 1 << u"F"_s << QList<int>() << 2;
    QTest::newRow("5-5") << 5 << 5 << u"T:P5 R F"_s << QList<int>{1} << 6;
    QTest::newRow("oltre la fine") << 4 << 9 << u"T:P4 R N T:P5 R F"_s << QList<int>{1, 2} << 7;
    // Page 0 counts in the range but doesn't exist: the run ends at the start of page 3.
    QTest::newRow("0-2") << 0 << 2 << u"T:P1 R N T:P2 R F"_s << QList<int>{1, 2} << 5;
    QTest::newRow("6-7") << 6 << 7 << u"F"_s << QList<int>() << 5;
}

void TstDocumentoPagine::stampaIntervallo() {
    QFETCH(int, prima);
    QFETCH(int, ultima);
    QFETCH(QString, disegno);
    QFETCH(QList<int>, avanzamenti);
    QFETCH(int, domande);

    const QList<RecordPagina> r = cinquePagine();
    QCOMPARE(DocumentoPagine::contaPagine(r), 5);
    DispositivoRegistratore d;
    int chieste = 0;
    QList<int> visti;
    DocumentoPagine::stampaPagine(
        r, d, prima, ultima,
        [&] {
            ++chieste;
            return false;
        },
        [&](int stampate) { visti.append(stampate); });
    QCOMPARE(traccia(d), disegno);
    QCOMPARE(visti, avanzamenti);
    QCOMPARE(chieste, domande);
}

void TstDocumentoPagine::stampaAnnullata_data() {
    QTest::addColumn<int>("siDallaDomanda"); // annullato answers true from this call on
    QTest::addColumn<QString>("disegno");
    QTest::newRow("subito") << 1 << u"F"_s;
    QTest::newRow("dopo la prima pagina") << 2 << u"T:P1 R F"_s;
    QTest::newRow("all'inizio della terza") << 5 << u"T:P1 R N T:P2 R F"_s;
}

void TstDocumentoPagine::stampaAnnullata() {
    QFETCH(int, siDallaDomanda);
    QFETCH(QString, disegno);
    const QList<RecordPagina> r = cinquePagine();
    DispositivoRegistratore d;
    int chieste = 0;
    DocumentoPagine::stampaPagine(r, d, 1, 5, [&] { return ++chieste >= siDallaDomanda; });
    QCOMPARE(traccia(d), disegno);
    QCOMPARE(chieste, siDallaDomanda);
    QCOMPARE(d.conta(Op::FineDocumento), 1);
}

void TstDocumentoPagine::coloriDisegno() {
    // Padded fields, as decodifica gives them: the drawing trims them itself.
    RecordPagina t = testo(u" 1X2  "_s, 4, 10, 20);
    t.font = u"Courier New   "_s;
    t.dimensione = 9;
    t.grassetto = -1;
    t.tipo = u"Testo     "_s;
    RecordPagina t2 = testo(u"chiaro"_s, 0);
    t2.grassetto = 2;
    RecordPagina linea = record(u"Linea"_s);
    linea.x1 = 1;
    linea.y1 = 2;
    linea.x2 = 3;
    linea.y2 = 4;
    RecordPagina img = record(u"Immagine"_s);
    img.x1 = 100;
    img.y1 = 200;
    img.x2 = 300;
    img.y2 = 400;
    img.testo = u"logo.bmp   "_s;
    const QList<RecordPagina> r = {record(u"Nuova Pagina"_s),
                                   box(0, 1, 2, 3, 4), // before any text: black
                                   linea,
                                   t,
                                   box(0, 5, 6, 7, 8),
                                   linea,
                                   box(1, 9, 10, 11, 12),
                                   box(0),
                                   t2,
                                   linea,
                                   img,
                                   record(u"Fine Pagina"_s)};
    DispositivoRegistratore d;
    DocumentoPagine::stampaPagine(r, d, 1, 1);
    QCOMPARE(traccia(d), u"R L T:1X2 R L R R T:chiaro L I F"_s);

    const QColor nero(0, 0, 0), rosso(128, 0, 0), blu(0, 0, 128);
    const auto &c = d.chiamate;
    QCOMPARE(c[0].rettangolo, QRectF(QPointF(1, 2), QPointF(3, 4)));
    QCOMPARE(c[0].colore, nero);
    QVERIFY(!c[0].riempimento.isValid());
    QCOMPARE(c[1].colore, nero);
    QCOMPARE(c[1].rettangolo, QRectF(QPointF(1, 2), QPointF(3, 4)));

    QCOMPARE(c[2].rettangolo.topLeft(), QPointF(10, 20));
    QCOMPARE(c[2].carattere, (DispositivoDisegno::Carattere{u"Courier New"_s, 9, true}));
    QCOMPARE(c[2].colore, rosso);

    QCOMPARE(c[3].colore, rosso); // outline in the colour of the last text
    QVERIFY(!c[3].riempimento.isValid());
    QCOMPARE(c[4].colore, rosso);
    QCOMPARE(c[5].rettangolo, QRectF(QPointF(9, 10), QPointF(11, 12)));
    QCOMPARE(c[5].riempimento, blu);
    QCOMPARE(c[5].colore, blu);
    QCOMPARE(c[6].colore, rosso); // a filled box doesn't change the current colour

    QVERIFY(c[7].carattere.grassetto);
    QCOMPARE(c[7].colore, nero);
    QCOMPARE(c[8].colore, nero);
    QCOMPARE(c[9].rettangolo, QRectF(100, 200, 300, 400));
    QCOMPARE(c[9].testo, u"logo.bmp"_s);
}

void TstDocumentoPagine::coloreInesistente_data() {
    QTest::addColumn<RecordPagina>("difettoso");
    QTest::newRow("testo 16") << testo(u"x"_s, 16);
    QTest::newRow("testo -1") << testo(u"x"_s, -1);
    QTest::newRow("box 16") << box(16);
}

void TstDocumentoPagine::coloreInesistente() {
    QFETCH(RecordPagina, difettoso);
    const QList<RecordPagina> r = {record(u"Nuova Pagina"_s), difettoso, record(u"Fine Pagina"_s)};
    DispositivoRegistratore d;
    const QString e = errore([&] { DocumentoPagine::stampaPagine(r, d, 1, 1); });
    QVERIFY(e.contains(u"colore"_s));

    // The same record outside the range printed is never looked at.
    const QList<RecordPagina> r2 =
        r + QList<RecordPagina>{record(u"Nuova Pagina"_s), record(u"Fine Pagina"_s)};
    DispositivoRegistratore d2;
    QCOMPARE(errore([&] { DocumentoPagine::stampaPagine(r2, d2, 2, 2); }), QString());
}

void TstDocumentoPagine::disegnaPagina() {
    const QList<RecordPagina> r = cinquePagine();
    for (int pagina = 1; pagina <= 5; ++pagina) {
        DispositivoRegistratore d;
        DocumentoPagine::disegnaPagina(r, pagina, d);
        QCOMPARE(traccia(d), u"T:P%1 R"_s.arg(pagina));
        QCOMPARE(d.chiamate[0].colore, DocumentoPagine::colore(pagina));
        QCOMPARE(d.chiamate[1].colore, DocumentoPagine::colore(pagina));
        QCOMPARE(d.chiamate[0].rettangolo.topLeft(), QPointF(567, 567 * pagina));
    }
    DispositivoRegistratore d;
    DocumentoPagine::disegnaPagina(r, 6, d);
    QVERIFY(d.chiamate.isEmpty());
}

void TstDocumentoPagine::testoDestra_data() {
    QTest::addColumn<float>("x");
    QTest::addColumn<QString>("testo");
    QTest::addColumn<QString>("font");
    QTest::addColumn<int>("dimensione");
    QTest::addColumn<int>("grassetto");

    QTest::newRow("numero") << 10.0f << u"1.234.567"_s << u"Arial"_s << 10 << 0;
    QTest::newRow("grassetto") << 18.5f << u"Totale colonne"_s << u"Arial"_s << 12 << 1;
    QTest::newRow("monospazio") << 7.25f << u"1X2"_s << u"Courier New"_s << 9 << 0;
    QTest::newRow("vuoto") << 3.0f << QString() << u"Arial"_s << 10 << 0;
}

void TstDocumentoPagine::testoDestra() {
    QFETCH(float, x);
    QFETCH(QString, testo);
    QFETCH(QString, font);
    QFETCH(int, dimensione);
    QFETCH(int, grassetto);

    DocumentoPagine doc(m_file);
    doc.nuovoDocumento();
    doc.scriviTestoDestra(x, 2, testo, font, dimensione, grassetto, 3);
    doc.scriviTesto(x, 2, testo, font, dimensione, grassetto, 3);
    doc.fineDocumento();
    const QList<RecordPagina> r = DocumentoPagine::leggi(m_file);
    QCOMPARE(r.size(), 4);

    const DispositivoRegistratore d;
    const qreal larghezza = d.larghezzaTesto(
        testo, DispositivoDisegno::Carattere{font, qreal(dimensione), grassetto != 0});
    QVERIFY(testo.isEmpty() || larghezza > 100);
    // The text ends at x: it starts its width before it.
    QVERIFY2(std::abs(r[1].x1 + larghezza - x * 567.0) < 0.01,
             qPrintable(u"%1 + %2 != %3"_s.arg(r[1].x1).arg(larghezza).arg(x * 567.0)));
    QCOMPARE(r[1].y1, 1134.0f);
    // Everything else as a plain text.
    RecordPagina semplice = r[2];
    semplice.x1 = r[1].x1;
    QVERIFY(r[1] == semplice);
}

void TstDocumentoPagine::esportazione_data() {
    QTest::addColumn<QList<RecordPagina>>("record");
    QTest::addColumn<QList<QStringList>>("righe");

    const RecordPagina np = record(u"Nuova Pagina"_s);
    const RecordPagina fp = record(u"Fine Pagina"_s);
    // A body line: 9 texts "<prefix>1".."<prefix>9", with a box among them.
    const auto riga = [](const QString &prefisso) {
        QList<RecordPagina> r;
        for (int i = 1; i <= 9; ++i) {
            r.append(testo(u" %1%2 "_s.arg(prefisso).arg(i)));
            if (i == 4)
                r.append(box(7));
        }
        return r;
    };
    const auto celle = [](const QString &prefisso) {
        QStringList c;
        for (int i = 1; i <= 9; ++i)
            c.append(u"%1%2"_s.arg(prefisso).arg(i));
        return c;
    };
    const auto testa = [](int n) {
        QList<RecordPagina> r;
        for (int i = 0; i < n; ++i)
            r.append(testo(u"testa"_s));
        return r;
    };

    QList<RecordPagina> due = QList<RecordPagina>{np} + testa(3) + riga(u"a"_s) + riga(u"b"_s) +
                              QList<RecordPagina>{fp, np} + testa(12) + riga(u"c"_s) +
                              QList<RecordPagina>{fp};
    QTest::newRow("due pagine") << due
                                << QList<QStringList>{celle(u"a"_s), celle(u"b"_s), celle(u"c"_s)};
    QTest::newRow("solo teste") << QList<RecordPagina>{np} + testa(3) +
                                       QList<RecordPagina>{fp, np} + testa(12) +
                                       QList<RecordPagina>{fp}
                                << QList<QStringList>();
    QTest::newRow("niente") << QList<RecordPagina>() << QList<QStringList>();

    // A short last line stays in its row, and the next page's first line lands on it.
    QList<RecordPagina> corta = QList<RecordPagina>{np} + testa(3) + riga(u"a"_s).mid(0, 6) +
                                QList<RecordPagina>{fp, np} + testa(12);
    QList<RecordPagina> corta2 = corta + riga(u"c"_s).mid(0, 3) + QList<RecordPagina>{fp};
    QStringList parziale = celle(u"a"_s).mid(0, 5) + QStringList(4, QString());
    QTest::newRow("riga corta") << corta + QList<RecordPagina>{fp} << QList<QStringList>{parziale};
    QStringList sovrascritta =
        celle(u"c"_s).mid(0, 3) + celle(u"a"_s).mid(3, 2) + QStringList(4, QString());
    QTest::newRow("riga corta ripresa") << corta2 << QList<QStringList>{sovrascritta};
}

void TstDocumentoPagine::esportazione() {
    QFETCH(QList<RecordPagina>, record);
    QFETCH(QList<QStringList>, righe);
    QCOMPARE(DocumentoPagine::celleEsportazione(record), righe);
}

void TstDocumentoPagine::riempimento_data() {
    QTest::addColumn<int>("larghezza");
    QTest::addColumn<int>("prima");
    QTest::addColumn<int>("ultima");
    QTest::addColumn<int>("corrente");
    QTest::addColumn<int>("atteso");

    constexpr int Max = std::numeric_limits<int>::max();
    constexpr int Min = std::numeric_limits<int>::min();
    QTest::newRow("primo di quattro") << 1000 << 1 << 4 << 1 << 250;
    QTest::newRow("ultimo di quattro") << 1000 << 1 << 4 << 4 << 1000;
    QTest::newRow("intervallo 2-3") << 1000 << 2 << 3 << 1 << 500;
    QTest::newRow("una pagina") << 1000 << 3 << 3 << 1 << 1000;
    QTest::newRow("nessuna pagina stampata") << 1000 << 1 << 4 << 0 << 0;
    QTest::newRow("un terzo") << 1000 << 1 << 3 << 1 << 333;
    QTest::newRow("due terzi") << 1000 << 1 << 3 << 2 << 667;
    QTest::newRow("metà pari") << 5 << 1 << 2 << 1 << 2;
    QTest::newRow("metà dispari") << 7 << 1 << 2 << 1 << 4;
    QTest::newRow("intervallo vuoto") << 1000 << 3 << 2 << 1 << -1;
    QTest::newRow("intervallo rovescio") << 1000 << 3 << 1 << 1 << -1;
    QTest::newRow("intervallo enorme") << 1000 << Min << Max << 1 << -1;
    QTest::newRow("fino al massimo") << 1000 << 0 << Max << 1 << -1;
    QTest::newRow("larghezza enorme") << Max << 1 << 2 << 4 << -1;
}

void TstDocumentoPagine::riempimento() {
    QFETCH(int, larghezza);
    QFETCH(int, prima);
    QFETCH(int, ultima);
    QFETCH(int, corrente);
    QFETCH(int, atteso);
    QCOMPARE(DocumentoPagine::riempimentoAvanzamento(larghezza, prima, ultima, corrente), atteso);
}

QTEST_MAIN(TstDocumentoPagine)
#include "tst_documentopagine.moc"
