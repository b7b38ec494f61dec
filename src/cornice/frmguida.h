#pragma once

#include "core/guida.h"

#include <QStringList>
#include <QWidget>

class Dialoghi;
class QLineEdit;
class QPushButton;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

// The window of the guide: the index of the pages (or the pages a search found) beside the page
// itself. A top-level window of its own, as a desktop's help is, so the user can read it beside
// the frame; the frame keeps one and brings it up again on the page of the screen in use.
class FrmGuida : public QWidget {
    Q_OBJECT
public:
    explicit FrmGuida(Dialoghi &dialoghi, QWidget *genitore = nullptr);

    const Guida &guida() const { return m_guida; }
    // Shows the window on that page (a file of the guide, "colonne9.html"), raised and active.
    // Opened from an application-modal dialog, the window is modal too, or the dialog would
    // keep it from being read.
    void apri(const QString &pagina, bool modale = false);
    // The file of the page shown.
    QString paginaCorrente() const;
    void mostraPagina(const QString &pagina);

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    void creaIndice();
    void mostraRisultati();
    void sceltaVoce(QTreeWidgetItem *voce);
    void seguiCollegamento(const QUrl &indirizzo);
    void paginaCambiata(const QUrl &indirizzo);
    void evidenzia();
    void adattaDimensioni();

    Dialoghi &m_dialoghi;
    Guida m_guida;
    QStringList m_parole; // the words of the search, folded
    QLineEdit *m_txtCerca;
    QTreeWidget *m_lstIndice;
    QTextBrowser *m_txtPagina;
    QPushButton *m_cmdIndietro;
    QPushButton *m_cmdAvanti;
    QPushButton *m_cmdIndice;
};
