#pragma once

#include "piattaforma/dialoghi.h"

#include <QList>
#include <QQueue>
#include <QUrl>

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
    QString salvaFile(const QString &titolo, const QString &filtro) override;
    bool dialogoStampa(QPrinter &stampante) override;
    bool apriConDesktop(const QUrl &indirizzo) override;

    QList<Box> boxes;
    QQueue<bool> risposte;
    QQueue<QString> fileDaSalvare;
    QList<QUrl> aperti;
    // Answers of the print dialog (an empty queue confirms), and how often it was shown.
    QQueue<bool> risposteStampa;
    int dialoghiStampa = 0;
    QString ultimoTitoloSalvataggio;
    QString ultimoFiltroSalvataggio;

    // The texts of the recorded boxes, in order.
    QStringList testi() const;
    void svuota();
};
