#include "core/mditastiera.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *TieneInvio = "vesparaTieneInvio";
constexpr const char *FiltroDellAmbito = "vesparaFiltroInvio";

bool dentro(const QWidget *ambito, const QWidget *w) {
    return w && (w == ambito || ambito->isAncestorOf(w));
}

// What QDialog takes for its default button: Return alone, or Enter with or without the keypad.
bool eInvio(const QKeyEvent &tasto) {
    const Qt::KeyboardModifiers altri = tasto.modifiers() & ~Qt::KeypadModifier;
    if (tasto.key() == Qt::Key_Return)
        return tasto.modifiers() == Qt::NoModifier;
    return tasto.key() == Qt::Key_Enter && altri == Qt::NoModifier;
}

// The part of a screen whose default button Enter clicks. Enter goes first to the widget it was
// typed in and climbs to its parents as long as none takes it: the filter waits for it on the
// part's widget and, for the part's widget itself (a field with its own button), on its parent.
class FiltroInvio : public QObject {
public:
    FiltroInvio(QWidget *ambito, QPushButton *pulsante)
        : QObject(ambito)
        , m_ambito(ambito)
        , m_pulsante(pulsante) {
        ambito->setProperty(FiltroDellAmbito, true);
        ambito->installEventFilter(this);
        seguiGenitore();
    }

    QWidget *ambito() const { return m_ambito; }
    void setPulsante(QPushButton *pulsante) { m_pulsante = pulsante; }

    // The filter of the innermost part that holds `w`, if any. Looked up among the children, so
    // that a part whose filter is gone (a screen on its way out) has none.
    static FiltroInvio *di(const QWidget *w) {
        for (; w; w = w->parentWidget()) {
            if (!w->property(FiltroDellAmbito).toBool())
                continue;
            for (QObject *figlio : w->children())
                if (auto *f = dynamic_cast<FiltroInvio *>(figlio))
                    return f;
        }
        return nullptr;
    }

    // The button this part draws as default with the focus on `focus`: a focused push button of
    // the part, else the part's own; none while an inner part holds the focus. A screen's
    // outermost part keeps its mark while the focus is elsewhere, as an inactive dialog does.
    QPushButton *predefinito(QWidget *focus) const {
        if (dentro(m_ambito, focus)) {
            if (di(focus) != this)
                return nullptr;
            if (auto *b = qobject_cast<QPushButton *>(focus))
                return b;
            return m_pulsante;
        }
        return di(m_ambito->parentWidget()) ? nullptr : m_pulsante.data();
    }

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override {
        if (oggetto == m_ambito && evento->type() == QEvent::ParentChange) {
            seguiGenitore();
            return false;
        }
        if (evento->type() != QEvent::KeyPress || !eInvio(*static_cast<QKeyEvent *>(evento)))
            return false;
        QWidget *origine = this->origine(oggetto);
        if (!origine)
            return false;
        // On the part's own widget, the key waits until that widget has let it through.
        if (oggetto == m_ambito && origine == m_ambito && m_genitore)
            return false;
        if (oggetto != m_ambito && origine != m_ambito)
            return false;
        // An inner part answers for itself, and a widget marked by tieneInvio keeps its Enter.
        if (di(origine) != this)
            return false;
        for (QWidget *w = origine; w; w = w->parentWidget()) {
            if (w->property(TieneInvio).toBool())
                return false;
            if (w == m_ambito)
                break;
        }
        QPushButton *bersaglio = qobject_cast<QPushButton *>(origine);
        if (!bersaglio)
            bersaglio = m_pulsante;
        if (bersaglio && bersaglio->isVisible() && bersaglio->isEnabled())
            bersaglio->click();
        evento->accept();
        return true;
    }

private:
    // The widget the key was typed in, when it stands in this part: the focus. A key sent to the
    // part's widget with the focus elsewhere counts as typed there.
    QWidget *origine(QObject *oggetto) const {
        QWidget *focus = QApplication::focusWidget();
        if (!focus)
            focus = m_ambito->window()->focusWidget();
        if (dentro(m_ambito, focus))
            return focus;
        return oggetto == m_ambito ? m_ambito : nullptr;
    }

