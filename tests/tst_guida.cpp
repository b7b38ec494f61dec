// The guide: its pages read as they are shipped (index, page of a screen, search), and the guide
// window as a user meets it through the frame (F1 on every screen, the search, the links).
#include "supporto/ambienteprova.h"

#include "analisi/frmcolonne9.h"
#include "core/guida.h"
#include "cornice/frmguida.h"
#include "cornice/mdipannello.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A page of the guide's format.
QByteArray pagina(const QString &titolo, const QString &sezione, int ordine, const QString &schermi,
                  const QString &corpo) {
    QString testa = u"<!DOCTYPE html>\n<html lang=\"it\"><head><meta charset=\"utf-8\">\n"
                    "<title>%1</title>\n<meta name=\"sezione\" content=\"%2\">\n"
                    "<meta name=\"ordine\" content=\"%3\">\n"_s.arg(titolo, sezione)
                        .arg(ordine);
    if (!schermi.isEmpty())
        testa += u"<meta name=\"schermi\" content=\"%1\">\n"_s.arg(schermi);
    return (testa + u"</head><body>\n"_s + corpo + u"\n</body></html>\n"_s).toUtf8();
}

// Makes a window the active one, as the user's click on it does.
bool attiva(QWidget *finestra) {
    finestra = finestra->window();
    finestra->activateWindow();
    QApplication::setActiveWindow(finestra);
    return QTest::qWaitFor([finestra] { return QApplication::activeWindow() == finestra; }, 2000);
}

// The first control of a screen that takes the focus from the keyboard, or the screen itself.
QWidget *controlloDi(QWidget *schermo) {
    const QList<QWidget *> figli = schermo->findChildren<QWidget *>();
    for (QWidget *w : figli)
        if (w->isVisibleTo(schermo) && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus))
            return w;
    return schermo;
}

// The titles the index lists at its top level (sections, or the pages a search found).
QStringList vociPrincipali(const QTreeWidget *indice) {
    QStringList voci;
    for (int i = 0; i < indice->topLevelItemCount(); ++i)
        voci.append(indice->topLevelItem(i)->text(0));
    return voci;
}

} // namespace

class TstGuida : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    // The logic, on pages written here.
    void indiceNellOrdine();
    void titoloEMetadati();
    void paginaDiUnoSchermo();
    void testoSemplice();
    void ricerca_data();
    void ricerca();
    void ordineDeiRisultati();

    // The pages as shipped.
    void pagineConsegnate();
    void collegamentiValidi();
    void schermiDellePagineEsistono();

    // Through the frame.
    void f1SuOgniSchermo_data();
    void f1SuOgniSchermo();
    void f1SenzaSchermiEDallaGuida();
    void f1NellaRiduzione();
    void nessunaVoceNeiMenu();
    void cercaUnaParola();
    void collegamentoEIndietro();
    void dimensioniDelloSchermo_data();
    void dimensioniDelloSchermo();

private:
    QTemporaryDir m_cartella;
    std::unique_ptr<AmbienteProva> m_ambiente;

    MdiPannello &pannello() const { return m_ambiente->pannello(); }
    // F1 pressed on the control that holds the focus; the guide window then.
    FrmGuida *premiF1(QWidget *dove);
};

