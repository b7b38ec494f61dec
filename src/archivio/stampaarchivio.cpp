#include "archivio/stampaarchivio.h"

#include "core/archiviocolonne.h"
#include "piattaforma/dispositivoregistratore.h"
#include "stampa/documentopagine.h"

using namespace Qt::StringLiterals;

namespace {

const QString Arial = u"Arial"_s;
const QString Fisso = u"Courier New"_s;
// Where each field starts, in characters of the fixed-pitch font.
constexpr int Inizi[] = {0, 7, 13, 30, 34, 38, 42, 48, 54};
constexpr float Sinistra = 1.0f;

// The width of one character of the body lines, in centimetres, as every device draws it.
float larghezzaCarattere() {
    static const float larghezza =
        float(DispositivoRegistratore().larghezzaTesto(u"0000000000"_s, {Fisso, 10, false}) / 10 /
              DispositivoDisegno::TwipsPerCentimetro);
    return larghezza;
}

void testa(DocumentoPagine &d, const QString &data) {
    d.scriviTesto(1.0f, 1.5f, u"Vespara!"_s, Arial, 12, true, 4);
    d.scriviTesto(8.5f, 1.5f, u"Archivio storico"_s, Arial, 12, true, 0);
    d.scriviTesto(15.0f, 1.5f, u"Data: "_s + data, Arial, 10, true, 0);
    d.scriviLinea(1.0f, 2.1f, 20.0f, 2.1f);
    static const QStringList teste{u"Stag."_s, u"Conc."_s, u"Colonna"_s, u"1"_s,      u"X"_s,
                                   u"2"_s,     u"Int."_s,  u"Simm."_s,   u"Parall."_s};
    for (int i = 0; i < teste.size(); ++i)
        d.scriviTesto(Sinistra + larghezzaCarattere() * float(Inizi[i]), 2.4f, teste.at(i), Arial,
                      9, true, 0);
}

void piede(DocumentoPagine &d, int pagina) {
    d.scriviLinea(1.0f, 26.5f, 20.0f, 26.5f);
    d.scriviTesto(1.0f, 26.6f, u"Pagina "_s + QString::number(pagina), Arial, 10, true, 0);
}

} // namespace

QString StampaArchivio::riga(const QStringList &campi) {
    QString testo;
    for (int i = 0; i < campi.size() && i < 9; ++i) {
        if (testo.size() < Inizi[i])
            testo = testo.leftJustified(Inizi[i], u' ');
        else if (i > 0)
            testo += u' ';
        testo += campi.at(i);
    }
    return testo;
}

void StampaArchivio::scrivi(DocumentoPagine &d, const ArchivioColonne &archivio,
                            const QString &data) {
    d.nuovoDocumento();
    int pagina = 1;
    int riga = 0;
    testa(d, data);
    for (int i = 0; i < archivio.numero(); ++i) {
        const RigaArchivio &r = archivio.riga(i);
        d.scriviTesto(Sinistra, 3.0f + 0.42f * float(riga),
                      StampaArchivio::riga({r.begin(), r.end()}), Fisso, 10, false, 0);
        if (++riga == RighePerPagina && i + 1 < archivio.numero()) {
            piede(d, pagina);
            d.nuovaPagina();
            testa(d, data);
            ++pagina;
            riga = 0;
        }
    }
    piede(d, pagina);
    d.fineDocumento();
}
