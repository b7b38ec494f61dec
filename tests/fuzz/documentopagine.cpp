// The page description file (_$$_TEMP.TMP): its records decoded, the file read, its pages
// counted, exported and drawn, and every text drawn measured in its font as the preview does.

#include "supportofuzz.h"

#include "piattaforma/dispositivoregistratore.h"
#include "piattaforma/erroreesecuzione.h"
#include "stampa/documentopagine.h"

#include <QtEndian>

#include <bit>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;
using namespace SupportoFuzz;

namespace {

constexpr int L = DocumentoPagine::LunghezzaRecord;
// The four floats of a record, bytes 26 to 41: a NaN may come back with other bits.
constexpr int InizioFloat = 26;
constexpr int FineFloat = 42;

float floatA(const char *byte) {
    return std::bit_cast<float>(qFromLittleEndian<quint32>(byte));
}

void decodificaRecord(QByteArrayView byte) {
    // The codec is its own inverse on every record of the right length.
    const QByteArray ancora = DocumentoPagine::codifica(DocumentoPagine::decodifica(byte));
    if (ancora.size() != L || std::memcmp(ancora.data(), byte.data(), InizioFloat) != 0 ||
        std::memcmp(ancora.data() + FineFloat, byte.data() + FineFloat, L - FineFloat) != 0)
        difetto("codifica(decodifica(record)) diversa dal record");
    for (int pos = InizioFloat; pos < FineFloat; pos += 4) {
        const bool nan = std::isnan(floatA(byte.data() + pos));
        if (nan ? !std::isnan(floatA(ancora.data() + pos))
                : std::memcmp(ancora.data() + pos, byte.data() + pos, 4) != 0)
            difetto("le coordinate non tornano uguali");
    }
}

void disegna(DispositivoRegistratore &d, const std::function<void()> &disegno) {
    try {
        disegno();
    } catch (const ErroreEsecuzione &) {
        // A colour beyond the palette stops the page: what was drawn before stays.
    }
    for (const DispositivoRegistratore::Chiamata &c : std::as_const(d.chiamate))
        if (c.operazione == DispositivoRegistratore::Operazione::Testo)
            d.larghezzaTesto(c.testo, c.carattere);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, true);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const QByteArrayView byte(dati, qsizetype(n));
    try {
        DocumentoPagine::decodifica(byte);
        if (n != size_t(L))
            difetto("decodificato un record della lunghezza sbagliata");
    } catch (const ErroreEsecuzione &) {
    }
    for (qsizetype pos = 0; pos + L <= byte.size(); pos += L)
        decodificaRecord(byte.sliced(pos, L));

    QList<RecordPagina> record;
    try {
        record = DocumentoPagine::leggi(scriviFile(dati, n, u"_$$_TEMP.TMP"_s));
    } catch (const ErroreEsecuzione &) {
        return 0;
    }
    if (record.size() * L != qsizetype(n))
        difetto("letti più o meno record di quanti ne stanno nel file");

    const int pagine = DocumentoPagine::contaPagine(record);
    for (const QStringList &riga : DocumentoPagine::celleEsportazione(record))
        if (riga.size() != 9)
            difetto("una riga dell'esportazione senza 9 celle");
    for (int p = 1; p <= pagine; ++p) {
        DispositivoRegistratore d;
        disegna(d, [&] { DocumentoPagine::disegnaPagina(record, p, d); });
    }
    DispositivoRegistratore d;
    disegna(d, [&] { DocumentoPagine::stampaPagine(record, d, 1, pagine); });
    if (d.chiamate.isEmpty() ||
        d.chiamate.constLast().operazione != DispositivoRegistratore::Operazione::FineDocumento) {
        // A fault stops the printing before its end; without one the document must be ended.
        bool colori = true;
        for (const RecordPagina &r : std::as_const(record))
            colori = colori && r.colore >= 0 && r.colore <= 15;
        if (colori)
            difetto("stampa senza fine del documento");
    }
    return 0;
}
