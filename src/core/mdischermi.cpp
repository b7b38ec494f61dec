#include "core/mdischermi.h"

#include "analisi/frmcolonne9.h"
#include "analisi/frmpannellosegni.h"
#include "core/mdipannello.h"

using namespace Qt::StringLiterals;

void registraSchermi(MdiPannello &pannello) {
    pannello.registraSchermo(u"frmPannelloSegni"_s, [](StatoProgramma &stato, MdiPannello &) {
        return new FrmPannelloSegni(stato);
    });
    pannello.registraSchermo(u"frmColonne9"_s, [](StatoProgramma &stato, MdiPannello &) {
        return new FrmColonne9(stato);
    });
}
