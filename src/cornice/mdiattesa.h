#pragma once

#include "piattaforma/rete.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include "core/frmattendere.h"
class QWidget;

// What the frame does while the program waits for the network: the windows keep painting, but
// the user's input reaches nothing but the waiting box, so no second operation starts inside the
// first. A wait longer than a moment shows the waiting box with "Annulla"; Esc cancels at once.
class MdiAttesa : public QObject, public Rete::Osservatore {
public:
    static constexpr int RitardoBoxMs = 600;

    MdiAttesa(Rete &rete, QWidget *cornice);
    ~MdiAttesa() override;

    void attesaIniziata() override;
    void attesaFinita() override;

    // The box this watcher put up, while it is there.
    FrmAttendere *box() const { return m_box; }

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    void mostraBox();
    void chiudiBox();

    Rete &m_rete;
    QWidget *m_cornice;
    int m_livello = 0;
    QTimer m_ritardo;
    QPointer<FrmAttendere> m_box;
};
