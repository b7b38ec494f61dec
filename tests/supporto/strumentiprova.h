#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

// Small helpers of the tests that read and write files byte for byte and catch the program's
// run-time faults.
namespace StrumentiProva {

// The bytes of a file, or "<illeggibile>" when it can't be read.
QByteArray contenuto(const QString &percorso);
// Writes the bytes as they are; false when that failed.
bool scriviGrezzo(const QString &percorso, const QByteArray &byte);
// The text of the fault that `azione` raises; a null text when it raises none.
QString errore(const std::function<void()> &azione);
// A caption as the menu shows it: each "&" that marks an access key is dropped, "&&" is one "&".
QString testoMostrato(const QString &didascalia);

} // namespace StrumentiProva
