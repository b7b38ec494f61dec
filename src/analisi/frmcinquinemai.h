#pragma once

#include <QWidget>

class Griglia;
class StatoProgramma;

// The cinquine never drawn in the whole archive; its print lists those not drawn in the latest
// contests.
class FrmCinquineMai : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Le Cinquine mai uscite";

    explicit FrmCinquineMai(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmCinquineMai() override;

    Griglia &griglia() const { return *m_griglia; }

private:
    void riempi();
    void stampa();

    StatoProgramma &m_stato;
    Griglia *m_griglia;
};
