#include "aggiornamenti/aggiornamentisito.h"

#include "archivio/scritturearchivio.h"
#include "campionati/leghe.h"
#include "core/archivio.h"
#include "core/archiviocolonne.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"
#include "piattaforma/scaricamentofile.h"
#include "schedine/fileschedine.h"
#include "schedine/quote.h"

using namespace Qt::StringLiterals;

namespace {

QString testo(const char *latino) {
    return QString::fromLatin1(latino);
}

using Tipo = FileSchedine::Tipo;

// A coupon's or picchetto's page on the site bears the name of its file.
QString pagina(const QString &file) {
    return u"/vespara/"_s + file.chopped(4) + u".html"_s;
}

// The order in which the steps fetch them.
constexpr std::array<Tipo, 2> SchedineWeekEnd{Tipo::Sabato, Tipo::Domenica};
constexpr std::array<Tipo, 3> Picchetti{Tipo::Infrasettimanale, Tipo::Domenica, Tipo::Sabato};

} // namespace

AggiornamentiSito::AggiornamentiSito(StatoProgramma &stato)
    : m_stato(stato)
    , m_operazione(stato.rete()) {}

bool AggiornamentiSito::verificaConnessione() {
    return m_stato.rete().verificaConnessione();
}

QString AggiornamentiSito::scaricaPagina(const QString &percorso) {
    return ScaricamentoFile::pagina(m_stato.rete(), percorso);
}

void AggiornamentiSito::controllaInterruzione() const {
    ScaricamentoFile::controllaInterruzione(m_stato.rete());
}

QString AggiornamentiSito::scaricaInFile(const QString &percorso, const QString &nomeFile) {
    return ScaricamentoFile::inFile(m_stato.rete(), percorso, m_stato.percorsoFile(nomeFile));
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

QString AggiornamentiSito::ricostruisciArchivio(const QStringList &pezzi) {
    const QStringList nuove = righeArchivio(pezzi);
    // A page the loader would refuse, or one without contests, must not replace a good file.
    if (ArchivioColonne::daRighe(nuove).vuoto())
        throw ErroreEsecuzione(
            u"La pagina dell'archivio scaricata dal sito non contiene alcun concorso."_s);
    controllaInterruzione();
    m_notaArchivio = Archivio::sostituisci(m_stato, nuove);
    return m_notaArchivio;
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
    m_copie.quote = Quote::scarica(m_stato);
    return m_copie.quote;
}

std::optional<QStringList> AggiornamentiSito::aggiornaQuote() {
    if (!verificaConnessione())
        return std::nullopt;
    return caricaMontepremi();
}

void AggiornamentiSito::scaricaSchedine(const QString &fileInfrasettimanale) {
    scaricaInFile(pagina(FileSchedine::fileSchedina(Tipo::Infrasettimanale)), fileInfrasettimanale);
    for (const Tipo tipo : SchedineWeekEnd)
        scaricaInFile(pagina(FileSchedine::fileSchedina(tipo)), FileSchedine::fileSchedina(tipo));
}

void AggiornamentiSito::aggiornaSchedinaDomenica() {
    // The doubled name is the one this routine has always written; nothing reads it.
    scaricaSchedine(u"SchedinaSchedinaProssimoConcorso.txt"_s);
}

void AggiornamentiSito::aggiornaSchedinaProssimoConcorso() {
    scaricaSchedine(FileSchedine::fileSchedina(Tipo::Infrasettimanale));
}

void AggiornamentiSito::aggiornaPicchetto() {
    for (const Tipo tipo : Picchetti)
        scaricaInFile(pagina(FileSchedine::filePicchetto(tipo)), FileSchedine::filePicchetto(tipo));
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