void TstGuida::initTestCase() {
    QVERIFY(m_cartella.isValid());
    const auto scrivi = [this](const QString &nome, const QByteArray &testo) {
        QFile f(m_cartella.filePath(nome));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(testo);
    };
    scrivi(u"oltre.html"_s,
           pagina(u"Cose rare"_s, u"Oltre il consueto"_s, 5, {}, u"<p>Nulla di speciale.</p>"_s));
    scrivi(u"b.html"_s, pagina(u"Seconda &amp; ultima"_s, u"Schermi"_s, 20, u"frmB frmBB"_s,
                               u"<p>Il ritardo della colonna.</p>"_s));
    scrivi(u"a.html"_s, pagina(u"Prima"_s, u"Schermi"_s, 10, u"frmA"_s,
                               u"<h1>Prima</h1><p>Perch&eacute; la <b>col</b>onna? "
                               "Perché sì: la colonna, la colonna!</p>"
                               "<!-- ritardo nascosto --><p class=\"ritardo\">Fine.</p>"_s));
    scrivi(u"index.html"_s, pagina(u"Benvenuti"_s, u"Primi passi"_s, 10, {},
                                   u"<p>Tutto sulla Città e sul 9.</p>"_s));
    scrivi(u"cornice.html"_s, pagina(u"La cornice"_s, u"Primi passi"_s, 20, u"mdiPannello"_s,
                                     u"<p>Menu e ritardi.</p>"_s));
    scrivi(u"strana.html"_s,
           pagina(u"Ritardi strani"_s, u"Sezione nuova"_s, 1, {}, u"<p>Altro.</p>"_s));
    scrivi(u"percorso.html"_s,
           pagina(u"Un percorso"_s, u"Percorsi"_s, 10, {}, u"<p>Dal concorso.</p>"_s));
    // Not a page of the guide.
    scrivi(u"note.txt"_s, "colonna");

    m_ambiente = std::make_unique<AmbienteProva>();
    QVERIFY(m_ambiente->avvia());
}

void TstGuida::cleanupTestCase() {
    m_ambiente.reset();
}

void TstGuida::cleanup() {
    if (m_ambiente && pannello().finestraGuida())
        pannello().finestraGuida()->close();
    if (m_ambiente)
        pannello().chiudiSchermi();
    QCoreApplication::processEvents();
}

FrmGuida *TstGuida::premiF1(QWidget *dove) {
    QTest::keyClick(dove, Qt::Key_F1);
    FrmGuida *guida = pannello().finestraGuida();
    if (!guida || !QTest::qWaitFor([guida] { return guida->isVisible(); }, 2000))
        return nullptr;
    return guida;
}

void TstGuida::indiceNellOrdine() {
    const Guida guida(m_cartella.path());
    QCOMPARE(guida.pagine().size(), 7);
    const QList<Guida::Sezione> indice = guida.indice();
    QStringList sezioni;
    for (const Guida::Sezione &s : indice)
        sezioni.append(s.nome);
    // The four in their order, then a section the program doesn't know, not lost.
    QCOMPARE(sezioni, (QStringList{u"Primi passi"_s, u"Schermi"_s, u"Percorsi"_s,
                                   u"Oltre il consueto"_s, u"Sezione nuova"_s}));
    QStringList primi;
    for (const Guida::Pagina *p : indice.at(0).pagine)
        primi.append(p->file);
    QCOMPARE(primi, (QStringList{u"index.html"_s, u"cornice.html"_s}));
    QStringList schermi;
    for (const Guida::Pagina *p : indice.at(1).pagine)
        schermi.append(p->file);
    QCOMPARE(schermi, (QStringList{u"a.html"_s, u"b.html"_s}));
}

void TstGuida::titoloEMetadati() {
    const Guida guida(m_cartella.path());
    const Guida::Pagina *b = guida.pagina(u"b.html"_s);
    QVERIFY(b);
    QCOMPARE(b->titolo, u"Seconda & ultima"_s);
    QCOMPARE(b->sezione, u"Schermi"_s);
    QCOMPARE(b->ordine, 20);
    QCOMPARE(b->schermi, (QStringList{u"frmB"_s, u"frmBB"_s}));
    QVERIFY(!guida.pagina(u"note.txt"_s));
    QVERIFY(!guida.pagina(u"assente.html"_s));
}

