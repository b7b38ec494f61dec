#include "stampa/documentopagine.h"

#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/erroreesecuzione.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// Offsets of the fields in a record.
constexpr int PosTipo = 0;
constexpr int PosSpessore = 20;
constexpr int PosColore = 24;
constexpr int PosX1 = 26;
constexpr int PosY1 = 30;
constexpr int PosX2 = 34;
constexpr int PosY2 = 38;
constexpr int PosFont = 42;
constexpr int PosDimensione = 82;
constexpr int PosGrassetto = 84;
constexpr int PosTesto = 86;
static_assert(PosTesto + DocumentoPagine::LunghezzaTesto == DocumentoPagine::LunghezzaRecord);

// Buffered records are written out in chunks of about this size.
constexpr qsizetype SogliaBuffer = 1 << 20;

// Latin-1, cut at the field's width and padded with blanks; straight into the record, so that
// writing a long report allocates nothing per field.
void scriviCampoTesto(char *destinazione, int larghezza, QStringView testo) {
    const qsizetype n = std::min<qsizetype>(testo.size(), larghezza);
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = testo[i].unicode();
        destinazione[i] = c < 256 ? char(c) : '?';
    }
    std::memset(destinazione + n, ' ', size_t(larghezza - n));
}

void scriviFloat(char *destinazione, float valore) {
    qToLittleEndian(std::bit_cast<quint32>(valore), destinazione);
}

float leggiFloat(const char *origine) {
    return std::bit_cast<float>(qFromLittleEndian<quint32>(origine));
}

void codificaIn(char *d, QStringView tipo, qint32 spessore, qint16 colore, float x1, float y1,
                float x2, float y2, QStringView font, qint16 dimensione, qint16 grassetto,
                QStringView testo) {
    scriviCampoTesto(d + PosTipo, DocumentoPagine::LunghezzaTipo, tipo);
    qToLittleEndian(spessore, d + PosSpessore);
    qToLittleEndian(colore, d + PosColore);
    scriviFloat(d + PosX1, x1);
    scriviFloat(d + PosY1, y1);
    scriviFloat(d + PosX2, x2);
    scriviFloat(d + PosY2, y2);
    scriviCampoTesto(d + PosFont, DocumentoPagine::LunghezzaFont, font);
    qToLittleEndian(dimensione, d + PosDimensione);
    qToLittleEndian(grassetto, d + PosGrassetto);
    scriviCampoTesto(d + PosTesto, DocumentoPagine::LunghezzaTesto, testo);
}

// Only blanks, as the program has always trimmed: a tab stays part of the text.
QString spogliato(const QString &s) {
    qsizetype inizio = 0;
    qsizetype fine = s.size();
    while (inizio < fine && s[inizio] == u' ')
        ++inizio;
    while (fine > inizio && s[fine - 1] == u' ')
        --fine;
    if (inizio == 0 && fine == s.size())
        return s; // shared, no copy
    return s.sliced(inizio, fine - inizio);
}

qint16 a16Bit(int valore, QStringView campo) {
    if (valore < std::numeric_limits<qint16>::min() || valore > std::numeric_limits<qint16>::max())
        throw ErroreEsecuzione(u"Il valore %1 non può essere scritto nel campo %2 del file delle "
                               u"pagine (fuori intervallo)."_s.arg(valore)
                                   .arg(campo.toString()));
    return qint16(valore);
}

float inTwips(float centimetri) {
    return centimetri * float(DispositivoDisegno::TwipsPerCentimetro);
}

// The width of a text as every device measures it, without a device at hand.
qreal larghezzaMisurata(const QString &testo, const DispositivoDisegno::Carattere &carattere) {
    static const DispositivoRegistratore misuratore;
    return misuratore.larghezzaTesto(testo, carattere);
}

