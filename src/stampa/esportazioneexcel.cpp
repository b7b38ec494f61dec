#include "stampa/esportazioneexcel.h"

#include "core/colonna.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"
#include "piattaforma/griglia.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// The longest text a cell of Excel holds.
constexpr int LunghezzaMassimaCella = 32767;

// One workbook with one worksheet on libxlsxwriter. The file is written only by chiudi(); a
// workbook left unclosed (a fault while filling it) is freed without touching the disk.
class CartellaXlsx {
public:
    explicit CartellaXlsx(const QString &percorso)
        : m_percorso(percorso)
        , m_nomeFile(QFile::encodeName(percorso))
        , m_cartellaTemporanea(QFile::encodeName(QDir::tempPath())) {
        // The library's working files go to the program's temporary folder (TMPDIR).
        lxw_workbook_options opzioni{};
        opzioni.tmpdir = m_cartellaTemporanea.data();
        m_cartella = workbook_new_opt(m_nomeFile.constData(), &opzioni);
        if (!m_cartella)
            throw errore(LXW_ERROR_MEMORY_MALLOC_FAILED);
        m_foglio = workbook_add_worksheet(m_cartella, "Foglio1");
        if (!m_foglio)
            throw errore(LXW_ERROR_MEMORY_MALLOC_FAILED);
    }
    CartellaXlsx(const CartellaXlsx &) = delete;
    CartellaXlsx &operator=(const CartellaXlsx &) = delete;
    ~CartellaXlsx() {
        if (m_cartella)
            lxw_workbook_free(m_cartella);
    }

    // A text goes in as a string; an empty text leaves the cell empty.
    void scrivi(int riga, int colonna, const QString &testo) {
        if (testo.isEmpty())
            return;
        const QByteArray utf8 = testo.toUtf8();
        verifica(worksheet_write_string(m_foglio, static_cast<lxw_row_t>(riga),
                                        static_cast<lxw_col_t>(colonna), utf8.constData(),
                                        nullptr));
    }

    void scriviNumero(int riga, int colonna, double numero) {
        verifica(worksheet_write_number(m_foglio, static_cast<lxw_row_t>(riga),
                                        static_cast<lxw_col_t>(colonna), numero, nullptr));
    }

    // In characters of the default font.
    void larghezza(int colonna, double caratteri) {
        verifica(worksheet_set_column(m_foglio, static_cast<lxw_col_t>(colonna),
                                      static_cast<lxw_col_t>(colonna), caratteri, nullptr));
    }

    // The panes are frozen below the first `righe` rows.
    void blocca(int righe) { worksheet_freeze_panes(m_foglio, static_cast<lxw_row_t>(righe), 0); }

    void chiudi() {
        // workbook_close frees the workbook whatever happens.
        const lxw_error esito = workbook_close(std::exchange(m_cartella, nullptr));
        if (esito == LXW_NO_ERROR)
            return;
        // Once the file is created the library has truncated it: don't leave half a workbook.
        if (esito != LXW_ERROR_CREATING_XLSX_FILE)
            QFile::remove(m_percorso);
        throw errore(esito);
    }

private:
    void verifica(lxw_error esito) const {
        if (esito != LXW_NO_ERROR)
            throw errore(esito);
    }

    ErroreEsecuzione errore(lxw_error esito) const {
        const QString nome = QDir::toNativeSeparators(m_percorso);
        switch (esito) {
        case LXW_ERROR_CREATING_XLSX_FILE:
            return ErroriFile::errore(u"creare"_s, m_percorso,
                                      ErroriFile::causaScrittura(m_percorso, errno), QString());
        case LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED:
            return ErroreEsecuzione(
                u"Impossibile scrivere il file %1: un testo supera i %2 caratteri di una cella di Excel."_s
                    .arg(nome)
                    .arg(LunghezzaMassimaCella));
        case LXW_ERROR_WORKSHEET_INDEX_OUT_OF_RANGE:
            return ErroreEsecuzione(
                u"Impossibile scrivere il file %1: la tabella supera le dimensioni di un foglio di Excel."_s
                    .arg(nome));
        default:
            // The library's own text (English) is a detail; the cause is the disk's.
            return ErroriFile::scrittura(m_percorso, QString::fromUtf8(lxw_strerror(esito)), errno);
        }
    }

