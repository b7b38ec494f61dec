#include "stampa/frmmenugriglie.h"

#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/esportazioneexcel.h"

#include <QAction>
#include <QCursor>
#include <QMenu>

using namespace Qt::StringLiterals;

FrmMenuGriglie::FrmMenuGriglie(StatoProgramma &stato, QWidget *genitore)
    : QObject(genitore)
    , m_stato(stato)
    , m_menu(new QMenu(genitore)) {
    m_menu->setObjectName(u"frmMenuGriglie"_s);
    m_mnuExcel = m_menu->addAction(u"Esporta in file Excel"_s);
    m_mnuExcel->setObjectName(u"mnuExcel"_s);
    connect(m_mnuExcel, &QAction::triggered, this, [this] {
        eseguiProtetto(m_stato.dialoghi(), [this] { EsportazioneExcel::esporta(m_stato); });
    });
}

FrmMenuGriglie::~FrmMenuGriglie() {
    // The menu may have gone with the parent already; without a parent it is ours.
    delete m_menu.data();
}

void FrmMenuGriglie::esportaConTastoDestro(StatoProgramma &stato, VistaGriglia *vista,
                                           const QString &titolo) {
    QObject::connect(vista, &VistaGriglia::tastoDestro, vista, [&stato, vista, titolo] {
        eseguiProtetto(stato.dialoghi(), [&] {
            if (!vista->griglia())
                return;
            EsportazioneExcel::prepara(stato, *vista->griglia(),
                                       titolo + EsportazioneExcel::oggi());
            if (stato.registro())
                stato.registro()->apriMenuGriglie(QCursor::pos());
        });
    });
}

void FrmMenuGriglie::apri(const QPoint &globale) {
    m_menu->popup(globale);
}
