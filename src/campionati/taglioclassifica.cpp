#include "campionati/taglioclassifica.h"

#include "piattaforma/erroreesecuzione.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<TaglioClassifica::Voce, 12> Voci{{
    {"Inghilterra", "1/12 (Inghilterra)", "mnuInghilterra", "/vespara/linkInghilterra.html",
     "classInghilterra.txt", "Campionato Inghilterra - Aggiornata al "},
    {"ArgentinaAp", "2/12 (Argentina)", "mnuArgentinaAp", "/vespara/linkArgentina.html",
     "classArgentinaAP.txt", "Campionato Argentina - Aggiornata al "},
    {"Austria", "3/12 (Austria)", "mnuAustria", "/vespara/linkAustria.html", "classAustria.txt",
     "Campionato Austria - Aggiornata al "},
    {"Francia", "4/12 (Francia)", "mnuFrancia", "/vespara/linkFrancia.html", "classFrancia.txt",
     "Campionato Francia - Aggiornata al "},
    // Germania's heading says "Francia": that is what the file has always said.
    {"Germania", "5/12 (Germania)", "mnuGermania", "/vespara/linkGermania.html",
     "classGermania.txt", "Campionato Francia - Aggiornata al "},
    {"Grecia", "6/12 (Grecia)", "mnuGrecia", "/vespara/linkGrecia.html", "classGrecia.txt",
     "Campionato Grecia - Aggiornata al "},
    {"Olanda", "7/12 (Olanda)", "mnuOlanda", "/vespara/linkOlanda.html", "classOlanda.txt",
     "Campionato Olanda - Aggiornata al "},
    {"Portogallo", "8/12 (Portogallo)", "mnuPortogallo", "/vespara/linkPortogallo.html",
     "classPortogallo.txt", "Campionato Portogallo - Aggiornata al "},
    {"Scozia", "9/12 (Scozia)", "mnuScozia", "/vespara/linkScozia.html", "classScozia.txt",
     "Campionato Scozia - Aggiornata al "},
    {"Spagna", "10/12 (Spagna)", "mnuSpagna", "/vespara/linkSpagna.html", "classSpagna.txt",
     "Campionato Spagna - Aggiornata al "},
    {"Svizzera", "11/12 (Svizzera)", "mnuSvizzera", "/vespara/linkSvizzera.html",
     "classSvizzera.txt", "Campionato Svizzera - Aggiornata al "},
    {"Belgio", "12/12 (Belgio)", "mnuBelgio", "/vespara/linkBelgio.html", "classBelgio.txt",
     "Campionato Belgio - Aggiornata al "},
}};

} // namespace

std::span<const TaglioClassifica::Voce> TaglioClassifica::voci() {
    return Voci;
}

const TaglioClassifica::Voce *TaglioClassifica::perCodice(const QString &codice) {
    for (const Voce &v : Voci)
        if (codice == QLatin1StringView(v.codice))
            return &v;
    return nullptr;
}

QString TaglioClassifica::nome(const Voce &voce) {
    const Leghe::Lega *lega = Leghe::perCodice(QString::fromLatin1(voce.codice));
    return lega ? QString::fromLatin1(lega->nome) : QString::fromLatin1(voce.codice);
}

