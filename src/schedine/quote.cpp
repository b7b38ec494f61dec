#include "schedine/quote.h"

#include "core/statoprogramma.h"
#include "piattaforma/filedati.h"
#include "piattaforma/rete.h"
#include "piattaforma/scaricamentofile.h"

QStringList Quote::leggi(const QString &cartella) {
    const QStringList righe =
        FileDati::leggiRighe(FileDati::percorso(cartella, QString::fromLatin1(File)));
    QStringList dati;
    for (qsizetype i = 0; i < righe.size() && i < Valori; ++i)
        dati.append(Rete::togliBlank(righe.at(i)));
    return dati;
}

QStringList Quote::scarica(StatoProgramma &stato) {
    ScaricamentoFile::inFile(stato.rete(), QString::fromLatin1(Pagina),
                             stato.percorsoFile(QString::fromLatin1(File)));
    return leggi(stato.PercorsoDati);
}

std::optional<QStringList> Quote::aggiorna(StatoProgramma &stato) {
    Rete::Operazione operazione(stato.rete());
    if (!stato.rete().verificaConnessione())
        return std::nullopt;
    return scarica(stato);
}
