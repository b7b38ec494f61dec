#pragma once

#include <QWidget>

class StatoProgramma;

// The partial update of the league tables of the Italian championship.
class FrmAggiornaSoloClassifiche : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggiornaSoloClassifiche(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggiornaSoloClassifiche() override;

private:
    StatoProgramma &m_stato;
};
