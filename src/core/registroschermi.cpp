#include "core/registroschermi.h"

#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

void riapriDopoModificaArchivio(StatoProgramma &stato, bool aggiornaCruscotto) {
    RegistroSchermi *registro = stato.registro();
    if (!registro || stato.rete().inChiusura())
        return;
    // Also run while an interrupted update unwinds: no fault may leave this function.
    eseguiProtetto(stato.dialoghi(), [&] {
        registro->chiudiSchermi();
        if (stato.NumeroColonne() > 0)
            eseguiProtetto(stato.dialoghi(), [registro] {
                registro->mostraSchermo(QStringLiteral("frmPannelloSegni"));
            });
        if (aggiornaCruscotto)
            registro->aggiornaCruscotto();
    });
}

void annunciaModificaArchivio(Dialoghi &dialoghi, const QString &titolo, const QString &testo,
                              const QString &nota) {
    if (nota.isEmpty())
        dialoghi.informazione(titolo, testo);
    else
        dialoghi.avviso(titolo, testo + QStringLiteral("\n\n") + nota);
}
