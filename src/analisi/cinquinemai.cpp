#include "analisi/cinquinemai.h"

#include "analisi/statistichesegni.h"
#include "stampa/documentopagine.h"

using namespace Qt::StringLiterals;

namespace {

const QString Arial = u"Arial"_s;

void testa(DocumentoPagine &d, int pagina, const QString &data) {
    d.scriviTesto(1.0f, 1.5f, u"Vespara!"_s, Arial, 10, true, 0);
    d.scriviTesto(17.9f, 1.5f, pagina == 1 ? u"Le Cinquine"_s : u"Le Cinquine mai uscite"_s, Arial,
                  10, true, 0);
    d.scriviLinea(1.0f, 2.0f, 20.0f, 2.0f);
    // The date is laid down twice, as it always was.
    for (int volta = 0; volta < 2; ++volta)
        d.scriviTesto(8.0f, 1.5f, u"Data: "_s + data, Arial, 10, true, 0);
}

void piede(DocumentoPagine &d, int pagina) {
    d.scriviLinea(1.0f, 26.5f, 20.0f, 26.5f);
    d.scriviTesto(1.0f, 26.6f, u"Pagina "_s + QString::number(pagina), Arial, 10, true, 0);
}

} // namespace

QStringList CinquineMai::mai(const ArchivioColonne &archivio, int primo) {
    const int n = archivio.numero();
    const StatisticheSegni::Finestra finestra{primo, n, n, n};
    const auto presenze =
        StatisticheSegni::conta(archivio, std::span(&StatisticheSegni::FettaCinquina, 1), finestra);
    QStringList elenco;
    const QStringList &cinquine = StatisticheSegni::elencoCinquine();
    for (int i = 0; i < cinquine.size(); ++i)
        if (presenze[0].frequenza[i] == 0)
            elenco.append(cinquine.at(i));
    return elenco;
}

QStringList CinquineMai::delloSchermo(const ArchivioColonne &archivio) {
    StatisticheSegni::verificaCapacita(archivio.numero(), u"L'elenco delle cinquine mai uscite"_s);
    return mai(archivio, 1);
}

QStringList CinquineMai::dellaStampa(const ArchivioColonne &archivio, int base) {
    return mai(archivio, archivio.numero() - base + 1);
}

void CinquineMai::scriviStampa(DocumentoPagine &d, const QStringList &cinquine,
                               const QString &data) {
    d.nuovoDocumento();
    int pagina = 1;
    int riga = 2;
    testa(d, pagina, data);
    for (const QString &cinquina : cinquine) {
        d.scriviTesto(8.0f, 4.0f + 0.35f * float(riga), cinquina + QString(9, u' '),
                      u"Courier New"_s, 10, false, 0);
        // The 64th entry of a page stands at 26.75 cm, over the foot line: so the pages come out.
        if (++riga == VociPerPagina + 2) {
            piede(d, pagina);
            d.nuovaPagina();
            testa(d, ++pagina, data);
            riga = 2;
        }
    }
    piede(d, pagina);
    d.fineDocumento();
}
