#include "cornice/frmavviso.h"
#include "core/mdistile.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmAvviso::FrmAvviso(QSize risoluzione, QWidget *genitore)
    : QDialog(genitore) {
    setObjectName(u"frmAvviso"_s);
    setWindowTitle(u"ATTENZIONE!!"_s);
    setModal(true);

    auto *lblRis = new QLabel(
        u"La tua Risoluzione è %1x%2"_s.arg(risoluzione.width()).arg(risoluzione.height()), this);
    lblRis->setObjectName(u"lblRis"_s);
    MdiStile::grassetto(lblRis, 1.2);
    lblRis->setAlignment(Qt::AlignCenter);

    auto *lblMsg = new QLabel(
        u"La risoluzione del tuo schermo è insufficiente per utilizzare al meglio il programma. "
        "Si consiglia una risoluzione almeno di 1024x768 pixels. Consigliata: 1152x864. Il "
        "programma, comunque, partirà regolarmente."_s,
        this);
    lblMsg->setObjectName(u"lblMsg"_s);
    lblMsg->setWordWrap(true);
    lblMsg->setAlignment(Qt::AlignCenter);

    auto *cmdProcedi = new QPushButton(u"PROCEDI"_s, this);
    cmdProcedi->setObjectName(u"cmdProcedi"_s);
    cmdProcedi->setDefault(true);
    connect(cmdProcedi, &QPushButton::clicked, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(lblRis);
    layout->addWidget(lblMsg);
    layout->addWidget(cmdProcedi, 0, Qt::AlignHCenter);
    setFixedWidth(420);
}
