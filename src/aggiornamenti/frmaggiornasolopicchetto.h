#pragma once

#include <QWidget>

class StatoProgramma;

// The partial update of the three picchetti.
class FrmAggiornaSoloPicchetto : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggiornaSoloPicchetto(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggiornaSoloPicchetto() override;

private:
    StatoProgramma &m_stato;
};
