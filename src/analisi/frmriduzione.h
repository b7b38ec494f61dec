#pragma once

#include <QDialog>
#include <QList>

class QLabel;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QSpinBox;
class StatoProgramma;

// The reduction with a guarantee of the columns in the workspace of the 9: the guarantee and the
// time limit, then the search with its progress and a stop that keeps the best reduction found;
// the reduction passes the independent check of the guarantee before it is handed back, and the
// window tells the sizes before and after.
class FrmRiduzione : public QDialog {
    Q_OBJECT
public:
    static constexpr const char *Titolo = "Riduzione con garanzia";
    static constexpr int LimitePredefinitoS = 30;

    FrmRiduzione(StatoProgramma &stato, const QList<int> &colonne, QWidget *genitore = nullptr);
    ~FrmRiduzione() override;

    // "8 su 9" or "7 su 9", as chosen.
    QString garanzia() const;
    bool inCorso() const { return m_inCorso; }

signals:
    // A checked reduction, to replace the columns of the workspace; `descrizione` names it.
    void ridotta(const QList<int> &tenute, const QString &descrizione);

public slots:
    void reject() override;

protected:
    void closeEvent(QCloseEvent *evento) override;

private:
    void riduci();

    StatoProgramma &m_stato;
    QList<int> m_colonne;
    QRadioButton *m_opt8;
    QRadioButton *m_opt7;
    QSpinBox *m_txtLimite;
    QProgressBar *m_bar;
    QLabel *m_lblMigliore;
    QLabel *m_lblEsito;
    QPushButton *m_cmdRiduci;
    QPushButton *m_cmdInterrompi;
    QPushButton *m_cmdChiudi;
    bool m_inCorso = false;
    bool m_interrotta = false;
};