void TstGuida::paginaDiUnoSchermo() {
    const Guida guida(m_cartella.path());
    QCOMPARE(guida.paginaDiSchermo(u"frmA"_s), u"a.html"_s);
    QCOMPARE(guida.paginaDiSchermo(u"frmBB"_s), u"b.html"_s);
    QCOMPARE(guida.paginaDiSchermo(u"mdiPannello"_s), u"cornice.html"_s);
    // A screen no page documents: the frame's page, and no page of its own.
    QCOMPARE(guida.paginaDiSchermo(u"frmNessuno"_s), u"cornice.html"_s);
    QCOMPARE(guida.paginaDi(u"frmNessuno"_s), QString());
    // Names are whole words of the list, not parts of them.
    QCOMPARE(guida.paginaDi(u"frm"_s), QString());
    QCOMPARE(guida.paginaDi(u"frmB frmBB"_s), QString());
}

void TstGuida::testoSemplice() {
    QCOMPARE(Guida::testoSemplice(u"<html><head><title>Titolo</title></head><body><h1>Uno</h1>"
                                  "<p>Due&nbsp;e <b>tr</b>e &lt;4&gt; &#233; &#x2014;</p>"
                                  "<!-- no --></body></html>"_s),
             u"Uno Due e tre <4> é —"_s);
    QCOMPARE(Guida::piega(u"Perché È CITTÀ"_s), u"perche e citta"_s);
    QCOMPARE(Guida::piega(u"Perché"_s).size(), QString(u"Perché"_s).size());
    QCOMPARE(Guida::paroleDi(u"  L'archivio, il 9 e... l'ARCHIVIO "_s),
             (QStringList{u"archivio"_s, u"il"_s, u"9"_s}));
}

void TstGuida::ricerca_data() {
    QTest::addColumn<QString>("parole");
    QTest::addColumn<QStringList>("pagine");
    // On one page and no other.
    QTest::newRow("due pagine") << u"colonna"_s << QStringList{u"a.html"_s, u"b.html"_s};
    QTest::newRow("solo in a") << u"perche"_s << QStringList{u"a.html"_s};
    QTest::newRow("accenti e maiuscole") << u"PERCHÉ"_s << QStringList{u"a.html"_s};
    QTest::newRow("accento nel testo") << u"citta"_s << QStringList{u"index.html"_s};
    QTest::newRow("inizio di parola")
        << u"ritard"_s << QStringList{u"b.html"_s, u"cornice.html"_s, u"strana.html"_s};
    QTest::newRow("non a metà parola") << u"itardo"_s << QStringList{};
    QTest::newRow("tutte le parole") << u"ritardo colonna"_s << QStringList{u"b.html"_s};
    QTest::newRow("un numero") << u"9"_s << QStringList{u"index.html"_s};
    QTest::newRow("commenti e tag no") << u"nascosto"_s << QStringList{};
    QTest::newRow("vuota") << u"  "_s << QStringList{};
    QTest::newRow("nessuna") << u"zebra"_s << QStringList{};
}

void TstGuida::ricerca() {
    QFETCH(QString, parole);
    QFETCH(QStringList, pagine);
    const Guida guida(m_cartella.path());
    QStringList trovate;
    for (const Guida::Risultato &r : guida.cerca(parole)) {
        trovate.append(r.pagina->file);
        QVERIFY(r.occorrenze >= 0);
    }
    trovate.sort();
    QCOMPARE(trovate, pagine);
}

