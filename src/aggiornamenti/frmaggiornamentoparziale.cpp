#include "aggiornamenti/frmaggiornamentoparziale.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "schedine/quote.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

const QList<FrmAggiornamentoParziale::Parziale> &FrmAggiornamentoParziale::tutti() {
    static const QList<Parziale> elenco{
        {"frmAggiornaSoloArchivi", "Aggiorna/Ripara archivi",
         "Scarica dal sito di Vespara l'archivio completo delle colonne vincenti e ricostruisce da "
         "esso gli archivi del programma, anche quando quelli del computer sono più recenti o "
         "danneggiati.",
         // A repair: no comparison of sizes, the site's archive always wins.
         [](AggiornamentiSito &sito) { sito.riparaArchivio(); },
         [](StatoProgramma &stato, AggiornamentiSito &sito) {
             if (!sito.aggiornaQuote())
                 stato.dialoghi().critico(Dialoghi::titoloAggiornamenti(),
                                          QString::fromUtf8(Quote::SenzaConnessione));
             if (stato.registro())
                 stato.registro()->aggiornaCruscotto();
         },
         "Gli archivi sono stati aggiornati.", true},
        {"frmAggiornaSoloClassifiche",
         "Aggiorna classifiche",
         "Aggiorna dal sito di Vespara le classifiche delle sette serie del campionato italiano.",
         [](AggiornamentiSito &sito) { sito.aggiornaClassifiche(); },
         {},
         "Le classifiche sono state aggiornate.",
         true},
        {"frmAggiornaSoloSchedinaMontepremi",
         "Aggiorna schedine e picchetti",
         "Aggiorna dal sito di Vespara le quote, le tre schedine e i tre picchetti.",
         [](AggiornamentiSito &sito) { sito.aggiornaSchedineEPicchetti(); },
         {},
         "Le schedine sono state aggiornate.",
         true},
        {"frmAggiornaSoloPicchetto",
         "Aggiorna picchetti",
         "Aggiorna dal sito di Vespara i tre picchetti del prossimo concorso.",
         [](AggiornamentiSito &sito) { sito.aggiornaPicchetto(); },
         {},
         "I Picchetti sono stati aggiornati.",
         true},
        {"frmAggiornaSoloSchedinaProssimoConcorso",
         "Aggiorna montepremi e quote",
         "Aggiorna dal sito di Vespara il montepremi e le quote.",
         [](AggiornamentiSito &sito) { sito.caricaMontepremi(); },
         {},
         "Il Montepremi e le Quote sono stati aggiornati.",
         true},
        // The team lists touch no figure of an open screen: the screens stay open.
        {"frmAggiornaConcorsiStranieri",
         "Aggiorna campionati stranieri",
         "Aggiorna dal sito di Vespara le squadre dei dodici campionati stranieri. Le liste "
         "attuali delle squadre straniere vengono sostituite.",
         [](AggiornamentiSito &sito) { sito.aggiornaConcorsiStranieri(); },
         {},
         "Il programma è stato aggiornato correttamente per i Concorsi stranieri.",
         false},
    };
    return elenco;
}

FrmAggiornamentoParziale::FrmAggiornamentoParziale(StatoProgramma &stato, const Parziale &parziale,
                                                   QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_parziale(parziale) {
    setObjectName(QString::fromLatin1(parziale.nome));
    QPushButton *cmdAggiorna = FrmInternet::componi(this, QString::fromUtf8(parziale.titolo),
                                                    QString::fromUtf8(parziale.spiegazione));
    connect(cmdAggiorna, &QPushButton::clicked, this, [this] {
        FrmInternet::aggiornaParziale(m_stato, m_parziale.passi, m_parziale.dopo,
                                      QString::fromUtf8(m_parziale.finale), m_parziale.riapri);
    });
}
