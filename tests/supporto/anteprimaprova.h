#pragma once

#include <QString>

#include <functional>

class FrmAnteprima;
class QWidget;

// The preview and its print window, used as a user would.
namespace AnteprimaProva {

// The preview on the desktop (PrnPrv), or null.
FrmAnteprima *aperta();
// Works the print window (PrnPrn, a modal dialog) when it comes up.
void quandoAppareStampa(const std::function<void(QWidget *)> &azione);
// The pages of a PDF file as pdfinfo reads them; -1 when it can't be read.
int paginePdf(const QString &file);

} // namespace AnteprimaProva
