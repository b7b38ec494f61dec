#pragma once

#include "schedine/fileschedine.h"

#include <QDate>
#include <QString>
#include <QStringList>

// The coupon typed by hand: the three pages of the manual update (A midweek, B Saturday,
// C Sunday), filled from the coupon files and written back one page at a time. Nothing is
// checked: empty fields go to the file as they are.
class SchedinaManuale {
public:
    static constexpr int Pagine = 3;
    static constexpr const char *DataVuota = "--/--/----";

    struct Pagina {
        QString concorso;
        QString giorno;
        QString data = QString::fromLatin1(DataVuota);
        QString ora;
        FileSchedine::Squadre squadre;
    };

    // The coupon kind of a page (0 A, 1 B, 2 C).
    static FileSchedine::Tipo tipo(int pagina) { return FileSchedine::Tipi[std::size_t(pagina)]; }

    // CaricaSchedine for one page: a heading whose contest is "--" leaves the page blank; else
    // its tokens and the two teams of each match line as they stand, only the last piece read
    // on the line of match 14 trimmed. A missing file, a heading or a match line with too few
    // pieces is a run-time fault.
    static Pagina carica(const QString &cartella, FileSchedine::Tipo tipo);
    // The page written to its coupon file, replacing it.
    static void applica(const QString &cartella, FileSchedine::Tipo tipo, const Pagina &pagina);

    // The date chosen in a page's month view: 05/03/2011 on pages A and B, 5/3/2011 on page C.
    static QString testoData(const QDate &data, FileSchedine::Tipo tipo);
    // The index of its weekday in the list of days: Monday 0, Sunday the last.
    static int indiceGiorno(const QDate &data);
};
