#include "piattaforma/stampanteqt.h"

#include "piattaforma/dialoghi.h"
#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/errorifile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPageLayout>
#include <QPrinterInfo>
#include <QTemporaryFile>

#include <cerrno>
#include <filesystem>

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

void StampanteQt::setRisoluzione(int puntiPerPollice) {
    m_stampante.setResolution(puntiPerPollice);
}

bool StampanteQt::controlla() {
    // A page metric read from the driver: a printer that can't give one won't print.
    return m_stampante.isValid() && m_stampante.pageLayout().fullRectPoints().width() > 0 &&
           m_stampante.width() > 0;
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
    const QString file = m_stampante.outputFileName();
    // The origin at the paper's corner whatever was done to the printer since it was made (it is
    // handed out, to the print dialog among others): in Qt's standard mode a page starts at its
    // margins, 10 points by default or the edges that the driver can't print.
    m_stampante.setFullPage(true);
    if (m_stampante.outputFormat() == QPrinter::PdfFormat && !file.isEmpty()) {
        // The pages go to a new file beside the one asked for.
        QTemporaryFile temporaneo(QFileInfo(file).absolutePath() + u"/.vespara-XXXXXX.pdf"_s);
        errno = 0;
        if (!temporaneo.open()) {
            const int codice = errno;
            throw ErroreEsecuzione(
                u"Impossibile avviare la stampa sulla stampante %1.\n\n"_s.arg(
                    QDir::toNativeSeparators(file)) +
                ErroriFile::scrittura(file, temporaneo.errorString(), codice).testo());
        }
        temporaneo.setAutoRemove(false);
        temporaneo.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                  QFileDevice::ReadGroup | QFileDevice::ReadOther);
        m_filePdf = file;
        m_stampante.setOutputFileName(temporaneo.fileName());
    }
    if (!m_pittore.begin(&m_stampante)) {
        scartaPdf();
        throw ErroreEsecuzione(u"Impossibile avviare la stampa sulla stampante %1."_s.arg(
            file.isEmpty() ? m_stampante.printerName() : QDir::toNativeSeparators(file)));
    }
    const QRectF carta = m_stampante.paperRect(QPrinter::DevicePixel);
    const qreal scalaX = m_stampante.logicalDpiX() / DispositivoDisegno::TwipsPerPollice;
    const qreal scalaY = m_stampante.logicalDpiY() / DispositivoDisegno::TwipsPerPollice;
    const QSizeF pagina(carta.width() / scalaX, carta.height() / scalaY);
    m_dispositivo = std::make_unique<DispositivoPittore>(m_pittore, scalaX, scalaY, pagina,
                                                         [this] { m_stampante.newPage(); });
    return *m_dispositivo;
}

void StampanteQt::fine() {
    bool finito = m_pittore.isActive() && m_pittore.end();
    m_dispositivo.reset();
    if (m_filePdf.isEmpty())
        return;
    const QString temporaneo = m_stampante.outputFileName();
    const QString file = m_filePdf;
    std::error_code errore;
    if (finito) {
        // rename() replaces the old file in one step where the system can.
        std::filesystem::rename(QFile::encodeName(temporaneo).toStdString(),
                                QFile::encodeName(file).toStdString(), errore);
        finito = !errore;
    }
    if (!finito) {
        // The pages may have stopped in the temporary file: its folder is the file's.
        const qint64 scritti = QFileInfo(temporaneo).size();
        scartaPdf();
        throw ErroriFile::scrittura(file,
                                    errore ? QString::fromLocal8Bit(errore.message()) : QString(),
                                    errore ? errore.value() : 0, scritti);
    }
    m_stampante.setOutputFileName(file);
    m_filePdf.clear();
    m_dialoghi.fileSalvato(m_impostazioni, file);
}

void StampanteQt::interrompi() {
    if (m_pittore.isActive())
        m_pittore.end();
    m_dispositivo.reset();
    scartaPdf();
}

void StampanteQt::scartaPdf() {
    if (m_filePdf.isEmpty())
        return;
    QFile::remove(m_stampante.outputFileName());
    m_stampante.setOutputFileName(m_filePdf);
    m_filePdf.clear();
}
