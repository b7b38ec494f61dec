// Builds the folder of the update site: the archive page, the league tables, the coupons and
// picchetti, the quotas, the version pages, the team lists and the messages, all from a data
// folder (and, when given, from real results for the league tables), with a root page and an
// index of the pages. Plain static files: the build makes the site installed with the program
// from the delivered data, tools/sitolocale serves a folder on loopback, any web host serves it
// on the Internet. Everything but the archive, the team lists and the real tables is test data.
// The coupons, picchetti and quotas of the delivered data folder are these pages as they stand
// (vespara/<Nome>.html copied to dati/<Nome>.txt), so that a fresh install shows the same week
// as the site.
//
//   creasitolocale <cartella dati> <cartella sito> [partite-italia.csv]

#include "campionati/classificacalcolata.h"
#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "campionati/partitereali.h"
#include "campionati/taglioclassifica.h"
#include "core/archiviocolonne.h"
#include "core/colonna.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <array>
#include <map>

using namespace Qt::StringLiterals;

namespace {

const auto Versione = u"%1.%2.%3"_s.arg(VESPARA_VERSIONE_MAGGIORE)
                          .arg(VESPARA_VERSIONE_MINORE)
                          .arg(VESPARA_REVISIONE);
const auto FormatoData = u"dd/MM/yyyy"_s;
const auto IntestazionePicchetto = u"Picchetto tecnico - dati di prova del sito locale"_s;

// A coupon is 10 Serie A matches, then 4 Serie B matches.
constexpr int PartiteSerieA = 10;
constexpr int PartiteSerieB = 4;
constexpr int RigheQuote = 25;

QTextStream &uscita() {
    static QTextStream flusso(stdout);
    return flusso;
}

QString nativo(const QString &percorso) {
    return QDir::toNativeSeparators(percorso);
}

// Every page is Latin-1: a character it can't hold would come out as "?" without a word.
QByteArray latin1(const QString &testo, const QString &pagina) {
    for (const QChar c : testo)
        if (c.unicode() > 0xFF)
            throw ErroreEsecuzione(
                u"La pagina %1 conterrebbe il carattere \"%2\", che Latin-1 non rappresenta."_s.arg(
                    pagina, QString(c)));
    return FileDati::codifica(testo);
}

// --- The site folder -------------------------------------------------------------------------

// The pages are all made first and written at the end, so that bad input leaves the site folder
// as it was.
class Sito {
public:
    // The bytes as they are.
    void byte(const QString &pagina, const QByteArray &contenuto, const QString &descrizione) {
        m_pagine.append({pagina, false, {}, contenuto, descrizione});
    }
    // Lines ended by CR LF, like the data files the program makes of them.
    void righe(const QString &pagina, const QStringList &righe, const QString &descrizione) {
        for (const QString &riga : righe)
            latin1(riga, pagina);
        m_pagine.append({pagina,
                         true,
                         righe,
                         {},
                         u"%1 %2, %3"_s.arg(righe.size())
                             .arg(righe.size() == 1 ? u"riga"_s : u"righe"_s, descrizione)});
    }
    // A text with no line end: pages the program reads whole or splits itself.
    void testo(const QString &pagina, const QString &testo, const QString &descrizione) {
        byte(pagina, latin1(testo, pagina), descrizione);
    }

