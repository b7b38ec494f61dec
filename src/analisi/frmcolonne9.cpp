#include "analisi/frmcolonne9.h"

#include "analisi/colonne9.h"
#include "analisi/frmriduzione.h"
#include "analisi/frmverificastorica.h"
#include "analisi/stampacolonne9.h"
#include "core/colonna.h"
#include "core/frmattendere.h"
#include "core/glossario.h"
#include "core/mdiclessidra.h"
#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/registroschermi.h"
#include "core/statoprogramma.h"
#include "piattaforma/filtrotasti.h"
#include "piattaforma/griglia.h"
#include "piattaforma/guardia.h"
#include "piattaforma/vistagriglia.h"
#include "stampa/documentopagine.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmanteprima.h"
#include "stampa/frmstampa.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString Libero = QString::fromLatin1(BancoColonne9::Libero);
const QColor Verde(0, 128, 0);

QStringList numeri(int da, int a) {
    QStringList v;
    for (int i = da; i <= a; ++i)
        v.append(QString::number(i));
    return v;
}

QString nomeIndice(const QString &nome, int indice) {
    return u"%1(%2)"_s.arg(nome).arg(indice);
}

QGroupBox *gruppo(const QString &titolo, QWidget *genitore) {
    auto *g = new QGroupBox(titolo, genitore);
    return g;
}

} // namespace

FrmColonne9::FrmColonne9(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato)
    , m_griglia(new Griglia(1, BancoColonne9::Colonne, this))
    , m_banco(*m_griglia) {
    setObjectName(u"frmColonne9"_s);
    setWindowTitle(QString::fromUtf8(Titolo));
    m_banco.prepara();

    m_vista = new VistaGriglia(this);
    m_vista->setObjectName(u"Griglia"_s);
    m_vista->setGriglia(m_griglia);
    m_vista->adattaLarghezza();
    m_vista->setMinimumHeight(300);
    connect(m_vista, &VistaGriglia::tastoDestro, this, [this] { esporta(); });
    // The double click on a cell and the click on a header sort alike.
    m_vista->setIntestazioneCliccabile(true);
    connect(m_vista, &VistaGriglia::doppioClic, this,
            [this](int, int colonna) { ordina(colonna); });
    connect(m_vista, &VistaGriglia::clicIntestazione, this, &FrmColonne9::ordina);

    // Three columns that fit a desktop of 1024 pixels: the grid with the search of one column and
    // the prints under it; the commands, the fixed signs and the consecutive signs; the filters
    // and the eliminations.
    auto *griglia = new QVBoxLayout;
    griglia->addWidget(m_vista, 1);
    griglia->addWidget(creaRicerca());
    auto *sinistra = new QVBoxLayout;
    sinistra->addWidget(creaComandi());
    sinistra->addWidget(creaSegniFissi());
    sinistra->addWidget(creaConsecutivi());
    sinistra->addStretch();
    auto *destra = new QVBoxLayout;
    destra->addWidget(creaFiltri());
    destra->addWidget(creaEliminazioni());
    destra->addStretch();

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(8);
    layout->addLayout(griglia);
    layout->addLayout(sinistra);
    layout->addLayout(destra);
    // A larger window gives its room to the grid's height, not to gaps between the controls.
    layout->addStretch(1);

    m_cmdAvvia->setText(m_stato.RicalcolaColonne9 ? u"Inizializzazione"_s
                                                  : u"Inizializzazione veloce"_s);
    m_cmdPrec->setEnabled(false);
    m_cmdRipristina->setEnabled(false);
    abilitaFiltri(false);
    aggiornaTotale();
    // Ctrl+Z takes back the last step, as "Annulla ultima modifica" and only when it can.
    MdiTastiera::annulla(this, m_cmdPrec);
}

FrmColonne9::~FrmColonne9() = default;

QPushButton *FrmColonne9::pulsante(const QString &nome, const QString &testo) {
    auto *p = new QPushButton(testo, this);
    p->setObjectName(nome);
    return p;
}

QComboBox *FrmColonne9::tendina(const QString &nome, const QStringList &voci) {
    auto *c = new QComboBox(this);
    c->setObjectName(nome);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    c->addItems(voci);
    // "?" until the user picks: the mark of no choice that the steps test.
    c->setCurrentIndex(-1);
    c->setEditText(Libero);
    c->setMinimumContentsLength(2);
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    c->setMaximumWidth(58);
    return c;
}

