#include "piattaforma/rete.h"

#include "piattaforma/impostazioni.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QStandardPaths>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// An answer with a status is an exchange that completed, an HTTP error page included; a broken
// transfer or a protocol failure is not. A file on disk has no status: it is there and read
// whole, or it is a page that did not come.
bool scambioCompleto(const QNetworkReply &reply) {
    if (reply.url().isLocalFile())
        return reply.error() == QNetworkReply::NoError;
    if (!reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid())
        return false;
    const int errore = reply.error();
    return errore == QNetworkReply::NoError ||
           (errore >= QNetworkReply::ContentAccessDenied &&
            errore <= QNetworkReply::UnknownContentError) ||
           (errore >= QNetworkReply::InternalServerError &&
            errore <= QNetworkReply::UnknownServerError);
}

} // namespace

// One request on its way, whether a call waits for it or not: it gathers a page's worth at most,
// and ends at the first of the answer complete, a page's worth, the connection not open in time,
// the page not whole in time (a stall is the request's own transfer time-out). `fine` hears the
// end once.
class Rete::Trasferimento : public QObject {
public:
    Trasferimento(QNetworkReply *reply, int tempoConnessione, int tempoMassimo, QObject *genitore)
        : QObject(genitore)
        , m_reply(reply) {
        for (QTimer *t : {&m_connessione, &m_scadenza}) {
            t->setSingleShot(true);
            connect(t, &QTimer::timeout, this, &Trasferimento::termina);
        }
        connect(reply, &QNetworkReply::finished, this, &Trasferimento::termina);
        connect(reply, &QNetworkReply::requestSent, &m_connessione, &QTimer::stop);
        connect(reply, &QNetworkReply::metaDataChanged, &m_connessione, &QTimer::stop);
        // More than a page is of no use: the transfer stops once it has a page's worth.
        connect(reply, &QNetworkReply::readyRead, this, [this] {
            m_corpo += m_reply->read(LunghezzaPagina - m_corpo.size());
            if (m_corpo.size() >= LunghezzaPagina)
                termina();
        });
        m_connessione.start(tempoConnessione);
        m_scadenza.start(tempoMassimo);
        if (reply->isFinished())
            termina();
    }
    ~Trasferimento() override { stacca(); }

    void setFine(std::function<void()> fine) { m_fine = std::move(fine); }
    bool finito() const { return m_finito; }
    // Gives up at once: the transfer is broken off and the end is heard now.
    void abbandona() {
        m_abbandonato = true;
        if (m_reply && !m_reply->isFinished())
            m_reply->abort();
        termina();
    }

    // The answer, once ended; `annullata` when the program called it off. The reply is disposed of.
    Risposta risposta(bool annullata) {
        stacca();
        Risposta r;
        r.corpo = m_corpo;
        if (!m_reply)
            return {annullata ? Esito::Annullata : Esito::Fallita, r.corpo};
        QNetworkReply &reply = *m_reply;
        bool piena = r.corpo.size() >= LunghezzaPagina;
        if (!piena && reply.isFinished() && reply.isOpen())
            r.corpo += reply.read(LunghezzaPagina - r.corpo.size());
        piena = piena || r.corpo.size() >= LunghezzaPagina;
        if (annullata || m_abbandonato)
            r.esito = Esito::Annullata;
        else if (piena || (reply.isFinished() && scambioCompleto(reply)))
            r.esito = Esito::Completa;
        else
            r.esito = Esito::Fallita;
        if (!reply.isFinished())
            reply.abort();
        reply.deleteLater();
        m_reply = nullptr;
        return r;
    }

private:
    void termina() {
        if (m_finito)
            return;
        m_finito = true;
        m_connessione.stop();
        m_scadenza.stop();
        // Off the member first: whoever hears the end may dispose of this transfer.
        if (const std::function<void()> fine = std::exchange(m_fine, {}))
            fine();
    }
    // Every handler on the reply is cut before the answer is read: the reply may still emit
    // while Qt disposes of it.
    void stacca() {
        if (!m_reply)
            return;
        QObject::disconnect(m_reply, nullptr, this, nullptr);
        QObject::disconnect(m_reply, nullptr, &m_connessione, nullptr);
    }

    QPointer<QNetworkReply> m_reply;
    QByteArray m_corpo;
    QTimer m_connessione;
    QTimer m_scadenza;
    std::function<void()> m_fine;
    bool m_finito = false;
    bool m_abbandonato = false;
};

Rete::Operazione::Operazione(Rete &rete)
    : m_rete(rete) {
    m_rete.abbandonaSottofondo();
    if (m_rete.m_operazioni++ == 0) {
        m_rete.m_annullata = false;
        m_rete.m_fallita = false;
    }
}

Rete::Operazione::~Operazione() {
    --m_rete.m_operazioni;
}

