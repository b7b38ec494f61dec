#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The nine files of the coupons of the week, one coupon, one picchetto and one prognosis for each
// of the three kinds, read and written here only. All live in the data folder as Latin-1 lines
// ended by CR LF. No format has an escape: a "-" in a team's name shifts the later pieces of its
// line, and every reader takes the pieces as they fall.
class FileSchedine {
public:
    // In the order of the pages of the manual update: A, B, C.
    enum class Tipo { Infrasettimanale, Sabato, Domenica };
    static constexpr std::array<Tipo, 3> Tipi{Tipo::Infrasettimanale, Tipo::Sabato, Tipo::Domenica};
    static constexpr int Partite = 14;
    // The heading and the 14 matches.
    static constexpr int RigheSchedina = Partite + 1;
    static constexpr int RighePicchetto = Partite + 1;
    // The contest number of a coupon that holds none.
    static constexpr const char *ConcorsoVuoto = "--";

    static QString fileSchedina(Tipo tipo);
    static QString filePicchetto(Tipo tipo);
    static QString filePronostico(Tipo tipo);

    // The heading of a coupon: "Concorso n. 12 del Domenica 05/03/2011 Ore 15:00".
    struct Intestazione {
        QString concorso;
        QString giorno;
        QString data;
        QString ora;
        bool operator==(const Intestazione &) const = default;
    };
    static QString intestazione(const Intestazione &campi);
    // The heading read back from its blank-separated tokens (2, 4, 5 and 7); nothing when the
    // contest number is "--". A heading with too few tokens is a run-time fault.
    static std::optional<Intestazione> leggiIntestazione(const QString &riga);

    // A match line as the manual update writes it: the number, the two teams in upper case and a
    // final "-".
    static QString rigaPartita(int numero, const QString &casa, const QString &ospite);

    // A coupon as its screen reads it: the first "-"-piece of the heading ("--" for an empty
    // file), and the pieces of each match line (at most 14), trimmed of blanks. Lines beyond the
    // 15th are read and ignored; a shorter file gives fewer matches.
    struct Schedina {
        QString intestazione = QString::fromLatin1(ConcorsoVuoto);
        QList<QStringList> partite;
    };
    static Schedina leggiSchedina(const QString &cartella, Tipo tipo);

    // A coupon as the manual update writes it: the heading and 14 match lines, replacing the file.
    using Squadre = std::array<std::array<QString, 2>, Partite>;
    static void scriviSchedina(const QString &cartella, Tipo tipo, const Intestazione &testa,
                               const Squadre &squadre);

    // The percentages of 1, X and 2 of the 14 matches: pieces 3 and 4 as they stand, piece 5
    // trimmed. Exactly 15 lines are read: a shorter file, or a line with fewer than six pieces,
    // is a run-time fault.
    using Percentuali = std::array<QString, 3>;
    static std::array<Percentuali, Partite> leggiPicchetto(const QString &cartella, Tipo tipo);

    // The signs of the 14 matches as the user stored them, one line each; a file of more than 14
    // lines is a run-time fault. A file cleared holds 14 empty lines.
    static QStringList leggiPronostico(const QString &cartella, Tipo tipo);
    // Replaces the file with exactly these lines.
    static void scriviPronostico(const QString &cartella, Tipo tipo, const QStringList &righe);
};
