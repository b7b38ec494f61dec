#include "piattaforma/stampantiqt.h"

#include <QPrinterInfo>

QStringList StampantiQt::nomi() {
    return QPrinterInfo::availablePrinterNames();
}
