#include "analisi/bancocolonne9.h"

#include "core/colonna.h"
#include "core/glossario.h"
#include "core/numeritesto.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int RigheUniverso = Colonne9::Numero + 1;
constexpr std::array<int, BancoColonne9::Colonne> Larghezze{750, 1500, 600, 600};
constexpr auto Sinistra = Griglia::Allineamento::SinistraCentro;

// Mid(c, p, 1): the character at position p (from 1), or an empty text beyond the end.
QStringView carattere(const QString &c, int p) {
    return p >= 1 && p <= c.size() ? QStringView(c).mid(p - 1, 1) : QStringView();
}

QString testoPosizione(int i, BancoColonne9::FormaPosizione forma) {
    return forma == BancoColonne9::FormaPosizione::Parentesi ? QString::number(i) + u')'
                                                             : QString::number(i);
}

} // namespace

const QStringList &BancoColonne9::intestazioni() {
    static const QStringList testi{u"Pos."_s, u"Colonna del 9"_s, u"Freq."_s, u"Rit."_s};
    return testi;
}

const QStringList &BancoColonne9::suggerimentiIntestazioni() {
    static const QStringList testi = [] {
        const QString ordina = u"\nUn clic sull'intestazione, o un doppio clic su una cella della "
                               "colonna, ordina le righe: decrescente e crescente alternati."_s;
        return QStringList{
            Glossario::sigla(u"Pos."_s, u"Posizione: il numero della riga nell'elenco, "
                                        "riscritto a ogni filtro; l'ordinamento non lo cambia."_s) +
                ordina,
            u"Colonna del 9: i segni delle prime nove partite. Questa colonna non si ordina."_s,
            Glossario::sigla(u"Freq."_s, Glossario::frequenza(u"la colonna del 9"_s,
                                                              u"concorsi dell'archivio"_s)) +
                ordina,
            Glossario::sigla(u"Rit."_s, Glossario::ritardo(u"della colonna del 9"_s,
                                                           u"\"-\" se non è mai uscita"_s)) +
                ordina,
        };
    }();
    return testi;
}

BancoColonne9::BancoColonne9(Griglia &griglia)
    : m_griglia(griglia) {
    liberaSegni();
}

int BancoColonne9::totale() const {
    return m_griglia.righe() - 1;
}

void BancoColonne9::prepara() {
    const auto blocco = m_griglia.inBlocco();
    m_griglia.setColonne(Colonne);
    m_griglia.setRigheFisse(1);
    m_griglia.setRighe(RigheUniverso);
    m_ordinamento.azzera();
    m_griglia.pulisci();
    for (int c = 0; c < Colonne; ++c)
        m_griglia.setLarghezzaColonna(c, Larghezze[c]);
    scriviIntestazioni();
    // The universe is not there until the first "Inizializzazione".
    m_griglia.setRighe(1);
}

void BancoColonne9::carica(const QList<Colonne9::Statistica> &statistiche) {
    {
        const auto blocco = m_griglia.inBlocco();
        m_griglia.setRighe(1);
        m_griglia.setRighe(int(statistiche.size()) + 1);
        m_griglia.setAllineamentoColonna(1, Sinistra);
        for (int i = 1; i <= statistiche.size(); ++i) {
            const Colonne9::Statistica &s = statistiche.at(i - 1);
            m_griglia.setTesto(i, 0, testoPosizione(i, FormaPosizione::Parentesi));
            for (int c = 0; c < 3; ++c)
                m_griglia.setTesto(i, c + 1, s[c]);
        }
    }
    m_ordinamento.setOrdine(std::nullopt);
    liberaSegni();
}

void BancoColonne9::scriviIntestazioni() {
    for (int c = 0; c < Colonne; ++c) {
        m_griglia.setTesto(0, c, intestazioni().at(c));
        m_griglia.setSuggerimento(0, c, suggerimentiIntestazioni().at(c));
    }
}

