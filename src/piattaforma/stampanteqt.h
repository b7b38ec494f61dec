#pragma once

#include "piattaforma/dispositivopittore.h"

#include <QPainter>
#include <QPrinter>

#include <memory>

class Dialoghi;
class Impostazioni;

// The printer as a drawing device: the system's printer, or a PDF file when one is named. A4, the
// orientation asked for, coordinates from the top left corner of the paper on every printer and
// file, whatever margins or printable area the driver declares: what is drawn lands where the
// preview shows it. A PDF file is written under a name of its own and takes its real name only
// once whole, so a run that stops leaves no half a file and an older file of that name as it was.
class StampanteQt {
public:
    StampanteQt(Dialoghi &dialoghi, Impostazioni &impostazioni, const QString &filePdf,
                bool orizzontale);
    ~StampanteQt();

    QPrinter &stampante() { return m_stampante; }
    void setOrizzontale(bool orizzontale);
    // The dots of the device (dots per inch): the unit of the pen's width.
    void setRisoluzione(int puntiPerPollice);
    // ControllaStampante: whether there is a printer to print on, that answers for its page.
    bool controlla();
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
    // where, and its folder is the next proposal; a PDF file that can't take its name is a
    // run-time fault.
    void fine();
    // Ends a document that a fault stopped, saying nothing: a PDF file being written is removed,
    // what went to a printer is left as it is.
    void interrompi();

private:
    // Removes the temporary PDF file of a document that didn't end.
    void scartaPdf();

    Dialoghi &m_dialoghi;
    Impostazioni &m_impostazioni;
    QPrinter m_stampante;
    QPainter m_pittore;
    std::unique_ptr<DispositivoPittore> m_dispositivo;
    // The PDF file asked for, while the pages go to its temporary name.
    QString m_filePdf;
    bool m_suPdf = false;
    bool m_scelta = false;
};
