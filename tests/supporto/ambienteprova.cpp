#include "supporto/ambienteprova.h"

#include "aggiornamenti/verificaversione.h"
#include "analisi/frmcolonne9.h"
#include "core/statoprogramma.h"
#include "cornice/mdipannello.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

AmbienteProva::AmbienteProva(QSize dimensioni) {
    schermo.imposta(dimensioni);
    const QDir origine(datiConsegnati());
    const QStringList nomi = origine.entryList(QDir::Files);
    for (const QString &nome : nomi)
        QFile::copy(origine.filePath(nome), m_dir.filePath(nome));
    m_impostazioni = std::make_unique<Impostazioni>(m_dir.filePath(u"impostazioni.ini"_s));
    // No test talks to a site it didn't start: by default the site is a port where nothing
    // listens.
    qunsetenv("VESPARA_SITO");
    m_impostazioni->imposta(Impostazioni::RadiceSito, u"http://127.0.0.1:9"_s);
}

AmbienteProva::~AmbienteProva() {
    m_programma.reset();
}

QString AmbienteProva::file(const QString &nome) const {
    return FileDati::percorso(m_dir.path(), nome);
}

void AmbienteProva::scrivi(const QString &nome, const QStringList &righe) const {
    FileDati::scriviRighe(file(nome), righe);
}

void AmbienteProva::rimuovi(const QString &nome) const {
    QFile::remove(file(nome));
}

bool AmbienteProva::avvia() {
    m_programma = std::make_unique<MdiProgramma>(m_dir.path(), dialoghi, *m_impostazioni, schermo);
    m_programma->pannello().resize(1280, 800);
    const bool riuscito = m_programma->avvia();
    if (riuscito) {
        m_programma->pannello().show();
        // Active, as under a user's hands: focus moves, and leaving a field is seen.
        m_programma->pannello().activateWindow();
        if (!QTest::qWaitForWindowActive(&m_programma->pannello()))
            return false;
        // What the start leaves to the event loop (the messages, the release notes, the check of
        // the version, which asks the site in the background) is done before the test goes on.
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        const VerificaVersione &verifica = verificaVersione();
        if (!QTest::qWaitFor([&] { return !verifica.avvioInAttesa() && !verifica.inCorso(); },
                             30000))
            return false;
    }
    return riuscito;
}

FrmColonne9 *AmbienteProva::apriAnalisi9() const {
    pannello().findChild<QAction *>(u"TB(4)"_s)->trigger();
    auto *frm = qobject_cast<FrmColonne9 *>(pannello().trovaSchermo(u"frmColonne9"_s));
    auto *avvia = frm ? frm->findChild<QPushButton *>(u"cmdAvvia"_s) : nullptr;
    if (!avvia || !avvia->isEnabled())
        return nullptr;
    QTest::mouseClick(avvia, Qt::LeftButton);
    return QTest::qWaitForWindowActive(&pannello()) ? frm : nullptr;
}

void AmbienteProva::impostaSito(const QString &radice) {
    m_impostazioni->imposta(Impostazioni::RadiceSito, radice);
    if (m_programma)
        m_programma->stato().rete().setRadice(radice);
}

VerificaVersione &AmbienteProva::verificaVersione() const {
    auto *verifica = pannello().findChild<VerificaVersione *>();
    if (!verifica)
        qFatal("il pannello non ha la verifica della versione");
    return *verifica;
}

void AmbienteProva::orologioDiProva() {
    verificaVersione().setOrologio([this] { return m_ora; });
}

MdiPannello &AmbienteProva::pannello() const {
    return m_programma->pannello();
}

StatoProgramma &AmbienteProva::stato() const {
    return m_programma->stato();
}

QString AmbienteProva::datiConsegnati() {
    return QString::fromUtf8(VESPARA_DATI_CONSEGNATI);
}

QString AmbienteProva::datiProva() {
    return QString::fromUtf8(VESPARA_DATI_PROVA);
}

void AmbienteProva::fotografa(QWidget *w, const QString &nome) {
    const QString cartella = qEnvironmentVariable("VESPARA_FOTO");
    if (cartella.isEmpty() || !w)
        return;
    QDir().mkpath(cartella);
    // What the user sees: the layouts settled, as after any event.
    QCoreApplication::processEvents();
    w->grab().save(QDir(cartella).filePath(nome + u".png"_s));
}
