#include "campionati/gestionesquadre.h"

#include <QStringList>

namespace {

// Val: the leading digits of a text, blanks skipped; 0 when there are none.
int valore(const QString &testo) {
    const QString t = testo.trimmed();
    qsizetype fine = 0;
    while (fine < t.size() && fine < 9 && t.at(fine).isDigit())
        ++fine;
    return t.left(fine).toInt();
}

} // namespace

bool GestioneSquadre::stagioneValida(const QString &stagione) {
    const QStringList anni = stagione.split(QLatin1Char('-'));
    const int primo = valore(anni.value(0));
    const int secondo = valore(anni.value(1));
    return primo >= PrimaStagione && secondo <= primo + 1;
}
