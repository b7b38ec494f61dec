#pragma once

#include <QByteArray>
#include <QString>

// Faults of the disk made with real mounts, since the tests run as root and permissions don't
// stop root's writes: a small tmpfs over a folder, that can be filled to the last byte or made
// read-only, and a single file mounted read-only over itself. The test program first moves into a
// mount namespace of its own (isola), so every mount it makes dies with it.
class DiscoProva {
public:
    // Call in main(), before anything else: a private mount namespace with "/" private. An empty
    // text when done, else why not (the tests then fail with it).
    static QString isola();

    // A tmpfs of `byte` bytes mounted over `cartella`, holding a copy of the files that were
    // there (a flat folder, like the data folder). errore() says why it failed.
    explicit DiscoProva(const QString &cartella, qint64 byte = 1024 * 1024);
    ~DiscoProva();
    DiscoProva(const DiscoProva &) = delete;
    DiscoProva &operator=(const DiscoProva &) = delete;

    bool valido() const { return m_errore.isEmpty(); }
    QString errore() const { return m_errore; }

    // The disk filled to the last byte by a padding file; libera() removes it.
    bool riempi();
    void libera();
    // The whole disk read-only, or writable again.
    bool soloLettura(bool si);

    // A file mounted read-only over itself, in a folder that stays writable; sblocca() takes the
    // mount away. An empty text when done, else why not.
    static QString bloccaFile(const QString &percorso);
    static QString sbloccaFile(const QString &percorso);

private:
    QString m_cartella;
    QString m_errore;
    bool m_montato = false;
};
