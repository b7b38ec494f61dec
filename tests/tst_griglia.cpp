#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "piattaforma/ordinealternato.h"
#include "piattaforma/vistagriglia.h"
#include "supporto/strumentiprova.h"

#include <QBrush>
#include <QFont>
#include <QHeaderView>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

using Azione = std::function<void(Griglia &)>;
Q_DECLARE_METATYPE(Azione)
Q_DECLARE_METATYPE(Griglia::Verso)

namespace {

const QString testoIndice = u"Indice di riga o di colonna non valido nella griglia."_s;

// A grid whose every cell says where it was born, and whose rows each carry a format of their
// own, so that a test can tell which old row ended where.
void riempi(Griglia &g) {
    for (int r = 0; r < g.righe(); ++r) {
        for (int c = 0; c < g.colonne(); ++c)
            g.setTesto(r, c, u"r%1c%2"_s.arg(r).arg(c));
        g.setSfondo(r, 1, QColor(10 * r, 0, 0));
        g.setGrassetto(r, 0, r % 2 == 1);
    }
}

QStringList colonna(const Griglia &g, int c) {
    QStringList testi;
    for (int r = 0; r < g.righe(); ++r)
        testi.append(g.testo(r, c));
    return testi;
}

int allineamentoQt(const Griglia &g, int r, int c) {
    return g.data(g.index(r, c), Qt::TextAlignmentRole).toInt();
}

} // namespace

class TestGriglia : public QObject {
    Q_OBJECT

private slots:
    void valoreNumerico_data();
    void valoreNumerico();
    void ordinaNumerico_data();
    void ordinaNumerico();
    void ordinaMuoveIFormati();
    void ordinaStabileSuMoltiPari();
    void righeConservate_data();
    void righeConservate();
    void colonneConservate();
    void fuoriDaiLimiti_data();
    void fuoriDaiLimiti();
    void bloccoUnSoloReset();
    void segnaliFuoriDalBlocco();
    void allineamento_data();
    void allineamento();
    void sfondoFonteColore();
    void intestazione();
    void pulisci();
    void twips();

    void vistaClic_data();
    void vistaClic();
    void vistaTastoDestroEDoppioClic();
    void vistaDimensioni();
    void vistaResetMantieneCella();
    void suggerimenti();
    void vistaClicSullIntestazione_data();
    void vistaClicSullIntestazione();
    void vistaIndicatoreDellOrdine();
    void vistaFrecciaNonTagliaLIntestazione();
    void ordinaTesto_data();
    void ordinaTesto();
    void ordineAlternatoConColonneDiTesto();
    void vistaColonnaAllargataDallUtente();
    void vistaDoppioClicSulBordoAdatta();
    void vistaAdattataCresceConLaColonna();
    void vistaOrdinaConClicIntestazione();
};

void TestGriglia::valoreNumerico_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<bool>("haNumero");
    QTest::addColumn<double>("valore");
    QTest::addColumn<bool>("tuttoNumero");

    QTest::newRow("intero") << u"17"_s << true << 17.0 << true;
    QTest::newRow("parentesi") << u"17)"_s << true << 17.0 << false;
    QTest::newRow("blank davanti") << u" 12"_s << true << 12.0 << true;
    QTest::newRow("negativo") << u"-3"_s << true << -3.0 << true;
    QTest::newRow("piu") << u"+4"_s << true << 4.0 << true;
    QTest::newRow("virgola") << u"3,5"_s << true << 3.5 << true;
    QTest::newRow("punto e testo") << u"2.25x"_s << true << 2.25 << false;
    QTest::newRow("punto finale") << u"5."_s << true << 5.0 << false;
    QTest::newRow("solo decimali") << u".5"_s << true << 0.5 << true;
    QTest::newRow("trattino") << u"-"_s << false << 0.0 << false;
    QTest::newRow("vuoto") << QString() << false << 0.0 << false;
    QTest::newRow("blank") << u"   "_s << false << 0.0 << false;
    QTest::newRow("lettere") << u"abc"_s << false << 0.0 << false;
    QTest::newRow("lettere poi cifre") << u"a1"_s << false << 0.0 << false;
}

void TestGriglia::valoreNumerico() {
    QFETCH(QString, testo);
    QFETCH(bool, haNumero);
    QFETCH(double, valore);
    QFETCH(bool, tuttoNumero);

    const std::optional<double> letto = Griglia::valoreNumerico(testo);
    QCOMPARE(letto.has_value(), haNumero);
    if (haNumero)
        QCOMPARE(*letto, valore);
    QCOMPARE(Griglia::eNumero(testo), tuttoNumero);
}

void TestGriglia::ordinaNumerico_data() {
    QTest::addColumn<QStringList>("valori");
    QTest::addColumn<Griglia::Verso>("verso");
    QTest::addColumn<QString>("ordine"); // labels of the rows, top to bottom

    // Labels a, b, c, ... follow the input order.
    const QStringList misti{u"5"_s, u"-"_s, u"17)"_s, QString(), u"3"_s, u"abc"_s, u"10"_s};
    QTest::newRow("crescente, senza numero in fondo")
        << misti << Griglia::Verso::Crescente << u"eagcbdf"_s;
    QTest::newRow("decrescente, senza numero in fondo")
        << misti << Griglia::Verso::Decrescente << u"cgaebdf"_s;
    const QStringList pari{u"2"_s, u"1"_s, u"2"_s, u"1"_s, u"2"_s};
    QTest::newRow("stabile crescente") << pari << Griglia::Verso::Crescente << u"bdace"_s;
    QTest::newRow("stabile decrescente") << pari << Griglia::Verso::Decrescente << u"acebd"_s;
    const QStringList segni{u"-1"_s, u"0,5"_s, u" 12"_s, u"-1.5"_s};
    QTest::newRow("negativi e decimali") << segni << Griglia::Verso::Crescente << u"dabc"_s;
    QTest::newRow("nessun numero")
        << QStringList{u"-"_s, QString(), u"x"_s} << Griglia::Verso::Decrescente << u"abc"_s;
}

void TestGriglia::ordinaNumerico() {
    QFETCH(QStringList, valori);
    QFETCH(Griglia::Verso, verso);
    QFETCH(QString, ordine);

    // The header holds a number that would move if the fixed row took part in the sort.
    Griglia g(valori.size() + 1, 3);
    g.setRigheFisse(1);
    g.setTesto(0, 0, u"99"_s);
    g.setTesto(0, 1, u"Etichetta"_s);
    for (int i = 0; i < valori.size(); ++i) {
        g.setTesto(i + 1, 0, valori[i]);
        g.setTesto(i + 1, 1, QString(QChar(u'a' + i)));
        g.setTesto(i + 1, 2, valori[i] + u"|"_s);
    }
    g.ordinaNumerico(0, verso);

    QCOMPARE(g.testo(0, 0), u"99"_s);
    QCOMPARE(g.testo(0, 1), u"Etichetta"_s);
    QString letto;
    for (int r = 1; r < g.righe(); ++r) {
        letto += g.testo(r, 1);
        QCOMPARE(g.testo(r, 2), g.testo(r, 0) + u"|"_s); // the whole row moved
    }
    QCOMPARE(letto, ordine);
}

