#include "core/archiviocolonne.h"

#include "piattaforma/erroreesecuzione.h"

using namespace Qt::StringLiterals;

const RigaArchivio &ArchivioColonne::riga(int i) const {
    if (i < 0 || i >= numero())
        throw ErroreEsecuzione(
            u"Riga %1 dell'archivio inesistente: l'archivio ha %2 colonne."_s.arg(i).arg(numero()));
    return m_righe.at(i);
}

void ArchivioColonne::aggiungi(const RigaArchivio &r) {
    if (numero() >= Capacita)
        throw ErroreEsecuzione(
            u"L'archivio supera la capacità massima di %1 colonne."_s.arg(Capacita));
    m_righe.append(r);
}

ArchivioColonne ArchivioColonne::daRighe(const QStringList &righe) {
    ArchivioColonne archivio;
    archivio.m_righe.reserve(std::min<qsizetype>(righe.size(), Capacita));
    int numeroRiga = 0;
    for (const QString &testo : righe) {
        ++numeroRiga;
        if (rigaVuota(testo))
            continue;
        RigaArchivio r;
        int campo = 0;
        // Split on single blanks, as the file's own writers join the fields.
        for (const QStringView elemento : QStringView(testo).split(u' ')) {
            if (campo < Campi)
                r[campo] = elemento.toString();
            ++campo;
        }
        if (campo < Campi)
            throw ErroreEsecuzione(
                u"Archivio.txt, riga %1: sono presenti %2 campi invece di 9.\n\"%3\""_s
                    .arg(numeroRiga)
                    .arg(campo)
                    .arg(testo));
        archivio.aggiungi(r);
    }
    return archivio;
}

QStringList ArchivioColonne::comeRighe() const {
    QStringList righe;
    righe.reserve(m_righe.size());
    for (const RigaArchivio &r : m_righe) {
        QString riga = r[0];
        for (int c = 1; c < Campi; ++c)
            riga += u' ' + r[c];
        righe.append(riga);
    }
    return righe;
}
