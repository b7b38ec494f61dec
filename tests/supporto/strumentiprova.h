#pragma once

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QAbstractButton;
class QLineEdit;
class VistaGriglia;

// Small helpers of the tests: files byte for byte, the program's run-time faults, and the
// controls of a screen used as a user would.
namespace StrumentiProva {

// The bytes of a file, or "<illeggibile>" when it can't be read.
QByteArray contenuto(const QString &percorso);
// Writes the bytes as they are; false when that failed.
bool scriviGrezzo(const QString &percorso, const QByteArray &byte);
// The sha256 of every file in a data folder, by name: what the tests compare before and after an
// operation. The settings store the tests keep in the same folder is no data file, and is left out.
QMap<QString, QByteArray> impronte(const QString &cartella);
// The names whose fingerprint differs (a file that came or went counts too), in order.
QStringList cambiati(const QMap<QString, QByteArray> &prima, const QMap<QString, QByteArray> &dopo);
// The text of the fault that `azione` raises; a null text when it raises none.
QString errore(const std::function<void()> &azione);
// A caption as the menu shows it: each "&" that marks an access key is dropped, "&&" is one "&".
QString testoMostrato(const QString &didascalia);

// The control of that name inside the screen; the test stops when there is none.
template <typename T> T *controllo(const QObject *schermo, const QString &nome) {
    T *trovato = schermo->findChild<T *>(nome);
    if (!trovato)
        qFatal("controllo assente: %s", qPrintable(nome));
    return trovato;
}
// A click where a user clicks: a check box or an option on its mark at the left (the empty rest
// of its row takes no click), any other button in its middle.
void clic(QAbstractButton *pulsante);
// A press and release of the right button on a cell of a grid (grid coordinates).
void clicDestro(VistaGriglia *vista, int riga, int colonna);
// A double click on a cell of a grid.
void doppioClic(VistaGriglia *vista, int riga, int colonna);
// A click of the left button in the middle of a column's header.
void clicIntestazione(VistaGriglia *vista, int colonna);
// The right edge of a column's header dragged by `dx` pixels with the left button, as a user
// widens (dx > 0) or narrows a column.
void trascinaBordo(VistaGriglia *vista, int colonna, int dx);
// A double click on the right edge of a column's header, and one in its middle.
void doppioClicBordo(VistaGriglia *vista, int colonna);
void doppioClicIntestazione(VistaGriglia *vista, int colonna);
// The field's text selected and typed over, key by key (an empty text deletes it).
void scriviSopra(QLineEdit *campo, const QString &testo);

} // namespace StrumentiProva