QString Rete::radicePredefinita(const Impostazioni &impostazioni, const QStringList &cartelle) {
    const QString variabile = qEnvironmentVariable("VESPARA_SITO");
    if (!variabile.isEmpty())
        return variabile;
    const QString memorizzata = impostazioni.valore(Impostazioni::RadiceSito).toString();
    if (!memorizzata.isEmpty())
        return memorizzata;
    return radiceInstallata(cartelle);
}

QString Rete::radiceInstallata(const QStringList &cartelle) {
    // A folder is a site when it has its root page: an empty or half-made folder is passed over.
    for (const QString &cartella : cartelle)
        if (QFileInfo(QDir(cartella).filePath(QString::fromUtf16(PaginaCartella))).isFile())
            return QUrl::fromLocalFile(QDir(cartella).absolutePath()).toString();
    // Nothing installed (a build without its site): the tools' local site, if one is running.
    return u"http://127.0.0.1:%1"_s.arg(PortaSitoLocale);
}

QStringList Rete::cartelleSitoInstallato() {
    const QString sito = QString::fromUtf16(CartellaSito);
    QStringList cartelle;
    if (QCoreApplication::instance()) {
        const QString bin = QCoreApplication::applicationDirPath();
        cartelle << QDir::cleanPath(bin + u"/../share/"_s + sito)
                 << QDir::cleanPath(bin + u"/share/"_s + sito);
    }
    const QStringList dati = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString &cartella : dati)
        cartelle << QDir::cleanPath(cartella + u'/' + sito);
    cartelle.removeDuplicates();
    return cartelle;
}

QString Rete::erroreRadice(const QString &radice) {
    const QUrl indirizzo(radice);
    const QString schema = indirizzo.scheme().toLower();
    if (radice.isEmpty() || !indirizzo.isValid())
        return u"L'indirizzo \"%1\" non è scritto correttamente. Esempi di indirizzi validi: "
               u"https://www.esempio.it/vespara oppure file:///usr/share/vespara/sito"_s.arg(
                   radice);
    if (schema != u"http"_s && schema != u"https"_s && schema != u"file"_s)
        return u"L'indirizzo \"%1\" non comincia con http://, https:// o file://: il sito degli "
               u"aggiornamenti si raggiunge solo così."_s.arg(radice);
    if (indirizzo.hasQuery() || indirizzo.hasFragment())
        return u"L'indirizzo \"%1\" non può contenere \"?\" o \"#\": indica solo dove si "
               u"trova il sito."_s.arg(radice);
    if (schema == u"file"_s) {
        if (!indirizzo.host().isEmpty() || !QDir::isAbsolutePath(indirizzo.toLocalFile()))
            return u"L'indirizzo \"%1\" non indica una cartella di questo computer (per "
                   u"esempio file:///usr/share/vespara/sito)."_s.arg(radice);
    } else if (indirizzo.host().isEmpty()) {
        return u"Nell'indirizzo \"%1\" manca il nome del sito (per esempio "
               u"https://www.esempio.it)."_s.arg(radice);
    }
    return {};
}

Rete::Rete(QString radice)
    : m_radice(std::move(radice)) {
    // The program reads what the site has now, never a stored copy.
    m_gestore.setCache(nullptr);
}

Rete::~Rete() {
    if (m_inCorso)
        m_inCorso->abort();
    // Nobody hears of these any more.
    const QList<Trasferimento *> sottofondo = std::exchange(m_sottofondo, {});
    for (Trasferimento *t : sottofondo) {
        t->setFine({});
        t->abbandona();
        t->risposta(true);
    }
}

QUrl Rete::url(const QString &percorso) const {
    QString base = m_radice;
    while (base.endsWith(u'/'))
        base.chop(1);
    QUrl indirizzo(base + (percorso.startsWith(u'/') ? percorso : u"/"_s + percorso));
    // No listing of a folder on disk: its page, as a web host would serve.
    if (indirizzo.isLocalFile() && indirizzo.path().endsWith(u'/'))
        indirizzo.setPath(indirizzo.path() + QString::fromUtf16(PaginaCartella));
    return indirizzo;
}

void Rete::annulla() {
    m_annullata = true;
    if (m_inCorso)
        m_inCorso->abort();
}

void Rete::chiudi() {
    m_chiusura = true;
    abbandonaSottofondo();
    annulla();
}

QNetworkReply *Rete::richiedi(const QUrl &indirizzo) {
    QNetworkRequest richiesta(indirizzo);
    richiesta.setHeader(QNetworkRequest::UserAgentHeader, u"API"_s);
    richiesta.setRawHeader("Cache-Control", "no-cache");
    richiesta.setRawHeader("Pragma", "no-cache");
    richiesta.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                           QNetworkRequest::AlwaysNetwork);
    richiesta.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                           QNetworkRequest::NoLessSafeRedirectPolicy);
    richiesta.setTransferTimeout(m_tempi.stallo);
    return m_gestore.get(richiesta);
}

