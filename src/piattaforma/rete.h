#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QString>
#include <QUrl>

class Impostazioni;

// Everything the program fetches comes through here, from one update site: the download of a
// page and the probe of the connection. Every call blocks in a local event loop (the windows keep
// painting) and ends by a time-out at the latest; no call ever raises.
class Rete {
public:
    // A page comes back padded with blanks to this length, and cut at it.
    static constexpr int LunghezzaPagina = 500000;
    static constexpr int TempoMassimoMs = 15000;
    // The probe runs at every activation of the frame: it gives up sooner than a download.
    static constexpr int TempoMassimoSondaMs = 5000;
    // The port of the local update site of the project's tools.
    static constexpr quint16 PortaSitoLocale = 8641;

    // The root of the update site: $VESPARA_SITO, else the settings store, else the local site.
    static QString radicePredefinita(const Impostazioni &impostazioni);

    explicit Rete(QString radice);

    QString radice() const { return m_radice; }
    void setRadice(const QString &radice) { m_radice = radice; }
    void setTempoMassimo(int ms) { m_tempoMassimo = ms; }
    // The URL of a path under the root ("/vespara/Quote.html").
    QUrl url(const QString &percorso) const;

    // ScaricaPagina: the page's text (Latin-1) followed by blanks up to LunghezzaPagina
    // characters. A dead host, a refused connection, a time-out give blanks; an HTTP error page
    // comes back as text like any page.
    QString scaricaPagina(const QString &percorso);
    // The page's text as it is, not padded: the message pages. Empty when nothing came.
    QString scaricaTesto(const QString &percorso);
    // VerificaConnessione: true whenever an HTTP exchange with the root page completes, whatever
    // its status.
    bool verificaConnessione();

private:
    struct Risposta {
        bool completata = false;
        QByteArray corpo;
    };
    Risposta esegui(const QUrl &indirizzo, int tempoMassimo);

    QString m_radice;
    int m_tempoMassimo = TempoMassimoMs;
    QNetworkAccessManager m_gestore;
};
