#include "supporto/strumentiprova.h"

#include "piattaforma/erroreesecuzione.h"

#include <QFile>

namespace StrumentiProva {

QByteArray contenuto(const QString &percorso) {
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return "<illeggibile>";
    return f.readAll();
}

bool scriviGrezzo(const QString &percorso, const QByteArray &byte) {
    QFile f(percorso);
    return f.open(QIODevice::WriteOnly) && f.write(byte) == byte.size();
}

QString errore(const std::function<void()> &azione) {
    try {
        azione();
    } catch (const ErroreEsecuzione &e) {
        return e.testo().isNull() ? QStringLiteral("") : e.testo();
    }
    return QString();
}

} // namespace StrumentiProva
