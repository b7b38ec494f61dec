#include "supporto/discoprova.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString sistema(const char *cosa) {
    return u"%1: %2"_s.arg(QString::fromLatin1(cosa), QString::fromLocal8Bit(std::strerror(errno)));
}

QByteArray nome(const QString &percorso) {
    return QFile::encodeName(percorso);
}

const char *const Riempitivo = ".riempitivo";

} // namespace

QString DiscoProva::isola() {
    if (unshare(CLONE_NEWNS) != 0)
        return sistema("unshare(CLONE_NEWNS) non permesso") +
               u" (servono i privilegi di root o CAP_SYS_ADMIN)"_s;
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return sistema("mount di / come privata non riuscito");
    return {};
}

DiscoProva::DiscoProva(const QString &cartella, qint64 byte)
    : m_cartella(cartella) {
    QDir dir(cartella);
    QHash<QString, QByteArray> file;
    for (const QString &voce : dir.entryList(QDir::Files | QDir::Hidden)) {
        QFile f(dir.filePath(voce));
        if (!f.open(QIODevice::ReadOnly)) {
            m_errore = u"non leggo %1"_s.arg(f.fileName());
            return;
        }
        file.insert(voce, f.readAll());
    }
    const QByteArray opzioni = "size=" + QByteArray::number(byte) + ",mode=0755";
    if (mount("tmpfs", nome(cartella).constData(), "tmpfs", 0, opzioni.constData()) != 0) {
        m_errore = sistema("mount di un tmpfs non permesso");
        return;
    }
    m_montato = true;
    for (auto it = file.cbegin(); it != file.cend(); ++it) {
        QFile f(dir.filePath(it.key()));
        if (!f.open(QIODevice::WriteOnly) || f.write(it.value()) != it.value().size()) {
            m_errore = u"il tmpfs di %1 è troppo piccolo per i suoi file"_s.arg(cartella);
            return;
        }
    }
}

DiscoProva::~DiscoProva() {
    if (m_montato)
        umount2(nome(m_cartella).constData(), MNT_DETACH);
}

bool DiscoProva::riempi() {
    const QByteArray percorso = nome(QDir(m_cartella).filePath(QString::fromLatin1(Riempitivo)));
    const int fd = open(percorso.constData(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (fd < 0)
        return false;
    // Big pieces first, then ever smaller ones, down to the last byte.
    const QByteArray blocco(64 * 1024, 'r');
    for (qsizetype pezzo = blocco.size(); pezzo > 0; pezzo /= 4) {
        while (write(fd, blocco.constData(), size_t(pezzo)) > 0) {
        }
        if (errno != ENOSPC) {
            close(fd);
            return false;
        }
    }
    close(fd);
    return true;
}

void DiscoProva::libera() {
    QFile::remove(QDir(m_cartella).filePath(QString::fromLatin1(Riempitivo)));
}

bool DiscoProva::soloLettura(bool si) {
    const unsigned long opzioni = MS_REMOUNT | (si ? MS_RDONLY : 0);
    return mount(nullptr, nome(m_cartella).constData(), nullptr, opzioni, nullptr) == 0;
}

QString DiscoProva::bloccaFile(const QString &percorso) {
    const QByteArray n = nome(percorso);
    if (mount(n.constData(), n.constData(), nullptr, MS_BIND, nullptr) != 0)
        return sistema("bind mount del file non riuscito");
    if (mount(nullptr, n.constData(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) != 0)
        return sistema("bind mount di sola lettura non riuscito");
    return {};
}

QString DiscoProva::sbloccaFile(const QString &percorso) {
    if (umount2(nome(percorso).constData(), MNT_DETACH) != 0)
        return sistema("umount del file non riuscito");
    return {};
}
