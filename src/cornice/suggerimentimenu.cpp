#include "cornice/suggerimentimenu.h"

#include <QHash>

namespace {

struct Suggerimento {
    const char *nome;
    const char *testo; // UTF-8
};

// One line per entry of the menu, submenus included; the frame checks that none is left out.
constexpr Suggerimento Suggerimenti[] = {
    {"mnuGestione", "L'archivio delle colonne vincenti: consultarlo, completarlo, correggerlo."},
    {"mnuArchivio", "Mostra l'archivio delle colonne vincenti, da stampare o esportare."},
    {"mnuInserisci", "Aggiunge all'archivio la colonna vincente di un nuovo concorso."},
    {"mnuModifica", "Corregge o elimina le colonne vincenti già in archivio."},
    {"mnuSchedina", "Le tre schedine, i pronostici, i montepremi e le quote."},
    {"mnuProssimoConcorso",
     "Le partite del concorso infrasettimanale, con i picchetti e il pronostico."},
    {"mnuSchedinaSabato", "Le partite del concorso del sabato, con i picchetti e il pronostico."},
    {"mnuSchedinaDomenica",
     "Le partite del concorso della domenica, con i picchetti e il pronostico."},
    {"mnuAggManual", "Scrive a mano le partite di una schedina che il sito non porta."},
    {"mnuQuote", "Montepremi, vincitori e quote dell'ultimo concorso di Totocalcio e Totogol."},
    {"mnuFunzioni", "Le statistiche dei 14 segni, l'analisi del 9 e i sistemi."},
    {"mnuPannelloSegni", "Ritardo e frequenza di ogni terzina, coppia e cinquina dei 14 segni."},
    {"mnuSistema", "Sviluppa il sistema integrale del 9 dalle terzine scelte."},
    {"mnuCinquineMai", "Le cinquine finali (segni dal 10 al 14) mai uscite nell'archivio."},
    {"mnuDettagliCV", "Come stavano i segni dell'ultima colonna vincente prima che uscisse."},
    {"mnuAnalisi9", "Le colonne del 9, da filtrare, ridurre, stampare ed esportare."},
    {"mnuStatSegni", "Frequenza e ritardo di 1, X e 2 in ognuna delle 14 posizioni."},
    {"mnuFormule", "Frequenza e ritardo delle 47 formule del 9."},
    {"mnuCampionato", "Il calendario e le squadre dei campionati, e il loro aggiornamento."},
    {"mnuVisCampionato", "Il calendario di Serie A e Serie B, giornata per giornata."},
    {"mnuGestisciSquadre", "Rinomina le squadre delle serie italiane e imposta la stagione."},
    {"mnuAggiornaCampionato", "Scarica dal sito le squadre italiane della nuova stagione."},
    {"mnuAggiornaCampionatiStranieri",
     "Scarica dal sito le squadre dei dodici campionati stranieri."},
    {"mnuInternet", "Aggiorna dal sito archivio, classifiche, schedine e quote."},
    {"mnuTutto", "Tutti gli aggiornamenti in una volta."},
    {"mnuCampionatoItaliano",
     "Aggiorna dal sito archivio, classifiche italiane, schedine e quote in una volta."},
    {"mnuCampionatiStranieri", "Aggiorna dal sito le classifiche dei dodici campionati stranieri."},
    {"mnuPartiStraniere", "Gli aggiornamenti di una parte soltanto."},
    {"mnuSoloArchivi",
     "Scarica dal sito l'archivio completo delle colonne vincenti e ne ricostruisce gli archivi "
     "del programma."},
    {"mnuSoloClassifiche", "Aggiorna soltanto le classifiche."},
    {"mnuTutte", "Aggiorna dal sito le classifiche delle sette serie italiane."},
    {"mnuParti", "Aggiorna la classifica di un solo campionato straniero."},
    {"mnuInghilterra", "Aggiorna dal sito la classifica del campionato inglese."},
    {"mnuSpagna", "Aggiorna dal sito la classifica del campionato spagnolo."},
    {"mnuGermania", "Aggiorna dal sito la classifica del campionato tedesco."},
    {"mnuFrancia", "Aggiorna dal sito la classifica del campionato francese."},
    {"mnuOlanda", "Aggiorna dal sito la classifica del campionato olandese."},
    {"mnuScozia", "Aggiorna dal sito la classifica del campionato scozzese."},
    {"mnuPortogallo", "Aggiorna dal sito la classifica del campionato portoghese."},
    {"mnuSvizzera", "Aggiorna dal sito la classifica del campionato svizzero."},
    {"mnuAustria", "Aggiorna dal sito la classifica del campionato austriaco."},
    {"mnuGrecia", "Aggiorna dal sito la classifica del campionato greco."},
    {"mnuBelgio", "Aggiorna dal sito la classifica del campionato belga."},
    {"mnuArgentinaAp", "Aggiorna dal sito la classifica del campionato argentino (Apertura)."},
    {"mnuSoloSchedinaMontepremi", "Aggiorna dal sito le quote, le tre schedine e i picchetti."},
    {"mnuAggQuote", "Aggiorna dal sito il montepremi e le quote."},
    {"mnuClassifiche", "Le classifiche delle serie italiane e dei campionati stranieri."},
    {"mnuSerieA", "La classifica della Serie A."},
    {"mnuSerieB", "La classifica della Serie B."},
    {"mnuSerieC1A", "La classifica della Serie C1, girone A."},
    {"mnuSerieC1B", "La classifica della Serie C1, girone B."},
    {"mnuSerieC2A", "La classifica della Serie C2, girone A."},
    {"mnuSerieC2B", "La classifica della Serie C2, girone B."},
    {"mnuSerieC2C", "La classifica della Serie C2, girone C."},
    {"mnuClassInghilterra", "La classifica del campionato inglese."},
    {"mnuClassSpagna", "La classifica del campionato spagnolo."},
    {"mnuClassGermania", "La classifica del campionato tedesco."},
    {"mnuClassFrancia", "La classifica del campionato francese."},
    {"mnuClassOlanda", "La classifica del campionato olandese."},
    {"mnuClassScozia", "La classifica del campionato scozzese."},
    {"mnuClassPortogallo", "La classifica del campionato portoghese."},
    {"mnuClassSvizzera", "La classifica del campionato svizzero."},
    {"mnuClassAustria", "La classifica del campionato austriaco."},
    {"mnuClassGrecia", "La classifica del campionato greco."},
    {"mnuClassBelgio", "La classifica del campionato belga."},
    {"mnuClassArgentinaAp", "La classifica del campionato argentino (Apertura)."},
    {"mnuFinestre", "Le finestre aperte: disporle, passare dall'una all'altra, chiuderle."},
    {"mnuSovrapponi", "Dispone le finestre a cascata, l'una sull'altra."},
    {"mnuAffianca", "Dispone le finestre l'una accanto all'altra, in modo che si vedano tutte."},
    {"mnuChiudiTutte", "Chiude tutte le finestre tranne quella delle Terzine e della cinquina."},
    {SuggerimentiMenu::VoceFinestra, "Porta in primo piano questa finestra."},
    {"mnuInfo", "Il programma, la guida, gli aggiornamenti e le comunicazioni."},
    {"mnuCredits", "Versione, diritti d'autore e licenza del programma."},
    {"mnuInformazioni", "Versione del programma e di Qt, licenza, origine dei dati consegnati."},
    {"mnuAggiornamenti", "Chiede al sito se c'è una versione più recente del programma."},
    {"mnuComunicazioni", "I messaggi pubblicati sul sito per gli utenti del programma."},
    {"mnuGuida", "La guida del programma."},
    {"mnuNovita", "Che cosa cambia in questa versione del programma."},
    {"mnuLotto", "Gli altri giochi, con il collegamento al sito."},
    {"mnuImpostazioni", "Indirizzo del sito degli aggiornamenti e prova del collegamento."},
    {"mnuEsci", "Chiude il programma."},
};

} // namespace

QString SuggerimentiMenu::per(const QString &nome) {
    static const QHash<QString, QString> tabella = [] {
        QHash<QString, QString> t;
        for (const Suggerimento &s : Suggerimenti)
            t.insert(QString::fromLatin1(s.nome), QString::fromUtf8(s.testo));
        return t;
    }();
    return tabella.value(nome);
}
