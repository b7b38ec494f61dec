// Damaged tables, full disks, read-only files and folders, met as a user meets them: the program
// starts all the same, the three copies of the archive change together or not at all, a second
// press never stores a contest twice, and every failed write says in Italian what went wrong.
// The faults are real: a tmpfs as the data folder, filled or remounted read-only, and a file
// mounted read-only over itself, all inside a mount namespace of this test's own.
#include "supporto/ambienteprova.h"
#include "supporto/archiviosintetico.h"
#include "supporto/discoprova.h"
#include "supporto/strumentiprova.h"

#include "core/archivio.h"
#include "core/archiviocolonne.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/serverhttp.h"
#include "piattaforma/tabellaarchivio.h"

#include <QAction>
#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

#include <dlfcn.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace StrumentiProva;

namespace {

// Why the test could not have a mount namespace of its own (empty when it could).
QString isolamento;

QString testo(const char *utf8) {
    return QString::fromUtf8(utf8);
}

const QString Inserito = u"Inserimento effettuato."_s;

// The archive of these tests: 300 made-up contests and one known last one.
QStringList archivioDiProva() {
    QStringList righe = archivioSintetico(300);
    righe.append(u"2026 14 12X221X2111111 8 2 4 7 2 1"_s);
    return righe;
}

QList<RigaArchivio> righeDi(const QStringList &righe) {
    return ArchivioColonne::daRighe(righe).righe();
}

// The SHA-256 of a file, or "assente".
QByteArray impronta(const QString &percorso) {
    if (!QFileInfo(percorso).isFile())
        return "assente";
    return QCryptographicHash::hash(contenuto(percorso), QCryptographicHash::Sha256).toHex();
}

QByteArray casuali(int n, quint32 seme) {
    QRandomGenerator g(seme);
    QByteArray b(n, '\0');
    for (char &c : b)
        c = char(g.bounded(256));
    return b;
}

void scriviTabella(const QString &percorso, const QList<RigaArchivio> &righe) {
    TabellaArchivio t(percorso);
    t.ricostruisci(righe);
}

// English words of the system or of SQLite, outside the "(dettaglio: ...)" where they may stand.
QString inglese(const QString &testoBox) {
    QString fuori = testoBox;
    fuori.remove(QRegularExpression(u"\\(dettaglio: [^\\n]*?\\)(?=\\n|$)"_s));
    static const QStringList parole{
        u"not a database"_s, u"malformed"_s,      u"Read-only"_s,    u"read-only"_s,
        u"readonly"_s,       u"No space"_s,       u"disk is full"_s, u"Unknown error"_s,
        u"nable to"_s,       u"Permission"_s,     u"No such file"_s, u"attempt to"_s,
        u"busy"_s,           u"locked"_s,         u"sconosciuto"_s,  u"Device or"_s,
        u"failed"_s,         u"Is a directory"_s, u"not writable"_s, u"constraint"_s};
    for (const QString &p : parole)
        if (fuori.contains(p))
            return p;
    return {};
}

class Banco {
public:
    AmbienteProva a;
    std::unique_ptr<DiscoProva> disco;
    QStringList archivio;

    explicit Banco(QStringList righe = archivioDiProva())
        : archivio(std::move(righe)) {
        disco = std::make_unique<DiscoProva>(a.cartella());
        if (disco->valido())
            a.scrivi(u"Archivio.txt"_s, archivio);
    }
    ~Banco() {
        // The program goes before its disk.
        a.dialoghi.svuota();
    }

    QString db() const { return a.file(u"archivio.db"_s); }
    QString accantonato() const { return a.file(u"archivio-danneggiato.db"_s); }
    QString file(const QString &nome) const { return a.file(nome); }
    QStringList righeFile() const {
        QStringList r = FileDati::leggiRighe(a.file(u"Archivio.txt"_s));
        r.removeAll(u" "_s);
        return r;
    }

