#pragma once

#include <QString>

// The data folder: $VESPARA_DATI when set, else the platform's place for the program's data.
class CartellaDati {
public:
    static QString predefinita();
    // Makes sure the folder exists; a folder without Archivio.txt receives a copy of the
    // delivered data folder (files it already holds are kept). A failure is a run-time fault.
    static void prepara(const QString &cartella);
    // Where the delivered data folder is found (inside the program).
    static QString consegnata() { return QStringLiteral(":/dati"); }
};
