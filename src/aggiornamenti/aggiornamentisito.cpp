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
    m_riepilogo.prevedi({nomeFile});
    const QString testo =
        ScaricamentoFile::inFile(m_stato.rete(), percorso, m_stato.percorsoFile(nomeFile));
    m_riepilogo.fatto(nomeFile);
    return testo;
}

void AggiornamentiSito::prevediCompleto(bool archivio) {
    if (archivio)
        m_riepilogo.prevedi({testo(Archivio::NomeFile)});
    m_riepilogo.prevedi(fileClassifiche());
    m_riepilogo.prevedi(fileSchedine());
}

QStringList AggiornamentiSito::fileClassifiche() {
    QStringList v;
    for (int i = 0; i < NumeroSerie; ++i)
        v.append(fileClassifica(i));
    return v;
}

QStringList AggiornamentiSito::filePicchetti() {
    QStringList v;
    for (const Tipo tipo : Picchetti)
        v.append(FileSchedine::filePicchetto(tipo));
    return v;
}

QStringList AggiornamentiSito::fileSchedine() {
    // The order of aggiornaSchedine: quotas, the coupons with the doubled name, the picchetti,
    // the midweek coupon under its own name.
    QStringList v{testo(Quote::File), u"SchedinaSchedinaProssimoConcorso.txt"_s};
    for (const Tipo tipo : SchedineWeekEnd)
        v.append(FileSchedine::fileSchedina(tipo));
    v += filePicchetti();
    v.append(FileSchedine::fileSchedina(Tipo::Infrasettimanale));
    return v;
}

QStringList AggiornamentiSito::fileSchedineEPicchetti() {
    QStringList v{testo(Quote::File), FileSchedine::fileSchedina(Tipo::Infrasettimanale)};
    for (const Tipo tipo : SchedineWeekEnd)
        v.append(FileSchedine::fileSchedina(tipo));
    return v + filePicchetti();
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
    m_riepilogo.fatto(testo(Archivio::NomeFile));
    return m_notaArchivio;
}

void AggiornamentiSito::riparaArchivio() {
    m_riepilogo.prevedi({testo(Archivio::NomeFile)});
    ricostruisciArchivio(scaricaArchivio());
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
    m_riepilogo.prevedi(fileClassifiche());
    for (int i = 0; i < NumeroSerie; ++i) {
        aggiornaSerie(i);
        if (avanzamento)
            avanzamento(i + 1);
    }
}

QStringList AggiornamentiSito::caricaMontepremi() {
    const QString file = testo(Quote::File);
    m_riepilogo.prevedi({file});
    m_copie.quote = Quote::scarica(m_stato);
    m_riepilogo.fatto(file);
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
    m_riepilogo.prevedi(filePicchetti());
    for (const Tipo tipo : Picchetti)
        scaricaInFile(pagina(FileSchedine::filePicchetto(tipo)), FileSchedine::filePicchetto(tipo));
}

void AggiornamentiSito::aggiornaSchedine() {
    m_riepilogo.prevedi(fileSchedine());
    caricaMontepremi();
    aggiornaSchedinaDomenica();
    aggiornaPicchetto();
    aggiornaSchedinaProssimoConcorso();
}

void AggiornamentiSito::aggiornaSchedineEPicchetti() {
    m_riepilogo.prevedi(fileSchedineEPicchetti());
    caricaMontepremi();
    aggiornaSchedinaProssimoConcorso();
    aggiornaPicchetto();
}

void AggiornamentiSito::scaricaInFile(const QList<std::pair<QString, QString>> &pagine) {
    for (const auto &[percorso, nome] : pagine)
        m_riepilogo.prevedi({nome});
    // Every page first: a list is replaced only when all the new ones came whole, so a site
    // that stops half-way leaves the old lists, not a mix.
    QStringList testi;
    for (const auto &[percorso, nome] : pagine)
        testi.append(scaricaPagina(percorso));
    controllaInterruzione();
    // Each file replaced in place: whenever the program stops, every list is whole, old or new.
    for (qsizetype i = 0; i < pagine.size(); ++i) {
        FileDati::sostituisci(m_stato.PercorsoDati, pagine.at(i).second, Rete::righe(testi.at(i)));
        m_riepilogo.fatto(pagine.at(i).second);
    }
}

void AggiornamentiSito::aggiornaConcorsiStranieri() {
    QList<std::pair<QString, QString>> pagine;
    // Each list is fetched from the site's page and written under the league's own name, the one
    // every reader of the list asks for (Argentina's page is SerieArgentinaAp.txt, its list
    // serieArgentina.txt).
    for (const Leghe::Lega &lega : Leghe::straniere())
        pagine.append({u"/vespara/"_s + fileSquadreSito(lega.codice), Leghe::fileSquadre(lega)});
    scaricaInFile(pagine);
}

void AggiornamentiSito::aggiornaSquadreItaliane() {
    QList<std::pair<QString, QString>> pagine;
    for (const Leghe::Lega &lega : Leghe::italiane()) {
        const QString nome = fileSquadreSito(lega.codice);
        pagine.append({u"/vespara/"_s + nome, nome});
    }
    scaricaInFile(pagine);
}
