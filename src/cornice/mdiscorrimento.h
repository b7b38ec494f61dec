#pragma once

#include <QPointer>
#include <QScrollArea>

class QMdiSubWindow;

// What a sub-window of the frame holds: the screen, in a scroll area. A screen that does not fit
// the area (a small desktop, a sub-window made small) keeps its layout and scrolls, instead of
// being squeezed until its labels are cut; a larger window lets it grow. The sub-window takes
// the screen's title and icon, and closing it asks the screen. A screen that grows (a column
// widened by the user) takes its sub-window along, as far as the area allows.
class MdiScorrimento : public QScrollArea {
    Q_OBJECT
public:
    explicit MdiScorrimento(QWidget *schermo);

    QWidget *schermo() const { return m_schermo; }
    // The screen a sub-window of the frame holds, or null.
    static QWidget *schermoDi(const QMdiSubWindow *s);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void closeEvent(QCloseEvent *e) override;
    bool eventFilter(QObject *oggetto, QEvent *e) override;

private:
    QSize minimoSchermo() const;
    void seguiSchermo();

    QPointer<QWidget> m_schermo;
    QSize m_minimo; // the least size the screen needed, last seen
};
