#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class StatoProgramma;

// The offer of a newer program: the version found on the site, the download of the installer,
// and the setting that asks to be told every time.
class FrmAggiornamenti : public QWidget {
    Q_OBJECT
public:
    static constexpr const char16_t *Titolo = u"Aggiornamento di Vespara";

    explicit FrmAggiornamenti(StatoProgramma &stato, QWidget *genitore = nullptr);
    ~FrmAggiornamenti() override;

    // The version of the site, shown as "Ver. 5.1.0".
    void impostaVersione(const QString &versione);

    // How the program ends once the installer is open: it must close for the installer to
    // replace it. Tests put something harmless here.
    std::function<void()> terminaProgramma;

private:
    void scarica();

    StatoProgramma &m_stato;
    QCheckBox *m_chkMostra = nullptr;
    QLabel *m_lblVersione = nullptr;
};
