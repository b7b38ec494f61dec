#pragma once

#include <QString>

// The rules of the teams editor: the season typed as two years joined by "-".
class GestioneSquadre {
public:
    static constexpr int PrimaStagione = 2011;
    // The first year from 2011 on and the second not beyond the first plus one. A second year
    // equal to or below the first passes, as it always has. Each part is read by its leading
    // digits (none: 0).
    static bool stagioneValida(const QString &stagione);
};
