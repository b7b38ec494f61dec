#include "schedine/schedinamanuale.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

using namespace Qt::StringLiterals;

SchedinaManuale::Pagina SchedinaManuale::carica(const QString &cartella, FileSchedine::Tipo tipo) {
    const QString file = FileDati::percorso(cartella, FileSchedine::fileSchedina(tipo));
    const QStringList righe = FileDati::leggiRighe(file);
    Pagina p;
    for (qsizetype n = 0; n < righe.size() && n < FileSchedine::RigheSchedina; ++n) {
        if (n == 0) {
            const auto testa = FileSchedine::leggiIntestazione(righe.at(0));
            if (!testa)
                break;
            p.concorso = testa->concorso;
            p.giorno = testa->giorno;
            p.data = testa->data;
            p.ora = testa->ora;
            continue;
        }
        const QStringList pezzi = righe.at(n).split(u'-');
        if (pezzi.size() < 3)
            throw ErroreEsecuzione(
                u"La riga %1 del file %2, \"%3\", non ha le due squadre "
                "separate da \"-\"."_s.arg(QString::number(n + 1), file, righe.at(n)));
        auto &partita = p.squadre[std::size_t(n - 1)];
        partita[0] = pezzi.at(1);
        partita[1] = n == FileSchedine::Partite ? pezzi.at(2).trimmed() : pezzi.at(2);
    }
    return p;
}

void SchedinaManuale::applica(const QString &cartella, FileSchedine::Tipo tipo,
                              const Pagina &pagina) {
    FileSchedine::scriviSchedina(
        cartella, tipo, {pagina.concorso, pagina.giorno, pagina.data, pagina.ora}, pagina.squadre);
}

QString SchedinaManuale::testoData(const QDate &data, FileSchedine::Tipo tipo) {
    if (tipo == FileSchedine::Tipo::Domenica)
        return u"%1/%2/%3"_s.arg(data.day()).arg(data.month()).arg(data.year());
    return data.toString(u"dd/MM/yyyy"_s);
}

int SchedinaManuale::indiceGiorno(const QDate &data) {
    return data.dayOfWeek() - 1;
}