void TestGriglia::ordinaMuoveIFormati() {
    Griglia g(4, 2);
    g.setRigheFisse(1);
    g.setTesto(1, 0, u"30"_s);
    g.setTesto(2, 0, u"10"_s);
    g.setTesto(3, 0, u"20"_s);
    g.setSfondo(2, 1, Qt::yellow);
    g.setGrassetto(2, 0, true);
    g.setAltezzaRiga(2, 480);

    g.ordinaNumerico(0, Griglia::Verso::Crescente);
    QCOMPARE(colonna(g, 0), (QStringList{QString(), u"10"_s, u"20"_s, u"30"_s}));
    QCOMPARE(g.sfondo(1, 1), QColor(Qt::yellow));
    QVERIFY(g.grassetto(1, 0));
    QCOMPARE(g.altezzaRiga(1), 480);
    QVERIFY(!g.sfondo(2, 1).isValid());
    QVERIFY(!g.grassetto(2, 0));
    QCOMPARE(g.altezzaRiga(2), Griglia::AltezzaPredefinita);
}

void TestGriglia::ordinaStabileSuMoltiPari() {
    Griglia g(19684, 4);
    g.setRigheFisse(1);
    QRandomGenerator caso(9);
    {
        const Griglia::Blocco blocco = g.inBlocco();
        for (int r = 1; r < g.righe(); ++r) {
            g.setTesto(r, 0, QString::number(r));
            g.setTesto(r, 3, r % 50 == 0 ? u"-"_s : QString::number(caso.bounded(5000)));
        }
    }
    g.ordinaNumerico(3, Griglia::Verso::Decrescente);

    // Thousands of equal values: equal ones keep their order, which a plain sort would not.
    const int numeri = 19683 - 19683 / 50;
    for (int r = 2; r < g.righe(); ++r) {
        const QString prima = g.testo(r - 1, 3);
        const QString questa = g.testo(r, 3);
        if (r <= numeri)
            QVERIFY(prima.toInt() >= questa.toInt());
        else
            QCOMPARE(questa, u"-"_s);
        if (prima == questa)
            QVERIFY(g.testo(r - 1, 0).toInt() < g.testo(r, 0).toInt());
    }
}

void TestGriglia::righeConservate_data() {
    QTest::addColumn<Azione>("azione");
    // For every row after the change: the old row it was, or -1 for a new empty one.
    QTest::addColumn<QList<int>>("origine");

    QTest::newRow("rimuovi la seconda")
        << Azione([](Griglia &g) { g.rimuoviRiga(1); }) << QList<int>{0, 2, 3};
    QTest::newRow("rimuovi l'ultima")
        << Azione([](Griglia &g) { g.rimuoviRiga(3); }) << QList<int>{0, 1, 2};
    QTest::newRow("aggiungi") << Azione([](Griglia &g) { g.aggiungiRiga(); })
                              << QList<int>{0, 1, 2, 3, -1};
    QTest::newRow("piu righe") << Azione([](Griglia &g) { g.setRighe(6); })
                               << QList<int>{0, 1, 2, 3, -1, -1};
    QTest::newRow("meno righe") << Azione([](Griglia &g) { g.setRighe(2); }) << QList<int>{0, 1};
    QTest::newRow("nessuna riga") << Azione([](Griglia &g) { g.setRighe(0); }) << QList<int>{};
    QTest::newRow("a zero e ritorno") << Azione([](Griglia &g) {
        g.setRighe(0);
        g.setRighe(2);
    }) << QList<int>{-1, -1};
}

void TestGriglia::righeConservate() {
    QFETCH(Azione, azione);
    QFETCH(QList<int>, origine);

    Griglia g(4, 3);
    riempi(g);
    azione(g);

    QCOMPARE(g.righe(), origine.size());
    QCOMPARE(g.rowCount(), origine.size());
    for (int r = 0; r < g.righe(); ++r) {
        const int vecchia = origine[r];
        for (int c = 0; c < g.colonne(); ++c)
            QCOMPARE(g.testo(r, c), vecchia < 0 ? QString() : u"r%1c%2"_s.arg(vecchia).arg(c));
        QCOMPARE(g.sfondo(r, 1), vecchia < 0 ? QColor() : QColor(10 * vecchia, 0, 0));
        QCOMPARE(g.grassetto(r, 0), vecchia >= 0 && vecchia % 2 == 1);
    }
}

void TestGriglia::colonneConservate() {
    Griglia g(3, 3);
    riempi(g);
    g.setLarghezzaColonna(1, 1500);
    g.aggiungiRiga({u"x"_s, u"y"_s, u"z"_s, u"in piu"_s});
    QCOMPARE(colonna(g, 2).last(), u"z"_s);

    g.setColonne(5);
    QCOMPARE(g.columnCount(), 5);
    QCOMPARE(g.testo(1, 2), u"r1c2"_s);
    QCOMPARE(g.sfondo(2, 1), QColor(20, 0, 0));
    QCOMPARE(g.testo(1, 4), QString());
    QCOMPARE(g.larghezzaColonna(1), 1500);
    QCOMPARE(g.larghezzaColonna(4), Griglia::LarghezzaPredefinita);

    g.setColonne(2);
    QCOMPARE(g.columnCount(), 2);
    QCOMPARE(g.testo(2, 1), u"r2c1"_s);
    QCOMPARE(g.sfondo(2, 1), QColor(20, 0, 0));
    QVERIFY(g.grassetto(1, 0));
}

