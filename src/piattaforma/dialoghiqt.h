#pragma once

#include "piattaforma/dialoghi.h"

class QWidget;

// The dialogs on a desktop: Qt's message boxes, file dialog and desktop services.
class DialoghiQt : public Dialoghi {
public:
    // Boxes are centred on the active window, or on `genitore` when none is active.
    explicit DialoghiQt(QWidget *genitore = nullptr)
        : m_genitore(genitore) {}
    void setGenitore(QWidget *genitore) { m_genitore = genitore; }

    void informazione(const QString &titolo, const QString &testo) override;
    void avviso(const QString &titolo, const QString &testo) override;
    void critico(const QString &titolo, const QString &testo) override;
    bool domanda(const QString &titolo, const QString &testo) override;
    QString dialogoSalvataggio(const QString &titolo, const QString &filtro,
                               const QString &proposta) override;
    bool dialogoStampa(QPrinter &stampante) override;
    bool apriConDesktop(const QUrl &indirizzo) override;

private:
    QWidget *genitore() const;
    QWidget *m_genitore;
};
