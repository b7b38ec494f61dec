#include "piattaforma/stampanteqt.h"

#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

StampanteQt::StampanteQt(Dialoghi &dialoghi, Impostazioni &impostazioni, const QString &filePdf,
                         bool orizzontale)
    : m_dialoghi(dialoghi)
    , m_impostazioni(impostazioni)
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
    interrompi();
}

void StampanteQt::setOrizzontale(bool orizzontale) {
    m_stampante.setPageOrientation(orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void StampanteQt::setNomeDocumento(const QString &nome) {
    // A name fit for a file: the dialog of some desktops proposes it with ".pdf".
    const QString file = Dialoghi::nomeFile(nome, u"pdf"_s);
    m_stampante.setDocName(file.chopped(4));
}

bool StampanteQt::scegli() {
    const bool proposta =
        m_stampante.outputFileName().isEmpty() && QPrinterInfo::availablePrinterNames().isEmpty();
    if (proposta)
        m_stampante.setOutputFileName(
            Dialoghi::propostaFile(m_impostazioni, nomeDocumento() + u".pdf"_s));
    const bool confermato = m_dialoghi.dialogoStampa(m_stampante);
    if (!confermato && proposta)
        m_stampante.setOutputFileName(QString());
    m_scelta = m_scelta || confermato;
    return confermato;
}

bool StampanteQt::scegliSeManca() {
    if (m_suPdf || m_scelta || !QPrinterInfo::defaultPrinter().isNull())
        return true;
    return scegli();
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
    const bool finito = m_pittore.isActive() && m_pittore.end();
    m_dispositivo.reset();
    const QString file = m_stampante.outputFileName();
    if (finito && m_stampante.outputFormat() == QPrinter::PdfFormat && !file.isEmpty() &&
        QFileInfo(file).isFile())
        m_dialoghi.fileSalvato(m_impostazioni, file);
}

void StampanteQt::interrompi() {
    if (m_pittore.isActive())
        m_pittore.end();
    m_dispositivo.reset();
}
