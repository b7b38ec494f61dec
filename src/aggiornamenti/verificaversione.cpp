#include "aggiornamenti/verificaversione.h"

#include "aggiornamenti/versione.h"

#include <QPointer>

namespace {

// How often the start's check looks whether the program is free.
constexpr int RiprovaAvvioMs = 250;

} // namespace

VerificaVersione::VerificaVersione(Rete &rete, std::function<bool()> libera,
                                   std::function<void(const QString &)> offri, QObject *genitore)
    : QObject(genitore)
    , m_rete(rete)
    , m_libera(std::move(libera))
    , m_offri(std::move(offri)) {
    m_cronometro.start();
    m_orologio = [this] { return m_cronometro.elapsed(); };
    m_attesaAvvio.setInterval(RiprovaAvvioMs);
    connect(&m_attesaAvvio, &QTimer::timeout, this, &VerificaVersione::riprova);
}

void VerificaVersione::setOrologio(Orologio orologio) {
    m_orologio = std::move(orologio);
    m_ultima.reset();
    m_precedente.reset();
}

bool VerificaVersione::attivazione() {
    if (m_inCorso || !m_libera())
        return false;
    const qint64 ora = m_orologio();
    if (m_ultima && ora - *m_ultima < IntervalloMs)
        return false;
    m_precedente = std::exchange(m_ultima, ora);
    m_inCorso = true;
    m_rete.verificaConnessioneInSottofondo(this, [this](Rete::Esito esito) { dopoSonda(esito); });
    return true;
}

void VerificaVersione::avvio() {
    if (m_inCorso || m_ultima)
        return;
    if (!attivazione())
        m_attesaAvvio.start();
}

void VerificaVersione::riprova() {
    // A check made meanwhile, on an activation, is the start's as well.
    if (m_inCorso || m_ultima || attivazione())
        m_attesaAvvio.stop();
}

void VerificaVersione::dopoSonda(Rete::Esito esito) {
    if (esito == Rete::Esito::Annullata) {
        abbandonata();
        return;
    }
    // Offline: nothing to say, as always.
    if (esito != Rete::Esito::Completa) {
        m_inCorso = false;
        return;
    }
    m_rete.scaricaInSottofondo(QString::fromUtf16(Versione::Pagina), this,
                               [this](const Rete::Pagina &pagina) { dopoPagina(pagina); });
}

void VerificaVersione::dopoPagina(const Rete::Pagina &pagina) {
    if (pagina.esito == Rete::Esito::Annullata) {
        abbandonata();
        return;
    }
    // A page that came in part is no version.
    const QString versione = pagina.intera() ? pagina.testo.trimmed() : QString();
    if (!versione.isEmpty() && Versione::piuRecente(versione) && m_libera()) {
        // The question waits for the user: no other check starts meanwhile.
        const QPointer<VerificaVersione> vivo(this);
        m_offri(versione);
        if (!vivo)
            return;
    }
    m_inCorso = false;
}

void VerificaVersione::abbandonata() {
    // The user's operation came first: this check was not made, the next activation makes it.
    m_ultima = m_precedente;
    m_inCorso = false;
}
