// Builds the delivered data folder (dati/) from real results: the archive of winning columns, the
// team lists and the marker files from the Italian leagues, and the league tables of the Italian
// series and of the foreign leagues. Run by hand; its output is committed.
//
//   creadaticonsegnati <partite-italia.csv> <partite-estere.csv> <cartella di uscita>

#include "campionati/classificacalcolata.h"
#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/partitereali.h"
#include "core/colonna.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTextStream>

#include <algorithm>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The seasons that make the archive, by their first year, and the seasons of the team lists.
constexpr int PrimaStagioneArchivio = 2013;
constexpr int UltimaStagioneArchivio = 2025;
const auto StagioneCorrente = u"2025-26"_s;
const auto StagioneSerieC = u"2024-25"_s;

// A column is the 10 matches of a Serie A round, then the first 4 of the Serie B round.
constexpr int PartiteSerieA = 10;
constexpr int PartiteSerieB = 4;

using Partita = PartiteReali::Partita;

QTextStream &uscita() {
    static QTextStream flusso(stdout);
    return flusso;
}

int primoAnno(const QString &stagione) {
    return stagione.left(4).toInt();
}

using Giornate = std::map<std::pair<QString, int>, QList<Partita>>;

// The matches of a league by season and round, each round in date order (ties keep file order).
Giornate giornate(const QList<Partita> &partite, const QString &lega) {
    Giornate g;
    for (const Partita &p : partite)
        if (p.lega == lega)
            g[{p.stagione, p.giornata}].append(p);
    for (auto &[chiave, lista] : g)
        std::stable_sort(lista.begin(), lista.end(),
                         [](const Partita &a, const Partita &b) { return a.data < b.data; });
    return g;
}

QChar segno(const Partita &p) {
    return p.golCasa > p.golOspite ? u'1' : p.golCasa == p.golOspite ? u'X' : u'2';
}

QStringList righeArchivio(const QList<Partita> &partite, int &escluse) {
    const Giornate serieA = giornate(partite, u"A"_s);
    const Giornate serieB = giornate(partite, u"B"_s);
    QStringList righe;
    int ultimoAnno = 0;
    int concorso = 0;
    escluse = 0;
    for (const auto &[chiave, partiteA] : serieA) {
        const auto &[stagione, giornata] = chiave;
        if (primoAnno(stagione) < PrimaStagioneArchivio ||
            primoAnno(stagione) > UltimaStagioneArchivio)
            continue;
        const QString nome = u"Serie A %1 giornata %2"_s.arg(stagione).arg(giornata);
        if (partiteA.size() != PartiteSerieA) {
            uscita() << u"Esclusa %1: %2 partite invece di %3.\n"_s.arg(nome)
                            .arg(partiteA.size())
                            .arg(PartiteSerieA);
            ++escluse;
            continue;
        }
        const auto trovataB = serieB.find(chiave);
        const qsizetype quanteB = trovataB == serieB.end() ? 0 : trovataB->second.size();
        if (quanteB < PartiteSerieB) {
            uscita() << u"Esclusa %1: la giornata %2 di Serie B ha %3 partite (ne servono %4).\n"_s
                            .arg(nome)
                            .arg(giornata)
                            .arg(quanteB)
                            .arg(PartiteSerieB);
            ++escluse;
            continue;
        }

        QString colonna;
        for (const Partita &p : partiteA)
            colonna += segno(p);
        for (int i = 0; i < PartiteSerieB; ++i)
            colonna += segno(trovataB->second.at(i));

        const int anno = partiteA.first().data.year();
        if (anno < ultimoAnno)
            throw ErroreEsecuzione(
                u"%1 comincia nel %2, prima del concorso precedente (%3)."_s.arg(nome)
                    .arg(anno)
                    .arg(ultimoAnno));
        concorso = anno == ultimoAnno ? concorso + 1 : 1;
        ultimoAnno = anno;
        righe.append(
            Colonna::rigaArchivio(QString::number(anno), QString::number(concorso), colonna));
    }
    return righe;
}

// The teams of one league and season, upper case, in plain character order, without repeats.
QStringList squadre(const QList<Partita> &partite, const QString &stagione, const QString &lega) {
    QSet<QString> insieme;
    for (const Partita &p : partite)
        if (p.stagione == stagione && p.lega == lega) {
            insieme.insert(p.casa.toUpper());
            insieme.insert(p.ospite.toUpper());
        }
    if (insieme.isEmpty())
        throw ErroreEsecuzione(
            u"Nessuna partita della lega %1 nella stagione %2."_s.arg(lega, stagione));
    QStringList lista(insieme.begin(), insieme.end());
    std::sort(lista.begin(), lista.end());
    // The data files are Latin-1: a name the writer could not hold would come out garbled.
    for (const QString &nome : std::as_const(lista))
        for (const QChar c : nome)
            if (c.unicode() > 0xFF)
                throw ErroreEsecuzione(
                    u"La squadra \"%1\" ha un carattere che Latin-1 non rappresenta."_s.arg(nome));
    return lista;
}

