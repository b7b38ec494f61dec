#include "analisi/riduzionegaranzia.h"

#include <QElapsedTimer>
#include <QSet>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <memory>
#include <numeric>
#include <span>
#include <vector>

namespace {

constexpr int MassimoSegni = 9;
// Entries of the stored balls, two bytes each; beyond this (radius 3 and more on large sets) a
// ball is computed each time it is walked.
constexpr qint64 MassimoVoci = qint64(8) << 20;
constexpr int PassoAvanzamentoMs = 50;
// The work of one turn of a search, in ball entries walked: a few milliseconds.
constexpr qint64 FettaLavoro = 200000;
// A search on syndromes starts again with another code after this many moves per syndrome
// without a smaller cover: the good codes show themselves early, and many codes are tried.
constexpr int MosseStalloSindromi = 50;
// Tabu tenure: an element that left may not enter again for the next 2 to 4 moves. Longer or
// shorter tenures did worse on the full spaces of 6 to 8 signs.
constexpr int DurataEsclusione = 2;
constexpr int DurataEsclusioneCaso = 2;

int potenzaDiTre(int n) {
    int p = 1;
    while (n-- > 0)
        p *= 3;
    return p;
}

// The number of columns of n signs within distance r of a column.
qint64 volumePalla(int segni, int raggio) {
    qint64 volume = 0;
    qint64 binomiale = 1;
    qint64 dueAlla = 1;
    for (int i = 0; i <= std::min(raggio, segni); ++i) {
        volume += binomiale * dueAlla;
        binomiale = binomiale * (segni - i) / (i + 1);
        dueAlla *= 2;
    }
    return volume;
}

// Two bits a sign, so that the differing signs of two columns are one popcount.
quint32 codifica(int colonna, int segni) {
    quint32 codice = 0;
    for (int i = 0; i < segni; ++i) {
        codice |= quint32(colonna % 3) << (2 * i);
        colonna /= 3;
    }
    return codice;
}

int differenze(quint32 a, quint32 b) {
    const quint32 x = a ^ b;
    return std::popcount((x | (x >> 1)) & 0x15555u);
}

// Sum of two vectors over F_3 written as base-3 numbers of `cifre` digits.
int somma3(int a, int b, int cifre) {
    int s = 0;
    for (int q = 1, i = 0; i < cifre; ++i, q *= 3) {
        s += (a % 3 + b % 3) % 3 * q;
        a /= 3;
        b /= 3;
    }
    return s;
}

bool argomentiValidi(const QList<int> &colonne, int segni, int raggio) {
    if (segni < 1 || segni > MassimoSegni || raggio < 0)
        return false;
    const int universo = potenzaDiTre(segni);
    return std::all_of(colonne.begin(), colonne.end(),
                       [universo](int c) { return c >= 0 && c < universo; });
}

// The distinct columns in the order of their first appearance.
std::vector<int> distinte(const QList<int> &colonne, int segni) {
    std::vector<char> vista(size_t(potenzaDiTre(segni)), 0);
    std::vector<int> valori;
    valori.reserve(size_t(colonne.size()));
    for (int c : colonne)
        if (!vista[size_t(c)]) {
            vista[size_t(c)] = 1;
            valori.push_back(c);
        }
    return valori;
}

// splitmix64: small, fast and the same on every platform, so a seed gives the same search.
class Casuale {
public:
    explicit Casuale(quint64 seme)
        : m_stato(seme * 0x9E3779B97F4A7C15ull + 0x632BE59BD9B4E019ull) {}
    quint64 prossimo() {
        quint64 z = (m_stato += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    // Uniform in 0..n-1.
    int sotto(int n) { return int(((prossimo() >> 32) * quint64(n)) >> 32); }

private:
    quint64 m_stato;
};

// The ball of every element of a covering problem: the elements it covers, which are also the
// elements that cover it. For a set of columns, the columns of the set within the radius
// (stored when they fit in MassimoVoci, else computed on demand); for the syndromes of a code,
// lists given by the caller.
class Palle {
public:
    Palle(std::vector<int> valori, int segni, int raggio)
        : m_valori(std::move(valori))
        , m_indice(size_t(potenzaDiTre(segni)), -1)
        , m_segni(segni)
        , m_raggio(raggio)
        , m_volume(volumePalla(segni, raggio)) {
        for (int p = 0, q = 1; p < segni; ++p, q *= 3)
            m_potenze[size_t(p)] = q;
        m_codici.reserve(m_valori.size());
        for (size_t i = 0; i < m_valori.size(); ++i) {
            m_indice[size_t(m_valori[i])] = int(i);
            m_codici.push_back(codifica(m_valori[i], segni));
        }
        const qint64 n = numero();
        m_dimensioni.resize(size_t(n));
        if (n == potenzaDiTre(segni)) {
            // The whole space: every ball is whole.
            std::fill(m_dimensioni.begin(), m_dimensioni.end(), int(m_volume));
            m_massima = int(m_volume);
            if (n * m_volume > MassimoVoci)
                return;
        }
        const bool memorizzate = n * std::min(n, m_volume) <= MassimoVoci;
        std::vector<quint16> appoggio;
        std::vector<quint32> inizio;
        if (memorizzate)
            inizio.push_back(0);
        for (int i = 0; i < n; ++i) {
            calcola(i, appoggio);
            m_dimensioni[size_t(i)] = int(appoggio.size());
            m_massima = std::max(m_massima, int(appoggio.size()));
            if (memorizzate) {
                m_voci.insert(m_voci.end(), appoggio.begin(), appoggio.end());
                inizio.push_back(quint32(m_voci.size()));
            }
        }
        m_inizio = std::move(inizio);
    }

    // Balls as lists, `genera` fills the ball of an element; the relation must be symmetric.
    Palle(int numero, const std::function<void(int, std::vector<quint16> &)> &genera)
        : m_segni(0)
        , m_raggio(0)
        , m_volume(0)
        , m_esplicite(true) {
        m_valori.resize(size_t(numero));
        std::vector<quint16> appoggio;
        m_inizio.push_back(0);
        for (int i = 0; i < numero; ++i) {
            appoggio.clear();
            genera(i, appoggio);
            std::sort(appoggio.begin(), appoggio.end());
            m_voci.insert(m_voci.end(), appoggio.begin(), appoggio.end());
            m_inizio.push_back(quint32(m_voci.size()));
            m_dimensioni.push_back(int(appoggio.size()));
            m_massima = std::max(m_massima, int(appoggio.size()));
        }
    }

    int numero() const { return int(m_valori.size()); }
    bool memorizzate() const { return !m_inizio.empty(); }
    int dimensione(int i) const { return m_dimensioni[size_t(i)]; }
    // The largest ball: the floor of a cover is numero() / massima(), rounded up.
    int massima() const { return m_massima; }
    int pavimento() const { return (numero() + massima() - 1) / massima(); }
    // Whether element i is in the ball of element j.
    bool vicine(int i, int j) const {
        if (m_esplicite)
            return std::binary_search(m_voci.data() + m_inizio[size_t(j)],
                                      m_voci.data() + m_inizio[size_t(j) + 1], quint16(i));
        return differenze(m_codici[size_t(i)], m_codici[size_t(j)]) <= m_raggio;
    }
    // `appoggio` holds the ball when it is not stored: nested walks need one each.
    std::span<const quint16> palla(int i, std::vector<quint16> &appoggio) const {
        if (!m_inizio.empty())
            return {m_voci.data() + m_inizio[size_t(i)], m_voci.data() + m_inizio[size_t(i) + 1]};
        calcola(i, appoggio);
        return appoggio;
    }

private:
    void calcola(int i, std::vector<quint16> &uscita) const {
        uscita.clear();
        // A popcount per column of the set costs a fraction of a step of the walk.
        if (numero() <= 8 * m_volume) {
            for (int j = 0; j < numero(); ++j)
                if (vicine(i, j))
                    uscita.push_back(quint16(j));
        } else {
            visita(m_valori[size_t(i)], 0, m_raggio, uscita);
        }
    }
    // Every column within `resto` more changes, each position changed at most once.
    void visita(int colonna, int da, int resto, std::vector<quint16> &uscita) const {
        if (const int j = m_indice[size_t(colonna)]; j >= 0)
            uscita.push_back(quint16(j));
        if (resto == 0)
            return;
        for (int p = da; p < m_segni; ++p) {
            const int q = m_potenze[size_t(p)];
            const int cifra = colonna / q % 3;
            for (int s = 1; s <= 2; ++s)
                visita(colonna + ((cifra + s) % 3 - cifra) * q, p + 1, resto - 1, uscita);
        }
    }

    std::vector<int> m_valori;
    std::vector<int> m_indice;
    std::vector<quint32> m_codici;
    std::array<int, MassimoSegni> m_potenze{};
    int m_segni;
    int m_raggio;
    qint64 m_volume;
    bool m_esplicite = false;
    int m_massima = 0;
    std::vector<int> m_dimensioni;
    std::vector<quint32> m_inizio; // empty when the balls are computed on demand
    std::vector<quint16> m_voci;
};

// Elements grouped by a small integer key, with O(1) moves between keys and a random pick in a
// key: the bucket queue of the greedy step and the kept columns by their loss.
class Secchi {
public:
    Secchi(int chiavi, int elementi)
        : m_secchi(size_t(chiavi))
        , m_chiave(size_t(elementi), -1)
        , m_posto(size_t(elementi), 0) {}

    bool contiene(int e) const { return m_chiave[size_t(e)] >= 0; }
    int chiave(int e) const { return m_chiave[size_t(e)]; }
    bool vuoto(int k) const { return m_secchi[size_t(k)].empty(); }
    void inserisci(int e, int k) {
        auto &s = m_secchi[size_t(k)];
        m_chiave[size_t(e)] = k;
        m_posto[size_t(e)] = int(s.size());
        s.push_back(e);
    }
    void togli(int e) {
        auto &s = m_secchi[size_t(m_chiave[size_t(e)])];
        const int ultimo = s.back();
        s[size_t(m_posto[size_t(e)])] = ultimo;
        m_posto[size_t(ultimo)] = m_posto[size_t(e)];
        s.pop_back();
        m_chiave[size_t(e)] = -1;
    }
    void sposta(int e, int k) {
        togli(e);
        inserisci(e, k);
    }
    int scegli(int k, Casuale &caso) const {
        const auto &s = m_secchi[size_t(k)];
        return s[size_t(caso.sotto(int(s.size())))];
    }

private:
    std::vector<std::vector<int>> m_secchi;
    std::vector<int> m_chiave;
    std::vector<int> m_posto;
};

// Greedy: the element that covers most of what is still uncovered (ties at random), then the
// kept elements whose every covered element is covered twice are dropped, the last chosen first.
// When `continua` says stop (asked now and then when the balls are computed on demand, where the
// greedy step takes seconds), the elements still uncovered are kept as they are: a valid cover.
std::vector<int> coperturaAvida(const Palle &palle, Casuale &caso,
                                const std::function<bool()> &continua) {
    const int n = palle.numero();
    std::vector<quint16> a1, a2;
    Secchi guadagni(palle.massima() + 1, n);
    for (int i = 0; i < n; ++i)
        guadagni.inserisci(i, palle.dimensione(i));
    std::vector<char> coperta(size_t(n), 0);
    std::vector<int> scelte;
    int coperte = 0;
    int cima = palle.massima();
    qint64 camminate = 0;
    bool fermo = false;
    const auto ferma = [&] { return !palle.memorizzate() && continua && !continua(); };
    while (coperte < n) {
        if (fermo || ferma()) {
            for (int y = 0; y < n; ++y)
                if (!coperta[size_t(y)])
                    scelte.push_back(y);
            return scelte;
        }
        while (guadagni.vuoto(cima))
            --cima;
        const int c = guadagni.scegli(cima, caso);
        guadagni.togli(c);
        scelte.push_back(c);
        for (int y : palle.palla(c, a1)) {
            if (coperta[y])
                continue;
            coperta[y] = 1;
            ++coperte;
            if (fermo)
                continue;
            for (int z : palle.palla(y, a2))
                if (guadagni.contiene(z))
                    guadagni.sposta(z, guadagni.chiave(z) - 1);
            // Each ball on demand walks the set: look at the clock every few of them.
            fermo = ++camminate % 16 == 0 && ferma();
        }
    }
    if (fermo)
        return scelte;
    std::vector<int> copertura(size_t(n), 0);
    for (int c : scelte)
        for (int y : palle.palla(c, a1))
            ++copertura[y];
    std::vector<int> tenute;
    for (auto it = scelte.rbegin(); it != scelte.rend(); ++it) {
        const auto palla = palle.palla(*it, a1);
        if (std::all_of(palla.begin(), palla.end(), [&](int y) { return copertura[y] > 1; })) {
            for (int y : palla)
                --copertura[y];
        } else {
            tenute.push_back(*it);
        }
    }
    return tenute;
}

// The tabu search at a fixed number of kept elements, minimising the uncovered ones weighted:
// each move adds 1 to the weight of every element still uncovered, so that the elements that
// stay uncovered pull the search elsewhere. For every element it keeps, plain and weighted, what
// its ball has uncovered (what adding it would gain) and covered once (what removing it would
// lose, when it is kept), updated at each change of a coverage count.
class Ricerca {
public:
    Ricerca(const Palle &palle, const std::vector<int> &tenute, quint64 seme)
        : m_palle(palle)
        , m_caso(seme)
        , m_n(palle.numero())
        , m_copertura(size_t(m_n), 0)
        , m_guadagno(size_t(m_n), 0)
        , m_perdita(size_t(m_n), 0)
        , m_peso(size_t(m_n), 1)
        , m_guadagnoPesato(size_t(m_n), 0)
        , m_perditaPesata(size_t(m_n), 0)
        , m_tenuta(size_t(m_n), 0)
        , m_postoScoperta(size_t(m_n), -1)
        , m_perdite(palle.massima() + 1, m_n)
        , m_esclusaFino(size_t(m_n), 0)
        , m_soloMossa(size_t(m_n), -1)
        , m_soloInizio(size_t(m_n), 0)
        , m_soloFine(size_t(m_n), 0) {
        for (int i = 0; i < m_n; ++i) {
            m_guadagno[size_t(i)] = int(palle.palla(i, m_a1).size());
            m_guadagnoPesato[size_t(i)] = m_guadagno[size_t(i)];
            m_postoScoperta[size_t(i)] = i;
            m_scoperte.push_back(i);
        }
        for (int c : tenute)
            aggiungi(c);
    }

    int scoperte() const { return int(m_scoperte.size()); }
    qint64 lavoro() const { return m_lavoro; }
    std::vector<int> elencoTenute() const {
        std::vector<int> t;
        for (int i = 0; i < m_n; ++i)
            if (m_tenuta[size_t(i)])
                t.push_back(i);
        return t;
    }

    // One kept element less: one of those whose removal uncovers the fewest.
    void riduci() {
        int k = 0;
        while (m_perdite.vuoto(k))
            ++k;
        togli(m_perdite.scegli(k, m_caso));
        m_minimoScoperte = scoperte();
    }

    // One move: a random uncovered element x; an element c2 of its ball enters and a kept
    // element c leaves, c within the ball of c2 or else one of the kept elements that lose
    // least. The best move by the weights is made, unless c2 left lately (tabu) and the move
    // leaves no fewer uncovered than ever at this size.
    void mossa(qint64 iterazione) {
        const int x = m_scoperte[size_t(m_caso.sotto(scoperte()))];
        ++m_mossa;
        m_solo.clear();
        int minima = 0;
        while (m_perdite.vuoto(minima))
            ++minima;
        const int riserva = m_perdite.scegli(minima, m_caso);

        qint64 migliore = std::numeric_limits<qint64>::max();
        qint64 miglioreTabu = std::numeric_limits<qint64>::max();
        int esce = -1, entra = -1, pari = 0;
        int esceTabu = -1, entraTabu = -1;
        const auto valuta = [&](int c, int c2, bool escluso) {
            // What c alone covers and c2 covers too stays covered.
            int ripresa = 0;
            qint64 ripresaPesata = 0;
            for (int y : soloDa(c))
                if (m_palle.vicine(y, c2)) {
                    ++ripresa;
                    ripresaPesata += m_peso[size_t(y)];
                }
            const int delta = m_perdita[size_t(c)] - m_guadagno[size_t(c2)] - ripresa;
            const qint64 deltaPesato =
                m_perditaPesata[size_t(c)] - m_guadagnoPesato[size_t(c2)] - ripresaPesata;
            if (escluso && scoperte() + delta >= m_minimoScoperte) {
                if (deltaPesato < miglioreTabu) {
                    miglioreTabu = deltaPesato;
                    esceTabu = c;
                    entraTabu = c2;
                }
                return;
            }
            if (deltaPesato < migliore) {
                migliore = deltaPesato;
                esce = c;
                entra = c2;
                pari = 1;
            } else if (deltaPesato == migliore && m_caso.sotto(++pari) == 0) {
                esce = c;
                entra = c2;
            }
        };
        for (int c2 : palla(x, m_a1)) {
            const bool escluso = m_esclusaFino[size_t(c2)] > iterazione;
            bool vistaRiserva = false;
            for (int c : palla(c2, m_a2)) {
                if (!m_tenuta[size_t(c)])
                    continue;
                vistaRiserva |= c == riserva;
                valuta(c, c2, escluso);
            }
            if (!vistaRiserva)
                valuta(riserva, c2, escluso);
        }
        if (esce < 0) {
            esce = esceTabu;
            entra = entraTabu;
        }
        togli(esce);
        aggiungi(entra);
        m_esclusaFino[size_t(esce)] =
            iterazione + 1 + DurataEsclusione + m_caso.sotto(DurataEsclusioneCaso + 1);
        m_minimoScoperte = std::min(m_minimoScoperte, scoperte());
        for (int y : m_scoperte) {
            ++m_peso[size_t(y)];
            for (int z : palla(y, m_a1))
                ++m_guadagnoPesato[z];
        }
    }

private:
    std::span<const quint16> palla(int i, std::vector<quint16> &appoggio) {
        const auto p = m_palle.palla(i, appoggio);
        m_lavoro += qint64(p.size());
        return p;
    }

    // The elements covered by kept element c alone, found once a move.
    std::span<const int> soloDa(int c) {
        if (m_soloMossa[size_t(c)] != m_mossa) {
            m_soloMossa[size_t(c)] = m_mossa;
            m_soloInizio[size_t(c)] = int(m_solo.size());
            for (int y : palla(c, m_a3))
                if (m_copertura[y] == 1)
                    m_solo.push_back(y);
            m_soloFine[size_t(c)] = int(m_solo.size());
        }
        return {m_solo.data() + m_soloInizio[size_t(c)], m_solo.data() + m_soloFine[size_t(c)]};
    }

    void cambiaPerdita(int z, int d, qint64 peso) {
        m_perdita[size_t(z)] += d;
        m_perditaPesata[size_t(z)] += d * peso;
        if (m_tenuta[size_t(z)])
            m_perdite.sposta(z, m_perdita[size_t(z)]);
    }

    void aggiungi(int c) {
        m_tenuta[size_t(c)] = 1;
        m_perdite.inserisci(c, m_perdita[size_t(c)]);
        for (int y : palla(c, m_a1)) {
            const int prima = m_copertura[y]++;
            const qint64 peso = m_peso[y];
            if (prima == 0) {
                const int posto = m_postoScoperta[y];
                const int ultima = m_scoperte.back();
                m_scoperte[size_t(posto)] = ultima;
                m_postoScoperta[size_t(ultima)] = posto;
                m_scoperte.pop_back();
                m_postoScoperta[y] = -1;
                for (int z : palla(y, m_a2)) {
                    --m_guadagno[z];
                    m_guadagnoPesato[z] -= peso;
                    cambiaPerdita(z, +1, peso);
                }
            } else if (prima == 1) {
                for (int z : palla(y, m_a2))
                    cambiaPerdita(z, -1, peso);
            }
        }
    }

    void togli(int c) {
        m_perdite.togli(c);
        m_tenuta[size_t(c)] = 0;
        for (int y : palla(c, m_a1)) {
            const int dopo = --m_copertura[y];
            const qint64 peso = m_peso[y];
            if (dopo == 0) {
                m_postoScoperta[y] = int(m_scoperte.size());
                m_scoperte.push_back(y);
                for (int z : palla(y, m_a2)) {
                    ++m_guadagno[z];
                    m_guadagnoPesato[z] += peso;
                    cambiaPerdita(z, -1, peso);
                }
            } else if (dopo == 1) {
                for (int z : palla(y, m_a2))
                    cambiaPerdita(z, +1, peso);
            }
        }
    }

    const Palle &m_palle;
    Casuale m_caso;
    int m_n;
    std::vector<int> m_copertura; // kept elements in the ball of each element
    std::vector<int> m_guadagno;
    std::vector<int> m_perdita;
    std::vector<qint64> m_peso;
    std::vector<qint64> m_guadagnoPesato;
    std::vector<qint64> m_perditaPesata;
    std::vector<char> m_tenuta;
    std::vector<int> m_scoperte;
    std::vector<int> m_postoScoperta;
    Secchi m_perdite;                  // the kept elements by their loss
    std::vector<qint64> m_esclusaFino; // tabu: may not enter before this move
    int m_minimoScoperte = 0;          // the fewest uncovered at this size
    qint64 m_mossa = 0;
    qint64 m_lavoro = 0; // ball entries walked: the cost of the search on any machine
    std::vector<int> m_solo;
    std::vector<qint64> m_soloMossa;
    std::vector<int> m_soloInizio;
    std::vector<int> m_soloFine;
    std::vector<quint16> m_a1, m_a2, m_a3;
};

// Greedy cover, then tabu search at ever smaller sizes, on one covering problem; it runs in
// turns of a given work so that the caller can look at the clock and share the time. It stops
// at the floor, or after as many moves without a smaller cover as it took to find the best one,
// and at least `mosseStallo` moves per element.
class Risolutore {
public:
    // Balls computed on demand make each move walk the set many times over: the greedy cover
    // is all there is then.
    Risolutore(std::unique_ptr<Palle> palle, quint64 seme, int mosseStallo,
               const std::function<bool()> &continua = {})
        : m_palle(std::move(palle))
        , m_seme(seme)
        , m_stallo(qint64(mosseStallo) * m_palle->numero()) {
        Casuale caso(seme);
        m_migliori = coperturaAvida(*m_palle, caso, continua);
        m_finito = !m_palle->memorizzate() || int(m_migliori.size()) <= m_palle->pavimento();
    }

    const Palle &palle() const { return *m_palle; }
    const std::vector<int> &migliori() const { return m_migliori; }
    bool finito() const { return m_finito; }
    qint64 iterazioni() const { return m_iterazione; }
    qint64 lavoro() const { return m_lavoro + (m_ricerca ? m_ricerca->lavoro() : 0); }

    // Goes on from a smaller cover found elsewhere.
    void parti(const std::vector<int> &copertura) {
        if (copertura.size() >= m_migliori.size())
            return;
        m_migliori = copertura;
        if (m_ricerca)
            m_lavoro += m_ricerca->lavoro();
        m_ricerca.reset();
        m_iterazioneMigliore = m_iterazione;
        m_finito = !m_palle->memorizzate() || int(m_migliori.size()) <= m_palle->pavimento();
    }

    // Moves until `fetta` more work is done, or the search ends.
    void avanza(qint64 fetta) {
        if (m_finito)
            return;
        if (!m_ricerca) {
            m_ricerca = std::make_unique<Ricerca>(*m_palle, m_migliori, m_seme + m_iterazione);
            m_ricerca->riduci();
        }
        const qint64 termine = m_ricerca->lavoro() + fetta;
        while (m_ricerca->lavoro() < termine) {
            if (m_ricerca->scoperte() == 0) {
                m_migliori = m_ricerca->elencoTenute();
                m_iterazioneMigliore = m_iterazione;
                if (int(m_migliori.size()) <= m_palle->pavimento()) {
                    m_finito = true;
                    return;
                }
                m_ricerca->riduci();
                continue;
            }
            if (m_iterazione - m_iterazioneMigliore >= std::max(m_stallo, m_iterazioneMigliore)) {
                m_finito = true;
                return;
            }
            m_ricerca->mossa(m_iterazione);
            ++m_iterazione;
        }
    }

private:
    std::unique_ptr<Palle> m_palle;
    quint64 m_seme;
    qint64 m_stallo;
    std::vector<int> m_migliori;
    std::unique_ptr<Ricerca> m_ricerca;
    qint64 m_iterazione = 0;
    qint64 m_iterazioneMigliore = 0;
    qint64 m_lavoro = 0;
    bool m_finito = false;
};

// Codes made of whole cosets of a linear code: the columns x whose syndrome H·x lies in a set T.
// Such a code covers the space iff the balls T + D cover the 3^m syndromes, D the syndromes of
// the columns of weight up to r: a far smaller covering problem, whose answers have the
// regularity of the best codes of the full space. H is systematic, its other columns random and
// distinct up to sign.
class Sindromi {
public:
    Sindromi(int segni, int righe, int raggio, Casuale &caso)
        : m_righe(righe)
        , m_sindromi(potenzaDiTre(righe)) {
        std::vector<int> h;
        std::vector<char> usata(size_t(m_sindromi), 0);
        for (int i = 0, q = 1; i < righe; ++i, q *= 3) {
            h.push_back(q);
            usata[size_t(q)] = 1;
        }
        while (int(h.size()) < segni) {
            const int v = rappresentante(1 + caso.sotto(m_sindromi - 1));
            if (!usata[size_t(v)]) {
                usata[size_t(v)] = 1;
                h.push_back(v);
            }
        }
        // Column by column: x is a smaller column plus its leading digit times 3^i.
        const int universo = potenzaDiTre(segni);
        m_sindrome.assign(size_t(universo), 0);
        std::vector<int> peso(size_t(universo), 0);
        std::vector<char> inD(size_t(m_sindromi), 0);
        inD[0] = 1;
        for (int x = 1, i = 0, q = 1; x < universo; ++x) {
            if (x >= 3 * q) {
                ++i;
                q *= 3;
            }
            const int cifra = x / q;
            const int resto = x - cifra * q;
            int s = somma3(m_sindrome[size_t(resto)], h[size_t(i)], righe);
            if (cifra == 2)
                s = somma3(s, h[size_t(i)], righe);
            m_sindrome[size_t(x)] = s;
            peso[size_t(x)] = peso[size_t(resto)] + 1;
            if (peso[size_t(x)] <= raggio)
                inD[size_t(s)] = 1;
        }
        for (int d = 0; d < m_sindromi; ++d)
            if (inD[size_t(d)])
                m_scarti.push_back(d);
    }

    std::unique_ptr<Palle> palle() const {
        return std::make_unique<Palle>(m_sindromi, [this](int t, std::vector<quint16> &palla) {
            for (int d : m_scarti)
                palla.push_back(quint16(somma3(t, d, m_righe)));
        });
    }

    // The columns of the code of a set of syndromes, in increasing order.
    std::vector<int> colonne(const std::vector<int> &insieme) const {
        std::vector<char> dentro(size_t(m_sindromi), 0);
        for (int t : insieme)
            dentro[size_t(t)] = 1;
        std::vector<int> c;
        for (size_t x = 0; x < m_sindrome.size(); ++x)
            if (dentro[size_t(m_sindrome[x])])
                c.push_back(int(x));
        return c;
    }

private:
    // The class {v, 2v} by its member whose leading digit is 1.
    int rappresentante(int v) const {
        int cifra = 0;
        for (int t = v; t > 0; t /= 3)
            if (t % 3)
                cifra = t % 3;
        return cifra == 2 ? somma3(v, v, m_righe) : v;
    }

    int m_righe;
    int m_sindromi;
    std::vector<int> m_sindrome;
    std::vector<int> m_scarti;
};

// One of the searches of a reduction: on the set itself (k = 0), or on the syndromes of a linear
// code of dimension k, started again with another code whenever it stagnates.
struct Lavoro {
    int k = 0;
    qint64 minimo = 0; // no code of this kind is smaller
    qint64 fatto = 0;  // work done, to share the time evenly
    int codici = 0;    // codes tried
    std::unique_ptr<Sindromi> sindromi;
    std::unique_ptr<Risolutore> risolutore;
};

QList<int> nellOrdine(const std::vector<int> &valori, std::vector<int> indici) {
    std::sort(indici.begin(), indici.end());
    QList<int> colonne;
    colonne.reserve(qsizetype(indici.size()));
    for (int i : indici)
        colonne.append(valori[size_t(i)]);
    return colonne;
}

} // namespace

RiduzioneGaranzia::Esito
RiduzioneGaranzia::riduci(const QList<int> &colonne, const Opzioni &opzioni,
                          const std::function<bool(const Avanzamento &)> &avanzamento) {
    QElapsedTimer orologio;
    orologio.start();
    Esito esito;
    const auto fine = [&] {
        esito.trascorsiMs = int(orologio.elapsed());
        return esito;
    };
    if (!argomentiValidi(colonne, opzioni.segni, opzioni.raggio) || colonne.isEmpty())
        return fine();
    const std::vector<int> valori = distinte(colonne, opzioni.segni);
    if (opzioni.raggio == 0) {
        esito.tenute = QList<int>(valori.begin(), valori.end());
        return fine();
    }
    if (opzioni.raggio >= opzioni.segni) {
        esito.tenute = {valori.front()};
        return fine();
    }

    // The set itself is the cover until the greedy one is there.
    std::vector<int> migliori(valori.size());
    std::iota(migliori.begin(), migliori.end(), 0);
    bool fermato = false;
    qint64 prossimoAvviso = 0;
    const auto continua = [&] {
        if (fermato)
            return false;
        const qint64 ora = orologio.elapsed();
        if (avanzamento && ora >= prossimoAvviso) {
            prossimoAvviso = ora + PassoAvanzamentoMs;
            if (!avanzamento(Avanzamento{int(migliori.size()), int(ora), opzioni.limiteMs})) {
                esito.annullata = true;
                fermato = true;
            }
        }
        if (!fermato && ora >= opzioni.limiteMs) {
            esito.limiteRaggiunto = true;
            fermato = true;
        }
        return !fermato;
    };
    // Within the greedy step the progress is told only when it runs long.
    const auto continuaAvido = [&] {
        const qint64 ora = orologio.elapsed();
        return (ora < PassoAvanzamentoMs && ora < opzioni.limiteMs) || continua();
    };

    std::vector<Lavoro> lavori;
    lavori.emplace_back().risolutore =
        std::make_unique<Risolutore>(std::make_unique<Palle>(valori, opzioni.segni, opzioni.raggio),
                                     opzioni.seme, MosseStallo, continuaAvido);
    Risolutore &sulSet = *lavori.front().risolutore;
    const int pavimento = sulSet.palle().pavimento();
    migliori = sulSet.migliori();
    esito.tenute = nellOrdine(valori, migliori);
    esito.migliorataMs = int(orologio.elapsed());

    // On the whole space, codes made of cosets too: a search for each dimension k of the linear
    // code whose codes could beat the greedy cover and whose H can have distinct columns.
    const int universo = potenzaDiTre(opzioni.segni);
    std::vector<int> posto;
    if (int(valori.size()) == universo) {
        posto.assign(size_t(universo), 0);
        for (size_t i = 0; i < valori.size(); ++i)
            posto[size_t(valori[i])] = int(i);
        const qint64 volume = volumePalla(opzioni.segni, opzioni.raggio);
        for (int k = 1; k < opzioni.segni; ++k) {
            const qint64 sindromi = potenzaDiTre(opzioni.segni - k);
            const qint64 palla = std::min(volume, sindromi);
            const qint64 minimo = (sindromi + palla - 1) / palla * potenzaDiTre(k);
            if ((sindromi - 1) / 2 >= opzioni.segni && minimo < qint64(migliori.size()) &&
                sindromi * palla <= MassimoVoci) {
                Lavoro &l = lavori.emplace_back();
                l.k = k;
                l.minimo = minimo;
            }
        }
    }

    if (!continua() || int(migliori.size()) <= pavimento)
        return fine();

    // Turns to the search that has done the least work; the whole stops after as many moves
    // without a smaller cover as it took to find the best one, and at least MosseStallo moves
    // per column.
    const qint64 stallo = qint64(MosseStallo) * qint64(valori.size());
    qint64 mosse = 0;
    qint64 mosseMigliore = 0;
    for (;;) {
        Lavoro *lavoro = nullptr;
        for (Lavoro &l : lavori) {
            const bool attivo =
                l.k == 0 ? !l.risolutore->finito() : l.minimo < qint64(migliori.size());
            if (attivo && (!lavoro || l.fatto < lavoro->fatto))
                lavoro = &l;
        }
        if (!lavoro)
            break;
        if (lavoro->k > 0 && (!lavoro->risolutore || lavoro->risolutore->finito())) {
            Casuale caso(quint64(opzioni.seme) << 32 | quint64(lavoro->k) << 24 |
                         quint64(lavoro->codici));
            lavoro->sindromi = std::make_unique<Sindromi>(opzioni.segni, opzioni.segni - lavoro->k,
                                                          opzioni.raggio, caso);
            lavoro->risolutore = std::make_unique<Risolutore>(lavoro->sindromi->palle(),
                                                              caso.prossimo(), MosseStalloSindromi);
            ++lavoro->codici;
            // A new code costs a walk of the space and a greedy cover of its syndromes.
            const Palle &p = lavoro->risolutore->palle();
            lavoro->fatto += universo + 2 * qint64(p.numero()) * p.massima();
            mosse += p.numero();
        }
        Risolutore &risolutore = *lavoro->risolutore;
        const qint64 mossePrima = risolutore.iterazioni();
        const qint64 lavoroPrima = risolutore.lavoro();
        risolutore.avanza(FettaLavoro);
        mosse += risolutore.iterazioni() - mossePrima;
        lavoro->fatto += risolutore.lavoro() - lavoroPrima;

        const qint64 misura = qint64(risolutore.migliori().size()) * potenzaDiTre(lavoro->k);
        if (misura < qint64(migliori.size())) {
            if (lavoro->k == 0) {
                migliori = risolutore.migliori();
            } else {
                migliori.clear();
                for (int c : lavoro->sindromi->colonne(risolutore.migliori()))
                    migliori.push_back(posto[size_t(c)]);
                sulSet.parti(migliori);
            }
            esito.tenute = nellOrdine(valori, migliori);
            esito.migliorataMs = int(orologio.elapsed());
            mosseMigliore = mosse;
            if (int(migliori.size()) <= pavimento)
                break;
        }
        if (!continua())
            break;
        if (mosse - mosseMigliore >= std::max(stallo, mosseMigliore))
            break;
    }
    esito.iterazioni = mosse;
    return fine();
}

bool RiduzioneGaranzia::garantita(const QList<int> &colonne, const QList<int> &tenute, int segni,
                                  int raggio) {
    if (!argomentiValidi(colonne, segni, raggio) || !argomentiValidi(tenute, segni, raggio))
        return false;
    const QSet<int> insieme(colonne.begin(), colonne.end());
    for (int t : tenute)
        if (!insieme.contains(t))
            return false;
    // The signs of each kept column once, then every pair compared sign by sign.
    using Segni = std::array<int, MassimoSegni>;
    const auto segniDi = [segni](int c) {
        Segni s{};
        for (int i = 0; i < segni; ++i, c /= 3)
            s[size_t(i)] = c % 3;
        return s;
    };
    std::vector<Segni> segniTenute;
    for (int t : tenute)
        segniTenute.push_back(segniDi(t));
    for (int c : colonne) {
        const Segni s = segniDi(c);
        const bool coperta =
            std::any_of(segniTenute.begin(), segniTenute.end(), [&](const Segni &t) {
                int diverse = 0;
                for (int i = 0; i < segni && diverse <= raggio; ++i)
                    diverse += s[size_t(i)] != t[size_t(i)];
                return diverse <= raggio;
            });
        if (!coperta)
            return false;
    }
    return true;
}

int RiduzioneGaranzia::distanza(int a, int b, int segni) {
    int d = 0;
    for (int i = 0; i < segni; ++i) {
        d += a % 3 != b % 3;
        a /= 3;
        b /= 3;
    }
    return d;
}

int RiduzioneGaranzia::minimo(const QList<int> &colonne, int segni, int raggio) {
    if (!argomentiValidi(colonne, segni, raggio) || colonne.isEmpty())
        return 0;
    std::vector<int> valori = distinte(colonne, segni);
    if (raggio == 0)
        return int(valori.size());
    if (raggio >= segni)
        return 1;
    return Palle(std::move(valori), segni, raggio).pavimento();
}
