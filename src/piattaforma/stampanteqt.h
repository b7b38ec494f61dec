#pragma once

#include "piattaforma/dispositivopittore.h"

#include <QPainter>
#include <QPrinter>

#include <memory>

class Dialoghi;
class Impostazioni;

// The printer as a drawing device: the system's printer, or a PDF file when one is named. A4, the
// orientation asked for, coordinates from the corner of the paper.
class StampanteQt {
public:
    StampanteQt(Dialoghi &dialoghi, Impostazioni &impostazioni, const QString &filePdf,
                bool orizzontale);
    ~StampanteQt();

    QPrinter &stampante() { return m_stampante; }
    void setOrizzontale(bool orizzontale);
    // Whether printing goes to the PDF file.
    bool suPdf() const { return m_suPdf; }
    // The name of the document, such as a report's title: the print job's name, and the name of
    // the PDF file proposed when printing goes to a file.
    void setNomeDocumento(const QString &nome);
    QString nomeDocumento() const { return m_stampante.docName(); }
    // The print dialog: false when cancelled. With no printer on the system, the only choice is
    // a PDF file, so the dialog opens on one named after the document in the folder of the last
    // file saved.
    bool scegli();
    // With no printer on the system the print dialog lets the user choose one (or a PDF file),
    // unless the user chose in it already: false when that was cancelled.
    bool scegliSeManca();

    // Starts the document and gives the device to draw on; a printer that can't start is a
    // run-time fault.
    DispositivoDisegno &inizia();
    // EndDoc. When the pages went to a PDF file and the file is written, the status bar says
    // where, and its folder is the next proposal.
    void fine();
    // Ends a document that a fault stopped, saying nothing.
    void interrompi();

private:
    Dialoghi &m_dialoghi;
    Impostazioni &m_impostazioni;
    QPrinter m_stampante;
    QPainter m_pittore;
    std::unique_ptr<DispositivoPittore> m_dispositivo;
    bool m_suPdf = false;
    bool m_scelta = false;
};
