#include "piattaforma/stampanti.h"

QStringList Stampanti::nomi() const {
    if (m_fisse)
        return *m_fisse;
    return m_elenco ? m_elenco() : QStringList();
}
