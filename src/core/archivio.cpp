#include "core/archivio.h"

#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/tabellaarchivio.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

QString percorso(const StatoProgramma &stato, const char *nome) {
    return stato.percorsoFile(QString::fromLatin1(nome));
}

QString percorsoArchivio(const StatoProgramma &stato) {
    return percorso(stato, Archivio::NomeFile);
}

// A copy of a file, written whole and atomically like every data file.
void copia(const QString &da, const QString &a) {
    QFile origine(da);
    if (!origine.open(QIODevice::ReadOnly))
        throw ErroreEsecuzione(u"Impossibile leggere il file %1: %2"_s.arg(
            QDir::toNativeSeparators(da), origine.errorString()));
    const QByteArray contenuto = origine.readAll();
    QSaveFile destinazione(a);
    if (!destinazione.open(QIODevice::WriteOnly) ||
        destinazione.write(contenuto) != contenuto.size() || !destinazione.commit())
        throw ErroreEsecuzione(u"Impossibile scrivere il file %1: %2"_s.arg(
            QDir::toNativeSeparators(a), destinazione.errorString()));
}

} // namespace

ArchivioColonne Archivio::leggi(const QString &percorsoFile) {
    ArchivioColonne archivio = ArchivioColonne::daRighe(FileDati::leggiRighe(percorsoFile));
    if (archivio.vuoto())
        throw ErroreEsecuzione(
            u"%1 non contiene alcun concorso."_s.arg(QDir::toNativeSeparators(percorsoFile)));
    return archivio;
}

QStringList Archivio::leggiFile(const StatoProgramma &stato) {
    return FileDati::leggiRighe(percorsoArchivio(stato));
}

void Archivio::caricaMemoria(StatoProgramma &stato) {
    stato.ColonneArchivio = ArchivioColonne::daRighe(leggiFile(stato));
}

void Archivio::ricostruisci(StatoProgramma &stato) {
    ArchivioColonne nuovo = ArchivioColonne::daRighe(leggiFile(stato));
    stato.tabellaArchivio().ricostruisci(nuovo.righe());
    stato.ColonneArchivio = std::move(nuovo);
}

QString Archivio::guasto(const QString &percorsoFile) {
    try {
        leggi(percorsoFile);
        return {};
    } catch (const ErroreEsecuzione &e) {
        return e.testo();
    }
}

void Archivio::scriviFile(const StatoProgramma &stato, const QStringList &righe) {
    const QString attuale = percorsoArchivio(stato);
    if (QFile::exists(attuale))
        copia(attuale,
              percorso(stato, guasto(attuale).isEmpty() ? NomeCopiaPrecedente : NomeDanneggiato));
    FileDati::scriviRighe(attuale, righe);
}

bool Archivio::copiaPrecedenteValida(const StatoProgramma &stato) {
    const QString precedente = percorso(stato, NomeCopiaPrecedente);
    return QFile::exists(precedente) && guasto(precedente).isEmpty();
}

void Archivio::ripristinaCopiaPrecedente(const StatoProgramma &stato) {
    const QString attuale = percorsoArchivio(stato);
    if (QFile::exists(attuale))
        copia(attuale, percorso(stato, NomeDanneggiato));
    copia(percorso(stato, NomeCopiaPrecedente), attuale);
}

bool Archivio::allineaTabella(StatoProgramma &stato) {
    TabellaArchivio &tabella = stato.tabellaArchivio();
    const bool uguali = tabella.tutte() == stato.ColonneArchivio.righe();
    if (!uguali)
        tabella.ricostruisci(stato.ColonneArchivio.righe());
    return !uguali;
}
