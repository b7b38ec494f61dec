#include "campionati/mostraclassifica.h"

#include "piattaforma/dispositivodisegno.h"
#include "piattaforma/griglia.h"
#include "stampa/flexprinter.h"

using namespace Qt::StringLiterals;

namespace {

// The print places its heading in the printer's dots.
constexpr qreal TwipsPerPixel = DispositivoDisegno::TwipsPerPixelStampa;

QString primaParola(const QString &nome) {
    return nome.trimmed().split(u' ').first();
}

// InStr's reading: an empty word is found in any text but an empty one.
bool contiene(const QString &testo, const QString &parola) {
    return parola.isEmpty() ? !testo.isEmpty() : testo.contains(parola);
}

} // namespace

const QStringList &MostraClassifica::intestazioni() {
    static const QStringList testi = [] {
        QStringList t{u"Pos."_s, u"Squadra"_s, u"Punti"_s};
        for (int gruppo = 0; gruppo < 3; ++gruppo)
            t << u"G"_s << u"V"_s << u"N"_s << u"P"_s << u"RF"_s << u"RS"_s;
        return t;
    }();
    return testi;
}

const QStringList &MostraClassifica::gruppi() {
    static const QStringList testi{u"Totali"_s, u"In casa"_s, u"Fuori casa"_s};
    return testi;
}

bool MostraClassifica::segnata(const Leghe::Lega &lega, const QString &squadra, const QString &casa,
                               const QString &ospite) {
    if (lega.italiana) {
        const QString nome = squadra.toUpper();
        return nome == casa.toUpper() || nome == ospite.toUpper();
    }
    const QString nome = squadra.trimmed().toUpper();
    return contiene(nome, primaParola(casa)) || contiene(nome, primaParola(ospite));
}

void MostraClassifica::riempi(Griglia &g, const Leghe::Lega *lega,
                              const FileCampionati::Classifica &classifica, const QString &casa,
                              const QString &ospite) {
    const auto blocco = g.inBlocco();
    g.setRigheFisse(1);
    g.setColonneFisse(0);
    g.setColonne(Colonne);
    g.setRighe(Righe);
    g.pulisci();
    g.setLarghezzaColonna(0, 400);
    g.setLarghezzaColonna(1, 1800);
    for (int c = 2; c < Colonne; ++c)
        g.setLarghezzaColonna(c, 400);
    static const QStringList spiegazioni = [] {
        QStringList t{u"Posizione in classifica"_s, u"Squadra"_s, u"Punti"_s};
        for (const QString &dove : {u"in totale"_s, u"in casa"_s, u"fuori casa"_s})
            for (const QString &cosa : {u"Partite giocate"_s, u"Vinte"_s, u"Pareggiate"_s,
                                        u"Perse"_s, u"Reti fatte"_s, u"Reti subite"_s})
                t.append(cosa + u' ' + dove);
        return t;
    }();
    for (int c = 0; c < Colonne; ++c) {
        g.setTesto(0, c, intestazioni().at(c));
        g.setSuggerimento(0, c, spiegazioni.at(c));
    }
    if (lega) {
        const int righe = std::min<int>(lega->righeClassifica, int(classifica.righe.size()));
        for (int r = 1; r <= righe; ++r) {
            const FileCampionati::RigaClassifica &campi = classifica.righe.at(r - 1);
            for (int c = 0; c < Colonne; ++c)
                g.setTesto(r, c, campi[c]);
            if (segnata(*lega, campi[1], casa, ospite))
                for (int c = 0; c < Colonne; ++c) {
                    g.setGrassetto(r, c, true);
                    g.setColore(r, c, Griglia::daBGR(TestoSegnata));
                }
        }
    }
    for (int r = 1; r < g.righe(); ++r) {
        for (int c = 0; c < Colonne; ++c)
            if (c != 1)
                g.setAllineamento(r, c, Griglia::Allineamento::CentroCentro);
        // A row with a team has its name and points coloured; an empty row stays plain.
        if (!g.testo(r, 1).isEmpty()) {
            g.setSfondo(r, 1, Griglia::daBGR(SfondoSquadra));
            g.setSfondo(r, 2, Griglia::daBGR(SfondoPunti));
            g.setColore(r, 2, Griglia::daBGR(TestoPunti));
        }
        g.setDimensioneCarattere(r, 2, 10);
        g.setGrassetto(r, 2, true);
    }
}

void MostraClassifica::stampa(DispositivoDisegno &d, const Griglia &griglia,
                              const QString &intestazione) {
    d.testo({200 * TwipsPerPixel, 400 * TwipsPerPixel}, u"Programma Vespara"_s,
            {u"Arial"_s, 14, true}, Qt::black);
    d.testo({200 * TwipsPerPixel, 800 * TwipsPerPixel}, intestazione, {u"Arial"_s, 12, true},
            Griglia::daBGR(ColoreIntestazioneStampa));
    FlexPrinter flex(griglia);
    flex.RowsFrom = 0;
    flex.RowsTo = 21;
    const QSizeF pagina = d.dimensionePagina();
    // The table stands in the middle of the page.
    flex.BordoSinistro = int((pagina.width() - flex.larghezza()) / 2);
    flex.BordoSuperiore = int((pagina.height() - flex.altezza()) / 2);
    flex.stampa(d);
}
