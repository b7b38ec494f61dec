#include "piattaforma/tabellaarchivio.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

QSqlDatabase database(const QString &nome) {
    return QSqlDatabase::database(nome, false);
}

QString elencoCampi() {
    return TabellaArchivio::nomiCampi().join(u", "_s);
}

// The files SQLite keeps beside a database while it writes: they belong to it.
const QStringList &suffissiCompagni() {
    static const QStringList suffissi{u"-journal"_s, u"-wal"_s, u"-shm"_s};
    return suffissi;
}

// Moves a file, or a folder, to a new name in the same folder, in place of whatever had that
// name.
void sposta(const QString &da, const QString &a) {
    const QFileInfo vecchio(a);
    if (vecchio.exists() || vecchio.isSymLink()) {
        const bool tolto = vecchio.isDir() && !vecchio.isSymLink() ? QDir(a).removeRecursively()
                                                                   : QFile::remove(a);
        if (!tolto)
            throw ErroriFile::errore(u"eliminare"_s, a, ErroriFile::causaScrittura(a, errno),
                                     QString());
    }
    errno = 0;
    if (!QDir().rename(da, a)) {
        const int codice = errno;
        throw ErroriFile::errore(u"spostare"_s, da, ErroriFile::causaScrittura(da, codice),
                                 QString());
    }
}

} // namespace

const QStringList &TabellaArchivio::nomiCampi() {
    static const QStringList nomi{u"Stagione"_s,     u"Concorso"_s,  u"Colonna"_s,
                                  u"Uno"_s,          u"Ics"_s,       u"Due"_s,
                                  u"Interruzioni"_s, u"Simmetrie"_s, u"Parallele"_s};
    return nomi;
}

TabellaArchivio::TabellaArchivio(const QString &percorsoFile, Luogo luogo)
    : m_percorso(percorsoFile)
    , m_nomeConnessione(u"archivio-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
    , m_inMemoria(luogo == Luogo::Memoria) {
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_nomeConnessione);
    db.setDatabaseName(m_inMemoria ? u":memory:"_s : percorsoFile);
    if (!db.open()) {
        const QSqlError errore = db.lastError();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_nomeConnessione);
        throw ErroriFile::errore(u"aprire"_s, percorsoFile,
                                 ErroriFile::causaSqlite(percorsoFile, errore), errore.text());
    }
    try {
        // Asked of the file itself: QSqlDatabase::tables() hides a file that is no database.
        QSqlQuery q(db);
        if (!q.exec(u"SELECT name FROM sqlite_master WHERE type = 'table' AND name = '%1'"_s.arg(
                QString::fromLatin1(NomeTabella))))
            guasto(Operazione::Lettura, q.lastError());
        if (!q.next()) {
            if (q.lastError().isValid())
                guasto(Operazione::Lettura, q.lastError());
            q.finish();
            QStringList campi;
            for (const QString &nome : nomiCampi())
                campi.append(nome + u" TEXT"_s);
            esegui(u"CREATE TABLE Archivio (%1)"_s.arg(campi.join(u", "_s)));
            m_creata = true;
        }
        aggiorna();
    } catch (...) {
        db = QSqlDatabase();
        chiudi();
        throw;
    }
}

TabellaArchivio::~TabellaArchivio() {
    chiudi();
}

void TabellaArchivio::chiudi() {
    {
        QSqlDatabase db = database(m_nomeConnessione);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_nomeConnessione);
}

void TabellaArchivio::guasto(Operazione operazione, const QSqlError &errore) const {
    if (m_inMemoria)
        throw ErroreEsecuzione(
            u"La tabella dell'archivio in memoria non risponde. (dettaglio: %1)"_s.arg(
                errore.text()));
    static constexpr const char *verbi[] = {"leggere", "scrivere"};
    throw ErroriFile::errore(QString::fromLatin1(verbi[int(operazione)]), m_percorso,
                             ErroriFile::causaSqlite(m_percorso, errore), errore.text());
}

