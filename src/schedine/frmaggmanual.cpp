#include "schedine/frmaggmanual.h"

#include "core/mdistile.h"
#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "schedine/schedinamanuale.h"

#include <QButtonGroup>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDate>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QStringList &giorni() {
    static const QStringList g{u"Lunedì"_s,  u"Martedì"_s, u"Mercoledì"_s, u"Giovedì"_s,
                               u"Venerdì"_s, u"Sabato"_s,  u"Domenica"_s};
    return g;
}

struct Opzione {
    const char *testo;
    const char *coupon; // how the tool tips name the coupon
};
constexpr std::array<Opzione, SchedinaManuale::Pagine> Opzioni{{
    {"Infrasettimanale", "la schedina infrasettimanale"},
    {"Sabato", "la schedina del sabato"},
    {"Domenica", "la schedina della domenica"},
}};

QLabel *etichetta(const QString &testo, const QString &nome, QWidget *genitore) {
    auto *l = new QLabel(testo, genitore);
    l->setObjectName(nome);
    return l;
}

} // namespace

FrmAggManual::FrmAggManual(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmAggManual"_s);
    setWindowTitle(u"Aggiornamento manuale delle schedine"_s);

    auto *giornata = new QGroupBox(u"Giornata"_s, this);
    giornata->setObjectName(u"fraGiornata"_s);
    auto *opzioni = new QButtonGroup(this);
    auto *righeOpzioni = new QHBoxLayout(giornata);
    righeOpzioni->setSpacing(24);
    for (int i = 0; i < SchedinaManuale::Pagine; ++i) {
        const Opzione &o = Opzioni[std::size_t(i)];
        auto *opt = new QRadioButton(QString::fromLatin1(o.testo), giornata);
        opt->setObjectName(u"opt"_s + QChar(u'A' + i));
        opt->setToolTip(u"Mostra %1 (%2)"_s.arg(
            QString::fromLatin1(o.coupon), FileSchedine::fileSchedina(SchedinaManuale::tipo(i))));
        opzioni->addButton(opt, i);
        righeOpzioni->addWidget(opt);
    }
    righeOpzioni->addStretch();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(8);
    layout->addWidget(giornata);
    for (int i = 0; i < SchedinaManuale::Pagine; ++i)
        layout->addWidget(creaPagina(i));
    layout->setSizeConstraint(QLayout::SetFixedSize);

    caricaSchedine();

    connect(opzioni, &QButtonGroup::idClicked, this, &FrmAggManual::mostraPagina);
    opzioni->button(0)->setChecked(true);
    mostraPagina(0);
}

FrmAggManual::~FrmAggManual() = default;

