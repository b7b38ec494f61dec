#include "analisi/colonne9.h"

#include "analisi/statistichesegni.h"

using namespace Qt::StringLiterals;

const QStringList &Colonne9::elenco() {
    static const QStringList tabella = [] {
        const QStringList &terzine = StatisticheSegni::elencoTerzine();
        QStringList t;
        t.reserve(Numero);
        for (const QString &a : terzine)
            for (const QString &b : terzine)
                for (const QString &c : terzine)
                    t.append(a + b + c);
        return t;
    }();
    return tabella;
}

int Colonne9::indice(QStringView colonna) {
    return colonna.size() == 9 ? StatisticheSegni::indice(colonna) : -1;
}

QString Colonne9::testoNumero(int n) {
    return n < 0 ? QString::number(n) : u" "_s + QString::number(n);
}

namespace {

Colonne9::Statistica statistica(const QString &colonna, int frequenza, int ritardo) {
    return {colonna, Colonne9::testoNumero(frequenza),
            frequenza == 0 ? u"-"_s : Colonne9::testoNumero(ritardo)};
}

} // namespace

int Colonne9::Conteggi::aggiungi(const ArchivioColonne &archivio, int j) {
    // Only a column of the 9 made of nine upper-case signs can equal one of the list.
    const int i = indice(QStringView(archivio.colonna(j - 1)).left(9));
    if (i >= 0) {
        ++frequenza[std::size_t(i)];
        ultimo[std::size_t(i)] = j;
    }
    return i;
}

Colonne9::Conteggi Colonne9::conta(const ArchivioColonne &archivio, int fino) {
    Conteggi c;
    const int n = fino < 0 ? archivio.numero() : std::min(fino, archivio.numero());
    for (int j = 1; j <= n; ++j)
        c.aggiungi(archivio, j);
    return c;
}

QList<Colonne9::Statistica> Colonne9::calcola(const ArchivioColonne &archivio,
                                              const std::function<void(int)> &avanzamento) {
    const int n = archivio.numero();
    const Conteggi conteggi = conta(archivio);
    const std::vector<int> &frequenza = conteggi.frequenza;
    const std::vector<int> &ultimo = conteggi.ultimo;
    QList<Statistica> tabella;
    tabella.reserve(Numero);
    const QStringList &colonne = elenco();
    for (int i = 0; i < Numero; ++i) {
        tabella.append(statistica(colonne.at(i), frequenza[i], n - ultimo[i]));
        if (avanzamento && (i + 1) % 1000 == 0)
            avanzamento(i + 1);
    }
    if (avanzamento)
        avanzamento(Numero);
    return tabella;
}

QList<Colonne9::Statistica> Colonne9::calcolaConConfronti(const ArchivioColonne &archivio) {
    const int n = archivio.numero();
    QList<Statistica> tabella;
    tabella.reserve(Numero);
    for (const QString &colonna : elenco()) {
        int frequenza = 0;
        int ritardo = 0;
        for (int j = 1; j <= n; ++j)
            if (archivio.colonna(j - 1).left(9) == colonna) {
                ++frequenza;
                ritardo = n - j;
            }
        tabella.append(statistica(colonna, frequenza, ritardo));
    }
    return tabella;
}

bool Colonne9::ricercaValida(const QString &testo) {
    const bool conSegno =
        testo.contains(u'1') || testo.contains(u'2') || testo.toUpper().contains(u'X');
    return conSegno && testo.size() == 9;
}

Colonne9::Ricerca Colonne9::cerca(const ArchivioColonne &archivio, const QString &testo) {
    const QString cercata = testo.toUpper();
    const int n = archivio.numero();
    Ricerca r;
    for (int j = 1; j <= n; ++j)
        if (archivio.colonna(j - 1).left(9) == cercata) {
            ++r.frequenza;
            r.ritardo = n - j;
        }
    if (r.frequenza == 0)
        r.ritardo = n;
    return r;
}

Colonne9::Presenze Colonne9::countOccurrences(const QString &testo, const QString &modello) {
    Presenze p{true, 0};
    if (modello.isEmpty())
        return {false, 0};
    const qsizetype lunghezza = modello.size();
    bool trovato = false;
    qsizetype inizio = 0; // 0-based: position 1 of the column
    for (;;) {
        const qsizetype posizione = testo.indexOf(modello, inizio);
        if (posizione < 0)
            break;
        ++p.conta;
        trovato = true;
        // The run goes on past the pattern: longer than asked.
        const qsizetype dopo = posizione + lunghezza;
        if (dopo < testo.size() && testo.at(dopo) == modello.at(0))
            return {false, p.conta};
        inizio = dopo;
        if (inizio == 9)
            break;
    }
    if (!trovato)
        p.esito = false;
    return p;
}

const QStringList &Colonne9::terzineOmogenee() {
    static const QStringList tabella = [] {
        const QStringList blocchi{u"111"_s, u"XXX"_s, u"222"_s};
        QStringList t;
        for (const QString &a : blocchi)
            for (const QString &b : blocchi)
                for (const QString &c : blocchi)
                    t.append(a + b + c);
        return t;
    }();
    return tabella;
}
