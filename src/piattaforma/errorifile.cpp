#include "piattaforma/errorifile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDevice>
#include <QFileInfo>
#include <QSqlError>
#include <QStorageInfo>

#include <algorithm>
#include <cerrno>
#include <optional>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

using Causa = ErroriFile::Causa;

// SQLite's primary result codes (the low byte of an extended one).
constexpr int SqlitePerm = 3;
constexpr int SqliteBusy = 5;
constexpr int SqliteLocked = 6;
constexpr int SqliteReadOnly = 8;
constexpr int SqliteIoErr = 10;
constexpr int SqliteCorrupt = 11;
constexpr int SqliteFull = 13;
constexpr int SqliteCantOpen = 14;
constexpr int SqliteNotADb = 26;

#ifdef Q_OS_UNIX
int scrivibile(const QByteArray &percorso) {
    return faccessat(AT_FDCWD, percorso.constData(), W_OK, AT_EACCESS);
}

bool fileSystemSolaLettura(const QString &percorso) {
    struct statvfs sv {};
    return statvfs(QFile::encodeName(percorso).constData(), &sv) == 0 && (sv.f_flag & ST_RDONLY);
}
#endif

// What the folder and the file themselves say, whatever the failing call was.
std::optional<Causa> causaDelLuogo(const QString &percorso) {
    const QFileInfo file(percorso);
    const QString cartella = file.absolutePath();
    const QFileInfo infoCartella(cartella);
    if (!infoCartella.exists() || !infoCartella.isDir())
        return Causa::CartellaInesistente;
#ifdef Q_OS_UNIX
    // Asked with the effective user, the one that writes. Root is refused only by the file
    // system: a read-only mount.
    const QByteArray nomeCartella = QFile::encodeName(cartella);
    if (fileSystemSolaLettura(cartella))
        return Causa::FileSystemSolaLettura;
    if (scrivibile(nomeCartella) != 0)
        return errno == EROFS ? Causa::FileSystemSolaLettura : Causa::CartellaSolaLettura;
    if (file.exists()) {
        if (file.isDir())
            return Causa::CartellaAlPosto;
        // A file can be mounted read-only on its own in a writable folder.
        if (fileSystemSolaLettura(file.absoluteFilePath()) ||
            scrivibile(QFile::encodeName(file.absoluteFilePath())) != 0)
            return Causa::FileSolaLettura;
    }
#else
    if (!infoCartella.isWritable())
        return Causa::CartellaSolaLettura;
    if (file.exists()) {
        if (file.isDir())
            return Causa::CartellaAlPosto;
        if (!file.isWritable())
            return Causa::FileSolaLettura;
    }
#endif
    return std::nullopt;
}

bool discoPieno(const QString &percorso, qint64 byte) {
    const QStorageInfo disco(QFileInfo(percorso).absolutePath());
    if (!disco.isValid() || disco.isReadOnly())
        return false;
    // Less than one block beyond what was to be written: the write ran out of room.
    const qint64 margine = std::max<qint64>(disco.blockSize(), 4096);
    return disco.bytesAvailable() < std::max<qint64>(byte, 0) + margine;
}

// The system's text is a detail only when it says something.
QString dettaglioUtile(const QString &dettaglio) {
    const QString pulito = dettaglio.trimmed();
    if (pulito.isEmpty() || pulito == u"Unknown error"_s ||
        pulito == QCoreApplication::translate("QIODevice", "Unknown error"))
        return {};
    return pulito;
}

} // namespace

ErroriFile::Causa ErroriFile::causaScrittura(const QString &percorso, int codiceErrno,
                                             qint64 byte) {
    if (const auto luogo = causaDelLuogo(percorso))
        return *luogo;
    switch (codiceErrno) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return Causa::DiscoPieno;
    case EROFS:
        return Causa::FileSystemSolaLettura;
    default:
        break;
    }
    if (discoPieno(percorso, byte))
        return Causa::DiscoPieno;
    switch (codiceErrno) {
    case EBUSY:
    case ETXTBSY:
        return Causa::FileInUso;
    case EACCES:
    case EPERM:
        return Causa::AccessoNegato;
    case ENOENT:
    case ENOTDIR:
        return Causa::CartellaInesistente;
    default:
        return Causa::Sconosciuta;
    }
}