QWidget *FrmAggManual::creaPagina(int indice) {
    const QString x(QChar(u'A' + indice));
    const QString file = FileSchedine::fileSchedina(SchedinaManuale::tipo(indice));
    Pagina &p = m_pagine[std::size_t(indice)];

    auto *pic = new QFrame(this);
    pic->setObjectName(u"pic"_s + x);
    pic->setFrameShape(QFrame::StyledPanel);
    p.pic = pic;

    p.txtConcorso = new QLineEdit(pic);
    p.txtConcorso->setObjectName(u"txtConcorso"_s + x);
    p.txtConcorso->setToolTip(u"Il numero del concorso"_s);
    p.txtConcorso->setFixedWidth(p.txtConcorso->fontMetrics().horizontalAdvance(u"00000"_s) + 16);

    p.cmbGiorni = new QComboBox(pic);
    p.cmbGiorni->setObjectName(u"cmbGiorni"_s + x);
    // Editable, so that a day written otherwise in the file survives a reading and a writing.
    p.cmbGiorni->setEditable(true);
    p.cmbGiorni->setInsertPolicy(QComboBox::NoInsert);
    p.cmbGiorni->addItems(giorni());
    p.cmbGiorni->setCurrentIndex(0);
    p.cmbGiorni->setMinimumWidth(p.cmbGiorni->fontMetrics().horizontalAdvance(u"Mercoledì"_s) + 48);
    p.cmbGiorni->setToolTip(u"Il giorno della settimana del concorso"_s);

    p.lblData = new QLabel(QString::fromLatin1(SchedinaManuale::DataVuota), pic);
    p.lblData->setObjectName(u"lblData"_s + x);
    p.lblData->setFrameShape(QFrame::StyledPanel);
    p.lblData->setAlignment(Qt::AlignCenter);
    p.lblData->setMinimumWidth(p.lblData->fontMetrics().horizontalAdvance(u"00/00/00000"_s) + 12);
    p.lblData->setToolTip(u"La data del concorso: si sceglie nel calendario"_s);

    // The design names page B's date button cmbDataB.
    p.cmdData = new QPushButton(u"Calendario"_s, pic);
    p.cmdData->setObjectName(indice == 1 ? u"cmbDataB"_s : u"cmdData"_s + x);
    p.cmdData->setCheckable(true);
    p.cmdData->setToolTip(
        u"Mostra o nasconde il calendario: un clic su un giorno ne scrive la data"_s);

    p.mskOra = new QLineEdit(pic);
    p.mskOra->setObjectName(u"mskOra"_s + x);
    p.mskOra->setInputMask(u"99:99"_s);
    p.mskOra->setToolTip(u"L'ora del concorso, come 15:00"_s);
    p.mskOra->setFixedWidth(p.mskOra->fontMetrics().horizontalAdvance(u"00:000"_s) + 16);

    auto *testa = new QHBoxLayout;
    testa->setSpacing(6);
    testa->addWidget(etichetta(u"Concorso n."_s, u"lblConcorso"_s + x, pic));
    testa->addWidget(p.txtConcorso);
    testa->addSpacing(6);
    testa->addWidget(etichetta(u"del"_s, u"lblDel"_s + x, pic));
    testa->addWidget(p.cmbGiorni);
    testa->addWidget(p.lblData);
    testa->addWidget(p.cmdData);
    testa->addSpacing(6);
    testa->addWidget(etichetta(u"Ore"_s, u"lblOre"_s + x, pic));
    testa->addWidget(p.mskOra);
    testa->addStretch();

    auto *partite = new QGridLayout;
    partite->setHorizontalSpacing(6);
    partite->setVerticalSpacing(3);
    auto *lblCasa = etichetta(u"Squadra di casa"_s, u"lblCasa"_s + x, pic);
    auto *lblOspite = etichetta(u"Squadra ospite"_s, u"lblOspite"_s + x, pic);
    MdiStile::grassetto(lblCasa);
    MdiStile::grassetto(lblOspite);
    partite->addWidget(lblCasa, 0, 1);
    partite->addWidget(lblOspite, 0, 3);
    const int larghezza = fontMetrics().horizontalAdvance(u"FC INTERNAZIONALE MILANO"_s) + 24;
    for (int k = 1; k <= FileSchedine::Partite; ++k) {
        auto *numero = etichetta(QString::number(k), u"lblPartita%1(%2)"_s.arg(x).arg(k), pic);
        numero->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        partite->addWidget(numero, k, 0);
        for (int lato = 0; lato < 2; ++lato) {
            auto *campo = new QLineEdit(pic);
            campo->setObjectName(u"Squadra%1%2_%3"_s.arg(x).arg(k).arg(lato + 1));
            campo->setMinimumWidth(larghezza);
            campo->setToolTip((lato == 0 ? u"La squadra di casa della partita %1"_s
                                         : u"La squadra ospite della partita %1"_s)
                                  .arg(k) +
                              u" (è scritta in maiuscolo)"_s);
            p.squadre[std::size_t(k - 1)][std::size_t(lato)] = campo;
            partite->addWidget(campo, k, lato == 0 ? 1 : 3);
        }
        partite->addWidget(etichetta(u"-"_s, u"lblTrattino%1(%2)"_s.arg(x).arg(k), pic), k, 2);
    }

    auto *cmdApplica = new QPushButton(u"Applica modifiche"_s, pic);
    cmdApplica->setObjectName(u"cmdApplica"_s + x);
    cmdApplica->setToolTip(u"Scrive questa schedina nel file %1 e chiude"_s.arg(file));
    connect(cmdApplica, &QPushButton::clicked, this,
            [this, indice] { eseguiProtetto(m_stato.dialoghi(), [&] { applica(indice); }); });
    auto *cmdEsci = new QPushButton(u"Esci"_s, pic);
    cmdEsci->setObjectName(u"cmdEsci"_s + x);
    cmdEsci->setToolTip(u"Chiude senza scrivere nulla"_s);
    connect(cmdEsci, &QPushButton::clicked, this, [this] { MdiStile::finestraDi(this)->close(); });
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(cmdApplica);
    pulsanti->addWidget(cmdEsci);

    auto *righe = new QVBoxLayout(pic);
    righe->setContentsMargins(10, 10, 10, 10);
    righe->setSpacing(10);
    righe->addLayout(testa);
    righe->addLayout(partite);
    righe->addLayout(pulsanti);
    MdiTastiera::pulsantePredefinito(pic, cmdApplica);

    // The month view stands over the teams, below its button, while it is called: it takes no
    // room of the page.
    p.mv = new QCalendarWidget(pic);
    p.mv->setObjectName(u"mv"_s + x);
    p.mv->setLocale(QLocale(QLocale::Italian, QLocale::Italy));
    p.mv->setFirstDayOfWeek(Qt::Monday);
    p.mv->setGridVisible(true);
    p.mv->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    p.mv->setSelectedDate(QDate::currentDate());
    p.mv->setToolTip(u"Un clic su un giorno ne scrive la data nella schedina"_s);
    p.mv->setAutoFillBackground(true);
    p.mv->hide();
    MdiTastiera::tieneInvio(p.mv);
    connect(p.cmdData, &QPushButton::clicked, this, [this, indice] {
        mostraCalendario(indice, !m_pagine[std::size_t(indice)].mv->isVisible());
    });
    const auto scelta = [this, indice](QDate data) {
        eseguiProtetto(m_stato.dialoghi(), [&] { scegliData(indice, data); });
    };
    connect(p.mv, &QCalendarWidget::clicked, this, scelta);
    // Enter on a day chooses it too, for the keyboard.
    connect(p.mv, &QCalendarWidget::activated, this, scelta);
    return pic;
}