QWidget *FrmColonne9::creaComandi() {
    auto *g = gruppo(QString(), this);
    m_cmdAvvia = pulsante(u"cmdAvvia"_s, u"Inizializzazione"_s);
    m_cmdPrec = pulsante(u"cmdPrec"_s, u"Annulla ultima modifica"_s);
    m_cmdRipristina = pulsante(u"cmdRipristina"_s, u"Ripristina tutto"_s);
    MdiStile::grassetto(m_cmdAvvia);
    connect(m_cmdAvvia, &QPushButton::clicked, this, [this] { avvia(); });
    connect(m_cmdPrec, &QPushButton::clicked, this, [this] { annulla(); });
    connect(m_cmdRipristina, &QPushButton::clicked, this, [this] { ripristina(); });

    auto *etichetta = new QLabel(u"Colonne selezionate"_s, g);
    m_lblTot = new QLabel(g);
    m_lblTot->setObjectName(u"lblTot"_s);
    MdiStile::grassetto(m_lblTot, 1.6);
    m_lblTot->setStyleSheet(u"color: #8b0000;"_s);

    auto *l = new QGridLayout(g);
    l->addWidget(m_cmdAvvia, 0, 0, 1, 2);
    l->addWidget(m_cmdPrec, 1, 0, 1, 2);
    l->addWidget(m_cmdRipristina, 2, 0, 1, 2);
    l->addWidget(etichetta, 3, 0);
    l->addWidget(m_lblTot, 3, 1, Qt::AlignRight);
    return g;
}

QWidget *FrmColonne9::creaSegniFissi() {
    auto *g = gruppo(QString(), this);
    m_chkFiltra = new QCheckBox(u"Inserisci fisse"_s, g);
    m_chkFiltra->setObjectName(u"chkFiltra"_s);
    m_filtri.append(m_chkFiltra);

    m_picFiltro = new QWidget(g);
    m_picFiltro->setObjectName(u"picFiltro"_s);
    m_txtFiltroPos = new QLineEdit(m_picFiltro);
    m_txtFiltroPos->setObjectName(u"txtFiltroPos"_s);
    m_txtFiltroSegno = new QLineEdit(m_picFiltro);
    m_txtFiltroSegno->setObjectName(u"txtFiltroSegno"_s);
    for (QLineEdit *t : {m_txtFiltroPos, m_txtFiltroSegno}) {
        t->setMaxLength(2);
        t->setFixedWidth(36);
        t->setAlignment(Qt::AlignCenter);
    }
    new FiltroTasti(m_txtFiltroPos, u"0123456789"_s, false);
    new FiltroTasti(m_txtFiltroSegno, u"12Xx"_s, true);
    m_txtFiltroSegno->installEventFilter(this);
    connect(m_txtFiltroPos, &QLineEdit::textChanged, this, [this](const QString &t) {
        // Two digits that make no position are wiped at once.
        const int v = BancoColonne9::valore(t);
        if (t.size() == 2 && (v < 1 || v > 9))
            m_txtFiltroPos->clear();
    });
    auto *cmdFiltro = pulsante(u"cmdFiltro"_s, u"Applica"_s);
    cmdFiltro->setParent(m_picFiltro);
    connect(cmdFiltro, &QPushButton::clicked, this, [this] { applicaSegnoFisso(); });
    MdiTastiera::pulsantePredefinito(m_picFiltro, cmdFiltro);
    auto *lf = new QHBoxLayout(m_picFiltro);
    lf->setContentsMargins(0, 0, 0, 0);
    auto *lblPos = new QLabel(u"Pos."_s, m_picFiltro);
    const QString posizione =
        Glossario::sigla(u"Pos."_s, u"Posizione del segno fisso: la partita, da 1 a 9."_s);
    lblPos->setToolTip(posizione);
    m_txtFiltroPos->setToolTip(posizione);
    lf->addWidget(lblPos);
    lf->addWidget(m_txtFiltroPos);
    lf->addWidget(new QLabel(u"Segno"_s, m_picFiltro));
    lf->addWidget(m_txtFiltroSegno);
    lf->addWidget(cmdFiltro);
    m_picFiltro->setVisible(false);

    m_picSegni = new QWidget(g);
    m_picSegni->setObjectName(u"picSegni"_s);
    auto *ls = new QGridLayout(m_picSegni);
    ls->setContentsMargins(0, 0, 0, 0);
    ls->setHorizontalSpacing(4);
    ls->setVerticalSpacing(2);
    for (int k = 1; k <= 9; ++k) {
        const int riga = (k - 1) % 3;
        const int colonna = (k - 1) / 3 * 3;
        auto *didascalia = new QLabel(u"%1)"_s.arg(k), m_picSegni);
        auto *segno = new QLabel(Libero, m_picSegni);
        segno->setObjectName(nomeIndice(u"lblSegni"_s, k));
        segno->setAlignment(Qt::AlignCenter);
        segno->setFixedWidth(22);
        segno->setFrameShape(QFrame::StyledPanel);
        MdiStile::grassetto(segno);
        auto *esci = new QPushButton(u"-"_s, m_picSegni);
        esci->setObjectName(nomeIndice(u"lblEsci"_s, k));
        esci->setFixedSize(20, 20);
        esci->setToolTip(u"Libera la posizione"_s);
        connect(esci, &QPushButton::clicked, this, [this, k] {
            m_banco.liberaSegno(k);
            aggiornaSegniFissi();
        });
        m_lblSegni[k - 1] = segno;
        ls->addWidget(didascalia, riga, colonna);
        ls->addWidget(segno, riga, colonna + 1);
        ls->addWidget(esci, riga, colonna + 2);
    }
    // The nine positions stay together however wide the column is.
    ls->setColumnStretch(9, 1);
    // The nine positions stay together however wide the column is.
    ls->setColumnStretch(9, 1);
    m_picSegni->setEnabled(false);

    connect(m_chkFiltra, &QCheckBox::clicked, this, [this] {
        // The input opens once, until "Ripristina tutto".
        m_picFiltro->setVisible(!m_picFiltro->isVisible());
        if (m_picFiltro->isVisible())
            m_txtFiltroSegno->setFocus();
        m_picSegni->setEnabled(true);
        m_chkFiltra->setEnabled(false);
    });

    auto *l = new QVBoxLayout(g);
    l->addWidget(m_chkFiltra);
    l->addWidget(m_picFiltro);
    l->addWidget(m_picSegni);
    return g;
}