// The one drawing loop of the printer and the preview. `comandiPagina` is false for the
// preview, which neither turns pages nor ends a document.
void esegui(const QList<RecordPagina> &record, DispositivoDisegno &d, int prima, int ultima,
            const std::function<bool()> &annullato, const std::function<void(int)> &avanzamento,
            bool comandiPagina) {
    const auto chiestoAnnullo = [&annullato] { return annullato && annullato(); };
    const qint64 pagineIntervallo = qint64(ultima) - qint64(prima) + 1;
    int pagine = 0;
    int stampate = 0;
    bool inIntervallo = false;
    // The colour of the last text drawn: what boxes of colour 0 and lines are drawn in.
    QColor corrente = DocumentoPagine::colore(0);
    // The pen of the circles, set when it changes.
    int spessoreCorrente = -1;

    for (const RecordPagina &r : record) {
        const QString tipo = spogliato(r.tipo);
        if (tipo == DocumentoPagine::TipoNuovaPagina) {
            ++pagine;
            if (chiestoAnnullo() || pagine > ultima)
                break;
            if (pagine >= prima) {
                ++stampate;
                inIntervallo = true;
                if (stampate > 1 && comandiPagina)
                    d.nuovaPagina();
                if (avanzamento)
                    avanzamento(stampate);
            } else {
                inIntervallo = false;
            }
        }
        if (!inIntervallo)
            continue;

        if (tipo == DocumentoPagine::TipoBox) {
            const QRectF rettangolo(QPointF(r.x1, r.y1), QPointF(r.x2, r.y2));
            if (r.colore != 0) {
                const QColor c = DocumentoPagine::colore(r.colore);
                d.rettangolo(rettangolo, c, c);
            } else {
                d.rettangolo(rettangolo, corrente, QColor());
            }
        } else if (tipo == DocumentoPagine::TipoLinea) {
            d.linea(QPointF(r.x1, r.y1), QPointF(r.x2, r.y2), corrente);
        } else if (tipo == DocumentoPagine::TipoTesto) {
            DispositivoDisegno::Carattere carattere;
            carattere.nome = spogliato(r.font);
            carattere.dimensione = r.dimensione;
            carattere.grassetto = r.grassetto != 0;
            corrente = DocumentoPagine::colore(r.colore);
            d.testo(QPointF(r.x1, r.y1), spogliato(r.testo), carattere, corrente);
        } else if (tipo == DocumentoPagine::TipoImmagine) {
            d.immagine(QRectF(r.x1, r.y1, r.x2, r.y2), spogliato(r.testo));
        } else if (tipo == DocumentoPagine::TipoCerchio) {
            if (const int spessore = std::max(1, r.spessore); spessore != spessoreCorrente) {
                d.spessorePenna(spessore);
                spessoreCorrente = spessore;
            }
            d.cerchio(QPointF(r.x1, r.y1), r.x2, DocumentoPagine::colore(r.colore), QColor());
        } else if (tipo == DocumentoPagine::TipoFinePagina) {
            // The run stops at the end of the last page of the range.
            if (chiestoAnnullo() || stampate >= pagineIntervallo)
                break;
        }
    }
    if (comandiPagina)
        d.fineDocumento();
}

} // namespace

QString DocumentoPagine::percorsoPredefinito() {
    return QDir(QDir::tempPath()).filePath(u"_$$_TEMP.TMP"_s);
}

DocumentoPagine::DocumentoPagine(QString percorso)
    : m_percorso(std::move(percorso)) {}

DocumentoPagine::~DocumentoPagine() {
    if (!m_file.isOpen())
        return;
    try {
        svuota();
    } catch (const ErroreEsecuzione &) {
        // Nothing to tell from a destructor; the file is left as far as it was written.
    }
    m_file.close();
}

void DocumentoPagine::nuovoDocumento() {
    if (m_file.isOpen()) {
        m_buffer.resize(0);
        m_file.close();
    }
    const QFileInfo info(m_percorso);
    QDir cartella = info.absoluteDir();
    // The page files of earlier runs go, whatever they were called.
    const QStringList vecchi =
        cartella.entryList({u"_$$_*.TMP"_s}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &nome : vecchi)
        cartella.remove(nome);

    m_file.setFileName(m_percorso);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw ErroreEsecuzione(u"Impossibile creare il file delle pagine \"%1\"."_s.arg(
            QDir::toNativeSeparators(m_percorso)));
    m_buffer.resize(0);
    m_buffer.reserve(SogliaBuffer + LunghezzaRecord);
    scriviRecord(TipoNuovaPagina, 0, 0, 0, 0, 0, 0, {}, 0, 0, {});
}

void DocumentoPagine::nuovaPagina() {
    scriviRecord(TipoFinePagina, 0, 0, 0, 0, 0, 0, {}, 0, 0, {});
    scriviRecord(TipoNuovaPagina, 0, 0, 0, 0, 0, 0, {}, 0, 0, {});
}

void DocumentoPagine::fineDocumento() {
    scriviRecord(TipoFinePagina, 0, 0, 0, 0, 0, 0, {}, 0, 0, {});
    try {
        svuota();
    } catch (const ErroreEsecuzione &) {
        m_file.close(); // a later write must find the document closed, not half written
        throw;
    }
    m_file.close();
    m_buffer = QByteArray();
}

