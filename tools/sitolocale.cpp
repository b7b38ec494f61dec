// The local update site: serves a folder over HTTP on loopback, so that every update of Vespara
// can be tried on one machine.
//   sitolocale <cartella del sito> [porta]
// Then start Vespara with VESPARA_SITO=http://127.0.0.1:<porta> (8641 when not given).

#include "piattaforma/rete.h"
#include "piattaforma/serverhttp.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

int main(int argc, char *argv[]) {
    QCoreApplication app(argc, argv);
    QTextStream err(stderr);
    QTextStream out(stdout);
    const QStringList argomenti = app.arguments();
    const QString uso = QStringLiteral(
        "Uso: sitolocale <cartella del sito> [porta]\n"
        "Serve la cartella (costruita da creasitolocale) su http://127.0.0.1:<porta>, 8641 se non "
        "è data.\nAvviare poi Vespara con VESPARA_SITO=http://127.0.0.1:<porta>.\n");
    if (argomenti.size() == 2 && (argomenti.at(1) == u"--help" || argomenti.at(1) == u"-h")) {
        out << uso;
        return 0;
    }
    if (argomenti.size() < 2 || argomenti.size() > 3) {
        err << uso;
        return 2;
    }
    const QString cartella = argomenti.at(1);
    if (!QDir(cartella).exists()) {
        err << "Errore: la cartella " << cartella << " non esiste.\n";
        return 1;
    }
    bool ok = true;
    const quint16 porta =
        argomenti.size() == 3 ? quint16(argomenti.at(2).toUInt(&ok)) : Rete::PortaSitoLocale;
    if (!ok) {
        err << "Errore: porta non valida: " << argomenti.at(2) << "\n";
        return 2;
    }
    ServerHttp server(QDir(cartella).absolutePath());
    if (!server.avvia(porta)) {
        err << "Errore: impossibile ascoltare sulla porta " << porta << ".\n";
        return 1;
    }
    out << "Sito locale di Vespara su " << server.radice() << " (cartella "
        << QDir::toNativeSeparators(server.cartella()) << ")\n"
        << "Avviare Vespara con VESPARA_SITO=" << server.radice() << "\n";
    out.flush();
    return app.exec();
}
