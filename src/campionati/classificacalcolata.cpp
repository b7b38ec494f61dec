#include "campionati/classificacalcolata.h"

#include <algorithm>

using namespace Qt::StringLiterals;
#include <map>

void ClassificaCalcolata::Parziale::aggiungi(int f, int s) {
    ++giocate;
    vinte += f > s;
    pari += f == s;
    perse += f < s;
    fatti += f;
    subiti += s;
}

ClassificaCalcolata::Parziale ClassificaCalcolata::Parziale::operator+(const Parziale &o) const {
    return {giocate + o.giocate, vinte + o.vinte, pari + o.pari,
            perse + o.perse,     fatti + o.fatti, subiti + o.subiti};
}

QString ClassificaCalcolata::intestazione(const Leghe::Lega &lega, const QDate &data) {
    const QString giorno = data.toString(u"dd/MM/yyyy");
    if (!lega.italiana)
        return u"Campionato %1 - Aggiornata al %2"_s.arg(QString::fromLatin1(lega.nome), giorno);
    return u"Campionato Serie %1 - Classifica aggiornata al %2"_s.arg(
        QString::fromLatin1(lega.codice), giorno);
}

QString ClassificaCalcolata::intestazioneVuota(const Leghe::Lega &lega) {
    return u"Campionato %1%2 - Nessuna squadra in classifica"_s.arg(
        lega.italiana ? u"Serie "_s : QString(),
        QString::fromLatin1(lega.italiana ? lega.codice : lega.nome));
}

bool ClassificaCalcolata::precede(const Squadra &a, const Squadra &b) {
    const Parziale ta = a.totale(), tb = b.totale();
    if (a.punti() != b.punti())
        return a.punti() > b.punti();
    if (ta.fatti - ta.subiti != tb.fatti - tb.subiti)
        return ta.fatti - ta.subiti > tb.fatti - tb.subiti;
    if (ta.fatti != tb.fatti)
        return ta.fatti > tb.fatti;
    return a.nome < b.nome;
}

ClassificaCalcolata::Risultato
ClassificaCalcolata::calcola(const QList<PartiteReali::Partita> &partite, const QString &stagione,
                             const QString &lega) {
    std::map<QString, Squadra> squadre;
    Risultato r;
    for (const PartiteReali::Partita &p : partite) {
        if (p.stagione != stagione || p.lega != lega)
            continue;
        ++r.partite;
        Squadra &casa = squadre[p.casa.toUpper()];
        casa.nome = p.casa.toUpper();
        casa.casa.aggiungi(p.golCasa, p.golOspite);
        Squadra &ospite = squadre[p.ospite.toUpper()];
        ospite.nome = p.ospite.toUpper();
        ospite.fuori.aggiungi(p.golOspite, p.golCasa);
        r.ultima = std::max(r.ultima, p.data);
    }
    for (const auto &[nome, s] : squadre)
        r.squadre.append(s);
    std::sort(r.squadre.begin(), r.squadre.end(), precede);
    return r;
}

namespace {

void campi(FileCampionati::RigaClassifica &riga, int da, const ClassificaCalcolata::Parziale &p) {
    int k = da;
    for (const int n : {p.giocate, p.vinte, p.pari, p.perse, p.fatti, p.subiti})
        riga[k++] = QString::number(n);
}

} // namespace

FileCampionati::RigaClassifica ClassificaCalcolata::riga(int posizione, const Squadra &s) {
    FileCampionati::RigaClassifica r;
    r[0] = QString::number(posizione);
    r[1] = s.nome;
    r[2] = QString::number(s.punti());
    campi(r, 3, s.totale());
    campi(r, 9, s.casa);
    campi(r, 15, s.fuori);
    return r;
}

FileCampionati::RigaClassifica ClassificaCalcolata::rigaVuota(int posizione) {
    FileCampionati::RigaClassifica r;
    r[0] = QString::number(posizione);
    r[9] = QStringLiteral("-");
    r[15] = QStringLiteral("-");
    return r;
}

QList<FileCampionati::RigaClassifica> ClassificaCalcolata::righe(const QList<Squadra> &squadre,
                                                                 int numero) {
    QList<FileCampionati::RigaClassifica> righe;
    for (int i = 0; i < numero; ++i)
        righe.append(i < squadre.size() ? riga(i + 1, squadre.at(i)) : rigaVuota(i + 1));
    return righe;
}

QStringList ClassificaCalcolata::calendario(const QList<PartiteReali::Partita> &partite,
                                            const QString &stagione, const QString &codiceLega,
                                            const Leghe::Lega &lega) {
    std::map<int, QList<PartiteReali::Partita>> giornate;
    for (const PartiteReali::Partita &p : partite)
        if (p.stagione == stagione && p.lega == codiceLega && p.giornata <= lega.giornate)
            giornate[p.giornata].append(p);
    QStringList righe;
    for (auto &[numero, incontri] : giornate) {
        std::stable_sort(incontri.begin(), incontri.end(),
                         [](const auto &a, const auto &b) { return a.data < b.data; });
        righe << u"*"_s
              << u"%1ª Giornata - %2"_s.arg(numero).arg(
                     incontri.first().data.toString(u"dd/MM/yyyy"));
        for (qsizetype i = 0; i < incontri.size() && i < lega.stringheGiornata - 1; ++i) {
            const PartiteReali::Partita &p = incontri.at(i);
            const QChar segno = p.golCasa > p.golOspite    ? u'1'
                                : p.golCasa == p.golOspite ? u'X'
                                                           : u'2';
            righe << p.casa.toUpper() + u'-' + p.ospite.toUpper() + segno;
        }
    }
    return righe;
}

QStringList ClassificaCalcolata::calendarioVuoto() {
    return {u"*"_s, u"Calendario non ancora disponibile"_s};
}
