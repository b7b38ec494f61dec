// Every screen at the sizes of the desktops the program meets: at 1024×768 nothing falls off the
// frame and every button can be reached; at 1920×1080 a maximised screen lets its grids and lists
// grow; a screen maximised once leaves the next one with its own frame.
#include "supporto/ambienteprova.h"
#include "supporto/strumentiprova.h"

#include "core/mdistile.h"
#include "cornice/mdipannello.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

bool dentroUnaVista(QWidget *w, QWidget *schermo) {
    for (QWidget *p = w->parentWidget(); p && p != schermo; p = p->parentWidget())
        if (qobject_cast<QAbstractScrollArea *>(p))
            return true;
    return false;
}

// The controls a user sees on a screen (the insides of grids and lists excluded).
QList<QWidget *> controlliVisibili(QWidget *schermo) {
    QList<QWidget *> visibili;
    const QList<QWidget *> tutti = schermo->findChildren<QWidget *>();
    for (QWidget *w : tutti)
        if (w->isVisibleTo(schermo) && !w->isWindow() && !dentroUnaVista(w, schermo) &&
            (qobject_cast<QAbstractButton *>(w) || qobject_cast<QLabel *>(w) ||
             qobject_cast<QAbstractScrollArea *>(w)))
            visibili.append(w);
    return visibili;
}

// Where a control stands, in the coordinates of the frame's area (or of the dialog).
QRect rettangolo(QWidget *w, QWidget *riferimento) {
    return QRect(w->mapTo(riferimento, QPoint(0, 0)), w->size());
}

// Scrolls as a user would until the whole control is in sight (or as much of it as fits).
void mostraNelloScorrimento(QScrollArea *scorrimento, QWidget *schermo, QWidget *c) {
    const QRect r(c->mapTo(schermo, QPoint(0, 0)), c->size());
    const QSize vista = scorrimento->viewport()->size();
    const auto porta = [](QScrollBar *barra, int inizio, int fine, int lato) {
        if (fine > barra->value() + lato)
            barra->setValue(fine - lato);
        if (inizio < barra->value())
            barra->setValue(inizio);
    };
    porta(scorrimento->horizontalScrollBar(), r.left(), r.right() + 1, vista.width());
    porta(scorrimento->verticalScrollBar(), r.top(), r.bottom() + 1, vista.height());
}

QStringList schermiDaProvare(MdiPannello &p) {
    QStringList nomi = p.schermiRegistrati();
    // The waiting box belongs to long operations, not to the menu.
    nomi.removeAll(u"frmAttendere"_s);
    return nomi;
}

} // namespace

class TstFinestre : public QObject {
    Q_OBJECT

private slots:
    void ogniSchermoEntra_data();
    void ogniSchermoEntra();
    void ingranditoCresce();
    void ingranditoNonToglieLaCornice();
    void segniFissiNonSpostanoIGruppi();
};

