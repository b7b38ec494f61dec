#include "stampa/frmstampa.h"

#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/numeritesto.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filtrotasti.h"
#include "piattaforma/guardia.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/stampanteqt.h"
#include "stampa/calibrazionestampanti.h"
#include "stampa/dispositivodocumento.h"
#include "stampa/frmanteprima.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

static_assert(StatoProgramma::RighePerStampanti == CalibrazioneStampanti::Righe);

namespace {

// Two dots of 1/300 inch: the pen that makes the six circles, 10 twips apart, one filled mark.
constexpr int PuntiPerPollice = 300;

QString messaggioStampante() {
    return QStringList{u"Attenzione! Impossibile stampare:"_s,
                       u"1) Vespara non ha trovato nessuna stampante installata nel sistema;"_s,
                       u"2) Si è verificato un problema nella trasmissione dei dati alla "
                       "stampante."_s}
        .join(u'\n');
}

QLabel *aiuto(const QString &testo, QWidget *genitore) {
    auto *l = new QLabel(testo, genitore);
    l->setWordWrap(true);
    return l;
}

} // namespace

FrmStampa::FrmStampa(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmStampa"_s);
    setWindowTitle(u" Stampe e Impostazioni."_s);

    // The printer and its offsets.
    auto *impostazioni = new QGroupBox(u"Impostazioni della stampante"_s, this);
    impostazioni->setObjectName(u"fraStampante"_s);
    m_cmbStampante = new QComboBox(impostazioni);
    m_cmbStampante->setObjectName(u"cmbStampante"_s);
    // Editable: the last printer used keeps its name even when it is no longer installed.
    m_cmbStampante->setEditable(true);
    m_cmbStampante->setInsertPolicy(QComboBox::NoInsert);
    m_cmbStampante->setMinimumContentsLength(24);
    m_cmbStampante->setToolTip(
        u"La stampante di cui si vedono e si salvano gli scostamenti. La stampa va sulla "
        "stampante scelta nella finestra di stampa."_s);
    m_txtPosX = new QLineEdit(u"0"_s, impostazioni);
    m_txtPosX->setObjectName(u"txtPosX"_s);
    m_txtPosX->setToolTip(u"Scostamento orizzontale dei segni per la stampante scelta, in twip "
                          "(1440 per pollice, 567 per centimetro): un valore più grande sposta "
                          "i segni verso destra."_s);
    m_txtPosY = new QLineEdit(u"0"_s, impostazioni);
    m_txtPosY->setObjectName(u"txtPosY"_s);
    m_txtPosY->setToolTip(u"Scostamento verticale dei segni per la stampante scelta, in twip "
                          "(1440 per pollice, 567 per centimetro): un valore più grande sposta "
                          "i segni verso il basso."_s);
    for (QLineEdit *t : {m_txtPosX, m_txtPosY})
        t->setMaximumWidth(90);
    // The button has never had an operation: it stays, and does nothing.
    auto *cmdProva = new QPushButton(u"Prova di stampa"_s, impostazioni);
    cmdProva->setObjectName(u"cmdProva"_s);
    auto *li = new QGridLayout(impostazioni);
    li->addWidget(new QLabel(u"Stampante predefinita"_s, impostazioni), 0, 0, 1, 3);
    li->addWidget(m_cmbStampante, 1, 0, 1, 3);
    li->addWidget(new QLabel(u"Scostamento Orizzontale"_s, impostazioni), 2, 0);
    li->addWidget(new QLabel(u"X="_s, impostazioni), 2, 1, Qt::AlignRight);
    li->addWidget(m_txtPosX, 2, 2);
    li->addWidget(new QLabel(u"Scostamento Verticale"_s, impostazioni), 3, 0);
    li->addWidget(new QLabel(u"Y="_s, impostazioni), 3, 1, Qt::AlignRight);
    li->addWidget(m_txtPosY, 3, 2);
    li->addWidget(cmdProva, 4, 0, 1, 3, Qt::AlignLeft);
    li->addWidget(aiuto(u"Impostare i valori X e Y solo per avere una centratura di massima."_s,
                        impostazioni),
                  5, 0, 1, 3);
    li->addWidget(aiuto(u"Per stampanti con il caricamento centrale, prima di stampare, provare "
                        "coi valori iniziali X=4500 e Y=0. Quindi, variare a seconda delle "
                        "necessità."_s,
                        impostazioni),
                  6, 0, 1, 3);
    li->setRowStretch(7, 1);

    // Which columns.
    auto *colonne = new QGroupBox(u"Stampa colonne"_s, this);
    colonne->setObjectName(u"fraColonne"_s);
    m_lblSistema = new QLabel(colonne);
    m_lblSistema->setObjectName(u"lblSistema"_s);
    m_lblSistema->setToolTip(u"Le colonne consegnate dall'analisi del 9"_s);
    MdiStile::grassetto(m_lblSistema);
    m_optTutte = new QRadioButton(u"Tutte"_s, colonne);
    m_optTutte->setObjectName(u"optTutte"_s);
    m_optTutte->setChecked(true);
    m_optIntervallo = new QRadioButton(u"Intervallo"_s, colonne);
    m_optIntervallo->setObjectName(u"optIntervallo"_s);
    m_cmbDa = new QComboBox(colonne);
    m_cmbDa->setObjectName(u"cmbDa"_s);
    m_cmbDa->setToolTip(u"La prima colonna dell'intervallo"_s);
    m_cmbA = new QComboBox(colonne);
    m_cmbA->setObjectName(u"cmbA"_s);
    m_cmbA->setToolTip(u"L'ultima colonna dell'intervallo"_s);
    for (QComboBox *c : {m_cmbDa, m_cmbA}) {
        c->setEnabled(false);
        // Sized for six digits, without measuring each of up to 19683 entries.
        c->setMinimumContentsLength(6);
        c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    }
    auto *lc = new QGridLayout(colonne);
    lc->addWidget(new QLabel(u"Colonne:"_s, colonne), 0, 0);
    lc->addWidget(m_lblSistema, 0, 1, 1, 3);
    lc->addWidget(m_optTutte, 1, 0, 1, 4);
    lc->addWidget(m_optIntervallo, 2, 0, 1, 4);
    lc->addWidget(new QLabel(u"da"_s, colonne), 3, 0, Qt::AlignRight);
    lc->addWidget(m_cmbDa, 3, 1);
    lc->addWidget(new QLabel(u"a"_s, colonne), 3, 2, Qt::AlignRight);
    lc->addWidget(m_cmbA, 3, 3);
    lc->setColumnStretch(4, 1);

    // The last five boxes, the same for every column.
    auto *ultime =
        new QGroupBox(u"Ultimi 5 segni in colonna, uguali per tutte le colonne."_s, this);
    ultime->setObjectName(u"fraUltime"_s);
    auto *lu = new QGridLayout(ultime);
    for (int k = 0; k < 5; ++k) {
        const int casella = 10 + k;
        auto *t = new QLineEdit(ultime);
        t->setObjectName(u"txt%1"_s.arg(casella));
        t->setMaxLength(3);
        t->setMaximumWidth(60);
        t->setAlignment(Qt::AlignCenter);
        t->setToolTip(u"I segni della casella %1: 1, X o 2, fino a tre diversi."_s.arg(casella));
        // "j" has always passed the filter; it prints no mark.
        new FiltroTasti(t, u"Xx12j"_s, true);
        m_txtUltime[k] = t;
        lu->addWidget(new QLabel(QString::number(casella), ultime), 0, k, Qt::AlignCenter);
        lu->addWidget(t, 1, k, Qt::AlignCenter);
    }

    auto *opzioni = new QGroupBox(u"Opzioni di giocata"_s, this);
    opzioni->setObjectName(u"fraOpzioni"_s);
    m_chk9 = new QCheckBox(u"Il \"9\""_s, opzioni);
    m_chk9->setObjectName(u"chk9"_s);
    m_chk9->setToolTip(u"Segna anche la casella del 9 di ogni colonna."_s);
    auto *lo = new QVBoxLayout(opzioni);
    lo->addWidget(m_chk9);

    auto *cmdAnteprima = new QPushButton(u"Anteprima schedine"_s, this);
    cmdAnteprima->setObjectName(u"cmdAnteprima"_s);
    cmdAnteprima->setToolTip(u"Mostra le schedine come saranno stampate, sopra le caselle, "
                             "senza stampare nulla."_s);
    auto *cmdStampa = new QPushButton(u"Stampa schedine"_s, this);
    cmdStampa->setObjectName(u"cmdStampa"_s);
    cmdStampa->setToolTip(u"Stampa le colonne sulle schedine."_s);
    MdiTastiera::pulsantePredefinito(this, cmdStampa);
    MdiTastiera::stampa(this, cmdStampa);

    auto *destra = new QVBoxLayout;
    destra->addWidget(colonne);
    destra->addWidget(ultime);
    destra->addWidget(opzioni);
    destra->addStretch(1);
    auto *corpo = new QHBoxLayout;
    corpo->addWidget(impostazioni, 1);
    corpo->addLayout(destra);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch(1);
    pulsanti->addWidget(cmdAnteprima);
    pulsanti->addWidget(cmdStampa);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(corpo);
    layout->addLayout(pulsanti);
    impostazioni->setMaximumWidth(380);

    // Every change of an offset, also one made by the program, writes the file.
    for (QLineEdit *t : {m_txtPosX, m_txtPosY})
        connect(t, &QLineEdit::textChanged, this,
                [this] { eseguiProtetto(m_stato.dialoghi(), [this] { cambioScostamento(); }); });

    // Form_Load.
    riempiIntervallo();
    const QStringList stampanti = m_stato.stampanti().nomi();
    m_cmbStampante->addItems(stampanti);
    m_cmbStampante->setCurrentIndex(stampanti.isEmpty() ? -1 : 0);
    const QString ultima = m_stato.impostazioni().valore(Impostazioni::UltimaStampante).toString();
    if (!CalibrazioneStampanti::esiste(m_stato.PercorsoDati)) {
        m_stato.RigheStampanti = CalibrazioneStampanti::crea(m_stato.PercorsoDati, stampanti);
        m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(),
                                        CalibrazioneStampanti::messaggioPrimoAvvio());
    } else {
        m_stato.RigheStampanti = CalibrazioneStampanti::leggi(m_stato.PercorsoDati);
        m_cmbStampante->setEditText(ultima);
        sceltaStampante();
    }
    m_stato.PosXStampa = m_txtPosX->text();
    m_stato.PosYStampa = m_txtPosY->text();

    // Events, from here on.
    connect(m_cmbStampante, &QComboBox::activated, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { sceltaStampante(); }); });
    connect(m_optIntervallo, &QRadioButton::clicked, this, [this] {
        m_cmbDa->setEnabled(true);
        m_cmbA->setEnabled(true);
    });
    connect(m_optTutte, &QRadioButton::clicked, this, [this] {
        m_cmbDa->setEnabled(false);
        m_cmbA->setEnabled(false);
    });
    connect(cmdStampa, &QPushButton::clicked, this, &FrmStampa::stampa);
    connect(cmdAnteprima, &QPushButton::clicked, this, &FrmStampa::anteprima);
}

