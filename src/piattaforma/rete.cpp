#include "piattaforma/rete.h"

#include "piattaforma/impostazioni.h"

#include <QEventLoop>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

using namespace Qt::StringLiterals;

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

QUrl Rete::url(const QString &percorso) const {
    QString base = m_radice;
    while (base.endsWith(u'/'))
        base.chop(1);
    return QUrl(base + (percorso.startsWith(u'/') ? percorso : u"/"_s + percorso));
}

Rete::Risposta Rete::esegui(const QUrl &indirizzo, int tempoMassimo) {
    Risposta risposta;
    if (!indirizzo.isValid())
        return risposta;
    QNetworkRequest richiesta(indirizzo);
    richiesta.setHeader(QNetworkRequest::UserAgentHeader, u"API"_s);
    richiesta.setRawHeader("Cache-Control", "no-cache");
    richiesta.setRawHeader("Pragma", "no-cache");
    richiesta.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                           QNetworkRequest::AlwaysNetwork);
    richiesta.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                           QNetworkRequest::NoLessSafeRedirectPolicy);
    richiesta.setTransferTimeout(tempoMassimo);

    QNetworkReply *reply = m_gestore.get(richiesta);
    QEventLoop attesa;
    QTimer scadenza;
    scadenza.setSingleShot(true);
    QObject::connect(&scadenza, &QTimer::timeout, reply, &QNetworkReply::abort);
    QObject::connect(reply, &QNetworkReply::finished, &attesa, &QEventLoop::quit);
    // More than a page is of no use: the transfer stops once it has a page's worth.
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply, &risposta] {
        risposta.corpo += reply->read(LunghezzaPagina - risposta.corpo.size());
        if (risposta.corpo.size() >= LunghezzaPagina)
            reply->abort();
    });
    scadenza.start(tempoMassimo);
    if (!reply->isFinished())
        attesa.exec(QEventLoop::ExcludeUserInputEvents);
    risposta.corpo += reply->read(LunghezzaPagina - risposta.corpo.size());
    // An answer with a status is an exchange that completed, an error page included.
    risposta.completata = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid() &&
                          (reply->error() == QNetworkReply::NoError || reply->error() >= 200 ||
                           risposta.corpo.size() >= LunghezzaPagina);
    reply->deleteLater();
    return risposta;
}

QString Rete::scaricaPagina(const QString &percorso) {
    const Risposta r = esegui(url(percorso), m_tempoMassimo);
    QString testo = QString::fromLatin1(r.corpo.left(LunghezzaPagina));
    return testo.leftJustified(LunghezzaPagina, u' ');
}

QString Rete::scaricaTesto(const QString &percorso) {
    const Risposta r = esegui(url(percorso), m_tempoMassimo);
    return r.completata ? QString::fromLatin1(r.corpo) : QString();
}

bool Rete::verificaConnessione() {
    return esegui(url(u"/"_s), std::min(m_tempoMassimo, TempoMassimoSondaMs)).completata;
}
