#pragma once

#include <QWidget>

class QTextBrowser;
class StatoProgramma;

// The release notes of this version, as the update site publishes them.
class FrmRelease : public QWidget {
    Q_OBJECT
public:
    static constexpr const char16_t *Titolo = u"Le Novità di questa Versione";
    static constexpr const char16_t *Pagina = u"/vespara/release.asp";
    static constexpr const char16_t *Assente =
        u"Impossibile leggere le novità di questa versione: il sito degli aggiornamenti non "
        u"risponde.";
    static constexpr const char16_t *InCaricamento = u"Lettura delle novità dal sito in corso...";

    explicit FrmRelease(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmRelease() override;

    QTextBrowser *browser() const { return m_browser; }
    // The page is read once the screen is on show, never in its constructor: a slow site must
    // not keep the screen (or, at the first start, the program) from appearing.
    void carica();
    bool caricata() const { return m_caricata; }

private:
    void apriCollegamento(const QUrl &indirizzo);

    StatoProgramma &m_stato;
    QTextBrowser *m_browser = nullptr;
    bool m_caricata = false;
};
