#pragma once

#include "piattaforma/dispositivopittore.h"

#include <QPainter>
#include <QPrinter>

#include <memory>

class Dialoghi;

// The printer as a drawing device: the system's printer, or a PDF file when one is named. A4, the
// orientation asked for, coordinates from the corner of the paper.
class StampanteQt {
public:
    StampanteQt(Dialoghi &dialoghi, const QString &filePdf, bool orizzontale);
    ~StampanteQt();

    QPrinter &stampante() { return m_stampante; }
    void setOrizzontale(bool orizzontale);
    // Whether printing goes to the PDF file.
    bool suPdf() const { return m_suPdf; }
    // With no printer on the system the print dialog lets the user choose one (or a PDF file):
    // false when that was cancelled.
    bool scegliSeManca();

    // Starts the document and gives the device to draw on; a printer that can't start is a
    // run-time fault.
    DispositivoDisegno &inizia();
    // EndDoc.
    void fine();

private:
    Dialoghi &m_dialoghi;
    QPrinter m_stampante;
    QPainter m_pittore;
    std::unique_ptr<DispositivoPittore> m_dispositivo;
    bool m_suPdf = false;
};
