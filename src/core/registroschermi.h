#pragma once

#include <QPoint>
#include <QString>

class QWidget;

// What the screens ask of the frame that owns them: the registry of open screens.
class RegistroSchermi {
public:
    virtual ~RegistroSchermi() = default;
    // Closes every open screen but the frame, from the last opened to the first.
    virtual void chiudiSchermi() = 0;
    // Shows the screen of that name, creating it if it isn't there.
    virtual void mostraSchermo(const QString &nome) = 0;
    // Refreshes the dashboard from the last archive row (AggStatusBar).
    virtual void aggiornaCruscotto() = 0;
    // Opens the pop-up menu of the export (frmMenuGriglie) at that point of the screen, once a
    // screen has handed its grid to the export.
    virtual void apriMenuGriglie(QPoint globale) = 0;
    // The window the prints and previews of the screens belong to.
    virtual QWidget *finestra() = 0;
};

class StatoProgramma;

// After a writer changed the archive: no screen may keep figures of the old one, so all are
// closed and the signs panel opens again; the dashboard follows unless the writer says not. The
// write is done by then: a panel that can't take the new archive says so in its own box, and the
// rest still runs. Nothing happens while the program is closing.
void riapriDopoModificaArchivio(StatoProgramma &stato, bool aggiornaCruscotto);