QWidget *FrmColonne9::creaFiltri() {
    auto *formula = gruppo(u"Filtra colonne con formula"_s, this);
    auto *lf = new QHBoxLayout(formula);
    const QStringList nomi{u"cmb1"_s, u"cmbX"_s, u"cmb2"_s};
    for (int i = 0; i < 3; ++i) {
        m_cmbFormula[i] = tendina(nomi.at(i), numeri(0, 9));
        lf->addWidget(new QLabel(Colonna::segni().at(i), formula));
        lf->addWidget(m_cmbFormula[i]);
    }
    auto *cmdOk = pulsante(u"cmdOk"_s, u"Esegui"_s);
    lf->addWidget(cmdOk);
    formula->setToolTip(Glossario::formulaNove());
    MdiTastiera::pulsantePredefinito(formula, cmdOk);
    connect(cmdOk, &QPushButton::clicked, this, [this] {
        passo([this] {
            return m_banco.formula(m_cmbFormula[0]->currentText(), m_cmbFormula[1]->currentText(),
                                   m_cmbFormula[2]->currentText());
        });
    });

    auto *segno = gruppo(u"Filtra colonne con segno"_s, this);
    m_cmbFiltroSegno = tendina(u"cmbFiltroSegno"_s, {u"1"_s, u"X"_s, u"2"_s});
    m_cmbSegnoPresente = tendina(u"cmbSegnoPresente"_s, numeri(1, 9));
    auto *cmdAvviaFiltro = pulsante(u"cmdAvviaFiltro"_s, u"Esegui"_s);
    auto *ls = new QHBoxLayout(segno);
    ls->addWidget(m_cmbFiltroSegno);
    ls->addWidget(new QLabel(u"presente"_s, segno));
    ls->addWidget(m_cmbSegnoPresente);
    ls->addStretch();
    ls->addWidget(cmdAvviaFiltro);
    MdiTastiera::pulsantePredefinito(segno, cmdAvviaFiltro);
    connect(cmdAvviaFiltro, &QPushButton::clicked, this, [this] {
        passo([this] {
            return m_banco.conteggio(m_cmbFiltroSegno->currentText(),
                                     m_cmbSegnoPresente->currentText());
        });
    });

    auto *diversi = gruppo(u"Esamina solo colonne con segni diversi in ciascuna terzina."_s, this);
    auto *ld = new QGridLayout(diversi);
    const QStringList opzioni{u"1ª Terzina"_s, u"2ª Terzina"_s, u"3ª Terzina"_s, u"Tutte"_s};
    auto *gruppoOpzioni = new QButtonGroup(this);
    for (int i = 0; i < 4; ++i) {
        m_optTerzina[i] = new QRadioButton(opzioni.at(i), diversi);
        m_optTerzina[i]->setObjectName(nomeIndice(u"optTerzina"_s, i + 1));
        m_optTerzina[i]->setToolTip(Glossario::terzina(3));
        gruppoOpzioni->addButton(m_optTerzina[i], i + 1);
        ld->addWidget(m_optTerzina[i], i / 2, i % 2);
    }
    m_optTerzina[3]->setChecked(true);
    auto *cmdSegniDiversi = pulsante(u"cmdSegniDiversi"_s, u"Esegui"_s);
    ld->addWidget(cmdSegniDiversi, 0, 2, 2, 1);
    MdiTastiera::pulsantePredefinito(diversi, cmdSegniDiversi);
    connect(cmdSegniDiversi, &QPushButton::clicked, this, [this, gruppoOpzioni] {
        passo([this, gruppoOpzioni] {
            m_banco.segniDiversi(gruppoOpzioni->checkedId());
            return BancoColonne9::Esito();
        });
    });

    auto *omogenee = gruppo(u"Filtra colonne con terzine omogenee"_s, this);
    omogenee->setToolTip(Glossario::terzina(3) +
                         u"\nOmogenea: i tre segni sono uguali (111, XXX o 222)."_s);
    auto *cmdTerzineOmogenee = pulsante(u"cmdTerzineOmogenee"_s, u"Avvia"_s);
    auto *lo = new QHBoxLayout(omogenee);
    lo->addStretch();
    lo->addWidget(cmdTerzineOmogenee);
    connect(cmdTerzineOmogenee, &QPushButton::clicked, this, [this] {
        passo([this] {
            m_banco.terzineOmogenee();
            return BancoColonne9::Esito();
        });
    });

    m_filtri.append({cmdOk, cmdAvviaFiltro, cmdSegniDiversi, cmdTerzineOmogenee});
    auto *contenitore = new QWidget(this);
    auto *l = new QVBoxLayout(contenitore);
    l->setContentsMargins(0, 0, 0, 0);
    for (QWidget *w : {static_cast<QWidget *>(formula), static_cast<QWidget *>(segno),
                       static_cast<QWidget *>(diversi), static_cast<QWidget *>(omogenee)})
        l->addWidget(w);
    return contenitore;
}

