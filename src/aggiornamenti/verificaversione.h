#pragma once

#include "piattaforma/rete.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <optional>

// cmdVerificaAgg: the check for a newer program that runs by itself when the user comes back to
// the frame. It is silent: it asks the site in the background, so there is no waiting box, no
// hourglass, and the user's input is never held up. It gives way to the user: an operation that
// starts while it waits abandons it, and an abandoned check counts as not made. However often the
// frame becomes active, it asks the site at most once every IntervalloMs; and the question comes
// only if the program is free when the answer arrives, otherwise the next check asks again.
class VerificaVersione : public QObject {
    Q_OBJECT
public:
    static constexpr qint64 IntervalloMs = 60 * 1000;

    // Milliseconds on a clock that only goes forward.
    using Orologio = std::function<qint64()>;

    // `libera` tells whether the program is free for the check and its question (no operation,
    // no box under way); `offri` asks the question of a newer version and does what follows it.
    VerificaVersione(Rete &rete, std::function<bool()> libera,
                     std::function<void(const QString &versione)> offri,
                     QObject *genitore = nullptr);

    // The frame became active coming from outside the program: the check starts, if the program
    // is free and the last check is old enough. True when it started.
    bool attivazione();
    // The start's own check: the start's calls and boxes, which may hold the program when the
    // frame first becomes active, only put it off until the program is free.
    void avvio();
    // True while the start's check waits for the program to be free.
    bool avvioInAttesa() const { return m_attesaAvvio.isActive(); }
    // True from the start of a check until its end (its question included).
    bool inCorso() const { return m_inCorso; }

    // The tests' own clock. The checks made on the clock before are forgotten.
    void setOrologio(Orologio orologio);

private:
    void dopoSonda(Rete::Esito esito);
    void dopoPagina(const Rete::Pagina &pagina);
    void abbandonata();
    void riprova();

    Rete &m_rete;
    std::function<bool()> m_libera;
    std::function<void(const QString &)> m_offri;
    Orologio m_orologio;
    QElapsedTimer m_cronometro;
    std::optional<qint64> m_ultima;
    std::optional<qint64> m_precedente;
    QTimer m_attesaAvvio;
    bool m_inCorso = false;
};
