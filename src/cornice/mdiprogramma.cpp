#include "cornice/mdiprogramma.h"

#include "core/cartelladati.h"
#include "core/statoprogramma.h"
#include "cornice/mdiavvio.h"
#include "cornice/mdipannello.h"
#include "cornice/mdischermi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/stampantiqt.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

MdiProgramma::MdiProgramma(const QString &cartellaDati, Dialoghi &dialoghi,
                           Impostazioni &impostazioni, Schermo &schermo)
    : m_cartella(cartellaDati)
    , m_stato(std::make_unique<StatoProgramma>(dialoghi, impostazioni, schermo)) {
    QCoreApplication::setApplicationName(u"Vespara"_s);
    QCoreApplication::setOrganizationName(u"Vespara"_s);
    QCoreApplication::setApplicationVersion(u"%1.%2.%3"_s.arg(VESPARA_VERSIONE_MAGGIORE)
                                                .arg(VESPARA_VERSIONE_MINORE)
                                                .arg(VESPARA_REVISIONE));
    m_stato->stampanti().setElenco(&StampantiQt::nomi);
    m_pannello = std::make_unique<MdiPannello>(*m_stato);
    registraSchermi(*m_pannello);
}

MdiProgramma::~MdiProgramma() {
    m_pannello.reset();
    m_stato.reset();
}

bool MdiProgramma::avvia() {
    try {
        CartellaDati::prepara(m_cartella);
    } catch (const ErroreEsecuzione &e) {
        m_stato->dialoghi().critico(Dialoghi::titoloApplicazione(),
                                    u"Impossibile avviare Vespara.\n\n"_s + e.testo());
        return false;
    }
    m_stato->PercorsoDati = m_cartella;
    return MdiAvvio::esegui(*m_pannello);
}