void BancoColonne9::istantanea() {
    m_istantanea.clear();
    m_istantanea.reserve(totale());
    for (int r = 1; r < m_griglia.righe(); ++r) {
        std::array<QString, Colonne> riga;
        for (int c = 0; c < Colonne; ++c)
            riga[c] = m_griglia.testo(r, c);
        m_istantanea.append(riga);
    }
    m_righeIstantanea = int(m_istantanea.size());
    m_conIstantanea = true;
    m_ordineIstantanea = m_ordinamento.ordine();
}

void BancoColonne9::annulla() {
    const auto blocco = m_griglia.inBlocco();
    m_griglia.setRighe(0);
    m_griglia.setRighe(m_righeIstantanea + 1);
    scriviIntestazioni();
    for (int i = 1; i <= m_righeIstantanea; ++i)
        for (int c = 0; c < Colonne; ++c)
            m_griglia.setTesto(i, c, m_istantanea.at(i - 1)[c]);
    m_ordinamento.setOrdine(m_ordineIstantanea);
}

void BancoColonne9::filtra(const Regola &resta, FormaPosizione forma) {
    QList<std::array<QString, Colonne>> tenute;
    tenute.reserve(totale());
    for (int r = 1; r < m_griglia.righe(); ++r) {
        const QString c = m_griglia.testo(r, 1);
        const QString freq = m_griglia.testo(r, 2);
        const QString rit = m_griglia.testo(r, 3);
        if (resta(c, freq, rit))
            tenute.append({QString(), c, freq, rit});
    }
    riscrivi(tenute, forma, true);
}

void BancoColonne9::riscrivi(const QList<std::array<QString, Colonne>> &righe, FormaPosizione forma,
                             bool conPosizione) {
    const auto blocco = m_griglia.inBlocco();
    m_griglia.setRighe(1);
    m_griglia.setRighe(int(righe.size()) + 1);
    m_griglia.setAllineamentoCorpo(Sinistra);
    for (int i = 1; i <= righe.size(); ++i) {
        const auto &riga = righe.at(i - 1);
        m_griglia.setTesto(i, 0, conPosizione ? testoPosizione(i, forma) : riga[0]);
        for (int c = 1; c < Colonne; ++c)
            m_griglia.setTesto(i, c, riga[c]);
    }
    if (conPosizione)
        posizioniRiscritte();
}

void BancoColonne9::numera(FormaPosizione forma) {
    const auto blocco = m_griglia.inBlocco();
    for (int i = 1; i < m_griglia.righe(); ++i)
        m_griglia.setTesto(i, 0, testoPosizione(i, forma));
    posizioniRiscritte();
}

void BancoColonne9::posizioniRiscritte() {
    // New numbers run from 1 in the present order: a sort by "Pos." no longer holds.
    if (ordine() && ordine()->colonna == 0)
        m_ordinamento.setOrdine(std::nullopt);
}

BancoColonne9::Messaggio BancoColonne9::controllare() {
    return {Dialoghi::Tipo::Avviso, u"Controllare i dati inseriti."_s};
}

int BancoColonne9::valore(const QString &testo) {
    return int(std::clamp<qint64>(NumeriTesto::valore(testo), -1000000000, 1000000000));
}

bool BancoColonne9::haFormula(const QString &c, int uno, int x, int due) {
    return Colonna::segniNove(c) == std::array<int, 3>{uno, x, due};
}

int BancoColonne9::contaSegno(const QString &c, const QString &segno) {
    int n = 0;
    for (int k = 1; k <= 9; ++k)
        n += carattere(c, k) == segno;
    return n;
}

bool BancoColonne9::segniDiversiIn(const QString &c, int terzina) {
    static const QStringList diverse{u"1X2"_s, u"12X"_s, u"X21"_s, u"X12"_s, u"21X"_s, u"2X1"_s};
    const auto diversa = [&c](int t) { return diverse.contains(c.mid(3 * (t - 1), 3)); };
    if (terzina >= 1 && terzina <= 3)
        return diversa(terzina);
    return diversa(1) && diversa(2) && diversa(3);
}

