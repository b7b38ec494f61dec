#include "analisi/stampapannello.h"

#include "piattaforma/griglia.h"
#include "stampa/documentopagine.h"
#include "stampa/flexprinter.h"

using namespace Qt::StringLiterals;

namespace {

const QString Arial = u"Arial"_s;
constexpr qreal Cm = DispositivoDisegno::TwipsPerCentimetro;

void testaCinquine(DocumentoPagine &d, const QString &data) {
    d.scriviTesto(1.0f, 1.5f, u"Vespara!"_s, Arial, 12, true, 4);
    d.scriviTesto(8.5f, 1.5f, u"Le Cinquine"_s, Arial, 12, true, 0);
    d.scriviTesto(15.0f, 1.5f, u"Data: "_s + data, Arial, 10, true, 0);
    d.scriviLinea(1.0f, 2.1f, 20.0f, 2.1f);
}

void piedeCinquine(DocumentoPagine &d, int pagina) {
    d.scriviLinea(1.0f, 26.5f, 20.0f, 26.5f);
    d.scriviTesto(1.0f, 26.6f, u"Pagina "_s + QString::number(pagina), Arial, 10, true, 0);
}

} // namespace

void StampaPannello::stampaGriglia(DispositivoDisegno &d, const Griglia &g, const QString &titolo,
                                   const QString &concorso) {
    const DispositivoDisegno::Carattere intestazione{Arial, 14, true};
    const DispositivoDisegno::Carattere normale{Arial, 11, true};
    d.testo({1.5 * Cm, 1.5 * Cm}, u"Programma Vespara"_s, intestazione, QColor(0, 0, 128));
    d.testo({1.5 * Cm, 2.4 * Cm}, titolo, normale, Qt::black);
    d.testo({1.5 * Cm, 3.1 * Cm}, u"Stagione 2011-2012 - Concorso: "_s + concorso, normale,
            Qt::black);
    FlexPrinter flex(g);
    flex.RowsFrom = 0;
    flex.RowsTo = g.righe() - 1;
    flex.BordoSinistro = std::max(0.0, (d.dimensionePagina().width() - flex.larghezza()) / 2);
    flex.BordoSuperiore = 4.2 * Cm;
    flex.stampa(d);
}

void StampaPannello::scriviCinquine(DocumentoPagine &d, const Griglia &c, const QString &data) {
    d.nuovoDocumento();
    int pagina = 1;
    int riga = 0;
    testaCinquine(d, data);
    for (int colonna = 0; colonna < c.colonne(); ++colonna) {
        QString cinquina;
        for (int r = 0; r < 5; ++r)
            cinquina += c.testo(r, colonna);
        const float y = 3.0f + 0.4f * float(riga);
        d.scriviTesto(2.0f, y, cinquina, u"Courier New"_s, 10, false, 0);
        d.scriviTesto(5.0f, y, u"Rit. "_s + c.testo(7, colonna), Arial, 10, false, 1);
        d.scriviTesto(8.0f, y, u"Freq. "_s + c.testo(9, colonna), Arial, 10, false, 4);
        if (++riga == RighePerPagina && colonna + 1 < c.colonne()) {
            piedeCinquine(d, pagina);
            d.nuovaPagina();
            testaCinquine(d, data);
            ++pagina;
            riga = 0;
        }
    }
    piedeCinquine(d, pagina);
    d.fineDocumento();
}
