#include "analisi/frmriduzione.h"

#include "analisi/riduzionegaranzia.h"
#include "core/mdistile.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmRiduzione::FrmRiduzione(StatoProgramma &stato, const QList<int> &colonne, QWidget *genitore)
    : QDialog(genitore)
    , m_stato(stato)
    , m_colonne(colonne)
    , m_opt8(new QRadioButton(u"8 su 9"_s, this))
    , m_opt7(new QRadioButton(u"7 su 9"_s, this))
    , m_txtLimite(new QSpinBox(this))
    , m_bar(new QProgressBar(this))
    , m_lblMigliore(new QLabel(this))
    , m_lblEsito(new QLabel(this))
    , m_cmdRiduci(new QPushButton(u"Riduci"_s, this))
    , m_cmdInterrompi(new QPushButton(u"Interrompi"_s, this))
    , m_cmdChiudi(new QPushButton(u"Chiudi"_s, this)) {
    setObjectName(u"frmRiduzione"_s);
    setWindowTitle(QString::fromUtf8(Titolo));

    auto *lblPrima = new QLabel(u"Colonne da ridurre: %1"_s.arg(colonne.size()), this);
    lblPrima->setObjectName(u"lblPrima"_s);
    MdiStile::grassetto(lblPrima);

    auto *garanzia = new QGroupBox(u"Garanzia"_s, this);
    m_opt8->setObjectName(u"optGaranzia8"_s);
    m_opt7->setObjectName(u"optGaranzia7"_s);
    m_opt8->setToolTip(u"Se tutti i segni delle colonne da ridurre sono giusti, almeno una "
                       "colonna tenuta ha 8 segni giusti su 9"_s);
    m_opt7->setToolTip(u"Se tutti i segni delle colonne da ridurre sono giusti, almeno una "
                       "colonna tenuta ha 7 segni giusti su 9: bastano meno colonne"_s);
    m_opt8->setChecked(true);
    auto *gruppo = new QButtonGroup(this);
    gruppo->addButton(m_opt8);
    gruppo->addButton(m_opt7);
    auto *lg = new QHBoxLayout(garanzia);
    lg->addWidget(m_opt8);
    lg->addWidget(m_opt7);
    lg->addStretch();

    m_txtLimite->setObjectName(u"txtLimite"_s);
    m_txtLimite->setRange(1, 600);
    m_txtLimite->setValue(LimitePredefinitoS);
    m_txtLimite->setSuffix(u" s"_s);
    const QString spiegaLimite =
        u"Il tempo massimo della ricerca: più tempo può dare meno colonne. La ricerca finisce "
        "prima quando non trova più riduzioni."_s;
    m_txtLimite->setToolTip(spiegaLimite);
    auto *lblLimite = new QLabel(u"Tempo massimo"_s, this);
    lblLimite->setToolTip(spiegaLimite);

    m_bar->setObjectName(u"barAvanzamento"_s);
    m_bar->setRange(0, 1);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);
    m_lblMigliore->setObjectName(u"lblMigliore"_s);
    m_lblEsito->setObjectName(u"lblEsito"_s);
    m_lblEsito->setWordWrap(true);
    m_lblEsito->setTextFormat(Qt::PlainText);
    m_lblEsito->setMinimumWidth(360);

    m_cmdRiduci->setObjectName(u"cmdRiduci"_s);
    m_cmdRiduci->setDefault(true);
    m_cmdRiduci->setToolTip(u"Cerca le colonne da tenere; le colonne ridotte sostituiscono "
                            "quelle della griglia (Invio)"_s);
    m_cmdRiduci->setEnabled(!colonne.isEmpty());
    m_cmdInterrompi->setObjectName(u"cmdInterrompi"_s);
    m_cmdInterrompi->setToolTip(
        u"Ferma la ricerca e tiene la riduzione migliore trovata finora (Esc)"_s);
    m_cmdInterrompi->setEnabled(false);
    m_cmdInterrompi->setAutoDefault(false);
    m_cmdChiudi->setObjectName(u"cmdChiudi"_s);
    m_cmdChiudi->setAutoDefault(false);
    connect(m_cmdRiduci, &QPushButton::clicked, this,
            [this] { eseguiProtetto(m_stato.dialoghi(), [this] { riduci(); }); });
    connect(m_cmdInterrompi, &QPushButton::clicked, this, [this] { m_interrotta = true; });
    connect(m_cmdChiudi, &QPushButton::clicked, this, &QDialog::reject);

    auto *limite = new QHBoxLayout;
    limite->addWidget(lblLimite);
    limite->addWidget(m_txtLimite);
    limite->addStretch();
    auto *comandi = new QHBoxLayout;
    comandi->addStretch();
    comandi->addWidget(m_cmdRiduci);
    comandi->addWidget(m_cmdInterrompi);
    comandi->addWidget(m_cmdChiudi);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblPrima);
    layout->addWidget(garanzia);
    layout->addLayout(limite);
    layout->addWidget(m_bar);
    layout->addWidget(m_lblMigliore);
    layout->addWidget(m_lblEsito);
    layout->addLayout(comandi);
    setFixedSize(sizeHint());
}

