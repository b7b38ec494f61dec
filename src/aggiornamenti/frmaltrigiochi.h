#pragma once

#include <QWidget>

class StatoProgramma;

// A page about the other games the site covers, with a link to the site.
class FrmAltriGiochi : public QWidget {
    Q_OBJECT
public:
    static constexpr const char16_t *Titolo = u"Altri Giochi";

    explicit FrmAltriGiochi(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAltriGiochi() override;

private:
    void apriSito();

    StatoProgramma &m_stato;
};