void FrmStampa::consegna(int colonne) {
    m_lblSistema->setText(QString::number(colonne));
    riempiIntervallo();
}

void FrmStampa::riempiIntervallo() {
    m_cmbDa->clear();
    m_cmbA->clear();
    QStringList numeri;
    numeri.reserve(std::max<int>(0, m_stato.UltimaColonnaStampa));
    for (int i = 1; i <= m_stato.UltimaColonnaStampa; ++i)
        numeri.append(QString::number(i));
    m_cmbDa->addItems(numeri);
    m_cmbA->addItems(numeri);
    m_cmbDa->setCurrentIndex(numeri.isEmpty() ? -1 : 0);
    m_cmbA->setCurrentIndex(numeri.isEmpty() ? -1 : 0);
}

void FrmStampa::sceltaStampante() {
    const QString nome = m_cmbStampante->currentText();
    if (const auto trovati = CalibrazioneStampanti::scostamenti(m_stato.RigheStampanti, nome)) {
        // Each assignment writes the file: the first with the old Y, the second with both.
        m_txtPosX->setText(trovati->first);
        m_txtPosY->setText(trovati->second);
    }
    m_stato.impostazioni().imposta(Impostazioni::UltimaStampante, nome);
}

void FrmStampa::cambioScostamento() {
    CalibrazioneStampanti::aggiorna(m_stato.RigheStampanti, m_stato.PercorsoDati,
                                    m_cmbStampante->currentText(), m_txtPosX->text(),
                                    m_txtPosY->text());
}

