#include "core/cartelladati.h"
#include "cornice/mdipannello.h"
#include "cornice/mdiprogramma.h"
#include "piattaforma/dialoghiqt.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    // Qt's own texts (buttons of the boxes, the file dialog) in Italian, like the program's.
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QTranslator traduzioneQt;
    if (traduzioneQt.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&traduzioneQt);

    DialoghiQt dialoghi;
    Impostazioni impostazioni;
    Schermo schermo;
    MdiProgramma programma(CartellaDati::predefinita(), dialoghi, impostazioni, schermo);
    dialoghi.setGenitore(&programma.pannello());
    programma.pannello().resize(1280, 800);
    QObject::connect(&programma.pannello(), &MdiPannello::chiusa, &app, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    if (!programma.avvia())
        return 1;
    programma.pannello().mostra();
    return app.exec();
}
