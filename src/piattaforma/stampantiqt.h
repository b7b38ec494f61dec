#pragma once

#include <QStringList>

// The system's printers through Qt Print Support (CUPS on Linux).
class StampantiQt {
public:
    static QStringList nomi();
};