void scrivi(const QDir &cartella, const QString &nome, const QStringList &righe,
            const QString &descrizione) {
    FileDati::scriviRighe(cartella.filePath(nome), righe);
    uscita() << u"Scritto %1: %2 righe (%3).\n"_s.arg(nome).arg(righe.size()).arg(descrizione);
}

// The season and the league of the results that make each Italian table; C2B and C2C have none.
struct FonteClassifica {
    const char *codice;
    const QString &stagione;
    const char16_t *lega;
};

void scriviClassifica(const QDir &cartella, const Leghe::Lega &lega,
                      const ClassificaCalcolata::Risultato &r, const QString &intestazione,
                      const QString &descrizione) {
    QList<FileCampionati::RigaClassifica> righe =
        ClassificaCalcolata::righe(r.squadre, lega.righeClassifica);
    // A foreign table has "-" for the games at home and away, as the foreign update writes it.
    if (!lega.italiana)
        for (FileCampionati::RigaClassifica &riga : righe)
            riga[9] = riga[15] = u"-"_s;
    FileCampionati::scriviClassifica(cartella.path(), lega, {intestazione, righe});
    uscita() << u"Scritto %1: %2 squadre su %3 righe (%4).\n"_s.arg(Leghe::fileClassifica(lega))
                    .arg(std::min<qsizetype>(r.squadre.size(), lega.righeClassifica))
                    .arg(lega.righeClassifica)
                    .arg(descrizione);
}

// The tables every league menu entry reads on a first start: the Italian series from their
// results (the two without results empty), the foreign leagues from theirs with their team lists
// as the foreign update writes them; Belgium, which the results lack, with made-up teams.
void creaClassifiche(const QDir &cartella, const QList<Partita> &italiane,
                     const QList<Partita> &estere) {
    const FonteClassifica fonti[] = {
        {"A", StagioneCorrente, u"A"},  {"B", StagioneCorrente, u"B"},
        {"C1A", StagioneSerieC, u"CA"}, {"C1B", StagioneSerieC, u"CB"},
        {"C2A", StagioneSerieC, u"CC"},
    };
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        const auto fonte = std::find_if(std::begin(fonti), std::end(fonti), [&lega](const auto &f) {
            return qstrcmp(f.codice, lega.codice) == 0;
        });
        if (fonte == std::end(fonti)) {
            scriviClassifica(cartella, lega, {}, ClassificaCalcolata::intestazioneVuota(lega),
                             u"nessun risultato"_s);
            continue;
        }
        const QString codice = QString::fromUtf16(fonte->lega);
        const auto r = ClassificaCalcolata::calcola(italiane, fonte->stagione, codice);
        if (r.partite == 0)
            throw ErroreEsecuzione(
                u"Nessuna partita della lega %1 nella stagione %2."_s.arg(codice, fonte->stagione));
        scriviClassifica(
            cartella, lega, r, ClassificaCalcolata::intestazione(lega, r.ultima),
            u"%1 partite della lega %2 %3"_s.arg(r.partite).arg(codice, fonte->stagione));
    }
    for (const Leghe::Lega &lega : Leghe::straniere()) {
        const QString codice = QString::fromLatin1(lega.codice);
        ClassificaCalcolata::Risultato r;
        QString intestazione;
        QString descrizione;
        if (codice == u"Belgio"_s) {
            for (int i = 1; i <= lega.righeClassifica; ++i)
                r.squadre.append({u"SQUADRA INVENTATA %1"_s.arg(i), {}, {}});
            intestazione = u"Campionato Belgio - Squadre inventate, nessuna partita"_s;
            descrizione = u"squadre inventate"_s;
        } else {
            // The latest season the results hold for the league.
            QString stagione;
            for (const Partita &p : estere)
                if (p.lega == codice && p.stagione > stagione)
                    stagione = p.stagione;
            r = ClassificaCalcolata::calcola(estere, stagione, codice);
            if (r.partite == 0)
                throw ErroreEsecuzione(u"Nessuna partita del campionato %1."_s.arg(codice));
            intestazione = ClassificaCalcolata::intestazione(lega, r.ultima);
            descrizione = u"%1 partite della stagione %2"_s.arg(r.partite).arg(stagione);
        }
        scriviClassifica(cartella, lega, r, intestazione, descrizione);
        QStringList nomi;
        for (const ClassificaCalcolata::Squadra &s : std::as_const(r.squadre))
            nomi.append(s.nome);
        FileCampionati::scriviSquadreStraniere(cartella.path(), lega,
                                               nomi.mid(0, lega.righeClassifica));
        uscita() << u"Scritto %1.\n"_s.arg(Leghe::fileSquadre(lega));
    }
}

