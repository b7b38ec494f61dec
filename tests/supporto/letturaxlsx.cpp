#include "supporto/letturaxlsx.h"

#include "supporto/ambienteprova.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace LetturaXlsx {

namespace {

// The python3 that has openpyxl: the one on the PATH, else the system's (a PATH may put a
// private Python first, without the Debian modules). Empty when there is none.
QString interprete() {
    static const QString trovato = [] {
        QStringList candidati = {QStandardPaths::findExecutable(u"python3"_s),
                                 u"/usr/bin/python3"_s};
        candidati.removeAll(QString());
        candidati.removeDuplicates();
        for (const QString &python : std::as_const(candidati)) {
            QProcess p;
            p.start(python, {u"-c"_s, u"import openpyxl"_s});
            if (p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit &&
                p.exitCode() == 0)
                return python;
        }
        return QString();
    }();
    return trovato;
}

} // namespace

bool lettoreDisponibile() {
    return !interprete().isEmpty();
}

std::optional<Lettura> leggi(const QString &file) {
    QProcess p;
    p.start(interprete(), {AmbienteProva::datiProva() + u"/leggi_xlsx.py"_s, u"--tipi"_s,
                           u"--impaginazione"_s, file});
    if (!p.waitForFinished(120000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0) {
        qWarning("leggi_xlsx.py: %s", p.readAllStandardError().constData());
        return std::nullopt;
    }
    Lettura l;
    const QStringList righe = QString::fromUtf8(p.readAllStandardOutput()).split(u'\n');
    for (const QString &riga : righe) {
        if (riga.isEmpty())
            continue;
        const QStringList campi = riga.split(u'\t');
        if (campi.first() == u"!riquadro"_s && campi.size() == 2) {
            l.riquadro = campi.at(1);
            continue;
        }
        if (campi.first() == u"!larghezza"_s && campi.size() == 3) {
            bool ok = false;
            l.larghezze.insert(campi.at(1), campi.at(2).toDouble(&ok));
            if (!ok)
                return std::nullopt;
            continue;
        }
        const qsizetype t1 = riga.indexOf(u'\t');
        const qsizetype t2 = riga.indexOf(u'\t', t1 + 1);
        if (t1 < 0 || t2 < 0)
            return std::nullopt;
        const QString cella = riga.left(t1);
        l.tipi.insert(cella, riga.mid(t1 + 1, t2 - t1 - 1));
        l.valori.insert(cella, riga.mid(t2 + 1));
    }
    return l;
}

} // namespace LetturaXlsx
