#include "aggiornamenti/mdiaggiornamentisito.h"

void MdiAggiornamentiSito::registra(MdiPannello &) {}
