#pragma once

#include <QString>
#include <QUrl>

#include <functional>

class Impostazioni;
class QPrinter;

// Every box and system dialog of the program goes through this service, so that tests can read
// what a user would have seen and answer the questions.
class Dialoghi {
public:
    enum class Tipo { Informazione, Avviso, Critico, Domanda };
    // What shows the notes of avvisoStato: the frame installs it.
    using GestoreStato = std::function<void(const QString &)>;

    virtual ~Dialoghi() = default;

    virtual void informazione(const QString &titolo, const QString &testo) = 0;
    virtual void avviso(const QString &titolo, const QString &testo) = 0;
    virtual void critico(const QString &titolo, const QString &testo) = 0;
    // Yes/No question: true for Yes.
    virtual bool domanda(const QString &titolo, const QString &testo) = 0;
    // The save-file dialog, opened on `proposta` (a folder and a file name; empty: wherever the
    // dialog likes): the chosen path, or an empty text when cancelled. `filtro` is in Qt's form,
    // such as "Cartella di lavoro Excel (*.xlsx)".
    virtual QString dialogoSalvataggio(const QString &titolo, const QString &filtro,
                                       const QString &proposta) = 0;
    // The print dialog on that printer (the printer's own set-up): true when confirmed.
    virtual bool dialogoStampa(QPrinter &stampante) = 0;
    // Opens a file or a URL with the desktop's program for it; false when that failed.
    virtual bool apriConDesktop(const QUrl &indirizzo) = 0;
    // A short note of what was just done, such as where a file went, for the frame's status bar:
    // it goes to the handler the frame installed, and nowhere without one or once silenced.
    virtual void avvisoStato(const QString &testo);
    void setGestoreStato(GestoreStato gestore) { m_gestoreStato = std::move(gestore); }

    // The save dialog of the program's files: it proposes the file `nome` (a name made by
    // nomeFile) in the folder of the last file saved. The chosen path, or empty when cancelled.
    QString salvaFile(const Impostazioni &impostazioni, const QString &titolo,
                      const QString &filtro, const QString &nome);
    // A file that the user chose has been written: its folder is remembered for the next
    // proposal, and the status bar says where the file went.
    void fileSalvato(Impostazioni &impostazioni, const QString &percorso);

    // Where a new file `nome` is proposed: in the folder of the last file saved while it exists,
    // else in the user's documents folder (the home folder when there is none).
    static QString propostaFile(const Impostazioni &impostazioni, const QString &nome);
    // A file name made from a title and a suffix: the characters that a file name can't hold
    // (/ \ : * ? " < > | and control characters) become "-", runs of blanks one blank, blanks and
    // dots at either end go, the name is cut to 100 characters; an empty one is "Vespara", and
    // the names that Windows keeps for its devices ("CON", "LPT1.txt") get a "_" before the first
    // dot. "Riepilogo Formule, alla data 23/11/2026" and "xlsx" make "Riepilogo Formule, alla
    // data 23-11-2026.xlsx".
    static QString nomeFile(const QString &titolo, const QString &suffisso);
    // The note after a save: "File salvato in " and the whole path.
    static QString testoFileSalvato(const QString &percorso);

    // The program is closing: no box is shown any more (a question answers No), so that an
    // operation stopped by the close doesn't flash its boxes on the way out.
    void silenzia() { m_silenzio = true; }
    bool silenziato() const { return m_silenzio; }

    // The title of the boxes that name none of their own.
    static QString titoloApplicazione();
    // The title of every box about the network.
    static QString titoloAggiornamenti() {
        return QStringLiteral("Aggiornamenti ") + titoloApplicazione();
    }

private:
    bool m_silenzio = false;
    GestoreStato m_gestoreStato;
};
