#include "cornice/mdischermi.h"

#include "aggiornamenti/mdiaggiornamenti.h"
#include "aggiornamenti/mdiaggiornamentisito.h"
#include "analisi/frmcinquinemai.h"
#include "analisi/frmcolonne9.h"
#include "analisi/frmdettagliultimacv.h"
#include "analisi/frmformule.h"
#include "analisi/frmpannellosegni.h"
#include "analisi/frmstatsegni.h"
#include "analisi/frmverificastorica.h"
#include "archivio/frmarchivio.h"
#include "archivio/frmgestione.h"
#include "archivio/frminserisci.h"
#include "campionati/mdicampionati.h"
#include "core/frmattendere.h"
#include "cornice/mdipannello.h"
#include "schedine/mdischedine.h"
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
    pannello.registraSchermo(u"frmVerificaStorica"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmVerificaStorica(stato);
    });
    pannello.registraSchermo(u"frmStatSegni"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmStatSegni(stato);
    });
    pannello.registraSchermo(u"frmCinquineMai"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmCinquineMai(stato);
    });
    pannello.registraSchermo(u"frmFormule"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmFormule(stato);
    });
    pannello.registraSchermo(
        u"frmDettagliUltimaCV"_s,
        [](StatoProgramma &stato, RegistroSchermi &) { return new FrmDettagliUltimaCV(stato); });
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
    MdiCampionati::registra(pannello);
    MdiSchedine::registra(pannello);
    MdiAggiornamentiSito::registra(pannello);
    MdiAggiornamenti::registra(pannello);
}