QWidget *FrmColonne9::creaEliminazioni() {
    auto *g = gruppo(u"Elimina colonne"_s, this);
    auto *l = new QVBoxLayout(g);
    l->setSpacing(4);
    const auto riga = [g, l](std::initializer_list<QWidget *> sinistra,
                             std::initializer_list<QWidget *> destra) {
        auto *r = new QHBoxLayout;
        for (QWidget *w : sinistra)
            r->addWidget(w);
        r->addStretch();
        for (QWidget *w : destra)
            r->addWidget(w);
        l->addLayout(r);
        Q_UNUSED(g);
    };
    const auto etichetta = [g](const QString &testo) { return new QLabel(testo, g); };

    m_cmbSegno = tendina(u"cmbSegno"_s, {u"1"_s, u"X"_s, u"2"_s});
    // Picking the sign is the command itself.
    connect(m_cmbSegno, &QComboBox::activated, this, [this] {
        passo([this] {
            m_banco.eliminaSegno(m_cmbSegno->currentText());
            return BancoColonne9::Esito();
        });
    });
    riga({etichetta(u"Elimina colonne con"_s)}, {etichetta(u"il segno"_s), m_cmbSegno});

    m_cmbEliminaSegno = tendina(u"cmbEliminaSegno"_s, {u"1"_s, u"X"_s, u"2"_s});
    m_cmbCasella = tendina(u"cmbCasella"_s, numeri(1, 9));
    auto *cmdEliminaSegno = pulsante(u"cmdEliminaSegno"_s, u"Ok"_s);
    connect(cmdEliminaSegno, &QPushButton::clicked, this, [this] {
        passo([this] {
            return m_banco.eliminaInCasella(m_cmbEliminaSegno->currentText(),
                                            m_cmbSegno->currentText(), m_cmbCasella->currentText());
        });
    });
    riga({etichetta(u"Elimina colonne con il segno"_s)}, {m_cmbEliminaSegno});
    riga({}, {etichetta(u"in casella"_s), m_cmbCasella, cmdEliminaSegno});
    MdiTastiera::pulsantePredefinito(m_cmbEliminaSegno, cmdEliminaSegno);
    MdiTastiera::pulsantePredefinito(m_cmbCasella, cmdEliminaSegno);

    m_cmbFreq = new QLineEdit(g);
    m_cmbFreq->setObjectName(u"cmbFreq"_s);
    m_cmbFreq->setFixedWidth(44);
    m_cmbFreq->setAlignment(Qt::AlignCenter);
    new FiltroTasti(m_cmbFreq, u"0123456789"_s, false);
    auto *cmdFreq = pulsante(u"cmdFreq"_s, u"Ok"_s);
    connect(cmdFreq, &QPushButton::clicked, this,
            [this] { passo([this] { return m_banco.eliminaFrequenza(m_cmbFreq->text()); }); });
    MdiTastiera::pulsantePredefinito(m_cmbFreq, cmdFreq);
    auto *conFrequenza = etichetta(u"Con frequenza"_s);
    // Digit by digit, as the step compares them.
    const QString cifra = u"Elimina le colonne nella cui frequenza (Freq.) compare questa cifra: "
                          "con 1 vanno via 1, 10, 21 e così via."_s;
    conFrequenza->setToolTip(cifra);
    m_cmbFreq->setToolTip(cifra);
    riga({etichetta(u"Elimina colonne"_s)}, {conFrequenza, m_cmbFreq, cmdFreq});

    auto *cmdEliminaMaiUscite = pulsante(u"cmdEliminaMaiUscite"_s, u"Elimina colonne mai uscite"_s);
    connect(cmdEliminaMaiUscite, &QPushButton::clicked, this, [this] {
        passo([this] {
            m_banco.eliminaMaiUscite();
            return BancoColonne9::Esito();
        });
    });
    l->addWidget(cmdEliminaMaiUscite);
    m_filtri.append({cmdEliminaSegno, cmdFreq, cmdEliminaMaiUscite});
    return g;
}

