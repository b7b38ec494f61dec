#pragma once

class MdiPannello;

// Registers with the frame every screen the program has, so that menu entries and toolbar
// buttons find them.
void registraSchermi(MdiPannello &pannello);
