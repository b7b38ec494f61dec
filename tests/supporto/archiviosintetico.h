#pragma once

#include <QStringList>

// The lines of an Archivio.txt of n made-up contests, always the same for the same seed: 38 a
// year from 2000, "1" more often than "X" and "2", as in real columns. Tests and benchmarks
// share it.
QStringList archivioSintetico(int n, quint32 seme = 1);
