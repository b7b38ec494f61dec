#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QTcpServer>

class QTcpSocket;

// A small HTTP server on loopback that serves a folder: the local update site of the project's
// tools, and the site the tests talk to. Paths are looked up without regard to case, since the
// site's own paths mix "Vespara" and "vespara". A folder answers with its index.html, as any web
// host does; the root with a page of its own when it has none.
class ServerHttp : public QObject {
    Q_OBJECT
public:
    struct Richiesta {
        QString metodo;
        QString percorso;                           // with its query, as asked
        QHash<QByteArray, QByteArray> intestazioni; // names in lower case
    };

    explicit ServerHttp(QString cartella, QObject *genitore = nullptr);

    // Listens on 127.0.0.1; 0 takes a free port. False when the port can't be had.
    bool avvia(quint16 porta = 0);
    quint16 porta() const { return m_server.serverPort(); }
    QString radice() const;
    QString cartella() const { return m_cartella; }

    // What was asked, in order.
    const QList<Richiesta> &richieste() const { return m_richieste; }
    void svuotaRichieste() { m_richieste.clear(); }
    // A fixed answer for a path (exact, without query), in place of the folder's file.
    void imposta(const QString &percorso, const QByteArray &corpo, int stato = 200);
    // Answers are held back this long (to test the time-outs).
    void setRitardo(int ms) { m_ritardo = ms; }
    // The answer of one path (exact, without query) held back this long; a negative time never
    // answers (a site that has gone silent).
    void setRitardo(const QString &percorso, int ms) { m_ritardiPercorso.insert(percorso, ms); }
    // A page that arrives in two pieces: the head and the first `subito` bytes of the body at
    // once, the rest after `ms` (never, when negative). Tests of transfers that stall or break.
    void impostaADueTempi(const QString &percorso, const QByteArray &corpo, int subito, int ms);

private:
    void nuovaConnessione();
    void leggi(QTcpSocket *socket);
    void rispondi(QTcpSocket *socket, const Richiesta &richiesta);
    QString trovaFile(const QString &percorso) const;

    QString m_cartella;
    QList<Richiesta> m_richieste;
    QHash<QString, QPair<int, QByteArray>> m_fisse;
    QHash<QString, int> m_ritardiPercorso;
    struct ADueTempi {
        QByteArray corpo;
        int subito = 0;
        int ritardo = -1;
    };
    QHash<QString, ADueTempi> m_aDueTempi;
    QHash<QTcpSocket *, QByteArray> m_ricevuti;
    int m_ritardo = 0;
    // Last, so that it goes first: its sockets still find the tables above when they close.
    QTcpServer m_server;
};
