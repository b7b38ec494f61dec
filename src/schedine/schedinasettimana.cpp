#include "schedine/schedinasettimana.h"

#include "campionati/leghe.h"
#include "piattaforma/dispositivodisegno.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"
#include "schedine/pronostico.h"
#include "stampa/flexprinter.h"

using namespace Qt::StringLiterals;

namespace {

using Tipo = FileSchedine::Tipo;

constexpr SchedinaSettimana::Modello Modelli[] = {
    {Tipo::Domenica, "frmSchedinaDomenica", " La Schedina della Domenica",
     "La Schedina della Domenica, alla data ", "Pronostico", true},
    {Tipo::Sabato, "frmSchedinaSabato", "La Schedina del Sabato",
     "La Schedina del Sabato, alla data ", "Tuo pronostico", false},
    {Tipo::Infrasettimanale, "frmSchedinaProssimoConcorso", " La schedina infrasettimanale",
     "La Schedina infrasettimanale, alla data ", "Tuo pronostico", false},
};

constexpr qreal Px = DispositivoDisegno::TwipsPerPixelStampa;

} // namespace

std::span<const SchedinaSettimana::Modello> SchedinaSettimana::modelli() {
    return Modelli;
}

const SchedinaSettimana::Modello *SchedinaSettimana::perNome(const QString &nome) {
    for (const Modello &m : Modelli)
        if (nome == QLatin1StringView(m.nome))
            return &m;
    return nullptr;
}

void SchedinaSettimana::prepara(Griglia &g) {
    const auto blocco = g.inBlocco();
    g.setRigheFisse(0);
    g.setColonneFisse(0);
    g.setColonne(Colonne);
    g.setRighe(Righe);
    g.pulisci();
    const int larghezze[Colonne] = {500, 1600, 1600, 700, 700, 700};
    for (int c = 0; c < Colonne; ++c)
        g.setLarghezzaColonna(c, larghezze[c]);
    g.setAltezzaRighe(AltezzaRiga);
    for (int r = 0; r < Righe; ++r) {
        // The long names of the clubs fit their columns in the small size.
        for (int c = 1; c <= 2; ++c) {
            g.setNomeCarattere(r, c, u"Arial"_s);
            g.setDimensioneCarattere(r, c, 8);
        }
        g.setAllineamento(r, 0, Griglia::Allineamento::CentroCentro);
        g.setSfondo(r, 0, Griglia::daBGR(SfondoNumero));
        for (int c = 3; c < Colonne; ++c) {
            g.setAllineamento(r, c, Griglia::Allineamento::CentroCentro);
            g.setSfondo(r, c, Griglia::daBGR(SfondoPicchetto));
        }
    }
    for (int r = 1; r < Righe; ++r)
        g.setTesto(r, 0, QString::number(r));
}

void SchedinaSettimana::riempi(
    Griglia &g, const FileSchedine::Schedina &schedina,
    const std::array<FileSchedine::Percentuali, FileSchedine::Partite> &picchetto) {
    const auto blocco = g.inBlocco();
    for (qsizetype r = 0; r < schedina.partite.size() && r < Righe; ++r) {
        const QStringList &pezzi = schedina.partite.at(r);
        if (pezzi.size() > Colonne)
            throw ErroreEsecuzione(
                u"La partita %1 della schedina ha %2 parti separate da \"-\": la griglia ha "
                "solo %3 colonne."_s.arg(QString::number(r + 1), QString::number(pezzi.size()),
                                         QString::number(Colonne)));
        for (qsizetype k = 0; k < pezzi.size(); ++k)
            g.setTesto(int(r), int(k), pezzi.at(k));
    }
    for (int r = 0; r < Righe; ++r) {
        for (int k = 0; k < 3; ++k)
            g.setTesto(r, 3 + k, picchetto[r][k]);
        // The whole name, for a name that its column cuts.
        for (int c = 1; c <= 2; ++c)
            if (!g.testo(r, c).isEmpty())
                g.setSuggerimento(r, c, g.testo(r, c) + u": un clic mostra la classifica"_s);
    }
}

QString SchedinaSettimana::legaDi(const QHash<QString, QStringList> &squadre,
                                  const QString &squadra) {
    for (const Leghe::Lega &lega : Leghe::tutte()) {
        const QString codice = QString::fromLatin1(lega.codice);
        for (const QString &nome : squadre.value(codice))
            if (nome.trimmed().toUpper() == squadra)
                return codice;
    }
    return {};
}

SchedinaSettimana::Scelta SchedinaSettimana::segnaPartita(Griglia &g, int riga) {
    const auto blocco = g.inBlocco();
    g.setGrassetto(riga, 1, true);
    g.setGrassetto(riga, 2, true);
    Scelta s{g.testo(riga, 1).toUpper(), g.testo(riga, 2).toUpper()};
    for (int r = 0; r < g.righe(); ++r) {
        if (g.testo(r, 1) != s.casa) {
            g.setGrassetto(r, 1, false);
            g.setColore(r, 1, QColor());
        } else {
            s.partita = r;
        }
        if (g.testo(r, 2) != s.ospite) {
            g.setGrassetto(r, 2, false);
            g.setColore(r, 2, QColor());
        }
    }
    return s;
}

void SchedinaSettimana::stampa(DispositivoDisegno &d, const Griglia &griglia, const QString &titolo,
                               const QString &concorso, const QStringList &caselle) {
    d.testo({200 * Px, 400 * Px}, titolo, {u"Arial"_s, 14, true}, Qt::black);
    d.testo({200 * Px, 500 * Px}, concorso, {u"Arial"_s, 14, true}, Griglia::daBGR(ColoreConcorso));
    d.testo({200 * Px, 800 * Px}, u"Tuo pronostico: "_s, {u"Arial"_s, 12, true}, Qt::black);
    d.testo({200 * Px, 900 * Px}, Pronostico::rigaStampa(caselle), {u"Arial"_s, 12, true},
            Qt::black);
    FlexPrinter flex(griglia);
    flex.RowsFrom = 0;
    flex.RowsTo = griglia.righe() - 1;
    const QSizeF pagina = d.dimensionePagina();
    flex.BordoSinistro = (pagina.width() - flex.larghezza()) / 2;
    flex.BordoSuperiore = (pagina.height() - flex.altezza()) / 2;
    flex.stampa(d);
}