    QWidget *apri(const QString &voce, const QString &schermo) {
        QAction *azione = a.pannello().findChild<QAction *>(voce);
        if (!azione || !azione->isEnabled())
            return nullptr;
        azione->trigger();
        return a.pannello().trovaSchermo(schermo);
    }
    bool aperto(const QString &schermo) const {
        return a.pannello().trovaSchermo(schermo) != nullptr;
    }
    // The three copies agree: the records of the file, the rows of the table, the memory.
    QString disaccordo() const {
        const QList<RigaArchivio> file = righeDi(righeFile());
        const QList<RigaArchivio> tabella = a.stato().tabellaArchivio().tutte();
        const QList<RigaArchivio> &memoria = a.stato().ColonneArchivio.righe();
        if (file != tabella)
            return u"il file e la tabella differiscono (%1 e %2 righe)"_s.arg(file.size())
                .arg(tabella.size());
        if (file != memoria)
            return u"il file e la memoria differiscono (%1 e %2 righe)"_s.arg(file.size())
                .arg(memoria.size());
        return {};
    }
    // The box said in Italian what happened: each phrase is there, no English outside the detail.
    QString boxDice(int indice, Dialoghi::Tipo tipo, const QStringList &frasi) const {
        if (indice >= a.dialoghi.boxes.size())
            return u"nessun box %1: %2"_s.arg(indice).arg(a.dialoghi.testi().join(u" | "_s));
        const DialoghiProva::Box &box = a.dialoghi.boxes.at(indice);
        if (box.tipo != tipo)
            return u"box di tipo %1: %2"_s.arg(int(box.tipo)).arg(box.testo);
        for (const QString &f : frasi)
            if (!box.testo.contains(f))
                return u"manca \"%1\" in: %2"_s.arg(f, box.testo);
        if (const QString p = inglese(box.testo); !p.isEmpty())
            return u"testo inglese \"%1\" fuori dal dettaglio: %2"_s.arg(p, box.testo);
        return {};
    }
};

// The copies of the archive as they are: the two text files byte for byte, the table, the memory.
struct Fotografia {
    QByteArray testo;
    QByteArray precedente;
    QList<RigaArchivio> tabella;
    QList<RigaArchivio> memoria;
    int numero = 0;

    static Fotografia di(const Banco &b) {
        return {impronta(b.file(u"Archivio.txt"_s)), impronta(b.file(u"ArchivioPrecedente.txt"_s)),
                b.a.stato().tabellaArchivio().tutte(), b.a.stato().ColonneArchivio.righe(),
                b.a.stato().NumeroColonne()};
    }
    QString differenza(const Fotografia &o) const {
        if (testo != o.testo)
            return u"Archivio.txt è cambiato"_s;
        if (precedente != o.precedente)
            return u"ArchivioPrecedente.txt è cambiato"_s;
        if (tabella != o.tabella)
            return u"la tabella è cambiata"_s;
        if (memoria != o.memoria || numero != o.numero)
            return u"la memoria è cambiata"_s;
        return {};
    }
};

// A commit of the program's table that SQLite turns into a rollback, with something done at that
// moment: a commit hook on the program's connection to archivio.db. SQLite is the library the Qt
// driver has loaded; the hook goes with the object.
class RifiutoConferma {
public:
    RifiutoConferma(const QString &percorsoDb, std::function<void()> allora)
        : m_allora(std::move(allora)) {
        m_libreria = dlopen("libsqlite3.so.0", RTLD_NOW | RTLD_NOLOAD);
        if (!m_libreria) {
            m_errore = u"la libreria di SQLite non è caricata"_s;
            return;
        }
        m_imposta = reinterpret_cast<Imposta>(dlsym(m_libreria, "sqlite3_commit_hook"));
        for (const QString &nome : QSqlDatabase::connectionNames()) {
            const QSqlDatabase db = QSqlDatabase::database(nome, false);
            const QVariant h = db.isOpen() ? db.driver()->handle() : QVariant();
            if (db.databaseName() == percorsoDb && qstrcmp(h.typeName(), "sqlite3*") == 0)
                m_connessione = *static_cast<void *const *>(h.constData());
        }
        if (!m_imposta || !m_connessione) {
            m_errore = u"la connessione del programma ad archivio.db non c'è"_s;
            return;
        }
        m_imposta(m_connessione, &RifiutoConferma::gancio, this);
    }
    ~RifiutoConferma() {
        if (m_imposta && m_connessione)
            m_imposta(m_connessione, nullptr, nullptr);
        if (m_libreria)
            dlclose(m_libreria);
    }
    RifiutoConferma(const RifiutoConferma &) = delete;
    RifiutoConferma &operator=(const RifiutoConferma &) = delete;

    QString errore() const { return m_errore; }
    int chiamate() const { return m_chiamate; }

private:
    using Imposta = void *(*)(void *, int (*)(void *), void *);
    static int gancio(void *dati) {
        auto *r = static_cast<RifiutoConferma *>(dati);
        ++r->m_chiamate;
        if (r->m_allora)
            r->m_allora();
        return 1; // the commit becomes a rollback
    }

    std::function<void()> m_allora;
    void *m_libreria = nullptr;
    Imposta m_imposta = nullptr;
    void *m_connessione = nullptr;
    int m_chiamate = 0;
    QString m_errore;
};

} // namespace

