#include "piattaforma/filedati.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

QString FileDati::percorso(const QString &cartella, const QString &nome) {
    QDir dir(cartella);
    if (dir.exists(nome))
        return dir.filePath(nome);
    const QStringList voci = dir.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &voce : voci)
        if (voce.compare(nome, Qt::CaseInsensitive) == 0)
            return dir.filePath(voce);
    return dir.filePath(nome);
}

bool FileDati::esiste(const QString &cartella, const QString &nome) {
    return QFileInfo(percorso(cartella, nome)).isFile();
}

QStringList FileDati::leggiRighe(const QString &percorsoFile) {
    QFile file(percorsoFile);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        const int codice = errno;
        throw ErroriFile::lettura(file, codice);
    }
    const QByteArray contenuto = file.readAll();
    QStringList righe;
    qsizetype inizio = 0;
    const qsizetype n = contenuto.size();
    while (inizio < n) {
        qsizetype fine = contenuto.indexOf('\n', inizio);
        const qsizetype prossimo = fine < 0 ? n : fine + 1;
        if (fine < 0)
            fine = n;
        qsizetype taglio = fine;
        if (taglio > inizio && contenuto.at(taglio - 1) == '\r')
            --taglio;
        righe.append(decodifica(QByteArrayView(contenuto).sliced(inizio, taglio - inizio)));
        inizio = prossimo;
    }
    return righe;
}

QString FileDati::leggiPrimaRiga(const QString &percorsoFile) {
    const QStringList righe = leggiRighe(percorsoFile);
    return righe.isEmpty() ? QString() : righe.first();
}

void FileDati::scriviRighe(const QString &percorsoFile, const QStringList &righe) {
    QByteArray contenuto;
    for (const QString &riga : righe) {
        contenuto += codifica(riga);
        contenuto += "\r\n";
    }
    scriviByte(percorsoFile, contenuto);
}

void FileDati::scriviByte(const QString &percorsoFile, const QByteArray &contenuto) {
    errno = 0;
    QSaveFile file(percorsoFile);
    // The buffer is flushed and the bytes sent to the disk before the commit: QSaveFile renames
    // its file even when the flush inside commit() failed, and a full disk would leave a
    // truncated file in place of the old one.
    bool scritto = file.open(QIODevice::WriteOnly) && file.write(contenuto) == contenuto.size() &&
                   file.flush();
#ifdef Q_OS_UNIX
    scritto = scritto && ::fsync(file.handle()) == 0;
#endif
    if (!scritto || !file.commit()) {
        const int codice = errno;
        throw ErroriFile::scrittura(file, codice, contenuto.size());
    }
}

void FileDati::sostituisci(const QString &cartella, const QString &nome, const QStringList &righe) {
    const QDir dir(cartella);
    scriviRighe(dir.filePath(nome), righe);
    const QStringList voci = dir.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &voce : voci)
        if (voce != nome && voce.compare(nome, Qt::CaseInsensitive) == 0)
            elimina(dir.filePath(voce));
}

void FileDati::elimina(const QString &percorsoFile) {
    QFile file(percorsoFile);
    errno = 0;
    if (file.exists() && !file.remove()) {
        const int codice = errno;
        throw ErroriFile::errore(u"eliminare"_s, percorsoFile,
                                 ErroriFile::causaScrittura(percorsoFile, codice),
                                 file.errorString());
    }
}
