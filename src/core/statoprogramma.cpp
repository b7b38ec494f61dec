#include "core/statoprogramma.h"

#include "piattaforma/erroreesecuzione.h"
#include "piattaforma/filedati.h"
#include "piattaforma/griglia.h"
#include "piattaforma/rete.h"
#include "piattaforma/tabellaarchivio.h"

StatoProgramma::StatoProgramma(Dialoghi &dialoghi, Impostazioni &impostazioni, Schermo &schermo)
    : m_grigliaEsportazione(std::make_unique<Griglia>(1, 1))
    , m_dialoghi(dialoghi)
    , m_impostazioni(impostazioni)
    , m_schermo(schermo) {}

StatoProgramma::~StatoProgramma() = default;

TabellaArchivio &StatoProgramma::tabellaArchivio() const {
    if (!m_tabella)
        throw ErroreEsecuzione(QStringLiteral("L'archivio database non è aperto."));
    return *m_tabella;
}

Rete &StatoProgramma::rete() {
    if (!m_rete)
        m_rete = std::make_unique<Rete>(Rete::radicePredefinita(m_impostazioni));
    return *m_rete;
}

void StatoProgramma::apriTabellaArchivio() {
    m_tabella = std::make_unique<TabellaArchivio>(
        percorsoFile(QString::fromLatin1(TabellaArchivio::NomeFile)));
}

void StatoProgramma::usaTabellaArchivio(std::unique_ptr<TabellaArchivio> tabella) {
    m_tabella = std::move(tabella);
}

QString StatoProgramma::percorsoFile(const QString &nome) const {
    return FileDati::percorso(PercorsoDati, nome);
}