class TstGuasti : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    // Start-up.
    void tabellaGuastaAllAvvio_data();
    void tabellaGuastaAllAvvio();
    void tabellaRitrovataAllaModifica();
    void ripristinoAllAvvioSuDiscoPieno();

    // The writers.
    void inserimentoNonRiuscito_data();
    void inserimentoNonRiuscito();
    void gestioneNonRiuscita_data();
    void gestioneNonRiuscita();
    void riparazioneNonRiuscita();
    void confermaRifiutataRimetteTutto();
    void doppioGuastoDiceCheIlConcorsoCE();

    // The words of a failed write.
    void causeDiScrittura_data();
    void causeDiScrittura();
};

void TstGuasti::initTestCase() {
    if (!isolamento.isEmpty())
        QFAIL(qPrintable(u"Senza uno spazio dei mount proprio i guasti del disco non si possono "
                         "provare: "_s +
                         isolamento));
    QTemporaryDir dir;
    DiscoProva disco(dir.path());
    if (!disco.valido())
        QFAIL(qPrintable(u"Un tmpfs non si può montare: "_s + disco.errore()));
}

void TstGuasti::tabellaGuastaAllAvvio_data() {
    QTest::addColumn<QString>("guasto");
    QTest::addColumn<int>("tipo");          // Dialoghi::Tipo of the one box
    QTest::addColumn<bool>("accantonata");  // archivio-danneggiato.db expected
    QTest::addColumn<bool>("inMemoria");    // the table in use stands in memory
    QTest::addColumn<QStringList>("frasi"); // said in the box

    const QString ricostruita = testo(Archivio::TabellaRicostruita);
    const QString nonInUso = testo(Archivio::TabellaNonInUso);
    const QString danneggiato = u"il file è danneggiato o non è un database"_s;
    const int info = int(Dialoghi::Tipo::Informazione);
    const int avviso = int(Dialoghi::Tipo::Avviso);
    QTest::newRow("byte casuali") << u"casuali"_s << info << true << false
                                  << QStringList{ricostruita, danneggiato};
    QTest::newRow("file troncato")
        << u"troncato"_s << info << true << false << QStringList{ricostruita, danneggiato};
    QTest::newRow("una pagina guasta")
        << u"pagina"_s << info << true << false << QStringList{ricostruita, danneggiato};
    QTest::newRow("una cartella al suo posto")
        << u"cartella"_s << info << true << false
        << QStringList{ricostruita, u"al suo posto c'è una cartella"_s};
    QTest::newRow("tabella di sola lettura diversa dal file")
        << u"sola lettura"_s << avviso << false << true
        << QStringList{nonInUso, u"il file è di sola lettura"_s, u"archivio.db"_s};
    QTest::newRow("disco pieno con una ricostruzione da fare")
        << u"pieno"_s << avviso << false << true
        << QStringList{nonInUso, u"il disco è pieno"_s, u"archivio.db"_s};
    QTest::newRow("disco pieno e tabella danneggiata")
        << u"pieno e casuali"_s << avviso << true << true
        << QStringList{nonInUso, danneggiato, testo(Archivio::TabellaAccantonata),
                       u"il disco è pieno"_s};
    QTest::newRow("cartella dei dati di sola lettura")
        << u"cartella di sola lettura"_s << avviso << false << true
        << QStringList{nonInUso, danneggiato, u"di sola lettura"_s};
}