QWidget *FrmColonne9::creaConsecutivi() {
    auto *g = gruppo(QString(), this);
    auto *l = new QGridLayout(g);
    l->addWidget(new QLabel(u"Consecutività"_s, g), 0, 1);
    l->addWidget(new QLabel(u"Presenze"_s, g), 0, 2);
    const QStringList segni{u"1"_s, u"X"_s, u"2"_s};
    auto *gruppoSegni = new QButtonGroup(this);
    for (int i = 0; i < 3; ++i) {
        const QString s = segni.at(i);
        m_chkCons[i] = new QRadioButton(s, g);
        m_chkCons[i]->setObjectName(u"chkCons"_s + s);
        gruppoSegni->addButton(m_chkCons[i], i);
        m_cmbCons[i] = tendina(u"cmbCons"_s + s, numeri(2, 9));
        m_cmbPres[i] = tendina(u"cmbPres"_s + s, numeri(0, 8));
        connect(m_cmbCons[i], &QComboBox::activated, this, [this, i] { scegliConsecutivi(i); });
        l->addWidget(m_chkCons[i], i + 1, 0);
        l->addWidget(m_cmbCons[i], i + 1, 1);
        l->addWidget(m_cmbPres[i], i + 1, 2);
    }
    auto *cmdCons = pulsante(u"cmdCons"_s, u"Ok"_s);
    l->addWidget(cmdCons, 1, 3, 3, 1);
    MdiTastiera::pulsantePredefinito(g, cmdCons);
    connect(cmdCons, &QPushButton::clicked, this, [this] {
        const QString s = segnoConsecutivi();
        const int i = Colonna::segni().indexOf(s);
        passo([this, s, i] {
            return m_banco.consecutivi(s, i < 0 ? QString() : m_cmbCons[i]->currentText(),
                                       i < 0 ? QString() : m_cmbPres[i]->currentText());
        });
    });
    m_filtri.append(cmdCons);
    return g;
}

