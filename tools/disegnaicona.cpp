// Draws the program's icon, a hand-written SVG, as a square PNG of the given side, so that the
// build makes every size the desktop asks for from one drawing.
//   disegnaicona <icona.svg> <lato in pixel> <icona.png>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

int main(int argc, char *argv[]) {
    QCoreApplication app(argc, argv);
    QTextStream err(stderr);
    const QStringList argomenti = app.arguments();
    if (argomenti.size() != 4) {
        err << "Uso: disegnaicona <icona.svg> <lato in pixel> <icona.png>\n";
        return 2;
    }
    bool ok = false;
    const int lato = argomenti.at(2).toInt(&ok);
    if (!ok || lato < 1 || lato > 4096) {
        err << "Errore: lato non valido: " << argomenti.at(2) << "\n";
        return 2;
    }
    QSvgRenderer disegno(argomenti.at(1));
    if (!disegno.isValid()) {
        err << "Errore: impossibile leggere il disegno " << argomenti.at(1) << "\n";
        return 1;
    }
    QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    {
        QPainter pittore(&immagine);
        pittore.setRenderHint(QPainter::Antialiasing);
        disegno.render(&pittore, QRectF(0, 0, lato, lato));
    }
    // An image with nothing drawn on it means a drawing Qt could not follow.
    bool vuota = true;
    for (int y = 0; y < lato && vuota; ++y)
        for (int x = 0; x < lato && vuota; ++x)
            vuota = qAlpha(immagine.pixel(x, y)) == 0;
    if (vuota) {
        err << "Errore: il disegno " << argomenti.at(1) << " non ha lasciato segni\n";
        return 1;
    }
    if (!immagine.save(argomenti.at(3), "PNG")) {
        err << "Errore: impossibile scrivere " << argomenti.at(3) << "\n";
        return 1;
    }
    return 0;
}
