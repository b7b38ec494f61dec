#pragma once

#include "piattaforma/griglia.h"

#include <QList>

#include <optional>

// The numeric sort of a grid by a column, descending the first time and then alternately, in
// whatever column the user asks for next; and the order the rows stand in while it holds. The
// columns of names, where a grid has them, sort by their text in the same alternation.
class OrdineAlternato {
public:
    struct Ordine {
        int colonna;
        Griglia::Verso verso;
        bool operator==(const Ordine &) const = default;
    };

    // Sorts the grid's non-fixed rows by the column and turns the direction for the next sort.
    void ordina(Griglia &griglia, int colonna);
    // The columns that hold names, not numbers: they sort by text (Griglia::ordinaTesto).
    void setColonneTesto(const QList<int> &colonne) { m_colonneTesto = colonne; }
    // The toggle as the screens have always kept it: 1 sorts descending, 0 ascending.
    int verso() const { return m_verso; }
    // The direction back to descending, no order held.
    void azzera();

    const std::optional<Ordine> &ordine() const { return m_ordine; }
    // The rows no longer stand in that order (or again in a remembered one).
    void setOrdine(const std::optional<Ordine> &ordine) { m_ordine = ordine; }

private:
    int m_verso = 1;
    std::optional<Ordine> m_ordine;
    QList<int> m_colonneTesto;
};
