#pragma once

#include <QWidget>

class StatoProgramma;

// The update of the team lists of the foreign leagues: the old lists go, the site's come.
class FrmAggiornaConcorsiStranieri : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggiornaConcorsiStranieri(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggiornaConcorsiStranieri() override;

private:
    StatoProgramma &m_stato;
};
