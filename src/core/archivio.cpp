#include "core/archivio.h"

#include "core/statoprogramma.h"
#include "piattaforma/filedati.h"
#include "piattaforma/tabellaarchivio.h"

namespace {
QString percorsoArchivio(const StatoProgramma &stato) {
    return stato.percorsoFile(QString::fromLatin1(Archivio::NomeFile));
}
} // namespace

QStringList Archivio::leggiFile(const StatoProgramma &stato) {
    return FileDati::leggiRighe(percorsoArchivio(stato));
}

void Archivio::caricaMemoria(StatoProgramma &stato) {
    stato.ColonneArchivio = ArchivioColonne::daRighe(leggiFile(stato));
}

void Archivio::ricostruisci(StatoProgramma &stato) {
    ArchivioColonne nuovo = ArchivioColonne::daRighe(leggiFile(stato));
    stato.tabellaArchivio().ricostruisci(nuovo);
    stato.ColonneArchivio = std::move(nuovo);
}

void Archivio::scriviFile(const StatoProgramma &stato, const QStringList &righe) {
    FileDati::scriviRighe(percorsoArchivio(stato), righe);
}
