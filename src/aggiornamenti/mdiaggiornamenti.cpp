#include "aggiornamenti/mdiaggiornamenti.h"

#include "aggiornamenti/frmaggiornamenti.h"
#include "aggiornamenti/frmaltrigiochi.h"
#include "aggiornamenti/frmcomm.h"
#include "aggiornamenti/frmimpostazioni.h"
#include "aggiornamenti/frminviamessaggio.h"
#include "aggiornamenti/frmrelease.h"
#include "aggiornamenti/messaggi.h"
#include "aggiornamenti/verificaversione.h"
#include "aggiornamenti/versione.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QApplication>
#include <QPushButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The check from the menu runs on the frame it belongs to.
constexpr const char *VerificaInCorso = "vesparaVerificaInCorso";

// While the check from the menu runs, to its last box, the silent one does not start.
class InCorso {
public:
    explicit InCorso(RegistroSchermi &pannello)
        : m_pannello(pannello) {
        m_pannello.finestra()->setProperty(VerificaInCorso, true);
    }
    ~InCorso() { m_pannello.finestra()->setProperty(VerificaInCorso, false); }
    InCorso(const InCorso &) = delete;
    InCorso &operator=(const InCorso &) = delete;

private:
    RegistroSchermi &m_pannello;
};

// The hourglass until the network is done with, before any box.
class Clessidra {
public:
    Clessidra() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Clessidra() { fine(); }
    Clessidra(const Clessidra &) = delete;
    Clessidra &operator=(const Clessidra &) = delete;
    void fine() {
        if (m_attiva)
            QApplication::restoreOverrideCursor();
        m_attiva = false;
    }

private:
    bool m_attiva = true;
};

// A newer version is on the site: the question, and the screen of the download on Yes.
void offriAggiornamento(RegistroSchermi &pannello, const QString &versione) {
    const bool si = pannello.stato().dialoghi().domanda(
        Dialoghi::titoloAggiornamenti(),
        QString::fromUtf16(MdiAggiornamenti::DomandaAggiornamento));
    if (si)
        if (auto *frm =
                qobject_cast<FrmAggiornamenti *>(pannello.apriSchermo(u"frmAggiornamenti"_s)))
            frm->impostaVersione(versione);
}

void verificaDaMenu(RegistroSchermi &pannello) {
    InCorso inCorso(pannello);
    Clessidra clessidra;
    Dialoghi &dialoghi = pannello.stato().dialoghi();
    Rete &rete = pannello.stato().rete();
    Rete::Operazione operazione(rete);
    if (!rete.verificaConnessione()) {
        clessidra.fine();
        dialoghi.critico(Dialoghi::titoloAggiornamenti(),
                         u"Impossibile verificare se è presente on-line una versione più "
                         "aggiornata per Vespara. Nessuna connessione Internet trovata."_s);
        return;
    }
    const QString versione = Versione::scarica(rete);
    clessidra.fine();
    if (!versione.isEmpty() && Versione::piuRecente(versione))
        offriAggiornamento(pannello, versione);
    else
        dialoghi.informazione(Dialoghi::titoloAggiornamenti(),
                              u"Non risulta alcuna versione più aggiornata per Vespara."_s);
}

void apriComunicazioni(RegistroSchermi &pannello) {
    Rete::Operazione operazione(pannello.stato().rete());
    if (!pannello.stato().rete().verificaConnessione()) {
        pannello.stato().dialoghi().critico(
            Dialoghi::titoloAggiornamenti(),
            u"Nessuna connessione Internet attiva. Impossibile continuare."_s);
        return;
    }
    pannello.mostraSchermo(u"frmComm"_s);
}

void apriSito(RegistroSchermi &pannello) {
    Rete &rete = pannello.stato().rete();
    Rete::Operazione operazione(rete);
    if (!rete.verificaConnessione()) {
        pannello.stato().dialoghi().critico(Dialoghi::titoloAggiornamenti(),
                                            u"Nessuna connessione Internet attiva."_s);
        return;
    }
    pannello.stato().dialoghi().apriConDesktop(rete.url(u"/vespara/"_s));
}

} // namespace

