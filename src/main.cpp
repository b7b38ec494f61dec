#include "core/cartelladati.h"
#include "cornice/mdipannello.h"
#include "cornice/mdiprogramma.h"
#include "piattaforma/dialoghiqt.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

// The icon of the installed theme, so a theme can restyle it; otherwise the sizes built in.
QIcon iconaProgramma() {
    QIcon incorporata;
    const QDir cartella(QStringLiteral(":/icona"));
    for (const QString &nome : cartella.entryList(QDir::Files))
        incorporata.addFile(cartella.filePath(nome));
    return QIcon::fromTheme(QStringLiteral(VESPARA_ID), incorporata);
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral(VESPARA_ID));
    QApplication::setWindowIcon(iconaProgramma());
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
    // The frame's own tile gives way to the program's icon, which its screens then take.
    programma.pannello().setWindowIcon(QApplication::windowIcon());
    QObject::connect(&programma.pannello(), &MdiPannello::chiusa, &app, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    if (!programma.avvia())
        return 1;
    programma.pannello().mostra();
    return app.exec();
}
