#pragma once

class RegistroSchermi;

// What the frame asks of the update site: the message check at start-up, the release notes of a
// new version, and the check for a newer program each time the frame becomes active.
class MdiAggiornamenti {
public:
    // ControllaMessaggi: a message newer than new.dat starts the frame's indicator.
    static void controllaMessaggi(RegistroSchermi &pannello);
    // Opens frmRelease.
    static void mostraNovita(RegistroSchermi &pannello);
    // cmdVerificaAgg: silent unless a newer program is on the site. It runs on every activation
    // of the frame, whatever "Mostra sempre aggiornamenti" says, and never inside itself.
    static void verificaAggiornamenti(RegistroSchermi &pannello);
    // True while another operation holds the program: the activation check waits for the next
    // activation.
    static bool altraOperazione(RegistroSchermi &pannello);
    // Gives the frame the screens and menu actions of the messages and of the program update.
    static void registra(RegistroSchermi &pannello);

    static constexpr const char16_t *DomandaAggiornamento =
        u"E' presente on-line una versione aggiornata e corretta per Vespara. Il programma verrà "
        u"chiuso, quindi, dopo aver effettuato l'aggiornamento, riavviarlo. Vuoi scaricare "
        u"l'aggiornamento adesso?";
};