    QString m_percorso;
    QByteArray m_nomeFile;
    QByteArray m_cartellaTemporanea;
    lxw_workbook *m_cartella = nullptr;
    lxw_worksheet *m_foglio = nullptr;
};

} // namespace

void EsportazioneExcel::prepara(StatoProgramma &stato, const Griglia &sorgente,
                                const QString &titolo) {
    // Checked before anything changes, so a fault leaves the previous export whole.
    if (sorgente.colonne() > MassimoColonne)
        throw ErroreEsecuzione(
            u"Non si possono esportare in Excel più di %1 colonne: la griglia ne ha %2."_s
                .arg(MassimoColonne)
                .arg(sorgente.colonne()));

    Griglia &nascosta = stato.GrigliaEsportazione();
    {
        const Griglia::Blocco blocco = nascosta.inBlocco();
        nascosta.pulisci();
        nascosta.setColonne(sorgente.colonne());
        nascosta.setRighe(sorgente.righe());
        for (int r = 1; r < sorgente.righe(); ++r)
            for (int c = 0; c < sorgente.colonne(); ++c)
                nascosta.setTesto(r, c, sorgente.testo(r, c));
    }

    stato.TitoloEsportazione = titolo;
    QStringList intestazioni(StatoProgramma::NumeroIntestazioni);
    if (sorgente.righe() > 0)
        for (int c = 0; c < sorgente.colonne(); ++c)
            intestazioni[c] = sorgente.testo(0, c);
    stato.IntestazioniEsportazione = intestazioni;
    stato.RigheEsportazione = std::max(0, sorgente.righe() - 1);
    stato.ColonneEsportazione = sorgente.colonne();
}

QString EsportazioneExcel::oggi() {
    return QDate::currentDate().toString(u"dd/MM/yyyy"_s);
}

QString EsportazioneExcel::testoIntestazioni(const QStringList &intestazioni) {
    // Always the 244 texts: the ones the caller never set are empty.
    QStringList tutte = intestazioni.mid(0, StatoProgramma::NumeroIntestazioni);
    while (tutte.size() < StatoProgramma::NumeroIntestazioni)
        tutte.append(QString());
    QString testo = tutte.join(u',');
    const qsizetype ultima = testo.lastIndexOf(u',');
    if (ultima >= 0)
        testo.remove(ultima, 1);
    return testo;
}

QList<QStringList> EsportazioneExcel::foglio(const StatoProgramma &stato) {
    const Griglia &nascosta = stato.GrigliaEsportazione();
    const int righeTabella = std::max(0, nascosta.righe() - 1);
    if (righeTabella > MassimoRighe)
        throw ErroreEsecuzione(
            u"Non si possono esportare in Excel più di %1 righe: la tabella ne ha %2."_s
                .arg(MassimoRighe)
                .arg(righeTabella));
    if (nascosta.colonne() > MassimoColonne)
        throw ErroreEsecuzione(
            u"Non si possono esportare in Excel più di %1 colonne: la tabella ne ha %2."_s
                .arg(MassimoColonne)
                .arg(nascosta.colonne()));
    const int righe = stato.RigheEsportazione;
    const int colonne = stato.ColonneEsportazione;
    if (righe < 0 || righe > MassimoRighe || colonne < 0 || colonne > MassimoColonne)
        throw ErroreEsecuzione(
            u"Dimensioni della tabella da esportare in Excel non valide: %1 righe per %2 colonne."_s
                .arg(righe)
                .arg(colonne));

    QList<QStringList> celle;
    celle.reserve(3 + righe);
    celle.append({u"Vespara - "_s + stato.TitoloEsportazione});
    celle.append(QStringList());
    celle.append(QStringList(CelleIntestazione, testoIntestazioni(stato.IntestazioniEsportazione)));
    // Row i of the table is row i + 1 of the hidden grid; what lies outside the grid is empty.
    for (int i = 0; i < righe; ++i) {
        QStringList riga(colonne);
        const int r = i + 1;
        if (r < nascosta.righe())
            for (int c = 0; c < std::min(colonne, nascosta.colonne()); ++c)
                riga[c] = nascosta.testo(r, c);
        celle.append(riga);
    }
    return celle;
}

EsportazioneExcel::Impaginazione EsportazioneExcel::impaginazioneFoglio() {
    // Row 0 the title, row 2 the header.
    return {3, {0, 2}};
}