void TstGuida::ordineDeiRisultati() {
    const Guida guida(m_cartella.path());
    // Three hits on a.html ("col" + "onna" is one word), one on b.html: a.html first.
    const QList<Guida::Risultato> r = guida.cerca(u"colonna"_s);
    QCOMPARE(r.size(), 2);
    QCOMPARE(r.at(0).pagina->file, u"a.html"_s);
    QCOMPARE(r.at(0).occorrenze, 3);
    QCOMPARE(r.at(1).occorrenze, 1);
    // A page named in its title comes before pages that only mention the word.
    const QList<Guida::Risultato> c = guida.cerca(u"cornice menu"_s);
    QCOMPARE(c.size(), 1);
    // With as many hits in the text, the page of the title goes first, though last in the
    // index; the others keep the order of the index.
    QStringList ritardi;
    for (const Guida::Risultato &x : guida.cerca(u"ritard"_s))
        ritardi.append(x.pagina->file);
    QCOMPARE(ritardi, (QStringList{u"strana.html"_s, u"cornice.html"_s, u"b.html"_s}));
    // The positions of the words in a text, for the marks in the page.
    const QList<std::pair<qsizetype, qsizetype>> posti =
        Guida::trova(u"Città e città, non capacità"_s, Guida::paroleDi(u"citta"_s));
    QCOMPARE(posti.size(), 2);
    QCOMPARE(posti.at(0), (std::pair<qsizetype, qsizetype>(0, 5)));
    QCOMPARE(posti.at(1), (std::pair<qsizetype, qsizetype>(8, 5)));
}

void TstGuida::pagineConsegnate() {
    const Guida guida;
    QVERIFY2(guida.pagine().size() >= 13, qPrintable(QString::number(guida.pagine().size())));
    for (const Guida::Pagina &p : guida.pagine()) {
        QVERIFY2(p.file == p.file.toLower() && p.file.endsWith(u".html"_s), qPrintable(p.file));
        QVERIFY2(p.titolo != p.file, qPrintable(p.file + u": senza titolo"_s));
        QVERIFY2(Guida::sezioni().contains(p.sezione), qPrintable(p.file + u": "_s + p.sezione));
        QVERIFY2(p.ordine > 0, qPrintable(p.file));
        QVERIFY2(p.testo.size() > 300, qPrintable(p.file + u": pagina troppo breve"_s));
    }
    // The first page of the index is the welcome, and the frame has its page.
    QCOMPARE(guida.indice().first().pagine.first()->file, Guida::paginaIniziale());
    QCOMPARE(guida.paginaDi(u"mdiPannello"_s), Guida::paginaCornice());
    QVERIFY(guida.pagina(u"guida.html"_s));
}

void TstGuida::collegamentiValidi() {
    // Every link between pages reaches a page that is there.
    const Guida guida;
    static const QRegularExpression href(u"href=\"([^\"#]*)(#[^\"]*)?\""_s);
    int collegamenti = 0;
    for (const Guida::Pagina &p : guida.pagine()) {
        QFile f(Guida::risorse() + u'/' + p.file);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(f.readAll());
        QVERIFY2(!html.contains(u"<script"_s, Qt::CaseInsensitive), qPrintable(p.file));
        for (auto it = href.globalMatch(html); it.hasNext();) {
            const QString destinazione = it.next().captured(1);
            if (destinazione.isEmpty() || destinazione.contains(u':'))
                continue;
            ++collegamenti;
            QVERIFY2(guida.pagina(destinazione), qPrintable(p.file + u" -> "_s + destinazione));
        }
    }
    QVERIFY(collegamenti > 20);
}

void TstGuida::schermiDellePagineEsistono() {
    // A page names screens that exist: registered ones, the frame, and the reduction dialog
    // that the workspace of the 9 opens itself.
    const Guida guida;
    const QStringList registrati = pannello().schermiRegistrati();
    const QStringList altri{u"mdiPannello"_s, u"frmRiduzione"_s};
    for (const Guida::Pagina &p : guida.pagine())
        for (const QString &nome : p.schermi)
            QVERIFY2(registrati.contains(nome) || altri.contains(nome),
                     qPrintable(p.file + u": "_s + nome));
}

void TstGuida::f1SuOgniSchermo_data() {
    QTest::addColumn<QString>("schermo");
    const QStringList nomi = pannello().schermiRegistrati();
    for (const QString &nome : nomi)
        QTest::newRow(qPrintable(nome)) << nome;
}