void TestGriglia::fuoriDaiLimiti_data() {
    QTest::addColumn<Azione>("azione");

    QTest::newRow("testo riga negativa") << Azione([](Griglia &g) { g.testo(-1, 0); });
    QTest::newRow("testo colonna oltre") << Azione([](Griglia &g) { g.testo(0, 3); });
    QTest::newRow("setTesto riga oltre") << Azione([](Griglia &g) { g.setTesto(4, 0, {}); });
    QTest::newRow("rimuoviRiga") << Azione([](Griglia &g) { g.rimuoviRiga(4); });
    QTest::newRow("sfondo") << Azione([](Griglia &g) { g.sfondo(0, -1); });
    QTest::newRow("setGrassetto") << Azione([](Griglia &g) { g.setGrassetto(9, 9, true); });
    QTest::newRow("allineamento") << Azione([](Griglia &g) { g.allineamento(4, 0); });
    QTest::newRow("setAllineamentoColonna") << Azione(
        [](Griglia &g) { g.setAllineamentoColonna(3, Griglia::Allineamento::CentroCentro); });
    QTest::newRow("larghezzaColonna") << Azione([](Griglia &g) { g.larghezzaColonna(3); });
    QTest::newRow("altezzaRiga") << Azione([](Griglia &g) { g.setAltezzaRiga(4, 300); });
    QTest::newRow("ordina") << Azione(
        [](Griglia &g) { g.ordinaNumerico(3, Griglia::Verso::Crescente); });
    QTest::newRow("setSuggerimento") << Azione([](Griglia &g) { g.setSuggerimento(4, 0, u"x"_s); });
    QTest::newRow("suggerimento") << Azione([](Griglia &g) { g.suggerimento(0, 3); });
    QTest::newRow("griglia vuota") << Azione([](Griglia &g) {
        g.setRighe(0);
        g.testo(0, 0);
    });
}

void TestGriglia::fuoriDaiLimiti() {
    QFETCH(Azione, azione);

    Griglia g(4, 3);
    riempi(g);
    try {
        azione(g);
        QFAIL("nessun errore");
    } catch (const ErroreEsecuzione &errore) {
        QCOMPARE(errore.testo(), testoIndice);
    }
    QCOMPARE(g.colonne(), 3); // nothing half done
}

void TestGriglia::bloccoUnSoloReset() {
    Griglia g(3, 4);
    QSignalSpy primaReset(&g, &Griglia::modelAboutToBeReset);
    QSignalSpy reset(&g, &Griglia::modelReset);
    QSignalSpy cambiati(&g, &Griglia::dataChanged);
    QSignalSpy inserite(&g, &Griglia::rowsInserted);
    QSignalSpy rimosse(&g, &Griglia::rowsRemoved);
    QSignalSpy disposizione(&g, &Griglia::layoutChanged);
    QSignalSpy dimensioni(&g, &Griglia::dimensioniCambiate);
    {
        const Griglia::Blocco esterno = g.inBlocco();
        QVERIFY(g.bloccata());
        g.setRighe(100);
        {
            const Griglia::Blocco interno = g.inBlocco();
            for (int r = 0; r < g.righe(); ++r)
                g.setTesto(r, 1, QString::number(100 - r));
            g.setSfondo(2, 2, Qt::red);
        }
        QCOMPARE(reset.count(), 0); // the inner block closing resets nothing
        g.rimuoviRiga(5);
        g.aggiungiRiga({u"1"_s});
        g.ordinaNumerico(1, Griglia::Verso::Crescente);
        g.setLarghezzaColonna(0, 2000);
        g.setRigheFisse(1);
        g.pulisci();
        QCOMPARE(dimensioni.count(), 0);
    }
    QVERIFY(!g.bloccata());
    QCOMPARE(primaReset.count(), 1);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(cambiati.count(), 0);
    QCOMPARE(inserite.count(), 0);
    QCOMPARE(rimosse.count(), 0);
    QCOMPARE(disposizione.count(), 0);
    QCOMPARE(dimensioni.count(), 1);
    QCOMPARE(g.righe(), 100);
    QCOMPARE(g.larghezzaColonna(0), 2000);
}

void TestGriglia::segnaliFuoriDalBlocco() {
    Griglia g(3, 4);
    QSignalSpy cambiati(&g, &Griglia::dataChanged);
    QSignalSpy inserite(&g, &Griglia::rowsInserted);
    QSignalSpy rimosse(&g, &Griglia::rowsRemoved);
    QSignalSpy reset(&g, &Griglia::modelReset);

    g.setTesto(2, 3, u"x"_s);
    QCOMPARE(cambiati.count(), 1);
    QCOMPARE(cambiati.at(0).at(0).value<QModelIndex>(), g.index(2, 3));
    QCOMPARE(cambiati.at(0).at(1).value<QModelIndex>(), g.index(2, 3));

    g.setRighe(7);
    QCOMPARE(inserite.count(), 1);
    QCOMPARE(inserite.at(0).at(1).toInt(), 3);
    QCOMPARE(inserite.at(0).at(2).toInt(), 6);
    g.rimuoviRiga(0);
    QCOMPARE(rimosse.count(), 1);
    QCOMPARE(rimosse.at(0).at(1).toInt(), 0);
    QCOMPARE(reset.count(), 0);
}