QWidget *FrmColonne9::creaRicerca() {
    auto *g = gruppo(u"Esamina colonna"_s, this);
    m_txtColonna = new QLineEdit(g);
    m_txtColonna->setObjectName(u"txtColonna"_s);
    m_txtColonna->setMaxLength(9);
    new FiltroTasti(m_txtColonna, u"12Xx"_s, true);
    QFont mono(u"Liberation Mono"_s);
    mono.setStyleHint(QFont::Monospace);
    m_txtColonna->setFont(mono);
    auto *command1 = pulsante(u"Command1"_s, u"Cerca"_s);
    connect(command1, &QPushButton::clicked, this, [this] { cerca(); });
    m_lblFreq = new QLabel(g);
    m_lblFreq->setObjectName(u"lblFreq"_s);
    m_lblRit = new QLabel(g);
    m_lblRit->setObjectName(u"lblRit"_s);
    for (QLabel *e : {m_lblFreq, m_lblRit}) {
        e->setFrameShape(QFrame::StyledPanel);
        e->setMinimumWidth(50);
        e->setAlignment(Qt::AlignCenter);
    }
    MdiTastiera::pulsantePredefinito(g, command1);
    const QString frequenza =
        Glossario::frequenza(u"la colonna cercata"_s, u"concorsi dell'archivio"_s);
    const QString ritardo = Glossario::ritardo(
        u"della colonna cercata"_s, u"il numero dei concorsi dell'archivio se non è mai uscita"_s);
    auto *lblFrequenza = new QLabel(u"Frequenza"_s, g);
    auto *lblRitardo = new QLabel(u"Ritardo"_s, g);
    for (QLabel *e : {lblFrequenza, m_lblFreq})
        e->setToolTip(frequenza);
    for (QLabel *e : {lblRitardo, m_lblRit})
        e->setToolTip(ritardo);
    auto *l = new QGridLayout(g);
    l->addWidget(m_txtColonna, 0, 0, 1, 2);
    l->addWidget(command1, 0, 2);
    l->addWidget(lblFrequenza, 1, 0);
    l->addWidget(m_lblFreq, 1, 1);
    l->addWidget(lblRitardo, 2, 0);
    l->addWidget(m_lblRit, 2, 1);
    m_filtri.append(command1);

    auto *imgStampa = pulsante(u"imgStampa"_s, u"Stampa Prospetto"_s);
    imgStampa->setToolTip(u"Stampa Prospetto"_s);
    connect(imgStampa, &QPushButton::clicked, this, [this] { stampaProspetto(); });
    MdiTastiera::stampa(this, imgStampa);
    auto *imgStampaSchedine = pulsante(u"imgStampaSchedine"_s, u"Stampa schedine"_s);
    imgStampaSchedine->setToolTip(u"Stampa schedine"_s);
    connect(imgStampaSchedine, &QPushButton::clicked, this, [this] { stampaSchedine(); });
    // Only a grid with columns has something to hand to the slip printer.
    const auto abilita = [this, imgStampaSchedine] {
        imgStampaSchedine->setEnabled(m_griglia->righe() >= 2);
    };
    abilita();
    connect(m_griglia, &QAbstractItemModel::modelReset, imgStampaSchedine, abilita);
    connect(m_griglia, &QAbstractItemModel::rowsInserted, imgStampaSchedine, abilita);
    connect(m_griglia, &QAbstractItemModel::rowsRemoved, imgStampaSchedine, abilita);
    for (QPushButton *p : {imgStampa, imgStampaSchedine}) {
        p->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
        p->setCursor(Qt::PointingHandCursor);
    }

    // Beyond the filters: fewer columns with a guarantee, and how the chain did in the past.
    auto *cmdRiduci = pulsante(u"cmdRiduci"_s, u"Riduci con garanzia…"_s);
    cmdRiduci->setToolTip(u"Tiene poche colonne tra quelle della griglia, tali che ogni colonna "
                          "della griglia abbia almeno 8 (o 7) segni su 9 uguali a una colonna "
                          "tenuta"_s);
    connect(cmdRiduci, &QPushButton::clicked, this, [this] { riduci(); });
    auto *cmdVerifica = pulsante(u"cmdVerificaStorica"_s, u"Verifica storica…"_s);
    cmdVerifica->setToolTip(u"Rifà i filtri applicati sui concorsi passati: quante volte "
                            "avrebbero tenuto la colonna vincente, e con quante colonne"_s);
    connect(cmdVerifica, &QPushButton::clicked, this, [this] { verificaStorica(); });
    m_filtri.append({cmdRiduci, cmdVerifica});

    auto *contenitore = new QWidget(this);
    auto *lc = new QVBoxLayout(contenitore);
    lc->setContentsMargins(0, 0, 0, 0);
    lc->addWidget(g);
    lc->addWidget(imgStampa);
    lc->addWidget(imgStampaSchedine);
    auto *oltre = new QHBoxLayout;
    oltre->addWidget(cmdRiduci);
    oltre->addWidget(cmdVerifica);
    lc->addLayout(oltre);
    return contenitore;
}

void FrmColonne9::abilitaFiltri(bool si) {
    for (QWidget *w : std::as_const(m_filtri))
        w->setEnabled(si);
}

void FrmColonne9::aggiornaTotale() {
    m_lblTot->setText(QString::number(m_banco.totale()));
}

