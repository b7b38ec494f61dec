#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

// What a desktop's window manager does and the offscreen platform of the tests does not: when a
// window of the program that holds the focus goes away (a box, the waiting box, a dialog), the
// focus goes back to the frame; and the user may leave the program for another application and
// come back to it.
class GestoreFinestreProva : public QObject {
public:
    explicit GestoreFinestreProva(QWidget *cornice);
    ~GestoreFinestreProva() override;

    // The user switches to another application and then back to the frame. False when the frame
    // did not become active again.
    bool tornaAlProgramma();
    // How often the focus was given back to the frame after a window of the program went away.
    int restituzioni() const { return m_restituzioni; }

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    QPointer<QWidget> m_cornice;
    QWidget *m_altraApplicazione = nullptr;
    int m_restituzioni = 0;
};