void TestGriglia::allineamento_data() {
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("allineamento"); // -1: leave the default
    QTest::addColumn<int>("atteso");

    const int generale = -1;
    QTest::newRow("generale numero")
        << u"17"_s << generale << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("generale decimale")
        << u" 3,5 "_s << generale << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("generale testo")
        << u"abc"_s << generale << int(Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("generale numero e testo")
        << u"17)"_s << generale << int(Qt::AlignLeft | Qt::AlignVCenter);
    QTest::newRow("sinistra alto") << u"17"_s << 0 << int(Qt::AlignLeft | Qt::AlignTop);
    QTest::newRow("centro centro") << u"abc"_s << 4 << int(Qt::AlignHCenter | Qt::AlignVCenter);
    QTest::newRow("centro basso") << u"abc"_s << 5 << int(Qt::AlignHCenter | Qt::AlignBottom);
    QTest::newRow("destra centro") << u"abc"_s << 7 << int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("destra basso") << u"abc"_s << 8 << int(Qt::AlignRight | Qt::AlignBottom);
    QTest::newRow("generale esplicito") << u"abc"_s << 9 << int(Qt::AlignLeft | Qt::AlignVCenter);
}

void TestGriglia::allineamento() {
    QFETCH(QString, testo);
    QFETCH(int, allineamento);
    QFETCH(int, atteso);

    Griglia g(3, 2);
    g.setTesto(1, 1, testo);
    if (allineamento >= 0)
        g.setAllineamento(1, 1, static_cast<Griglia::Allineamento>(allineamento));
    QCOMPARE(allineamentoQt(g, 1, 1), atteso);
    QCOMPARE(g.allineamento(1, 1), allineamento >= 0
                                       ? static_cast<Griglia::Allineamento>(allineamento)
                                       : Griglia::Allineamento::Generale);
}

void TestGriglia::sfondoFonteColore() {
    Griglia g(4, 3);
    g.setRigheFisse(1);
    g.setColonneFisse(1);
    const QColor grigio(224, 224, 224);
    auto sfondoMostrato = [&g](int r, int c) {
        return g.data(g.index(r, c), Qt::BackgroundRole).value<QBrush>().color();
    };

    QCOMPARE(sfondoMostrato(0, 2), grigio);
    QCOMPARE(sfondoMostrato(2, 0), grigio);
    QVERIFY(!g.data(g.index(2, 2), Qt::BackgroundRole).isValid());
    g.setSfondo(0, 1, Qt::cyan);
    QCOMPARE(sfondoMostrato(0, 1), QColor(Qt::cyan));
    g.setSfondo(0, 1, QColor());
    QCOMPARE(sfondoMostrato(0, 1), grigio);
    g.setSfondo(2, 2, QColor(1, 2, 3));
    QCOMPARE(sfondoMostrato(2, 2), QColor(1, 2, 3));

    QVERIFY(!g.data(g.index(3, 2), Qt::FontRole).isValid());
    g.setGrassetto(3, 2, true);
    QVERIFY(g.data(g.index(3, 2), Qt::FontRole).value<QFont>().bold());
    g.setDimensioneCarattere(3, 1, 14);
    g.setNomeCarattere(3, 1, u"Courier New"_s);
    const QFont font = g.data(g.index(3, 1), Qt::FontRole).value<QFont>();
    QCOMPARE(font.pointSizeF(), 14.0);
    QCOMPARE(font.families().value(0), u"Courier New"_s);
    QVERIFY(!font.bold());
    QCOMPARE(g.nomeCarattere(3, 1), u"Courier New"_s);
    QCOMPARE(g.dimensioneCarattere(3, 1), 14.0);

    QVERIFY(!g.data(g.index(3, 1), Qt::ForegroundRole).isValid());
    g.setColore(3, 1, Qt::red);
    QCOMPARE(g.data(g.index(3, 1), Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
    QCOMPARE(g.colore(3, 1), QColor(Qt::red));

    QCOMPARE(g.flags(g.index(2, 2)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);

    // A column's alignment reaches the rows added after it; the body one only the rows there.
    g.setAllineamentoCorpo(Griglia::Allineamento::DestraAlto);
    g.setAllineamentoColonna(2, Griglia::Allineamento::CentroCentro);
    g.aggiungiRiga();
    QCOMPARE(g.allineamento(0, 2), Griglia::Allineamento::CentroCentro);
    QCOMPARE(g.allineamento(4, 2), Griglia::Allineamento::CentroCentro);
    QCOMPARE(g.allineamento(3, 1), Griglia::Allineamento::DestraAlto);
    QCOMPARE(g.allineamento(0, 1), Griglia::Allineamento::Generale);
    QCOMPARE(g.allineamento(4, 1), Griglia::Allineamento::Generale);
}

void TestGriglia::intestazione() {
    Griglia g(3, 2);
    g.setTesto(0, 1, u"Frequenza"_s);
    QVERIFY(!g.headerData(1, Qt::Horizontal).isValid());
    g.setRigheFisse(1);
    QCOMPARE(g.headerData(1, Qt::Horizontal).toString(), u"Frequenza"_s);
    QCOMPARE(g.headerData(1, Qt::Horizontal, Qt::BackgroundRole).value<QBrush>().color(),
             QColor(224, 224, 224));
    QVERIFY(!g.headerData(1, Qt::Vertical).isValid());

    QSignalSpy intestazioni(&g, &Griglia::headerDataChanged);
    g.setTesto(0, 0, u"Colonna"_s);
    QCOMPARE(intestazioni.count(), 1);
    g.setRigheFisse(2);
    QVERIFY(!g.headerData(1, Qt::Horizontal).isValid());
}

void TestGriglia::pulisci() {
    Griglia g(4, 3);
    riempi(g);
    g.setRigheFisse(1);
    g.setLarghezzaColonna(2, 300);
    g.setAltezzaRiga(3, 600);
    g.setAllineamento(2, 2, Griglia::Allineamento::CentroBasso);
    g.setNomeCarattere(1, 1, u"Arial"_s);

    g.pulisci();
    QCOMPARE(g.righe(), 4);
    QCOMPARE(g.colonne(), 3);
    QCOMPARE(g.righeFisse(), 1);
    QCOMPARE(g.larghezzaColonna(2), 300);
    QCOMPARE(g.altezzaRiga(3), 600);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c) {
            QCOMPARE(g.testo(r, c), QString());
            QVERIFY(!g.sfondo(r, c).isValid());
            QVERIFY(!g.grassetto(r, c));
            QCOMPARE(g.allineamento(r, c), Griglia::Allineamento::Generale);
            QCOMPARE(g.nomeCarattere(r, c), QString());
        }
    }
}

void TestGriglia::twips() {
    QCOMPARE(Griglia::twipsInPixel(960), 64);
    QCOMPARE(Griglia::twipsInPixel(240), 16);
    QCOMPARE(Griglia::twipsInPixel(1440), 96);
    QCOMPARE(Griglia::twipsInPixel(7), 0);
    QCOMPARE(Griglia::twipsInPixel(8), 1);
    QCOMPARE(Griglia::pixelInTwips(64), 960);

    Griglia g(2, 2);
    QCOMPARE(g.larghezzaColonna(1), 960);
    QCOMPARE(g.altezzaRiga(1), 240);
    g.setAltezzaRighe(300);
    g.setRighe(3);
    QCOMPARE(g.altezzaRiga(2), 300);
}

// --- the view

void TestGriglia::vistaClic_data() {
    QTest::addColumn<int>("righeFisse");
    QTest::addColumn<int>("colonneFisse");
    QTest::addColumn<int>("riga");
    QTest::addColumn<int>("colonna");
    QTest::addColumn<bool>("clic"); // false: a fixed cell, nothing happens

    QTest::newRow("intestazione congelata, prima riga") << 1 << 0 << 1 << 0 << true;
    QTest::newRow("intestazione congelata, altra cella") << 1 << 0 << 6 << 2 << true;
    QTest::newRow("senza righe fisse") << 0 << 0 << 0 << 0 << true;
    QTest::newRow("due righe fisse, la prima") << 2 << 0 << 0 << 1 << false;
    QTest::newRow("due righe fisse, la seconda") << 2 << 0 << 1 << 1 << false;
    QTest::newRow("due righe fisse, il corpo") << 2 << 0 << 2 << 1 << true;
    QTest::newRow("colonna fissa") << 1 << 1 << 3 << 0 << false;
    QTest::newRow("accanto alla colonna fissa") << 1 << 1 << 3 << 1 << true;
}

void TestGriglia::vistaClic() {
    QFETCH(int, righeFisse);
    QFETCH(int, colonneFisse);
    QFETCH(int, riga);
    QFETCH(int, colonna);
    QFETCH(bool, clic);

    Griglia g(10, 3);
    g.setRigheFisse(righeFisse);
    g.setColonneFisse(colonneFisse);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.resize(400, 300);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));

    QCOMPARE(vista.horizontalHeader()->isVisible(), righeFisse == 1);
    QVERIFY(!vista.verticalHeader()->isVisible());
    QCOMPARE(vista.rigaCorrente(), righeFisse);
    QCOMPARE(vista.colonnaCorrente(), colonneFisse);
    if (righeFisse == 1)
        QCOMPARE(vista.rowViewportPosition(1), 0); // row 0 is the header, not in the body

    QSignalSpy clic_(&vista, &VistaGriglia::clic);
    const QRect cella = vista.visualRect(g.index(riga, colonna));
    QVERIFY(cella.isValid());
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, cella.center());
    if (clic) {
        QCOMPARE(clic_.count(), 1);
        QCOMPARE(clic_.at(0).at(0).toInt(), riga);
        QCOMPARE(clic_.at(0).at(1).toInt(), colonna);
        QCOMPARE(vista.rigaCorrente(), riga);
        QCOMPARE(vista.colonnaCorrente(), colonna);
    } else {
        QCOMPARE(clic_.count(), 0);
        QCOMPARE(vista.rigaCorrente(), righeFisse);
        QCOMPARE(vista.colonnaCorrente(), colonneFisse);
    }
}