void TstFinestre::ogniSchermoEntra_data() {
    QTest::addColumn<QSize>("cornice");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("1280x800") << QSize(1280, 800);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TstFinestre::ogniSchermoEntra() {
    QFETCH(QSize, cornice);
    AmbienteProva a(cornice);
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(cornice);
    QTRY_COMPARE(p.size(), cornice);
    const QStringList nomi = schermiDaProvare(p);
    QVERIFY(nomi.size() >= 10);
    for (const QString &nome : nomi) {
        p.chiudiSchermi();
        QCoreApplication::processEvents();
        QWidget *schermo = p.apriSchermo(nome);
        if (!schermo)
            continue; // a screen that refuses to open here says so in its own box
        QCoreApplication::processEvents();
        QWidget *finestra = MdiStile::finestraDi(schermo);
        const bool dialogo = qobject_cast<QDialog *>(schermo) != nullptr;
        QWidget *riferimento = dialogo ? schermo : p.area()->viewport();
        const QRect spazio = dialogo ? schermo->rect() : p.area()->viewport()->rect();
        const QString dove = u"%1 a %2x%3"_s.arg(nome).arg(cornice.width()).arg(cornice.height());
        if (!dialogo)
            QVERIFY2(spazio.contains(rettangolo(finestra, riferimento)),
                     qPrintable(dove + u": la finestra esce dall'area"_s));
        else
            QVERIFY2(schermo->width() <= cornice.width() && schermo->height() <= cornice.height(),
                     qPrintable(dove + u": il dialogo è più grande della cornice"_s));
        // The screen keeps the size its layout needs: where the window is smaller, it scrolls.
        QVERIFY2(schermo->width() >= schermo->minimumSizeHint().width() &&
                     schermo->height() >= schermo->minimumSizeHint().height(),
                 qPrintable(dove + u": schermo schiacciato"_s));
        // Every control can be brought into view, and no label is cut.
        const QList<QWidget *> controlli = controlliVisibili(schermo);
        auto *scorrimento = qobject_cast<QScrollArea *>(
            schermo->parentWidget() ? schermo->parentWidget()->parentWidget() : nullptr);
        for (QWidget *c : controlli) {
            QWidget *vista = scorrimento ? scorrimento->viewport() : schermo;
            if (scorrimento) {
                mostraNelloScorrimento(scorrimento, schermo, c);
                QCoreApplication::processEvents();
            }
            const QRect r = rettangolo(c, vista);
            QVERIFY2(vista->rect().contains(r) || r.width() > vista->width() ||
                         r.height() > vista->height(),
                     qPrintable(dove + u": %1 non raggiungibile (%2,%3 %4x%5 in %6x%7)"_s
                                           .arg(c->objectName())
                                           .arg(r.x())
                                           .arg(r.y())
                                           .arg(r.width())
                                           .arg(r.height())
                                           .arg(vista->width())
                                           .arg(vista->height())));
            if (auto *l = qobject_cast<QLabel *>(c); l && !l->wordWrap() && !l->text().isEmpty() &&
                                                     l->textFormat() != Qt::RichText &&
                                                     !l->text().contains(u'<'))
                // A label that names its field's access key shows its text without the mark.
                QVERIFY2(l->width() >=
                             l->fontMetrics().horizontalAdvance(
                                 l->buddy() ? StrumentiProva::testoMostrato(l->text()) : l->text()),
                         qPrintable(dove + u": etichetta tagliata \"%1\""_s.arg(l->text())));
        }
        for (qsizetype i = 0; i < controlli.size(); ++i)
            for (qsizetype j = i + 1; j < controlli.size(); ++j) {
                QWidget *u = controlli[i];
                QWidget *v = controlli[j];
                if (u->parentWidget() != v->parentWidget())
                    continue;
                const QRect comune = u->geometry() & v->geometry();
                QVERIFY2(comune.width() <= 1 || comune.height() <= 1,
                         qPrintable(dove + u": %1 e %2 si sovrappongono"_s.arg(u->objectName(),
                                                                               v->objectName())));
            }
        AmbienteProva::fotografa(dialogo ? schermo : static_cast<QWidget *>(&p),
                                 u"%1-%2"_s.arg(nome).arg(cornice.width()));
    }
}

void TstFinestre::ingranditoCresce() {
    // Maximised at 1920×1080, the grids and lists of a screen take the room they are given.
    AmbienteProva a(QSize(1920, 1080));
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(1920, 1080);
    const QStringList nomi = schermiDaProvare(p);
    int provati = 0;
    for (const QString &nome : nomi) {
        p.chiudiSchermi();
        QCoreApplication::processEvents();
        QWidget *schermo = p.apriSchermo(nome);
        if (!schermo || qobject_cast<QDialog *>(schermo))
            continue;
        auto *s = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(schermo));
        QVERIFY(s);
        QList<QAbstractScrollArea *> viste;
        for (QAbstractScrollArea *v : schermo->findChildren<QAbstractScrollArea *>())
            if ((qobject_cast<QTableView *>(v) || qobject_cast<QListWidget *>(v)) &&
                v->isVisibleTo(schermo))
                viste.append(v);
        if (viste.isEmpty())
            continue;
        QList<QSize> prima;
        for (QAbstractScrollArea *v : std::as_const(viste))
            prima.append(v->size());
        s->showMaximized();
        QCoreApplication::processEvents();
        if (schermo->maximumSize().width() < p.area()->width() ||
            schermo->maximumSize().height() < p.area()->height())
            continue; // a screen of fixed size keeps it
        ++provati;
        bool cresciuta = false;
        for (qsizetype i = 0; i < viste.size(); ++i)
            cresciuta = cresciuta || viste[i]->width() > prima[i].width() ||
                        viste[i]->height() > prima[i].height();
        QVERIFY2(cresciuta, qPrintable(nome + u": le griglie non crescono"_s));
        AmbienteProva::fotografa(&p, u"%1-ingrandito"_s.arg(nome));
    }
    QVERIFY(provati >= 3);
}

