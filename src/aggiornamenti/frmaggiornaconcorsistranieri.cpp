#include "aggiornamenti/frmaggiornaconcorsistranieri.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

FrmAggiornaConcorsiStranieri::FrmAggiornaConcorsiStranieri(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggiornaConcorsiStranieri"_s);
    QPushButton *cmdAggiorna = FrmInternet::componi(
        this, u"Aggiorna campionati stranieri"_s,
        u"Aggiorna dal sito di Vespara le squadre dei dodici campionati stranieri. Le "
        "liste attuali delle squadre straniere vengono sostituite."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, [this] {
        // The team lists touch no figure of an open screen: they stay open.
        FrmInternet::aggiornaParziale(
            m_stato, [](AggiornamentiSito &sito) { sito.aggiornaConcorsiStranieri(); },
            u"Il programma è stato aggiornato correttamente per i Concorsi stranieri."_s, false);
    });
}

FrmAggiornaConcorsiStranieri::~FrmAggiornaConcorsiStranieri() = default;
