#include "core/mdiavvio.h"

#include "aggiornamenti/mdiaggiornamenti.h"
#include "campionati/leghe.h"
#include "core/archivio.h"
#include "core/colonna.h"
#include "core/frmavviso.h"
#include "core/mdipannello.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/guardia.h"
#include "piattaforma/schermo.h"
#include "piattaforma/tabellaarchivio.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

const char *const MdiAvvio::AvvisoRisoluzione =
    "Attenzione! La risoluzione consigliata per una corretta visualizzazione del programma non "
    "deve essere inferiore a 1024 px in larghezza. Procedendo, alcune schermate delprogramma "
    "potrebbero non essere visualizzate correttamente.";

const char *const MdiAvvio::PromemoriaStagione =
    "Se non l'hai ancora fatto, ti ricordiamo di aggiornare i dati per il Campionato 2011-2012. "
    "Utilizza la funzione apposita nel menu 'Campionato'. Questo messaggio non verrà "
    "visualizzato ulteriormente.";

namespace {

// Twips per pixel of the standard screen, as the frame's offsets are counted.
constexpr int TwipsPerPixel = 15;

void passiGuardati(StatoProgramma &stato) {
    // 13: read and forgotten; a missing file is normal.
    try {
        const QString percorso = stato.percorsoFile(u"aggConcStraOk.txt"_s);
        if (QFile::exists(percorso))
            FileDati::leggiPrimaRiga(percorso);
    } catch (const ErroreEsecuzione &) {
    }
}

void leggiSquadreStraniere(StatoProgramma &stato) {
    // 14: the first list that can't be read ends the reading; the rest stay empty.
    for (const Leghe::Lega &lega : Leghe::straniere())
        stato.Squadre.insert(QString::fromLatin1(lega.codice), {});
    try {
        for (const Leghe::Lega &lega : Leghe::straniere())
            stato.Squadre.insert(QString::fromLatin1(lega.codice),
                                 Leghe::leggiSquadre(stato.PercorsoDati, lega));
    } catch (const ErroreEsecuzione &) {
    }
}

void promemoriaStagione(StatoProgramma &stato) {
    // 17: both files are written before the box, so the reminder comes once.
    if (FileDati::esiste(stato.PercorsoDati, u"year.txt"_s))
        return;
    FileDati::scriviRighe(stato.percorsoFile(u"anno.txt"_s), {u"2011-2012"_s});
    FileDati::scriviRighe(stato.percorsoFile(u"year.txt"_s), {});
    stato.dialoghi().informazione(Dialoghi::titoloApplicazione(),
                                  QString::fromUtf8(MdiAvvio::PromemoriaStagione));
}

void noteDiRilascio(MdiPannello &pannello) {
    // 18: from here on any error ends the sequence without a word.
    StatoProgramma &stato = pannello.stato();
    try {
        for (const QString &nome : {u"420.txt"_s, u"421.txt"_s})
            if (FileDati::esiste(stato.PercorsoDati, nome))
                FileDati::elimina(stato.percorsoFile(nome));
        if (!FileDati::esiste(stato.PercorsoDati, u"450.txt"_s)) {
            FileDati::scriviRighe(stato.percorsoFile(u"450.txt"_s), {});
            MdiAggiornamenti::mostraNovita(pannello);
        }
    } catch (const ErroreEsecuzione &) {
    }
}

} // namespace

bool MdiAvvio::esegui(MdiPannello &pannello) {
    StatoProgramma &stato = pannello.stato();
    try {
        // 1
        const QSize schermo = stato.schermo().dimensioni();
        if (schermo.width() < 1024)
            stato.dialoghi().informazione(Dialoghi::titoloApplicazione(),
                                          QString::fromUtf8(AvvisoRisoluzione));
        // 2
        stato.GiorniSettimana = Colonna::giorniSettimana();
        stato.Segni = Colonna::segni();
        // 3
        if (schermo.width() == 640 || schermo.width() == 800) {
            FrmAvviso avviso(schermo, &pannello);
            avviso.exec();
        }
        // 4 (PercorsoDati is set by the caller, from the data folder prepared before the frame)
        stato.SquadraCasa = u"0"_s;
        stato.SquadraOspite = u"0"_s;
        stato.ScostamentoOrizzontale = pannello.width() * TwipsPerPixel - 12720;
        stato.ScostamentoVerticale = 0;
        stato.RicalcolaColonne9 = true;
        // 5
        stato.apriTabellaArchivio();
        // 6
        stato.ClassificheAggiornate.fill(false);
        // 7
        Archivio::caricaMemoria(stato);
        // A table made anew on this start (a new data folder) is filled from the archive file.
        if (stato.tabellaArchivio().creata())
            stato.tabellaArchivio().ricostruisci(stato.ColonneArchivio);
        // 8
        stato.BaseColonne9 = StatoProgramma::ValoreBaseColonne9;
        // 9
        stato.Stagione = FileDati::leggiPrimaRiga(stato.percorsoFile(u"anno.txt"_s));
        pannello.setWindowTitle(u"Vespara! ® | Versione %1 | Stagione %2"_s.arg(
            QCoreApplication::applicationVersion(), stato.Stagione));
        // 10
        for (const Leghe::Lega &lega : Leghe::italiane())
            stato.Squadre.insert(QString::fromLatin1(lega.codice),
                                 Leghe::leggiSquadre(stato.PercorsoDati, lega));
        // 11
        stato.Formule = Colonna::formule();
        if (stato.NumeroColonne() == 0)
            throw ErroreEsecuzione(u"L'archivio delle colonne vincenti è vuoto."_s);
        // 12: a fault of the panel (an archive it can't take) is shown, and the start goes on.
        eseguiProtetto(stato.dialoghi(), [&] { pannello.mostraSchermo(u"frmPannelloSegni"_s); });
        // 13, 14
        passiGuardati(stato);
        leggiSquadreStraniere(stato);
        // 15
        pannello.aggiornaCruscotto();
        // 16
        MdiAggiornamenti::controllaMessaggi(pannello);
        // 17
        promemoriaStagione(stato);
    } catch (const ErroreEsecuzione &e) {
        stato.dialoghi().critico(Dialoghi::titoloApplicazione(),
                                 u"Impossibile avviare Vespara.\n\n"_s + e.testo());
        return false;
    }
    // 18
    noteDiRilascio(pannello);
    QObject::connect(&pannello, &MdiPannello::attivata, &pannello,
                     [&pannello] { MdiAggiornamenti::verificaAggiornamenti(pannello); });
    return true;
}
