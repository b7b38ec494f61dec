#pragma once

#include <QWidget>

class StatoProgramma;

// The partial update of the prize fund and the quotas (Quote.txt alone).
class FrmAggiornaSoloSchedinaProssimoConcorso : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggiornaSoloSchedinaProssimoConcorso(StatoProgramma &stato,
                                                     QWidget *genitore = nullptr);
    ~FrmAggiornaSoloSchedinaProssimoConcorso() override;

private:
    StatoProgramma &m_stato;
};
