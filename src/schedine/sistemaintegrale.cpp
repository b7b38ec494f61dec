#include "schedine/sistemaintegrale.h"

#include "analisi/colonne9.h"
#include "core/archiviocolonne.h"
#include "core/numeritesto.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/griglia.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

void SistemaIntegrale::prepara(Griglia &griglia) {
    const auto blocco = griglia.inBlocco();
    griglia.setRigheFisse(0);
    griglia.setColonneFisse(0);
    griglia.setRighe(3);
    griglia.setColonne(TerzinePerGruppo);
    for (int c = 0; c < TerzinePerGruppo; ++c)
        griglia.setLarghezzaColonna(c, 330);
    griglia.setAllineamentoCorpo(Griglia::Allineamento::CentroCentro);
}

void SistemaIntegrale::riempi(Griglia &griglia, const QStringList &terzine) {
    const auto blocco = griglia.inBlocco();
    for (int c = 0; c < TerzinePerGruppo; ++c) {
        const QString terzina = terzine.value(c);
        for (int r = 0; r < 3; ++r)
            griglia.setTesto(r, c, terzina.mid(r, 1));
    }
}

QStringList SistemaIntegrale::terzine(const Griglia &griglia) {
    QStringList gruppo;
    for (int c = 0; c < griglia.colonne(); ++c)
        if (!griglia.testo(0, c).isEmpty())
            gruppo.append(griglia.testo(0, c) + griglia.testo(1, c) + griglia.testo(2, c));
    return gruppo;
}

int SistemaIntegrale::totale(const Terzine &gruppi) {
    return int(gruppi[0].size() * gruppi[1].size() * gruppi[2].size());
}

QStringList SistemaIntegrale::genera(const Terzine &gruppi) {
    QStringList righe;
    righe.reserve(totale(gruppi));
    for (const QString &a : gruppi[0])
        for (const QString &b : gruppi[1])
            for (const QString &d : gruppi[2])
                righe.append(a + u'-' + b + u'-' + d);
    return righe;
}

QList<SistemaIntegrale::Riga> SistemaIntegrale::tabella(const QStringList &righe,
                                                        const QString &totale,
                                                        const ArchivioColonne &archivio) {
    const int numero = int(std::clamp<qint64>(NumeriTesto::valore(totale), 0, 1000000));
    if (righe.size() > numero)
        throw ErroreEsecuzione(
            u"L'elenco del sistema ha %1 colonne, l'ultima generazione %2: l'elenco somma più "
            "generazioni e non si può trasferire. Chiudere la finestra e generare il sistema "
            "una volta sola."_s.arg(righe.size())
                .arg(numero));
    QList<Riga> tabella(numero);
    for (qsizetype i = 0; i < righe.size(); ++i)
        tabella[i][0] = QString(righe.at(i)).remove(u'-');

    // One pass over the archive: how often each column of the 9 came out, and when last.
    const int n = archivio.numero();
    const Colonne9::Conteggi conteggi = Colonne9::conta(archivio);
    const std::vector<int> &frequenza = conteggi.frequenza;
    const std::vector<int> &ultimo = conteggi.ultimo;
    for (Riga &riga : tabella) {
        const int k = Colonne9::indice(riga[0]);
        if (k < 0 || frequenza[std::size_t(k)] == 0) {
            riga[2] = u"-"_s;
            continue;
        }
        riga[1] = QString::number(frequenza[std::size_t(k)]);
        riga[2] = QString::number(n - ultimo[std::size_t(k)]);
    }
    return tabella;
}