void FrmColonne9::aggiornaSegniFissi() {
    for (int k = 0; k < 9; ++k) {
        const QString &s = m_banco.segniFissi()[k];
        m_lblSegni[k]->setText(s);
        m_lblSegni[k]->setStyleSheet(s == Libero ? u"color: black;"_s
                                                 : u"color: %1;"_s.arg(Verde.name()));
    }
}

void FrmColonne9::azzeraSegniFissi(bool abilitaCasella) {
    m_chkFiltra->setChecked(false);
    m_picFiltro->setVisible(false);
    m_txtFiltroSegno->clear();
    m_txtFiltroPos->clear();
    aggiornaSegniFissi();
    if (abilitaCasella)
        m_picSegni->setEnabled(true);
}

void FrmColonne9::avvia() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        if (!m_stato.RicalcolaColonne9 && m_stato.StatColonne9.size() == Colonne9::Numero) {
            MdiClessidra cursore;
            m_banco.carica(m_stato.StatColonne9);
            azzeraSegniFissi(true);
            m_cmdRipristina->setEnabled(true);
            abilitaFiltri(true);
            m_chkFiltra->setEnabled(true);
            aggiornaTotale();
            mostraOrdine();
            return;
        }
        // The full calculation: the frame and this screen's own buttons rest until it ends.
        m_cmdRipristina->setEnabled(true);
        const bool precEra = m_cmdPrec->isEnabled();
        m_cmdAvvia->setEnabled(false);
        m_cmdPrec->setEnabled(false);
        m_cmdRipristina->setEnabled(false);
        abilitaFiltri(false);
        QWidget *cornice = window();
        FrmAttendere attesa(cornice);
        attesa.setIntervallo(0, Colonne9::Numero);
        attesa.show();
        QApplication::processEvents();
        MdiClessidra cursore;
        const auto statistiche = Colonne9::calcola(m_stato.ColonneArchivio, [&attesa](int fatte) {
            attesa.setValore(fatte);
            QApplication::processEvents();
        });
        m_banco.carica(statistiche);
        m_stato.StatColonne9 = statistiche;
        m_stato.RicalcolaColonne9 = false;
        attesa.close();
        m_cmdPrec->setEnabled(precEra);
        m_cmdRipristina->setEnabled(true);
        abilitaFiltri(true);
        azzeraSegniFissi(false);
        aggiornaTotale();
        mostraOrdine();
    });
}

void FrmColonne9::caricaSistema() {
    MdiClessidra cursore;
    m_banco.caricaSistema(m_stato.TabellaSistema);
    azzeraSegniFissi(true);
    m_cmdRipristina->setEnabled(true);
    abilitaFiltri(true);
    m_chkFiltra->setEnabled(true);
    m_cmdAvvia->setEnabled(false);
    aggiornaTotale();
    mostraOrdine();
}

void FrmColonne9::ripristina() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        MdiClessidra cursore;
        m_banco.carica(m_stato.StatColonne9);
        azzeraSegniFissi(false);
        m_chkFiltra->setEnabled(true);
        m_picSegni->setEnabled(false);
        aggiornaTotale();
        mostraOrdine();
    });
}

void FrmColonne9::annulla() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        m_banco.annulla();
        m_lblTot->setText(QString::number(m_banco.righeIstantanea()));
        mostraOrdine();
    });
}

void FrmColonne9::passo(const std::function<BancoColonne9::Esito()> &azione) {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        QApplication::processEvents();
        BancoColonne9::Esito esito;
        {
            MdiClessidra cursore;
            esito = azione();
        }
        mostraOrdine();
        if (m_banco.conIstantanea())
            m_cmdPrec->setEnabled(true);
        aggiornaSegniFissi();
        if (esito) {
            const QString titolo = Dialoghi::titoloApplicazione();
            if (esito->tipo == Dialoghi::Tipo::Avviso)
                m_stato.dialoghi().avviso(titolo, esito->testo);
            else
                m_stato.dialoghi().informazione(titolo, esito->testo);
            return;
        }
        aggiornaTotale();
    });
}

void FrmColonne9::applicaSegnoFisso() {
    // Enter applies with the focus still in the field: the sign is made upper case as when the
    // field loses the focus to the button.
    m_txtFiltroSegno->setText(m_txtFiltroSegno->text().toUpper());
    passo([this] { return m_banco.segnoFisso(m_txtFiltroPos->text(), m_txtFiltroSegno->text()); });
}

void FrmColonne9::ordina(int colonna) {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        m_banco.ordina(colonna);
        mostraOrdine();
    });
}

