#include "aggiornamenti/versione.h"

#include "piattaforma/rete.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

int elemento(const QStringList &parti, int i) {
    bool ok = false;
    const short n = parti.value(i).trimmed().toShort(&ok);
    return ok ? n : 0;
}

} // namespace

Versione Versione::leggi(const QString &testo) {
    const QStringList parti = testo.split(u'.');
    return {elemento(parti, 0), elemento(parti, 1), elemento(parti, 2)};
}

Versione Versione::delProgramma() {
    const QString propria = QCoreApplication::applicationVersion();
    if (!propria.isEmpty())
        return leggi(propria);
    return {VESPARA_VERSIONE_MAGGIORE, VESPARA_VERSIONE_MINORE, VESPARA_REVISIONE};
}

bool Versione::piuRecenteDi(const Versione &p) const {
    if (maggiore > p.maggiore)
        return true;
    if (minore > p.minore && maggiore >= p.maggiore)
        return true;
    return revisione > p.revisione && minore >= p.minore && maggiore >= p.maggiore;
}

bool Versione::piuRecente(const QString &testo, const Versione &programma) {
    return leggi(testo).piuRecenteDi(programma);
}

QString Versione::scarica(Rete &rete) {
    return rete.scaricaPagina(QString::fromUtf16(Pagina)).trimmed();
}