void MdiAggiornamenti::controllaMessaggi(RegistroSchermi &pannello) {
    StatoProgramma &stato = pannello.stato();
    // An unreadable new.dat is shown and the start goes on.
    eseguiProtetto(stato.dialoghi(), [&] {
        QPushButton *img = pannello.imgComm();
        Rete &rete = stato.rete();
        Rete::Operazione operazione(rete);
        if (!rete.verificaConnessione()) {
            img->setToolTip(u"Connessione non attiva."_s);
            return;
        }
        if (!Messaggi::controlla(rete, stato.PercorsoDati, true).nuovo)
            return;
        pannello.avviaIndicatore();
        img->setToolTip(u"Nuovo messaggio: "_s + Messaggi::ultimoTitolo(rete));
    });
}

void MdiAggiornamenti::mostraNovita(RegistroSchermi &pannello) {
    pannello.mostraSchermo(u"frmRelease"_s);
}

bool MdiAggiornamenti::altraOperazione(RegistroSchermi &pannello) {
    return pannello.finestra()->property(VerificaInCorso).toBool() ||
           pannello.stato().rete().occupata() || !pannello.finestra()->isEnabled() ||
           QApplication::activeModalWidget() || QApplication::overrideCursor();
}

VerificaVersione *MdiAggiornamenti::creaVerifica(RegistroSchermi &pannello) {
    const auto libera = [&pannello] {
        // The offer on show already is the answer.
        return !altraOperazione(pannello) && !pannello.stato().rete().inChiusura() &&
               !pannello.trovaSchermo(u"frmAggiornamenti"_s);
    };
    const auto offri = [&pannello](const QString &versione) {
        eseguiProtetto(pannello.stato().dialoghi(),
                       [&] { offriAggiornamento(pannello, versione); });
    };
    return new VerificaVersione(pannello.stato().rete(), libera, offri, pannello.finestra());
}

void MdiAggiornamenti::registra(RegistroSchermi &pannello) {
    pannello.registraSchermo(u"frmComm"_s, [](StatoProgramma &stato, RegistroSchermi &p) {
        // Form_Load may fail (new.dat missing, pages that don't match): then no screen opens.
        auto frm = std::make_unique<FrmComm>(stato, p);
        frm->carica();
        return frm.release();
    });
    pannello.registraSchermo(u"frmInviaMessaggio"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmInviaMessaggio(stato);
    });
    pannello.registraSchermo(u"frmRelease"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmRelease(stato);
    });
    // The frame centres it in its area.
    pannello.registraSchermo(u"frmAggiornamenti"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmAggiornamenti(stato);
    });
    pannello.registraSchermo(u"frmAltriGiochi"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmAltriGiochi(stato);
    });
    pannello.registraSchermo(u"frmImpostazioni"_s, [](StatoProgramma &stato, RegistroSchermi &) {
        return new FrmImpostazioni(stato);
    });

    pannello.registraAzione(u"mnuAggiornamenti"_s, [&pannello] { verificaDaMenu(pannello); });
    pannello.registraAzione(u"mnuComunicazioni"_s, [&pannello] { apriComunicazioni(pannello); });
    pannello.registraAzione(u"mnuLotto"_s,
                            [&pannello] { pannello.mostraSchermo(u"frmAltriGiochi"_s); });
    pannello.registraAzione(u"TB(7)"_s,
                            [&pannello] { pannello.mostraSchermo(u"frmInviaMessaggio"_s); });
    pannello.registraAzione(u"TB(8)"_s, [&pannello] { apriSito(pannello); });
    // The indicator opens the messages as they are, without asking for the connection first.
    QObject::connect(pannello.imgComm(), &QPushButton::clicked, pannello.finestra(), [&pannello] {
        eseguiProtetto(pannello.stato().dialoghi(), [&] { pannello.mostraSchermo(u"frmComm"_s); });
    });
}
