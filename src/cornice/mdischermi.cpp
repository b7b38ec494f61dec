#include "cornice/mdischermi.h"

#include "aggiornamenti/mdiaggiornamenti.h"
#include "aggiornamenti/mdiaggiornamentisito.h"
#include "analisi/frmcolonne9.h"
#include "analisi/frmpannellosegni.h"
#include "archivio/frmarchivio.h"
#include "archivio/frmgestione.h"
#include "archivio/frminserisci.h"
#include "core/frmattendere.h"
#include "cornice/mdipannello.h"
#include "stampa/frmstampa.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void registraSchermi(MdiPannello &pannello) {
    pannello.registraSchermo(u"frmPannelloSegni"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmPannelloSegni(stato);
    });
    pannello.registraSchermo(u"frmColonne9"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmColonne9(stato);
    });
    pannello.registraSchermo(u"frmStampa"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmStampa(stato);
    });
    pannello.registraSchermo(u"frmInserisci"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmInserisci(stato);
    });
    pannello.registraSchermo(u"frmGestione"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmGestione(stato);
    });
    pannello.registraSchermo(u"frmArchivio"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmArchivio(stato);
    });
    // Opening the edit screen reads the whole table: the waiting box covers it.
    pannello.registraAzione(u"mnuModifica"_s, [&pannello] {
        FrmAttendere attesa(&pannello);
        attesa.show();
        QApplication::processEvents();
        pannello.mostraSchermo(u"frmGestione"_s);
        attesa.close();
    });
    MdiAggiornamentiSito::registra(pannello);
    MdiAggiornamenti::registra(pannello);
}