void TstGuasti::tabellaGuastaAllAvvio() {
    QFETCH(QString, guasto);
    QFETCH(int, tipo);
    QFETCH(bool, accantonata);
    QFETCH(bool, inMemoria);
    QFETCH(QStringList, frasi);
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    const QList<RigaArchivio> attese = righeDi(b.archivio);
    // A whole table first, of the same archive or of an older one.
    const bool diversa = guasto == u"sola lettura"_s || guasto == u"pieno"_s;
    scriviTabella(b.db(), diversa ? righeDi(archivioSintetico(250, 9)) : attese);
    QVERIFY(QFileInfo(b.db()).size() >= 5 * 4096);
    QByteArray danneggiata;
    if (guasto.contains(u"casuali"_s) || guasto == u"cartella di sola lettura"_s) {
        danneggiata = casuali(8192, 11);
        QVERIFY(scriviGrezzo(b.db(), danneggiata));
    } else if (guasto == u"troncato"_s) {
        QVERIFY(QFile::resize(b.db(), QFileInfo(b.db()).size() / 2));
        danneggiata = contenuto(b.db());
    } else if (guasto == u"pagina"_s) {
        QFile f(b.db());
        QVERIFY(f.open(QIODevice::ReadWrite));
        QVERIFY(f.seek(2 * 4096));
        QCOMPARE(f.write(casuali(4096, 12)), 4096);
        f.close();
        danneggiata = contenuto(b.db());
    } else if (guasto == u"cartella"_s) {
        QVERIFY(QFile::remove(b.db()));
        QVERIFY(QDir().mkpath(b.db()));
        QVERIFY(scriviGrezzo(b.db() + u"/dentro.txt"_s, "x"));
    }
    // An older copy set aside is replaced (not on a full disk: removing it would make room).
    if (accantonata && !guasto.startsWith(u"pieno"_s))
        QVERIFY(scriviGrezzo(b.accantonato(), "vecchia copia"));
    const QByteArray testoPrima = contenuto(b.file(u"Archivio.txt"_s));
    const QByteArray tabellaPrima = impronta(b.db());
    if (guasto == u"sola lettura"_s) {
        const QString e = DiscoProva::bloccaFile(b.db());
        QVERIFY2(e.isEmpty(), qPrintable(e));
    }
    if (guasto.startsWith(u"pieno"_s))
        QVERIFY(b.disco->riempi());
    if (guasto == u"cartella di sola lettura"_s)
        QVERIFY(b.disco->soloLettura(true));

    QVERIFY(b.a.avvia());
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    const QString detto = b.boxDice(0, Dialoghi::Tipo(tipo), frasi);
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    // The archive is whole, in memory and in the table in use; the master is untouched.
    QCOMPARE(contenuto(b.file(u"Archivio.txt"_s)), testoPrima);
    QCOMPARE(b.a.stato().NumeroColonne(), attese.size());
    QCOMPARE(b.a.stato().ColonneArchivio.righe(), attese);
    QCOMPARE(b.a.stato().tabellaArchivio().tutte(), attese);
    QCOMPARE(b.a.stato().tabellaArchivio().inMemoria(), inMemoria);
    QVERIFY(b.aperto(u"frmPannelloSegni"_s));
    QVERIFY(!b.a.pannello().findChild<QLabel *>(u"lblColonna"_s)->text().isEmpty());

    // The damaged file set aside as it was, in place of the older copy.
    QCOMPARE(QFileInfo::exists(b.accantonato()), accantonata);
    if (accantonata && guasto == u"cartella"_s)
        QCOMPARE(contenuto(b.accantonato() + u"/dentro.txt"_s), QByteArray("x"));
    else if (accantonata)
        QCOMPARE(contenuto(b.accantonato()), danneggiata);
    if (!inMemoria) {
        // A new table, whole, in the file.
        TabellaArchivio nuova(b.db());
        QCOMPARE(nuova.verifica(), attese);
    } else if (!accantonata) {
        // Nothing was written to a table that is not in use.
        QCOMPARE(impronta(b.db()), tabellaPrima);
    }
    if (guasto == u"sola lettura"_s)
        QVERIFY(DiscoProva::sbloccaFile(b.db()).isEmpty());
}

void TstGuasti::tabellaRitrovataAllaModifica() {
    // A table that can't be written at start-up: the entries go on without it and without a
    // word, and the first one after it became writable again brings it back.
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    scriviTabella(b.db(), righeDi(archivioSintetico(250, 9)));
    const QByteArray tabellaPrima = impronta(b.db());
    QVERIFY(DiscoProva::bloccaFile(b.db()).isEmpty());
    auto sblocca = qScopeGuard([&b] { DiscoProva::sbloccaFile(b.db()); });
    QVERIFY(b.a.avvia());
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QVERIFY(b.a.stato().tabellaArchivio().inMemoria());
    const auto inserisci = [&b](const QString &colonna) {
        b.a.dialoghi.svuota();
        QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
        QVERIFY(frm);
        scriviSopra(controllo<QLineEdit>(frm, u"txtColonna"_s), colonna);
        QTest::mouseClick(controllo<QPushButton>(frm, u"cmdInserisci"_s), Qt::LeftButton);
        QCOMPARE(b.a.dialoghi.testi(), QStringList{Inserito});
    };
    inserisci(u"1X21X21X21X21X"_s);
    QCOMPARE(b.a.stato().NumeroColonne(), b.archivio.size() + 1);
    QCOMPARE(b.disaccordo(), QString());
    QVERIFY(b.a.stato().tabellaArchivio().inMemoria());
    QCOMPARE(impronta(b.db()), tabellaPrima);

    sblocca.dismiss();
    QVERIFY(DiscoProva::sbloccaFile(b.db()).isEmpty());
    inserisci(u"222222222XXXXX"_s);
    QCOMPARE(b.a.stato().NumeroColonne(), b.archivio.size() + 2);
    QVERIFY(!b.a.stato().tabellaArchivio().inMemoria());
    QCOMPARE(b.disaccordo(), QString());
    TabellaArchivio file(b.db());
    QCOMPARE(file.verifica(), righeDi(b.righeFile()));
}

