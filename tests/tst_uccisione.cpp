// The foreign team lists when the program is killed while it replaces them: the update runs in
// a helper process that is killed before each change of a list's name in the data folder in
// turn (see aiuti/uccisione.cpp). Whenever it dies, every list is whole: the old one or the new
// one, never missing, empty or cut.
#include "campionati/leghe.h"
#include "piattaforma/filedati.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray vecchia(const Leghe::Lega &lega) {
    return "VECCHIA " + QByteArray(lega.nome) + "\r\n";
}
QByteArray nuova(const Leghe::Lega &lega) {
    return "NUOVA SQUADRA DI " + QByteArray(lega.nome).toUpper() + "\r\nSECONDA\r\n";
}

struct Esito {
    int codice = -1;
    bool ucciso = false;
    QString uscita;
};

Esito esegui(const QString &dati, const QString &sito, int uccidiA) {
    QProcess p;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    if (uccidiA > 0)
        ambiente.insert(u"VESPARA_UCCIDI_A"_s, QString::number(uccidiA));
    p.setProcessEnvironment(ambiente);
    p.start(QStringLiteral(VESPARA_UCCISIONE), {dati, sito});
    if (!p.waitForFinished(60000))
        return {};
    return {p.exitCode(), p.exitStatus() == QProcess::CrashExit,
            QString::fromLocal8Bit(p.readAllStandardOutput() + p.readAllStandardError())};
}

} // namespace

class TstUccisione : public QObject {
    Q_OBJECT

private slots:
    void listeSempreIntere();
};

void TstUccisione::listeSempreIntere() {
    QTemporaryDir sito;
    FileDati::scriviRighe(sito.filePath(u"index.html"_s), {u"Vespara"_s});
    QDir().mkpath(sito.filePath(u"vespara"_s));
    for (const Leghe::Lega &lega : Leghe::straniere()) {
        QFile f(sito.filePath(u"vespara/Serie%1.txt"_s.arg(QString::fromLatin1(lega.codice))));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(nuova(lega).chopped(2)); // the last line end is the one the update adds
    }
    // A whole run first: how many changes of names it makes, and its result.
    int chiamate = 0;
    for (int uccidiA = 0; uccidiA == 0 || uccidiA <= chiamate; ++uccidiA) {
        QTemporaryDir dati;
        for (const Leghe::Lega &lega : Leghe::straniere()) {
            QFile f(dati.filePath(Leghe::fileSquadre(lega)));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(vecchia(lega));
        }
        const Esito esito = esegui(dati.path(), sito.path(), uccidiA);
        if (uccidiA == 0) {
            QVERIFY2(esito.codice == 0 && !esito.ucciso, qPrintable(esito.uscita));
            const QRegularExpressionMatch m =
                QRegularExpression(u"chiamate (\\d+)"_s).match(esito.uscita);
            QVERIFY2(m.hasMatch(), qPrintable(esito.uscita));
            chiamate = m.captured(1).toInt();
            // At least one change of name a list: each is replaced in place.
            QVERIFY2(chiamate >= int(Leghe::straniere().size()), qPrintable(esito.uscita));
        } else {
            QVERIFY2(esito.ucciso, qPrintable(u"chiamata %1: %2"_s.arg(uccidiA).arg(esito.uscita)));
        }
        int nuove = 0;
        for (const Leghe::Lega &lega : Leghe::straniere()) {
            const QString nome = Leghe::fileSquadre(lega);
            QFile f(dati.filePath(nome));
            QVERIFY2(f.open(QIODevice::ReadOnly),
                     qPrintable(u"ucciso alla chiamata %1: %2 manca"_s.arg(uccidiA).arg(nome)));
            const QByteArray byte = f.readAll();
            QVERIFY2(byte == vecchia(lega) || byte == nuova(lega),
                     qPrintable(u"ucciso alla chiamata %1: %2 contiene \"%3\""_s.arg(uccidiA).arg(
                         nome, QString::fromLatin1(byte))));
            nuove += byte == nuova(lega);
        }
        if (uccidiA == 0)
            QCOMPARE(nuove, int(Leghe::straniere().size()));
        // No other list of the same name in another case is left behind.
        const QStringList nomi = QDir(dati.path()).entryList(QDir::Files);
        for (const Leghe::Lega &lega : Leghe::straniere())
            QCOMPARE(std::count_if(nomi.cbegin(), nomi.cend(),
                                   [&lega](const QString &n) {
                                       return n.compare(Leghe::fileSquadre(lega),
                                                        Qt::CaseInsensitive) == 0;
                                   }),
                     1);
    }
}

QTEST_MAIN(TstUccisione)
#include "tst_uccisione.moc"
