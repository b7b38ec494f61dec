#pragma once

#include "aggiornamenti/messaggi.h"

#include <QWidget>

#include <array>

class RegistroSchermi;
class QFrame;
class QLabel;
class QPushButton;
class StatoProgramma;

// The messages of the update site: the latest on show, the older ones through the arrows. Opening
// the screen with a new message marks it as seen in new.dat and puts the frame's indicator at
// rest.
class FrmComm : public QWidget {
    Q_OBJECT
public:
    static constexpr const char16_t *Titolo = u"Comunicazioni OnLine";

    FrmComm(StatoProgramma &stato, RegistroSchermi &pannello, QWidget *genitore = nullptr);
    ~FrmComm() override;

    // Form_Load: the number seen, the site's number, the pages. Raises a fault (and changes
    // nothing) when new.dat is missing or the pages don't match.
    void carica();

    const ArchivioComunicazioni &archivio() const { return m_archivio; }

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    // The records on show, and what the opening of a new message leaves behind.
    void applica(ArchivioComunicazioni archivio, const QString &link);
    void mostraCorrente();
    void riprova();
    void apriArchivio();
    void avanti();
    void indietro();
    void apriRiga(QLabel *riga);

    StatoProgramma &m_stato;
    RegistroSchermi &m_pannello;
    ArchivioComunicazioni m_archivio;
    // What Form_Load found: whether a message was new, and the site's number.
    bool m_nuovo = false;
    int m_remoto = 0;
    QString m_link;

    std::array<QLabel *, Messaggi::NumeroCampi> m_etichette{};
    QLabel *m_lblLink = nullptr;
    QLabel *m_imgNew = nullptr;
    QPushButton *m_cmdIndietro = nullptr;
    QPushButton *m_cmdAvanti = nullptr;
    QFrame *m_picNoConnessione = nullptr;
};