void TstGuida::f1SuOgniSchermo() {
    QFETCH(QString, schermo);
    MdiPannello &p = pannello();
    p.chiudiSchermi();
    QCoreApplication::processEvents();
    m_ambiente->dialoghi.svuota();
    // Every registered screen has its page, also one that can't open here.
    QVERIFY2(!Guida().paginaDi(schermo).isEmpty(),
             qPrintable(schermo + u": nessuna pagina della guida"_s));
    QWidget *frm = p.apriSchermo(schermo);
    if (!frm)
        QSKIP("lo schermo non si apre qui (lo dice con un suo box)");
    QVERIFY(attiva(frm));
    QWidget *controllo = controlloDi(frm);
    controllo->setFocus(Qt::OtherFocusReason);
    QCoreApplication::processEvents();
    FrmGuida *guida = premiF1(QApplication::focusWidget() ? QApplication::focusWidget() : frm);
    QVERIFY2(guida, "F1 non ha aperto la guida");
    QCOMPARE(guida->windowTitle(), u"Guida di Vespara"_s);
    QCOMPARE(guida->paginaCorrente(), guida->guida().paginaDi(schermo));
}

void TstGuida::f1SenzaSchermiEDallaGuida() {
    MdiPannello &p = pannello();
    p.chiudiSchermi();
    QCoreApplication::processEvents();
    QVERIFY(attiva(&p));
    FrmGuida *guida = premiF1(&p);
    QVERIFY(guida);
    QCOMPARE(guida->paginaCorrente(), Guida::paginaCornice());
    // One window only: F1 again raises it, and from the guide F1 tells how to use it.
    QVERIFY(attiva(guida));
    QCOMPARE(premiF1(guida->findChild<QTreeWidget *>(u"lstIndice"_s)), guida);
    QCOMPARE(guida->paginaCorrente(), u"guida.html"_s);
    int finestre = 0;
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w->objectName() == u"frmGuida"_s)
            ++finestre;
    QCOMPARE(finestre, 1);
    // The guide is a window of its own beside the frame, not one of its screens.
    QVERIFY(guida->isWindow());
    QVERIFY(!p.schermiAperti().contains(guida));
    // The menu entry and the toolbar button open it from the frame, on its page.
    guida->close();
    QVERIFY(attiva(&p));
    p.findChild<QAction *>(u"TB(9)"_s)->trigger();
    QVERIFY(guida->isVisible());
    QCOMPARE(guida->paginaCorrente(), Guida::paginaCornice());
}

void TstGuida::f1NellaRiduzione() {
    // A dialog that a screen opens, modal to the frame: F1 there opens the dialog's page, and
    // the guide can be used while the dialog stays open.
    FrmColonne9 *frm = m_ambiente->apriAnalisi9();
    QVERIFY(frm);
    QTest::mouseClick(frm->findChild<QPushButton *>(u"cmdRiduci"_s), Qt::LeftButton);
    auto *riduzione = frm->findChild<QDialog *>(u"frmRiduzione"_s);
    QVERIFY(riduzione);
    QVERIFY(QTest::qWaitFor([riduzione] { return riduzione->isVisible(); }, 2000));
    QVERIFY(attiva(riduzione));
    FrmGuida *guida = premiF1(riduzione->findChild<QPushButton *>(u"cmdRiduci"_s));
    QVERIFY(guida);
    QCOMPARE(guida->paginaCorrente(), u"riduzione.html"_s);
    QVERIFY(riduzione->isVisible());
    // A click of the user, through the window system, reaches the guide.
    QVERIFY(attiva(guida));
    auto *inizio = guida->findChild<QPushButton *>(u"cmdIndice"_s);
    QTest::mouseClick(guida->windowHandle(), Qt::LeftButton, {},
                      inizio->mapTo(guida, inizio->rect().center()));
    QCOMPARE(guida->paginaCorrente(), u"index.html"_s);
    riduzione->reject();
}