bool BancoColonne9::frequenzaConCifra(const QString &freq, const QString &cifra) {
    // Digit by digit, the leading blank included: "1" finds 1, 10, 21 alike.
    for (int k = 1; k <= 9; ++k)
        if (carattere(freq, k) == cifra)
            return true;
    return false;
}

bool BancoColonne9::marcataConsecutivi(const QString &c, const QString &segno,
                                       const QString &modello) {
    if (modello.isEmpty())
        return false;
    const int lunghezza = int(modello.size());
    if (segno == u"1"_s) {
        // Any run of "1" as long as the pattern or longer: the tail of a long run matches too.
        for (int k = 1; k <= 8; ++k)
            if (c.mid(k - 1, lunghezza) == modello && carattere(c, k + lunghezza) != u"1"_s)
                return true;
        return false;
    }
    // "X" and "2": only the first run as long as the pattern decides.
    const qsizetype p = c.indexOf(modello);
    return p >= 0 && carattere(c, int(p) + 1 + lunghezza) != segno;
}

BancoColonne9::Esito BancoColonne9::formula(const QString &uno, const QString &x,
                                            const QString &due) {
    // The snapshot comes before the check: a refused formula still replaces it.
    istantanea();
    const int v1 = valore(uno), vx = valore(x), v2 = valore(due);
    if (v1 + vx + v2 != 9)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"La formula inserita è inesatta. La somma dei segni deve essere 9."_s};
    filtra([=](const QString &c, const QString &,
               const QString &) { return haFormula(c, v1, vx, v2); },
           FormaPosizione::Numero);
    return std::nullopt;
}

BancoColonne9::Esito BancoColonne9::segnoFisso(const QString &posizione, const QString &segno) {
    istantanea();
    const int pos = valore(posizione);
    if (pos < 1 || pos > 9)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"Attenzione. Inserire una posizione valida (tra 1 e 9)."_s};
    const QString maiuscolo = segno.toUpper();
    if (segno != u"1"_s && segno != u"2"_s && maiuscolo != u"X"_s)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"Attenzione. Inserire un segno valido (1,X,2)."_s};
    QString &casella = m_segniFissi[pos - 1];
    if (casella == segno)
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"Il segno introdotto è già stato utilizzato."_s};
    if (casella != QLatin1StringView(Libero))
        return Messaggio{Dialoghi::Tipo::Informazione,
                         u"La posizione "_s + posizione + u" è già stata utilizzata."_s};
    casella = segno;
    filtra([pos, &maiuscolo](const QString &c, const QString &,
                             const QString &) { return carattere(c, pos) == maiuscolo; },
           FormaPosizione::Parentesi);
    return std::nullopt;
}

BancoColonne9::Esito BancoColonne9::conteggio(const QString &segno, const QString &presenze) {
    if (segno == QLatin1StringView(Libero) && presenze == QLatin1StringView(Libero))
        return controllare();
    istantanea();
    const QString s = segno.toUpper();
    const int volte = valore(presenze);
    filtra([&s, volte](const QString &c, const QString &,
                       const QString &) { return contaSegno(c, s) == volte; },
           FormaPosizione::Numero);
    return std::nullopt;
}

void BancoColonne9::segniDiversi(int terzina) {
    istantanea();
    filtra([terzina](const QString &c, const QString &,
                     const QString &) { return segniDiversiIn(c, terzina); },
           FormaPosizione::Numero);
}

void BancoColonne9::eliminaSegno(const QString &segno) {
    istantanea();
    const QString s = segno.toUpper();
    filtra(
        [&s](const QString &c, const QString &, const QString &) { return contaSegno(c, s) == 0; },
        FormaPosizione::Numero);
}

