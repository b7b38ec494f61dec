#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

// A screen without a title bar is moved by pressing the left button on its background (or on the
// controls it names) and dragging: its window follows the mouse, as if its caption were held.
class MdiTrascinamento : public QObject {
    Q_OBJECT
public:
    // The screen's background and every widget of `prese` move the screen's window.
    static MdiTrascinamento *installa(QWidget *schermo, const QList<QWidget *> &prese = {});

signals:
    // The window was moved to this place (in its parent's coordinates).
    void spostata(QPoint posizione);

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    explicit MdiTrascinamento(QWidget *schermo);

    QWidget *m_schermo;
    QPoint m_presa;
    bool m_trascina = false;
};
