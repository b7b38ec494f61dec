#pragma once

#include "piattaforma/ordinealternato.h"

#include <QWidget>

class Griglia;
class StatoProgramma;
class VistaGriglia;

// The browser of the archive: one row a contest, from memory, oldest first. Two buttons are kept
// for the maintenance of the archive: the reload of the table and the page in the site's form.
// A click on a header sorts the rows by that column; the print keeps the archive's order, the
// export takes the rows as they stand.
class FrmArchivio : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Archivio Colonne vincenti";
    static constexpr int Colonne = 9;

    explicit FrmArchivio(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmArchivio() override;

    Griglia &griglia() const { return *m_griglia; }
    VistaGriglia *vista() const { return m_vista; }

private:
    void riempi();
    void caricaDatabase();
    void creaHtm();

    StatoProgramma &m_stato;
    Griglia *m_griglia;
    VistaGriglia *m_vista = nullptr;
    OrdineAlternato m_ordine;
};