void TestGriglia::vistaTastoDestroEDoppioClic() {
    Griglia g(10, 3);
    g.setRigheFisse(1);
    g.setTesto(0, 2, u"Rit."_s);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.resize(400, 300);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));

    QSignalSpy clic(&vista, &VistaGriglia::clic);
    QSignalSpy destro(&vista, &VistaGriglia::tastoDestro);
    QSignalSpy doppio(&vista, &VistaGriglia::doppioClic);

    // The right button names the cell and leaves the current cell where it is.
    vista.setCellaCorrente(2, 1);
    const QPoint punto = vista.visualRect(g.index(4, 2)).center();
    QTest::mouseClick(vista.viewport(), Qt::RightButton, {}, punto);
    QCOMPARE(destro.count(), 1);
    QCOMPARE(destro.at(0), (QList<QVariant>{4, 2}));
    QCOMPARE(vista.rigaCorrente(), 2);
    QCOMPARE(vista.colonnaCorrente(), 1);
    QCOMPARE(clic.count(), 0);

    // Below the last row there is no cell.
    QTest::mouseClick(vista.viewport(), Qt::RightButton, {}, QPoint(10, 290));
    QCOMPARE(destro.at(1), (QList<QVariant>{-1, -1}));

    // The frozen header: the right button tells, the left one does nothing.
    QHeaderView *intestazione = vista.horizontalHeader();
    QCOMPARE(intestazione->height(), Griglia::twipsInPixel(g.altezzaRiga(0)));
    QCOMPARE(intestazione->model()->headerData(2, Qt::Horizontal).toString(), u"Rit."_s);
    const QPoint suIntestazione(intestazione->sectionViewportPosition(2) + 5,
                                intestazione->height() / 2);
    QTest::mouseClick(intestazione->viewport(), Qt::LeftButton, {}, suIntestazione);
    QCOMPARE(clic.count(), 0);
    QCOMPARE(vista.rigaCorrente(), 2);
    QTest::mouseClick(intestazione->viewport(), Qt::RightButton, {}, suIntestazione);
    QCOMPARE(destro.count(), 3);
    QCOMPARE(destro.at(2), (QList<QVariant>{0, 2}));

    QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, punto);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, punto);
    QCOMPARE(doppio.count(), 1);
    QCOMPARE(doppio.at(0), (QList<QVariant>{4, 2}));
    QCOMPARE(vista.rigaCorrente(), 4);
    QCOMPARE(clic.count(), 0); // the release after a double click is no click
}

void TestGriglia::vistaDimensioni() {
    Griglia g(19684, 4);
    g.setRigheFisse(1);
    g.setLarghezzaColonna(0, 600);
    g.setAltezzaRiga(5, 480);
    VistaGriglia vista;
    vista.setGriglia(&g);

    auto controllaLarghezze = [&] {
        for (int c = 0; c < g.colonne(); ++c)
            if (vista.columnWidth(c) != Griglia::twipsInPixel(g.larghezzaColonna(c)))
                return false;
        return true;
    };
    QVERIFY(controllaLarghezze());
    QCOMPARE(vista.columnWidth(0), 40);
    QCOMPARE(vista.rowHeight(5), 32);
    QCOMPARE(vista.rowHeight(19683), 16);

    g.setLarghezzaColonna(1, 1500);
    QCOMPARE(vista.columnWidth(1), 100);
    {
        const Griglia::Blocco blocco = g.inBlocco();
        g.setLarghezzaColonna(2, 300);
        g.setAltezzaRiga(7, 150);
    }
    QVERIFY(controllaLarghezze());
    QCOMPARE(vista.columnWidth(2), 20);
    QCOMPARE(vista.rowHeight(7), 10);
    QCOMPARE(vista.rowHeight(5), 32); // a reset keeps what the grid says

    g.setAltezzaRighe(300);
    QCOMPARE(vista.rowHeight(5), 20);
    QCOMPARE(vista.rowHeight(7), 20);
    QCOMPARE(vista.rowHeight(19000), 20);
    g.aggiungiRiga();
    QCOMPARE(vista.rowHeight(19684), 20);

    // Two fixed rows: no header, the first row is back in the body.
    g.setRigheFisse(2);
    QVERIFY(!vista.isRowHidden(0));
    QCOMPARE(vista.rowHeight(0), 20);
    g.setRigheFisse(1);
    QVERIFY(vista.isRowHidden(0));
}

void TestGriglia::vistaResetMantieneCella() {
    Griglia g(10, 3);
    g.setRigheFisse(1);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.setCellaCorrente(5, 2);
    {
        const Griglia::Blocco blocco = g.inBlocco();
        for (int r = 1; r < g.righe(); ++r)
            g.setTesto(r, 0, QString::number(r));
    }
    QCOMPARE(vista.rigaCorrente(), 5);
    QCOMPARE(vista.colonnaCorrente(), 2);
    {
        const Griglia::Blocco blocco = g.inBlocco();
        g.setRighe(4);
    }
    QCOMPARE(vista.rigaCorrente(), 3);

    // A grid without body rows has no current cell, until rows come.
    g.setRighe(1);
    QCOMPARE(vista.rigaCorrente(), -1);
    g.setRighe(3);
    QCOMPARE(vista.rigaCorrente(), 1);

    try {
        vista.setCellaCorrente(3, 0);
        QFAIL("nessun errore");
    } catch (const ErroreEsecuzione &errore) {
        QCOMPARE(errore.testo(), testoIndice);
    }
}

