#pragma once

#include <QDialog>

class QProgressBar;

// The shared waiting box: while it is up the frame is disabled; it stays on top and shows the
// progress of a long operation, whose caller sets the range and pumps the events.
class FrmAttendere : public QDialog {
    Q_OBJECT
public:
    explicit FrmAttendere(QWidget *cornice);
    ~FrmAttendere() override;

    void setIntervallo(int minimo, int massimo);
    void setValore(int valore);
    QProgressBar *bar() const { return m_bar; }

protected:
    void showEvent(QShowEvent *e) override;
    void hideEvent(QHideEvent *e) override;

private:
    void abilitaCornice(bool abilita);
    QWidget *m_cornice;
    QProgressBar *m_bar;
};
