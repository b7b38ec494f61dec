#pragma once

#include <QString>
#include <QVariant>

#include <memory>

class QSettings;

// The per-user settings store: application / section / key. Every key the program uses is
// declared here once, with its default.
class Impostazioni {
public:
    struct Chiave {
        const char *sezione;
        const char *nome;
        QVariant predefinito;
    };

    // "Mostra sempre aggiornamenti": offer a newer version each time the frame becomes active.
    static const Chiave MostraAggiornamenti;
    // The printer last chosen on the slip printing screen (application "Vpprn" of the store).
    static const Chiave UltimaStampante;
    // The root of the update site, when neither the environment nor the caller set one.
    static const Chiave RadiceSito;
    // Size, place and state of the main window at its last close.
    static const Chiave GeometriaCornice;
    // The folder of the last file the user saved (a workbook, a page, a printed PDF): where the
    // next one is proposed. Empty: the user's documents folder.
    static const Chiave CartellaSalvataggi;

    // The user's store of the platform (QSettings of organisation and application "Vespara").
    Impostazioni();
    // A store in an INI file of its own, for tests and tools.
    explicit Impostazioni(const QString &fileIni);
    ~Impostazioni();

    QVariant valore(const Chiave &chiave) const;
    void imposta(const Chiave &chiave, const QVariant &valore);

private:
    std::unique_ptr<QSettings> m_settings;
};
