// The folders of src/ are layers: an include goes to the same folder or to a lower layer, and the
// subsystem folders, which may use each other, never close a circle. This test reads every
// include of the sources and holds it against that order.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// The folder of each file (relative to src/) and the program's includes it names ("core/x.h").
using Inclusioni = QMultiMap<QString, QString>;

int strato(const QString &cartella) {
    static const QHash<QString, int>
        strati{
            {u"piattaforma"_s, 1},   {u"core"_s, 2},     {u"stampa"_s, 3},
            {u"analisi"_s, 4},       {u"schedine"_s, 4}, {u"campionati"_s, 4},
            {u"aggiornamenti"_s, 4}, {u"archivio"_s, 4}, {u"cornice"_s, 5},
            {QString(), 6}, // main.cpp, the executable's own file, above everything
        };
    return strati.value(cartella, 0);
}

QString cartellaDi(const QString &percorso) {
    const qsizetype barra = percorso.indexOf(u'/');
    return barra < 0 ? QString() : percorso.left(barra);
}

// Finds a circle in the graph of the subsystem folders; the folders on it, or nothing.
QStringList circolo(const QHash<QString, QSet<QString>> &archi) {
    QHash<QString, int> colore; // 0 unseen, 1 on the path, 2 done
    QStringList cammino;
    QStringList trovato;
    std::function<bool(const QString &)> visita = [&](const QString &n) {
        colore[n] = 1;
        cammino.append(n);
        QStringList vicini = archi.value(n).values();
        vicini.sort();
        for (const QString &v : vicini) {
            if (colore.value(v) == 1) {
                trovato = cammino.mid(cammino.indexOf(v));
                trovato.append(v);
                return true;
            }
            if (colore.value(v) == 0 && visita(v))
                return true;
        }
        cammino.removeLast();
        colore[n] = 2;
        return false;
    };
    QStringList nodi = archi.keys();
    nodi.sort();
    for (const QString &n : nodi)
        if (colore.value(n) == 0 && visita(n))
            return trovato;
    return {};
}

// Every include that runs against the layers, and the circle of folders if there is one.
QStringList violazioni(const Inclusioni &inclusioni) {
    QStringList errori;
    QHash<QString, QSet<QString>> archi;
    for (auto it = inclusioni.cbegin(); it != inclusioni.cend(); ++it) {
        const QString da = cartellaDi(it.key());
        const QString a = cartellaDi(it.value());
        if (strato(da) == 0) {
            errori.append(u"%1: cartella sconosciuta"_s.arg(it.key()));
            continue;
        }
        if (strato(a) == 0 || a.isEmpty()) {
            errori.append(u"%1 include %2: cartella sconosciuta"_s.arg(it.key(), it.value()));
            continue;
        }
        if (da == a)
            continue;
        if (strato(a) > strato(da) || (strato(a) == strato(da) && strato(da) != 4))
            errori.append(u"%1 include %2"_s.arg(it.key(), it.value()));
        else if (strato(a) == 4 && strato(da) == 4)
            archi[da].insert(a);
    }
    const QStringList giro = circolo(archi);
    if (!giro.isEmpty())
        errori.append(u"circolo di cartelle: %1"_s.arg(giro.join(u" -> "_s)));
    return errori;
}

// The includes in quotes of the sources under `radice` (src/), by file relative to it.
Inclusioni leggiSorgenti(const QString &radice) {
    static const QRegularExpression riga(u"^\\s*#\\s*include\\s*\"([^\"]+)\""_s,
                                         QRegularExpression::MultilineOption);
    Inclusioni inclusioni;
    QDirIterator it(radice, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    const QDir base(radice);
    while (it.hasNext()) {
        const QString percorso = it.next();
        QFile f(percorso);
        if (!f.open(QIODevice::ReadOnly))
            continue;
        const QString testo = QString::fromUtf8(f.readAll());
        auto corrispondenze = riga.globalMatch(testo);
        while (corrispondenze.hasNext())
            inclusioni.insert(base.relativeFilePath(percorso), corrispondenze.next().captured(1));
    }
    return inclusioni;
}

} // namespace

