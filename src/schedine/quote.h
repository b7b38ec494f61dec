#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

class StatoProgramma;

// The latest prize pools, winners and quotas of the Totocalcio and of the Totogol: "Quote.txt" in
// the data folder, shown as it stands (the program does no arithmetic on it) and refreshed from
// the update site as it comes, without any check of its shape.
class Quote {
public:
    // DatiQuote: the first 25 lines of the file, trimmed; 23 of them are shown.
    static constexpr int Valori = 25;
    static constexpr const char *File = "Quote.txt";
    static constexpr const char *Pagina = "/vespara/Quote.html";
    static constexpr const char *SenzaConnessione =
        "Per utilizzare questa funzione è necessario essere collegati ad Internet.";
    static constexpr const char *Aggiornate = "Aggiornamento effettuato.";

    // Where each value goes (1-based line numbers of the file).
    static constexpr int ConcorsoTotocalcio = 1;
    static constexpr int MontepremiTotocalcio = 2;
    static constexpr int Montepremi9 = 3;
    static constexpr int ColonnaTotocalcio = 4;
    static constexpr int ConcorsoTotogol = 13;
    static constexpr int MontepremiTotogol = 14;
    static constexpr int ColonnaTotogol = 15;
    // Each category's winners; its quota is on the next line.
    struct Categoria {
        const char *nome;
        int vincitori;
    };
    static constexpr std::array<Categoria, 4> CategorieTotocalcio{
        {{"14", 5}, {"13", 7}, {"12", 9}, {"9", 11}}};
    static constexpr std::array<Categoria, 4> CategorieTotogol{
        {{"7", 16}, {"6", 18}, {"5", 20}, {"4", 22}}};
    // The category of the 9 among the Totocalcio's: its row stands in red.
    static constexpr int RigaDel9 = 4;

    // At most 25 values, fewer for a shorter file; a missing file is a run-time fault.
    static QStringList leggi(const QString &cartella);
    // The value of a 1-based line: empty beyond the end of the file.
    static QString valore(const QStringList &dati, int riga) { return dati.value(riga - 1); }

    // CaricaMontepremi: the page of the site stored as the file, then read back.
    static QStringList scarica(StatoProgramma &stato);
    // AggiornaQuote: the probe of the connection first; nothing, and nothing written, without it.
    static std::optional<QStringList> aggiorna(StatoProgramma &stato);
};
