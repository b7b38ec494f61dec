#pragma once

#include <QPoint>
#include <QString>

#include <functional>

class QPushButton;
class QWidget;
class Dialoghi;
class StatoProgramma;

// What the subsystems and their screens ask of the frame that owns them: the registry of screens
// and of the menu's actions, the dashboard, the export pop-up, the message indicator. The frame
// (cornice/) implements it; nothing below the frame knows the frame's class.
class RegistroSchermi {
public:
    // Creates a screen; the frame shows it in its area (a QDialog is shown as it is).
    using Fabbrica = std::function<QWidget *(StatoProgramma &, RegistroSchermi &)>;
    // A screen with this property true keeps the place it opens at (top left of the area);
    // every other screen is centred in the area.
    static constexpr const char *PosizioneFissa = "vesparaPosizioneFissa";

    virtual ~RegistroSchermi() = default;

    virtual StatoProgramma &stato() const = 0;
    // Registers the screen of that name; its menu entries and toolbar buttons come alive.
    virtual void registraSchermo(const QString &nome, Fabbrica fabbrica) = 0;
    // A menu entry or toolbar button (by its name: "mnuEsci", "TB(10)") gets its action; entries
    // without one stay disabled.
    virtual void registraAzione(const QString &nome, std::function<void()> azione) = 0;
    // The open screen of that name, or null.
    virtual QWidget *trovaSchermo(const QString &nome) const = 0;
    // Shows the screen of that name, creating it if it isn't there, and returns it (null when
    // no such screen is registered or its creation failed).
    virtual QWidget *apriSchermo(const QString &nome) = 0;
    // Shows the screen of that name, creating it if it isn't there; a fault of the creation is
    // shown in the fault box.
    virtual void mostraSchermo(const QString &nome) = 0;
    // Closes the open screen of that name, if there is one, and shows a new one, which reads the
    // program state afresh (the league table of another match, say); a fault is shown as above.
    virtual void rimostraSchermo(const QString &nome) = 0;
    // Tells the open screen of that name, if there is one, to run its invokable method `metodo`
    // (a screen of another subsystem reads what changed from the program state); false when
    // no such screen is open or it has no such method.
    virtual bool avvisaSchermo(const QString &nome, const char *metodo) = 0;
    // Closes every open screen but the frame, from the last opened to the first.
    virtual void chiudiSchermi() = 0;
    // The frame's caption: the program's version and the season (StatoProgramma::Stagione).
    virtual void aggiornaTitolo() = 0;
    // Refreshes the dashboard from the last archive row (AggStatusBar).
    virtual void aggiornaCruscotto() = 0;
    // Opens the pop-up menu of the export (frmMenuGriglie) at that point of the screen, once a
    // screen has handed its grid to the export.
    virtual void apriMenuGriglie(QPoint globale) = 0;
    // The window the prints, previews and boxes of the screens belong to.
    virtual QWidget *finestra() = 0;

    // The message indicator: the animation of new messages, and the rest picture. Its button's
    // tool tip tells the state of the messages; a click opens them.
    virtual void avviaIndicatore() = 0;
    virtual void fermaIndicatore() = 0;
    virtual QPushButton *imgComm() const = 0;
};

// After a writer changed the archive: no screen may keep figures of the old one, so all are
// closed and the signs panel opens again; the dashboard follows unless the writer says not. The
// write is done by then: a panel that can't take the new archive says so in its own box, and the
// rest still runs. Nothing happens while the program is closing.
void riapriDopoModificaArchivio(StatoProgramma &stato, bool aggiornaCruscotto);

// The one box after a change of the archive: `testo` as an information, or, when the writer left
// a note (Archivio::sostituisci), `testo` and the note as a warning.
void annunciaModificaArchivio(Dialoghi &dialoghi, const QString &titolo, const QString &testo,
                              const QString &nota);
