#include "archivio/scritturearchivio.h"

#include "core/archivio.h"
#include "core/colonna.h"
#include "core/numeritesto.h"
#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/tabellaarchivio.h"

#include <QDir>
#include <QSaveFile>

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

void ScrittureArchivio::inserisci(StatoProgramma &stato, const QString &stagione,
                                  const QString &concorso, const QString &colonna) {
    const QStringList righe = righeConNuova(Archivio::leggiFile(stato),
                                            Colonna::rigaArchivio(stagione, concorso, colonna));
    Archivio::scriviFile(stato, righe);
    Archivio::ricostruisci(stato);
    // The workspace of the 9 must count the new contest.
    stato.RicalcolaColonne9 = true;
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

void ScrittureArchivio::riscriviDaTabella(StatoProgramma &stato) {
    Archivio::scriviFile(stato, righeDaTabella(stato.tabellaArchivio().tutte()));
    Archivio::ricostruisci(stato);
}

void ScrittureArchivio::confermaModifica(StatoProgramma &stato, const QString &stagione,
                                         const QString &concorso, const QString &colonna) {
    stato.tabellaArchivio().modifica(rigaCorretta(stagione, concorso, colonna));
    riscriviDaTabella(stato);
}

void ScrittureArchivio::eliminaCorrente(StatoProgramma &stato) {
    stato.tabellaArchivio().elimina();
    riscriviDaTabella(stato);
}

void ScrittureArchivio::ricaricaTabella(StatoProgramma &stato) {
    stato.tabellaArchivio().ricostruisci(
        ArchivioColonne::daRighe(Archivio::leggiFile(stato)).righe());
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
    const QByteArray contenuto = FileDati::codifica(paginaArchivio(archivio));
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly) || file.write(contenuto) != contenuto.size() ||
        !file.commit())
        throw ErroreEsecuzione(u"Impossibile scrivere il file %1: %2"_s.arg(
            QDir::toNativeSeparators(percorso), file.errorString()));
}
