#include "core/archivio.h"

#include "core/statoprogramma.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"
#include "piattaforma/filedati.h"
#include "piattaforma/tabellaarchivio.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString percorso(const StatoProgramma &stato, const char *nome) {
    return stato.percorsoFile(QString::fromLatin1(nome));
}

QString percorsoArchivio(const StatoProgramma &stato) {
    return percorso(stato, Archivio::NomeFile);
}

QString percorsoTabella(const StatoProgramma &stato) {
    return percorso(stato, TabellaArchivio::NomeFile);
}

QString testo(const char *utf8) {
    return QString::fromUtf8(utf8);
}

// The bytes of a file, read whole.
QByteArray leggiByte(const QString &percorsoFile) {
    QFile file(percorsoFile);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        const int codice = errno;
        throw ErroriFile::lettura(file, codice);
    }
    return file.readAll();
}

// A copy of a file, written whole and atomically like every data file.
void copia(const QString &da, const QString &a) {
    FileDati::scriviByte(a, leggiByte(da));
}

// A file as it was before a write, to be put back when the write fails.
class CopiaFile {
public:
    explicit CopiaFile(QString percorsoFile)
        : m_percorso(std::move(percorsoFile)) {
        QFile file(m_percorso);
        m_esisteva = file.exists();
        if (m_esisteva && file.open(QIODevice::ReadOnly)) {
            m_byte = file.readAll();
            m_letto = file.error() == QFileDevice::NoError;
        }
    }

    bool intatto() const {
        QFile file(m_percorso);
        if (!file.exists())
            return !m_esisteva;
        return m_esisteva && m_letto && file.open(QIODevice::ReadOnly) && file.readAll() == m_byte;
    }

    // False when the file is not as it was and can't be made so.
    bool rimetti() const noexcept {
        try {
            if (intatto())
                return true;
            if (!m_esisteva) {
                FileDati::elimina(m_percorso);
                return true;
            }
            if (!m_letto)
                return false;
            FileDati::scriviByte(m_percorso, m_byte);
            return true;
        } catch (const ErroreEsecuzione &) {
            return false;
        }
    }

private:
    QString m_percorso;
    QByteArray m_byte;
    bool m_esisteva = false;
    bool m_letto = false;
};

// The table of archivio.db as far as it can be had.
struct TabellaFile {
    std::unique_ptr<TabellaArchivio> tabella; // null when the file can't be used
    QList<RigaArchivio> righe;                // what it holds
    QString danno;                            // why the file found could not be read
    bool accantonato = false;                 // that file is now archivio-danneggiato.db
    QString errore;                           // why there is no table of the file
};

// Opens archivio.db and reads it whole. A file that can't be read is set aside and made anew when
// `accantona` says so; a place that refuses writes (full, read-only) is only reported.
TabellaFile apriFile(const QString &percorsoFile, bool accantona) {
    TabellaFile t;
    try {
        auto tabella = std::make_unique<TabellaArchivio>(percorsoFile);
        t.righe = tabella->verifica();
        t.tabella = std::move(tabella);
        return t;
    } catch (const ErroriFile::Errore &e) {
        if (!e.danno()) {
            t.errore = e.testo();
            return t;
        }
        t.danno = e.testo();
    } catch (const ErroreEsecuzione &e) {
        t.danno = e.testo();
    }
    if (!accantona) {
        t.errore = t.danno;
        return t;
    }
    try {
        TabellaArchivio::accantona(percorsoFile);
        t.accantonato = true;
        t.tabella = std::make_unique<TabellaArchivio>(percorsoFile);
        t.righe = t.tabella->verifica();
    } catch (const ErroreEsecuzione &e) {
        t.tabella.reset();
        t.errore = e.testo();
    }
    return t;
}

std::unique_ptr<TabellaArchivio> tabellaInMemoria(const StatoProgramma &stato,
                                                  const QList<RigaArchivio> &righe) {
    auto tabella =
        std::make_unique<TabellaArchivio>(percorsoTabella(stato), TabellaArchivio::Luogo::Memoria);
    tabella->ricostruisci(righe);
    return tabella;
}