void FrmAggManual::mostraPagina(int indice) {
    for (int i = 0; i < SchedinaManuale::Pagine; ++i)
        m_pagine[std::size_t(i)].pic->setVisible(i == indice);
}

void FrmAggManual::mostraCalendario(int indice, bool visibile) {
    Pagina &p = m_pagine[std::size_t(indice)];
    p.cmdData->setChecked(visibile);
    if (!visibile) {
        p.mv->hide();
        return;
    }
    p.mv->resize(p.mv->sizeHint());
    // Under its button, inside the page.
    const QPoint sotto = p.cmdData->mapTo(p.pic, QPoint(0, p.cmdData->height() + 2));
    const int x = qBound(0, sotto.x() + p.cmdData->width() - p.mv->width(),
                         qMax(0, p.pic->width() - p.mv->width()));
    p.mv->move(x, sotto.y());
    p.mv->raise();
    p.mv->show();
    p.mv->setFocus();
}

void FrmAggManual::scegliData(int indice, const QDate &data) {
    const Pagina &p = m_pagine[std::size_t(indice)];
    mostraCalendario(indice, false);
    p.lblData->setText(SchedinaManuale::testoData(data, SchedinaManuale::tipo(indice)));
    p.cmbGiorni->setCurrentIndex(SchedinaManuale::indiceGiorno(data));
}

void FrmAggManual::caricaSchedine() {
    for (int i = 0; i < SchedinaManuale::Pagine; ++i) {
        const SchedinaManuale::Pagina letta =
            SchedinaManuale::carica(m_stato.PercorsoDati, SchedinaManuale::tipo(i));
        Pagina &p = m_pagine[std::size_t(i)];
        p.txtConcorso->setText(letta.concorso);
        // A blank coupon leaves the day of the list as it was.
        if (!letta.giorno.isEmpty()) {
            if (const int trovato = p.cmbGiorni->findText(letta.giorno); trovato >= 0)
                p.cmbGiorni->setCurrentIndex(trovato);
            else
                p.cmbGiorni->setEditText(letta.giorno);
        }
        p.lblData->setText(letta.data);
        p.mskOra->setText(letta.ora);
        for (std::size_t k = 0; k < letta.squadre.size(); ++k)
            for (std::size_t lato = 0; lato < 2; ++lato)
                p.squadre[k][lato]->setText(letta.squadre[k][lato]);
    }
}

void FrmAggManual::applica(int indice) {
    const Pagina &p = m_pagine[std::size_t(indice)];
    SchedinaManuale::Pagina pagina;
    pagina.concorso = p.txtConcorso->text();
    pagina.giorno = p.cmbGiorni->currentText();
    pagina.data = p.lblData->text();
    pagina.ora = p.mskOra->text();
    for (std::size_t k = 0; k < pagina.squadre.size(); ++k)
        for (std::size_t lato = 0; lato < 2; ++lato)
            pagina.squadre[k][lato] = p.squadre[k][lato]->text();
    SchedinaManuale::applica(m_stato.PercorsoDati, SchedinaManuale::tipo(indice), pagina);
    m_stato.dialoghi().informazione(Dialoghi::titoloApplicazione(), u"Modifiche effettuate."_s);
    MdiStile::finestraDi(this)->close();
}
