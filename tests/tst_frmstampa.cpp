// The slip printing screen used as a user would: opened through the frame, its printers and
// offsets, the file of the offsets, the checks before a run, the run to a PDF file and its
// preview.
#include "supporto/ambienteprova.h"
#include "supporto/segnipdf.h"
#include "supporto/strumentiprova.h"

#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/impostazioni.h"
#include "stampa/calibrazionestampanti.h"
#include "stampa/documentopagine.h"
#include "stampa/frmanteprima.h"
#include "stampa/frmstampa.h"
#include "stampa/stampaschedine.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString Vpprn = CalibrazioneStampanti::nomeFile();

class Banco {
public:
    AmbienteProva a;
    FrmStampa *frm = nullptr;
    QTemporaryDir uscita;

    // The program with these printers installed, and `colonne` columns handed over.
    bool avvia(const QStringList &stampanti, int colonne = 10) {
        if (!a.avvia())
            return false;
        a.stato().stampanti().imposta(stampanti);
        a.stato().ColonneStampa.clear();
        for (int i = 0; i < colonne; ++i)
            a.stato().ColonneStampa.append(u"1X21X21X2"_s);
        a.stato().PrimaColonnaStampa = 1;
        a.stato().UltimaColonnaStampa = qint16(colonne);
        return true;
    }
    FrmStampa *apri() {
        frm = qobject_cast<FrmStampa *>(a.pannello().apriSchermo(u"frmStampa"_s));
        return frm;
    }
    void chiudi() {
        MdiStile::finestraDi(frm)->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        frm = nullptr;
    }
    template <typename T> T *w(const QString &nome) const {
        return StrumentiProva::controllo<T>(frm, nome);
    }
    void clic(const QString &nome) const { StrumentiProva::clic(w<QAbstractButton>(nome)); }
    void digita(const QString &nome, const QString &testo) const {
        StrumentiProva::scriviSopra(w<QLineEdit>(nome), testo);
    }
    void ultime(const QStringList &segni) const {
        for (int k = 0; k < 5; ++k)
            digita(u"txt%1"_s.arg(10 + k), segni.value(k));
    }
    // Chooses an entry of a list as a user would.
    void scegli(const QString &nome, const QString &voce) const {
        auto *c = w<QComboBox>(nome);
        const int i = c->findText(voce);
        QVERIFY2(i >= 0, qPrintable(voce));
        c->setCurrentIndex(i);
        emit c->activated(i);
    }
    QStringList righeFile() const {
        const QByteArray byte = StrumentiProva::contenuto(a.file(Vpprn));
        QStringList righe = QString::fromLatin1(byte).split(u"\r\n"_s);
        if (!righe.isEmpty() && righe.last().isEmpty())
            righe.removeLast();
        return righe;
    }
    QString pdf() const { return uscita.filePath(u"schedine.pdf"_s); }
};

} // namespace

class TstFrmStampa : public QObject {
    Q_OBJECT
private slots:
    void primoAvvio();
    void scostamentiDellaStampanteUsata();
    void ultimaStampanteNonPiuInstallata();
    void unTastoScriveDieciRighe();
    void sceltaDiUnAltraStampante();
    void stampanteInstallataDopo();
    void guastiDelFile_data();
    void guastiDelFile();
    void filtroDelleUltimeCaselle();
    void controlli_data();
    void controlli();
    void nessunaStampante();
    void stampaSuPdf();
    void intervalloResta();
    void provaNonFaNulla();
    void anteprima();
    void anteprimaComeLaCarta_data();
    void anteprimaComeLaCarta();
    void anteprimaRifiutata();
};

void TstFrmStampa::primoAvvio() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s, u"Getto"_s, u"Aghi"_s}));
    QVERIFY(!QFile::exists(b.a.file(Vpprn)));
    QVERIFY(b.apri());
    QCOMPARE(b.frm->windowTitle(), u" Stampe e Impostazioni."_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{CalibrazioneStampanti::messaggioPrimoAvvio()});
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Informazione);
    QCOMPARE(StrumentiProva::contenuto(b.a.file(Vpprn)),
             QByteArray("Laser,0,0\r\nGetto,0,0\r\nAghi,0,0\r\n"));
    auto *cmb = b.w<QComboBox>(u"cmbStampante"_s);
    QCOMPARE(cmb->count(), 3);
    QCOMPARE(cmb->itemText(2), u"Aghi"_s);
    QCOMPARE(cmb->currentText(), u"Laser"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosX"_s)->text(), u"0"_s);
    QCOMPARE(b.a.stato().PosXStampa.toString(), u"0"_s);
    QCOMPARE(b.a.stato().RigheStampanti[2], u"Aghi,0,0"_s);
    QVERIFY(b.a.stato().RigheStampanti[3].isEmpty());
    AmbienteProva::fotografa(b.a.pannello().window(), u"frmStampa"_s);

    // At the next opening the message is not shown again.
    b.chiudi();
    b.a.dialoghi.svuota();
    QVERIFY(b.apri());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.righeFile().size(), 3);
}

