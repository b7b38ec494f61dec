#pragma once

#include "piattaforma/dispositivopittore.h"

#include <QPainter>
#include <QPrinter>

#include <memory>

class StatoProgramma;

// The printer as a drawing device: the system's printer, or the PDF file that the program state
// names (FileStampaPdf). A4, the orientation asked for, coordinates from the corner of the paper.
class StampanteQt {
public:
    explicit StampanteQt(StatoProgramma &stato);
    ~StampanteQt();

    QPrinter &stampante() { return m_stampante; }
    void setOrizzontale(bool orizzontale);
    // Whether printing goes to the PDF file of the program state.
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
    StatoProgramma &m_stato;
    QPrinter m_stampante;
    QPainter m_pittore;
    std::unique_ptr<DispositivoPittore> m_dispositivo;
    bool m_suPdf = false;
};
