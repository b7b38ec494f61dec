#pragma once

#include "analisi/bancocolonne9.h"

#include <QWidget>

#include <array>

class Griglia;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;
class StatoProgramma;
class VistaGriglia;

// The workspace of the 9: the 19683 columns with their figures, narrowed step by step by the
// filters, one step of undo, restore, sort and the search of one column.
class FrmColonne9 : public QWidget {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Analisi Statistiche del \"9\"";

    explicit FrmColonne9(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmColonne9() override;

    BancoColonne9 &banco() { return m_banco; }

    // The integral system the generator left in TabellaSistema replaces the grid, and the
    // filters take it on as they take the universe.
    Q_INVOKABLE void caricaSistema();

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    QWidget *creaComandi();
    QWidget *creaSegniFissi();
    QWidget *creaFiltri();
    QWidget *creaEliminazioni();
    QWidget *creaConsecutivi();
    QWidget *creaRicerca();
    QPushButton *pulsante(const QString &nome, const QString &testo);
    QComboBox *tendina(const QString &nome, const QStringList &voci);

    void avvia();
    void ripristina();
    void annulla();
    void applicaSegnoFisso();
    // The sort by a column (double click on a cell, click on its header), and the header's
    // mark of the order the rows stand in.
    void ordina(int colonna);
    void mostraOrdine();
    void cerca();
    // The list of the columns on paper, through the preview; the grid to Excel.
    void stampaProspetto();
    // imgStampaSchedine: the grid's columns go to the slip printer.
    void stampaSchedine();
    void esporta();
    // The reduction with a guarantee of the columns in the grid, in its own window.
    void riduci();
    // The historical check of the chain of filters applied, in its own screen.
    void verificaStorica();
    // Runs one filter step: the busy cursor, the box it answers with, the count, the undo.
    void passo(const std::function<BancoColonne9::Esito()> &azione);
    void aggiornaTotale();
    void aggiornaSegniFissi();
    void azzeraSegniFissi(bool abilitaCasella);
    void abilitaFiltri(bool si);
    void scegliConsecutivi(int indice);
    QString segnoConsecutivi() const;

    StatoProgramma &m_stato;
    Griglia *m_griglia;
    BancoColonne9 m_banco;
    VistaGriglia *m_vista = nullptr;
    QPushButton *m_cmdAvvia = nullptr;
    QPushButton *m_cmdPrec = nullptr;
    QPushButton *m_cmdRipristina = nullptr;
    QLabel *m_lblTot = nullptr;
    QCheckBox *m_chkFiltra = nullptr;
    QWidget *m_picFiltro = nullptr;
    QWidget *m_picSegni = nullptr;
    QLineEdit *m_txtFiltroPos = nullptr;
    QLineEdit *m_txtFiltroSegno = nullptr;
    std::array<QLabel *, 9> m_lblSegni{};
    std::array<QComboBox *, 3> m_cmbFormula{};
    QComboBox *m_cmbFiltroSegno = nullptr;
    QComboBox *m_cmbSegnoPresente = nullptr;
    std::array<QRadioButton *, 4> m_optTerzina{};
    QComboBox *m_cmbSegno = nullptr;
    QComboBox *m_cmbEliminaSegno = nullptr;
    QComboBox *m_cmbCasella = nullptr;
    QLineEdit *m_cmbFreq = nullptr;
    std::array<QRadioButton *, 3> m_chkCons{};
    std::array<QComboBox *, 3> m_cmbCons{};
    std::array<QComboBox *, 3> m_cmbPres{};
    QLineEdit *m_txtColonna = nullptr;
    QLabel *m_lblFreq = nullptr;
    QLabel *m_lblRit = nullptr;
    // The buttons of the filters, off until the universe stands in the grid.
    QList<QWidget *> m_filtri;
};
