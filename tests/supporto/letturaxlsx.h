#pragma once

#include <QMap>
#include <QString>

#include <optional>

// Workbooks read back as a user's spreadsheet would read them, through openpyxl.
namespace LetturaXlsx {

// The cells of the first worksheet as openpyxl reads them: value and type ('s' text, 'n' number);
// the top left cell of the frozen panes ("-" for none) and the widths that columns have of their
// own, by column letter.
struct Lettura {
    QMap<QString, QString> valori;
    QMap<QString, QString> tipi;
    QString riquadro;
    QMap<QString, double> larghezze;
};

// Whether python3 with openpyxl is there to read workbooks.
bool lettoreDisponibile();
// The first worksheet of the file; nothing when it can't be read.
std::optional<Lettura> leggi(const QString &file);

} // namespace LetturaXlsx
