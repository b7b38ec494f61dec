#pragma once

#include "core/registroschermi.h"

#include <QHash>
#include <QMainWindow>
#include <QMargins>
#include <QPixmap>
#include <QRect>

#include <array>

#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QPushButton;
class QTimer;
class StatoProgramma;
class FrmMenuGriglie;
class MdiAttesa;
class FrmGuida;
class MdiFinestre;

// The frame of the program: menu, toolbar, the dashboard of the last winning column and the area
// of the screens, of which it is the registry.
class MdiPannello : public QMainWindow, public RegistroSchermi {
    Q_OBJECT
public:
    explicit MdiPannello(StatoProgramma &stato);
    ~MdiPannello() override;

    StatoProgramma &stato() const override { return m_stato; }
    QMdiArea *area() const { return m_area; }

    // The registry of screens.
    void registraSchermo(const QString &nome, Fabbrica fabbrica) override;
    bool schermoRegistrato(const QString &nome) const { return m_fabbriche.contains(nome); }
    // The names of the registered screens, in alphabetical order.
    QStringList schermiRegistrati() const;
    QWidget *trovaSchermo(const QString &nome) const override;
    QWidget *apriSchermo(const QString &nome) override;
    void mostraSchermo(const QString &nome) override;
    void rimostraSchermo(const QString &nome) override;
    bool avvisaSchermo(const QString &nome, const char *metodo) override;
    void chiudiSchermi() override;
    QList<QWidget *> schermiAperti() const;
    // The screen the user works in: a dialog screen with the focus, else the area's current one;
    // null when none is open.
    QWidget *schermoAttivo() const;
    // Brings an open screen to the front with the focus.
    void attivaSchermo(QWidget *schermo);
    // The name of an open screen in the list of the windows: its title, else the entry that
    // opens it.
    QString titoloSchermo(const QWidget *schermo) const;

    void registraAzione(const QString &nome, std::function<void()> azione) override;
    QAction *azione(const QString &nome) const;

    // AggStatusBar: the four dashboard labels from the last archive row.
    void aggiornaCruscotto() override;
    void aggiornaTitolo() override;
    void apriMenuGriglie(QPoint globale) override;
    QWidget *finestra() override { return this; }

    void avviaIndicatore() override;
    void fermaIndicatore() override;
    QPushButton *imgComm() const override { return m_imgComm; }

    // Places a screen in the middle of the frame's area, and a control in the middle of its form.
    void centraSchermo(QWidget *schermo) const;
    static void centraControllo(QWidget *controllo);

    // F1: the guide's window on the page of the screen in use (the active dialog screen, else
    // the active screen of the area, else the frame's page), raised if it was open already.
    void apriGuida();
    // The guide's window; null until F1 opened it.
    FrmGuida *finestraGuida() const { return m_guida.get(); }
    // The page of the guide about the screen in use now.
    QString paginaDellaGuida() const;

    // The text of "Informazioni su Vespara": version, Qt, licence, where the delivered data come
    // from.
    static QString testoInformazioni();
    // The text of "Credits": version, copyright and licence.
    static QString testoCredits();

    // Shows the frame as the user left it at the last close; the first time, maximised. Never
    // larger than the desktop's available area, nor partly off it.
    void mostra();
    // The size of the frame made normal after its first start, on a desktop that has room.
    static constexpr QSize DimensioniIniziali{1280, 800};
    // A rectangle of the frame moved and made smaller until it lies within the area.
    static QRect entroLoSchermo(QRect r, const QRect &area);

    // What the frame does while the program waits for the network.
    MdiAttesa *attesa() const { return m_attesa; }

    // How long a note of the program (Dialoghi::avvisoStato) stays in the status bar, in ms.
    static constexpr int DurataAvvisoStato = 30000;
    // The note shown now; empty when there is none.
    QString avvisoStato() const;

signals:
    // The frame became the active window coming from outside the program: the user back from
    // another application, or the first activation. Not when a box, a dialog or a window of the
    // program gives the focus back to it.
    void attivata();
    // The frame was closed: the program ends (main quits on it). By then the operation under
    // way has been stopped, and nothing more is written.
    void chiusa();

protected:
    void changeEvent(QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;
    void moveEvent(QMoveEvent *e) override;
    bool eventFilter(QObject *oggetto, QEvent *e) override;

private:
    // The dashboard: the room between its blocks, and the sizes of the 14 signs.
    static constexpr int SpazioCruscotto = 32;
    static constexpr int PuntiColonnaMassimi = 17;
    static constexpr int PuntiColonnaMinimi = 11;
    // What the window manager's title bar and borders may take around the frame.
    static constexpr QMargins BordoFinestra{4, 32, 4, 4};

    static QString testoLicenza();
    void creaCruscotto();
    void adattaCruscotto();
    void creaBarraStato();
    void creaMenu();
    void creaBarra();
    void eseguiAzione(const QString &nome);
    void aggiornaAbilitazioni();
    void passoIndicatore();
    void ricordaGeometria();
    // Gives F1 to a window of the program that is not the frame.
    void portaLaGuida(QWidget *finestra);
    // Every sub-window within the area: one larger than it is made as large as the area (its
    // screen then scrolls) and moved back inside.
    void entroLArea(QMdiSubWindow *s) const;
    // A rectangle made no larger than `spazio` and moved, as little as it takes, into it.
    static QRect dentro(QRect r, const QRect &spazio);
    QMdiSubWindow *sottofinestra(const QString &nome) const;

    StatoProgramma &m_stato;
    FrmMenuGriglie *m_menuGriglie = nullptr;
    MdiAttesa *m_attesa = nullptr;
    MdiFinestre *m_finestre = nullptr;
    QTimer *m_geometria = nullptr;
    QMdiArea *m_area = nullptr;
    QLabel *m_lblColonna = nullptr;
    QLabel *m_lblData = nullptr;
    QLabel *m_lblDati9 = nullptr;
    QLabel *m_lblDati = nullptr;
    QLabel *m_lblAvviso = nullptr;
    QPushButton *m_imgComm = nullptr;
    QTimer *m_timer1 = nullptr;
    std::array<QLabel *, 4> m_pic{};
    int m_fotogramma = 0;
    // Whether a window of the program held the focus at the last change of the focus window.
    bool m_programmaAttivo = false;
    QHash<QString, Fabbrica> m_fabbriche;
    QHash<QString, std::function<void()>> m_azioni;
    QHash<QString, QAction *> m_voci;
    QHash<QString, QString> m_schermoDiVoce;
    std::unique_ptr<FrmGuida> m_guida;
};
