#pragma once

#include "core/archiviocolonne.h"
#include "piattaforma/stampanti.h"

#include <QHash>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <array>
#include <memory>
#include <optional>

class Dialoghi;
class Griglia;
class Rete;
class Impostazioni;
class Schermo;
class TabellaArchivio;
class RegistroSchermi;

// The program-wide tables and values, under their own names, and the platform services. One
// object, owned by the frame and handed to every screen: there is no other global state.
class StatoProgramma {
public:
    // The contests that the coppie of the signs panel look at.
    static constexpr int ValoreBaseColonne9 = 205;
    static constexpr int NumeroFlagAggiornamento = 18;

    StatoProgramma(Dialoghi &dialoghi, Impostazioni &impostazioni, Schermo &schermo);
    ~StatoProgramma();

    Dialoghi &dialoghi() const { return m_dialoghi; }
    Impostazioni &impostazioni() const { return m_impostazioni; }
    Schermo &schermo() const { return m_schermo; }
    // The printers of the system (the frame installs the list).
    Stampanti &stampanti() { return m_stampanti; }

    // The update site: downloads and the probe. Its root is read from the environment and the
    // settings the first time it is used.
    Rete &rete();

    // The archive table; opened at start-up (see Archivio::apriTabella). It may be a table in
    // memory standing in for a file that can't be used.
    TabellaArchivio &tabellaArchivio() const;
    // Opens the table of the file archivio.db in the data folder; a fault when it can't.
    void apriTabellaArchivio();
    // The table to use from now on, in place of the one before.
    void usaTabellaArchivio(std::unique_ptr<TabellaArchivio> tabella);
    bool tabellaAperta() const { return bool(m_tabella); }

    // The registry of open screens (the frame).
    RegistroSchermi *registro() const { return m_registro; }
    void setRegistro(RegistroSchermi *registro) { m_registro = registro; }

    // PercorsoDati and the path of a file in it, looked up without regard to case.
    QString PercorsoDati;
    QString percorsoFile(const QString &nome) const;

    // ColonneArchivio and NumeroColonne.
    ArchivioColonne ColonneArchivio;
    int NumeroColonne() const { return ColonneArchivio.numero(); }

    QStringList Segni;
    QStringList GiorniSettimana;
    QStringList Formule;
    int BaseColonne9 = 0;
    bool RicalcolaColonne9 = true;
    // The master table of the columns of the 9: column, Freq., Rit. (as the grid shows them),
    // kept while the program runs so that reopening the workspace costs nothing.
    QList<std::array<QString, 3>> StatColonne9;
    // The terzine chosen in the signs panel for the three groups of the integral system, in the
    // order the generator's grids show them; the panel writes them, the generator reads them.
    std::array<QStringList, 3> TerzineSistema;
    // TabellaSistema: the system handed to the workspace of the 9, row i - 1 for row i (the
    // nine signs, Freq., Rit.).
    QList<std::array<QString, 3>> TabellaSistema;
    // The season text of anno.txt.
    QString Stagione;
    // Team lists by league code (LegaClassifica).
    QHash<QString, QStringList> Squadre;
    // Freshness flags of the league tables, set by the updates.
    std::array<bool, NumeroFlagAggiornamento> ClassificheAggiornate{};
    // Shared selection of the coupon and league grids, "0" when nothing is chosen.
    QString SquadraCasa = QStringLiteral("0");
    QString SquadraOspite = QStringLiteral("0");
    QString LegaClassifica;
    // A league table is on show (frmClassifiche open), and where its window was last moved to.
    bool ClassificaInMostra = false;
    std::optional<QPoint> PosizioneClassifiche;
    // Placement offsets of the league tables and slip printing screens, in twips.
    int ScostamentoOrizzontale = 0;
    int ScostamentoVerticale = 0;

    // What the workspace of the 9 hands to the slip printer: ColonneStampa (column i at index
    // i - 1, its first nine characters the signs of boxes 1 to 9), the interval of the run
    // (PrimaColonnaStampa, UltimaColonnaStampa; an interval run leaves its own here).
    QStringList ColonneStampa;
    int PrimaColonnaStampa = 1;
    qint16 UltimaColonnaStampa = 0;
    // The lines of Vpprn.PRN in memory: room for exactly 10.
    static constexpr int RighePerStampanti = 10;
    std::array<QString, RighePerStampanti> RigheStampanti;
    // The offsets of the current printer: the texts of the screen when it opens, their numbers
    // at the start of each run.
    QVariant PosXStampa;
    QVariant PosYStampa;

    // OrientamentoPagina of the page documents: "orizzontale" is landscape, anything else portrait.
    QString OrientamentoPagina = QStringLiteral("verticale");
    // When set, every print goes to this PDF file instead of the printer (tests, and users with
    // no printer).
    QString FileStampaPdf;
    bool paginaOrizzontale() const { return OrientamentoPagina == QStringLiteral("orizzontale"); }

    // What a screen hands to the export to Excel: the hidden grid of frmGriglia (its rows 1 to
    // the last at the screen's own coordinates), TitoloEsportazione, IntestazioniEsportazione
    // (244 texts), RigheEsportazione and ColonneEsportazione.
    static constexpr int NumeroIntestazioni = 244;
    Griglia &GrigliaEsportazione() const { return *m_grigliaEsportazione; }
    QString TitoloEsportazione;
    QStringList IntestazioniEsportazione;
    int RigheEsportazione = 0;
    int ColonneEsportazione = 0;

private:
    std::unique_ptr<Griglia> m_grigliaEsportazione;
    Dialoghi &m_dialoghi;
    Impostazioni &m_impostazioni;
    Schermo &m_schermo;
    Stampanti m_stampanti;
    std::unique_ptr<TabellaArchivio> m_tabella;
    std::unique_ptr<Rete> m_rete;
    RegistroSchermi *m_registro = nullptr;
};
