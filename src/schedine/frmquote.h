#pragma once

#include "schedine/quote.h"

#include <QWidget>

#include <array>

class Griglia;
class QLabel;
class StatoProgramma;

// The latest prize pools, winners and quotas of the Totocalcio and of the Totogol, as "Quote.txt"
// has them, and the button that fetches a new file from the update site.
class FrmQuote : public QWidget {
    Q_OBJECT
public:
    explicit FrmQuote(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmQuote() override;

    Griglia &grigliaTotocalcio() const { return *m_totocalcio; }
    Griglia &grigliaTotogol() const { return *m_totogol; }

private:
    // One of the labels that show a line of the file.
    struct Valore {
        QLabel *etichetta;
        int riga;
    };

    void carica();
    void aggiorna();

    StatoProgramma &m_stato;
    Griglia *m_totocalcio;
    Griglia *m_totogol;
    std::array<Valore, 7> m_valori{};
};
