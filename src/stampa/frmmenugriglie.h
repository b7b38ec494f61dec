#pragma once

#include <QMenu>
#include <QObject>
#include <QPointer>

class QAction;
class QPoint;
class QWidget;
class StatoProgramma;
class VistaGriglia;

// The pop-up that the grids of the screens open with the right button, once they have handed
// their table over with EsportazioneExcel::prepara: its one entry, mnuExcel, writes the workbook.
class FrmMenuGriglie : public QObject {
    Q_OBJECT
public:
    // The menu is a child of `genitore`, so a screen finds it by its name, frmMenuGriglie.
    FrmMenuGriglie(StatoProgramma &stato, QWidget *genitore);
    ~FrmMenuGriglie() override;

    // The release of the right button over the view hands its grid to the export, with the title
    // followed by today's date, and opens the frame's pop-up at the mouse.
    static void esportaConTastoDestro(StatoProgramma &stato, VistaGriglia *vista,
                                      const QString &titolo);

    // Pops the menu up at a point of the screen and returns at once.
    void apri(const QPoint &globale);

    QMenu *menu() const { return m_menu; }
    QAction *mnuExcel() const { return m_mnuExcel; }

private:
    StatoProgramma &m_stato;
    QPointer<QMenu> m_menu;
    QAction *m_mnuExcel = nullptr;
};
