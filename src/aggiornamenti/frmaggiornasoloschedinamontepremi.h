#pragma once

#include <QWidget>

class StatoProgramma;

// The partial update of the quotas, the three coupons and the three picchetti.
class FrmAggiornaSoloSchedinaMontepremi : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggiornaSoloSchedinaMontepremi(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggiornaSoloSchedinaMontepremi() override;

private:
    StatoProgramma &m_stato;
};