ErroriFile::Causa ErroriFile::causaLettura(const QString &percorso, int codiceErrno) {
    const QFileInfo file(percorso);
    const QFileInfo cartella(file.absolutePath());
    if (!cartella.exists() || !cartella.isDir())
        return Causa::CartellaInesistente;
    if (!file.exists())
        return Causa::FileInesistente;
    if (file.isDir())
        return Causa::CartellaAlPosto;
    switch (codiceErrno) {
    case EACCES:
    case EPERM:
        return Causa::AccessoNegato;
    case EBUSY:
    case ETXTBSY:
        return Causa::FileInUso;
    default:
        return file.isReadable() ? Causa::Sconosciuta : Causa::AccessoNegato;
    }
}

ErroriFile::Causa ErroriFile::causaSqlite(const QString &percorso, const QSqlError &errore) {
    bool numero = false;
    const int codice = errore.nativeErrorCode().toInt(&numero) & 0xff;
    if (!numero)
        return Causa::Sconosciuta;
    switch (codice) {
    case SqliteFull:
        return Causa::DiscoPieno;
    case SqliteBusy:
    case SqliteLocked:
        return Causa::FileInUso;
    case SqliteCorrupt:
    case SqliteNotADb:
        return Causa::Danneggiato;
    case SqliteReadOnly:
    case SqliteIoErr:
    case SqliteCantOpen:
    case SqlitePerm:
        break;
    default:
        // A fault of the statement or of the table, not of the file.
        return Causa::Sconosciuta;
    }
    const Causa luogo = causaScrittura(percorso);
    if (luogo != Causa::Sconosciuta)
        return luogo;
    switch (codice) {
    case SqliteReadOnly:
        return Causa::FileSolaLettura;
    case SqliteCantOpen:
        return Causa::NonApribile;
    case SqlitePerm:
        return Causa::AccessoNegato;
    default:
        return Causa::Sconosciuta;
    }
}

QString ErroriFile::descrizione(Causa causa) {
    switch (causa) {
    case Causa::DiscoPieno:
        return u"il disco è pieno"_s;
    case Causa::FileSolaLettura:
        return u"il file è di sola lettura"_s;
    case Causa::CartellaSolaLettura:
        return u"la cartella è di sola lettura"_s;
    case Causa::FileSystemSolaLettura:
        return u"il disco (file system) è di sola lettura"_s;
    case Causa::CartellaInesistente:
        return u"la cartella non esiste"_s;
    case Causa::FileInesistente:
        return u"il file non esiste"_s;
    case Causa::CartellaAlPosto:
        return u"al suo posto c'è una cartella"_s;
    case Causa::FileInUso:
        return u"il file è in uso da un altro programma"_s;
    case Causa::AccessoNegato:
        return u"accesso negato (permessi insufficienti)"_s;
    case Causa::Danneggiato:
        return u"il file è danneggiato o non è un database"_s;
    case Causa::NonApribile:
        return u"il file non si può aprire"_s;
    case Causa::Sconosciuta:
        break;
    }
    return u"il sistema non ha completato l'operazione"_s;
}

QString ErroriFile::testo(const QString &verbo, const QString &percorso, Causa causa,
                          const QString &dettaglio) {
    QString t = u"Impossibile %1 il file %2: %3."_s.arg(verbo, QDir::toNativeSeparators(percorso),
                                                        descrizione(causa));
    if (const QString d = dettaglioUtile(dettaglio); !d.isEmpty())
        t += u" (dettaglio: %1)"_s.arg(d);
    return t;
}

bool ErroriFile::Errore::danno() const noexcept {
    switch (m_causa) {
    case Causa::Danneggiato:
    case Causa::CartellaAlPosto:
    case Causa::NonApribile:
    case Causa::Sconosciuta:
        return true;
    default:
        return false;
    }
}

ErroriFile::Errore ErroriFile::scrittura(const QFileDevice &file, int codiceErrno, qint64 byte) {
    // Qt marks a write that ran out of room as a resource error.
    if (codiceErrno == 0 && file.error() == QFileDevice::ResourceError)
        codiceErrno = ENOSPC;
    return scrittura(file.fileName(), file.errorString(), codiceErrno, byte);
}

ErroriFile::Errore ErroriFile::scrittura(const QString &percorso, const QString &dettaglio,
                                         int codiceErrno, qint64 byte) {
    return errore(u"scrivere"_s, percorso, causaScrittura(percorso, codiceErrno, byte), dettaglio);
}

ErroriFile::Errore ErroriFile::lettura(const QFileDevice &file, int codiceErrno) {
    return errore(u"leggere"_s, file.fileName(), causaLettura(file.fileName(), codiceErrno),
                  file.errorString());
}