    // Writes every page under `cartella`, replacing the files of the same names.
    void pubblica(const QString &cartella) const {
        const QDir radice(cartella);
        for (const Pagina &p : m_pagine) {
            const QString file = radice.filePath(p.percorso);
            if (!QDir().mkpath(QFileInfo(file).path()))
                throw ErroreEsecuzione(
                    u"Impossibile creare la cartella %1."_s.arg(nativo(QFileInfo(file).path())));
            if (p.perRighe)
                FileDati::scriviRighe(file, p.righe);
            else
                FileDati::scriviByte(file, p.byte);
            uscita() << u"Scritto %1 (%2).\n"_s.arg(p.percorso, p.descrizione);
        }
    }
    int numero() const { return int(m_pagine.size()); }
    // The pages made so far, with what each holds.
    QList<std::pair<QString, QString>> elenco() const {
        QList<std::pair<QString, QString>> voci;
        for (const Pagina &p : m_pagine)
            voci.append({p.percorso, p.descrizione});
        return voci;
    }

private:
    struct Pagina {
        QString percorso;
        bool perRighe;
        QStringList righe;
        QByteArray byte;
        QString descrizione;
    };
    QList<Pagina> m_pagine;
};

QByteArray leggiByte(const QString &file) {
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly))
        throw ErroreEsecuzione(
            u"Impossibile leggere il file %1: %2"_s.arg(nativo(file), f.errorString()));
    return f.readAll();
}

// --- Real results ----------------------------------------------------------------------------

using Partita = PartiteReali::Partita;

// --- League tables ---------------------------------------------------------------------------

using Squadra = ClassificaCalcolata::Squadra;

// The lines of a table page: the heading, then exactly the league's rows (empty ones where the
// league has fewer teams), as the program's reader wants them.
QStringList righeTabella(const QString &intestazione, const QList<Squadra> &squadre,
                         const Leghe::Lega &lega) {
    return FileCampionati::righeDaClassifica(
        {intestazione, ClassificaCalcolata::righe(squadre, lega.righeClassifica)});
}

QString paginaClassifica(const Leghe::Lega &lega) {
    return u"vespara/ClassifSerie%1.html"_s.arg(QString::fromLatin1(lega.codice));
}

// The season and the league of the results that make each Italian table; C2B and C2C have none.
struct FonteClassifica {
    const char *codice;
    const char *stagione;
    const char *lega;
};
constexpr std::array<FonteClassifica, 5> FontiClassifiche{{
    {"A", "2025-26", "A"},
    {"B", "2025-26", "B"},
    {"C1A", "2024-25", "CA"},
    {"C1B", "2024-25", "CB"},
    {"C2A", "2024-25", "CC"},
}};

void classificaCalcolata(Sito &sito, const Leghe::Lega &lega, const QList<Partita> &partite) {
    const auto fonte = std::find_if(
        FontiClassifiche.begin(), FontiClassifiche.end(),
        [&lega](const FonteClassifica &f) { return qstrcmp(f.codice, lega.codice) == 0; });
    if (fonte == FontiClassifiche.end()) {
        sito.righe(paginaClassifica(lega),
                   righeTabella(ClassificaCalcolata::intestazioneVuota(lega), {}, lega),
                   u"solo intestazione e righe vuote"_s);
        return;
    }
    const QString stagione = QString::fromLatin1(fonte->stagione);
    const QString codiceLega = QString::fromLatin1(fonte->lega);
    const ClassificaCalcolata::Risultato r =
        ClassificaCalcolata::calcola(partite, stagione, codiceLega);
    if (r.partite == 0)
        throw ErroreEsecuzione(u"Nessuna partita della lega %1 nella stagione %2: impossibile "
                               u"calcolare la classifica della Serie %3."_s.arg(
                                   codiceLega, stagione, QString::fromLatin1(lega.codice)));
    sito.righe(paginaClassifica(lega),
               righeTabella(ClassificaCalcolata::intestazione(lega, r.ultima), r.squadre, lega),
               u"%1 squadre su %2, da %3 partite della lega %4 %5"_s
                   .arg(std::min<qsizetype>(r.squadre.size(), lega.righeClassifica))
                   .arg(r.squadre.size())
                   .arg(r.partite)
                   .arg(codiceLega, stagione));
}

