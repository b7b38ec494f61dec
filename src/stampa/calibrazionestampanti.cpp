#include "stampa/calibrazionestampanti.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

ErroreEsecuzione fuoriTabella() {
    return ErroreEsecuzione(u"Indice fuori dall'intervallo: le stampanti sono più di %1."_s.arg(
        CalibrazioneStampanti::Righe));
}

} // namespace

QString CalibrazioneStampanti::messaggioPrimoAvvio() {
    return u"Questa è la prima volta che è stata avviata la procedura di stampa. Effettuare la "
           "centratura della stampa prima di stampare le schedine."_s;
}

bool CalibrazioneStampanti::esiste(const QString &cartella) {
    return QFileInfo::exists(FileDati::percorso(cartella, nomeFile()));
}

CalibrazioneStampanti::Tabella CalibrazioneStampanti::crea(const QString &cartella,
                                                           const QStringList &stampanti) {
    if (stampanti.size() > Righe)
        throw fuoriTabella();
    Tabella tabella;
    QStringList righe;
    for (qsizetype i = 0; i < stampanti.size(); ++i) {
        tabella[i] = stampanti.at(i) + u",0,0"_s;
        righe.append(tabella[i]);
    }
    FileDati::scriviRighe(FileDati::percorso(cartella, nomeFile()), righe);
    return tabella;
}

CalibrazioneStampanti::Tabella CalibrazioneStampanti::leggi(const QString &cartella) {
    const QStringList righe = FileDati::leggiRighe(FileDati::percorso(cartella, nomeFile()));
    if (righe.size() > Righe)
        throw fuoriTabella();
    Tabella tabella;
    std::copy(righe.begin(), righe.end(), tabella.begin());
    return tabella;
}

std::optional<std::pair<QString, QString>>
CalibrazioneStampanti::scostamenti(const Tabella &tabella, const QString &stampante) {
    std::optional<std::pair<QString, QString>> trovati;
    for (const QString &riga : tabella) {
        if (riga.isEmpty())
            continue;
        const QStringList campi = riga.split(u',');
        if (campi.first() != stampante)
            continue;
        if (campi.size() < 3)
            throw ErroreEsecuzione(
                u"Indice fuori dall'intervallo: la riga \"%1\" di %2 non ha due virgole."_s.arg(
                    riga, nomeFile()));
        trovati = std::pair(campi.at(1), campi.at(2));
    }
    return trovati;
}

void CalibrazioneStampanti::aggiorna(Tabella &tabella, const QString &cartella,
                                     const QString &stampante, const QString &x, const QString &y) {
    Tabella nuova = tabella;
    for (QString &riga : nuova)
        if (!riga.isEmpty() && riga.split(u',').first() == stampante)
            riga = stampante + u',' + x + u',' + y;
    FileDati::scriviRighe(FileDati::percorso(cartella, nomeFile()),
                          QStringList(nuova.begin(), nuova.end()));
    tabella = nuova;
}
