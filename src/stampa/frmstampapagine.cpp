#include "stampa/frmstampapagine.h"

#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/stampanteqt.h"
#include "stampa/documentopagine.h"
#include "stampa/esportazioneexcel.h"
#include "stampa/frmanteprima.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::StringLiterals;

FrmStampaPagine::FrmStampaPagine(StatoProgramma &stato, FrmAnteprima &anteprima)
    : QDialog(&anteprima)
    , m_stato(stato)
    , m_anteprima(anteprima)
    , m_stampante(std::make_unique<StampanteQt>(stato.dialoghi(), stato.impostazioni(),
                                                stato.FileStampaPdf, stato.paginaOrizzontale())) {
    m_stampante->setNomeDocumento(nomeDocumento());
    setObjectName(u"PrnPrn"_s);
    setWindowTitle(u"Stampa"_s);
    setModal(true);

    m_sPag = new QComboBox(this);
    m_sPag->setObjectName(u"sPag"_s);
    m_ePag = new QComboBox(this);
    m_ePag->setObjectName(u"ePag"_s);
    for (int i = 1; i <= anteprima.pagine(); ++i) {
        m_sPag->addItem(QString::number(i));
        m_ePag->addItem(QString::number(i));
    }
    m_sPag->setCurrentIndex(0);
    m_ePag->setCurrentIndex(m_ePag->count() - 1);
    auto *tPag = new QLabel(QString::number(anteprima.pagine()), this);
    tPag->setObjectName(u"tPag"_s);

    auto *command1 = new QPushButton(u"&Stampa"_s, this);
    command1->setObjectName(u"Command1"_s);
    command1->setDefault(true);
    auto *command2 = new QPushButton(u"A&nnulla"_s, this);
    command2->setObjectName(u"Command2"_s);
    auto *command3 = new QPushButton(u"Sta&mpante"_s, this);
    command3->setObjectName(u"Command3"_s);
    auto *command4 = new QPushButton(u"Seleziona la pagina &visualizzata"_s, this);
    command4->setObjectName(u"Command4"_s);
    m_pBar = new QProgressBar(this);
    m_pBar->setObjectName(u"pBar"_s);
    m_pBar->setTextVisible(false);
    m_pBar->setValue(0);
    auto *line1 = new QFrame(this);
    line1->setObjectName(u"Line1"_s);
    line1->setFrameShape(QFrame::HLine);
    auto *line2 = new QFrame(this);
    line2->setObjectName(u"Line2"_s);
    line2->setFrameShape(QFrame::HLine);

    auto *l = new QGridLayout(this);
    l->addWidget(new QLabel(u"Totale pagine nell'anteprima:"_s, this), 0, 0);
    l->addWidget(tPag, 0, 1);
    l->addWidget(line1, 1, 0, 1, 3);
    l->addWidget(new QLabel(u"stampa da pagina:"_s, this), 2, 0);
    l->addWidget(m_sPag, 2, 1);
    l->addWidget(new QLabel(u"a pagina:"_s, this), 3, 0);
    l->addWidget(m_ePag, 3, 1);
    l->addWidget(command4, 4, 0, 1, 2);
    l->addWidget(line2, 5, 0, 1, 3);
    l->addWidget(m_pBar, 6, 0, 1, 3);
    l->addWidget(command1, 2, 2);
    l->addWidget(command2, 3, 2);
    l->addWidget(command3, 4, 2);

    connect(command1, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { stampa(); }); });
    connect(command2, &QPushButton::clicked, this, &FrmStampaPagine::reject);
    connect(command3, &QPushButton::clicked, this, [this] { m_stampante->scegli(); });
    connect(command4, &QPushButton::clicked, this, [this] {
        m_sPag->setCurrentIndex(m_anteprima.paginaMostrata() - 1);
        m_ePag->setCurrentIndex(m_anteprima.paginaMostrata() - 1);
    });
}

FrmStampaPagine::~FrmStampaPagine() = default;

void FrmStampaPagine::reject() {
    // "Annulla", Esc and the window's close button: a print under way stops at its next page,
    // and the window goes once it has stopped.
    m_annullato = true;
    if (!m_inStampa)
        QDialog::reject();
}

QString FrmStampaPagine::domanda(int prima, int ultima) {
    if (prima < ultima)
        return u"Vuoi effettuare la stampa\n\tda pagina %1\n\talla pagina %2?"_s.arg(prima).arg(
            ultima);
    return u"Vuoi effettuare la stampa\ndella pagina %1?"_s.arg(prima);
}

void FrmStampaPagine::stampa() {
    const int prima = m_sPag->currentText().toInt();
    int ultima = m_ePag->currentText().toInt();
    if (ultima < prima)
        ultima = prima;
    if (m_stato.dialoghi().domanda(Dialoghi::titoloApplicazione(), domanda(prima, ultima)) &&
        m_stampante->scegliSeManca()) {
        m_annullato = false;
        m_inStampa = true;
        // Ends the document even when the run stops on a fault, then without a word.
        struct Fine {
            FrmStampaPagine &f;
            ~Fine() {
                f.m_inStampa = false;
                f.m_stampante->interrompi();
            }
        } fine{*this};
        DispositivoDisegno &dispositivo = m_stampante->inizia();
        DocumentoPagine::stampaPagine(
            m_anteprima.record(), dispositivo, prima, ultima, [this] { return m_annullato; },
            [this, prima, ultima](int stampate) {
                m_pBar->setRange(0, ultima - prima + 1);
                m_pBar->setValue(stampate);
                m_anteprima.aggiornaAvanzamento(prima, ultima, stampate);
                QApplication::processEvents();
            });
        m_stampante->fine();
    }
    accept();
}

QString FrmStampaPagine::nomeDocumento() {
    return u"Stampa Vespara, alla data "_s + EsportazioneExcel::oggi();
}
