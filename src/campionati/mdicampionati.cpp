#include "campionati/mdicampionati.h"

#include "campionati/frmclassifiche.h"
#include "campionati/leghe.h"
#include "core/mdistile.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"

using namespace Qt::StringLiterals;

void MdiCampionati::mostraClassifica(RegistroSchermi &pannello, const char *codice) {
    pannello.stato().LegaClassifica = QString::fromLatin1(codice);
    if (QWidget *vecchia = pannello.trovaSchermo(u"frmClassifiche"_s)) {
        // The old table leaves the registry at once, though Qt deletes it later.
        vecchia->setObjectName(QString());
        MdiStile::finestraDi(vecchia)->close();
    }
    pannello.mostraSchermo(u"frmClassifiche"_s);
}

void MdiCampionati::registra(RegistroSchermi &pannello) {
    pannello.registraSchermo(u"frmClassifiche"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmClassifiche(stato);
    });
    for (const Leghe::Lega &lega : Leghe::tutte()) {
        const QString voce =
            (lega.italiana ? u"mnuSerie"_s : u"mnuClass"_s) + QString::fromLatin1(lega.codice);
        const char *codice = lega.codice;
        pannello.registraAzione(voce, [&pannello, codice] { mostraClassifica(pannello, codice); });
    }
}
