#include "schedine/mdischedine.h"

#include "core/mdistile.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "schedine/frmaggmanual.h"
#include "schedine/frmquote.h"
#include "schedine/frmschedina.h"
#include "schedine/frmsistema.h"
#include "schedine/schedinasettimana.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

// The toolbar's button of the coupons opens the three together, fanned out from the left: the
// midweek one first, then Saturday's, then Sunday's on top (left and top in twips).
struct Posto {
    const char *nome;
    int sinistra;
};
constexpr Posto Ventaglio[] = {
    {"frmSchedinaProssimoConcorso", 500},
    {"frmSchedinaSabato", 3000},
    {"frmSchedinaDomenica", 4000},
};
constexpr int AltoVentaglio = 1000;

void apriTutte(RegistroSchermi &pannello) {
    for (const Posto &posto : Ventaglio)
        eseguiProtetto(pannello.stato().dialoghi(), [&] {
            if (QWidget *schermo = pannello.apriSchermo(QString::fromLatin1(posto.nome)))
                MdiStile::finestraDi(schermo)->move(Griglia::twipsInPixel(posto.sinistra),
                                                    Griglia::twipsInPixel(AltoVentaglio));
        });
}

} // namespace

void MdiSchedine::registra(RegistroSchermi &pannello) {
    pannello.registraAzione(u"TB(2)"_s, [&pannello] { apriTutte(pannello); });
    for (const SchedinaSettimana::Modello &modello : SchedinaSettimana::modelli()) {
        const SchedinaSettimana::Modello *m = &modello;
        pannello.registraSchermo(QString::fromLatin1(modello.nome),
                                 [m](StatoProgramma &stato, RegistroSchermi &registro) {
                                     return new FrmSchedina(stato, registro, *m);
                                 });
    }
    pannello.registraSchermo(u"frmAggManual"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmAggManual(stato);
    });
    pannello.registraSchermo(u"frmQuote"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmQuote(stato);
    });
    pannello.registraSchermo(u"frmSistema"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmSistema(stato);
    });
}
