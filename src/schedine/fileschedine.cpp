#include "schedine/fileschedine.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

QString nome(FileSchedine::Tipo tipo, const char *infrasettimanale, const char *sabato,
             const char *domenica) {
    switch (tipo) {
    case FileSchedine::Tipo::Infrasettimanale:
        return QString::fromLatin1(infrasettimanale);
    case FileSchedine::Tipo::Sabato:
        return QString::fromLatin1(sabato);
    case FileSchedine::Tipo::Domenica:
        break;
    }
    return QString::fromLatin1(domenica);
}

QString nativo(const QString &cartella, const QString &file) {
    return QDir::toNativeSeparators(FileDati::percorso(cartella, file));
}

} // namespace

QString FileSchedine::fileSchedina(Tipo tipo) {
    return nome(tipo, "SchedinaProssimoConcorso.txt", "SchedinaSabato.txt", "SchedinaDomenica.txt");
}

QString FileSchedine::filePicchetto(Tipo tipo) {
    return nome(tipo, "Picchetto.txt", "PicchettoSabato.txt", "PicchettoDomenica.txt");
}

QString FileSchedine::filePronostico(Tipo tipo) {
    return nome(tipo, "Pronostico.txt", "PronosticoSabato.txt", "PronosticoDomenica.txt");
}

QString FileSchedine::intestazione(const Intestazione &c) {
    return u"Concorso n. "_s + c.concorso + u" del "_s + c.giorno + u' ' + c.data + u" Ore "_s +
           c.ora;
}

std::optional<FileSchedine::Intestazione> FileSchedine::leggiIntestazione(const QString &riga) {
    const QStringList t = riga.split(u' ');
    if (t.size() > 2 && t.at(2) == QLatin1StringView(ConcorsoVuoto))
        return std::nullopt;
    if (t.size() < 8)
        throw ErroreEsecuzione(u"L'intestazione della schedina \"%1\" non ha le otto parti "
                               "\"Concorso n. numero del giorno data Ore ora\"."_s.arg(riga));
    return Intestazione{t.at(2), t.at(4), t.at(5), t.at(7)};
}

QString FileSchedine::rigaPartita(int numero, const QString &casa, const QString &ospite) {
    return QString::number(numero) + u'-' + casa.toUpper() + u'-' + ospite.toUpper() + u'-';
}

FileSchedine::Schedina FileSchedine::leggiSchedina(const QString &cartella, Tipo tipo) {
    const QStringList righe =
        FileDati::leggiRighe(FileDati::percorso(cartella, fileSchedina(tipo)));
    Schedina s;
    for (qsizetype n = 0; n < righe.size() && n < RigheSchedina; ++n) {
        const QStringList pezzi = righe.at(n).split(u'-');
        if (n == 0) {
            s.intestazione = pezzi.first();
            continue;
        }
        QStringList puliti;
        for (const QString &pezzo : pezzi)
            puliti.append(pezzo.trimmed());
        s.partite.append(puliti);
    }
    return s;
}

void FileSchedine::scriviSchedina(const QString &cartella, Tipo tipo, const Intestazione &testa,
                                  const Squadre &squadre) {
    QStringList righe{intestazione(testa)};
    for (int k = 0; k < Partite; ++k)
        righe.append(rigaPartita(k + 1, squadre[k][0], squadre[k][1]));
    FileDati::scriviRighe(FileDati::percorso(cartella, fileSchedina(tipo)), righe);
}

std::array<FileSchedine::Percentuali, FileSchedine::Partite>
FileSchedine::leggiPicchetto(const QString &cartella, Tipo tipo) {
    const QStringList righe =
        FileDati::leggiRighe(FileDati::percorso(cartella, filePicchetto(tipo)));
    if (righe.size() < RighePicchetto)
        throw ErroreEsecuzione(u"Il file %1 ha %2 righe: il picchetto ne conta %3."_s.arg(
            nativo(cartella, filePicchetto(tipo)), QString::number(righe.size()),
            QString::number(RighePicchetto)));
    std::array<Percentuali, Partite> picchetto;
    for (int k = 0; k < Partite; ++k) {
        const QStringList pezzi = righe.at(k + 1).split(u'-');
        if (pezzi.size() < 6)
            throw ErroreEsecuzione(
                u"La riga %1 del file %2, \"%3\", non ha le percentuali di 1, X e 2."_s.arg(
                    QString::number(k + 2), nativo(cartella, filePicchetto(tipo)),
                    righe.at(k + 1)));
        picchetto[k] = {pezzi.at(3), pezzi.at(4), pezzi.at(5).trimmed()};
    }
    return picchetto;
}

QStringList FileSchedine::leggiPronostico(const QString &cartella, Tipo tipo) {
    const QStringList righe =
        FileDati::leggiRighe(FileDati::percorso(cartella, filePronostico(tipo)));
    if (righe.size() > Partite)
        throw ErroreEsecuzione(u"Il file %1 ha %2 righe: il pronostico ne conta al più %3."_s.arg(
            nativo(cartella, filePronostico(tipo)), QString::number(righe.size()),
            QString::number(Partite)));
    return righe;
}

void FileSchedine::scriviPronostico(const QString &cartella, Tipo tipo, const QStringList &righe) {
    FileDati::scriviRighe(FileDati::percorso(cartella, filePronostico(tipo)), righe);
}
