#include "core/mdistile.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPalette>
#include <QPushButton>
#include <QString>
#include <QWidget>

void MdiStile::grassetto(QWidget *widget, double scala) {
    QFont f = widget->font();
    f.setBold(true);
    if (scala != 1.0)
        f.setPointSizeF(f.pointSizeF() * scala);
    widget->setFont(f);
}

void MdiStile::titolo(QWidget *widget, double scala) {
    grassetto(widget, scala);
    widget->setStyleSheet(QStringLiteral("color: #1d3f72;"));
}

QWidget *MdiStile::finestraDi(QWidget *schermo) {
    for (QWidget *w = schermo; w; w = w->parentWidget()) {
        if (auto *s = qobject_cast<QMdiSubWindow *>(w))
            return s;
        if (w->isWindow())
            return w;
    }
    return schermo;
}

void MdiStile::senzaCornice(QWidget *schermo) {
    schermo->setWindowFlags(Qt::FramelessWindowHint);
    schermo->setAutoFillBackground(true);
    QPalette tavolozza = schermo->palette();
    tavolozza.setColor(QPalette::Window, QColor(0xee, 0xf1, 0xf6));
    schermo->setPalette(tavolozza);
}

QPushButton *MdiStile::pulsanteEsci(QWidget *schermo) {
    auto *esci = new QPushButton(QStringLiteral("X"), schermo);
    esci->setObjectName(QStringLiteral("lblEsci"));
    esci->setCursor(Qt::PointingHandCursor);
    esci->setToolTip(QStringLiteral("Chiudi"));
    esci->setFixedWidth(28);
    // Tab reaches it, a click closes at once: it never needs the focus of a click.
    esci->setFocusPolicy(Qt::TabFocus);
    esci->setStyleSheet(QStringLiteral(
        "#lblEsci { font-weight: bold; color: white; background: #b03030; border: none; "
        "padding: 1px 7px; }"
        "#lblEsci:hover { background: #d04040; }"));
    QObject::connect(esci, &QPushButton::clicked, schermo,
                     [schermo] { finestraDi(schermo)->close(); });
    return esci;
}

namespace {

constexpr const char *PrimoControllo = "vesparaPrimoControllo";
const QString NomeEsci = QStringLiteral("lblEsci");

// A control the user can reach with Tab right now. A label with a link takes Tab too, but it
// is no field.
bool prendeFuoco(const QWidget *schermo, const QWidget *w) {
    return w && w != schermo && schermo->isAncestorOf(w) && w->isEnabled() &&
           w->isVisibleTo(schermo) && (w->focusPolicy() & Qt::TabFocus) &&
           w->objectName() != NomeEsci && !qobject_cast<const QLabel *>(w);
}

// A screen opened while another window had the keyboard (the waiting box of a long opening):
// when its own window comes back, Qt gives the focus to whatever that window had last, often a
// control of the frame. Once the activation is done, the screen takes its first control, unless
// the user has gone to another screen meanwhile.
class FuocoAllAttivazione : public QObject {
public:
    explicit FuocoAllAttivazione(QWidget *schermo)
        : QObject(schermo)
        , m_schermo(schermo) {
        schermo->window()->installEventFilter(this);
    }

    bool eventFilter(QObject *oggetto, QEvent *evento) override {
        if (evento->type() == QEvent::WindowActivate && oggetto == m_schermo->window()) {
            oggetto->removeEventFilter(this);
            QMetaObject::invokeMethod(
                this,
                [this] {
                    dai();
                    deleteLater();
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    void dai() {
        const QWidget *fuoco = QApplication::focusWidget();
        if (fuoco && m_schermo->isAncestorOf(fuoco)) {
            if (fuoco->objectName() != NomeEsci)
                return;
        } else if (auto *s = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(m_schermo));
                   fuoco && s && s->mdiArea() && s->mdiArea()->isAncestorOf(fuoco)) {
            return; // another screen has the keyboard: the user went there
        }
        if (QWidget *w = MdiStile::controlloIniziale(m_schermo))
            w->setFocus(Qt::OtherFocusReason);
    }

    QWidget *m_schermo;
};

} // namespace

void MdiStile::primoControllo(QWidget *schermo, QWidget *controllo) {
    schermo->setProperty(PrimoControllo, controllo->objectName());
}

QWidget *MdiStile::controlloIniziale(QWidget *schermo) {
    const QString nome = schermo->property(PrimoControllo).toString();
    if (!nome.isEmpty()) {
        auto *scelto = schermo->findChild<QWidget *>(nome);
        if (scelto && scelto->focusProxy())
            scelto = scelto->focusProxy();
        if (prendeFuoco(schermo, scelto))
            return scelto;
    }
    if (QWidget *proprio = schermo->focusWidget(); prendeFuoco(schermo, proprio))
        return proprio;
    // The tab order, as Tab itself walks it.
    for (QWidget *w = schermo->nextInFocusChain(); w && w != schermo; w = w->nextInFocusChain())
        if (!w->focusProxy() && prendeFuoco(schermo, w))
            return w;
    return nullptr;
}

void MdiStile::primoFuoco(QWidget *schermo) {
    if (QWidget *w = controlloIniziale(schermo))
        w->setFocus(Qt::OtherFocusReason);
    if (!schermo->isActiveWindow())
        new FuocoAllAttivazione(schermo);
}