void TestGriglia::suggerimenti() {
    Griglia g(5, 3);
    riempi(g);
    g.setRigheFisse(1);
    QVERIFY(g.suggerimento(2, 1).isEmpty());
    QVERIFY(!g.data(g.index(2, 1), Qt::ToolTipRole).isValid());

    QSignalSpy cambiate(&g, &Griglia::dataChanged);
    QSignalSpy intestazioni(&g, &Griglia::headerDataChanged);
    g.setSuggerimento(0, 2, u"Rit. = Ritardo"_s);
    g.setSuggerimento(3, 1, u"R = Ritardo"_s);
    g.setSuggerimento(4, 1, u"R = Ritardo"_s);
    QCOMPARE(cambiate.count(), 3);
    QCOMPARE(cambiate.at(1).at(2).value<QList<int>>(), QList<int>{Qt::ToolTipRole});
    QCOMPARE(intestazioni.count(), 1);
    QCOMPARE(g.suggerimento(3, 1), u"R = Ritardo"_s);
    QCOMPARE(g.data(g.index(4, 1), Qt::ToolTipRole).toString(), u"R = Ritardo"_s);
    // The frozen header's tool tip is the one of its cell.
    QCOMPARE(g.headerData(2, Qt::Horizontal, Qt::ToolTipRole).toString(), u"Rit. = Ritardo"_s);
    QVERIFY(!g.headerData(1, Qt::Horizontal, Qt::ToolTipRole).isValid());
    // The rest of the format stays.
    QCOMPARE(g.sfondo(3, 1), QColor(30, 0, 0));

    // A tool tip goes with its row.
    g.ordinaNumerico(1, Griglia::Verso::Decrescente); // "r4c1", "r3c1", ... read as none
    g.setTesto(1, 2, u"5"_s);
    g.setTesto(3, 2, u"9"_s);
    g.ordinaNumerico(2, Griglia::Verso::Decrescente);
    QCOMPARE(g.testo(1, 0), u"r3c0"_s);
    QCOMPARE(g.suggerimento(1, 1), u"R = Ritardo"_s);
    QCOMPARE(g.testo(2, 0), u"r1c0"_s);
    QVERIFY(g.suggerimento(2, 1).isEmpty());
    QCOMPARE(g.suggerimento(0, 2), u"Rit. = Ritardo"_s);

    // Taken off by an empty text; an empty text on a bare cell gives it no format.
    g.setSuggerimento(1, 1, QString());
    QVERIFY(g.suggerimento(1, 1).isEmpty());
    QVERIFY(!g.data(g.index(1, 1), Qt::ToolTipRole).isValid());
    Griglia nuda(2, 2);
    QSignalSpy nudaCambiata(&nuda, &Griglia::dataChanged);
    nuda.setSuggerimento(1, 1, QString());
    QCOMPARE(nudaCambiata.count(), 0);

    g.pulisci();
    for (int r = 0; r < g.righe(); ++r)
        for (int c = 0; c < g.colonne(); ++c)
            QVERIFY(g.suggerimento(r, c).isEmpty());
}

void TestGriglia::vistaClicSullIntestazione_data() {
    QTest::addColumn<bool>("cliccabile");
    QTest::addColumn<int>("colonna");
    QTest::newRow("cliccabile, Rit.") << true << 2;
    QTest::newRow("cliccabile, prima colonna") << true << 0;
    QTest::newRow("non cliccabile") << false << 2;
}

void TestGriglia::vistaClicSullIntestazione() {
    QFETCH(bool, cliccabile);
    QFETCH(int, colonna);
    Griglia g(10, 3);
    g.setRigheFisse(1);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.resize(400, 300);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    QVERIFY(!vista.intestazioneCliccabile());
    vista.setIntestazioneCliccabile(cliccabile);
    QCOMPARE(vista.intestazioneCliccabile(), cliccabile);
    vista.setCellaCorrente(4, 1);

    QSignalSpy clicIntestazione(&vista, &VistaGriglia::clicIntestazione);
    QSignalSpy clic(&vista, &VistaGriglia::clic);
    QHeaderView *intestazione = vista.horizontalHeader();
    const QPoint punto(intestazione->sectionViewportPosition(colonna) + 5,
                       intestazione->height() / 2);
    QTest::mouseClick(intestazione->viewport(), Qt::LeftButton, {}, punto);
    QCOMPARE(clicIntestazione.count(), cliccabile ? 1 : 0);
    if (cliccabile)
        QCOMPARE(clicIntestazione.at(0).at(0).toInt(), colonna);
    // The header is no cell: the current cell stays, nothing is selected, no cell click.
    QCOMPARE(vista.rigaCorrente(), 4);
    QCOMPARE(vista.colonnaCorrente(), 1);
    QVERIFY(!vista.selectionModel()->hasSelection());
    QCOMPARE(clic.count(), 0);
    // The right button is still the export's.
    QSignalSpy destro(&vista, &VistaGriglia::tastoDestro);
    QTest::mouseClick(intestazione->viewport(), Qt::RightButton, {}, punto);
    QCOMPARE(destro.count(), 1);
    QCOMPARE(clicIntestazione.count(), cliccabile ? 1 : 0);
}

void TestGriglia::vistaIndicatoreDellOrdine() {
    Griglia g(10, 3);
    g.setRigheFisse(1);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.setIntestazioneCliccabile(true);
    vista.resize(400, 300);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    QHeaderView *intestazione = vista.horizontalHeader();
    QVERIFY(!intestazione->isSortIndicatorShown());
    QCOMPARE(vista.colonnaOrdine(), -1);

    vista.mostraOrdine(2, Griglia::Verso::Decrescente);
    QVERIFY(intestazione->isSortIndicatorShown());
    QCOMPARE(intestazione->sortIndicatorSection(), 2);
    QCOMPARE(intestazione->sortIndicatorOrder(), Qt::DescendingOrder);
    vista.mostraOrdine(0, Griglia::Verso::Crescente);
    QCOMPARE(intestazione->sortIndicatorSection(), 0);
    QCOMPARE(intestazione->sortIndicatorOrder(), Qt::AscendingOrder);
    QCOMPARE(vista.colonnaOrdine(), 0);
    QCOMPARE(vista.versoOrdine(), Griglia::Verso::Crescente);

    // A click on a header turns no arrow by itself: the screen says what the order is.
    for (const int c : {0, 1}) {
        const QPoint punto(intestazione->sectionViewportPosition(c) + 5,
                           intestazione->height() / 2);
        QTest::mouseClick(intestazione->viewport(), Qt::LeftButton, {}, punto);
        QCOMPARE(intestazione->sortIndicatorSection(), 0);
        QCOMPARE(intestazione->sortIndicatorOrder(), Qt::AscendingOrder);
    }

    vista.nascondiOrdine();
    QVERIFY(!intestazione->isSortIndicatorShown());
    QCOMPARE(vista.colonnaOrdine(), -1);
    QCOMPARE(StrumentiProva::errore([&vista] { vista.mostraOrdine(3, {}); }), testoIndice);

    // Another grid starts with no order.
    vista.mostraOrdine(1, Griglia::Verso::Decrescente);
    Griglia altra(4, 3);
    altra.setRigheFisse(1);
    vista.setGriglia(&altra);
    QVERIFY(!intestazione->isSortIndicatorShown());
}