std::array<QString, 5> FrmStampa::ultime() const {
    std::array<QString, 5> testi;
    for (int k = 0; k < 5; ++k)
        testi[k] = m_txtUltime[k]->text();
    return testi;
}

StampaSchedine::Giocata FrmStampa::giocata(int prima, int ultima) const {
    StampaSchedine::Giocata g;
    g.colonne = m_stato.ColonneStampa;
    g.prima = prima;
    g.ultima = ultima;
    g.ultime = ultime();
    g.nove = m_chk9->isChecked();
    g.posX = NumeriTesto::valoreReale(m_txtPosX->text());
    g.posY = NumeriTesto::valoreReale(m_txtPosY->text());
    return g;
}

bool FrmStampa::controlla() {
    const QString errore =
        StampaSchedine::controlla(m_cmbDa->currentText(), m_cmbA->currentText(), ultime());
    if (errore.isEmpty())
        return true;
    m_stato.dialoghi().critico(Dialoghi::titoloApplicazione(), errore);
    return false;
}

void FrmStampa::stampa() {
    eseguiProtetto(m_stato.dialoghi(), [this] {
        if (!controlla())
            return;
        StampanteQt stampante(m_stato.dialoghi(), m_stato.impostazioni(), m_stato.FileStampaPdf,
                              false);
        stampante.setRisoluzione(PuntiPerPollice);
        stampante.setNomeDocumento(u"Schedine"_s);
        const QStringList installate = m_stato.stampanti().nomi();
        // The print dialog opens on the printer whose offsets are on the screen.
        if (!stampante.suPdf() && installate.contains(m_cmbStampante->currentText()))
            stampante.stampante().setPrinterName(m_cmbStampante->currentText());
        if ((installate.isEmpty() && !stampante.suPdf()) || !stampante.controlla()) {
            m_stato.dialoghi().critico(Dialoghi::titoloApplicazione(), messaggioStampante());
            return;
        }
        // The interval stays in the program-wide values: a later run of all the columns prints
        // it again until the workspace hands its columns over anew.
        if (m_optIntervallo->isChecked()) {
            m_stato.PrimaColonnaStampa = int(NumeriTesto::valore(m_cmbDa->currentText()));
            m_stato.UltimaColonnaStampa = qint16(NumeriTesto::valore(m_cmbA->currentText()));
        }
        // From here a failure ends the run without a word; a PDF file is not left half written.
        try {
            // The answer of the dialog is not read: the run goes on.
            stampante.scegli();
            const StampaSchedine::Giocata g =
                giocata(m_stato.PrimaColonnaStampa, m_stato.UltimaColonnaStampa);
            m_stato.PosXStampa = g.posX;
            m_stato.PosYStampa = g.posY;
            StampaSchedine::disegna(stampante.inizia(), g);
            stampante.fine();
        } catch (const ErroreEsecuzione &) {
            stampante.interrompi();
        }
    });
}

void FrmStampa::anteprima() {
    eseguiProtetto(m_stato.dialoghi(), [this] {
        if (!controlla())
            return;
        // The interval the run would print, without storing it.
        const bool intervallo = m_optIntervallo->isChecked();
        const int prima = intervallo ? int(NumeriTesto::valore(m_cmbDa->currentText()))
                                     : m_stato.PrimaColonnaStampa;
        const int ultima = intervallo ? int(NumeriTesto::valore(m_cmbA->currentText()))
                                      : int(m_stato.UltimaColonnaStampa);
        DispositivoDocumento documento;
        StampaSchedine::disegna(documento, giocata(prima, ultima), true);
        m_stato.OrientamentoPagina = u"verticale"_s;
        QWidget *cornice = m_stato.registro() ? m_stato.registro()->finestra() : window();
        FrmAnteprima::mostra(m_stato, cornice, documento.record(), true);
    });
}