void DocumentoPagine::scriviTesto(float x, float y, const QString &testo, const QString &font,
                                  int dimensione, int grassetto, int colore) {
    scriviRecord(TipoTesto, 0, a16Bit(colore, u"Colore"), inTwips(x), inTwips(y), 0, 0, font,
                 a16Bit(dimensione, u"Dimensione"), a16Bit(grassetto, u"Grassetto"), testo);
}

void DocumentoPagine::scriviTestoDestra(float x, float y, const QString &testo, const QString &font,
                                        int dimensione, int grassetto, int colore) {
    // Measured as it will be drawn: cut to its field, in the font named by its field.
    DispositivoDisegno::Carattere carattere;
    carattere.nome = font.left(LunghezzaFont);
    carattere.dimensione = dimensione;
    carattere.grassetto = grassetto != 0;
    const qreal larghezza =
        std::round(larghezzaMisurata(testo.left(LunghezzaTesto), carattere) * 10000.0) / 10000.0;
    scriviRecord(TipoTesto, 0, a16Bit(colore, u"Colore"), float(inTwips(x) - larghezza), inTwips(y),
                 0, 0, font, a16Bit(dimensione, u"Dimensione"), a16Bit(grassetto, u"Grassetto"),
                 testo);
}

void DocumentoPagine::scriviBox(float x1, float y1, float x2, float y2, int stile, int colore) {
    scriviRecord(TipoBox, stile, a16Bit(colore, u"Colore"), inTwips(x1), inTwips(y1), inTwips(x2),
                 inTwips(y2), {}, 0, 0, {});
}

void DocumentoPagine::scriviLinea(float x1, float y1, float x2, float y2) {
    scriviRecord(TipoLinea, 0, 0, inTwips(x1), inTwips(y1), inTwips(x2), inTwips(y2), {}, 0, 0, {});
}

void DocumentoPagine::verificaAperto() const {
    if (!m_file.isOpen())
        throw ErroreEsecuzione(u"Il file delle pagine non è aperto."_s);
}

void DocumentoPagine::scriviRecord(QStringView tipo, qint32 spessore, qint16 colore, float x1,
                                   float y1, float x2, float y2, QStringView font,
                                   qint16 dimensione, qint16 grassetto, QStringView testo) {
    verificaAperto();
    const qsizetype inizio = m_buffer.size();
    m_buffer.resize(inizio + LunghezzaRecord);
    codificaIn(m_buffer.data() + inizio, tipo, spessore, colore, x1, y1, x2, y2, font, dimensione,
               grassetto, testo);
    if (m_buffer.size() >= SogliaBuffer)
        svuota();
}

void DocumentoPagine::svuota() {
    if (m_buffer.isEmpty())
        return;
    const qint64 scritti = m_file.write(m_buffer.constData(), m_buffer.size());
    const bool completo = scritti == m_buffer.size();
    m_buffer.resize(0);
    if (!completo)
        throw ErroreEsecuzione(u"Impossibile scrivere il file delle pagine \"%1\"."_s.arg(
            QDir::toNativeSeparators(m_percorso)));
}

QByteArray DocumentoPagine::codifica(const RecordPagina &r) {
    QByteArray byte(LunghezzaRecord, Qt::Uninitialized);
    codificaIn(byte.data(), r.tipo, r.spessore, r.colore, r.x1, r.y1, r.x2, r.y2, r.font,
               r.dimensione, r.grassetto, r.testo);
    return byte;
}

RecordPagina DocumentoPagine::decodifica(QByteArrayView byte) {
    if (byte.size() != LunghezzaRecord)
        throw ErroreEsecuzione(
            u"Un record del file delle pagine deve essere lungo %1 byte, non %2."_s
                .arg(LunghezzaRecord)
                .arg(byte.size()));
    const char *b = byte.data();
    RecordPagina r;
    r.tipo = QString::fromLatin1(b + PosTipo, LunghezzaTipo);
    r.spessore = qFromLittleEndian<qint32>(b + PosSpessore);
    r.colore = qFromLittleEndian<qint16>(b + PosColore);
    r.x1 = leggiFloat(b + PosX1);
    r.y1 = leggiFloat(b + PosY1);
    r.x2 = leggiFloat(b + PosX2);
    r.y2 = leggiFloat(b + PosY2);
    r.font = QString::fromLatin1(b + PosFont, LunghezzaFont);
    r.dimensione = qFromLittleEndian<qint16>(b + PosDimensione);
    r.grassetto = qFromLittleEndian<qint16>(b + PosGrassetto);
    r.testo = QString::fromLatin1(b + PosTesto, LunghezzaTesto);
    return r;
}