void TstFrmStampa::scostamentiDellaStampanteUsata() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s, u"Getto"_s}));
    // The last matching line wins.
    b.a.scrivi(Vpprn, {u"Laser,10,20"_s, u"Getto,30,-40"_s, u"Getto,35,-45"_s});
    b.a.impostazioni().imposta(Impostazioni::UltimaStampante, u"Getto"_s);
    QVERIFY(b.apri());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.w<QComboBox>(u"cmbStampante"_s)->currentText(), u"Getto"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosX"_s)->text(), u"35"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosY"_s)->text(), u"-45"_s);
    QCOMPARE(b.a.stato().PosYStampa.toString(), u"-45"_s);
    // Showing them changed the fields, and each change wrote the whole table.
    QCOMPARE(
        b.righeFile(),
        (QStringList{
            u"Laser,10,20"_s, u"Getto,35,-45"_s, u"Getto,35,-45"_s, {}, {}, {}, {}, {}, {}, {}}));
}

void TstFrmStampa::ultimaStampanteNonPiuInstallata() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s, u"Getto"_s}));
    b.a.scrivi(Vpprn, {u"Laser,10,20"_s, u"Getto,30,40"_s});
    b.a.impostazioni().imposta(Impostazioni::UltimaStampante, u"Vecchia"_s);
    QVERIFY(b.apri());
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    // The name stands as typed text; no line matches, the fields keep "0".
    QCOMPARE(b.w<QComboBox>(u"cmbStampante"_s)->currentText(), u"Vecchia"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosX"_s)->text(), u"0"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosY"_s)->text(), u"0"_s);
    QCOMPARE(b.a.impostazioni().valore(Impostazioni::UltimaStampante).toString(), u"Vecchia"_s);
    QCOMPARE(b.righeFile().size(), 2);
}

void TstFrmStampa::unTastoScriveDieciRighe() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s, u"Getto"_s}));
    b.a.scrivi(Vpprn, {u"Laser,0,0"_s, u"Getto,30,40"_s});
    b.a.impostazioni().imposta(Impostazioni::UltimaStampante, u"Laser"_s);
    QVERIFY(b.apri());
    // Laser's offsets are the fields' own "0": nothing changed, nothing written.
    QCOMPARE(b.righeFile().size(), 2);
    QTest::keyClick(b.w<QLineEdit>(u"txtPosX"_s), Qt::Key_5);
    QCOMPARE(StrumentiProva::contenuto(b.a.file(Vpprn)),
             QByteArray("Laser,05,0\r\nGetto,30,40\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"));
    QCOMPARE(b.a.stato().RigheStampanti[0], u"Laser,05,0"_s);
    QTest::keyClicks(b.w<QLineEdit>(u"txtPosY"_s), u"-1"_s);
    QCOMPARE(b.righeFile().first(), u"Laser,05,0-1"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
}

void TstFrmStampa::sceltaDiUnAltraStampante() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s, u"Getto"_s}));
    b.a.scrivi(Vpprn, {u"Laser,10,20"_s, u"Getto,30,40"_s});
    b.a.impostazioni().imposta(Impostazioni::UltimaStampante, u"Laser"_s);
    QVERIFY(b.apri());
    b.scegli(u"cmbStampante"_s, u"Getto"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosX"_s)->text(), u"30"_s);
    QCOMPARE(b.w<QLineEdit>(u"txtPosY"_s)->text(), u"40"_s);
    QCOMPARE(b.a.impostazioni().valore(Impostazioni::UltimaStampante).toString(), u"Getto"_s);
    // Both lines as they were: the second write put Getto's right again.
    QCOMPARE(b.righeFile().mid(0, 2), (QStringList{u"Laser,10,20"_s, u"Getto,30,40"_s}));
}

