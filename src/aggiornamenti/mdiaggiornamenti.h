#pragma once

class RegistroSchermi;
class VerificaVersione;

// What the frame asks of the update site: the message check at start-up, the release notes of a
// new version, and the check for a newer program each time the frame becomes active.
class MdiAggiornamenti {
public:
    // ControllaMessaggi: a message newer than new.dat starts the frame's indicator.
    static void controllaMessaggi(RegistroSchermi &pannello);
    // Opens frmRelease.
    static void mostraNovita(RegistroSchermi &pannello);
    // cmdVerificaAgg: the frame's silent check, silent unless a newer program is on the site. It
    // runs when the user comes back to the frame, whatever "Mostra sempre aggiornamenti" says;
    // the frame owns it.
    static VerificaVersione *creaVerifica(RegistroSchermi &pannello);
    // True while another operation holds the program: the silent check waits for the next
    // activation, and drops a question that would come in the middle of it.
    static bool altraOperazione(RegistroSchermi &pannello);
    // Gives the frame the screens and menu actions of the messages and of the program update.
    static void registra(RegistroSchermi &pannello);

    static constexpr const char16_t *DomandaAggiornamento =
        u"E' presente on-line una versione aggiornata e corretta per Vespara. Il programma verrà "
        u"chiuso, quindi, dopo aver effettuato l'aggiornamento, riavviarlo. Vuoi scaricare "
        u"l'aggiornamento adesso?";
};
