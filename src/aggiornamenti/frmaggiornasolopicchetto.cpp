#include "aggiornamenti/frmaggiornasolopicchetto.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

FrmAggiornaSoloPicchetto::FrmAggiornaSoloPicchetto(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggiornaSoloPicchetto"_s);
    QPushButton *cmdAggiorna = FrmInternet::componi(
        this, u"Aggiorna picchetti"_s,
        u"Aggiorna dal sito di Vespara i tre picchetti del prossimo concorso."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, [this] {
        FrmInternet::aggiornaParziale(
            m_stato, [](AggiornamentiSito &sito) { sito.aggiornaPicchetto(); },
            u"I Picchetti sono stati aggiornati."_s, true);
    });
}

FrmAggiornaSoloPicchetto::~FrmAggiornaSoloPicchetto() = default;
