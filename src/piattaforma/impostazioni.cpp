#include "piattaforma/impostazioni.h"

#include <QSettings>

const Impostazioni::Chiave Impostazioni::MostraAggiornamenti{"Options",
                                                             "Mostra sempre aggiornamenti", true};
const Impostazioni::Chiave Impostazioni::UltimaStampante{"Vpprn/Stampante", "UltimaStampante",
                                                         QString()};
const Impostazioni::Chiave Impostazioni::RadiceSito{"Sito", "Radice", QString()};
const Impostazioni::Chiave Impostazioni::GeometriaCornice{"Finestra", "Geometria", QByteArray()};
const Impostazioni::Chiave Impostazioni::CartellaSalvataggi{"File", "UltimaCartella", QString()};

Impostazioni::Impostazioni()
    : m_settings(
          std::make_unique<QSettings>(QStringLiteral("Vespara"), QStringLiteral("Vespara"))) {}

Impostazioni::Impostazioni(const QString &fileIni)
    : m_settings(std::make_unique<QSettings>(fileIni, QSettings::IniFormat)) {}

Impostazioni::~Impostazioni() = default;

namespace {
QString percorsoChiave(const Impostazioni::Chiave &chiave) {
    return QString::fromLatin1(chiave.sezione) + QLatin1Char('/') +
           QString::fromLatin1(chiave.nome);
}
} // namespace

QVariant Impostazioni::valore(const Chiave &chiave) const {
    return m_settings->value(percorsoChiave(chiave), chiave.predefinito);
}

void Impostazioni::imposta(const Chiave &chiave, const QVariant &valore) {
    m_settings->setValue(percorsoChiave(chiave), valore);
    m_settings->sync();
}