void TstFrmStampa::stampanteInstallataDopo() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s, u"Nuova"_s}));
    b.a.scrivi(Vpprn, {u"Laser,10,20"_s});
    b.a.impostazioni().imposta(Impostazioni::UltimaStampante, u"Laser"_s);
    QVERIFY(b.apri());
    b.scegli(u"cmbStampante"_s, u"Nuova"_s);
    // No line: Laser's values stay in the fields, and what is typed is kept nowhere.
    QCOMPARE(b.w<QLineEdit>(u"txtPosX"_s)->text(), u"10"_s);
    QTest::keyClick(b.w<QLineEdit>(u"txtPosX"_s), Qt::Key_7);
    QCOMPARE(b.righeFile().first(), u"Laser,10,20"_s);
    QVERIFY(!b.righeFile().join(u'|').contains(u"Nuova"_s));
    QCOMPARE(b.a.impostazioni().valore(Impostazioni::UltimaStampante).toString(), u"Nuova"_s);
}

void TstFrmStampa::guastiDelFile_data() {
    QTest::addColumn<QStringList>("stampanti");
    QTest::addColumn<QStringList>("righe"); // empty: no file
    QTest::addColumn<QString>("parola");
    QStringList undici;
    for (int i = 1; i <= 11; ++i)
        undici.append(u"Stampante %1"_s.arg(i));
    QTest::newRow("undicesima stampante") << undici << QStringList() << u"più di 10"_s;
    QStringList righe;
    for (const QString &s : undici)
        righe.append(s + u",0,0"_s);
    QTest::newRow("undici righe") << QStringList{u"Laser"_s} << righe << u"più di 10"_s;
    QTest::newRow("una virgola sola")
        << QStringList{u"Laser"_s} << QStringList{u"Laser,5"_s} << u"due virgole"_s;
}

void TstFrmStampa::guastiDelFile() {
    QFETCH(QStringList, stampanti);
    QFETCH(QStringList, righe);
    QFETCH(QString, parola);
    Banco b;
    QVERIFY(b.avvia(stampanti));
    if (!righe.isEmpty())
        b.a.scrivi(Vpprn, righe);
    b.a.impostazioni().imposta(Impostazioni::UltimaStampante, u"Laser"_s);
    const QByteArray prima = StrumentiProva::contenuto(b.a.file(Vpprn));
    b.a.pannello().mostraSchermo(u"frmStampa"_s);
    // The fault box, no screen, and the file as it was (or still none).
    QCOMPARE(b.a.dialoghi.boxes.size(), 1);
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QVERIFY2(b.a.dialoghi.boxes.first().testo.contains(parola),
             qPrintable(b.a.dialoghi.boxes.first().testo));
    QVERIFY(!b.a.pannello().trovaSchermo(u"frmStampa"_s));
    QCOMPARE(StrumentiProva::contenuto(b.a.file(Vpprn)), prima);
    QCOMPARE(QFile::exists(b.a.file(Vpprn)), !righe.isEmpty());
}

void TstFrmStampa::filtroDelleUltimeCaselle() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}));
    QVERIFY(b.apri());
    auto *t = b.w<QLineEdit>(u"txt12"_s);
    QTest::keyClicks(t, u"1a3x"_s);
    QCOMPARE(t->text(), u"1x"_s);
    QTest::keyClicks(t, u"2X"_s);
    // The fourth character is refused by the length.
    QCOMPARE(t->text(), u"1x2"_s);
    QTest::keyClick(t, Qt::Key_Backspace);
    QTest::keyClicks(t, u"j"_s);
    QCOMPARE(t->text(), u"1xj"_s);
}

