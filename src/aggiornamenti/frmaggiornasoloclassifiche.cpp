#include "aggiornamenti/frmaggiornasoloclassifiche.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

FrmAggiornaSoloClassifiche::FrmAggiornaSoloClassifiche(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggiornaSoloClassifiche"_s);
    QPushButton *cmdAggiorna = FrmInternet::componi(
        this, u"Aggiorna classifiche"_s,
        u"Aggiorna dal sito di Vespara le classifiche delle sette serie del campionato "
        "italiano."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, [this] {
        FrmInternet::aggiornaParziale(
            m_stato, [](AggiornamentiSito &sito) { sito.aggiornaClassifiche(); },
            u"Le classifiche sono state aggiornate."_s, true);
    });
}

FrmAggiornaSoloClassifiche::~FrmAggiornaSoloClassifiche() = default;
