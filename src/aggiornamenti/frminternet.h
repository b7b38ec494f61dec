#pragma once

#include "core/mdiclessidra.h"

#include <QWidget>

#include <functional>

class AggiornamentiSito;
class QPushButton;
class StatoProgramma;

// The full update from the site: archive, league tables, quotas, coupons and picchetti, with the
// waiting box. Its static members give the partial update screens their shape and their run, so
// that every update screen looks and behaves alike.
class FrmInternet : public QWidget {
    Q_OBJECT
public:
    explicit FrmInternet(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmInternet() override;

    // The shape of an update screen: caption, one explaining label (lblSpiegazione), the button
    // cmdAggiorna "Aggiorna" (returned, to be wired) and cmdChiudi.
    static QPushButton *componi(QWidget *schermo, const QString &titolo,
                                const QString &spiegazione);
    // The probe of the update screens; its box when it fails.
    static bool collegato(StatoProgramma &stato, AggiornamentiSito &sito);
    // A partial update: the probe, the steps under the hourglass, the screens closed and the
    // panel opened again when `riapri`, what comes after that, then the final box. Runs as one
    // guarded event.
    static void
    aggiornaParziale(StatoProgramma &stato, const std::function<void(AggiornamentiSito &)> &passi,
                     const std::function<void(StatoProgramma &, AggiornamentiSito &)> &dopo,
                     const QString &testoFinale, bool riapri);

    // The hourglass, from its creation until it is released or goes.
    using Clessidra = MdiClessidra;

private:
    void aggiorna();

    StatoProgramma &m_stato;
};
