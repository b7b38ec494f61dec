#include "archivio/scritturearchivio.h"

#include "core/archivio.h"
#include "core/colonna.h"
#include "core/numeritesto.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/tabellaarchivio.h"

using namespace Qt::StringLiterals;

bool ScrittureArchivio::colonnaValida(const QString &colonna) {
    return colonna.size() == Colonna::Lunghezza &&
           (colonna.contains(u'1') || colonna.contains(u'2') || colonna.contains(u'X'));
}

qint64 ScrittureArchivio::numero(QStringView testo) {
    return NumeriTesto::valore(testo);
}

QStringList ScrittureArchivio::righeConNuova(const QStringList &righeFile, const QString &nuova) {
    QStringList righe;
    righe.reserve(std::min<qsizetype>(righeFile.size() + 1, CapacitaRighe));
    const auto aggiungi = [&righe](const QString &riga) {
        if (righe.size() >= CapacitaRighe)
            throw ErroreEsecuzione(
                u"Archivio.txt: le righe superano la capacità massima di %1."_s.arg(CapacitaRighe));
        righe.append(riga);
    };
    for (const QString &riga : righeFile)
        if (!ArchivioColonne::rigaVuota(riga))
            aggiungi(riga);
    aggiungi(nuova);
    return righe;
}

QString ScrittureArchivio::inserisci(StatoProgramma &stato, const QString &stagione,
                                     const QString &concorso, const QString &colonna) {
    const QStringList righe = righeConNuova(Archivio::leggiFile(stato),
                                            Colonna::rigaArchivio(stagione, concorso, colonna));
    QString nota = Archivio::sostituisci(stato, righe);
    // The workspace of the 9 must count the new contest.
    stato.RicalcolaColonne9 = true;
    return nota;
}

RigaArchivio ScrittureArchivio::rigaCorretta(const QString &stagione, const QString &concorso,
                                             const QString &colonna) {
    const QString maiuscola = colonna.toUpper();
    RigaArchivio r{stagione, concorso, maiuscola};
    const auto metriche = Colonna::metriche(maiuscola).comeVettore();
    for (std::size_t i = 0; i < metriche.size(); ++i)
        r[3 + i] = QString::number(metriche[i]);
    return r;
}

QStringList ScrittureArchivio::righeDaTabella(const QList<RigaArchivio> &righe) {
    QStringList testo;
    testo.reserve(righe.size());
    for (const RigaArchivio &r : righe) {
        QString riga = r[0];
        for (int c = 1; c < ArchivioColonne::Campi; ++c)
            riga += u' ' + r[c];
        testo.append(riga);
    }
    return testo;
}

QList<RigaArchivio> ScrittureArchivio::righeTabellaSenzaCorrente(const StatoProgramma &stato,
                                                                 int *ordine) {
    const TabellaArchivio &tabella = stato.tabellaArchivio();
    QList<RigaArchivio> righe = tabella.tutte();
    *ordine = tabella.ordineCorrente();
    if (*ordine < 0 || *ordine >= righe.size())
        throw ErroreEsecuzione(u"Archivio database: nessuna riga corrente."_s);
    righe.removeAt(*ordine);
    return righe;
}

QString ScrittureArchivio::confermaModifica(StatoProgramma &stato, const QString &stagione,
                                            const QString &concorso, const QString &colonna) {
    // The new rows are made here, not in the table: a write that fails leaves the table as it
    // was.
    int ordine = 0;
    QList<RigaArchivio> righe = righeTabellaSenzaCorrente(stato, &ordine);
    righe.insert(ordine, rigaCorretta(stagione, concorso, colonna));
    return Archivio::sostituisci(stato, righeDaTabella(righe));
}

QString ScrittureArchivio::eliminaCorrente(StatoProgramma &stato) {
    int ordine = 0;
    return Archivio::sostituisci(stato, righeDaTabella(righeTabellaSenzaCorrente(stato, &ordine)));
}

QString ScrittureArchivio::paginaArchivio(const ArchivioColonne &archivio) {
    QString pagina;
    for (int i = 0; i < archivio.numero(); ++i) {
        pagina += QString::number(i + 1) + u' ';
        for (const QString &campo : archivio.riga(i))
            pagina += campo + u' ';
        pagina += u'\n';
    }
    return pagina;
}

void ScrittureArchivio::scriviPaginaArchivio(const QString &percorso,
                                             const ArchivioColonne &archivio) {
    FileDati::scriviByte(percorso, FileDati::codifica(paginaArchivio(archivio)));
}
