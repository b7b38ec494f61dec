#include "core/cartelladati.h"

#include "core/archivio.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QString CartellaDati::predefinita() {
    const QString variabile = qEnvironmentVariable("VESPARA_DATI");
    if (!variabile.isEmpty())
        return QDir::cleanPath(variabile);
#ifdef Q_OS_WIN
    return u"c:/users/public/vespara"_s;
#else
    return QDir::homePath() + u"/.local/share/vespara"_s;
#endif
}

void CartellaDati::prepara(const QString &cartella) {
    QDir dir(cartella);
    if (!dir.mkpath(u"."_s))
        throw ErroreEsecuzione(u"Impossibile creare la cartella dei dati %1."_s.arg(
            QDir::toNativeSeparators(cartella)));
    if (FileDati::esiste(cartella, QString::fromLatin1(Archivio::NomeFile)))
        return;
    const QDir origine(consegnata());
    const QStringList voci = origine.entryList(QDir::Files);
    for (const QString &nome : voci) {
        if (FileDati::esiste(cartella, nome))
            continue;
        const QString destinazione = dir.filePath(nome);
        if (!QFile::copy(origine.filePath(nome), destinazione))
            throw ErroreEsecuzione(u"Impossibile copiare %1 nella cartella dei dati %2."_s.arg(
                nome, QDir::toNativeSeparators(cartella)));
        // Copies out of the program's resources are read-only; the user's data are not.
        QFile::setPermissions(destinazione, QFile::ReadOwner | QFile::WriteOwner |
                                                QFile::ReadGroup | QFile::ReadOther);
    }
}
