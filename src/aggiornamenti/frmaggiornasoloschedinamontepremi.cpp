#include "aggiornamenti/frmaggiornasoloschedinamontepremi.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

FrmAggiornaSoloSchedinaMontepremi::FrmAggiornaSoloSchedinaMontepremi(StatoProgramma &stato,
                                                                     QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggiornaSoloSchedinaMontepremi"_s);
    QPushButton *cmdAggiorna = FrmInternet::componi(
        this, u"Aggiorna schedine e picchetti"_s,
        u"Aggiorna dal sito di Vespara il montepremi e le quote, le tre schedine e i tre "
        "picchetti del prossimo concorso."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, [this] {
        FrmInternet::aggiornaParziale(
            m_stato, [](AggiornamentiSito &sito) { sito.aggiornaSchedineEPicchetti(); },
            u"Le schedine sono state aggiornate."_s, true);
    });
}

FrmAggiornaSoloSchedinaMontepremi::~FrmAggiornaSoloSchedinaMontepremi() = default;
