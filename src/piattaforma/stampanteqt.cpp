#include "piattaforma/stampanteqt.h"

#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"

#include <QPageLayout>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

StampanteQt::StampanteQt(Dialoghi &dialoghi, const QString &filePdf, bool orizzontale)
    : m_dialoghi(dialoghi)
    , m_stampante(QPrinter::HighResolution) {
    m_stampante.setPageSize(QPageSize(QPageSize::A4));
    m_stampante.setFullPage(true);
    m_stampante.setDocName(u"Vespara"_s);
    if (!filePdf.isEmpty()) {
        m_suPdf = true;
        m_stampante.setOutputFormat(QPrinter::PdfFormat);
        m_stampante.setOutputFileName(filePdf);
    }
    setOrizzontale(orizzontale);
}

StampanteQt::~StampanteQt() {
    if (m_pittore.isActive())
        m_pittore.end();
}

void StampanteQt::setOrizzontale(bool orizzontale) {
    m_stampante.setPageOrientation(orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
}

bool StampanteQt::scegliSeManca() {
    if (m_suPdf || !QPrinterInfo::defaultPrinter().isNull())
        return true;
    return m_dialoghi.dialogoStampa(m_stampante);
}

DispositivoDisegno &StampanteQt::inizia() {
    if (m_dispositivo)
        return *m_dispositivo;
    if (!m_pittore.begin(&m_stampante))
        throw ErroreEsecuzione(u"Impossibile avviare la stampa sulla stampante %1."_s.arg(
            m_stampante.outputFileName().isEmpty() ? m_stampante.printerName()
                                                   : m_stampante.outputFileName()));
    const QRectF carta = m_stampante.paperRect(QPrinter::DevicePixel);
    const qreal scalaX = m_stampante.logicalDpiX() / DispositivoDisegno::TwipsPerPollice;
    const qreal scalaY = m_stampante.logicalDpiY() / DispositivoDisegno::TwipsPerPollice;
    const QSizeF pagina(carta.width() / scalaX, carta.height() / scalaY);
    m_dispositivo = std::make_unique<DispositivoPittore>(m_pittore, scalaX, scalaY, pagina,
                                                         [this] { m_stampante.newPage(); });
    return *m_dispositivo;
}

void StampanteQt::fine() {
    if (m_pittore.isActive())
        m_pittore.end();
    m_dispositivo.reset();
}
