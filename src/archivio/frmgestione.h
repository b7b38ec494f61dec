#pragma once

#include <QWidget>

#include <array>

class QLineEdit;
class StatoProgramma;

// The correction and the deletion of any archive row: the row is picked on the table with the
// navigation bar dbArchivio, and the boxes are bound to its first three fields. Confirming
// rewrites Archivio.txt from the table and rebuilds table and memory from it.
class FrmGestione : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Gestione Archivio";

    enum class Movimento { Primo, Precedente, Successivo, Ultimo };

    explicit FrmGestione(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmGestione() override;

    // The row of the table the boxes stand on; -1 when the table has none.
    int posizione() const { return m_posizione; }

private:
    QWidget *creaNavigazione();
    // The table back on this screen's row: other screens move the same table.
    void posiziona();
    void mostra();
    // A box changed by the user reaches its field of the current row.
    void ripulisciCaselle();
    void salvaCampiCambiati();
    void muovi(Movimento movimento);
    void conferma();
    void elimina();

    StatoProgramma &m_stato;
    std::array<QLineEdit *, 3> m_caselle{};
    // The texts the boxes were given, to see what the user changed.
    std::array<QString, 3> m_mostrati;
    int m_posizione = -1;
};