void EsportazioneExcel::scrivi(const QString &percorso, const StatoProgramma &stato) {
    scriviCelle(percorso, foglio(stato), impaginazioneFoglio());
}

void EsportazioneExcel::scriviCelle(const QString &percorso, const QList<QStringList> &righe,
                                    const Impaginazione &impaginazione) {
    CartellaXlsx cartella(percorso);
    const QList<bool> segni = colonneDiSegni(righe);
    for (int r = 0; r < righe.size(); ++r)
        for (int c = 0; c < righe.at(r).size(); ++c) {
            const QString &testo = righe.at(r).at(c);
            const std::optional<double> numero =
                segni.at(c) ? std::nullopt : Griglia::numeroSemplice(testo);
            if (numero)
                cartella.scriviNumero(r, c, *numero);
            else
                cartella.scrivi(r, c, testo);
        }
    const QList<double> larghezze = larghezzeColonne(righe, impaginazione.righeSenzaLarghezza);
    for (int c = 0; c < larghezze.size(); ++c)
        if (larghezze.at(c) > 0)
            cartella.larghezza(c, larghezze.at(c));
    if (impaginazione.righeFisse > 0)
        cartella.blocca(impaginazione.righeFisse);
    cartella.chiudi();
}

void EsportazioneExcel::scriviCelle(const QString &percorso, const QList<QStringList> &righe) {
    scriviCelle(percorso, righe, Impaginazione());
}

bool EsportazioneExcel::sequenzaDiSegni(QStringView testo) {
    if (testo.size() < 2)
        return false;
    bool x = false;
    for (const QChar c : testo) {
        if (c == u'X')
            x = true;
        else if (c != u'1' && c != u'2')
            return false;
    }
    return x || testo.size() >= Colonna::LunghezzaNove;
}

QList<bool> EsportazioneExcel::colonneDiSegni(const QList<QStringList> &righe) {
    QList<bool> segni;
    for (const QStringList &riga : righe) {
        if (riga.size() > segni.size())
            segni.resize(riga.size(), false);
        for (int c = 0; c < riga.size(); ++c)
            if (!segni.at(c) && sequenzaDiSegni(QStringView(riga.at(c)).trimmed()))
                segni[c] = true;
    }
    return segni;
}

QList<double> EsportazioneExcel::larghezzeColonne(const QList<QStringList> &righe,
                                                  const QList<int> &escluse) {
    QList<qsizetype> lunghezze;
    for (int r = 0; r < righe.size(); ++r) {
        const QStringList &riga = righe.at(r);
        if (riga.size() > lunghezze.size())
            lunghezze.resize(riga.size(), 0);
        if (escluse.contains(r))
            continue;
        for (int c = 0; c < riga.size(); ++c)
            lunghezze[c] = std::max(lunghezze.at(c), QStringView(riga.at(c)).trimmed().size());
    }
    QList<double> larghezze;
    larghezze.reserve(lunghezze.size());
    for (const qsizetype lunghezza : std::as_const(lunghezze)) {
        // 1.1 characters a character, rounded up in whole numbers, for the wider letters.
        const double caratteri = double((lunghezza * 11 + 9) / 10 + 2);
        larghezze.append(lunghezza == 0 ? 0.0
                                        : std::clamp(caratteri, LarghezzaMinima, LarghezzaMassima));
    }
    return larghezze;
}

void EsportazioneExcel::esporta(StatoProgramma &stato) {
    // The table is checked first: a fault doesn't ask the user for a name in vain.
    const QList<QStringList> celle = foglio(stato);
    QString percorso =
        stato.dialoghi().salvaFile(stato.impostazioni(), titoloDialogo(), filtroDialogo(),
                                   Dialoghi::nomeFile(stato.TitoloEsportazione, u"xlsx"_s));
    if (percorso.isEmpty())
        return;
    // The desktop's dialog doesn't always add the suffix of the filter.
    if (QFileInfo(percorso).suffix().isEmpty())
        percorso += percorso.endsWith(u'.') ? u"xlsx"_s : u".xlsx"_s;
    scriviCelle(percorso, celle, impaginazioneFoglio());
    stato.dialoghi().fileSalvato(stato.impostazioni(), percorso);
}

QString EsportazioneExcel::titoloDialogo() {
    return u"Specifica il nome del file..."_s;
}

QString EsportazioneExcel::filtroDialogo() {
    return u"Cartella di lavoro Excel (*.xlsx)"_s;
}
