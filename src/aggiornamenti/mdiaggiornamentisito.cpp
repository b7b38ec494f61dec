#include "aggiornamenti/mdiaggiornamentisito.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frmaggiornamentoparziale.h"
#include "aggiornamenti/frminternet.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "schedine/quote.h"

using namespace Qt::StringLiterals;

namespace {

template <typename Schermo> void registraSchermo(RegistroSchermi &pannello, const QString &nome) {
    pannello.registraSchermo(
        nome, [](StatoProgramma &stato, RegistroSchermi &) { return new Schermo(stato); });
}

// AggiornaQuote, from the menu.
void aggiornaQuote(StatoProgramma &stato) {
    AggiornamentiSito sito(stato);
    const QString titolo = Dialoghi::titoloAggiornamenti();
    if (!sito.aggiornaQuote()) {
        stato.dialoghi().critico(titolo, QString::fromUtf8(Quote::SenzaConnessione));
        return;
    }
    stato.dialoghi().informazione(titolo, u"Aggiornamento effettuato."_s);
}

// The update to a new season: the Italian team lists, once the user has seen which season.
void aggiornaCampionato(StatoProgramma &stato) {
    AggiornamentiSito sito(stato);
    Dialoghi &dialoghi = stato.dialoghi();
    const QString titolo = Dialoghi::titoloAggiornamenti();
    if (!sito.verificaConnessione()) {
        dialoghi.informazione(titolo,
                              QString::fromUtf8(AggiornamentiSito::SenzaConnessioneStagione));
        return;
    }
    QString stagione;
    {
        FrmInternet::Clessidra clessidra;
        stagione = sito.stagioneSulSito();
    }
    if (!dialoghi.domanda(titolo, QString::fromUtf8(AggiornamentiSito::DomandaStagione) + stagione))
        return;
    bool finito = false;
    {
        FrmInternet::Clessidra clessidra;
        finito = sito.riepilogo().esegui([&sito] { sito.aggiornaSquadreItaliane(); });
    }
    if (!finito) {
        sito.riepilogo().avvisa(dialoghi, stato.rete());
        return;
    }
    dialoghi.informazione(titolo, u"Aggiornamento Campionato effettuato."_s);
}

} // namespace

void MdiAggiornamentiSito::registra(RegistroSchermi &pannello) {
    registraSchermo<FrmInternet>(pannello, u"frmInternet"_s);
    // Two of the partial updates have no menu entry of their own.
    for (const FrmAggiornamentoParziale::Parziale &parziale : FrmAggiornamentoParziale::tutti())
        pannello.registraSchermo(QString::fromLatin1(parziale.nome),
                                 [&parziale](StatoProgramma &stato, RegistroSchermi &) {
                                     return new FrmAggiornamentoParziale(stato, parziale);
                                 });

    StatoProgramma &stato = pannello.stato();
    pannello.registraAzione(u"mnuAggQuote"_s, [&stato] { aggiornaQuote(stato); });
    pannello.registraAzione(u"mnuAggiornaCampionato"_s, [&stato] { aggiornaCampionato(stato); });
}
