#pragma once

class MdiPannello;

// The start-up sequence of the frame, in its order: shared tables, archive, season, team lists,
// the first screen, the dashboard, messages, the season reminder and the release notes.
class MdiAvvio {
public:
    // False when the start cannot go on (a fault in an unguarded step, shown in a critical box).
    static bool esegui(MdiPannello &pannello);

    static const char *const AvvisoRisoluzione;
    // The boxes of an archive that can't be read (UTF-8).
    static const char *const ArchivioIlleggibile;
    static const char *const DomandaRipristino;
    static const char *const AvvioSenzaArchivio;
    static const char *const PromemoriaStagione;
};