void TstGuasti::ripristinoAllAvvioSuDiscoPieno() {
    // The restore of the previous generation at start-up is a writer like the others: on a full
    // disk it leaves every file as it was and says why, and the program starts without archive.
    QStringList guasto = archivioDiProva();
    guasto[4] = u"2000 5 1X2"_s;
    Banco b(guasto);
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    b.a.scrivi(u"ArchivioPrecedente.txt"_s, archivioSintetico(250));
    const QByteArray testoPrima = impronta(b.file(u"Archivio.txt"_s));
    const QByteArray precedentePrima = impronta(b.file(u"ArchivioPrecedente.txt"_s));
    QVERIFY(b.disco->riempi());
    b.a.dialoghi.risposte.enqueue(true);
    QVERIFY(b.a.avvia());
    QVERIFY2(b.a.dialoghi.boxes.size() == 2, qPrintable(b.a.dialoghi.testi().join(u"\n---\n"_s)));
    QCOMPARE(b.a.dialoghi.boxes.at(0).tipo, Dialoghi::Tipo::Domanda);
    const QString detto =
        b.boxDice(1, Dialoghi::Tipo::Critico,
                  {testo(Archivio::NonModificato), u"il disco è pieno"_s, u"senza archivio"_s});
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    QCOMPARE(impronta(b.file(u"Archivio.txt"_s)), testoPrima);
    QCOMPARE(impronta(b.file(u"ArchivioPrecedente.txt"_s)), precedentePrima);
    QVERIFY(!QFileInfo::exists(b.file(u"ArchivioDanneggiato.txt"_s)));
    QCOMPARE(b.a.stato().NumeroColonne(), 0);

    // With room again, the next start restores it.
    b.disco->libera();
    b.a.dialoghi.svuota();
    b.a.dialoghi.risposte.enqueue(true);
    QVERIFY(b.a.avvia());
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.stato().NumeroColonne(), 250);
    QCOMPARE(b.disaccordo(), QString());
    QCOMPARE(impronta(b.file(u"ArchivioDanneggiato.txt"_s)), testoPrima);
}

void TstGuasti::inserimentoNonRiuscito_data() {
    QTest::addColumn<QString>("guasto");
    QTest::addColumn<QString>("causa");
    QTest::newRow("disco pieno") << u"pieno"_s << u"il disco è pieno"_s;
    QTest::newRow("tabella di sola lettura") << u"sola lettura"_s << u"il file è di sola lettura"_s;
    // The table takes the rows, then the text can't be written: the table's transaction is
    // undone, and the previous generation already written beside it is put back.
    QTest::newRow("Archivio.txt di sola lettura")
        << u"testo"_s << u"Archivio.txt: il file è di sola lettura"_s;
}

void TstGuasti::inserimentoNonRiuscito() {
    QFETCH(QString, guasto);
    QFETCH(QString, causa);
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    b.a.scrivi(u"ArchivioPrecedente.txt"_s, archivioSintetico(290));
    // A file opened for writing stays writable under a later read-only mount: the table is made
    // read-only before the program opens it (it holds the archive, so nothing is said).
    if (guasto == u"sola lettura"_s) {
        scriviTabella(b.db(), righeDi(b.archivio));
        QVERIFY(DiscoProva::bloccaFile(b.db()).isEmpty());
    }
    QVERIFY(b.a.avvia());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QVERIFY(!b.a.stato().tabellaArchivio().inMemoria());
    const Fotografia prima = Fotografia::di(b);
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    scriviSopra(controllo<QLineEdit>(frm, u"txtColonna"_s), u"1x21X21X21X21X"_s);
    const QString nuova =
        u"%1 %2 1X21X21X21X21X"_s.arg(controllo<QLineEdit>(frm, u"txtStagione"_s)->text(),
                                      controllo<QLineEdit>(frm, u"txtConcorso"_s)->text());
    if (guasto == u"pieno"_s)
        QVERIFY(b.disco->riempi());
    if (guasto == u"testo"_s)
        QVERIFY(DiscoProva::bloccaFile(b.file(u"Archivio.txt"_s)).isEmpty());

    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdInserisci"_s), Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    const QString detto =
        b.boxDice(0, Dialoghi::Tipo::Critico, {testo(Archivio::NonModificato), causa});
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    QCOMPARE(Fotografia::di(b).differenza(prima), QString());
    QVERIFY(b.aperto(u"frmInserisci"_s));

    // Room again, or the table writable: the same press stores the contest, once.
    if (guasto == u"pieno"_s)
        b.disco->libera();
    else if (guasto == u"testo"_s)
        QVERIFY(DiscoProva::sbloccaFile(b.file(u"Archivio.txt"_s)).isEmpty());
    else
        QVERIFY(DiscoProva::sbloccaFile(b.db()).isEmpty());
    b.a.dialoghi.svuota();
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdInserisci"_s), Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{Inserito});
    QCOMPARE(b.a.stato().NumeroColonne(), prima.numero + 1);
    const QStringList righe = b.righeFile();
    QCOMPARE(std::count_if(righe.cbegin(), righe.cend(),
                           [&nuova](const QString &r) { return r.startsWith(nuova + u' '); }),
             1);
    QVERIFY(righe.last().startsWith(nuova + u' '));
    QCOMPARE(b.disaccordo(), QString());
    QVERIFY(!b.a.stato().tabellaArchivio().inMemoria());
    QCOMPARE(impronta(b.file(u"ArchivioPrecedente.txt"_s)), prima.testo);
}