QString notaRicostruita(const TabellaFile &t) {
    return t.accantonato ? testo(Archivio::TabellaRicostruita) + u"\n\n"_s + t.danno : QString();
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

void Archivio::ricaricaTabella(StatoProgramma &stato) {
    const ArchivioColonne archivio = ArchivioColonne::daRighe(leggiFile(stato));
    TabellaArchivio &inUso = stato.tabellaArchivio();
    if (inUso.inMemoria()) {
        TabellaFile t = apriFile(percorsoTabella(stato), true);
        try {
            if (t.tabella) {
                t.tabella->ricostruisci(archivio.righe());
                stato.usaTabellaArchivio(std::move(t.tabella));
                return;
            }
        } catch (const ErroreEsecuzione &) {
            // Still no file to write: the table in memory takes the rows, as before.
        }
    }
    inUso.ricostruisci(archivio.righe());
}

QString Archivio::sostituisci(StatoProgramma &stato, const QStringList &righe) {
    ArchivioColonne nuovo = ArchivioColonne::daRighe(righe);
    // What is put back when the write fails.
    const CopiaFile testoPrima(percorsoArchivio(stato));
    const CopiaFile precedentePrima(percorso(stato, NomeCopiaPrecedente));
    const CopiaFile danneggiatoPrima(percorso(stato, NomeDanneggiato));
    const QString nonModificato = testo(NonModificato) + u"\n\n"_s;

    TabellaArchivio &inUso = stato.tabellaArchivio();
    // A table in memory stands in for a file that could not be had: while the file still can't
    // be written, the table in memory goes on without a word.
    const bool inMemoria = inUso.inMemoria();
    QString rifiuto;
    if (!inMemoria) {
        try {
            inUso.preparaRicostruzione(nuovo.righe());
        } catch (const ErroreEsecuzione &e) {
            rifiuto = e.testo();
        }
    }
    // The file is tried anew: a table in memory may have it back, and a file that refused the
    // write may have been made writable since it was opened (SQLite keeps a read-only opening).
    QString nota;
    std::unique_ptr<TabellaArchivio> ritrovata;
    if (inMemoria || !rifiuto.isEmpty()) {
        TabellaFile t = apriFile(percorsoTabella(stato), inMemoria);
        if (t.tabella) {
            try {
                t.tabella->preparaRicostruzione(nuovo.righe());
                ritrovata = std::move(t.tabella);
                nota = notaRicostruita(t);
            } catch (const ErroreEsecuzione &) {
            }
        }
        if (!ritrovata && !rifiuto.isEmpty())
            throw ErroreEsecuzione(nonModificato + rifiuto);
    }
    if (!ritrovata && inMemoria) {
        try {
            inUso.preparaRicostruzione(nuovo.righe());
        } catch (const ErroreEsecuzione &e) {
            throw ErroreEsecuzione(nonModificato + e.testo());
        }
    }
    TabellaArchivio &tabella = ritrovata ? *ritrovata : inUso;

    // The text is written with the table's transaction open: the table commits only once the
    // text is whole, and most faults of the table come before the text is touched.
    QString guasto;
    bool testoScritto = false;
    try {
        scriviFile(stato, righe);
        testoScritto = true;
        tabella.confermaRicostruzione();
    } catch (const ErroreEsecuzione &e) {
        tabella.annullaRicostruzione();
        guasto = e.testo();
    }
    if (!guasto.isEmpty() && testoScritto && ritrovata && inMemoria) {
        // The file table failed again: the one in memory takes the rows, as before.
        ritrovata.reset();
        nota.clear();
        try {
            inUso.ricostruisci(nuovo.righe());
            guasto.clear();
        } catch (const ErroreEsecuzione &e) {
            guasto = e.testo();
        }
    }
    if (guasto.isEmpty()) {
        if (ritrovata)
            stato.usaTabellaArchivio(std::move(ritrovata));
        stato.ColonneArchivio = std::move(nuovo);
        return nota;
    }

    // Undo: the text file first, then the copies written beside it. When the text can't be
    // put back, the copies stay too: the previous generation of the new text is the old one.
    // A write that failed left the old text in place (QSaveFile replaces it whole or not at all).
    if (!testoScritto || testoPrima.rimetti()) {
        QString t = nonModificato + guasto;
        // A copy beside the text that stays changed holds the archive as it still is.
        for (const auto &[file, nome] : {std::pair{&precedentePrima, NomeCopiaPrecedente},
                                         std::pair{&danneggiatoPrima, NomeDanneggiato}})
            if (!file->rimetti())
                t += u"\n\n%1 non si è potuto rimettere com'era: ora contiene una copia "
                     "dell'archivio attuale."_s.arg(QString::fromLatin1(nome));
        throw ErroreEsecuzione(t);
    }
    // Undoing failed too: Archivio.txt keeps the change. The three copies follow what it holds,
    // and the user learns that the change is stored, so that it is not made twice.
    ArchivioColonne ora;
    try {
        ora = ArchivioColonne::daRighe(leggiFile(stato));
    } catch (const ErroreEsecuzione &) {
        ora = nuovo;
    }
    stato.usaTabellaArchivio(tabellaInMemoria(stato, ora.righe()));
    stato.ColonneArchivio = std::move(ora);
    return testo(ModificaRegistrata) + u"\n\n"_s + guasto;
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

QString Archivio::ripristinaCopiaPrecedente(StatoProgramma &stato) {
    // The file replaced can't be read, so scriviFile keeps it as ArchivioDanneggiato.txt and
    // leaves the previous generation where it is.
    return sostituisci(stato, FileDati::leggiRighe(percorso(stato, NomeCopiaPrecedente)));
}

QList<RigaArchivio> Archivio::apriTabella(StatoProgramma &stato) {
    TabellaFile t = apriFile(percorsoTabella(stato), false);
    stato.usaTabellaArchivio(t.tabella ? std::move(t.tabella) : tabellaInMemoria(stato, {}));
    return t.righe;
}

Archivio::NotaTabella Archivio::allineaTabella(StatoProgramma &stato, bool conArchivio,
                                               const QList<RigaArchivio> &lette) {
    NotaTabella nota;
    if (!conArchivio)
        return nota;
    const QList<RigaArchivio> &righe = stato.ColonneArchivio.righe();
    TabellaFile t;
    TabellaArchivio &aperta = stato.tabellaArchivio();
    try {
        if (!aperta.inMemoria()) {
            if (lette != righe)
                aperta.ricostruisci(righe);
            return nota;
        }
        t = apriFile(percorsoTabella(stato), true);
        if (t.tabella) {
            if (t.righe != righe)
                t.tabella->ricostruisci(righe);
            stato.usaTabellaArchivio(std::move(t.tabella));
            nota.testo = notaRicostruita(t);
            return nota;
        }
    } catch (const ErroreEsecuzione &e) {
        t.tabella.reset();
        t.errore = e.testo();
    }
    stato.usaTabellaArchivio(tabellaInMemoria(stato, righe));
    nota.inUso = false;
    nota.testo = testo(TabellaNonInUso) + u"\n\n"_s;
    if (!t.danno.isEmpty())
        nota.testo += t.danno + u"\n"_s;
    if (t.accantonato)
        nota.testo += testo(TabellaAccantonata) + u"\n"_s;
    nota.testo += t.errore;
    return nota;
}
