#include "campionati/mdicampionati.h"

#include "campionati/aggiornamentostraniero.h"
#include "campionati/frmaggstra.h"
#include "campionati/frmcampionato.h"
#include "campionati/frmclassifiche.h"
#include "campionati/frmgestsquadre.h"
#include "campionati/leghe.h"
#include "core/mdiclessidra.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

using namespace Qt::StringLiterals;

void MdiCampionati::mostraClassifica(RegistroSchermi &pannello, const char *codice) {
    pannello.stato().LegaClassifica = QString::fromLatin1(codice);
    pannello.rimostraSchermo(u"frmClassifiche"_s);
}

void MdiCampionati::aggiornaStraniere(RegistroSchermi &pannello, const char *codice) {
    StatoProgramma &stato = pannello.stato();
    Dialoghi &dialoghi = stato.dialoghi();
    const QString titolo = Dialoghi::titoloAggiornamenti();
    eseguiProtetto(dialoghi, [&] {
        if (!dialoghi.domanda(titolo, QString::fromUtf8(AggiornamentoStraniero::Domanda)))
            return;
        Rete::Operazione operazione(stato.rete());
        if (!stato.rete().verificaConnessione()) {
            dialoghi.critico(titolo, QString::fromUtf8(AggiornamentoStraniero::SenzaConnessione));
            return;
        }
        AggiornamentoStraniero aggiornamento(stato);
        {
            MdiClessidra clessidra;
            FrmAggStra finestra(pannello.finestra());
            const TaglioClassifica::Voce *voce =
                codice ? TaglioClassifica::perCodice(QString::fromLatin1(codice)) : nullptr;
            const bool finito = aggiornamento.riepilogo().esegui([&] {
                if (voce) {
                    aggiornamento.riepilogo().prevedi({TaglioClassifica::nome(*voce)});
                    const QString link = aggiornamento.link(*voce);
                    finestra.show();
                    finestra.setTesto(TaglioClassifica::nome(*voce));
                    aggiornamento.aggiorna(*voce, link);
                    return;
                }
                aggiornamento.aggiornaTutte(
                    [&finestra] { finestra.show(); },
                    [&finestra](const QString &testo) { finestra.setTesto(testo); });
            });
            if (finito)
                return;
        }
        // The window and the hourglass are gone before the box that tells what was left.
        aggiornamento.riepilogo().avvisa(dialoghi, stato.rete());
    });
}

void MdiCampionati::registra(RegistroSchermi &pannello) {
    pannello.registraSchermo(u"frmClassifiche"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmClassifiche(stato);
    });
    pannello.registraSchermo(u"frmCampionato"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmCampionato(stato);
    });
    pannello.registraSchermo(u"frmGestSquadre"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmGestSquadre(stato);
    });
    for (const Leghe::Lega &lega : Leghe::tutte()) {
        const QString voce =
            (lega.italiana ? u"mnuSerie"_s : u"mnuClass"_s) + QString::fromLatin1(lega.codice);
        const char *codice = lega.codice;
        pannello.registraAzione(voce, [&pannello, codice] { mostraClassifica(pannello, codice); });
    }
    for (const TaglioClassifica::Voce &voce : TaglioClassifica::voci()) {
        const char *codice = voce.codice;
        pannello.registraAzione(QString::fromLatin1(voce.menu),
                                [&pannello, codice] { aggiornaStraniere(pannello, codice); });
    }
    pannello.registraAzione(u"mnuCampionatiStranieri"_s,
                            [&pannello] { aggiornaStraniere(pannello); });
}