FrmRiduzione::~FrmRiduzione() = default;

QString FrmRiduzione::garanzia() const {
    return m_opt7->isChecked() ? u"7 su 9"_s : u"8 su 9"_s;
}

void FrmRiduzione::reject() {
    // Esc while the search runs stops it; the window closes once it is done.
    if (m_inCorso) {
        m_interrotta = true;
        return;
    }
    QDialog::reject();
}

void FrmRiduzione::closeEvent(QCloseEvent *evento) {
    if (m_inCorso) {
        m_interrotta = true;
        evento->ignore();
        return;
    }
    QDialog::closeEvent(evento);
}

void FrmRiduzione::riduci() {
    RiduzioneGaranzia::Opzioni opzioni;
    opzioni.segni = 9;
    opzioni.raggio = m_opt7->isChecked() ? 2 : 1;
    opzioni.limiteMs = m_txtLimite->value() * 1000;
    m_inCorso = true;
    m_interrotta = false;
    for (QWidget *w : {static_cast<QWidget *>(m_cmdRiduci), static_cast<QWidget *>(m_cmdChiudi),
                       static_cast<QWidget *>(m_opt8), static_cast<QWidget *>(m_opt7),
                       static_cast<QWidget *>(m_txtLimite)})
        w->setEnabled(false);
    m_cmdInterrompi->setEnabled(true);
    m_bar->setRange(0, opzioni.limiteMs);
    m_bar->setValue(0);
    m_lblEsito->clear();
    m_lblMigliore->setText(u"Ricerca in corso..."_s);
    QApplication::processEvents();

    const RiduzioneGaranzia::Esito esito = RiduzioneGaranzia::riduci(
        m_colonne, opzioni, [this](const RiduzioneGaranzia::Avanzamento &a) {
            m_bar->setValue(std::min(a.trascorsiMs, a.limiteMs));
            m_lblMigliore->setText(u"Migliore finora: %1 colonne"_s.arg(a.migliore));
            QApplication::processEvents();
            return !m_interrotta;
        });
    m_inCorso = false;
    m_cmdInterrompi->setEnabled(false);
    m_cmdChiudi->setEnabled(true);
    m_bar->setValue(m_bar->maximum());
    m_lblMigliore->clear();

    // A reduction that fails the independent check is never handed on.
    if (esito.tenute.isEmpty() ||
        !RiduzioneGaranzia::garantita(m_colonne, esito.tenute, opzioni.segni, opzioni.raggio)) {
        m_lblEsito->setText(u"La riduzione non ha superato la verifica della garanzia: le "
                            "colonne restano come erano."_s);
        m_stato.dialoghi().critico(Dialoghi::titoloApplicazione(), m_lblEsito->text());
        return;
    }
    const QString descrizione =
        u"Riduzione con garanzia %1: %2 colonne"_s.arg(garanzia()).arg(esito.tenute.size());
    QString come = esito.annullata         ? u"Ricerca interrotta: tenuta la riduzione migliore."_s
                   : esito.limiteRaggiunto ? u"Ricerca finita allo scadere del tempo."_s
                                           : u"Ricerca conclusa."_s;
    m_lblEsito->setText(
        u"Colonne prima: %1. Colonne dopo: %2 (%3 s).\n"
        "Garanzia %4 verificata: ogni colonna di partenza differisce al più in "
        "%5 da una colonna tenuta.\n%6"_s.arg(m_colonne.size())
            .arg(esito.tenute.size())
            .arg(QLocale(QLocale::Italian).toString(esito.trascorsiMs / 1000.0, 'f', 1))
            .arg(garanzia())
            .arg(opzioni.raggio == 1 ? u"un segno"_s : u"due segni"_s)
            .arg(come));
    setFixedSize(sizeHint());
    emit ridotta(esito.tenute, descrizione);
}
