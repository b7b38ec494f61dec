#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class StatoProgramma;

// The settings of the program: the address of the update site, with a try of the connection.
class FrmImpostazioni : public QWidget {
    Q_OBJECT
public:
    static constexpr const char16_t *Titolo = u"Impostazioni";

    explicit FrmImpostazioni(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmImpostazioni() override;

private:
    void prova();
    void conferma();

    StatoProgramma &m_stato;
    QLineEdit *m_txtSito = nullptr;
    QLabel *m_lblEsitoSito = nullptr;
};
