#include "aggiornamenti/aggiornamentisito.h"

#include "archivio/scritturearchivio.h"
#include "campionati/leghe.h"
#include "core/archivio.h"
#include "core/archiviocolonne.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"

using namespace Qt::StringLiterals;

namespace {

QString testo(const char *latino) {
    return QString::fromLatin1(latino);
}

// The coupon pages, the midweek one first, and the local names of the last two.
constexpr const char *PaginaInfrasettimanale = "/vespara/SchedinaProssimoConcorso.html";
constexpr std::array<std::array<const char *, 2>, 2> SchedineWeekEnd{{
    {"/vespara/SchedinaSabato.html", "SchedinaSabato.txt"},
    {"/vespara/SchedinaDomenica.html", "SchedinaDomenica.txt"},
}};

constexpr std::array<std::array<const char *, 2>, 3> Picchetti{{
    {"/vespara/Picchetto.html", "Picchetto.txt"},
    {"/vespara/PicchettoDomenica.html", "PicchettoDomenica.txt"},
    {"/vespara/PicchettoSabato.html", "PicchettoSabato.txt"},
}};

} // namespace

AggiornamentiSito::AggiornamentiSito(StatoProgramma &stato)
    : m_stato(stato)
    , m_operazione(stato.rete()) {}

bool AggiornamentiSito::verificaConnessione() {
    return m_stato.rete().verificaConnessione();
}

QString AggiornamentiSito::scaricaPagina(const QString &percorso) {
    const Rete::Pagina pagina = m_stato.rete().scarica(percorso);
    if (pagina.esito == Rete::Esito::Annullata)
        throw ErroreEsecuzione::interruzione();
    // A page broken off would take the place of a good file: the update stops before it.
    if (!pagina.intera())
        throw ErroreEsecuzione(
            u"La pagina %1 del sito non è arrivata per intero: l'aggiornamento si è fermato qui. "
            "I file non ancora aggiornati sono rimasti come erano."_s.arg(percorso));
    return Rete::togliBlank(pagina.testo);
}

void AggiornamentiSito::controllaInterruzione() const {
    if (m_stato.rete().interrotta())
        throw ErroreEsecuzione::interruzione();
}

QString AggiornamentiSito::scaricaInFile(const QString &percorso, const QString &nomeFile) {
    const QString pagina = scaricaPagina(percorso);
    controllaInterruzione();
    FileDati::scriviRighe(m_stato.percorsoFile(nomeFile), Rete::righe(pagina));
    return pagina;
}

QStringList AggiornamentiSito::leggiCopia(const QString &nomeFile, int massimo) const {
    const QStringList lette = FileDati::leggiRighe(m_stato.percorsoFile(nomeFile));
    QStringList copia;
    for (qsizetype i = 0; i < lette.size() && i < massimo; ++i)
        copia.append(Rete::togliBlank(lette.at(i)));
    return copia;
}

QStringList AggiornamentiSito::scaricaArchivio() {
    return scaricaPagina(testo(PaginaArchivio)).split(u'\n');
}

QStringList AggiornamentiSito::ultimaRiga(const QStringList &pezzi) {
    if (pezzi.size() < 2)
        throw ErroreEsecuzione(
            u"La pagina dell'archivio scaricata dal sito non contiene alcun concorso."_s);
    QString riga = pezzi.at(pezzi.size() - 2);
    if (riga.endsWith(u'\r'))
        riga.chop(1);
    return riga.split(u' ');
}

bool AggiornamentiSito::daRicostruire(const QStringList &pezzi, int numeroColonne) {
    return ScrittureArchivio::numero(ultimaRiga(pezzi).at(0)) >= numeroColonne;
}

QStringList AggiornamentiSito::righeArchivio(const QStringList &pezzi) {
    QStringList righe;
    // The last piece follows the last line end: it is no contest.
    for (qsizetype i = 0; i + 1 < pezzi.size(); ++i) {
        QString pezzo = pezzi.at(i);
        if (pezzo.endsWith(u'\r'))
            pezzo.chop(1);
        const QStringList campi = pezzo.split(u' ');
        QString riga;
        for (qsizetype c = 1; c < campi.size(); ++c)
            riga += campi.at(c) + u' ';
        righe.append(riga);
    }
    return righe;
}

void AggiornamentiSito::ricostruisciArchivio(const QStringList &pezzi) {
    const QStringList nuove = righeArchivio(pezzi);
    // A page the loader would refuse, or one without contests, must not replace a good file.
    if (ArchivioColonne::daRighe(nuove).vuoto())
        throw ErroreEsecuzione(
            u"La pagina dell'archivio scaricata dal sito non contiene alcun concorso."_s);
    controllaInterruzione();
    Archivio::scriviFile(m_stato, nuove);
    Archivio::ricostruisci(m_stato);
}