void TstGuida::nessunaVoceNeiMenu() {
    // The pop-up of the export is a window of the program too, but a menu shows every action it
    // carries: F1 stays out of it.
    MdiPannello &p = pannello();
    QVERIFY(attiva(&p));
    p.apriMenuGriglie(QPoint(50, 50));
    auto *menu = p.findChild<QMenu *>(u"frmMenuGriglie"_s);
    QVERIFY(menu);
    QVERIFY(QTest::qWaitFor([menu] { return menu->isVisible(); }, 2000));
    menu->setFocus(Qt::PopupFocusReason);
    QCoreApplication::processEvents();
    QVERIFY(!menu->actions().contains(p.azione(u"mnuGuida"_s)));
    QCOMPARE(menu->actions().size(), 1);
    menu->close();
}

void TstGuida::cercaUnaParola() {
    MdiPannello &p = pannello();
    QVERIFY(attiva(&p));
    FrmGuida *guida = premiF1(&p);
    QVERIFY(guida);
    auto *cerca = guida->findChild<QLineEdit *>(u"txtCerca"_s);
    auto *indice = guida->findChild<QTreeWidget *>(u"lstIndice"_s);
    QVERIFY(cerca && indice);
    const QStringList sezioni = vociPrincipali(indice);
    QCOMPARE(sezioni.first(), u"Primi passi"_s);

    // A word with its accent left out: the pages that hold it, and only those.
    QVERIFY(attiva(guida));
    cerca->setFocus();
    QTest::keyClicks(cerca, u"consecutivita"_s);
    const QList<Guida::Risultato> attese = guida->guida().cerca(u"consecutività"_s);
    QVERIFY(!attese.isEmpty());
    QStringList titoli;
    for (const Guida::Risultato &r : attese)
        titoli.append(r.pagina->titolo);
    QCOMPARE(vociPrincipali(indice), titoli);
    QVERIFY(titoli.contains(u"Analisi del \"9\""_s));
    for (const Guida::Pagina &pg : guida->guida().pagine())
        if (!titoli.contains(pg.titolo))
            QVERIFY2(!Guida::piega(pg.testo).contains(u"consecutivita"_s), qPrintable(pg.file));
    // Enter opens the first page found, its word marked.
    QTest::keyClick(cerca, Qt::Key_Return);
    QCOMPARE(guida->paginaCorrente(), attese.first().pagina->file);
    auto *testo = guida->findChild<QTextBrowser *>(u"txtPagina"_s);
    QVERIFY(!testo->extraSelections().isEmpty());
    QCOMPARE(Guida::piega(testo->extraSelections().first().cursor.selectedText()),
             u"consecutivita"_s);

    // A word on no page.
    cerca->clear();
    QTest::keyClicks(cerca, u"zzzparolainesistente"_s);
    QCOMPARE(vociPrincipali(indice), QStringList{u"Nessuna pagina trovata"_s});
    // Cleared, the index is back, the page shown marked in it.
    cerca->clear();
    QCOMPARE(vociPrincipali(indice), sezioni);
    QVERIFY(indice->currentItem());
    QCOMPARE(indice->currentItem()->text(0), attese.first().pagina->titolo);
    QVERIFY(testo->extraSelections().isEmpty());
}

