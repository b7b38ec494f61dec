#include "analisi/grigliepannello.h"

#include "core/glossario.h"
#include "piattaforma/griglia.h"

using namespace Qt::StringLiterals;

namespace {

const QColor Blu(0, 0, 255);
const QColor Rosso(255, 0, 0);
const QColor GrigioChiaro(224, 224, 224);

void prepara(Griglia &g, int righe, int colonne, int larghezza) {
    g.setRigheFisse(0);
    g.setColonneFisse(0);
    g.setRighe(righe);
    g.setColonne(colonne);
    g.pulisci();
    for (int c = 0; c < colonne; ++c) {
        g.setLarghezzaColonna(c, larghezza);
        g.setAllineamentoColonna(c, Griglia::Allineamento::CentroCentro);
    }
}

void segni(Griglia &g, const QStringList &elenco) {
    for (int c = 0; c < elenco.size(); ++c)
        for (int r = 0; r < elenco.at(c).size(); ++r)
            g.setTesto(r, c, elenco.at(c).at(r));
}

void intestazione(Griglia &g, int riga, const QString &testo, const QColor &sfondo,
                  const QString &suggerimento) {
    for (int c = 0; c < g.colonne(); ++c) {
        g.setTesto(riga, c, testo);
        g.setSfondo(riga, c, sfondo);
        g.setColore(riga, c, Qt::white);
        g.setGrassetto(riga, c, true);
        g.setSuggerimento(riga, c, suggerimento);
    }
}

void etichetta(Griglia &g, int riga, const QString &testo, const QString &suggerimento) {
    for (int c = 0; c < g.colonne(); ++c) {
        g.setTesto(riga, c, testo);
        g.setSfondo(riga, c, GrigioChiaro);
        g.setSuggerimento(riga, c, suggerimento);
    }
}

// What "R" and "F" stand for on each grid: the delays and frequencies of StatisticheSegni.
const QString Archivio = u"concorsi dell'archivio"_s;
const QString MaiUscita = u"il numero dei concorsi dell'archivio se non è mai uscita"_s;

QString ritardoR(const QString &cosa, const QString &assente) {
    return Glossario::sigla(u"R"_s, Glossario::ritardo(cosa, assente));
}

QString frequenzaF(const QString &cosa, const QString &concorsi) {
    return Glossario::sigla(u"F"_s, Glossario::frequenza(cosa, concorsi));
}

template <std::size_t N>
void valori(Griglia &g, int riga, const std::array<StatisticheSegni::Figura, N> &figure,
            bool ritardo) {
    for (std::size_t c = 0; c < N; ++c) {
        const auto &f = figure[c];
        g.setTesto(riga, int(c), QString::number(ritardo ? f.ritardo : f.frequenza));
        g.setColore(riga, int(c), ritardo ? Blu : Rosso);
    }
}

// The short grids of the cinquine and coppie: signs, a rule, "R" and the delay, "F" and the
// frequency.
template <std::size_t N>
void riempiBreve(Griglia &g, const QStringList &elenco,
                 const std::array<StatisticheSegni::Figura, N> &figure, int larghezza,
                 const QString &ritardo, const QString &frequenza) {
    const int lato = int(elenco.first().size());
    prepara(g, lato + 5, int(N), larghezza);
    segni(g, elenco);
    for (int c = 0; c < g.colonne(); ++c)
        g.setTesto(lato, c, u"------"_s);
    intestazione(g, lato + 1, u"R"_s, Blu, ritardo);
    valori(g, lato + 2, figure, true);
    intestazione(g, lato + 3, u"F"_s, Rosso, frequenza);
    valori(g, lato + 4, figure, false);
}

} // namespace

void GrigliePannello::riempiTerzine(Griglia &g, const StatisticheSegni::Figure &f) {
    const auto blocco = g.inBlocco();
    prepara(g, RigheTerzine, 27, 350);
    segni(g, StatisticheSegni::elencoTerzine());
    for (int c = 0; c < g.colonne(); ++c)
        g.setTesto(3, c, u"------"_s);
    const QString terzina = u"della terzina in quella posizione della colonna"_s;
    intestazione(g, 4, u"R"_s, Blu, ritardoR(terzina, MaiUscita));
    intestazione(g, 13, u"F"_s, Rosso,
                 frequenzaF(u"la terzina in quella posizione della colonna"_s, Archivio));
    for (int b = 1; b <= 4; ++b) {
        const QString nome = u"%1ª"_s.arg(b);
        const QString dove = u"nella %1ª terzina (%2)"_s.arg(b).arg(Glossario::partiteTerzina(b));
        etichetta(g, rigaRitardo(b) - 1, nome, u"Ritardo "_s + dove);
        etichetta(g, rigaFrequenza(b) - 1, nome, u"Frequenza "_s + dove);
        valori(g, rigaRitardo(b), f.terzine[b - 1], true);
        valori(g, rigaFrequenza(b), f.terzine[b - 1], false);
    }
}

void GrigliePannello::riempiCinquine(Griglia &g, const StatisticheSegni::Figure &f) {
    const auto blocco = g.inBlocco();
    riempiBreve(g, StatisticheSegni::elencoCinquine(), f.cinquine, 550,
                ritardoR(u"della cinquina nelle partite 10-14"_s, MaiUscita),
                frequenzaF(u"la cinquina nelle partite 10-14"_s, Archivio));
}

void GrigliePannello::riempiCoppie(Griglia &g, const StatisticheSegni::Figure &f) {
    const auto blocco = g.inBlocco();
    // The coppie are counted over the latest contests only.
    const QString base = QString::number(f.baseCoppie);
    riempiBreve(
        g, StatisticheSegni::elencoCoppie(), f.coppie, 350,
        ritardoR(u"della coppia nelle partite 13 e 14"_s,
                 u"%1 se non è uscita negli ultimi %1 concorsi"_s.arg(base)),
        frequenzaF(u"la coppia nelle partite 13 e 14"_s, u"degli ultimi %1 concorsi"_s.arg(base)));
}

QString GrigliePannello::testoIndice(const ArchivioColonne &archivio) {
    const RigaArchivio &ultima = archivio.ultima();
    return u"Stagione "_s + ultima[ArchivioColonne::Stagione] + u"/2011 - Concorso N. "_s +
           ultima[ArchivioColonne::Concorso];
}