QList<RecordPagina> DocumentoPagine::leggi(const QString &percorso) {
    const QString nome = QDir::toNativeSeparators(percorso);
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        throw ErroreEsecuzione(u"Impossibile leggere il file delle pagine \"%1\"."_s.arg(nome));
    const QByteArray dati = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw ErroreEsecuzione(u"Impossibile leggere il file delle pagine \"%1\"."_s.arg(nome));
    // What was actually read decides, so a partial record is never read past its end.
    if (dati.size() % LunghezzaRecord != 0)
        throw ErroreEsecuzione(u"Il file delle pagine \"%1\" è danneggiato: la sua lunghezza "
                               u"(%2 byte) non è un multiplo di %3."_s.arg(nome)
                                   .arg(dati.size())
                                   .arg(LunghezzaRecord));
    QList<RecordPagina> record;
    record.reserve(dati.size() / LunghezzaRecord);
    for (qsizetype pos = 0; pos < dati.size(); pos += LunghezzaRecord) {
        RecordPagina r = decodifica(QByteArrayView(dati).sliced(pos, LunghezzaRecord));
        r.tipo = spogliato(r.tipo);
        r.font = spogliato(r.font);
        r.testo = spogliato(r.testo);
        record.append(std::move(r));
    }
    return record;
}

int DocumentoPagine::contaPagine(const QList<RecordPagina> &record) {
    return int(std::count_if(record.cbegin(), record.cend(), [](const RecordPagina &r) {
        return spogliato(r.tipo) == TipoNuovaPagina;
    }));
}

QColor DocumentoPagine::colore(int indice) {
    static constexpr QRgb Tavolozza[16] = {
        qRgb(0, 0, 0),       qRgb(0, 0, 128),   qRgb(0, 128, 0),   qRgb(0, 128, 128),
        qRgb(128, 0, 0),     qRgb(128, 0, 128), qRgb(128, 128, 0), qRgb(192, 192, 192),
        qRgb(128, 128, 128), qRgb(0, 0, 255),   qRgb(0, 255, 0),   qRgb(0, 255, 255),
        qRgb(255, 0, 0),     qRgb(255, 0, 255), qRgb(255, 255, 0), qRgb(255, 255, 255)};
    if (indice < 0 || indice > 15)
        throw ErroreEsecuzione(u"Il colore %1 non esiste: i colori vanno da 0 a 15."_s.arg(indice));
    return QColor::fromRgb(Tavolozza[indice]);
}

void DocumentoPagine::stampaPagine(const QList<RecordPagina> &record, DispositivoDisegno &d,
                                   int prima, int ultima, const std::function<bool()> &annullato,
                                   const std::function<void(int)> &avanzamento) {
    esegui(record, d, prima, ultima, annullato, avanzamento, true);
}

void DocumentoPagine::disegnaPagina(const QList<RecordPagina> &record, int pagina,
                                    DispositivoDisegno &d) {
    esegui(record, d, pagina, pagina, {}, {}, false);
}

int DocumentoPagine::riempimentoAvanzamento(int larghezza, int prima, int ultima, int corrente) {
    const qint64 pagine = qint64(ultima) - qint64(prima) + 1;
    if (pagine == 0 || pagine > std::numeric_limits<int>::max() ||
        pagine < std::numeric_limits<int>::min())
        return -1;
    // Rounded half to even, as a width set from a fraction always was.
    const double riempimento = std::nearbyint(double(larghezza) / double(pagine) * corrente);
    if (!(riempimento >= 0) || riempimento > std::numeric_limits<int>::max())
        return -1;
    return int(riempimento);
}

QList<QStringList> DocumentoPagine::celleEsportazione(const QList<RecordPagina> &record) {
    constexpr int Colonne = 9;
    QList<QStringList> righe;
    int c = -3; // the head of the first page: 3 texts
    int r = 1;
    for (const RecordPagina &rec : record) {
        const QString tipo = spogliato(rec.tipo);
        if (tipo == TipoFinePagina) {
            c = -12; // the head of each later page: 12 texts
        } else if (tipo == TipoTesto) {
            ++c;
            if (c > 0) {
                while (righe.size() < r)
                    righe.append(QStringList(Colonne, QString()));
                righe[r - 1][c - 1] = spogliato(rec.testo);
            }
            if (c == Colonne) {
                ++r;
                c = 0;
            }
        }
    }
    return righe;
}