void TstFrmStampa::controlli_data() {
    QTest::addColumn<int>("colonne");
    QTest::addColumn<QStringList>("ultime");
    QTest::addColumn<bool>("intervallo");
    QTest::addColumn<QString>("da");
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("messaggio");
    const QStringList buone{u"1"_s, u"X"_s, u"2"_s, u"1X"_s, u"1X2"_s};
    QTest::newRow("nessuna colonna") << 0 << buone << false << QString() << QString()
                                     << u"Attenzione! Non ci sono schedine da stampare."_s;
    QTest::newRow("casella vuota")
        << 5 << QStringList{u"1"_s, u"X"_s, QString(), u"1"_s, u"1"_s} << false << QString()
        << QString() << u"Attenzione! Inserire tutti siegni delle ultime 5 caselle."_s;
    QTest::newRow("11 nella casella 10")
        << 5 << QStringList{u"11"_s, u"X"_s, u"2"_s, u"1"_s, u"1"_s} << false << QString()
        << QString() << u"Attenzione! La casella 10 presenta segni uguali."_s;
    QTest::newRow("X2X nella casella 13")
        << 5 << QStringList{u"1"_s, u"X"_s, u"2"_s, u"X2X"_s, u"1"_s} << false << QString()
        << QString() << u"Attenzione! La casella 13 presenta segni uguali."_s;
    QTest::newRow("intervallo rovesciato") << 5 << buone << true << u"4"_s << u"2"_s
                                           << u"Attenzione. Correggere l'inervallo di stampa."_s;
    // The interval is checked even when all the columns are chosen.
    QTest::newRow("rovesciato ma Tutte") << 5 << buone << false << u"4"_s << u"2"_s
                                         << u"Attenzione. Correggere l'inervallo di stampa."_s;
}

void TstFrmStampa::controlli() {
    QFETCH(int, colonne);
    QFETCH(QStringList, ultime);
    QFETCH(bool, intervallo);
    QFETCH(QString, da);
    QFETCH(QString, a);
    QFETCH(QString, messaggio);
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}, colonne));
    b.a.stato().FileStampaPdf = b.pdf();
    QVERIFY(b.apri());
    b.a.dialoghi.svuota();
    b.ultime(ultime);
    if (!da.isEmpty()) {
        b.clic(u"optIntervallo"_s);
        b.scegli(u"cmbDa"_s, da);
        b.scegli(u"cmbA"_s, a);
    }
    if (!intervallo)
        b.clic(u"optTutte"_s);
    b.clic(u"cmdStampa"_s);
    QCOMPARE(b.a.dialoghi.testi(), QStringList{messaggio});
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 0);
    QVERIFY(!QFile::exists(b.pdf()));
    QCOMPARE(b.a.stato().PrimaColonnaStampa, 1);
    QCOMPARE(int(b.a.stato().UltimaColonnaStampa), colonne);
}

void TstFrmStampa::nessunaStampante() {
    Banco b;
    QVERIFY(b.avvia({}));
    QVERIFY(b.apri());
    // No printer at the first start: the file is created empty, the list stays empty.
    QCOMPARE(StrumentiProva::contenuto(b.a.file(Vpprn)), QByteArray());
    QCOMPARE(b.w<QComboBox>(u"cmbStampante"_s)->count(), 0);
    b.a.dialoghi.svuota();
    b.ultime({u"1"_s, u"X"_s, u"2"_s, u"1"_s, u"1"_s});
    b.clic(u"cmdStampa"_s);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{u"Attenzione! Impossibile stampare:\n1) Vespara non ha trovato nessuna "
                         "stampante installata nel sistema;\n2) Si è verificato un problema "
                         "nella trasmissione dei dati alla stampante."_s});
    QCOMPARE(b.a.dialoghi.boxes.first().tipo, Dialoghi::Tipo::Critico);
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 0);
}

void TstFrmStampa::stampaSuPdf() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}, 9));
    b.a.stato().FileStampaPdf = b.pdf();
    QVERIFY(b.apri());
    b.a.dialoghi.svuota();
    b.ultime({u"1"_s, u"X"_s, u"2"_s, u"1X"_s, u"1X2"_s});
    b.digita(u"txtPosX"_s, u"12.5 twip"_s);
    b.digita(u"txtPosY"_s, u"abc"_s);
    // Cancelling the print dialog doesn't stop the run: its answer is not read.
    b.a.dialoghi.risposteStampa.enqueue(false);
    b.clic(u"cmdStampa"_s);
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 1);
    QVERIFY2(QFile::exists(b.pdf()), qPrintable(b.a.dialoghi.testi().join(u'|')));
    QVERIFY(StrumentiProva::contenuto(b.pdf()).startsWith("%PDF"));
    // No box; the status bar says where the file went.
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.a.dialoghi.avvisiStato.size(), 1);
    // The offsets taken as numbers at the start of the run.
    QCOMPARE(b.a.stato().PosXStampa.toDouble(), 12.5);
    QCOMPARE(b.a.stato().PosYStampa.toDouble(), 0.0);
    QVERIFY(b.frm->isVisible());
}

