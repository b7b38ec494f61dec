#pragma once

#include <QDialog>

#include <functional>

class QProgressBar;
class QPushButton;

// The shared waiting box: while it is up the frame is disabled; it stays on top and shows the
// progress of a long operation, whose caller sets the range and pumps the events. An operation
// that can be stopped gives the box its cancel action: the button "Annulla" and Esc run it.
class FrmAttendere : public QDialog {
    Q_OBJECT
public:
    explicit FrmAttendere(QWidget *cornice);
    ~FrmAttendere() override;

    void setIntervallo(int minimo, int massimo);
    void setValore(int valore);
    QProgressBar *bar() const { return m_bar; }
    // Shows "Annulla" with this action; an empty one hides it.
    void setAnnullamento(std::function<void()> annulla);

protected:
    // Esc, and a close asked by the window system, cancel the operation instead of closing the
    // box: the box goes when its owner is done.
    void keyPressEvent(QKeyEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    void showEvent(QShowEvent *e) override;
    void hideEvent(QHideEvent *e) override;

private:
    void abilitaCornice(bool abilita);
    void annulla();
    QWidget *m_cornice;
    QProgressBar *m_bar;
    QPushButton *m_cmdAnnulla;
    std::function<void()> m_annulla;
};
