#include "piattaforma/filedati.h"

#include "piattaforma/erroreesecuzione.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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
    if (!file.open(QIODevice::ReadOnly))
        throw ErroreEsecuzione(u"Impossibile leggere il file %1: %2"_s.arg(
            QDir::toNativeSeparators(percorsoFile), file.errorString()));
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
    QSaveFile file(percorsoFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(contenuto) != contenuto.size() ||
        !file.commit())
        throw ErroreEsecuzione(u"Impossibile scrivere il file %1: %2"_s.arg(
            QDir::toNativeSeparators(percorsoFile), file.errorString()));
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
    if (file.exists() && !file.remove())
        throw ErroreEsecuzione(u"Impossibile eliminare il file %1: %2"_s.arg(
            QDir::toNativeSeparators(percorsoFile), file.errorString()));
}