void TstFrmStampa::intervalloResta() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}, 10));
    b.a.stato().FileStampaPdf = b.pdf();
    QVERIFY(b.apri());
    b.ultime({u"1"_s, u"X"_s, u"2"_s, u"1"_s, u"1"_s});
    QVERIFY(!b.w<QComboBox>(u"cmbDa"_s)->isEnabled());
    b.clic(u"optIntervallo"_s);
    QVERIFY(b.w<QComboBox>(u"cmbDa"_s)->isEnabled());
    QCOMPARE(b.w<QComboBox>(u"cmbA"_s)->count(), 10);
    b.scegli(u"cmbDa"_s, u"3"_s);
    b.scegli(u"cmbA"_s, u"5"_s);
    b.clic(u"cmdStampa"_s);
    QCOMPARE(b.a.stato().PrimaColonnaStampa, 3);
    QCOMPARE(int(b.a.stato().UltimaColonnaStampa), 5);

    // Back to all the columns: the run is still the stored interval, as the preview shows.
    b.clic(u"optTutte"_s);
    QVERIFY(!b.w<QComboBox>(u"cmbDa"_s)->isEnabled());
    b.clic(u"cmdAnteprima"_s);
    auto *anteprima = b.a.pannello().findChild<FrmAnteprima *>();
    QVERIFY(anteprima);
    int neri = 0;
    float primaY = 0;
    for (const RecordPagina &r : anteprima->record())
        if (r.tipo == DocumentoPagine::TipoCerchio && r.colore == 0 && neri++ == 0)
            primaY = r.y1;
    // Columns 3 to 5, each of 14 single signs, six circles a mark.
    QCOMPARE(neri, 3 * 14 * 6);
    // Column 3 at the top of the slip, its box 1 a "1".
    QCOMPARE(primaY, float(-750 + 720 + 0.15 * 3 + 2850));
    anteprima->close();
}

void TstFrmStampa::provaNonFaNulla() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}));
    b.a.stato().FileStampaPdf = b.pdf();
    QVERIFY(b.apri());
    b.a.dialoghi.svuota();
    const QByteArray file = StrumentiProva::contenuto(b.a.file(Vpprn));
    b.clic(u"cmdProva"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 0);
    QVERIFY(!QFile::exists(b.pdf()));
    QCOMPARE(StrumentiProva::contenuto(b.a.file(Vpprn)), file);
}

void TstFrmStampa::anteprima() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}, 9));
    QVERIFY(b.apri());
    b.a.dialoghi.svuota();
    b.ultime({u"1"_s, u"X"_s, u"2"_s, u"1X2"_s, u"1"_s});
    b.clic(u"chk9"_s);
    b.digita(u"txtPosX"_s, u"100"_s);
    b.clic(u"cmdAnteprima"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    QCOMPARE(b.a.dialoghi.dialoghiStampa, 0);
    auto *anteprima = b.a.pannello().findChild<FrmAnteprima *>();
    QVERIFY(anteprima);
    // Two slips: 8 columns, then the ninth.
    QCOMPARE(anteprima->pagine(), 2);
    // Nothing goes to paper from here.
    QVERIFY(!anteprima->findChild<QAction *>(u"Stampa"_s)->isEnabled());
    QVERIFY(!anteprima->findChild<QAction *>(u"Esporta"_s)->isEnabled());
    int neri = 0;
    int sagoma = 0;
    for (const RecordPagina &r : anteprima->record()) {
        if (r.tipo != DocumentoPagine::TipoCerchio)
            continue;
        if (r.colore == 0) {
            ++neri;
            QCOMPARE(r.spessore, 2);
        } else {
            ++sagoma;
            QCOMPARE(r.colore, qint16(7));
        }
    }
    // Per column: 9 signs, 1 + 1 + 1 + 3 + 1 in the last five, the box of the 9.
    QCOMPARE(neri, 9 * (9 + 7 + 1) * 6);
    // Per slip: 8 places of 14 boxes of three signs and the box of the 9.
    QCOMPARE(sagoma, 2 * 8 * (14 * 3 + 1));
    // The first ring of the outline: box 1, sign "1", first column, with the offset.
    const auto primo = std::find_if(anteprima->record().begin(), anteprima->record().end(),
                                    [](const RecordPagina &r) { return r.colore == 7; });
    QCOMPARE(primo->x1, float(100 + 3650));
    QCOMPARE(primo->y1, float(-750 + 720.15 + 2850));
    AmbienteProva::fotografa(anteprima, u"anteprimaSchedine"_s);
    anteprima->close();
}

