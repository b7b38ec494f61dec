#include "aggiornamenti/frminternet.h"

#include "aggiornamenti/aggiornamentisito.h"
#include "core/frmattendere.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"
#include "schedine/quote.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The waiting box's bar: the start, then one step per league table.
constexpr int FineBarra = 8;

QString testo(const char *utf8) {
    return QString::fromUtf8(utf8);
}

} // namespace

FrmInternet::FrmInternet(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmInternet"_s);
    QPushButton *cmdAggiorna =
        componi(this, u"Aggiornamento da Internet"_s,
                u"Aggiorna dal sito di Vespara l'archivio delle colonne vincenti, le classifiche "
                "del campionato italiano, le quote, le schedine e i picchetti del prossimo "
                "concorso.\n\nÈ necessario essere collegati ad Internet."_s);
    connect(cmdAggiorna, &QPushButton::clicked, this, &FrmInternet::aggiorna);
}

FrmInternet::~FrmInternet() = default;

QPushButton *FrmInternet::componi(QWidget *schermo, const QString &titolo,
                                  const QString &spiegazione) {
    schermo->setWindowTitle(titolo);
    auto *lblTitolo = new QLabel(titolo, schermo);
    lblTitolo->setObjectName(u"lblTitolo"_s);
    MdiStile::grassetto(lblTitolo, 1.3);
    auto *lblSpiegazione = new QLabel(spiegazione, schermo);
    lblSpiegazione->setObjectName(u"lblSpiegazione"_s);
    lblSpiegazione->setWordWrap(true);
    lblSpiegazione->setMinimumWidth(360);

    auto *cmdAggiorna = new QPushButton(u"Aggiorna"_s, schermo);
    cmdAggiorna->setObjectName(u"cmdAggiorna"_s);
    MdiTastiera::pulsantePredefinito(schermo, cmdAggiorna);
    auto *cmdChiudi = new QPushButton(u"Chiudi"_s, schermo);
    cmdChiudi->setObjectName(u"cmdChiudi"_s);
    QObject::connect(cmdChiudi, &QPushButton::clicked, schermo, &QWidget::close);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdAggiorna);
    pulsanti->addWidget(cmdChiudi);

    auto *layout = new QVBoxLayout(schermo);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->addWidget(lblTitolo);
    layout->addSpacing(6);
    layout->addWidget(lblSpiegazione);
    layout->addSpacing(10);
    layout->addLayout(pulsanti);
    return cmdAggiorna;
}

bool FrmInternet::collegato(StatoProgramma &stato, AggiornamentiSito &sito) {
    if (sito.verificaConnessione())
        return true;
    stato.dialoghi().critico(Dialoghi::titoloAggiornamenti(),
                             testo(AggiornamentiSito::SenzaConnessione));
    return false;
}

void FrmInternet::aggiornaParziale(
    StatoProgramma &stato, const std::function<void(AggiornamentiSito &)> &passi,
    const std::function<void(StatoProgramma &, AggiornamentiSito &)> &dopo,
    const QString &testoFinale, bool riapri) {
    // Only locals from here on: reopening the panel closes the calling screen.
    eseguiProtetto(stato.dialoghi(), [&] {
        AggiornamentiSito sito(stato);
        if (!collegato(stato, sito))
            return;
        Clessidra clessidra;
        bool finito = false;
        {
            // Screens that showed files stopped half-way would mislead: they are opened anew
            // whatever happens once a step has begun.
            auto riaperti = qScopeGuard([&] {
                if (riapri)
                    riapriDopoModificaArchivio(stato, false);
            });
            finito = sito.riepilogo().esegui([&] { passi(sito); });
        }
        clessidra.rilascia();
        if (!finito) {
            sito.riepilogo().avvisa(stato.dialoghi(), stato.rete());
            return;
        }
        if (dopo)
            dopo(stato, sito);
        annunciaModificaArchivio(stato.dialoghi(), Dialoghi::titoloAggiornamenti(), testoFinale,
                                 sito.notaArchivio());
    });
}

void FrmInternet::aggiorna() {
    StatoProgramma &stato = m_stato;
    eseguiProtetto(stato.dialoghi(), [&stato] {
        Dialoghi &dialoghi = stato.dialoghi();
        const QString titolo = Dialoghi::titoloAggiornamenti();
        AggiornamentiSito sito(stato);
        if (!collegato(stato, sito))
            return;
        Clessidra clessidra;
        QStringList archivio;
        bool ricostruire = true;
        bool finito = sito.riepilogo().esegui([&] {
            sito.scaricaVersione();
            archivio = sito.scaricaArchivio();
            ricostruire = AggiornamentiSito::daRicostruire(archivio, stato.NumeroColonne());
        });
        sito.prevediCompleto(ricostruire);
        if (!finito) {
            clessidra.rilascia();
            sito.riepilogo().avvisa(dialoghi, stato.rete());
            return;
        }
        RegistroSchermi *registro = stato.registro();
        {
            // Once the archive is rebuilt, the screens and the dashboard show the new one, also
            // when a later step stops the update. This screen closes then: locals only after.
            bool ricostruito = false;
            auto riaperti = qScopeGuard([&] {
                if (ricostruito)
                    riapriDopoModificaArchivio(stato, true);
            });
            FrmAttendere attesa(registro ? registro->finestra() : nullptr);
            attesa.setIntervallo(0, FineBarra);
            attesa.setValore(1);
            attesa.setAnnullamento([&stato] { stato.rete().annulla(); });
            attesa.show();
            QApplication::processEvents();
            finito = sito.riepilogo().esegui([&] {
                if (ricostruire) {
                    sito.ricostruisciArchivio(archivio);
                    ricostruito = true;
                }
                sito.aggiornaClassifiche([&attesa](int fatte) {
                    attesa.setValore(1 + fatte);
                    QApplication::processEvents();
                });
                sito.aggiornaSchedine();
            });
            attesa.close();
            if (finito)
                riaperti.dismiss();
        }
        if (!finito) {
            clessidra.rilascia();
            sito.riepilogo().avvisa(dialoghi, stato.rete());
            return;
        }
        riapriDopoModificaArchivio(stato, false);
        bool quote = true;
        finito = sito.riepilogo().esegui([&] { quote = sito.aggiornaQuote().has_value(); });
        if (registro && !stato.rete().inChiusura())
            registro->aggiornaCruscotto();
        clessidra.rilascia();
        if (!finito) {
            sito.riepilogo().avvisa(dialoghi, stato.rete());
            return;
        }
        if (!quote)
            dialoghi.critico(titolo, testo(Quote::SenzaConnessione));
        annunciaModificaArchivio(dialoghi, titolo, u"Aggiornamento effettuato."_s,
                                 sito.notaArchivio());
    });
}
