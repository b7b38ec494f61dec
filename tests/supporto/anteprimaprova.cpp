#include "supporto/anteprimaprova.h"

#include "supporto/segnipdf.h"

#include "stampa/frmanteprima.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace AnteprimaProva {

FrmAnteprima *aperta() {
    const QWidgetList finestre = QApplication::topLevelWidgets();
    for (QWidget *w : finestre)
        if (w->objectName() == u"PrnPrv"_s && w->isVisible())
            return qobject_cast<FrmAnteprima *>(w);
    return nullptr;
}

void quandoAppareStampa(const std::function<void(QWidget *)> &azione) {
    auto *timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, azione] {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->objectName() == u"PrnPrn"_s && w->isVisible()) {
                timer->stop();
                timer->deleteLater();
                azione(w);
                return;
            }
    });
    timer->start();
}

int paginePdf(const QString &file) {
    return SegniPdf::paginePdf(SegniPdf::infoPdf(file));
}

} // namespace AnteprimaProva
