#include "aggiornamenti/mdiaggiornamenti.h"

// The talk with the update site is not built yet: until it is, the three calls do nothing and
// the frame behaves as with no new message, no release notes and no newer version.

void MdiAggiornamenti::controllaMessaggi(MdiPannello &) {}

void MdiAggiornamenti::mostraNovita(MdiPannello &) {}

void MdiAggiornamenti::verificaAggiornamenti(MdiPannello &) {}

void MdiAggiornamenti::registra(MdiPannello &) {}
