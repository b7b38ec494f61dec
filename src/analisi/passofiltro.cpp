#include "analisi/passofiltro.h"

#include "analisi/colonne9.h"
#include "core/colonna.h"

using namespace Qt::StringLiterals;

namespace {

// Mid(c, p, 1): the character at position p (from 1), or an empty text beyond the end.
QStringView carattere(QStringView c, int p) {
    return p >= 1 && p <= c.size() ? c.mid(p - 1, 1) : QStringView();
}

int contaSegno(QStringView c, QStringView segno) {
    int n = 0;
    for (int k = 1; k <= 9; ++k)
        n += carattere(c, k) == segno;
    return n;
}

bool segniDiversiIn(QStringView c, int terzina) {
    static const QStringList diverse{u"1X2"_s, u"12X"_s, u"X21"_s, u"X12"_s, u"21X"_s, u"2X1"_s};
    const auto diversa = [c](int t) { return diverse.contains(c.mid(3 * (t - 1)).left(3)); };
    if (terzina >= 1 && terzina <= 3)
        return diversa(terzina);
    return diversa(1) && diversa(2) && diversa(3);
}

// Digit by digit, the leading blank included: "1" finds 1, 10, 21 alike, and a text of two
// digits equals no single character.
bool frequenzaConCifra(QStringView freq, QStringView cifra) {
    for (int k = 1; k <= 9; ++k)
        if (carattere(freq, k) == cifra)
            return true;
    return false;
}

bool marcataConsecutivi(QStringView c, QStringView segno, QStringView modello) {
    if (modello.isEmpty())
        return false;
    const int lunghezza = int(modello.size());
    if (segno == u"1") {
        // Any run of "1" as long as the pattern or longer: the tail of a long run matches too.
        for (int k = 1; k <= 8; ++k)
            if (c.mid(k - 1).left(lunghezza) == modello && carattere(c, k + lunghezza) != u"1")
                return true;
        return false;
    }
    // "X" and "2": only the first run as long as the pattern decides.
    const qsizetype p = c.indexOf(modello);
    return p >= 0 && carattere(c, int(p) + 1 + lunghezza) != segno;
}

QString nomeSegno(const QString &segno) {
    return segno.isEmpty() ? u"\"\""_s : segno;
}

} // namespace

PassoFiltro::PassoFiltro(Tipo tipo)
    : m_tipo(tipo) {}

PassoFiltro PassoFiltro::formula(int uno, int x, int due) {
    PassoFiltro p(Tipo::Formula);
    p.m_numeri[0] = uno;
    p.m_numeri[1] = x;
    p.m_numeri[2] = due;
    return p;
}

PassoFiltro PassoFiltro::segnoFisso(int posizione, const QString &segno) {
    PassoFiltro p(Tipo::SegnoFisso);
    p.m_numeri[0] = posizione;
    p.m_testo = segno.toUpper();
    return p;
}

PassoFiltro PassoFiltro::conteggio(const QString &segno, int volte) {
    PassoFiltro p(Tipo::Conteggio);
    p.m_testo = segno.toUpper();
    p.m_numeri[0] = volte;
    return p;
}

PassoFiltro PassoFiltro::segniDiversi(int terzina) {
    PassoFiltro p(Tipo::SegniDiversi);
    p.m_numeri[0] = terzina;
    return p;
}

PassoFiltro PassoFiltro::eliminaSegno(const QString &segno) {
    PassoFiltro p(Tipo::EliminaSegno);
    p.m_testo = segno.toUpper();
    return p;
}

PassoFiltro PassoFiltro::eliminaInCasella(const QString &segno, int posizione) {
    PassoFiltro p(Tipo::EliminaInCasella);
    p.m_testo = segno.toUpper();
    p.m_numeri[0] = posizione;
    return p;
}

PassoFiltro PassoFiltro::eliminaFrequenza(const QString &cifra) {
    PassoFiltro p(Tipo::EliminaFrequenza);
    p.m_testo = cifra;
    return p;
}

PassoFiltro PassoFiltro::eliminaMaiUscite() {
    return PassoFiltro(Tipo::EliminaMaiUscite);
}

PassoFiltro PassoFiltro::terzineOmogenee() {
    return PassoFiltro(Tipo::TerzineOmogenee);
}

PassoFiltro PassoFiltro::consecutivi(const QString &segno, int lunghezza, int presenze) {
    PassoFiltro p(Tipo::Consecutivi);
    p.m_testo = segno;
    p.m_numeri[0] = std::clamp(lunghezza, 0, 10);
    p.m_modello = segno.repeated(p.m_numeri[0]);
    // One run or none asked for is one run.
    p.m_numeri[1] = (presenze == 0 || presenze == 1) ? 1 : presenze;
    return p;
}

