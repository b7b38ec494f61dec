#include "piattaforma/tabellaarchivio.h"

#include "piattaforma/erroreesecuzione.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

QSqlDatabase database(const QString &nome) {
    return QSqlDatabase::database(nome, false);
}

[[noreturn]] void guasto(const QString &cosa, const QSqlError &errore) {
    throw ErroreEsecuzione(u"Archivio database: %1.\n%2"_s.arg(cosa, errore.text()));
}

QString elencoCampi() {
    return TabellaArchivio::nomiCampi().join(u", "_s);
}

} // namespace

const QStringList &TabellaArchivio::nomiCampi() {
    static const QStringList nomi{u"Stagione"_s,     u"Concorso"_s,  u"Colonna"_s,
                                  u"Uno"_s,          u"Ics"_s,       u"Due"_s,
                                  u"Interruzioni"_s, u"Simmetrie"_s, u"Parallele"_s};
    return nomi;
}

TabellaArchivio::TabellaArchivio(const QString &percorsoFile)
    : m_percorso(percorsoFile)
    , m_nomeConnessione(u"archivio-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces)) {
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_nomeConnessione);
    db.setDatabaseName(percorsoFile);
    if (!db.open()) {
        const QSqlError errore = db.lastError();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_nomeConnessione);
        throw ErroreEsecuzione(u"Impossibile aprire il database %1.\n%2"_s.arg(
            QDir::toNativeSeparators(percorsoFile), errore.text()));
    }
    if (!db.tables().contains(QString::fromLatin1(NomeTabella))) {
        QStringList campi;
        for (const QString &nome : nomiCampi())
            campi.append(nome + u" TEXT"_s);
        esegui(u"CREATE TABLE Archivio (%1)"_s.arg(campi.join(u", "_s)));
        m_creata = true;
    }
    aggiorna();
}

TabellaArchivio::~TabellaArchivio() {
    {
        QSqlDatabase db = database(m_nomeConnessione);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_nomeConnessione);
}

void TabellaArchivio::esegui(const QString &sql, const QList<QVariant> &valori) const {
    QSqlQuery q(database(m_nomeConnessione));
    if (!q.prepare(sql))
        guasto(u"comando non valido"_s, q.lastError());
    for (const QVariant &v : valori)
        q.addBindValue(v);
    if (!q.exec())
        guasto(u"operazione non riuscita"_s, q.lastError());
}

void TabellaArchivio::aggiorna() {
    QSqlQuery q(database(m_nomeConnessione));
    q.setForwardOnly(true);
    if (!q.exec(u"SELECT rowid FROM Archivio ORDER BY rowid"_s))
        guasto(u"lettura non riuscita"_s, q.lastError());
    m_id.clear();
    while (q.next())
        m_id.append(q.value(0).toLongLong());
    m_posizione = 0;
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
        guasto(u"lettura della riga non riuscita"_s, q.lastError());
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
        guasto(u"inserimento non riuscito"_s, q.lastError());
    m_id.append(q.lastInsertId().toLongLong());
}

QList<RigaArchivio> TabellaArchivio::tutte() const {
    QSqlQuery q(database(m_nomeConnessione));
    q.setForwardOnly(true);
    if (!q.exec(u"SELECT %1 FROM Archivio ORDER BY rowid"_s.arg(elencoCampi())))
        guasto(u"lettura non riuscita"_s, q.lastError());
    QList<RigaArchivio> righe;
    while (q.next()) {
        RigaArchivio r;
        for (int i = 0; i < CampiRigaArchivio; ++i)
            r[i] = q.value(i).toString();
        righe.append(r);
    }
    return righe;
}

void TabellaArchivio::ricostruisci(const QList<RigaArchivio> &righe) {
    QSqlDatabase db = database(m_nomeConnessione);
    if (!db.transaction())
        guasto(u"transazione non avviata"_s, db.lastError());
    try {
        esegui(u"DELETE FROM Archivio"_s);
        QSqlQuery q(db);
        q.prepare(
            u"INSERT INTO Archivio (%1) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s.arg(elencoCampi()));
        for (const RigaArchivio &r : righe) {
            for (int c = 0; c < CampiRigaArchivio; ++c)
                q.bindValue(c, r[c]);
            if (!q.exec())
                guasto(u"inserimento non riuscito"_s, q.lastError());
        }
        if (!db.commit())
            guasto(u"conferma della transazione non riuscita"_s, db.lastError());
    } catch (...) {
        db.rollback();
        aggiorna();
        throw;
    }
    aggiorna();
}
