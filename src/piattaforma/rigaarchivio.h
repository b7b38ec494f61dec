#pragma once

#include <QString>

#include <array>

// One archive record: Stagione, Concorso, Colonna and the six metrics, as text, as they came. The
// table of the archive stores it, the archive in memory holds it.
constexpr int CampiRigaArchivio = 9;
using RigaArchivio = std::array<QString, CampiRigaArchivio>;
