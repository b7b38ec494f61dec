#pragma once

#include "piattaforma/dialoghi.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"

#include <memory>

class MdiPannello;
class StatoProgramma;

// The whole program on one data folder: services, shared state and the frame, built in order
// and destroyed in reverse. main() makes one; tests make one for each case.
class MdiProgramma {
public:
    MdiProgramma(const QString &cartellaDati, Dialoghi &dialoghi, Impostazioni &impostazioni,
                 Schermo &schermo);
    ~MdiProgramma();

    // Prepares the data folder and runs the start-up sequence; false when the start failed.
    bool avvia();

    StatoProgramma &stato() const { return *m_stato; }
    MdiPannello &pannello() const { return *m_pannello; }

private:
    QString m_cartella;
    std::unique_ptr<StatoProgramma> m_stato;
    std::unique_ptr<MdiPannello> m_pannello;
};
