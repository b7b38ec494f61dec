#include "piattaforma/riepilogoaggiornamento.h"

#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/rete.h"

using namespace Qt::StringLiterals;

RiepilogoAggiornamento::RiepilogoAggiornamento(QStringList parti) {
    prevedi(parti);
}

void RiepilogoAggiornamento::prevedi(const QStringList &parti) {
    for (const QString &parte : parti)
        if (!m_previste.contains(parte))
            m_previste.append(parte);
}

void RiepilogoAggiornamento::fatto(const QString &parte) {
    prevedi({parte});
    if (!m_aggiornate.contains(parte))
        m_aggiornate.append(parte);
}

QStringList RiepilogoAggiornamento::rimaste() const {
    QStringList v;
    for (const QString &parte : m_previste)
        if (!m_aggiornate.contains(parte))
            v.append(parte);
    return v;
}

QString RiepilogoAggiornamento::testoInterruzione(const QString &causa) const {
    const auto elenco = [](const QStringList &parti) {
        return parti.isEmpty() ? u"nessuno"_s : parti.join(u", "_s);
    };
    return u"L'aggiornamento si è fermato prima della fine.\n%1\n\nAggiornati: %2.\nLasciati come "
           "erano: %3."_s.arg(causa, elenco(m_aggiornate), elenco(rimaste()));
}

bool RiepilogoAggiornamento::esegui(const std::function<void()> &azione) {
    try {
        azione();
        return true;
    } catch (const ErroreEsecuzione &e) {
        m_causa = e.silenzioso() ? QString::fromUtf8(Annullato) : e.testo();
    } catch (const std::exception &e) {
        m_causa = u"Errore imprevisto: "_s + QString::fromLocal8Bit(e.what());
    }
    return false;
}

void RiepilogoAggiornamento::avvisa(Dialoghi &dialoghi, const Rete &rete) const {
    // Closing the program is no stop to explain: nothing more is shown on the way out.
    if (interrotto() && !rete.inChiusura())
        dialoghi.avviso(Dialoghi::titoloAggiornamenti(), testoInterruzione(m_causa));
}
