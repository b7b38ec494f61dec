#pragma once

#include <QString>

class DispositivoDisegno;
class DocumentoPagine;
class Griglia;

// The prints of the signs panel: the grid of the terzine or of the coppie straight to the
// printer, under its heading and centred on the page; the cinquine as a page document.
class StampaPannello {
public:
    static void stampaGriglia(DispositivoDisegno &dispositivo, const Griglia &griglia,
                              const QString &titolo, const QString &concorso);
    static constexpr int RighePerPagina = 58;
    static void scriviCinquine(DocumentoPagine &documento, const Griglia &cinquine,
                               const QString &data);
};
