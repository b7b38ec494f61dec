#include "supporto/archiviosintetico.h"

#include "core/colonna.h"

#include <QRandomGenerator>

QStringList archivioSintetico(int n, quint32 seme) {
    QRandomGenerator caso(seme);
    QStringList righe;
    const QStringList segni = Colonna::segni();
    int anno = 2000;
    int concorso = 0;
    for (int i = 0; i < n; ++i) {
        if (++concorso > 38) {
            concorso = 1;
            ++anno;
        }
        QString colonna;
        for (int p = 0; p < Colonna::Lunghezza; ++p) {
            // Not uniform, as real columns aren't: "1" comes out most often.
            const quint32 v = caso.bounded(100u);
            colonna += segni.at(v < 46 ? 0 : v < 74 ? 1 : 2);
        }
        righe.append(
            Colonna::rigaArchivio(QString::number(anno), QString::number(concorso), colonna));
    }
    return righe;
}
