#pragma once

#include <QList>
#include <QObject>

class MdiPannello;
class QAction;
class QActionGroup;
class QMdiSubWindow;
class QMenu;
class QWidget;

// The frame's menu of windows and its keys: cascade and tile the screens of the area, close
// them all but the signs panel, pick one from the list of the open screens; Ctrl+Tab and
// Ctrl+Shift+Tab move to the next and previous screen, Ctrl+W and Ctrl+F4 close the active one.
class MdiFinestre : public QObject {
    Q_OBJECT
public:
    // The screen that "Chiudi tutte" leaves open.
    static constexpr char SchermoCheResta[] = "frmPannelloSegni";

    // `menu` is the frame's "Finestre", with its fixed entries already in it.
    MdiFinestre(MdiPannello &pannello, QMenu *menu);

    // The keys, also on a screen that stands in a window of its own.
    void aggiungiTasti(QWidget *finestra) const;
    // A sub-window's own menu gives up the keys: two actions on one key would both stay idle.
    void prendiTasti(QMdiSubWindow *s) const;

    // The screen `verso` places after the active one (back when negative), in the order of the
    // list of the menu, round from the last to the first.
    void passa(int verso);
    void chiudiAttivo();
    // In cascade, each window cut to what the area has left below and right of its corner.
    void sovrapponi();
    void chiudiTutte();

private:
    // The menu as it is now: what can be done, and the list of the open screens.
    void componi();

    MdiPannello &m_pannello;
    QMenu *m_menu;
    QAction *m_separatore = nullptr;
    // One of the list is checked, the active screen: the desktop shows it as a radio choice.
    QActionGroup *m_gruppo = nullptr;
    QList<QAction *> m_elenco;
    QList<QAction *> m_tasti;
};