void TstFrmStampa::anteprimaComeLaCarta_data() {
    QTest::addColumn<double>("posX");
    QTest::addColumn<double>("posY");
    QTest::newRow("senza scostamenti") << 0.0 << 0.0;
    QTest::newRow("X 120, Y -90") << 120.0 << -90.0;
}

// What the preview draws, read through the recording device page by page: each mark six black
// circles around the point that the slip's measures give from the corner of the sheet (the same
// points the print to PDF is checked against), moved by the offsets and by nothing else.
void TstFrmStampa::anteprimaComeLaCarta() {
    QFETCH(double, posX);
    QFETCH(double, posY);
    const QStringList colonne{u"1X21X21X2"_s, u"X21X21X21"_s, u"21X21X21X"_s,
                              u"111XXX222"_s, u"XXX222111"_s, u"222111XXX"_s,
                              u"1122XX12X"_s, u"X1X2X1X2X"_s, u"2X1X21X12"_s};
    const std::array<QString, 5> ultime{u"1X2"_s, u"2"_s, u"x1"_s, u"X"_s, u"21"_s};
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}, 9));
    b.a.stato().ColonneStampa = colonne;
    QVERIFY(b.apri());
    b.a.dialoghi.svuota();
    b.ultime(QStringList(ultime.begin(), ultime.end()));
    b.clic(u"chk9"_s);
    b.digita(u"txtPosX"_s, QString::number(posX));
    b.digita(u"txtPosY"_s, QString::number(posY));
    b.clic(u"cmdAnteprima"_s);
    QVERIFY(b.a.dialoghi.boxes.isEmpty());
    auto *anteprima = b.a.pannello().findChild<FrmAnteprima *>();
    QVERIFY(anteprima);
    const QList<RecordPagina> record = anteprima->record();
    anteprima->close();

    const auto attesi = SegniPdf::attesi(colonne, 1, 9, ultime, true, posX, posY);
    QCOMPARE(DocumentoPagine::contaPagine(record), int(attesi.size()));
    for (int p = 1; p <= attesi.size(); ++p) {
        DispositivoRegistratore registratore;
        DocumentoPagine::disegnaPagina(record, p, registratore);
        QList<DispositivoRegistratore::Chiamata> neri;
        for (const auto &c : std::as_const(registratore.chiamate))
            if (c.operazione == DispositivoRegistratore::Operazione::Cerchio &&
                c.colore == QColor(Qt::black))
                neri.append(c);
        const QList<SegniPdf::Segno> &segni = attesi.at(p - 1);
        const qsizetype cerchi = StampaSchedine::Raggi.size();
        QCOMPARE(neri.size(), segni.size() * cerchi);
        for (qsizetype k = 0; k < neri.size(); ++k) {
            const SegniPdf::Segno &s = segni.at(k / cerchi);
            const QRectF &c = neri.at(k).rettangolo; // the centre, and the radius as its size
            QVERIFY2(std::abs(c.x() - s.x) < 0.01 && std::abs(c.y() - s.y) < 0.01,
                     qPrintable(u"pagina %1, %2: %3, %4 invece di %5, %6"_s.arg(p)
                                    .arg(s.nome)
                                    .arg(c.x())
                                    .arg(c.y())
                                    .arg(s.x)
                                    .arg(s.y)));
            QCOMPARE(c.width(), StampaSchedine::Raggi.at(k % cerchi));
        }
    }
}

void TstFrmStampa::anteprimaRifiutata() {
    Banco b;
    QVERIFY(b.avvia({u"Laser"_s}, 3));
    QVERIFY(b.apri());
    b.a.dialoghi.svuota();
    b.ultime({u"1"_s, u"X"_s, u"22"_s, u"1"_s, u"1"_s});
    b.clic(u"cmdAnteprima"_s);
    QCOMPARE(b.a.dialoghi.testi(),
             QStringList{u"Attenzione! La casella 12 presenta segni uguali."_s});
    QVERIFY(!b.a.pannello().findChild<FrmAnteprima *>());
}

QTEST_MAIN(TstFrmStampa)
#include "tst_frmstampa.moc"