void TestGriglia::vistaFrecciaNonTagliaLIntestazione() {
    // A narrow column of the program, as "Freq." of the workspace of the 9: with the arrow of
    // the order on, its caption is drawn whole, as it is without, and the arrow beside it.
    Griglia g(5, 2);
    g.setRigheFisse(1);
    g.setLarghezzaColonna(0, 600);
    g.setTesto(0, 0, u"Freq."_s);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.resize(300, 200);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    QHeaderView *intestazione = vista.horizontalHeader();
    const int larghezza = intestazione->sectionSize(0);
    QCOMPARE(larghezza, 40);
    const QImage senza = intestazione->viewport()->grab().toImage();
    vista.mostraOrdine(0, Griglia::Verso::Decrescente);
    const QImage con = intestazione->viewport()->grab().toImage();
    const int finoAlTesto = intestazione->style()->pixelMetric(QStyle::PM_HeaderMargin) +
                            intestazione->fontMetrics().horizontalAdvance(u"Freq."_s);
    QVERIFY(finoAlTesto < larghezza);
    const QRect didascalia(0, 0, finoAlTesto + 1, senza.height());
    QCOMPARE(con.copy(didascalia), senza.copy(didascalia));
    const QRect resto(finoAlTesto + 1, 0, larghezza - finoAlTesto - 1, senza.height());
    QVERIFY(con.copy(resto) != senza.copy(resto));
}

void TestGriglia::ordinaTesto_data() {
    QTest::addColumn<QStringList>("valori");
    QTest::addColumn<Griglia::Verso>("verso");
    QTest::addColumn<QString>("ordine"); // labels of the rows, top to bottom

    // Labels a, b, c, ... follow the input order.
    const QStringList squadre{u"Udinese"_s, u"ac milan"_s, QString(), u"ATALANTA"_s,
                              u" Inter"_s,  u"Ëmpoli"_s,   u"Bari"_s};
    QTest::newRow("crescente, vuote in fondo")
        << squadre << Griglia::Verso::Crescente << u"bdgfeac"_s;
    QTest::newRow("decrescente, vuote in fondo")
        << squadre << Griglia::Verso::Decrescente << u"aefgdbc"_s;
    const QStringList pari{u"Roma"_s, u"roma"_s, u"Lazio"_s, u"ROMA"_s};
    QTest::newRow("stabile, maiuscole a parte") << pari << Griglia::Verso::Crescente << u"cabd"_s;
    QTest::newRow("segni") << QStringList{u"X1"_s, u"21"_s, u"1X"_s, u"12"_s}
                           << Griglia::Verso::Crescente << u"dcba"_s;
}

void TestGriglia::ordinaTesto() {
    QFETCH(QStringList, valori);
    QFETCH(Griglia::Verso, verso);
    QFETCH(QString, ordine);

    Griglia g(valori.size() + 1, 3);
    g.setRigheFisse(1);
    g.setTesto(0, 0, u"Squadra"_s);
    for (int i = 0; i < valori.size(); ++i) {
        g.setTesto(i + 1, 0, valori[i]);
        g.setTesto(i + 1, 1, QString(QChar(u'a' + i)));
        g.setSfondo(i + 1, 2, QColor(10 * i, 0, 0));
    }
    g.ordinaTesto(0, verso);

    QCOMPARE(g.testo(0, 0), u"Squadra"_s);
    QString letto;
    for (int r = 1; r < g.righe(); ++r) {
        letto += g.testo(r, 1);
        // The whole row moved, its format too.
        const int nato = g.testo(r, 1).at(0).unicode() - u'a';
        QCOMPARE(g.testo(r, 0), valori[nato]);
        QCOMPARE(g.sfondo(r, 2), QColor(10 * nato, 0, 0));
    }
    QCOMPARE(letto, ordine);
}

void TestGriglia::ordineAlternatoConColonneDiTesto() {
    // The numbers of the column of names are no key: "10 Club" sorts as a name.
    Griglia g(4, 2);
    g.setRigheFisse(1);
    const QStringList nomi{u"Zeta"_s, u"10 Club"_s, u"alfa"_s};
    const QStringList punti{u"5"_s, u"30"_s, u"12"_s};
    for (int i = 0; i < 3; ++i) {
        g.setTesto(i + 1, 0, nomi[i]);
        g.setTesto(i + 1, 1, punti[i]);
    }
    OrdineAlternato ordine;
    ordine.setColonneTesto({0});
    ordine.ordina(g, 0); // descending first, as every sort of the program
    QCOMPARE(colonna(g, 0), (QStringList{QString(), u"Zeta"_s, u"alfa"_s, u"10 Club"_s}));
    ordine.ordina(g, 0);
    QCOMPARE(colonna(g, 0), (QStringList{QString(), u"10 Club"_s, u"alfa"_s, u"Zeta"_s}));
    ordine.ordina(g, 1);
    QCOMPARE(colonna(g, 1), (QStringList{QString(), u"30"_s, u"12"_s, u"5"_s}));
    QCOMPARE(ordine.ordine()->colonna, 1);
    QCOMPARE(ordine.ordine()->verso, Griglia::Verso::Decrescente);
}

