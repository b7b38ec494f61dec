#include "piattaforma/dialoghiqt.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>

QWidget *DialoghiQt::genitore() const {
    if (QWidget *attiva = QApplication::activeWindow())
        return attiva;
    return m_genitore;
}

void DialoghiQt::informazione(const QString &titolo, const QString &testo) {
    if (silenziato())
        return;
    QMessageBox::information(genitore(), titolo, testo);
}

void DialoghiQt::avviso(const QString &titolo, const QString &testo) {
    if (silenziato())
        return;
    QMessageBox::warning(genitore(), titolo, testo);
}

void DialoghiQt::critico(const QString &titolo, const QString &testo) {
    if (silenziato())
        return;
    QMessageBox::critical(genitore(), titolo, testo);
}

bool DialoghiQt::domanda(const QString &titolo, const QString &testo) {
    if (silenziato())
        return false;
    QMessageBox box(QMessageBox::Question, titolo, testo, QMessageBox::Yes | QMessageBox::No,
                    genitore());
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Sì"));
    box.button(QMessageBox::No)->setText(QStringLiteral("No"));
    return box.exec() == QMessageBox::Yes;
}

QString DialoghiQt::dialogoSalvataggio(const QString &titolo, const QString &filtro,
                                       const QString &proposta) {
    if (silenziato())
        return {};
    return QFileDialog::getSaveFileName(genitore(), titolo, proposta, filtro);
}

bool DialoghiQt::dialogoStampa(QPrinter &stampante) {
    if (silenziato())
        return false;
    QPrintDialog dialogo(&stampante, genitore());
    return dialogo.exec() == QDialog::Accepted;
}

bool DialoghiQt::apriConDesktop(const QUrl &indirizzo) {
    return QDesktopServices::openUrl(indirizzo);
}
