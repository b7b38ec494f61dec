#include "campionati/mdiopzioniserie.h"

#include "campionati/leghe.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

QButtonGroup *MdiOpzioniSerie::crea(QWidget *schermo, QGroupBox *&riquadro,
                                    const std::function<QString(int)> &suggerimento) {
    static const char *const Nomi[] = {"optA", "optB", "opt1A", "opt1B", "opt2A", "opt2B", "opt2C"};
    riquadro = new QGroupBox(u"Campionato"_s, schermo);
    riquadro->setObjectName(u"fraSerie"_s);
    auto *colonna = new QVBoxLayout(riquadro);
    auto *gruppo = new QButtonGroup(schermo);
    for (int i = 0; i < int(Leghe::italiane().size()); ++i) {
        auto *opzione =
            new QRadioButton(QString::fromLatin1(Leghe::italiane()[std::size_t(i)].nome), riquadro);
        opzione->setObjectName(QString::fromLatin1(Nomi[i]));
        opzione->setChecked(i == 0);
        opzione->setToolTip(suggerimento(i));
        gruppo->addButton(opzione, i);
        colonna->addWidget(opzione);
    }
    return gruppo;
}
