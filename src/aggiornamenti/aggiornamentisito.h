#pragma once

#include "piattaforma/rete.h"
#include "piattaforma/riepilogoaggiornamento.h"

#include <QString>
#include <QStringList>

#include <array>
#include <functional>
#include <optional>

class StatoProgramma;

// The steps of the updates from the site, each written once and shared by every screen that
// lists it: the archive, the league tables, the quotas, the coupons, the picchetti, the team
// lists. A step stores whatever the site returned (an error page too), once the page came whole:
// a page broken off, a cancelled operation or the closing of the program stop the update before
// anything more is written, and the summary tells which files were replaced and which were left
// as they were. The object lives for one update and keeps the memory copies of the league tables
// and of the quotas that its steps read back.
class AggiornamentiSito {
public:
    static constexpr int NumeroSerie = 7;
    // The memory copies keep at most this many lines of their file.
    static constexpr int RigheClassifica = 21;

    // Paths under the site's root.
    static constexpr const char *PaginaVersione = "/Vespara/AggVer.html";
    static constexpr const char *PaginaArchivio = "/AggiornamentiVp/ColonneTotocalcio.htm";
    static constexpr const char *PaginaStagione = "/vespara/Stagione2011-12.html";

    // The texts of the boxes (UTF-8). The probe of the update screens, that of the quotas, and
    // that of the season update each have their own wording.
    static constexpr const char *SenzaConnessione =
        "Per utilizzare questa funzione, è necessario essere collegati ad Internet.";
    static constexpr const char *SenzaConnessioneStagione =
        "Nessuna connessione Internet attiva. Impossibile aggiornare.";
    static constexpr const char *DomandaStagione =
        "Questa funzionerà aggiornerà il programma alla Stagione ";

    // What the steps read back into memory: the league tables A..C2C and the quotas, each line
    // trimmed of blanks.
    struct Copie {
        std::array<QStringList, NumeroSerie> classifiche;
        QStringList quote;
    };

    explicit AggiornamentiSito(StatoProgramma &stato);

    const Copie &copie() const { return m_copie; }
    // The files replaced so far, and those the update sets out to replace: each group of steps
    // lists its files before it fetches anything.
    RiepilogoAggiornamento &riepilogo() { return m_riepilogo; }
    const RiepilogoAggiornamento &riepilogo() const { return m_riepilogo; }
    // The files of the full update, in its order (Archivio.txt first when it is to be rebuilt).
    void prevediCompleto(bool archivio);

    // VerificaConnessione.
    bool verificaConnessione();

    // The page fetched, trimmed of blanks and written to the data file as one print: its lines
    // and a last line end. Returns the trimmed text.
    QString scaricaInFile(const QString &percorso, const QString &nomeFile);
    // Pages that belong together (the team lists of a season): all fetched before any file is
    // touched, then each page written to its file, replaced atomically in place. A file of the
    // same name in another case is removed once the new one is whole.
    void scaricaInFile(const QList<std::pair<QString, QString>> &pagine);
    // The page fetched and trimmed, kept in memory only. A page that did not come whole is a
    // fault; a cancelled one an interruption.
    QString scaricaPagina(const QString &percorso);
    // An interruption when the operation was cancelled or the program is closing: every step
    // asks before it writes.
    void controllaInterruzione() const;

    // The page of the program's version: fetched and set aside, nothing depends on it.
    QString scaricaVersione() { return scaricaPagina(QString::fromLatin1(PaginaVersione)); }

    // The archive page split on LF: one piece per contest and an empty last piece.
    QStringList scaricaArchivio();
    // The fields of the last contest of the page (the piece before the last), split on blanks. A
    // page without contests is a run-time fault.
    static QStringList ultimaRiga(const QStringList &pezzi);
    // The archive is rebuilt unless the site's last progressive is below the local count.
    static bool daRicostruire(const QStringList &pezzi, int numeroColonne);
    // The lines of Archivio.txt from the page: the progressive dropped, each field followed by
    // one blank.
    static QStringList righeArchivio(const QStringList &pezzi);
    // Archivio.txt rewritten from the page, then table and memory rebuilt from it, through
    // Archivio::sostituisci: all three change or none. The lines are checked as the loader reads
    // them before the file is touched: a page it would refuse, or one without contests, is a
    // run-time fault that leaves the archive as it was. Returns the note of sostituisci, kept
    // for the final box too (notaArchivio).
    QString ricostruisciArchivio(const QStringList &pezzi);
    const QString &notaArchivio() const { return m_notaArchivio; }

    // The repair: the site's archive, with no comparison of sizes, in place of the local one.
    void riparaArchivio();

    // AggiornaSerieA .. AggiornaSerieC2C (indice 0..6): the league table's file, its freshness
    // flag, its memory copy (returned).
    QStringList aggiornaSerie(int indice);
    // The seven in order; `avanzamento` hears how many are done after each.
    void aggiornaClassifiche(const std::function<void(int)> &avanzamento = {});
    // CaricaMontepremi: Quote.txt and its memory copy (returned).
    QStringList caricaMontepremi();
    // AggiornaQuote: the probe, then CaricaMontepremi. Nothing when the probe fails.
    std::optional<QStringList> aggiornaQuote();
    // AggiornaSchedinaDomenica: the three coupons, the midweek one to its doubled name.
    void aggiornaSchedinaDomenica();
    // AggiornaSchedinaProssimoConcorso: the three coupons.
    void aggiornaSchedinaProssimoConcorso();
    // AggiornaPicchetto: Picchetto, PicchettoDomenica, PicchettoSabato.
    void aggiornaPicchetto();

    // What the full update does after the league tables: quotas, coupons, picchetti, coupons.
    void aggiornaSchedine();
    // The partial update of coupons: quotas, the three coupons, the three picchetti.
    void aggiornaSchedineEPicchetti();

    // The foreign team lists: each league's list fetched from its page on the site
    // (SerieInghilterra.txt .. SerieArgentinaAp.txt), then each written under the league's own
    // name (serieInghilterra.txt .. serieArgentina.txt) in place of the old list.
    void aggiornaConcorsiStranieri();
    // The season the site offers (its page, trimmed).
    QString stagioneSulSito() { return scaricaPagina(QString::fromLatin1(PaginaStagione)); }
    // The Italian team lists of the new season: SerieA.txt .. SerieC2C.txt.
    void aggiornaSquadreItaliane();

    // The names of the files the steps write.
    static QString fileClassifica(int indice);
    static QString fileSquadreSito(const char *codice);
    static QStringList fileClassifiche();
    // Those of aggiornaSchedine, of aggiornaSchedineEPicchetti and of aggiornaPicchetto, in the
    // order they are written.
    static QStringList fileSchedine();
    static QStringList fileSchedineEPicchetti();
    static QStringList filePicchetti();

private:
    QStringList leggiCopia(const QString &nomeFile, int massimo) const;
    void scaricaSchedine(const QString &fileInfrasettimanale);

    StatoProgramma &m_stato;
    // The update is one operation of the network: cancelled as a whole.
    Rete::Operazione m_operazione;
    Copie m_copie;
    RiepilogoAggiornamento m_riepilogo;
    QString m_notaArchivio;
};