void TstGuasti::gestioneNonRiuscita_data() {
    QTest::addColumn<bool>("elimina");
    QTest::addColumn<QString>("guasto");
    QTest::addColumn<QString>("causa");
    QTest::newRow("modifica, disco pieno") << false << u"pieno"_s << u"il disco è pieno"_s;
    QTest::newRow("modifica, tabella di sola lettura")
        << false << u"sola lettura"_s << u"il file è di sola lettura"_s;
    QTest::newRow("eliminazione, disco pieno") << true << u"pieno"_s << u"il disco è pieno"_s;
    QTest::newRow("eliminazione, tabella di sola lettura")
        << true << u"sola lettura"_s << u"il file è di sola lettura"_s;
}

void TstGuasti::gestioneNonRiuscita() {
    QFETCH(bool, elimina);
    QFETCH(QString, guasto);
    QFETCH(QString, causa);
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    if (guasto == u"sola lettura"_s) {
        scriviTabella(b.db(), righeDi(b.archivio));
        QVERIFY(DiscoProva::bloccaFile(b.db()).isEmpty());
    }
    QVERIFY(b.a.avvia());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    const Fotografia prima = Fotografia::di(b);
    QWidget *frm = b.apri(u"mnuModifica"_s, u"frmGestione"_s);
    QVERIFY(frm);
    QTest::mouseClick(controllo<QPushButton>(frm, u"dbPrecedente"_s), Qt::LeftButton);
    if (!elimina)
        scriviSopra(controllo<QLineEdit>(frm, u"txtStagione"_s), u"1999"_s);
    if (guasto == u"pieno"_s)
        QVERIFY(b.disco->riempi());
    const auto premi = [&] {
        if (elimina)
            b.a.dialoghi.risposte.enqueue(true);
        QTest::mouseClick(controllo<QPushButton>(frm, elimina ? u"cmdElimina"_s : u"Command1"_s),
                          Qt::LeftButton);
    };
    premi();
    const int primo = elimina ? 1 : 0;
    QCOMPARE(b.a.dialoghi.boxes.size(), primo + 1);
    const QString detto =
        b.boxDice(primo, Dialoghi::Tipo::Critico, {testo(Archivio::NonModificato), causa});
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    QCOMPARE(Fotografia::di(b).differenza(prima), QString());
    QVERIFY(b.aperto(u"frmGestione"_s));

    if (guasto == u"pieno"_s)
        b.disco->libera();
    else
        QVERIFY(DiscoProva::sbloccaFile(b.db()).isEmpty());
    b.a.dialoghi.svuota();
    premi();
    QCOMPARE(b.a.dialoghi.testi().last(), elimina ? u"La colonna è stata eliminata dall'archivio."_s
                                                  : u"Modifiche effettuate."_s);
    QCOMPARE(b.disaccordo(), QString());
    QList<RigaArchivio> attese = prima.memoria;
    if (elimina) {
        attese.removeAt(attese.size() - 2);
    } else {
        attese[attese.size() - 2][0] = u"1999"_s;
    }
    QCOMPARE(b.a.stato().ColonneArchivio.righe(), attese);
}