void TabellaArchivio::esegui(const QString &sql, const QList<QVariant> &valori) const {
    QSqlQuery q(database(m_nomeConnessione));
    if (!q.prepare(sql))
        guasto(Operazione::Scrittura, q.lastError());
    for (const QVariant &v : valori)
        q.addBindValue(v);
    if (!q.exec())
        guasto(Operazione::Scrittura, q.lastError());
}

void TabellaArchivio::aggiorna() {
    QSqlQuery q(database(m_nomeConnessione));
    q.setForwardOnly(true);
    if (!q.exec(u"SELECT rowid FROM Archivio ORDER BY rowid"_s))
        guasto(Operazione::Lettura, q.lastError());
    QList<qint64> id;
    while (q.next())
        id.append(q.value(0).toLongLong());
    if (q.lastError().isValid())
        guasto(Operazione::Lettura, q.lastError());
    m_id = std::move(id);
    m_posizione = 0;
}

QList<RigaArchivio> TabellaArchivio::verifica() {
    QSqlQuery q(database(m_nomeConnessione));
    q.setForwardOnly(true);
    if (!q.exec(u"PRAGMA quick_check"_s))
        guasto(Operazione::Lettura, q.lastError());
    QStringList esito;
    while (q.next())
        esito.append(q.value(0).toString());
    if (q.lastError().isValid())
        guasto(Operazione::Lettura, q.lastError());
    if (esito != QStringList{u"ok"_s})
        throw ErroriFile::errore(u"leggere"_s, m_percorso, ErroriFile::Causa::Danneggiato,
                                 esito.mid(0, 3).join(u"; "_s));
    aggiorna();
    return tutte();
}

void TabellaArchivio::primo() {
    m_posizione = 0;
}

void TabellaArchivio::successivo() {
    if (fine())
        throw ErroreEsecuzione(u"Archivio database: nessuna riga corrente."_s);
    ++m_posizione;
}

void TabellaArchivio::precedente() {
    if (inizio())
        throw ErroreEsecuzione(u"Archivio database: nessuna riga corrente."_s);
    --m_posizione;
}

void TabellaArchivio::ultimo() {
    m_posizione = int(m_id.size()) - 1;
    // A last row deleted in this pass is no row to stand on.
    while (m_posizione >= 0 && m_id.at(m_posizione) == 0)
        --m_posizione;
}

void TabellaArchivio::vaiA(int posizione) {
    if (posizione < 0 || posizione >= m_id.size())
        throw ErroreEsecuzione(u"Archivio database: nessuna riga corrente."_s);
    m_posizione = posizione;
}

int TabellaArchivio::conteggio() const {
    return int(std::count_if(m_id.cbegin(), m_id.cend(), [](qint64 id) { return id != 0; }));
}

qint64 TabellaArchivio::idCorrente() const {
    if (inizio() || fine() || m_id.at(m_posizione) == 0)
        throw ErroreEsecuzione(u"Archivio database: nessuna riga corrente."_s);
    return m_id.at(m_posizione);
}

RigaArchivio TabellaArchivio::corrente() const {
    QSqlQuery q(database(m_nomeConnessione));
    q.prepare(u"SELECT %1 FROM Archivio WHERE rowid = ?"_s.arg(elencoCampi()));
    q.addBindValue(idCorrente());
    if (!q.exec() || !q.next())
        guasto(Operazione::Lettura, q.lastError());
    RigaArchivio r;
    for (int i = 0; i < CampiRigaArchivio; ++i)
        r[i] = q.value(i).toString();
    return r;
}

void TabellaArchivio::modifica(const RigaArchivio &riga) {
    QStringList assegna;
    QList<QVariant> valori;
    for (int i = 0; i < CampiRigaArchivio; ++i) {
        assegna.append(nomiCampi().at(i) + u" = ?"_s);
        valori.append(riga[i]);
    }
    valori.append(idCorrente());
    esegui(u"UPDATE Archivio SET %1 WHERE rowid = ?"_s.arg(assegna.join(u", "_s)), valori);
}

void TabellaArchivio::elimina() {
    esegui(u"DELETE FROM Archivio WHERE rowid = ?"_s, {idCorrente()});
    m_id[m_posizione] = 0;
}

