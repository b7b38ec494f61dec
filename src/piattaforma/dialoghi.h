#pragma once

#include <QString>
#include <QUrl>

class QPrinter;

// Every box and system dialog of the program goes through this service, so that tests can read
// what a user would have seen and answer the questions.
class Dialoghi {
public:
    enum class Tipo { Informazione, Avviso, Critico, Domanda };

    virtual ~Dialoghi() = default;

    virtual void informazione(const QString &titolo, const QString &testo) = 0;
    virtual void avviso(const QString &titolo, const QString &testo) = 0;
    virtual void critico(const QString &titolo, const QString &testo) = 0;
    // Yes/No question: true for Yes.
    virtual bool domanda(const QString &titolo, const QString &testo) = 0;
    // The save-file dialog: the chosen path, or an empty text when cancelled. `filtro` is in Qt's
    // form, such as "Cartella di lavoro Excel (*.xlsx)".
    virtual QString salvaFile(const QString &titolo, const QString &filtro) = 0;
    // The print dialog on that printer (the printer's own set-up): true when confirmed.
    virtual bool dialogoStampa(QPrinter &stampante) = 0;
    // Opens a file or a URL with the desktop's program for it; false when that failed.
    virtual bool apriConDesktop(const QUrl &indirizzo) = 0;

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
};
