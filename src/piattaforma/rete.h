#pragma once

#include <QByteArray>
#include <QList>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <functional>

class Impostazioni;
class QNetworkReply;
class QObject;

// Everything the program fetches comes through here, from one update site: the download of a
// page and the probe of the connection. Every call waits in a local event loop (the windows keep
// painting) and is bounded: a connection that does not open, a transfer that stalls, a page that
// never ends all give up in a few seconds. Any wait can be cancelled. No call ever raises.
// The program's own checks that nobody waits for go in the background instead, within the same
// limits, and give way to the user.
class Rete {
public:
    // A page comes back padded with blanks to this length, and cut at it.
    static constexpr int LunghezzaPagina = 500000;
    // The port of the local update site of the project's tools.
    static constexpr quint16 PortaSitoLocale = 8641;
    // The site installed with the program, under a data folder of the system ("share").
    static constexpr const char16_t *CartellaSito = u"vespara/sito";
    // The page a folder of the site answers with: what a web host serves for it.
    static constexpr const char16_t *PaginaCartella = u"index.html";

    // How long a call may wait, in milliseconds.
    struct Tempi {
        int connessione = 5000; // until the request is on its way
        int stallo = 10000;     // without a byte moving
        int pagina = 60000;     // a whole page, however slowly it comes
        int sonda = 5000; // the probe runs at every activation of the frame: it gives up sooner
    };

    enum class Esito {
        Completa,  // the exchange ended: the page (an HTTP error page too) came whole
        Fallita,   // no connection, a time-out, a transfer broken off: the page is not whole
        Annullata, // the user cancelled, or the program is closing
    };

    // A page as ScaricaPagina gives it (padded), and whether it came whole.
    struct Pagina {
        QString testo;
        Esito esito = Esito::Fallita;
        bool intera() const { return esito == Esito::Completa; }
    };

    // Hears when a wait for the network begins and ends (the frame shows its waiting box and keeps
    // the user's input away from the screens meanwhile). Calls nest.
    class Osservatore {
    public:
        virtual ~Osservatore() = default;
        virtual void attesaIniziata() = 0;
        virtual void attesaFinita() = 0;
    };

    // One operation of the user (an update, the loading of the messages): its calls are cancelled
    // together, and once one of them fails for want of the site, the later ones fail at once
    // instead of waiting again. A call made outside any operation is an operation of its own.
    class Operazione {
    public:
        explicit Operazione(Rete &rete);
        ~Operazione();
        Operazione(const Operazione &) = delete;
        Operazione &operator=(const Operazione &) = delete;

    private:
        Rete &m_rete;
    };

    // The root of the update site: $VESPARA_SITO, else the settings store, else the first of
    // `cartelle` that holds a site (as a file: address), else the local site of the tools on
    // loopback.
    static QString radicePredefinita(const Impostazioni &impostazioni,
                                     const QStringList &cartelle = cartelleSitoInstallato());
    // The root without the environment and the settings: what an empty setting goes back to.
    static QString radiceInstallata(const QStringList &cartelle = cartelleSitoInstallato());
    // Where the site installed with the program may be, in order: beside the executable
    // (<bin>/../share/vespara/sito, or <bin>/share/vespara/sito in a build folder), then the
    // system's data folders (XDG_DATA_HOME, XDG_DATA_DIRS).
    static QStringList cartelleSitoInstallato();
    // Empty when `radice` can be the root of the site (an absolute http:, https: or file:
    // address), else why not, in Italian.
    static QString erroreRadice(const QString &radice);

    explicit Rete(QString radice);
    ~Rete();
    Rete(const Rete &) = delete;
    Rete &operator=(const Rete &) = delete;

    QString radice() const { return m_radice; }
    void setRadice(const QString &radice) { m_radice = radice; }
    const Tempi &tempi() const { return m_tempi; }
    void setTempi(const Tempi &tempi) { m_tempi = tempi; }
    void setOsservatore(Osservatore *osservatore) { m_osservatore = osservatore; }
    // The URL of a path under the root ("/vespara/Quote.html"). Under a file: root a folder
    // stands for its page, as a web host serves it.
    QUrl url(const QString &percorso) const;

    // ScaricaPagina: the page's text (Latin-1) followed by blanks up to LunghezzaPagina
    // characters. A dead host, a refused connection, a time-out give blanks; an HTTP error page
    // comes back as text like any page. Under a file: root a file that is there is a whole page,
    // a missing one a failed page.
    QString scaricaPagina(const QString &percorso) { return scarica(percorso).testo; }
    // The same, with whether the page came whole: the updates store only what did.
    Pagina scarica(const QString &percorso);
    // The page's text as it is, not padded: the message pages. Empty when nothing came.
    QString scaricaTesto(const QString &percorso);
    // A page's text without the blanks that pad it (only blanks: line ends stay) at both ends.
    static QString togliBlank(QStringView testo);
    // A page's lines: split on LF, a CR before the LF dropped.
    static QStringList righe(const QString &testo);

    // VerificaConnessione: true whenever an HTTP exchange with the root page completes, whatever
    // its status. A file: root answers when its page is there.
    bool verificaConnessione();

    // The probe and the download in the background, for a check of the program's own that the
    // user does not wait for: nothing waits in a loop, the observer hears nothing, and the network
    // is not busy for them (occupata). Same time limits as the calls above. They give way to the
    // user: one does not start while the network is busy, an ordinary call that starts meanwhile
    // abandons it, and so does the close; an abandoned one ends as Annullata. The answer comes
    // from the event loop, never from within the call, and not at all once `contesto` is gone.
    // The probe's answer is Completa when online, as verificaConnessione's true.
    void verificaConnessioneInSottofondo(QObject *contesto, std::function<void(Esito)> fatto);
    void scaricaInSottofondo(const QString &percorso, QObject *contesto,
                             std::function<void(const Pagina &)> fatto);
    // True while a background call is on its way.
    bool inSottofondo() const { return !m_sottofondo.isEmpty(); }

    // Cancels the call under way and every later one of the current operation.
    void annulla();
    // The program is closing: the call under way ends and nothing more is fetched.
    void chiudi();
    // True once the current operation was cancelled, or the program is closing: from then on
    // nothing may be written on the strength of the network.
    bool interrotta() const { return m_chiusura || (m_annullata && m_operazioni > 0); }
    bool inChiusura() const { return m_chiusura; }
    // True while an operation runs, or a call waits.
    bool occupata() const { return m_operazioni > 0 || m_attese > 0; }

private:
    struct Risposta {
        Esito esito = Esito::Fallita;
        QByteArray corpo;
    };
    class Trasferimento;
    int tempoSonda() const { return std::min(m_tempi.pagina, m_tempi.sonda); }
    static Pagina pagina(const Risposta &risposta);
    QNetworkReply *richiedi(const QUrl &indirizzo);
    Risposta esegui(const QUrl &indirizzo, int tempoMassimo);
    Risposta attendi(QNetworkReply *reply, int tempoMassimo);
    void chiediInSottofondo(const QUrl &indirizzo, int tempoMassimo, QObject *contesto,
                            std::function<void(const Risposta &)> fatto);
    // An ordinary call is starting, or the program is closing: the background calls give way.
    void abbandonaSottofondo();

    QString m_radice;
    Tempi m_tempi;
    Osservatore *m_osservatore = nullptr;
    int m_operazioni = 0;
    int m_attese = 0;
    bool m_annullata = false;
    bool m_fallita = false;
    bool m_chiusura = false;
    QPointer<QNetworkReply> m_inCorso;
    QList<Trasferimento *> m_sottofondo;
    QNetworkAccessManager m_gestore;
};