// Without results: the data folder's own table when it has one, else its teams at zero.
void classificaDaCartella(Sito &sito, const Leghe::Lega &lega, const QString &dati) {
    const QString nomeFile = Leghe::fileClassifica(lega);
    if (FileDati::esiste(dati, nomeFile)) {
        sito.byte(paginaClassifica(lega), leggiByte(FileDati::percorso(dati, nomeFile)),
                  u"copia di %1"_s.arg(nomeFile));
        return;
    }
    QList<Squadra> squadre;
    if (FileDati::esiste(dati, Leghe::fileSquadre(lega)))
        for (const QString &nome : Leghe::leggiSquadre(dati, lega))
            if (!nome.trimmed().isEmpty())
                squadre.append({nome.trimmed().toUpper(), {}, {}});
    const QString titolo = squadre.isEmpty()
                               ? ClassificaCalcolata::intestazioneVuota(lega)
                               : ClassificaCalcolata::intestazione(lega, QDate::currentDate());
    sito.righe(paginaClassifica(lega), righeTabella(titolo, squadre, lega),
               u"squadre senza partite"_s);
}

// --- Coupons and picchetti -------------------------------------------------------------------

QStringList squadreDi(const QString &dati, const Leghe::Lega &lega, int servono) {
    const QString nomeFile = QString::fromLatin1(lega.fileSquadre);
    if (!FileDati::esiste(dati, nomeFile))
        throw ErroreEsecuzione(
            u"Nella cartella dati manca %1, che serve alle schedine."_s.arg(nomeFile));
    QStringList squadre;
    for (const QString &nome : Leghe::leggiSquadre(dati, lega)) {
        QString pulito = nome.trimmed().toUpper();
        if (pulito.isEmpty())
            continue;
        // The coupon line is split on "-" and has no escape.
        if (pulito.contains(u'-')) {
            uscita() << u"Nota: in schedina la squadra \"%1\" perde i trattini.\n"_s.arg(pulito);
            pulito.replace(u'-', u' ');
        }
        squadre.append(pulito);
    }
    if (squadre.size() < servono)
        throw ErroreEsecuzione(u"%1 ha %2 squadre: per la schedina ne servono almeno %3."_s.arg(
            nomeFile, QString::number(squadre.size()), QString::number(servono)));
    return squadre;
}

using Incontro = std::pair<QString, QString>;

// Round `turno` of a round robin by the circle method: the first team stays, the others turn.
// Different rounds never repeat a pairing, so the three coupons differ.
QList<Incontro> giornata(const QStringList &squadre, int turno, int quante) {
    QStringList giro = squadre;
    if (giro.size() % 2 != 0)
        giro.append(QString()); // the team drawn against it rests
    const int n = int(giro.size());
    QStringList ordine{giro.first()};
    for (int k = 1; k < n; ++k)
        ordine.append(giro.at(1 + (k - 1 + turno) % (n - 1)));
    QList<Incontro> incontri;
    for (int i = 0; i < n / 2 && incontri.size() < quante; ++i) {
        Incontro inc{ordine.at(i), ordine.at(n - 1 - i)};
        if (inc.first.isEmpty() || inc.second.isEmpty())
            continue;
        if ((i + turno) % 2 != 0)
            std::swap(inc.first, inc.second);
        incontri.append(inc);
    }
    return incontri;
}

struct Schedina {
    QString pagina;
    QString paginaPicchetto;
    int concorso;
    QDate data;
    QString ora;
    QList<Incontro> incontri;
};

QString intestazioneSchedina(const Schedina &s) {
    return u"Concorso n. %1 del %2 %3 Ore %4"_s.arg(
        QString::number(s.concorso), Colonna::giorniSettimana().at(s.data.dayOfWeek() - 1),
        s.data.toString(FormatoData), s.ora);
}

// FNV-1a over the Latin-1 bytes: the same made-up figures on every run and every machine.
quint32 impronta(const QString &testo) {
    quint32 h = 2166136261u;
    for (const char c : FileDati::codifica(testo)) {
        h ^= quint8(c);
        h *= 16777619u;
    }
    return h;
}

// Percentages of 1, X, 2 that add up to 100, the home side a little favoured.
std::array<int, 3> percentuali(const Incontro &inc) {
    const quint32 h = impronta(inc.first + u'|' + inc.second);
    const int uno = 30 + int(h % 30);
    const int x = 18 + int((h / 30) % 16);
    return {uno, x, 100 - uno - x};
}