void TstGuasti::riparazioneNonRiuscita() {
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    const QStringList sulSito = archivioSintetico(310, 5);
    QTemporaryDir sito;
    QVERIFY(QDir(sito.path()).mkdir(u"AggiornamentiVp"_s));
    ArchivioColonne pagina = ArchivioColonne::daRighe(sulSito);
    FileDati::scriviByte(sito.filePath(u"AggiornamentiVp/ColonneTotocalcio.htm"_s), [&] {
        QByteArray byte;
        for (int i = 0; i < pagina.numero(); ++i) {
            byte += QByteArray::number(i + 1) + ' ';
            for (const QString &campo : pagina.riga(i))
                byte += campo.toLatin1() + ' ';
            byte += '\n';
        }
        return byte;
    }());
    QVERIFY(QDir(sito.path()).mkdir(u"vespara"_s));
    QVERIFY(QFile::copy(AmbienteProva::datiConsegnati() + u"/Quote.txt"_s,
                        sito.filePath(u"vespara/Quote.html"_s)));
    ServerHttp server(sito.path());
    QVERIFY(server.avvia());
    b.a.impostaSito(server.radice());
    QVERIFY(b.a.avvia());
    const Fotografia prima = Fotografia::di(b);
    const auto ripara = [&b] {
        b.a.dialoghi.svuota();
        QWidget *frm = b.apri(u"mnuSoloArchivi"_s, u"frmAggiornaSoloArchivi"_s);
        QVERIFY(frm);
        QTest::mouseClick(controllo<QPushButton>(frm, u"cmdAggiorna"_s), Qt::LeftButton);
    };
    QVERIFY(b.disco->riempi());
    ripara();
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    // A refresh that stopped: the warning of the network, with the cause and what it left.
    const QString detto = b.boxDice(0, Dialoghi::Tipo::Avviso,
                                    {testo(Archivio::NonModificato), u"il disco è pieno"_s,
                                     u"Lasciati come erano: Archivio.txt."_s});
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    QCOMPARE(b.a.dialoghi.boxes.first().titolo, Dialoghi::titoloAggiornamenti());
    QCOMPARE(Fotografia::di(b).differenza(prima), QString());

    b.disco->libera();
    ripara();
    QVERIFY2(b.a.dialoghi.testi().contains(u"Gli archivi sono stati aggiornati."_s),
             qPrintable(b.a.dialoghi.testi().join(u" | "_s)));
    QCOMPARE(b.a.stato().ColonneArchivio.righe(), righeDi(sulSito));
    QCOMPARE(b.disaccordo(), QString());
}

void TstGuasti::confermaRifiutataRimetteTutto() {
    // The table refuses its commit once Archivio.txt and the previous generation are written:
    // both are put back as they were, byte for byte.
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    b.a.scrivi(u"ArchivioPrecedente.txt"_s, archivioSintetico(290));
    QVERIFY(b.a.avvia());
    const Fotografia prima = Fotografia::di(b);
    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    scriviSopra(controllo<QLineEdit>(frm, u"txtColonna"_s), u"1X21X21X21X21X"_s);
    {
        RifiutoConferma rifiuto(b.db(), {});
        QVERIFY2(rifiuto.errore().isEmpty(), qPrintable(rifiuto.errore()));
        QTest::mouseClick(controllo<QPushButton>(frm, u"cmdInserisci"_s), Qt::LeftButton);
        QCOMPARE(rifiuto.chiamate(), 1);
    }
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    const QString detto =
        b.boxDice(0, Dialoghi::Tipo::Critico, {testo(Archivio::NonModificato), u"archivio.db"_s});
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    QCOMPARE(Fotografia::di(b).differenza(prima), QString());

    b.a.dialoghi.svuota();
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdInserisci"_s), Qt::LeftButton);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{Inserito});
    QCOMPARE(b.a.stato().NumeroColonne(), prima.numero + 1);
    QCOMPARE(b.disaccordo(), QString());
}

void TstGuasti::doppioGuastoDiceCheIlConcorsoCE() {
    // The table's commit fails once Archivio.txt is written, and by then the text file has become
    // read-only, so the old one can't be put back either: the change stays, the three copies
    // agree on it, and the user is told that the contest is stored.
    Banco b;
    QVERIFY2(b.disco->valido(), qPrintable(b.disco->errore()));
    QVERIFY(b.a.avvia());
    const QString percorsoTesto = b.file(u"Archivio.txt"_s);
    const QByteArray precedentePrima = impronta(b.file(u"ArchivioPrecedente.txt"_s));
    QString blocco = u"non chiamato"_s;
    RifiutoConferma rifiuto(b.db(), [&] { blocco = DiscoProva::bloccaFile(percorsoTesto); });
    QVERIFY2(rifiuto.errore().isEmpty(), qPrintable(rifiuto.errore()));
    const auto sblocca = qScopeGuard([&] {
        if (blocco.isEmpty())
            DiscoProva::sbloccaFile(percorsoTesto);
    });

    QWidget *frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QVERIFY(frm);
    scriviSopra(controllo<QLineEdit>(frm, u"txtColonna"_s), u"1X21X21X21X21X"_s);
    const QString concorso = controllo<QLineEdit>(frm, u"txtConcorso"_s)->text();
    QTest::mouseClick(controllo<QPushButton>(frm, u"cmdInserisci"_s), Qt::LeftButton);
    QCOMPARE(rifiuto.chiamate(), 1);
    QVERIFY2(blocco.isEmpty(), qPrintable(blocco));
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    const QString detto =
        b.boxDice(0, Dialoghi::Tipo::Avviso,
                  {Inserito, testo(Archivio::ModificaRegistrata), u"archivio.db"_s});
    QVERIFY2(detto.isEmpty(), qPrintable(detto));
    QCOMPARE(b.a.stato().NumeroColonne(), b.archivio.size() + 1);
    QCOMPARE(b.righeFile().size(), b.archivio.size() + 1);
    QCOMPARE(b.disaccordo(), QString());
    QVERIFY(b.a.stato().tabellaArchivio().inMemoria());
    // The previous generation is the old text, as after any entry.
    QVERIFY(impronta(b.file(u"ArchivioPrecedente.txt"_s)) != precedentePrima);
    QCOMPARE(righeDi(FileDati::leggiRighe(b.file(u"ArchivioPrecedente.txt"_s))),
             righeDi(b.archivio));
    // The entry screen shows the stored contest as the last one: a second entry would be a new
    // contest, not this one again.
    frm = b.apri(u"mnuInserisci"_s, u"frmInserisci"_s);
    QCOMPARE(controllo<QLabel>(frm, u"lblConcorso"_s)->text(), concorso);

    // The next start brings the table in line, without a word.
    b.a.dialoghi.svuota();
    QVERIFY(b.a.avvia());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QVERIFY(!b.a.stato().tabellaArchivio().inMemoria());
    QCOMPARE(b.disaccordo(), QString());
}

