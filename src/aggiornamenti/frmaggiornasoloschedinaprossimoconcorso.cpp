#include "aggiornamenti/frmaggiornasoloschedinaprossimoconcorso.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

FrmAggiornaSoloSchedinaProssimoConcorso::FrmAggiornaSoloSchedinaProssimoConcorso(
    StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggiornaSoloSchedinaProssimoConcorso"_s);
    QPushButton *cmdAggiorna = FrmInternet::componi(
        this, u"Aggiorna montepremi e quote"_s,
        u"Aggiorna dal sito di Vespara il montepremi e le quote del prossimo concorso."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, [this] {
        FrmInternet::aggiornaParziale(
            m_stato, [](AggiornamentiSito &sito) { sito.caricaMontepremi(); },
            u"Il Montepremi e le Quote sono stati aggiornati."_s, true);
    });
}

FrmAggiornaSoloSchedinaProssimoConcorso::~FrmAggiornaSoloSchedinaProssimoConcorso() = default;