void scriviSchedina(Sito &sito, const Schedina &s) {
    QStringList righe{intestazioneSchedina(s)};
    QStringList picchetto{IntestazionePicchetto};
    for (int k = 0; k < s.incontri.size(); ++k) {
        const Incontro &inc = s.incontri.at(k);
        righe.append(u"%1-%2-%3-"_s.arg(QString::number(k + 1), inc.first, inc.second));
        const auto p = percentuali(inc);
        picchetto.append(u"%1-%2-%3-%4-%5-%6"_s.arg(QString::number(k + 1), inc.first, inc.second,
                                                    QString::number(p[0]), QString::number(p[1]),
                                                    QString::number(p[2])));
    }
    sito.righe(s.pagina, righe, intestazioneSchedina(s));
    sito.righe(s.paginaPicchetto, picchetto, u"percentuali di prova"_s);
}

QDate prossimo(int giornoSettimana, const QDate &dopo) {
    QDate d = dopo.addDays(1);
    while (d.dayOfWeek() != giornoSettimana)
        d = d.addDays(1);
    return d;
}

// Sunday's contest follows the last of the archive; Saturday's is the one after it, on the next
// Saturday; the midweek one comes on the Wednesday after that.
void scriviSchedine(Sito &sito, const QString &dati, int ultimoConcorso) {
    const QStringList serieA = squadreDi(dati, Leghe::tutte()[0], 2 * PartiteSerieA);
    const QStringList serieB = squadreDi(dati, Leghe::tutte()[1], 2 * PartiteSerieB);
    const QDate domenica = prossimo(Qt::Sunday, QDate::currentDate());
    const QDate sabato = prossimo(Qt::Saturday, domenica);
    const QDate mercoledi = prossimo(Qt::Wednesday, sabato);
    const Schedina schedine[] = {
        {u"vespara/SchedinaDomenica.html"_s,
         u"vespara/PicchettoDomenica.html"_s,
         ultimoConcorso + 1,
         domenica,
         u"14:30"_s,
         {}},
        {u"vespara/SchedinaSabato.html"_s,
         u"vespara/PicchettoSabato.html"_s,
         ultimoConcorso + 2,
         sabato,
         u"15:00"_s,
         {}},
        {u"vespara/SchedinaProssimoConcorso.html"_s,
         u"vespara/Picchetto.html"_s,
         ultimoConcorso + 3,
         mercoledi,
         u"18:30"_s,
         {}},
    };
    int turno = 0;
    for (Schedina s : schedine) {
        s.incontri =
            giornata(serieA, turno, PartiteSerieA) + giornata(serieB, turno, PartiteSerieB);
        scriviSchedina(sito, s);
        ++turno;
    }
}

// --- Quotas ----------------------------------------------------------------------------------

// "Euro 1.234.567,89": the euro sign is not in Latin-1, the code page of every page.
QString euro(qint64 centesimi) {
    QString intero = QString::number(centesimi / 100);
    for (qsizetype i = intero.size() - 3; i > 0; i -= 3)
        intero.insert(i, u'.');
    return u"Euro %1,%2"_s.arg(intero).arg(int(centesimi % 100), 2, 10, QChar(u'0'));
}

