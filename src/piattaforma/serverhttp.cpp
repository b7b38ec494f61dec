#include "piattaforma/serverhttp.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

QByteArray frase(int stato) {
    switch (stato) {
    case 200:
        return "OK";
    case 404:
        return "Not Found";
    case 400:
        return "Bad Request";
    default:
        return "Error";
    }
}

} // namespace

ServerHttp::ServerHttp(QString cartella, QObject *genitore)
    : QObject(genitore)
    , m_cartella(std::move(cartella)) {
    connect(&m_server, &QTcpServer::newConnection, this, &ServerHttp::nuovaConnessione);
}

bool ServerHttp::avvia(quint16 porta) {
    return m_server.listen(QHostAddress::LocalHost, porta);
}

QString ServerHttp::radice() const {
    return u"http://127.0.0.1:%1"_s.arg(porta());
}

void ServerHttp::imposta(const QString &percorso, const QByteArray &corpo, int stato) {
    m_fisse.insert(percorso, {stato, corpo});
}

void ServerHttp::impostaADueTempi(const QString &percorso, const QByteArray &corpo, int subito,
                                  int ms) {
    m_aDueTempi.insert(percorso, {corpo, subito, ms});
}

void ServerHttp::nuovaConnessione() {
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { leggi(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_ricevuti.remove(socket);
            socket->deleteLater();
        });
    }
}

void ServerHttp::leggi(QTcpSocket *socket) {
    QByteArray &dati = m_ricevuti[socket];
    dati += socket->readAll();
    const qsizetype fine = dati.indexOf("\r\n\r\n");
    if (fine < 0)
        return;
    const QList<QByteArray> righe = dati.left(fine).split('\n');
    Richiesta richiesta;
    const QList<QByteArray> prima = righe.value(0).trimmed().split(' ');
    richiesta.metodo = QString::fromLatin1(prima.value(0));
    richiesta.percorso = QString::fromLatin1(prima.value(1));
    for (qsizetype i = 1; i < righe.size(); ++i) {
        const QByteArray riga = righe.at(i).trimmed();
        const qsizetype due = riga.indexOf(':');
        if (due > 0)
            richiesta.intestazioni.insert(riga.left(due).trimmed().toLower(),
                                          riga.mid(due + 1).trimmed());
    }
    dati.clear();
    m_richieste.append(richiesta);
    const int ritardo = m_ritardiPercorso.value(QUrl(richiesta.percorso).path(), m_ritardo);
    if (ritardo < 0)
        return;
    if (ritardo > 0)
        QTimer::singleShot(ritardo, socket,
                           [this, socket, richiesta] { rispondi(socket, richiesta); });
    else
        rispondi(socket, richiesta);
}

namespace {

// The file at the rest of the path under `cartella`, trying every entry whose name matches
// without regard to case (a site may hold both "Vespara" and "vespara"), the exact one first.
QString cerca(const QString &cartella, QStringList parti) {
    if (parti.isEmpty())
        return QFileInfo(cartella).isFile() ? cartella : QString();
    const QString parte = parti.takeFirst();
    if (parte == u".."_s || parte == u"."_s)
        return {};
    const QDir dir(cartella);
    QStringList voci = dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    std::stable_partition(voci.begin(), voci.end(),
                          [&parte](const QString &v) { return v == parte; });
    for (const QString &voce : std::as_const(voci))
        if (voce.compare(parte, Qt::CaseInsensitive) == 0)
            if (QString file = cerca(dir.filePath(voce), parti); !file.isEmpty())
                return file;
    return {};
}

} // namespace

QString ServerHttp::trovaFile(const QString &percorso) const {
    return cerca(m_cartella, percorso.split(u'/', Qt::SkipEmptyParts));
}

void ServerHttp::rispondi(QTcpSocket *socket, const Richiesta &richiesta) {
    const QString percorso = QUrl(richiesta.percorso).path();
    if (const auto lenta = m_aDueTempi.constFind(percorso); lenta != m_aDueTempi.cend()) {
        QByteArray testa = "HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=iso-8859-1\r\n";
        testa += "Content-Length: " + QByteArray::number(lenta->corpo.size()) + "\r\n";
        testa += "Connection: close\r\n\r\n";
        socket->write(testa + lenta->corpo.left(lenta->subito));
        if (lenta->ritardo >= 0)
            QTimer::singleShot(lenta->ritardo, socket,
                               [socket, resto = lenta->corpo.mid(lenta->subito)] {
                                   socket->write(resto);
                                   socket->disconnectFromHost();
                               });
        return;
    }
    int stato = 200;
    QByteArray corpo;
    if (const auto fissa = m_fisse.constFind(percorso); fissa != m_fisse.cend()) {
        stato = fissa->first;
        corpo = fissa->second;
    } else if ((percorso == u"/"_s || percorso.isEmpty()) && trovaFile(u"index.html"_s).isEmpty()) {
        corpo = "<html><body>Vespara - sito locale degli aggiornamenti</body></html>";
    } else if (const QString file =
                   trovaFile(percorso.endsWith(u'/') ? percorso + u"index.html"_s : percorso);
               !file.isEmpty()) {
        QFile f(file);
        if (f.open(QIODevice::ReadOnly))
            corpo = f.readAll();
        else
            stato = 404;
    } else if (percorso.endsWith(u".asp"_s, Qt::CaseInsensitive)) {
        // The send-message query: what the site answers is not read.
        corpo = "OK";
    } else {
        stato = 404;
    }
    if (stato == 404 && corpo.isEmpty())
        corpo = "<html><head><title>404 Not Found</title></head><body><h1>Not Found</h1>"
                "<p>The requested URL was not found on this server.</p></body></html>";
    QByteArray risposta = "HTTP/1.1 " + QByteArray::number(stato) + ' ' + frase(stato) + "\r\n";
    risposta += "Content-Type: text/html; charset=iso-8859-1\r\n";
    risposta += "Content-Length: " + QByteArray::number(corpo.size()) + "\r\n";
    risposta += "Connection: close\r\n\r\n";
    risposta += corpo;
    socket->write(risposta);
    socket->disconnectFromHost();
}
