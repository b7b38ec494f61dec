#include "aggiornamenti/messaggi.h"

#include "core/numeritesto.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"

using namespace Qt::StringLiterals;

namespace {

const char16_t *const NomiPagine[Messaggi::NumeroCampi] = {
    u"data.htm",  u"titolo.htm", u"riga1.htm", u"riga2.htm",
    u"riga3.htm", u"riga4.htm",  u"staff.htm"};

QString sottoCartella(const QString &nome) {
    return QString::fromUtf16(Messaggi::Cartella) + nome;
}

} // namespace

QString Messaggi::pagina(Campo campo) {
    return sottoCartella(QString::fromUtf16(NomiPagine[campo]));
}

QString Messaggi::paginaNumero() {
    return sottoCartella(u"new.htm"_s);
}

QString Messaggi::paginaLink() {
    return sottoCartella(u"link.htm"_s);
}

int Messaggi::numero(const QString &testo) {
    return int(std::clamp<qint64>(NumeriTesto::valore(testo), INT_MIN, INT_MAX));
}

QStringList Messaggi::pezzi(const QString &testo) {
    return testo.trimmed().split(u'-');
}

int Messaggi::numeroVisto(const QString &cartellaDati, bool assenteComeZero) {
    const QString nome = QString::fromUtf16(FileVisto);
    if (assenteComeZero && !FileDati::esiste(cartellaDati, nome))
        return 0;
    return numero(FileDati::leggiPrimaRiga(FileDati::percorso(cartellaDati, nome)));
}

void Messaggi::scriviNumeroVisto(const QString &cartellaDati, int n) {
    FileDati::scriviRighe(FileDati::percorso(cartellaDati, QString::fromUtf16(FileVisto)),
                          {QString::number(n)});
}

int Messaggi::numeroRemoto(Rete &rete) {
    return numero(rete.scaricaTesto(paginaNumero()));
}

QString Messaggi::ultimoTitolo(Rete &rete) {
    return pezzi(rete.scaricaTesto(pagina(Titolo))).constLast();
}

Messaggi::Pagine Messaggi::scaricaPagine(Rete &rete, QString *link) {
    Pagine pagine;
    for (int c = 0; c < NumeroCampi; ++c)
        pagine[c] = rete.scaricaTesto(pagina(Campo(c)));
    // The link page is asked as the site expects, though nothing of it is shown.
    const QString testoLink = rete.scaricaTesto(paginaLink());
    if (link)
        *link = testoLink;
    return pagine;
}

Messaggi::Novita Messaggi::controlla(Rete &rete, const QString &cartellaDati,
                                     bool assenteComeZero) {
    Novita n;
    n.locale = numeroVisto(cartellaDati, assenteComeZero);
    n.remoto = numeroRemoto(rete);
    n.nuovo = n.locale < n.remoto;
    return n;
}

void ArchivioComunicazioni::riempi(const Messaggi::Pagine &pagine) {
    std::array<QStringList, Messaggi::NumeroCampi> pezzi;
    for (int c = 0; c < Messaggi::NumeroCampi; ++c)
        pezzi[c] = Messaggi::pezzi(pagine[c]);
    const qsizetype numero = pezzi[Messaggi::Data].size();
    if (numero > Capacita)
        throw ErroreEsecuzione(u"Le comunicazioni del sito sono %1: l'archivio delle "
                               "comunicazioni ne può contenere al massimo %2."_s.arg(numero)
                                   .arg(Capacita));
    for (int c = 1; c < Messaggi::NumeroCampi; ++c)
        if (pezzi[c].size() < numero)
            throw ErroreEsecuzione(
                u"Le comunicazioni del sito sono incomplete: la pagina %1 ha %2 parti, ma le "
                "date sono %3."_s.arg(Messaggi::pagina(Messaggi::Campo(c)))
                    .arg(pezzi[c].size())
                    .arg(numero));
    QList<Comunicazione> record;
    record.reserve(numero);
    for (qsizetype i = 0; i < numero; ++i) {
        Comunicazione r;
        for (int c = 0; c < Messaggi::NumeroCampi; ++c)
            r[c] = pezzi[c].at(i);
        record.append(r);
    }
    m_record = std::move(record);
    m_corrente = NumeroComunicazioni();
}

void ArchivioComunicazioni::svuota() {
    m_record.clear();
    m_corrente = 0;
}

const ArchivioComunicazioni::Comunicazione &ArchivioComunicazioni::comunicazione(int k) const {
    if (k < 1 || k > NumeroComunicazioni())
        throw ErroreEsecuzione(
            u"La comunicazione %1 non è nell'archivio delle comunicazioni."_s.arg(k));
    return m_record.at(k - 1);
}

bool ArchivioComunicazioni::avanti() {
    if (m_corrente + 1 > NumeroComunicazioni())
        return false;
    ++m_corrente;
    return true;
}

bool ArchivioComunicazioni::indietro() {
    if (m_corrente - 1 < 1)
        return false;
    --m_corrente;
    return true;
}
