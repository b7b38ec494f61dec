#include "core/cartelladati.h"
#include "core/mdipannello.h"
#include "core/mdiprogramma.h"
#include "piattaforma/dialoghiqt.h"

#include <QApplication>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    DialoghiQt dialoghi;
    Impostazioni impostazioni;
    Schermo schermo;
    MdiProgramma programma(CartellaDati::predefinita(), dialoghi, impostazioni, schermo);
    dialoghi.setGenitore(&programma.pannello());
    programma.pannello().resize(1280, 800);
    if (!programma.avvia())
        return 1;
    programma.pannello().showMaximized();
    return app.exec();
}