Rete::Risposta Rete::esegui(const QUrl &indirizzo, int tempoMassimo) {
    abbandonaSottofondo();
    if (m_operazioni == 0) {
        m_annullata = false;
        m_fallita = false;
    }
    if (m_chiusura || m_annullata)
        return {Esito::Annullata, {}};
    // The site did not answer a moment ago in this same operation: don't wait for it again.
    if (m_fallita || !indirizzo.isValid())
        return {};
    Risposta risposta = attendi(richiedi(indirizzo), tempoMassimo);
    if (risposta.esito == Esito::Fallita && m_operazioni > 0)
        m_fallita = true;
    return risposta;
}

Rete::Risposta Rete::attendi(QNetworkReply *reply, int tempoMassimo) {
    QEventLoop attesa;
    Trasferimento trasferimento(reply, m_tempi.connessione, tempoMassimo, nullptr);
    trasferimento.setFine([&attesa] { attesa.quit(); });
    m_inCorso = reply;
    ++m_attese;
    if (m_osservatore)
        m_osservatore->attesaIniziata();
    if (!trasferimento.finito())
        attesa.exec(m_osservatore ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    --m_attese;
    m_inCorso = nullptr;
    trasferimento.setFine({});
    const Risposta risposta = trasferimento.risposta(m_chiusura || m_annullata);
    if (m_osservatore)
        m_osservatore->attesaFinita();
    return risposta;
}

void Rete::chiediInSottofondo(const QUrl &indirizzo, int tempoMassimo, QObject *contesto,
                              std::function<void(const Risposta &)> fatto) {
    const auto consegna = [contesto = QPointer<QObject>(contesto), fatto](const Risposta &r) {
        if (contesto)
            QTimer::singleShot(0, contesto.data(), [fatto, r] { fatto(r); });
    };
    // The user's call comes first; nothing starts once the program is closing.
    if (m_chiusura || occupata()) {
        consegna({Esito::Annullata, {}});
        return;
    }
    if (!indirizzo.isValid()) {
        consegna({});
        return;
    }
    auto *trasferimento =
        new Trasferimento(richiedi(indirizzo), m_tempi.connessione, tempoMassimo, &m_gestore);
    const auto fine = [this, trasferimento, consegna] {
        m_sottofondo.removeOne(trasferimento);
        consegna(trasferimento->risposta(m_chiusura));
        trasferimento->deleteLater();
    };
    if (trasferimento->finito()) {
        fine();
        return;
    }
    trasferimento->setFine(fine);
    m_sottofondo.append(trasferimento);
}

void Rete::abbandonaSottofondo() {
    const QList<Trasferimento *> sottofondo = m_sottofondo;
    for (Trasferimento *t : sottofondo)
        t->abbandona();
}

Rete::Pagina Rete::pagina(const Risposta &r) {
    return {QString::fromLatin1(r.corpo.left(LunghezzaPagina)).leftJustified(LunghezzaPagina, u' '),
            r.esito};
}

Rete::Pagina Rete::scarica(const QString &percorso) {
    return pagina(esegui(url(percorso), m_tempi.pagina));
}

QString Rete::scaricaTesto(const QString &percorso) {
    const Risposta r = esegui(url(percorso), m_tempi.pagina);
    return r.esito == Esito::Completa ? QString::fromLatin1(r.corpo) : QString();
}

bool Rete::verificaConnessione() {
    return esegui(url(u"/"_s), tempoSonda()).esito == Esito::Completa;
}

void Rete::verificaConnessioneInSottofondo(QObject *contesto, std::function<void(Esito)> fatto) {
    chiediInSottofondo(url(u"/"_s), tempoSonda(), contesto,
                       [fatto = std::move(fatto)](const Risposta &r) { fatto(r.esito); });
}

void Rete::scaricaInSottofondo(const QString &percorso, QObject *contesto,
                               std::function<void(const Pagina &)> fatto) {
    chiediInSottofondo(url(percorso), m_tempi.pagina, contesto,
                       [fatto = std::move(fatto)](const Risposta &r) { fatto(pagina(r)); });
}

QString Rete::togliBlank(QStringView testo) {
    qsizetype inizio = 0;
    qsizetype fine = testo.size();
    while (inizio < fine && testo.at(inizio) == u' ')
        ++inizio;
    while (fine > inizio && testo.at(fine - 1) == u' ')
        --fine;
    return testo.sliced(inizio, fine - inizio).toString();
}

QStringList Rete::righe(const QString &testo) {
    QStringList pezzi = testo.split(u'\n');
    for (QString &pezzo : pezzi)
        if (pezzo.endsWith(u'\r'))
            pezzo.chop(1);
    return pezzi;
}
