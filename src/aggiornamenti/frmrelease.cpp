#include "aggiornamenti/frmrelease.h"

#include "core/mditastiera.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghi.h"
#include "piattaforma/guardia.h"
#include "piattaforma/rete.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmRelease::FrmRelease(StatoProgramma &stato, QWidget *genitore)
    : QWidget(genitore)
    , m_stato(stato) {
    setObjectName(u"frmRelease"_s);
    setWindowTitle(QString::fromUtf16(Titolo));

    m_browser = new QTextBrowser(this);
    m_browser->setObjectName(u"WebBrowser1"_s);
    m_browser->setReadOnly(true);
    // Links leave the program: the desktop's browser shows them.
    m_browser->setOpenLinks(false);
    connect(m_browser, &QTextBrowser::anchorClicked, this, [this](const QUrl &indirizzo) {
        eseguiProtetto(m_stato.dialoghi(), [&] { apriCollegamento(indirizzo); });
    });

    auto *cmdChiudi = new QPushButton(u"Chiudi"_s, this);
    cmdChiudi->setObjectName(u"cmdChiudi"_s);
    connect(cmdChiudi, &QPushButton::clicked, this, &QWidget::close);
    // A page to read: Enter closes it, as the OK of a box (a link with the focus opens instead).
    MdiTastiera::pulsantePredefinito(this, cmdChiudi);
    auto *pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    pulsanti->addWidget(cmdChiudi);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_browser, 1);
    layout->addLayout(pulsanti);
    resize(640, 460);

    m_browser->setPlainText(QString::fromUtf16(InCaricamento));
    QTimer::singleShot(0, this,
                       [this] { eseguiProtetto(m_stato.dialoghi(), [this] { carica(); }); });
}

void FrmRelease::carica() {
    if (m_caricata)
        return;
    m_caricata = true;
    // The screen may be closed, and deleted, while the page comes.
    const QPointer<FrmRelease> vivo(this);
    const QString testo = m_stato.rete().scaricaTesto(QString::fromUtf16(Pagina));
    if (!vivo)
        return;
    if (testo.trimmed().isEmpty())
        m_browser->setPlainText(QString::fromUtf16(Assente));
    else
        m_browser->setHtml(testo);
}

FrmRelease::~FrmRelease() = default;

void FrmRelease::apriCollegamento(const QUrl &indirizzo) {
    // A link of the page is relative to the page itself.
    const QUrl pagina = m_stato.rete().url(QString::fromUtf16(Pagina));
    m_stato.dialoghi().apriConDesktop(pagina.resolved(indirizzo));
}
