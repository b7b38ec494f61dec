#pragma once

#include "piattaforma/dialoghi.h"

#include <QList>
#include <QQueue>
#include <QUrl>

#include <functional>

// The dialogs of the tests: every box is recorded, questions are answered from a queue that the
// test fills (an empty queue answers No), and nothing is ever shown.
class DialoghiProva : public Dialoghi {
public:
    struct Box {
        Tipo tipo;
        QString titolo;
        QString testo;
    };

    void informazione(const QString &titolo, const QString &testo) override;
    void avviso(const QString &titolo, const QString &testo) override;
    void critico(const QString &titolo, const QString &testo) override;
    bool domanda(const QString &titolo, const QString &testo) override;
    QString dialogoSalvataggio(const QString &titolo, const QString &filtro,
                               const QString &proposta) override;
    bool dialogoStampa(QPrinter &stampante) override;
    bool apriConDesktop(const QUrl &indirizzo) override;
    // Recorded, then passed on to the frame's handler like on the desktop.
    void avvisoStato(const QString &testo) override;

    QList<Box> boxes;
    QQueue<bool> risposte;
    QQueue<QString> fileDaSalvare;
    QList<QUrl> aperti;
    // Answers of the print dialog (an empty queue confirms), and how often it was shown.
    QQueue<bool> risposteStampa;
    int dialoghiStampa = 0;
    // What the user does in the print dialog before the answer, such as choosing "Print to File
    // (PDF)" and naming the file: the test reads and sets the printer there.
    std::function<void(QPrinter &)> nelDialogoStampa;
    QString ultimoTitoloSalvataggio;
    QString ultimoFiltroSalvataggio;
    // The folder and name the last save dialog opened on.
    QString ultimaPropostaSalvataggio;
    // The notes for the status bar, in order.
    QStringList avvisiStato;

    // The texts of the recorded boxes, in order.
    QStringList testi() const;
    // Forgets the boxes, the opened files and the notes.
    void svuota();
};
