#pragma once

#include <QWidget>

class StatoProgramma;

// The repair of the archive: the site's whole archive replaces the local one whatever their
// sizes, then the quotas are fetched again.
class FrmAggiornaSoloArchivi : public QWidget {
    Q_OBJECT
public:
    explicit FrmAggiornaSoloArchivi(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggiornaSoloArchivi() override;

private:
    void aggiorna();

    StatoProgramma &m_stato;
};
