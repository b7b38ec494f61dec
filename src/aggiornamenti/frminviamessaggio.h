#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class StatoProgramma;

// A message to the staff of the site: the fields travel in the query of one request.
class FrmInviaMessaggio : public QDialog {
    Q_OBJECT
public:
    static constexpr const char16_t *Titolo = u"Invia un messaggio allo Staff";

    explicit FrmInviaMessaggio(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmInviaMessaggio() override;

    // The path of the request: the fields joined as they stand, nothing escaped. Only what the
    // request line can't carry as it is (a blank, a character beyond ASCII) travels in its
    // %XX form, and "#" as %23, so that the text after it still reaches the site.
    static QString percorsoRichiesta(const QString &codice, const QString &nome,
                                     const QString &mail, const QString &messaggio);

private:
    void invia();

    StatoProgramma &m_stato;
    QLabel *m_lblCodice = nullptr;
    QLineEdit *m_txtNome = nullptr;
    QLineEdit *m_txtMail = nullptr;
    QLineEdit *m_txtMessaggio = nullptr;
};
