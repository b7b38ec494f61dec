// The calendar of a series as it may stand on disk: the text the site gives, turned into the
// binary records and read back; and a data file of any bytes read as records.

#include "supportofuzz.h"

#include "campionati/filecampionati.h"
#include "campionati/leghe.h"
#include "piattaforma/erroreesecuzione.h"

#include <QFile>

using namespace SupportoFuzz;

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
    applicazione(argc, argv, false);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t n) {
    const Leghe::Lega &serieA = *Leghe::perCodice(QStringLiteral("A"));
    // The bytes as a data file: the records read, when they are all there, code back to the
    // bytes they came from.
    const QByteArrayView byte(reinterpret_cast<const char *>(dati), qsizetype(n));
    try {
        const FileCampionati::Calendario c = FileCampionati::decodificaCalendario(byte, serieA);
        const QByteArray codificato = FileCampionati::codificaCalendario(c);
        if (!byte.startsWith(codificato))
            difetto("i record letti non si ricodificano uguali");
    } catch (const ErroreEsecuzione &) {
    }
    // The bytes as the text of the series: its data file written over an old one and read back.
    scriviFile(dati, n, Leghe::fileCalendarioTesto(serieA));
    scriviFile(dati, n, Leghe::fileCalendarioDati(serieA));
    FileCampionati::Calendario ricreato;
    try {
        ricreato = FileCampionati::ricreaCalendario(cartella(), serieA);
    } catch (const ErroreEsecuzione &) {
        return 0;
    }
    try {
        if (FileCampionati::leggiCalendario(cartella(), serieA) != ricreato)
            difetto("il calendario scritto non si rilegge uguale");
    } catch (const ErroreEsecuzione &) {
        difetto("il calendario scritto non si rilegge");
    }
    return 0;
}
