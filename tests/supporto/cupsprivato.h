#pragma once

#include <QByteArray>
#include <QMarginsF>
#include <QProcess>
#include <QSet>
#include <QString>
#include <QTemporaryDir>

#include <memory>

// A cupsd of the test's own, on a unix socket in a temporary folder, with one queue that turns
// every job into a PDF file in a folder of that temporary folder: the program prints to a real
// queue and the test reads back what the queue made of it.
//
// libcups reads CUPS_SERVER once, at its first use: avvia() must come before anything in the
// process touches printing (before the QApplication, in practice).
class CupsPrivato {
public:
    CupsPrivato();
    ~CupsPrivato();
    CupsPrivato(const CupsPrivato &) = delete;
    CupsPrivato &operator=(const CupsPrivato &) = delete;

    // Starts the server, creates the queue as its default and points this process's libcups at
    // it. False, with errore() saying why, when any step failed.
    bool avvia();
    // What went wrong in the last avvia() or attendiPdf(); empty when nothing did.
    QString errore() const { return m_errore; }

    QString nomeCoda() const;
    // A second queue into the same folder, whose driver declares A4 paper with unprintable edges
    // (in points: left, top, right, bottom), as most real printers have. Not the default.
    bool aggiungiCodaConMargini(const QString &nome, const QMarginsF &punti);
    QString cartellaUscita() const;
    QString socket() const;

    // The next PDF that the queue has finished (oldest first, each returned once), waiting for
    // it up to `millisecondi`; an empty text on time-out, and errore() says why.
    QString attendiPdf(int millisecondi);

private:
    QString percorso(const QString &nome) const;
    bool scrivi(const QString &percorso, const QByteArray &testo);
    // Runs a CUPS command line tool against the private server; its output in `uscita`.
    bool esegui(const QString &programma, const QStringList &argomenti, QString *uscita) const;
    // The jobs of the queues that are not completed yet, as lpstat lists them.
    QString lavoriInCorso(bool *riuscito) const;
    QString codaDelLog(const QString &nome, int righe = 25) const;
    QString diagnosi() const;
    void ferma();
    static void rimuoviConfigurazioniOrfane();

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QProcess> m_cupsd;
    QString m_configurazioneBackend;
    QString m_dispositivo; // the device URI of the queues
    QString m_errore;
    QSet<QString> m_consegnati;
    bool m_ambienteImpostato = false;
    // The variables avvia() changes, as they were before.
    struct Variabile {
        QByteArray nome;
        bool impostata = false;
        QByteArray valore;
    };
    QList<Variabile> m_ambiente;
};