QString AggiornamentiSito::fileClassifica(int indice) {
    return u"ClassifSerie"_s + testo(Leghe::italiane()[indice].codice) + u".txt"_s;
}

QString AggiornamentiSito::fileSquadreSito(const char *codice) {
    return u"Serie"_s + testo(codice) + u".txt"_s;
}

QStringList AggiornamentiSito::aggiornaSerie(int indice) {
    if (indice < 0 || indice >= NumeroSerie)
        throw ErroreEsecuzione(u"Classifica %1 inesistente."_s.arg(indice));
    m_stato.ClassificheAggiornate[indice] = true;
    const QString nome = fileClassifica(indice);
    scaricaInFile(u"/vespara/ClassifSerie"_s + testo(Leghe::italiane()[indice].codice) + u".html"_s,
                  nome);
    m_copie.classifiche[indice] = leggiCopia(nome, RigheClassifica);
    return m_copie.classifiche[indice];
}

void AggiornamentiSito::aggiornaClassifiche(const std::function<void(int)> &avanzamento) {
    for (int i = 0; i < NumeroSerie; ++i) {
        aggiornaSerie(i);
        if (avanzamento)
            avanzamento(i + 1);
    }
}

QStringList AggiornamentiSito::caricaMontepremi() {
    scaricaInFile(testo(PaginaQuote), u"Quote.txt"_s);
    m_copie.quote = leggiCopia(u"Quote.txt"_s, RigheQuote);
    return m_copie.quote;
}

std::optional<QStringList> AggiornamentiSito::aggiornaQuote() {
    if (!verificaConnessione())
        return std::nullopt;
    return caricaMontepremi();
}

void AggiornamentiSito::scaricaSchedine(const QString &fileInfrasettimanale) {
    scaricaInFile(testo(PaginaInfrasettimanale), fileInfrasettimanale);
    for (const auto &[pagina, file] : SchedineWeekEnd)
        scaricaInFile(testo(pagina), testo(file));
}

void AggiornamentiSito::aggiornaSchedinaDomenica() {
    // The doubled name is the one this routine has always written; nothing reads it.
    scaricaSchedine(u"SchedinaSchedinaProssimoConcorso.txt"_s);
}

void AggiornamentiSito::aggiornaSchedinaProssimoConcorso() {
    scaricaSchedine(u"SchedinaProssimoConcorso.txt"_s);
}

void AggiornamentiSito::aggiornaPicchetto() {
    for (const auto &[pagina, file] : Picchetti)
        scaricaInFile(testo(pagina), testo(file));
}

void AggiornamentiSito::aggiornaSchedine() {
    caricaMontepremi();
    aggiornaSchedinaDomenica();
    aggiornaPicchetto();
    aggiornaSchedinaProssimoConcorso();
}

void AggiornamentiSito::aggiornaSchedineEPicchetti() {
    caricaMontepremi();
    aggiornaSchedinaProssimoConcorso();
    aggiornaPicchetto();
}

void AggiornamentiSito::scaricaInFile(const QList<std::pair<QString, QString>> &pagine,
                                      const QStringList &daEliminare) {
    // Every page first: a list is replaced only when all the new ones came whole, so a site
    // that stops half-way leaves the old lists, not a mix or nothing.
    QStringList testi;
    for (const auto &[percorso, nome] : pagine)
        testi.append(scaricaPagina(percorso));
    controllaInterruzione();
    for (const QString &nome : daEliminare)
        FileDati::elimina(m_stato.percorsoFile(nome));
    for (qsizetype i = 0; i < pagine.size(); ++i)
        FileDati::scriviRighe(m_stato.percorsoFile(pagine.at(i).second), Rete::righe(testi.at(i)));
}

void AggiornamentiSito::aggiornaConcorsiStranieri() {
    QList<std::pair<QString, QString>> pagine;
    QStringList vecchie;
    // Each list is fetched from the site's page and written under the league's own name, the one
    // every reader of the list asks for (Argentina's page is SerieArgentinaAp.txt, its list
    // serieArgentina.txt).
    for (const Leghe::Lega &lega : Leghe::straniere()) {
        vecchie.append(Leghe::fileSquadre(lega));
        pagine.append({u"/vespara/"_s + fileSquadreSito(lega.codice), Leghe::fileSquadre(lega)});
    }
    scaricaInFile(pagine, vecchie);
}

void AggiornamentiSito::aggiornaSquadreItaliane() {
    QList<std::pair<QString, QString>> pagine;
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        const QString nome = fileSquadreSito(lega.codice);
        pagine.append({u"/vespara/"_s + nome, nome});
    }
    scaricaInFile(pagine);
}
