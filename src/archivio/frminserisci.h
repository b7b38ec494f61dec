#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class StatoProgramma;

// The entry of one winning column by hand: the last contest is shown, the next number proposed,
// and the new line goes to Archivio.txt, from which table and memory are rebuilt.
class FrmInserisci : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Inserimento nuova colonna";

    explicit FrmInserisci(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmInserisci() override;

private:
    void carica();
    void inserisci();
    // imgDownload: the last winning column as the update site has it.
    void scaricaUltima();

    StatoProgramma &m_stato;
    QLineEdit *m_txtStagione = nullptr;
    QLineEdit *m_txtConcorso = nullptr;
    QLineEdit *m_txtColonna = nullptr;
    QLabel *m_lblStagione = nullptr;
    QLabel *m_lblConcorso = nullptr;
    QLabel *m_lblCV = nullptr;
};