class TestStrati : public QObject {
    Q_OBJECT
private slots:
    void regole_data();
    void regole();
    void sorgenti();
};

void TestStrati::regole_data() {
    QTest::addColumn<QStringList>("inclusioni"); // "file>include" pairs
    QTest::addColumn<QStringList>("attese");

    QTest::newRow("verso il basso")
        << QStringList{u"core/a.cpp>piattaforma/b.h"_s, u"cornice/c.cpp>analisi/d.h"_s,
                       u"analisi/d.cpp>stampa/e.h"_s, u"main.cpp>cornice/c.h"_s}
        << QStringList{};
    QTest::newRow("stessa cartella") << QStringList{u"core/a.cpp>core/a.h"_s} << QStringList{};
    QTest::newRow("piattaforma verso core") << QStringList{u"piattaforma/a.cpp>core/b.h"_s}
                                            << QStringList{u"piattaforma/a.cpp include core/b.h"_s};
    QTest::newRow("core verso un sottosistema")
        << QStringList{u"core/a.cpp>aggiornamenti/rete.h"_s}
        << QStringList{u"core/a.cpp include aggiornamenti/rete.h"_s};
    QTest::newRow("sottosistema verso la cornice")
        << QStringList{u"analisi/a.cpp>cornice/mdipannello.h"_s}
        << QStringList{u"analisi/a.cpp include cornice/mdipannello.h"_s};
    QTest::newRow("sottosistemi senza circolo")
        << QStringList{u"aggiornamenti/a.cpp>campionati/b.h"_s,
                       u"aggiornamenti/a.cpp>archivio/c.h"_s, u"archivio/c.cpp>campionati/b.h"_s}
        << QStringList{};
    QTest::newRow("circolo di due")
        << QStringList{u"aggiornamenti/a.cpp>campionati/b.h"_s,
                       u"campionati/b.cpp>aggiornamenti/a.h"_s}
        << QStringList{u"circolo di cartelle: aggiornamenti -> campionati -> aggiornamenti"_s};
    QTest::newRow("circolo di tre")
        << QStringList{u"analisi/a.cpp>schedine/b.h"_s, u"schedine/b.cpp>campionati/c.h"_s,
                       u"campionati/c.cpp>analisi/a.h"_s}
        << QStringList{u"circolo di cartelle: analisi -> schedine -> campionati -> analisi"_s};
    QTest::newRow("cartella sconosciuta")
        << QStringList{u"varie/a.cpp>core/b.h"_s, u"core/b.cpp>varie/a.h"_s}
        << QStringList{u"core/b.cpp include varie/a.h: cartella sconosciuta"_s,
                       u"varie/a.cpp: cartella sconosciuta"_s};
}

void TestStrati::regole() {
    QFETCH(QStringList, inclusioni);
    QFETCH(QStringList, attese);
    Inclusioni mappa;
    for (const QString &coppia : std::as_const(inclusioni))
        mappa.insert(coppia.section(u'>', 0, 0), coppia.section(u'>', 1));
    QStringList trovate = violazioni(mappa);
    trovate.sort();
    attese.sort();
    QCOMPARE(trovate, attese);
}

void TestStrati::sorgenti() {
    const QString radice = QStringLiteral(VESPARA_SORGENTI);
    const Inclusioni inclusioni = leggiSorgenti(radice);
    // The reader must have found the program, or the check below proves nothing.
    QVERIFY2(inclusioni.size() > 200, qPrintable(QString::number(inclusioni.size())));
    QVERIFY(inclusioni.contains(u"cornice/mdipannello.cpp"_s));
    const QStringList errori = violazioni(inclusioni);
    QVERIFY2(errori.isEmpty(), qPrintable(errori.join(u'\n')));
}

QTEST_GUILESS_MAIN(TestStrati)
#include "tst_strati.moc"
