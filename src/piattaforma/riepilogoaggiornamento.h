#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Dialoghi;
class Rete;

// What a refresh of several files has done: the parts it set out to replace, in their order, and
// those it did replace. Each part is replaced only from its own page, received whole; a refresh
// that stops half-way (a page broken off, a site gone silent, "Annulla", a file that can't be
// written) leaves the parts it did not reach as they were, and tells the user which ones.
class RiepilogoAggiornamento {
public:
    explicit RiepilogoAggiornamento(QStringList parti = {});

    // More parts the refresh will replace (a part already listed is not listed twice).
    void prevedi(const QStringList &parti);
    // A part has been replaced.
    void fatto(const QString &parte);

    const QStringList &previste() const { return m_previste; }
    const QStringList &aggiornate() const { return m_aggiornate; }
    // The parts still as they were, in their order.
    QStringList rimaste() const;

    // The text of the box after a stop: the cause, then what was refreshed and what was left.
    QString testoInterruzione(const QString &causa) const;

    // Runs the refresh: a run-time fault or an interruption (the user's "Annulla", the closing of
    // the program) ends it, and is kept as the cause of the stop. True when it ran to its end.
    bool esegui(const std::function<void()> &azione);
    bool interrotto() const { return !m_causa.isEmpty(); }
    // After a stop, the warning box of the network ("Aggiornamenti " and the application's title)
    // with the cause and the parts refreshed and left; nothing when the program is closing.
    void avvisa(Dialoghi &dialoghi, const Rete &rete) const;

    static constexpr const char *Annullato = "L'aggiornamento è stato annullato.";

private:
    QStringList m_previste;
    QStringList m_aggiornate;
    QString m_causa;
};
