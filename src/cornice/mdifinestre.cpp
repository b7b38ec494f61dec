#include "cornice/mdifinestre.h"

#include "core/mdistile.h"
#include "cornice/mdipannello.h"
#include "cornice/suggerimentimenu.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

MdiFinestre::MdiFinestre(MdiPannello &pannello, QMenu *menu)
    : QObject(&pannello)
    , m_pannello(pannello)
    , m_menu(menu)
    , m_gruppo(new QActionGroup(this)) {
    setObjectName(u"finestre"_s);
    pannello.registraAzione(u"mnuSovrapponi"_s, [this] { sovrapponi(); });
    pannello.registraAzione(u"mnuAffianca"_s, [this] { m_pannello.area()->tileSubWindows(); });
    pannello.registraAzione(u"mnuChiudiTutte"_s, [this] { chiudiTutte(); });
    connect(m_menu, &QMenu::aboutToShow, this, &MdiFinestre::componi);

    // The keys of every desktop program with windows inside a window. Shift+Tab reaches a
    // program as Backtab; both spellings are listed so either form of the key is taken.
    const auto tasto = [this](const QString &nome, const QList<QKeySequence> &sequenze,
                              auto azione) {
        auto *a = new QAction(this);
        a->setObjectName(nome);
        a->setShortcuts(sequenze);
        connect(a, &QAction::triggered, this, azione);
        m_tasti.append(a);
    };
    tasto(u"azSuccessiva"_s, {QKeySequence(Qt::CTRL | Qt::Key_Tab)}, [this] { passa(1); });
    tasto(u"azPrecedente"_s,
          {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab),
           QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab)},
          [this] { passa(-1); });
    tasto(u"azChiudiFinestra"_s,
          {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)},
          [this] { chiudiAttivo(); });
    aggiungiTasti(&m_pannello);
}

void MdiFinestre::aggiungiTasti(QWidget *finestra) const {
    finestra->addActions(m_tasti);
}

void MdiFinestre::prendiTasti(QMdiSubWindow *s) const {
    if (QMenu *menu = s->systemMenu()) {
        const QList<QAction *> azioni = menu->actions();
        for (QAction *a : azioni) {
            QList<QKeySequence> restano = a->shortcuts();
            for (const QAction *t : m_tasti)
                for (const QKeySequence &k : t->shortcuts())
                    restano.removeAll(k);
            if (restano.size() != a->shortcuts().size())
                a->setShortcuts(restano);
        }
    }
}

void MdiFinestre::sovrapponi() {
    QMdiArea *area = m_pannello.area();
    area->cascadeSubWindows();
    const QSize vista = area->maximumViewportSize();
    const QList<QMdiSubWindow *> finestre = area->subWindowList();
    for (QMdiSubWindow *s : finestre)
        if (!s->isMaximized() && !s->isMinimized())
            s->resize(std::min(s->width(), vista.width() - s->x()),
                      std::min(s->height(), vista.height() - s->y()));
}

void MdiFinestre::passa(int verso) {
    // A modal screen keeps the user until it is closed.
    if (QApplication::activeModalWidget())
        return;
    const QList<QWidget *> aperti = m_pannello.schermiAperti();
    if (aperti.isEmpty())
        return;
    const auto n = aperti.size();
    const auto i = aperti.indexOf(m_pannello.schermoAttivo());
    const auto j = i < 0 ? (verso > 0 ? 0 : n - 1) : ((i + verso) % n + n) % n;
    m_pannello.attivaSchermo(aperti.at(j));
}

void MdiFinestre::chiudiAttivo() {
    if (QWidget *schermo = m_pannello.schermoAttivo())
        MdiStile::finestraDi(schermo)->close();
}

void MdiFinestre::chiudiTutte() {
    // As the user would, window by window from the last opened: a screen may still ask whether
    // to close.
    QList<QWidget *> aperti = m_pannello.schermiAperti();
    std::reverse(aperti.begin(), aperti.end());
    for (QWidget *schermo : aperti)
        if (schermo->objectName() != QLatin1StringView(SchermoCheResta))
            MdiStile::finestraDi(schermo)->close();
}

void MdiFinestre::componi() {
    qDeleteAll(m_elenco);
    m_elenco.clear();
    const QList<QWidget *> aperti = m_pannello.schermiAperti();
    const bool inArea = !m_pannello.area()->subWindowList().isEmpty();
    m_pannello.azione(u"mnuSovrapponi"_s)->setEnabled(inArea);
    m_pannello.azione(u"mnuAffianca"_s)->setEnabled(inArea);
    m_pannello.azione(u"mnuChiudiTutte"_s)
        ->setEnabled(std::any_of(aperti.cbegin(), aperti.cend(), [](const QWidget *s) {
            return s->objectName() != QLatin1StringView(SchermoCheResta);
        }));
    const QWidget *attivo = m_pannello.schermoAttivo();
    for (qsizetype i = 0; i < aperti.size(); ++i) {
        QPointer<QWidget> schermo = aperti.at(i);
        QString titolo = m_pannello.titoloSchermo(schermo);
        titolo.replace(u'&', u"&&"_s);
        // Numbered as the windows of every desktop: the first nine with their digit as key.
        const QString testo =
            i < 9 ? u"&%1 %2"_s.arg(i + 1).arg(titolo) : u"%1 %2"_s.arg(i + 1).arg(titolo);
        auto *a = new QAction(testo, m_menu);
        a->setObjectName(
            u"%1(%2)"_s.arg(QLatin1StringView(SuggerimentiMenu::VoceFinestra)).arg(i + 1));
        a->setStatusTip(SuggerimentiMenu::per(QLatin1StringView(SuggerimentiMenu::VoceFinestra)));
        a->setCheckable(true);
        a->setChecked(schermo == attivo);
        a->setActionGroup(m_gruppo);
        connect(a, &QAction::triggered, this, [this, schermo] {
            if (schermo)
                m_pannello.attivaSchermo(schermo);
        });
        m_menu->addAction(a);
        m_elenco.append(a);
    }
}