void TestGriglia::vistaColonnaAllargataDallUtente() {
    Griglia g(6, 3);
    g.setRigheFisse(1);
    g.setLarghezzaColonna(1, 1200);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.resize(400, 200);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    QHeaderView *intestazione = vista.horizontalHeader();
    QCOMPARE(intestazione->sectionResizeMode(1), QHeaderView::Interactive);
    QCOMPARE(vista.columnWidth(1), 80);

    // The edge of the header dragged: the column follows the hand, the grid keeps its width.
    StrumentiProva::trascinaBordo(&vista, 1, 45);
    QCOMPARE(vista.columnWidth(1), 125);
    QCOMPARE(g.larghezzaColonna(1), 1200);
    QCOMPARE(vista.columnWidth(0), 64);
    StrumentiProva::trascinaBordo(&vista, 0, -20);
    QCOMPARE(vista.columnWidth(0), 44);
    QCOMPARE(vista.larghezzaColonne(), 44 + 125 + 64);

    // A refill of the grid keeps what the user did; a width the grid sets anew holds.
    {
        const Griglia::Blocco blocco = g.inBlocco();
        g.setTesto(2, 1, u"nuovo"_s);
    }
    QCOMPARE(vista.columnWidth(1), 125);
    QCOMPARE(vista.columnWidth(0), 44);
    g.setLarghezzaColonna(1, 1500);
    QCOMPARE(vista.columnWidth(1), 100);
    QCOMPARE(vista.columnWidth(0), 44);
    g.setRighe(3);
    QCOMPARE(vista.columnWidth(0), 44);
    // Another shape, another grid: the grid's widths again.
    g.setColonne(4);
    QCOMPARE(vista.columnWidth(0), 64);
    StrumentiProva::trascinaBordo(&vista, 0, 30);
    QCOMPARE(vista.columnWidth(0), 94);
    Griglia altra(3, 3);
    altra.setRigheFisse(1);
    vista.setGriglia(&altra);
    QCOMPARE(vista.columnWidth(0), 64);
}

void TestGriglia::vistaDoppioClicSulBordoAdatta() {
    Griglia g(5, 3);
    g.setRigheFisse(1);
    g.setLarghezzaColonna(1, 900);
    g.setTesto(0, 1, u"Squadra"_s);
    const QString lunga = u"FC INTERNAZIONALE MILANO"_s;
    g.setTesto(1, 1, u"AS ROMA"_s);
    g.setTesto(3, 1, lunga);
    g.setTesto(4, 1, u"SSC NAPOLI"_s);
    g.setGrassetto(3, 1, true);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.setIntestazioneCliccabile(true);
    vista.resize(500, 200);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    QFont grassetto = vista.font();
    grassetto.setBold(true);
    const int testo = QFontMetrics(grassetto).horizontalAdvance(lunga);
    QVERIFY(vista.columnWidth(1) < testo);

    QSignalSpy clicIntestazione(&vista, &VistaGriglia::clicIntestazione);
    StrumentiProva::doppioClicBordo(&vista, 1);
    // As wide as its longest text, with the cell's margins and no more.
    QVERIFY2(vista.columnWidth(1) >= testo && vista.columnWidth(1) <= testo + 24,
             qPrintable(u"%1 per %2"_s.arg(vista.columnWidth(1)).arg(testo)));
    QCOMPARE(clicIntestazione.count(), 0);
    QCOMPARE(g.larghezzaColonna(1), 900);
    // A column wider than its texts narrows to them.
    g.setLarghezzaColonna(2, 3000);
    g.setTesto(2, 2, u"12"_s);
    StrumentiProva::doppioClicBordo(&vista, 2);
    QVERIFY(vista.columnWidth(2) < 60);

    // In the middle of the header a double click is clicks, as it always was.
    const int larghezza = vista.columnWidth(1);
    StrumentiProva::doppioClicIntestazione(&vista, 1);
    QVERIFY(clicIntestazione.count() >= 1);
    for (const QList<QVariant> &segnale : std::as_const(clicIntestazione))
        QCOMPARE(segnale.at(0).toInt(), 1);
    QCOMPARE(vista.columnWidth(1), larghezza);
}

void TestGriglia::vistaAdattataCresceConLaColonna() {
    // A grid shown whole grows with a column the user widens, so that nothing falls out of
    // sight; its height stays.
    Griglia g(6, 4);
    g.setRigheFisse(1);
    VistaGriglia vista;
    vista.setGriglia(&g);
    vista.adattaA();
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    const QSize prima = vista.size();
    QCOMPARE(prima, vista.dimensioneEsatta());
    StrumentiProva::trascinaBordo(&vista, 2, 50);
    QCOMPARE(vista.size(), prima + QSize(50, 0));
    StrumentiProva::trascinaBordo(&vista, 0, -30);
    QCOMPARE(vista.size(), prima + QSize(20, 0));

    // Fitted to the width of its columns, it follows them as well.
    VistaGriglia larga;
    larga.setGriglia(&g);
    larga.adattaLarghezza();
    larga.resize(larga.width(), 150);
    larga.show();
    QVERIFY(QTest::qWaitForWindowExposed(&larga));
    const int larghezza = larga.width();
    QCOMPARE(larga.minimumWidth(), larghezza);
    StrumentiProva::trascinaBordo(&larga, 3, 35);
    QCOMPARE(larga.width(), larghezza + 35);
    QCOMPARE(larga.maximumWidth(), larghezza + 35);
}

void TestGriglia::vistaOrdinaConClicIntestazione() {
    Griglia g(5, 2);
    g.setRigheFisse(1);
    const QStringList punti{u"7"_s, u"21"_s, u"-"_s, u"9"_s};
    for (int i = 0; i < 4; ++i) {
        g.setTesto(i + 1, 0, punti[i]);
        g.setTesto(i + 1, 1, QString(QChar(u'a' + i)));
    }
    VistaGriglia vista;
    vista.setGriglia(&g);
    OrdineAlternato ordine;
    vista.ordinaConClicIntestazione(&ordine);
    vista.resize(300, 200);
    vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&vista));
    QVERIFY(vista.intestazioneCliccabile());

    StrumentiProva::clicIntestazione(&vista, 0);
    QCOMPARE(colonna(g, 1), (QStringList{QString(), u"b"_s, u"d"_s, u"a"_s, u"c"_s}));
    QCOMPARE(vista.colonnaOrdine(), 0);
    QCOMPARE(vista.versoOrdine(), Griglia::Verso::Decrescente);
    StrumentiProva::clicIntestazione(&vista, 0);
    QCOMPARE(colonna(g, 1), (QStringList{QString(), u"a"_s, u"d"_s, u"b"_s, u"c"_s}));
    QCOMPARE(vista.versoOrdine(), Griglia::Verso::Crescente);
    // The cells keep their double click for the screen: no sort there.
    QSignalSpy doppio(&vista, &VistaGriglia::doppioClic);
    StrumentiProva::doppioClic(&vista, 2, 0);
    QCOMPARE(doppio.count(), 1);
    QCOMPARE(colonna(g, 1), (QStringList{QString(), u"a"_s, u"d"_s, u"b"_s, u"c"_s}));
}

QTEST_MAIN(TestGriglia)
#include "tst_griglia.moc"