void FrmColonne9::mostraOrdine() {
    if (const auto &ordine = m_banco.ordine())
        m_vista->mostraOrdine(ordine->colonna, ordine->verso);
    else
        m_vista->nascondiOrdine();
}

void FrmColonne9::cerca() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        const QString testo = m_txtColonna->text();
        if (!Colonne9::ricercaValida(testo)) {
            m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(),
                                            u"Inserire una colonna per il '9' valida."_s);
            return;
        }
        const Colonne9::Ricerca r = Colonne9::cerca(m_stato.ColonneArchivio, testo);
        m_lblFreq->setText(QString::number(r.frequenza));
        m_lblRit->setText(QString::number(r.ritardo));
    });
}

void FrmColonne9::stampaProspetto() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        // Nothing selected: nothing printed, nothing said.
        if (m_banco.totale() == 0)
            return;
        m_stato.OrientamentoPagina = u"verticale"_s;
        DocumentoPagine documento;
        StampaColonne9::scrivi(documento, *m_griglia, EsportazioneExcel::oggi());
        FrmAnteprima::avvia(m_stato,
                            m_stato.registro() ? m_stato.registro()->finestra() : window());
    });
}

void FrmColonne9::stampaSchedine() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        const int righe = m_griglia->righe();
        if (righe < 2)
            return;
        // The grid's rows as they stand, in their order: column 1 holds the nine signs.
        m_stato.ColonneStampa.clear();
        m_stato.ColonneStampa.reserve(righe - 1);
        for (int r = 1; r < righe; ++r)
            m_stato.ColonneStampa.append(m_griglia->testo(r, 1));
        m_stato.PrimaColonnaStampa = 1;
        m_stato.UltimaColonnaStampa = qint16(righe - 1);
        if (!m_stato.registro())
            return;
        if (auto *schermo =
                qobject_cast<FrmStampa *>(m_stato.registro()->apriSchermo(u"frmStampa"_s)))
            schermo->consegna(righe - 1);
    });
}

void FrmColonne9::esporta() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        // The limit stands on the rows with the header: 999 columns is the most that passes.
        if (m_griglia->righe() >= 1001) {
            m_stato.dialoghi().avviso(Dialoghi::titoloApplicazione(),
                                      u"Non si possono esportare in Excel più di 1000 colonne."_s);
            return;
        }
        EsportazioneExcel::prepara(m_stato, *m_griglia,
                                   u"Le colonne del 9 da giocare, alla data "_s +
                                       EsportazioneExcel::oggi());
        if (m_stato.registro())
            m_stato.registro()->apriMenuGriglie(QCursor::pos());
    });
}

void FrmColonne9::riduci() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        if (m_banco.totale() == 0)
            return;
        auto *finestra = new FrmRiduzione(m_stato, m_banco.indici(), this);
        finestra->setAttribute(Qt::WA_DeleteOnClose);
        // The checked reduction replaces the grid as a filter step does, with its undo.
        connect(finestra, &FrmRiduzione::ridotta, this,
                [this](const QList<int> &tenute, const QString &descrizione) {
                    passo([&] {
                        m_banco.tieni(tenute, descrizione);
                        return BancoColonne9::Esito();
                    });
                });
        finestra->open();
    });
}

void FrmColonne9::verificaStorica() {
    eseguiProtetto(m_stato.dialoghi(), [&] {
        if (!m_stato.registro())
            return;
        if (auto *schermo = qobject_cast<FrmVerificaStorica *>(
                m_stato.registro()->apriSchermo(u"frmVerificaStorica"_s)))
            schermo->consegna(m_banco.catena());
    });
}

void FrmColonne9::scegliConsecutivi(int indice) {
    // A run of nine leaves no room for another sign.
    if (m_cmbCons[indice]->currentText() != u"9"_s)
        return;
    for (int i = 0; i < 3; ++i)
        if (i != indice)
            m_cmbCons[i]->setEditText(u"0"_s);
}

QString FrmColonne9::segnoConsecutivi() const {
    for (int i = 0; i < 3; ++i)
        if (m_chkCons[i]->isChecked())
            return Colonna::segni().at(i);
    return {};
}

bool FrmColonne9::eventFilter(QObject *oggetto, QEvent *evento) {
    if (oggetto == m_txtFiltroSegno && evento->type() == QEvent::FocusOut)
        m_txtFiltroSegno->setText(m_txtFiltroSegno->text().toUpper());
    return QWidget::eventFilter(oggetto, evento);
}
