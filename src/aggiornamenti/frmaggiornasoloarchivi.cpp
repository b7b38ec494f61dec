#include "aggiornamenti/frmaggiornasoloarchivi.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "aggiornamenti/frminternet.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

FrmAggiornaSoloArchivi::FrmAggiornaSoloArchivi(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggiornaSoloArchivi"_s);
    QPushButton *cmdAggiorna = FrmInternet::componi(
        this, u"Aggiorna/Ripara archivi"_s,
        u"Scarica dal sito di Vespara l'archivio completo delle colonne vincenti e ricostruisce "
        "da esso gli archivi del programma, anche quando quelli del computer sono più "
        "recenti o danneggiati."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, &FrmAggiornaSoloArchivi::aggiorna);
}

FrmAggiornaSoloArchivi::~FrmAggiornaSoloArchivi() = default;

void FrmAggiornaSoloArchivi::aggiorna() {
    StatoProgramma &stato = m_stato;
    eseguiProtetto(stato.dialoghi(), [&stato] {
        Dialoghi &dialoghi = stato.dialoghi();
        const QString titolo = Dialoghi::titoloAggiornamenti();
        AggiornamentiSito sito(stato);
        if (!FrmInternet::collegato(stato, sito))
            return;
        FrmInternet::Clessidra clessidra;
        // A repair: no comparison of sizes, the site's archive always wins.
        sito.ricostruisciArchivio(sito.scaricaArchivio());
        RegistroSchermi *registro = stato.registro();
        // This screen closes here: the rest runs on locals only.
        if (registro)
            riapriDopoModificaArchivio(*registro, false);
        if (!sito.aggiornaQuote())
            dialoghi.critico(titolo, QString::fromUtf8(AggiornamentiSito::SenzaConnessioneQuote));
        if (registro)
            registro->aggiornaCruscotto();
        clessidra.rilascia();
        dialoghi.informazione(titolo, u"Gli archivi sono stati aggiornati."_s);
    });
}
