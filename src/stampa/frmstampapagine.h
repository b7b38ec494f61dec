#pragma once

#include <QDialog>

#include <memory>

class FrmAnteprima;
class QComboBox;
class QProgressBar;
class StampanteQt;
class StatoProgramma;

// The print window of the preview (PrnPrn): a range of pages to the printer, with a cancel that
// stops a print under way.
class FrmStampaPagine : public QDialog {
    Q_OBJECT
public:
    FrmStampaPagine(StatoProgramma &stato, FrmAnteprima &anteprima);
    ~FrmStampaPagine() override;

    // The question asked before printing from page `prima` to page `ultima`.
    static QString domanda(int prima, int ultima);
    // The name of the print job and of the PDF file proposed for it: "Stampa Vespara, alla data"
    // and today's date.
    static QString nomeDocumento();
    bool annullato() const { return m_annullato; }

public slots:
    void reject() override;

private:
    void stampa();

    StatoProgramma &m_stato;
    FrmAnteprima &m_anteprima;
    std::unique_ptr<StampanteQt> m_stampante;
    QComboBox *m_sPag = nullptr;
    QComboBox *m_ePag = nullptr;
    QProgressBar *m_pBar = nullptr;
    bool m_annullato = false;
    bool m_inStampa = false;
};