// The calendars of the seven series, text and data file: Serie A and B of the current season
// from their fixtures, the Lega Pro series not yet available.
void creaCalendari(const QDir &cartella, const QList<Partita> &partite) {
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        const QString codice = QString::fromLatin1(lega.codice);
        const QStringList testo =
            codice == u"A"_s || codice == u"B"_s
                ? ClassificaCalcolata::calendario(partite, StagioneCorrente, codice, lega)
                : ClassificaCalcolata::calendarioVuoto();
        scrivi(cartella, Leghe::fileCalendarioTesto(lega), testo, u"calendario"_s);
        FileCampionati::ricreaCalendario(cartella.path(), lega);
        uscita() << u"Scritto %1.\n"_s.arg(Leghe::fileCalendarioDati(lega));
    }
}

void creaDati(const QString &percorsoPartite, const QString &percorsoEstere,
              const QString &percorsoUscita) {
    QList<Partita> partite = PartiteReali::leggi(percorsoPartite);
    uscita() << u"Lette %1 partite da %2.\n"_s.arg(partite.size())
                    .arg(QDir::toNativeSeparators(percorsoPartite));
    for (const QString &correzione : PartiteReali::correggiDate(partite))
        uscita() << correzione << u'\n';

    if (!QDir().mkpath(percorsoUscita))
        throw ErroreEsecuzione(
            u"Impossibile creare la cartella %1."_s.arg(QDir::toNativeSeparators(percorsoUscita)));
    const QDir cartella(percorsoUscita);

    int escluse = 0;
    const QStringList archivio = righeArchivio(partite, escluse);
    if (archivio.isEmpty())
        throw ErroreEsecuzione(u"Nessun concorso da scrivere."_s);
    scrivi(cartella, u"Archivio.txt"_s, archivio,
           u"concorsi dal %1 al %2, %3 giornate escluse"_s
               .arg(archivio.first().left(4), archivio.last().left(4))
               .arg(escluse));

    const QString anno =
        StagioneCorrente.left(4) + u"-"_s + QString::number(primoAnno(StagioneCorrente) + 1);
    scrivi(cartella, u"anno.txt"_s, {anno}, u"stagione corrente"_s);
    scrivi(cartella, u"year.txt"_s, {anno}, u"segnaposto"_s);
    scrivi(cartella, u"450.txt"_s,
           {u"%1.%2.%3"_s.arg(VESPARA_VERSIONE_MAGGIORE)
                .arg(VESPARA_VERSIONE_MINORE)
                .arg(VESPARA_REVISIONE)},
           u"segnaposto"_s);

    const struct {
        const char16_t *file;
        const QString &stagione;
        const char16_t *lega;
    } liste[] = {
        {u"SerieA.txt", StagioneCorrente, u"A"},  {u"SerieB.txt", StagioneCorrente, u"B"},
        {u"SerieC1A.txt", StagioneSerieC, u"CA"}, {u"SerieC1B.txt", StagioneSerieC, u"CB"},
        {u"SerieC2A.txt", StagioneSerieC, u"CC"},
    };
    for (const auto &l : liste) {
        const QString lega = QString::fromUtf16(l.lega);
        scrivi(cartella, QString::fromUtf16(l.file), squadre(partite, l.stagione, lega),
               u"squadre della lega %1 %2"_s.arg(lega, l.stagione));
    }
    scrivi(cartella, u"SerieC2B.txt"_s, {}, u"vuoto"_s);
    scrivi(cartella, u"SerieC2C.txt"_s, {}, u"vuoto"_s);

    QList<Partita> estere = PartiteReali::leggi(percorsoEstere);
    uscita() << u"Lette %1 partite da %2.\n"_s.arg(estere.size())
                    .arg(QDir::toNativeSeparators(percorsoEstere));
    for (const QString &correzione : PartiteReali::correggiDate(estere))
        uscita() << correzione << u'\n';
    creaClassifiche(cartella, partite, estere);
    creaCalendari(cartella, partite);
}

} // namespace

int main(int argc, char *argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList argomenti = QCoreApplication::arguments();
    QTextStream errori(stderr);
    if (argomenti.size() != 4) {
        errori << u"Uso: creadaticonsegnati <partite-italia.csv> <partite-estere.csv> "
                  u"<cartella di uscita>\n"_s;
        return 2;
    }
    try {
        creaDati(argomenti.at(1), argomenti.at(2), argomenti.at(3));
    } catch (const ErroreEsecuzione &e) {
        uscita().flush();
        errori << u"Errore: "_s << e.testo() << u"\n"_s;
        return 1;
    }
    return 0;
}
