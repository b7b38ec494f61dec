#include "piattaforma/dialoghi.h"

QString Dialoghi::titoloApplicazione() {
    return QStringLiteral("Vespara");
}