void TstFinestre::ingranditoNonToglieLaCornice() {
    AmbienteProva a;
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.chiudiSchermi();
    QWidget *primo = p.apriSchermo(u"frmColonne9"_s);
    QVERIFY(primo);
    auto *s1 = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(primo));
    s1->showMaximized();
    QVERIFY(s1->isMaximized());
    QWidget *secondo = p.apriSchermo(u"frmArchivio"_s);
    QVERIFY(secondo);
    auto *s2 = qobject_cast<QMdiSubWindow *>(MdiStile::finestraDi(secondo));
    QCoreApplication::processEvents();
    QVERIFY(!s2->isMaximized());
    QCOMPARE(p.area()->activeSubWindow(), s2);
    // Its own title bar: the sub-window is larger than the screen it holds.
    QVERIFY(s2->height() > secondo->height());
}

void TstFinestre::segniFissiNonSpostanoIGruppi() {
    // Opening the input of the fixed signs makes its own group taller; every other group keeps its
    // size, and the search of a column its place too.
    AmbienteProva a(QSize(1024, 768));
    QVERIFY(a.avvia());
    MdiPannello &p = a.pannello();
    p.showNormal();
    p.resize(1024, 768);
    p.chiudiSchermi();
    QWidget *frm = p.apriSchermo(u"frmColonne9"_s);
    QVERIFY(frm);
    QTest::mouseClick(frm->findChild<QPushButton *>(u"cmdAvvia"_s), Qt::LeftButton);
    auto *chk = frm->findChild<QCheckBox *>(u"chkFiltra"_s);
    QTRY_VERIFY(chk->isEnabled());
    QCoreApplication::processEvents();
    auto gruppi = [frm] {
        QHash<QString, QSize> dove;
        for (QGroupBox *g : frm->findChildren<QGroupBox *>())
            if (!g->isAncestorOf(frm->findChild<QWidget *>(u"picFiltro"_s)))
                dove.insert(g->title() + u'|' + QString::number(g->x()), g->size());
        return dove;
    };
    const auto prima = gruppi();
    QVERIFY(prima.size() >= 6);
    QGroupBox *ricerca = nullptr;
    for (QGroupBox *g : frm->findChildren<QGroupBox *>())
        if (g->title() == u"Esamina colonna"_s)
            ricerca = g;
    QVERIFY(ricerca);
    const QRect doveRicerca(ricerca->mapTo(frm, QPoint(0, 0)), ricerca->size());
    QTest::mouseClick(chk, Qt::LeftButton, {}, QPoint(6, chk->height() / 2));
    QTRY_VERIFY(frm->findChild<QWidget *>(u"picFiltro"_s)->isVisible());
    QCoreApplication::processEvents();
    const auto dopo = gruppi();
    QCOMPARE(dopo, prima);
    QCOMPARE(QRect(ricerca->mapTo(frm, QPoint(0, 0)), ricerca->size()), doveRicerca);
    AmbienteProva::fotografa(&p, u"frmColonne9-segni-fissi"_s);
}

QTEST_MAIN(TstFinestre)
#include "tst_finestre.moc"
