#include "analisi/verificastorica.h"

#include "analisi/colonne9.h"
#include "core/archiviocolonne.h"

#include <QLocale>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

int VerificaStorica::massimo(const ArchivioColonne &archivio) {
    return std::max(0, archivio.numero() - StoriaMinima);
}

VerificaStorica::Esito
VerificaStorica::esegui(const ArchivioColonne &archivio, const CatenaFiltri &catena, int ultimi,
                        const std::function<bool(int fatti, int totale)> &avanzamento) {
    Esito esito;
    const int n = archivio.numero();
    const int k = std::clamp(ultimi, 0, massimo(archivio));
    if (k == 0)
        return esito;

    // The steps that look only at the nine signs decide once for the whole replay; those that
    // read Freq. or Rit. decide again at every contest.
    CatenaFiltri sullArchivio;
    for (const PassoFiltro &p : catena)
        if (p.leggeLArchivio())
            sullArchivio.append(p);
    const QStringList &elenco = Colonne9::elenco();
    std::vector<int> candidate;
    for (int i = 0; i < Colonne9::Numero; ++i) {
        bool resta = true;
        for (const PassoFiltro &p : catena)
            if (!p.leggeLArchivio() && !p.resta({elenco.at(i), QStringView(), QStringView()})) {
                resta = false;
                break;
            }
        if (resta)
            candidate.push_back(i);
    }

    // The texts of the counters as the grid shows them, " 0" to " n".
    QStringList numeri;
    numeri.reserve(n + 1);
    for (int v = 0; v <= n; ++v)
        numeri.append(Colonne9::testoNumero(v));
    const QString maiUscita = u"-"_s;

    const int primo = n - k + 1;
    Colonne9::Conteggi conteggi = Colonne9::conta(archivio, primo - 1);
    const std::vector<int> &frequenza = conteggi.frequenza;
    const std::vector<int> &ultimo = conteggi.ultimo;

    qint64 sommaTenute = 0;
    esito.concorsi.reserve(k);
    for (int j = primo; j <= n; ++j) {
        // The universe as it stood before contest j: its history is contests 1 to j - 1.
        const int storia = j - 1;
        const int vincente = Colonne9::indice(QStringView(archivio.colonna(j - 1)).left(9));
        Concorso c;
        c.progressivo = j;
        c.stagione = archivio.campo(j - 1, ArchivioColonne::Stagione);
        c.concorso = archivio.campo(j - 1, ArchivioColonne::Concorso);
        c.colonna = archivio.colonna(j - 1).left(9);
        if (sullArchivio.isEmpty()) {
            c.tenute = int(candidate.size());
            c.presa =
                vincente >= 0 && std::binary_search(candidate.cbegin(), candidate.cend(), vincente);
        } else {
            for (const int i : candidate) {
                const int f = frequenza[std::size_t(i)];
                const PassoFiltro::Riga riga{
                    elenco.at(i), numeri.at(f),
                    f == 0 ? QStringView(maiUscita)
                           : QStringView(numeri.at(storia - ultimo[std::size_t(i)]))};
                bool resta = true;
                for (const PassoFiltro &p : std::as_const(sullArchivio))
                    if (!p.resta(riga)) {
                        resta = false;
                        break;
                    }
                if (resta) {
                    ++c.tenute;
                    c.presa = c.presa || i == vincente;
                }
            }
        }
        sommaTenute += c.tenute;
        esito.prese += c.presa;
        esito.concorsi.append(c);
        conteggi.aggiungi(archivio, j);
        const int fatti = j - primo + 1;
        if (avanzamento && (fatti % 5 == 0 || fatti == k) && !avanzamento(fatti, k)) {
            esito.annullata = true;
            break;
        }
    }
    const qsizetype fatti = esito.concorsi.size();
    if (fatti > 0) {
        esito.mediaTenute = double(sommaTenute) / double(fatti);
        esito.probabilitaCaso = esito.mediaTenute / Colonne9::Numero;
    }
    return esito;
}

namespace {

QString numero(double v, int decimali = 1) {
    return QLocale(QLocale::Italian, QLocale::Italy).toString(v, 'f', decimali);
}

} // namespace

double VerificaStorica::scarto(const Esito &esito) {
    // The hits of random choices are a sum of independent contests, each hit with probability
    // kept / 19683: its mean and variance add up.
    double media = 0;
    double varianza = 0;
    for (const Concorso &c : esito.concorsi) {
        const double p = double(c.tenute) / Colonne9::Numero;
        media += p;
        varianza += p * (1 - p);
    }
    if (varianza <= 0)
        return 0;
    return (esito.prese - media) / std::sqrt(varianza);
}

QString VerificaStorica::testoPrese(const Esito &esito) {
    const qsizetype n = esito.concorsi.size();
    return u"Colonna vincente tenuta in %1 concorsi su %2 (%3%)"_s.arg(esito.prese)
        .arg(n)
        .arg(numero(100 * esito.quotaPrese()));
}

QString VerificaStorica::testoMedia(const Esito &esito) {
    return u"Colonne tenute in media: %1 su %2"_s.arg(numero(esito.mediaTenute))
        .arg(Colonne9::Numero);
}

QString VerificaStorica::testoCaso(const Esito &esito) {
    const double attese = esito.probabilitaCaso * double(esito.concorsi.size());
    return u"A caso, con lo stesso numero di colonne: %1% (%2 concorsi su %3)"_s
        .arg(numero(100 * esito.probabilitaCaso), numero(attese))
        .arg(esito.concorsi.size());
}

QString VerificaStorica::testoGiudizio(const Esito &esito) {
    if (esito.concorsi.isEmpty())
        return {};
    const double attese = esito.probabilitaCaso * double(esito.concorsi.size());
    const double z = scarto(esito);
    if (z == 0 && esito.prese == std::lround(attese))
        return u"La catena ha fatto quanto il caso."_s;
    const QString deviazioni = u" (%1 deviazioni standard)"_s.arg(numero(std::abs(z)));
    if (esito.prese > attese)
        return (z >= 2
                    ? u"La catena ha fatto nettamente meglio del caso"_s
                    : u"La catena ha fatto meglio del caso, ma entro le oscillazioni del caso"_s) +
               deviazioni + u'.';
    if (esito.prese < attese)
        return (z <= -2
                    ? u"La catena ha fatto nettamente peggio del caso"_s
                    : u"La catena ha fatto peggio del caso, ma entro le oscillazioni del caso"_s) +
               deviazioni + u'.';
    return u"La catena ha fatto quanto il caso."_s;
}