// Made-up figures, fixed by the last contest: a pool, split among the categories.
QStringList righeQuote(const QString &concorso, const QString &colonna) {
    quint32 h = impronta(concorso + colonna);
    const auto prossimoNumero = [&h](int da, int a) {
        h = h * 1103515245u + 12345u;
        return da + int((h >> 8) % quint32(a - da + 1));
    };
    QStringList righe;
    const auto categorie = [&](qint64 montepremi, std::initializer_list<std::array<int, 3>> c) {
        for (const auto &[parte, vincitoriMin, vincitoriMax] : c) {
            const int vincitori = prossimoNumero(vincitoriMin, vincitoriMax);
            righe << QString::number(vincitori) << euro(montepremi * parte / 100 / vincitori);
        }
    };
    const qint64 totocalcio = qint64(prossimoNumero(800000, 2500000)) * 100 + prossimoNumero(0, 99);
    const qint64 nove = qint64(prossimoNumero(150000, 600000)) * 100 + prossimoNumero(0, 99);
    righe << u"Concorso n. %1"_s.arg(concorso) << euro(totocalcio) << euro(nove) << colonna;
    righe.reserve(RigheQuote);
    // Shares of the pool (percent) and ranges of winners: 14, 13, 12, then the 9 on its own pool.
    categorie(totocalcio, {{30, 1, 4}, {30, 20, 120}, {40, 300, 1500}});
    categorie(nove, {{100, 40, 400}});
    const qint64 totogol = qint64(prossimoNumero(200000, 900000)) * 100 + prossimoNumero(0, 99);
    righe << u"Concorso n. %1"_s.arg(concorso) << euro(totogol) << u"1 5 12 23 34 45 56 67"_s;
    categorie(totogol, {{25, 1, 3}, {25, 10, 60}, {25, 200, 900}, {25, 2000, 9000}});
    while (righe.size() < RigheQuote)
        righe.append(QString());
    return righe;
}

// --- Messages and plain pages ----------------------------------------------------------------

void scriviComunicazioni(Sito &sito, const ArchivioColonne &archivio, const QString &stagione) {
    const QDate oggi = QDate::currentDate();
    const auto r = [&archivio](int c) { return archivio.ultima()[c]; };
    // Three messages, oldest first; the program splits every page on "-", so no piece holds one.
    const QStringList messaggi[] = {
        {oggi.addDays(-14).toString(FormatoData), u"Benvenuti nel sito locale"_s,
         u"Questo sito gira sul vostro computer"_s,
         u"e serve a provare gli aggiornamenti di Vespara."_s,
         u"Schedine, picchetti e quote sono dati di prova."_s,
         u"Nessuna cifra qui pubblicata è ufficiale."_s, u"Lo staff di Vespara"_s},
        {oggi.addDays(-7).toString(FormatoData), u"Archivio e classifiche"_s,
         u"L'archivio conta %1 concorsi."_s.arg(archivio.numero()),
         u"L'ultimo è il concorso %1 del %2."_s.arg(r(ArchivioColonne::Concorso),
                                                    r(ArchivioColonne::Stagione)),
         u"Le classifiche sono quelle della stagione %1."_s.arg(
             QString(stagione).replace(u'-', u'/')),
         u"Aggiornate tutto dal menu Aggiorna da Internet."_s, u"Lo staff di Vespara"_s},
        {oggi.toString(FormatoData), u"Novità della versione %1"_s.arg(Versione),
         u"Il pannello dei segni e l'analisi del 9"_s, u"si stampano e si esportano in Excel."_s,
         u"Per saperne di più:"_s, u"www.example.org"_s, u"Lo staff di Vespara"_s},
    };
    const QString pagine[] = {u"data"_s,  u"titolo"_s, u"riga1"_s, u"riga2"_s,
                              u"riga3"_s, u"riga4"_s,  u"staff"_s};
    for (int i = 0; i < 7; ++i) {
        QStringList pezzi;
        for (const QStringList &m : messaggi) {
            if (m.at(i).contains(u'-'))
                throw ErroreEsecuzione(u"Il messaggio \"%1\" contiene un trattino."_s.arg(m.at(i)));
            pezzi.append(m.at(i));
        }
        sito.testo(u"comunicazioniVp/%1.htm"_s.arg(pagine[i]), pezzi.join(u'-'),
                   u"%1 messaggi"_s.arg(pezzi.size()));
    }
    sito.testo(u"comunicazioniVp/new.htm"_s, QString::number(std::size(messaggi)),
               u"numero dell'ultimo messaggio"_s);
    sito.testo(u"comunicazioniVp/link.htm"_s, u"www.example.org"_s, u"collegamento"_s);
}

