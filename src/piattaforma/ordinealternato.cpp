#include "piattaforma/ordinealternato.h"

void OrdineAlternato::ordina(Griglia &griglia, int colonna) {
    const Griglia::Verso verso =
        m_verso != 0 ? Griglia::Verso::Decrescente : Griglia::Verso::Crescente;
    if (m_colonneTesto.contains(colonna))
        griglia.ordinaTesto(colonna, verso);
    else
        griglia.ordinaNumerico(colonna, verso);
    m_verso = verso == Griglia::Verso::Decrescente ? 0 : 1;
    m_ordine = Ordine{colonna, verso};
}

void OrdineAlternato::azzera() {
    m_verso = 1;
    m_ordine.reset();
}