BancoColonne9::Esito BancoColonne9::eliminaInCasella(const QString &segno,
                                                     const QString &segnoCmbSegno,
                                                     const QString &casella) {
    // The check pairs this sign with the one of "Elimina colonne con il segno", as it always
    // has; a box left at "?" has no position and is refused the same way.
    if (segno == QLatin1StringView(Libero) && segnoCmbSegno == QLatin1StringView(Libero))
        return controllare();
    const int pos = valore(casella);
    if (pos < 1)
        return controllare();
    istantanea();
    const QString s = segno.toUpper();
    filtra([pos, &s](const QString &c, const QString &,
                     const QString &) { return carattere(c, pos) != s; },
           FormaPosizione::Numero);
    return std::nullopt;
}

BancoColonne9::Esito BancoColonne9::eliminaFrequenza(const QString &cifra) {
    if (cifra.isEmpty())
        return controllare();
    istantanea();
    filtra([&cifra](const QString &, const QString &freq,
                    const QString &) { return !frequenzaConCifra(freq, cifra); },
           FormaPosizione::Numero);
    return std::nullopt;
}

void BancoColonne9::eliminaMaiUscite() {
    istantanea();
    filtra([](const QString &, const QString &, const QString &rit) { return rit != u"-"_s; },
           FormaPosizione::Numero);
}

void BancoColonne9::terzineOmogenee() {
    istantanea();
    const QStringList &omogenee = Colonne9::terzineOmogenee();
    filtra([&omogenee](const QString &c, const QString &,
                       const QString &) { return omogenee.contains(c); },
           FormaPosizione::Numero);
}

void BancoColonne9::tieni(const QList<int> &indici) {
    istantanea();
    const QSet<int> tenute(indici.cbegin(), indici.cend());
    filtra([&tenute](const QString &c, const QString &,
                     const QString &) { return tenute.contains(Colonne9::indice(c)); },
           FormaPosizione::Numero);
}

QList<int> BancoColonne9::indici() const {
    QList<int> v;
    v.reserve(totale());
    for (int r = 1; r < m_griglia.righe(); ++r)
        v.append(Colonne9::indice(m_griglia.testo(r, 1)));
    return v;
}

BancoColonne9::Esito BancoColonne9::consecutivi(const QString &segno, const QString &consecutivi,
                                                const QString &presenze) {
    if (segno.isEmpty()) {
        // No sign chosen: only the renumbering that closes the delete form.
        numera(FormaPosizione::Parentesi);
        return std::nullopt;
    }
    if (consecutivi == QLatin1StringView(Libero) || presenze == QLatin1StringView(Libero))
        return controllare();
    istantanea();
    // A run longer than the nine signs matches nothing, whatever its length: one sign beyond
    // them gives the same answer without building a pattern of a typed 999999999.
    const QString modello = segno.repeated(std::clamp(valore(consecutivi), 0, 10));
    if (presenze != u"0"_s) {
        const int p = valore(presenze);
        const int obiettivo = (p == 0 || p == 1) ? 1 : p;
        filtra(
            [&modello, obiettivo](const QString &c, const QString &, const QString &) {
                const Colonne9::Presenze r = Colonne9::countOccurrences(c, modello);
                return r.esito && r.conta == obiettivo;
            },
            FormaPosizione::Numero);
        return std::nullopt;
    }
    QList<int> marcate;
    for (int r = 1; r < m_griglia.righe(); ++r)
        if (marcataConsecutivi(m_griglia.testo(r, 1), segno, modello))
            marcate.append(r);
    {
        const auto blocco = m_griglia.inBlocco();
        m_griglia.rimuoviRighe(marcate);
        numera(FormaPosizione::Parentesi);
    }
    return std::nullopt;
}

void BancoColonne9::liberaSegno(int posizione) {
    if (posizione >= 1 && posizione <= 9)
        m_segniFissi[posizione - 1] = QString::fromLatin1(Libero);
}

void BancoColonne9::liberaSegni() {
    m_segniFissi.fill(QString::fromLatin1(Libero));
}

void BancoColonne9::ordina(int colonna) {
    if (colonna == 1 || colonna < 0 || colonna >= m_griglia.colonne())
        return;
    m_ordinamento.ordina(m_griglia, colonna);
}