void TabellaArchivio::aggiungi(const RigaArchivio &riga) {
    QSqlQuery q(database(m_nomeConnessione));
    q.prepare(u"INSERT INTO Archivio (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s.arg(elencoCampi()));
    for (const QString &campo : riga)
        q.addBindValue(campo);
    if (!q.exec())
        guasto(Operazione::Scrittura, q.lastError());
    m_id.append(q.lastInsertId().toLongLong());
}

QList<RigaArchivio> TabellaArchivio::tutte() const {
    QSqlQuery q(database(m_nomeConnessione));
    q.setForwardOnly(true);
    if (!q.exec(u"SELECT %1 FROM Archivio ORDER BY rowid"_s.arg(elencoCampi())))
        guasto(Operazione::Lettura, q.lastError());
    QList<RigaArchivio> righe;
    while (q.next()) {
        RigaArchivio r;
        for (int i = 0; i < CampiRigaArchivio; ++i)
            r[i] = q.value(i).toString();
        righe.append(r);
    }
    if (q.lastError().isValid())
        guasto(Operazione::Lettura, q.lastError());
    return righe;
}

int TabellaArchivio::ordineCorrente() const {
    QSqlQuery q(database(m_nomeConnessione));
    q.prepare(u"SELECT COUNT(*) FROM Archivio WHERE rowid < ?"_s);
    q.addBindValue(idCorrente());
    if (!q.exec() || !q.next())
        guasto(Operazione::Lettura, q.lastError());
    return q.value(0).toInt();
}

void TabellaArchivio::ricostruisci(const QList<RigaArchivio> &righe) {
    preparaRicostruzione(righe);
    confermaRicostruzione();
}

void TabellaArchivio::preparaRicostruzione(const QList<RigaArchivio> &righe) {
    QSqlDatabase db = database(m_nomeConnessione);
    if (!db.transaction())
        guasto(Operazione::Scrittura, db.lastError());
    try {
        esegui(u"DELETE FROM Archivio"_s);
        QSqlQuery q(db);
        if (!q.prepare(u"INSERT INTO Archivio (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s.arg(
                elencoCampi())))
            guasto(Operazione::Scrittura, q.lastError());
        for (const RigaArchivio &r : righe) {
            for (int c = 0; c < CampiRigaArchivio; ++c)
                q.bindValue(c, r[c]);
            if (!q.exec())
                guasto(Operazione::Scrittura, q.lastError());
        }
    } catch (...) {
        annullaRicostruzione();
        throw;
    }
}

void TabellaArchivio::confermaRicostruzione() {
    QSqlDatabase db = database(m_nomeConnessione);
    if (!db.commit()) {
        const QSqlError errore = db.lastError();
        annullaRicostruzione();
        guasto(Operazione::Scrittura, errore);
    }
    aggiorna();
}

void TabellaArchivio::annullaRicostruzione() noexcept {
    QSqlDatabase db = database(m_nomeConnessione);
    // A failed commit may have ended the transaction already: then there is nothing to undo.
    db.rollback();
    try {
        aggiorna();
    } catch (const ErroreEsecuzione &) {
        // The rows are as they were; only the positions could not be read again.
    }
}

QString TabellaArchivio::percorsoAccantonato(const QString &percorsoFile) {
    return QFileInfo(percorsoFile).dir().filePath(QString::fromLatin1(NomeFileDanneggiato));
}

void TabellaArchivio::accantona(const QString &percorsoFile) {
    const QString accantonato = percorsoAccantonato(percorsoFile);
    // The companions of an older copy set aside go with it.
    for (const QString &suffisso : suffissiCompagni())
        if (QFileInfo::exists(accantonato + suffisso) && !QFile::remove(accantonato + suffisso))
            throw ErroriFile::errore(u"eliminare"_s, accantonato + suffisso,
                                     ErroriFile::causaScrittura(accantonato + suffisso, errno),
                                     QString());
    sposta(percorsoFile, accantonato);
    // A journal left beside a file set aside would be played back into the new one.
    for (const QString &suffisso : suffissiCompagni())
        if (QFileInfo::exists(percorsoFile + suffisso))
            sposta(percorsoFile + suffisso, accantonato + suffisso);
}
