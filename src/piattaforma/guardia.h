#pragma once

#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"

#include <exception>

// Runs one event of the program: a run-time fault raised inside it ends the event with a
// critical box, and the program goes on; an interruption ends it without a box. Returns false
// when the event ended in a fault or was interrupted.
template <typename Azione> bool eseguiProtetto(Dialoghi &dialoghi, Azione &&azione) {
    try {
        azione();
        return true;
    } catch (const ErroreEsecuzione &e) {
        if (!e.silenzioso())
            dialoghi.critico(Dialoghi::titoloApplicazione(), e.testo());
    } catch (const std::exception &e) {
        dialoghi.critico(Dialoghi::titoloApplicazione(),
                         QStringLiteral("Errore imprevisto: ") + QString::fromLocal8Bit(e.what()));
    }
    return false;
}
