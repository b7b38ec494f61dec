#pragma once

#include "cornice/mdiprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/schermo.h"
#include "supporto/archiviosintetico.h"

#include <QSize>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

class FrmColonne9;
class MdiPannello;
class StatoProgramma;
class VerificaVersione;

// A whole program on a temporary data folder, with recording dialogs and a screen of a chosen
// size: what the screen tests start from.
class AmbienteProva {
public:
    // The data folder starts as a copy of the delivered data folder.
    explicit AmbienteProva(QSize schermo = QSize(1280, 800));
    ~AmbienteProva();

    QString cartella() const { return m_dir.path(); }
    QString file(const QString &nome) const;
    // Replaces a data file (Latin-1, CR LF).
    void scrivi(const QString &nome, const QStringList &righe) const;
    void rimuovi(const QString &nome) const;

    // The root of the update site the program talks to (before or after the start).
    void impostaSito(const QString &radice);

    // Builds the program and runs the start-up sequence.
    bool avvia();
    MdiPannello &pannello() const;
    StatoProgramma &stato() const;
    // The workspace of the 9 opened from the toolbar with the universe in it ("Inizializzazione"
    // pressed and the frame back in the user's hands); null when that failed.
    FrmColonne9 *apriAnalisi9() const;
    Impostazioni &impostazioni() const { return *m_impostazioni; }

    // The frame's silent check of a newer program.
    VerificaVersione &verificaVersione() const;
    // The check goes by the test's clock from now on, which stands still until the test moves
    // it: the checks made before are forgotten.
    void orologioDiProva();
    void avanzaOrologio(qint64 ms) { m_ora += ms; }

    DialoghiProva dialoghi;
    Schermo schermo;

    // The delivered data folder of the sources, and the fixtures of the tests.
    static QString datiConsegnati();
    static QString datiProva();
    // Saves a picture of a widget when VESPARA_FOTO names a folder (to look at the screens).
    static void fotografa(QWidget *w, const QString &nome);

private:
    QTemporaryDir m_dir;
    std::unique_ptr<Impostazioni> m_impostazioni;
    std::unique_ptr<MdiProgramma> m_programma;
    qint64 m_ora = 0;
};
