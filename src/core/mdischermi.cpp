#include "core/mdischermi.h"

#include "analisi/frmpannellosegni.h"
#include "core/mdipannello.h"

using namespace Qt::StringLiterals;

void registraSchermi(MdiPannello &pannello) {
    pannello.registraSchermo(u"frmPannelloSegni"_s, [](StatoProgramma &stato, MdiPannello &) {
        return new FrmPannelloSegni(stato);
    });
}