QString paginaHtml(const QString &titolo, const QString &corpo) {
    return u"<!DOCTYPE html>\r\n<html lang=\"it\">\r\n<head>\r\n"
           u"<meta charset=\"iso-8859-1\">\r\n<title>%1</title>\r\n</head>\r\n<body>\r\n"
           u"<h1>%1</h1>\r\n%2</body>\r\n</html>\r\n"_s.arg(titolo, corpo);
}

QString noteVersione() {
    static const char16_t *const voci[] = {
        u"<b>L'archivio</b> delle colonne vincenti del Totocalcio, con le schermate per inserire "
        u"una nuova colonna, correggere o eliminare un concorso e sfogliare l'archivio intero.",
        u"<b>Il pannello dei segni</b>: ritardi e frequenze delle terzine, delle cinquine finali e "
        u"delle coppie finali, con la scelta delle terzine per il sistema integrale.",
        u"<b>L'area di lavoro del 9</b>: le 19683 colonne del 9 con frequenza e ritardo, ristrette "
        u"da una catena di filtri, con annulla, ripristina, ordinamento e ricerca.",
        u"<b>Stampa ed esportazione</b>: anteprima di stampa, stampa su carta o in PDF, "
        u"esportazione delle griglie in una cartella di lavoro di Excel.",
        u"<b>Aggiornamenti dal sito</b>: archivio, classifiche, schedine, picchetti, quote e "
        u"comunicazioni dello staff.",
    };
    QString elenco = u"<p>Ecco che cosa fa oggi Vespara:</p>\r\n<ul>\r\n"_s;
    for (const char16_t *voce : voci)
        elenco += u"<li>%1</li>\r\n"_s.arg(QString::fromUtf16(voce));
    elenco += u"</ul>\r\n<p>Buon gioco da <i>Lo staff di Vespara</i>.</p>\r\n"_s;
    return paginaHtml(u"Le novità di Vespara %1"_s.arg(Versione), elenco);
}

// The root page, which a web host serves for the site's address and the program's probe asks
// for, and the index of every page of the site, which the program's settings window counts.
// Links are relative, so the folder reads the same from a web host and from the disk.
void scriviIndici(Sito &sito) {
    QString voci;
    const auto pagine = sito.elenco();
    for (const auto &[percorso, descrizione] : pagine) {
        const QString link =
            percorso.startsWith(u"vespara/"_s) ? percorso.mid(8) : u"../"_s + percorso;
        voci += u"<li><a href=\"%1\">%2</a>: %3</li>\r\n"_s.arg(link, percorso.toHtmlEscaped(),
                                                                descrizione.toHtmlEscaped());
    }
    sito.testo(
        u"vespara/index.html"_s,
        paginaHtml(u"Vespara - indice delle pagine del sito"_s,
                   u"<p>Le %1 pagine da cui Vespara si aggiorna.</p>\r\n<ul>\r\n%2</ul>\r\n"_s
                       .arg(pagine.size())
                       .arg(voci)),
        u"indice di %1 pagine"_s.arg(pagine.size()));
    sito.testo(u"index.html"_s,
               paginaHtml(u"Vespara - sito degli aggiornamenti"_s,
                          u"<p>Benvenuti nel sito degli aggiornamenti di Vespara. "
                          u"Qui il programma trova archivio, classifiche, schedine, "
                          u"picchetti e quote; schedine, picchetti e quote sono dati di "
                          u"prova.</p>\r\n<p><a href=\"vespara/index.html\">Indice delle "
                          u"pagine</a></p>\r\n"_s),
               u"pagina di benvenuto"_s);
}

// --- The whole site --------------------------------------------------------------------------

