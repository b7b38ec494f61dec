#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

// What every fuzz target of the readers shares: one application for the whole run, a scratch
// folder for the readers that take a file, and the way a broken property is reported.
namespace SupportoFuzz {

// Created once and never destroyed: libFuzzer leaves through exit(), and a Qt application torn
// down by the static destructors can crash on its own, which would be no fault of the readers.
inline void applicazione(int *argc, char ***argv, bool grafica) {
    if (QCoreApplication::instance())
        return;
    if (grafica) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        new QGuiApplication(*argc, *argv);
    } else {
        new QCoreApplication(*argc, *argv);
    }
}

// A folder of this process, removed at exit; several fuzzers may run side by side.
inline QString cartella() {
    static QTemporaryDir dir;
    if (!dir.isValid()) {
        std::fprintf(stderr, "Impossibile creare la cartella temporanea del fuzz.\n");
        std::abort();
    }
    return dir.path();
}

// The bytes as the content of `nome` in the scratch folder, replaced each time.
inline QString scriviFile(const uint8_t *dati, size_t n, const QString &nome) {
    const QString percorso = cartella() + u'/' + nome;
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(reinterpret_cast<const char *>(dati), qint64(n)) != qint64(n)) {
        std::fprintf(stderr, "Impossibile scrivere %s.\n", qPrintable(percorso));
        std::abort();
    }
    return percorso;
}

inline QString latino(const uint8_t *dati, size_t n) {
    return QString::fromLatin1(reinterpret_cast<const char *>(dati), qsizetype(n));
}

// A property of a reader that does not hold: libFuzzer keeps the input that broke it.
[[noreturn]] inline void difetto(const char *testo) {
    std::fprintf(stderr, "Proprietà violata: %s\n", testo);
    std::abort();
}

} // namespace SupportoFuzz