void TstGuasti::causeDiScrittura_data() {
    QTest::addColumn<QString>("guasto");
    QTest::addColumn<QString>("causa");
    QTest::addColumn<int>("quante"); // lines written
    QTest::newRow("disco pieno") << u"pieno"_s << u"il disco è pieno"_s << 2000;
    // Fewer bytes than QSaveFile's buffer: they meet the full disk only when it is flushed.
    QTest::newRow("disco pieno, poche righe") << u"pieno"_s << u"il disco è pieno"_s << 3;
    QTest::newRow("file di sola lettura") << u"file"_s << u"il file è di sola lettura"_s << 2000;
    QTest::newRow("cartella di sola lettura")
        << u"cartella"_s << u"la cartella è di sola lettura"_s << 2000;
    QTest::newRow("file system di sola lettura")
        << u"file system"_s << u"il disco (file system) è di sola lettura"_s << 2000;
    QTest::newRow("cartella inesistente") << u"manca"_s << u"la cartella non esiste"_s << 2000;
}

void TstGuasti::causeDiScrittura() {
    QFETCH(QString, guasto);
    QFETCH(QString, causa);
    QFETCH(int, quante);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    DiscoProva disco(dir.path(), 256 * 1024);
    QVERIFY2(disco.valido(), qPrintable(disco.errore()));
    QString percorso = dir.filePath(u"Quote.txt"_s);
    const QByteArray vecchio("vecchio\r\n");
    QVERIFY(scriviGrezzo(percorso, vecchio));
    // A user who may not write in the folder: root may everywhere.
    uid_t utente = geteuid();
    auto torna = qScopeGuard([&utente] {
        if (geteuid() != utente)
            QVERIFY(seteuid(utente) == 0);
    });
    if (guasto == u"pieno"_s) {
        QVERIFY(disco.riempi());
    } else if (guasto == u"file"_s) {
        QVERIFY(DiscoProva::bloccaFile(percorso).isEmpty());
    } else if (guasto == u"cartella"_s) {
        QVERIFY(QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::ExeOwner |
                                                      QFile::ReadOther | QFile::ExeOther));
        QVERIFY(seteuid(65534) == 0);
    } else if (guasto == u"file system"_s) {
        QVERIFY(disco.soloLettura(true));
    } else {
        percorso = dir.filePath(u"manca/Quote.txt"_s);
    }
    QStringList righe;
    for (int i = 0; i < quante; ++i)
        righe.append(u"riga %1 delle quote"_s.arg(i));
    const QString t = errore([&] { FileDati::scriviRighe(percorso, righe); });
    if (guasto == u"cartella"_s)
        QVERIFY(seteuid(utente) == 0);
    if (guasto == u"file"_s)
        QVERIFY(DiscoProva::sbloccaFile(percorso).isEmpty());
    QVERIFY2(!t.isNull(), "la scrittura è riuscita");
    QVERIFY2(t.startsWith(u"Impossibile scrivere il file "_s + QDir::toNativeSeparators(percorso) +
                          u": "_s + causa + u"."_s),
             qPrintable(t));
    QVERIFY2(inglese(t).isEmpty(), qPrintable(t));
    if (guasto != u"manca"_s)
        QCOMPARE(contenuto(percorso), vecchio);
}

// The mount namespace comes first, before the application or any thread.
int main(int argc, char *argv[]) {
    isolamento = DiscoProva::isola();
    QApplication app(argc, argv);
    TstGuasti prova;
    return QTest::qExec(&prova, argc, argv);
}

#include "tst_guasti.moc"
