#pragma once

class MdiPannello;

// What the frame asks of the update site: the message check at start-up, the release notes of a
// new version, and the check for a newer program each time the frame becomes active.
class MdiAggiornamenti {
public:
    static void controllaMessaggi(MdiPannello &pannello);
    static void mostraNovita(MdiPannello &pannello);
    static void verificaAggiornamenti(MdiPannello &pannello);
    // Gives the frame the screens and menu actions of the messages and of the program update.
    static void registra(MdiPannello &pannello);
};
