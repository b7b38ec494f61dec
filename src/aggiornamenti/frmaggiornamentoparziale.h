#pragma once

#include <QWidget>

#include <functional>

class AggiornamentiSito;
class StatoProgramma;

// The partial updates of the "Aggiorna da Internet" menu: one screen, shaped by what it updates.
class FrmAggiornamentoParziale : public QWidget {
    Q_OBJECT
public:
    struct Parziale {
        const char *nome;        // the screen's name, such as "frmAggiornaSoloClassifiche"
        const char *titolo;      // its caption
        const char *spiegazione; // what it does, for the user
        std::function<void(AggiornamentiSito &)> passi;
        // After the screens are closed and the panel opened again, when `riapri`.
        std::function<void(StatoProgramma &, AggiornamentiSito &)> dopo;
        const char *finale; // the box at the end
        bool riapri;
    };

    // The six partial updates, in the order of the menu.
    static const QList<Parziale> &tutti();

    FrmAggiornamentoParziale(StatoProgramma &stato, const Parziale &parziale,
                             QWidget *genitore = nullptr);

private:
    StatoProgramma &m_stato;
    const Parziale &m_parziale;
};