PassoFiltro PassoFiltro::consecutiviElimina(const QString &segno, int lunghezza) {
    PassoFiltro p(Tipo::ConsecutiviElimina);
    p.m_testo = segno;
    p.m_numeri[0] = std::clamp(lunghezza, 0, 10);
    p.m_modello = segno.repeated(p.m_numeri[0]);
    return p;
}

PassoFiltro PassoFiltro::insieme(const QList<int> &indici, const QString &descrizione) {
    PassoFiltro p(Tipo::Insieme);
    p.m_indici = QSet<int>(indici.cbegin(), indici.cend());
    p.m_testo = descrizione;
    return p;
}

bool PassoFiltro::resta(const Riga &riga) const {
    const QStringView c = riga.colonna;
    switch (m_tipo) {
    case Tipo::Formula:
        return Colonna::segniNove(c) == std::array<int, 3>{m_numeri[0], m_numeri[1], m_numeri[2]};
    case Tipo::SegnoFisso:
        return carattere(c, m_numeri[0]) == m_testo;
    case Tipo::Conteggio:
        return contaSegno(c, m_testo) == m_numeri[0];
    case Tipo::SegniDiversi:
        return segniDiversiIn(c, m_numeri[0]);
    case Tipo::EliminaSegno:
        return contaSegno(c, m_testo) == 0;
    case Tipo::EliminaInCasella:
        return carattere(c, m_numeri[0]) != m_testo;
    case Tipo::EliminaFrequenza:
        return !frequenzaConCifra(riga.frequenza, m_testo);
    case Tipo::EliminaMaiUscite:
        return riga.ritardo != u"-";
    case Tipo::TerzineOmogenee:
        return Colonne9::terzineOmogenee().contains(c);
    case Tipo::Consecutivi: {
        const Colonne9::Presenze r = Colonne9::countOccurrences(c.toString(), m_modello);
        return r.esito && r.conta == m_numeri[1];
    }
    case Tipo::ConsecutiviElimina:
        return !marcataConsecutivi(c, m_testo, m_modello);
    case Tipo::Insieme:
        return m_indici.contains(Colonne9::indice(c));
    }
    return true;
}

bool PassoFiltro::leggeLArchivio() const {
    return m_tipo == Tipo::EliminaFrequenza || m_tipo == Tipo::EliminaMaiUscite;
}

QString PassoFiltro::descrizione() const {
    switch (m_tipo) {
    case Tipo::Formula:
        return u"Formula %1-%2-%3"_s.arg(m_numeri[0]).arg(m_numeri[1]).arg(m_numeri[2]);
    case Tipo::SegnoFisso:
        return u"Segno fisso %1 in posizione %2"_s.arg(nomeSegno(m_testo)).arg(m_numeri[0]);
    case Tipo::Conteggio:
        return u"Segno %1 presente %2 %3"_s.arg(nomeSegno(m_testo))
            .arg(m_numeri[0])
            .arg(m_numeri[0] == 1 ? u"volta"_s : u"volte"_s);
    case Tipo::SegniDiversi:
        return m_numeri[0] >= 1 && m_numeri[0] <= 3
                   ? u"Segni diversi nella %1ª terzina"_s.arg(m_numeri[0])
                   : u"Segni diversi in tutte le terzine"_s;
    case Tipo::EliminaSegno:
        return u"Elimina le colonne con il segno %1"_s.arg(nomeSegno(m_testo));
    case Tipo::EliminaInCasella:
        return u"Elimina il segno %1 in casella %2"_s.arg(nomeSegno(m_testo)).arg(m_numeri[0]);
    case Tipo::EliminaFrequenza:
        return u"Elimina le frequenze con la cifra %1"_s.arg(m_testo);
    case Tipo::EliminaMaiUscite:
        return u"Elimina le mai uscite"_s;
    case Tipo::TerzineOmogenee:
        return u"Solo terzine omogenee"_s;
    case Tipo::Consecutivi:
        return u"Consecutività: %1 %2 di esattamente %3 segni %4"_s.arg(m_numeri[1])
            .arg(m_numeri[1] == 1 ? u"sequenza"_s : u"sequenze"_s)
            .arg(m_numeri[0])
            .arg(nomeSegno(m_testo));
    case Tipo::ConsecutiviElimina:
        return u"Consecutività: elimina le sequenze di %1 segni %2"_s.arg(m_numeri[0])
            .arg(nomeSegno(m_testo));
    case Tipo::Insieme:
        return m_testo;
    }
    return {};
}

QStringList PassoFiltro::descrizioni(const QList<PassoFiltro> &catena) {
    QStringList testi;
    for (const PassoFiltro &p : catena)
        testi.append(p.descrizione());
    if (testi.isEmpty())
        testi.append(u"Nessun filtro"_s);
    return testi;
}