void creaSito(const QString &dati, const QString &cartellaSito, const QString &risultati) {
    if (!QFileInfo(dati).isDir())
        throw ErroreEsecuzione(u"La cartella dati %1 non esiste."_s.arg(nativo(dati)));
    for (const QString &nome : {u"Archivio.txt"_s, u"anno.txt"_s})
        if (!FileDati::esiste(dati, nome))
            throw ErroreEsecuzione(
                u"Nella cartella dati %1 manca il file %2."_s.arg(nativo(dati), nome));
    const QList<Partita> partite =
        risultati.isEmpty() ? QList<Partita>() : PartiteReali::leggi(risultati);
    if (!risultati.isEmpty())
        uscita() << u"Lette %1 partite da %2.\n"_s.arg(partite.size()).arg(nativo(risultati));

    const ArchivioColonne archivio =
        ArchivioColonne::daRighe(FileDati::leggiRighe(FileDati::percorso(dati, u"Archivio.txt"_s)));
    if (archivio.vuoto())
        throw ErroreEsecuzione(u"L'archivio della cartella dati è vuoto."_s);
    const QString ultimaColonna = archivio.colonna(archivio.numero() - 1);
    static const QRegularExpression segni(u"^[1X2]{14}$"_s);
    if (!segni.match(ultimaColonna).hasMatch())
        throw ErroreEsecuzione(
            u"L'ultima colonna dell'archivio, \"%1\", non è di 14 segni 1, X, 2."_s.arg(
                ultimaColonna));
    bool ok = false;
    const int ultimoConcorso = archivio.ultima()[ArchivioColonne::Concorso].toInt(&ok);
    if (!ok)
        throw ErroreEsecuzione(u"L'ultimo concorso dell'archivio, \"%1\", non è un numero."_s.arg(
            archivio.ultima()[ArchivioColonne::Concorso]));
    const QString stagione =
        FileDati::leggiPrimaRiga(FileDati::percorso(dati, u"anno.txt"_s)).trimmed();

    Sito sito;

    // The program drops the progressive number and keeps the nine fields.
    QString paginaArchivio;
    const QStringList righe = archivio.comeRighe();
    for (int i = 0; i < righe.size(); ++i)
        paginaArchivio += u"%1 %2\n"_s.arg(i + 1).arg(righe.at(i));
    sito.testo(u"AggiornamentiVp/ColonneTotocalcio.htm"_s, paginaArchivio,
               u"%1 concorsi"_s.arg(righe.size()));
    sito.righe(u"Vespara/AggVer.html"_s, {Versione}, u"versione"_s);

    for (const Leghe::Lega &lega : Leghe::italiane()) {
        if (risultati.isEmpty())
            classificaDaCartella(sito, lega, dati);
        else
            classificaCalcolata(sito, lega, partite);
    }

    scriviSchedine(sito, dati, ultimoConcorso);
    sito.righe(u"vespara/Quote.html"_s,
               righeQuote(archivio.ultima()[ArchivioColonne::Concorso], ultimaColonna),
               u"cifre di prova"_s);
    sito.testo(u"vespara/UltimaCV.html"_s, ultimaColonna, u"ultima colonna vincente"_s);
    sito.testo(u"vespara/AggiornamentoProdotto5.html"_s, Versione, u"versione del programma"_s);
    sito.testo(u"vespara/release.asp"_s, noteVersione(), u"novità della versione"_s);
    sito.righe(u"vespara/Stagione2011-12.html"_s, {stagione}, u"stagione"_s);

    for (const Leghe::Lega &lega : Leghe::italiane()) {
        const QString nome = QString::fromLatin1(lega.fileSquadre);
        if (FileDati::esiste(dati, nome))
            sito.byte(u"vespara/"_s + nome, leggiByte(FileDati::percorso(dati, nome)),
                      u"copia della lista squadre"_s);
        else
            sito.byte(u"vespara/"_s + nome, {}, u"vuoto: manca nella cartella dati"_s);
    }
    // The site names the foreign lists after the league code; the data folder may use either.
    for (const Leghe::Lega &lega : Leghe::straniere()) {
        const QString nomeSito = u"Serie%1.txt"_s.arg(QString::fromLatin1(lega.codice));
        QString origine;
        for (const QString &nome : {QString::fromLatin1(lega.fileSquadre), nomeSito})
            if (origine.isEmpty() && FileDati::esiste(dati, nome))
                origine = FileDati::percorso(dati, nome);
        if (origine.isEmpty())
            sito.byte(u"vespara/"_s + nomeSito, {}, u"vuoto: manca nella cartella dati"_s);
        else
            sito.byte(u"vespara/"_s + nomeSito, leggiByte(origine),
                      u"copia di %1"_s.arg(QFileInfo(origine).fileName()));
    }

    // The calendars of the seven series: Serie A and B from the results when there are any, else
    // the data folder's own texts; the others (and any missing) not yet available.
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        const QString pagina = u"vespara/"_s + QString::fromLatin1(lega.calendario) + u".html"_s;
        const QString codice = QString::fromLatin1(lega.codice);
        if (!partite.isEmpty() && (codice == u"A"_s || codice == u"B"_s)) {
            sito.righe(pagina, ClassificaCalcolata::calendario(partite, u"2025-26"_s, codice, lega),
                       u"dalle partite della lega %1 2025-26"_s.arg(codice));
        } else if (FileDati::esiste(dati, Leghe::fileCalendarioTesto(lega))) {
            sito.byte(pagina, leggiByte(FileDati::percorso(dati, Leghe::fileCalendarioTesto(lega))),
                      u"copia di %1"_s.arg(Leghe::fileCalendarioTesto(lega)));
        } else {
            sito.righe(pagina, ClassificaCalcolata::calendarioVuoto(), u"non disponibile"_s);
        }
    }

    // The foreign tables: a link page that holds the address of the league's page, and the page in
    // the shape the cutting reads, from the data folder's own table (its teams empty without one).
    for (const TaglioClassifica::Voce &voce : TaglioClassifica::voci()) {
        const Leghe::Lega &lega = *Leghe::perCodice(QString::fromLatin1(voce.codice));
        const QString percorso = TaglioClassifica::percorsoPagina(voce);
        sito.righe(QString::fromLatin1(voce.paginaLink).mid(1), {percorso},
                   u"indirizzo della pagina"_s);
        FileCampionati::Classifica tabella;
        QString descrizione = u"senza squadre: manca nella cartella dati"_s;
        if (FileDati::esiste(dati, Leghe::fileClassifica(lega))) {
            tabella = FileCampionati::leggiClassifica(dati, lega);
            descrizione = u"da %1"_s.arg(Leghe::fileClassifica(lega));
        }
        sito.righe(percorso.mid(1),
                   TaglioClassifica::pagina(tabella,
                                            u"Classifica %1"_s.arg(QString::fromLatin1(lega.nome))),
                   descrizione);
    }

    scriviComunicazioni(sito, archivio, stagione);
    scriviIndici(sito);
    if (!QDir().mkpath(cartellaSito))
        throw ErroreEsecuzione(
            u"Impossibile creare la cartella del sito %1."_s.arg(nativo(cartellaSito)));
    sito.pubblica(cartellaSito);
    uscita() << u"Sito locale pronto in %1: %2 file. Avviarlo con: sitolocale %1\n"_s.arg(
        nativo(QDir(cartellaSito).absolutePath()), QString::number(sito.numero()));
}

} // namespace

int main(int argc, char *argv[]) {
    QCoreApplication app(argc, argv);
    const QStringList argomenti = QCoreApplication::arguments();
    QTextStream errori(stderr);
    if (argomenti.size() < 3 || argomenti.size() > 4) {
        errori << u"Uso: creasitolocale <cartella dati> <cartella sito> [partite-italia.csv]\n"_s;
        return 2;
    }
    try {
        creaSito(argomenti.at(1), argomenti.at(2), argomenti.value(3));
    } catch (const ErroreEsecuzione &e) {
        uscita().flush();
        errori << u"Errore: "_s << e.testo() << u"\n"_s;
        return 1;
    }
    return 0;
}
