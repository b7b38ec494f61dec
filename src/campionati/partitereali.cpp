#include "campionati/partitereali.h"

#include "campionati/leghe.h"
#include "piattaforma/erroreesecuzione.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>

#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const auto Intestazione = u"stagione;lega;giornata;data;casa;ospite;gol_casa;gol_ospite"_s;
constexpr int NumeroCampi = 8;

int leggiGol(const QString &testo, int riga) {
    static const QRegularExpression cifre(u"^[0-9]{1,2}$"_s);
    if (!cifre.match(testo).hasMatch())
        throw ErroreEsecuzione(u"Riga %1: punteggio non valido \"%2\"."_s.arg(riga).arg(testo));
    return testo.toInt();
}

PartiteReali::Partita leggiPartita(const QString &linea, int riga) {
    const QStringList campi = linea.split(u';');
    if (campi.size() != NumeroCampi)
        throw ErroreEsecuzione(
            u"Riga %1: %2 campi invece di %3."_s.arg(riga).arg(campi.size()).arg(NumeroCampi));
    PartiteReali::Partita p;
    p.riga = riga;
    p.stagione = campi.at(0).trimmed();
    // "2024-25" for a season across two years, "2025" for a league that plays a calendar year.
    static const QRegularExpression formaStagione(u"^([0-9]{4})(?:-([0-9]{2}))?$"_s);
    const auto stagione = formaStagione.match(p.stagione);
    if (!stagione.hasMatch() ||
        (!stagione.captured(2).isEmpty() &&
         (stagione.captured(1).toInt() + 1) % 100 != stagione.captured(2).toInt()))
        throw ErroreEsecuzione(u"Riga %1: stagione non valida \"%2\"."_s.arg(riga).arg(p.stagione));

    p.lega = campi.at(1).trimmed();
    static const QStringList leghe = [] {
        QStringList l{u"A"_s, u"B"_s, u"CA"_s, u"CB"_s, u"CC"_s};
        for (const Leghe::Lega &straniera : Leghe::straniere())
            l.append(QString::fromLatin1(straniera.codice));
        return l;
    }();
    if (!leghe.contains(p.lega))
        throw ErroreEsecuzione(u"Riga %1: lega sconosciuta \"%2\"."_s.arg(riga).arg(p.lega));

    bool ok = false;
    p.giornata = campi.at(2).trimmed().toInt(&ok);
    if (!ok || p.giornata < 1)
        throw ErroreEsecuzione(
            u"Riga %1: giornata non valida \"%2\"."_s.arg(riga).arg(campi.at(2)));

    p.data = QDate::fromString(campi.at(3).trimmed(), Qt::ISODate);
    if (!p.data.isValid())
        throw ErroreEsecuzione(u"Riga %1: data non valida \"%2\"."_s.arg(riga).arg(campi.at(3)));

    p.casa = campi.at(4).trimmed();
    p.ospite = campi.at(5).trimmed();
    if (p.casa.isEmpty() || p.ospite.isEmpty())
        throw ErroreEsecuzione(u"Riga %1: manca il nome di una squadra."_s.arg(riga));

    p.golCasa = leggiGol(campi.at(6).trimmed(), riga);
    p.golOspite = leggiGol(campi.at(7).trimmed(), riga);
    return p;
}

} // namespace

const QString &PartiteReali::intestazione() {
    return Intestazione;
}

QList<PartiteReali::Partita> PartiteReali::leggi(const QString &percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        throw ErroreEsecuzione(u"Impossibile leggere il file %1: %2"_s.arg(
            QDir::toNativeSeparators(percorso), file.errorString()));
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString testo = utf8(file.readAll());
    if (utf8.hasError())
        throw ErroreEsecuzione(
            u"Il file %1 non è testo UTF-8."_s.arg(QDir::toNativeSeparators(percorso)));

    QStringList linee = testo.split(u'\n');
    for (QString &linea : linee)
        if (linea.endsWith(u'\r'))
            linea.chop(1);
    if (linee.isEmpty() || linee.first().trimmed() != Intestazione)
        throw ErroreEsecuzione(u"Il file %1 non comincia con l'intestazione \"%2\"."_s.arg(
            QDir::toNativeSeparators(percorso), Intestazione));

    QList<Partita> partite;
    for (int i = 1; i < linee.size(); ++i)
        if (!linee.at(i).trimmed().isEmpty())
            partite.append(leggiPartita(linee.at(i), i + 1));
    if (partite.isEmpty())
        throw ErroreEsecuzione(
            u"Il file %1 non contiene partite."_s.arg(QDir::toNativeSeparators(percorso)));
    return partite;
}

QStringList PartiteReali::correggiDate(QList<Partita> &partite) {
    std::map<std::pair<QString, QString>, QDate> apertura;
    for (const Partita &p : std::as_const(partite)) {
        if (p.giornata != 1)
            continue;
        QDate &d = apertura[{p.stagione, p.lega}];
        if (!d.isValid() || p.data < d)
            d = p.data;
    }
    std::map<std::pair<QString, QString>, int> corrette;
    for (Partita &p : partite) {
        const auto trovata = apertura.find({p.stagione, p.lega});
        if (trovata == apertura.end() || p.data >= trovata->second)
            continue;
        const QDate nuova = p.data.addYears(1);
        if (nuova < trovata->second)
            throw ErroreEsecuzione(
                u"Riga %1: la data %2 è fuori dalla stagione %3."_s.arg(p.riga).arg(
                    p.data.toString(Qt::ISODate), p.stagione));
        p.data = nuova;
        ++corrette[{p.stagione, p.lega}];
    }
    QStringList righe;
    for (const auto &[chiave, numero] : corrette)
        righe.append(u"Corrette %1 date di %2 lega %3: precedevano l'inizio della stagione, "
                     u"anno spostato di uno."_s.arg(numero)
                         .arg(chiave.first, chiave.second));
    return righe;
}
