#include "piattaforma/rete.h"

#include "piattaforma/impostazioni.h"

#include <QEventLoop>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// An answer with a status is an exchange that completed, an HTTP error page included; a broken
// transfer or a protocol failure is not.
bool scambioCompleto(const QNetworkReply &reply) {
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

Rete::Operazione::Operazione(Rete &rete)
    : m_rete(rete) {
    if (m_rete.m_operazioni++ == 0) {
        m_rete.m_annullata = false;
        m_rete.m_fallita = false;
    }
}

Rete::Operazione::~Operazione() {
    --m_rete.m_operazioni;
}

QString Rete::radicePredefinita(const Impostazioni &impostazioni) {
    const QString variabile = qEnvironmentVariable("VESPARA_SITO");
    if (!variabile.isEmpty())
        return variabile;
    const QString memorizzata = impostazioni.valore(Impostazioni::RadiceSito).toString();
    if (!memorizzata.isEmpty())
        return memorizzata;
    return u"http://127.0.0.1:%1"_s.arg(PortaSitoLocale);
}

Rete::Rete(QString radice)
    : m_radice(std::move(radice)) {
    // The program reads what the site has now, never a stored copy.
    m_gestore.setCache(nullptr);
}

Rete::~Rete() {
    if (m_inCorso)
        m_inCorso->abort();
}

QUrl Rete::url(const QString &percorso) const {
    QString base = m_radice;
    while (base.endsWith(u'/'))
        base.chop(1);
    return QUrl(base + (percorso.startsWith(u'/') ? percorso : u"/"_s + percorso));
}

void Rete::annulla() {
    m_annullata = true;
    if (m_inCorso)
        m_inCorso->abort();
}

void Rete::chiudi() {
    m_chiusura = true;
    annulla();
}

Rete::Risposta Rete::esegui(const QUrl &indirizzo, int tempoMassimo) {
    if (m_operazioni == 0) {
        m_annullata = false;
        m_fallita = false;
    }
    if (m_chiusura || m_annullata)
        return {Esito::Annullata, {}};
    // The site did not answer a moment ago in this same operation: don't wait for it again.
    if (m_fallita || !indirizzo.isValid())
        return {};
    QNetworkRequest richiesta(indirizzo);
    richiesta.setHeader(QNetworkRequest::UserAgentHeader, u"API"_s);
    richiesta.setRawHeader("Cache-Control", "no-cache");
    richiesta.setRawHeader("Pragma", "no-cache");
    richiesta.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                           QNetworkRequest::AlwaysNetwork);
    richiesta.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                           QNetworkRequest::NoLessSafeRedirectPolicy);
    richiesta.setTransferTimeout(m_tempi.stallo);
    Risposta risposta = attendi(m_gestore.get(richiesta), tempoMassimo);
    if (risposta.esito == Esito::Fallita && m_operazioni > 0)
        m_fallita = true;
    return risposta;
}

Rete::Risposta Rete::attendi(QNetworkReply *reply, int tempoMassimo) {
    Risposta risposta;
    bool piena = false;
    QEventLoop attesa;
    QTimer connessione;
    QTimer scadenza;
    for (QTimer *t : {&connessione, &scadenza}) {
        t->setSingleShot(true);
        QObject::connect(t, &QTimer::timeout, &attesa, &QEventLoop::quit);
    }
    // Every handler on the reply is cut before this function returns: the reply may still emit
    // while Qt disposes of it, and the handlers refer to the locals here.
    const std::array legami{
        QObject::connect(reply, &QNetworkReply::finished, &attesa, &QEventLoop::quit),
        QObject::connect(reply, &QNetworkReply::requestSent, &connessione, &QTimer::stop),
        QObject::connect(reply, &QNetworkReply::metaDataChanged, &connessione, &QTimer::stop),
        // More than a page is of no use: the transfer stops once it has a page's worth.
        QObject::connect(reply, &QNetworkReply::readyRead, &attesa,
                         [reply, &risposta, &piena, &attesa] {
                             risposta.corpo += reply->read(LunghezzaPagina - risposta.corpo.size());
                             if (risposta.corpo.size() >= LunghezzaPagina) {
                                 piena = true;
                                 attesa.quit();
                             }
                         }),
    };
    connessione.start(m_tempi.connessione);
    scadenza.start(tempoMassimo);
    m_inCorso = reply;
    ++m_attese;
    if (m_osservatore)
        m_osservatore->attesaIniziata();
    if (!reply->isFinished())
        attesa.exec(m_osservatore ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    --m_attese;
    m_inCorso = nullptr;
    for (const QMetaObject::Connection &legame : legami)
        QObject::disconnect(legame);
    if (m_osservatore)
        m_osservatore->attesaFinita();

    if (!piena && reply->isFinished() && reply->isOpen())
        risposta.corpo += reply->read(LunghezzaPagina - risposta.corpo.size());
    piena = piena || risposta.corpo.size() >= LunghezzaPagina;
    if (m_chiusura || m_annullata)
        risposta.esito = Esito::Annullata;
    else if (piena || (reply->isFinished() && scambioCompleto(*reply)))
        risposta.esito = Esito::Completa;
    else
        risposta.esito = Esito::Fallita;
    if (!reply->isFinished())
        reply->abort();
    reply->deleteLater();
    return risposta;
}

Rete::Pagina Rete::scarica(const QString &percorso) {
    const Risposta r = esegui(url(percorso), m_tempi.pagina);
    return {QString::fromLatin1(r.corpo.left(LunghezzaPagina)).leftJustified(LunghezzaPagina, u' '),
            r.esito};
}

QString Rete::scaricaTesto(const QString &percorso) {
    const Risposta r = esegui(url(percorso), m_tempi.pagina);
    return r.esito == Esito::Completa ? QString::fromLatin1(r.corpo) : QString();
}

bool Rete::verificaConnessione() {
    return esegui(url(u"/"_s), std::min(m_tempi.pagina, m_tempi.sonda)).esito == Esito::Completa;
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
