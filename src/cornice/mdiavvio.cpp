#include "cornice/mdiavvio.h"

#include "aggiornamenti/mdiaggiornamenti.h"
#include "aggiornamenti/verificaversione.h"
#include "campionati/leghe.h"
#include "core/archivio.h"
#include "core/colonna.h"
#include "core/statoprogramma.h"
#include "cornice/frmavviso.h"
#include "cornice/mdipannello.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"
#include "piattaforma/schermo.h"
#include "piattaforma/tabellaarchivio.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

using namespace Qt::StringLiterals;

const char *const MdiAvvio::AvvisoRisoluzione =
    "Attenzione! La risoluzione consigliata per una corretta visualizzazione del programma non "
    "deve essere inferiore a 1024 px in larghezza. Procedendo, alcune schermate delprogramma "
    "potrebbero non essere visualizzate correttamente.";

const char *const MdiAvvio::ArchivioIlleggibile =
    "L'archivio delle colonne vincenti (Archivio.txt) non si può leggere:";
const char *const MdiAvvio::DomandaRipristino =
    "Ripristinare la copia precedente dell'archivio (ArchivioPrecedente.txt)? Il file attuale "
    "viene conservato come ArchivioDanneggiato.txt.";
const char *const MdiAvvio::AvvioSenzaArchivio =
    "Vespara si avvia senza archivio. Per ricostruirlo usare \"Aggiorna da Internet\", \"Parti\", "
    "\"Solo Archivi (Aggiorna/Ripara)\", oppure correggere il file e riavviare il programma.";

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

// 18: from here on any error ends the sequence without a word. True when the release notes are
// to be shown.
bool noteDiRilascio(StatoProgramma &stato) {
    try {
        for (const QString &nome : {u"420.txt"_s, u"421.txt"_s})
            if (FileDati::esiste(stato.PercorsoDati, nome))
                FileDati::elimina(stato.percorsoFile(nome));
        if (!FileDati::esiste(stato.PercorsoDati, u"450.txt"_s)) {
            FileDati::scriviRighe(stato.percorsoFile(u"450.txt"_s), {});
            return true;
        }
    } catch (const ErroreEsecuzione &) {
    }
    return false;
}

// 7: an archive that can't be read must not lock the user out of the program, the repair
// included. The box says which line is wrong and offers the previous generation; without it the
// program starts with no archive, and the repair or the full update rebuild one. True when the
// archive is in memory.
bool caricaArchivio(StatoProgramma &stato) {
    QString guasto;
    try {
        stato.ColonneArchivio =
            Archivio::leggi(stato.percorsoFile(QString::fromLatin1(Archivio::NomeFile)));
        return true;
    } catch (const ErroreEsecuzione &e) {
        guasto = e.testo();
    }
    Dialoghi &dialoghi = stato.dialoghi();
    const QString titolo = Dialoghi::titoloApplicazione();
    const QString testo = QString::fromUtf8(MdiAvvio::ArchivioIlleggibile) + u"\n\n"_s + guasto;
    QString ripristino;
    if (Archivio::copiaPrecedenteValida(stato) &&
        dialoghi.domanda(titolo,
                         testo + u"\n\n"_s + QString::fromUtf8(MdiAvvio::DomandaRipristino))) {
        // A restore that fails leaves everything as it was; the box below says why.
        try {
            const QString nota = Archivio::ripristinaCopiaPrecedente(stato);
            if (!nota.isEmpty())
                dialoghi.avviso(titolo, nota);
            return true;
        } catch (const ErroreEsecuzione &e) {
            ripristino = u"\n\n"_s + e.testo();
        }
    }
    dialoghi.critico(titolo, testo + ripristino + u"\n\n"_s +
                                 QString::fromUtf8(MdiAvvio::AvvioSenzaArchivio));
    stato.ColonneArchivio.svuota();
    return false;
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
        // 5. A table that can't be opened or read is no reason to stop: step 7 deals with it.
        const QList<RigaArchivio> righeTabella = Archivio::apriTabella(stato);
        // 6
        stato.ClassificheAggiornate.fill(false);
        // 7. The table follows the file, the master: a table made anew on this start (a new data
        // folder), or one that differs from a file changed by hand, is filled from it; a damaged
        // one is set aside and made anew, and one that can't be written gives way to a table in
        // memory. Without an archive the table is left alone: it may be the only good copy.
        const bool conArchivio = caricaArchivio(stato);
        const Archivio::NotaTabella tabella =
            Archivio::allineaTabella(stato, conArchivio, righeTabella);
        if (!tabella.testo.isEmpty()) {
            if (tabella.inUso)
                stato.dialoghi().informazione(Dialoghi::titoloApplicazione(), tabella.testo);
            else
                stato.dialoghi().avviso(Dialoghi::titoloApplicazione(), tabella.testo);
        }
        // 8
        stato.BaseColonne9 = StatoProgramma::ValoreBaseColonne9;
        // 9
        stato.Stagione = FileDati::leggiPrimaRiga(stato.percorsoFile(u"anno.txt"_s));
        pannello.aggiornaTitolo();
        // 10
        for (const Leghe::Lega &lega : Leghe::italiane())
            stato.Squadre.insert(QString::fromLatin1(lega.codice),
                                 Leghe::leggiSquadre(stato.PercorsoDati, lega));
        // 11
        stato.Formule = Colonna::formule();
        // 12: a fault of the panel (an archive it can't take) is shown, and the start goes on.
        if (conArchivio)
            eseguiProtetto(stato.dialoghi(),
                           [&] { pannello.mostraSchermo(u"frmPannelloSegni"_s); });
        // 13, 14
        passiGuardati(stato);
        leggiSquadreStraniere(stato);
        // 15
        pannello.aggiornaCruscotto();
        // 17
        promemoriaStagione(stato);
    } catch (const ErroreEsecuzione &e) {
        stato.dialoghi().critico(Dialoghi::titoloApplicazione(),
                                 u"Impossibile avviare Vespara.\n\n"_s + e.testo());
        return false;
    }
    // 16 and 18 ask the site: they run once the frame is on the screen and the program is in its
    // event loop, so a slow site never keeps the window from appearing.
    VerificaVersione *verifica = MdiAggiornamenti::creaVerifica(pannello);
    const bool novita = noteDiRilascio(stato);
    QTimer::singleShot(0, &pannello, [&pannello, novita, verifica] {
        MdiAggiornamenti::controllaMessaggi(pannello);
        if (novita && !pannello.stato().rete().inChiusura())
            eseguiProtetto(pannello.stato().dialoghi(),
                           [&pannello] { MdiAggiornamenti::mostraNovita(pannello); });
        // The start's own check of a newer program: the frame's first activation may have come
        // while the messages held the network or a box of the start was up.
        verifica->avvio();
    });
    // Then the check runs each time the user comes back to the frame.
    QObject::connect(&pannello, &MdiPannello::attivata, verifica, &VerificaVersione::attivazione);
    return true;
}
