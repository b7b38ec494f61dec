#pragma once

#include <QString>

class DocumentoPagine;
class Griglia;

// The printed list of the columns of the 9 that the filters left in the grid, in its order:
// 58 columns a page under a head repeated on every page.
class StampaColonne9 {
public:
    static constexpr int RighePerPagina = 58;

    // Writes the whole document (from NuovoDocumento to FineDocumento); `data` is today's date as
    // the head shows it.
    static void scrivi(DocumentoPagine &documento, const Griglia &griglia, const QString &data);
};