    void seguiGenitore() {
        if (m_genitore)
            m_genitore->removeEventFilter(this);
        m_genitore = m_ambito->parentWidget();
        if (m_genitore)
            m_genitore->installEventFilter(this);
    }

    QWidget *m_ambito;
    QPointer<QWidget> m_genitore;
    QPointer<QPushButton> m_pulsante;
};

// Draws the default buttons of all the parts at once, as the focus moves, so that two parts never
// take each other's mark away.
class Segni : public QObject {
public:
    static Segni &istanza() {
        static QPointer<Segni> segni;
        if (!segni)
            segni = new Segni;
        return *segni;
    }

    void aggiungi(FiltroInvio *filtro) {
        m_filtri.append(filtro);
        aggiorna();
    }

    void aggiorna() {
        QWidget *focus = QApplication::focusWidget();
        m_filtri.removeAll(nullptr);
        QSet<QPushButton *> nuovi;
        for (const QPointer<FiltroInvio> &f : std::as_const(m_filtri))
            if (QPushButton *b = f->predefinito(focus))
                nuovi.insert(b);
        for (const QPointer<QPushButton> &b : std::as_const(m_segnati))
            if (b && !nuovi.contains(b))
                b->setDefault(false);
        m_segnati.clear();
        for (QPushButton *b : std::as_const(nuovi)) {
            b->setDefault(true);
            m_segnati.append(b);
        }
    }

private:
    Segni()
        : QObject(qApp) {
        connect(qApp, &QApplication::focusChanged, this, &Segni::aggiorna);
    }

    QList<QPointer<FiltroInvio>> m_filtri;
    QList<QPointer<QPushButton>> m_segnati;
};

// A field claims Ctrl+Z for its own text even when it has nothing to undo, and the screen's key
// would never be reached from it: with nothing typed to take back, the field lets it pass.
class FiltroAnnulla : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *oggetto, QEvent *e) override {
        if (e->type() != QEvent::ShortcutOverride ||
            !static_cast<QKeyEvent *>(e)->matches(QKeySequence::Undo))
            return false;
        const QLineEdit *campo = qobject_cast<QLineEdit *>(oggetto);
        if (const auto *tendina = qobject_cast<QComboBox *>(oggetto))
            campo = tendina->lineEdit();
        // Not accepted: the key goes on to the shortcuts.
        return campo && !campo->isReadOnly() && !campo->isUndoAvailable();
    }
};

} // namespace

void MdiTastiera::pulsantePredefinito(QWidget *ambito, QPushButton *pulsante) {
    if (FiltroInvio *filtro = FiltroInvio::di(ambito); filtro && filtro->ambito() == ambito) {
        filtro->setPulsante(pulsante);
        Segni::istanza().aggiorna();
        return;
    }
    Segni::istanza().aggiungi(new FiltroInvio(ambito, pulsante));
}

void MdiTastiera::tieneInvio(QWidget *widget) {
    widget->setProperty(TieneInvio, true);
}

QAction *MdiTastiera::stampa(QWidget *schermo, QAbstractButton *pulsante) {
    auto *azione = new QAction(schermo);
    azione->setObjectName(u"azioneStampa"_s);
    // A button that can't be pressed prints nothing: click() does nothing on a disabled button.
    QObject::connect(azione, &QAction::triggered, pulsante, [pulsante] { pulsante->click(); });
    stampa(schermo, azione);
    return azione;
}

void MdiTastiera::stampa(QWidget *schermo, QAction *azione) {
    azione->setShortcut(tastoStampa());
    azione->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    schermo->addAction(azione);
}

QAction *MdiTastiera::annulla(QWidget *schermo, QAbstractButton *pulsante) {
    auto *azione = new QAction(schermo);
    azione->setObjectName(u"azioneAnnulla"_s);
    azione->setShortcut(QKeySequence::Undo);
    azione->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    // click() does nothing on a disabled button: the key is on when the button is.
    QObject::connect(azione, &QAction::triggered, pulsante, [pulsante] { pulsante->click(); });
    schermo->addAction(azione);
    auto *filtro = new FiltroAnnulla(azione);
    const QList<QWidget *> campi = schermo->findChildren<QWidget *>();
    for (QWidget *w : campi)
        if (qobject_cast<QLineEdit *>(w) || qobject_cast<QComboBox *>(w))
            w->installEventFilter(filtro);
    return azione;
}