void TstGuida::collegamentoEIndietro() {
    MdiPannello &p = pannello();
    QVERIFY(attiva(&p));
    FrmGuida *guida = premiF1(&p);
    QVERIFY(guida);
    auto *indice = guida->findChild<QTreeWidget *>(u"lstIndice"_s);
    auto *testo = guida->findChild<QTextBrowser *>(u"txtPagina"_s);
    auto *indietro = guida->findChild<QPushButton *>(u"cmdIndietro"_s);
    // The first page from the index, as a user clicks it.
    QTreeWidgetItem *benvenuti = indice->topLevelItem(0)->child(0);
    QTest::mouseClick(indice->viewport(), Qt::LeftButton, {},
                      indice->visualItemRect(benvenuti).center());
    QCOMPARE(guida->paginaCorrente(), u"index.html"_s);
    QVERIFY(indietro->isEnabled());

    // A click on the link to the frame's page.
    QTextCursor cursore;
    for (QTextBlock b = testo->document()->begin(); b.isValid() && cursore.isNull(); b = b.next())
        for (auto it = b.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().anchorHref() == u"cornice.html"_s) {
                cursore = QTextCursor(testo->document());
                cursore.setPosition(it.fragment().position() + it.fragment().length() / 2);
                break;
            }
    QVERIFY(!cursore.isNull());
    testo->setTextCursor(cursore);
    testo->ensureCursorVisible();
    const QPoint punto = testo->cursorRect(cursore).center();
    QTest::mouseClick(testo->viewport(), Qt::LeftButton, {}, punto);
    QCOMPARE(guida->paginaCorrente(), u"cornice.html"_s);
    QCOMPARE(indice->currentItem()->text(0), u"La finestra principale"_s);

    // Back and forward, from the keyboard.
    QVERIFY(attiva(guida));
    // The buttons' keys click them as a click of the mouse shows, after a moment.
    QTest::keyClick(testo, Qt::Key_Left, Qt::AltModifier);
    QTRY_COMPARE(guida->paginaCorrente(), u"index.html"_s);
    QCOMPARE(indice->currentItem()->text(0), u"Benvenuti in Vespara"_s);
    QTest::keyClick(testo, Qt::Key_Right, Qt::AltModifier);
    QTRY_COMPARE(guida->paginaCorrente(), u"cornice.html"_s);
    QTest::mouseClick(guida->findChild<QPushButton *>(u"cmdIndice"_s), Qt::LeftButton);
    QCOMPARE(guida->paginaCorrente(), u"index.html"_s);
    AmbienteProva::fotografa(guida, u"guida"_s);
}

void TstGuida::dimensioniDelloSchermo_data() {
    QTest::addColumn<QSize>("dimensioni");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TstGuida::dimensioniDelloSchermo() {
    // The window fits a small desktop, and its index shows every title whole.
    QFETCH(QSize, dimensioni);
    MdiPannello &p = pannello();
    QVERIFY(attiva(&p));
    p.mostraSchermo(u"frmColonne9"_s);
    FrmGuida *guida = premiF1(p.trovaSchermo(u"frmColonne9"_s));
    QVERIFY(guida);
    QVERIFY(guida->minimumSizeHint().width() <= 1024 && guida->minimumSizeHint().height() <= 700);
    guida->resize(dimensioni.width(), dimensioni.height() - 60);
    QCoreApplication::processEvents();
    auto *indice = guida->findChild<QTreeWidget *>(u"lstIndice"_s);
    for (QTreeWidgetItemIterator it(indice); *it; ++it) {
        const QRect r = indice->visualItemRect(*it);
        const int testo = QFontMetrics((*it)->font(0)).horizontalAdvance((*it)->text(0));
        QVERIFY2(r.left() + testo <= indice->viewport()->width(), qPrintable((*it)->text(0)));
    }
    AmbienteProva::fotografa(guida,
                             u"guida-%1x%2"_s.arg(dimensioni.width()).arg(dimensioni.height()));
    auto *cerca = guida->findChild<QLineEdit *>(u"txtCerca"_s);
    QTest::keyClicks(cerca, u"garanzia"_s);
    QTest::keyClick(cerca, Qt::Key_Return);
    AmbienteProva::fotografa(
        guida, u"guida-cerca-%1x%2"_s.arg(dimensioni.width()).arg(dimensioni.height()));
    // Down from the field goes to the pages found.
    QVERIFY(attiva(guida));
    cerca->setFocus();
    QTest::keyClick(cerca, Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), indice);
    cerca->clear();
}

QTEST_MAIN(TstGuida)
#include "tst_guida.moc"