QList<TaglioClassifica::Riga> TaglioClassifica::taglia(const QStringList &righePagina, int righe) {
    if (righePagina.size() > MassimoRighePagina)
        throw ErroreEsecuzione(u"La pagina della classifica ha %1 righe: se ne leggono al "
                               "massimo %2."_s.arg(righePagina.size())
                                   .arg(MassimoRighePagina));
    QString lineaTabella;
    for (const QString &riga : righePagina)
        if (riga.contains(Marcatore)) {
            lineaTabella = riga;
            break;
        }
    QList<Riga> tabella(righe);
    // Piece 0 is what lies ahead of the first row.
    const QStringList pezzi = lineaTabella.split(u"&nbsp;"_s);
    if (pezzi.size() - 1 > righe)
        throw ErroreEsecuzione(u"La pagina della classifica ha %1 righe: la classifica ne ha %2."_s
                                   .arg(pezzi.size() - 1)
                                   .arg(righe));
    for (qsizetype i = 1; i < pezzi.size(); ++i) {
        const QString &pezzo = pezzi.at(i);
        Riga &riga = tabella[i - 1];
        // A row that starts with a blank has no team; the team runs to the first "</TD>" (to the
        // end of a row without one).
        if (!pezzo.startsWith(u' ')) {
            const qsizetype fine = pezzo.indexOf(u"</TD>"_s);
            riga[0] = fine < 0 ? pezzo : pezzo.left(fine);
        }
        const QStringList parti = pezzo.split(u"=20>"_s);
        if (parti.size() - 1 > CelleNumeriche)
            throw ErroreEsecuzione(u"La riga %1 della pagina della classifica ha %2 numeri: ne "
                                   "può avere %3."_s.arg(i)
                                       .arg(parti.size() - 1)
                                       .arg(CelleNumeriche));
        for (qsizetype j = 1; j < parti.size(); ++j) {
            QString cella = parti.at(j);
            if (const qsizetype spazio = cella.indexOf(u' '); spazio >= 0)
                cella.truncate(spazio);
            riga[j] = cella.remove(u"</TD>"_s);
        }
    }
    return tabella;
}

QStringList TaglioClassifica::pagina(const FileCampionati::Classifica &classifica,
                                     const QString &titolo) {
    QString linea = u"<TABLE id=\"lbRigheClassifica\" border=1><TR><TD>Squadra</TD></TR>"_s;
    for (const FileCampionati::RigaClassifica &r : classifica.righe) {
        linea += u"&nbsp;"_s + r[1] + u"</TD>"_s;
        // The 17 numbers: points and totals, then the home and away figures without their games.
        for (int k = 2; k <= 20; ++k)
            if (k != 9 && k != 15)
                linea += u" <TD align=center width=20>"_s + r[k] + u"</TD>"_s;
    }
    // A blank ends the last cell, as it ends every other.
    linea += u" </TABLE>"_s;
    return {u"<HTML><HEAD><TITLE>"_s + titolo + u"</TITLE></HEAD><BODY>"_s,
            u"<H1>"_s + titolo + u"</H1>"_s, linea, u"</BODY></HTML>"_s};
}

QString TaglioClassifica::percorsoPagina(const Voce &voce) {
    return u"/vespara/estere/%1.html"_s.arg(QString::fromLatin1(voce.codice));
}

FileCampionati::Classifica TaglioClassifica::classifica(const QList<Riga> &tabella,
                                                        const Voce &voce, const QDateTime &adesso) {
    FileCampionati::Classifica c;
    c.intestazione = QString::fromLatin1(voce.intestazione) +
                     QLocale::system().toString(adesso, QLocale::ShortFormat);
    for (qsizetype i = 0; i < tabella.size(); ++i) {
        const Riga &t = tabella.at(i);
        FileCampionati::RigaClassifica r;
        r[0] = QString::number(i + 1);
        r[1] = t[0];
        // Points and the six totals; then "-" for the games at home and five home figures; then
        // "-" for the games away and five away figures.
        for (int k = 1; k <= 7; ++k)
            r[1 + k] = t[k];
        r[9] = u"-"_s;
        for (int k = 8; k <= 12; ++k)
            r[2 + k] = t[k];
        r[15] = u"-"_s;
        for (int k = 13; k <= 17; ++k)
            r[3 + k] = t[k];
        c.righe.append(r);
    }
    return c;
}

void TaglioClassifica::scrivi(const QString &cartella, const Leghe::Lega &lega, const Voce &voce,
                              const QList<Riga> &tabella, const QDateTime &adesso) {
    FileCampionati::scriviClassifica(cartella, lega, classifica(tabella, voce, adesso));
    QStringList squadre;
    for (const Riga &r : tabella)
        squadre.append(r[0]);
    FileCampionati::scriviSquadreStraniere(cartella, lega, squadre);
}
