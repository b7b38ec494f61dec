// A helper of tst_uccisione: the update of the foreign team lists run on its own, against a
// site it serves itself on loopback, and ended by SIGKILL at the moment a chosen change of the
// data folder is about to happen, as a power cut or a kill would end the program. The functions
// of the C library that change names in a folder are replaced here: each call on a team list
// (a file whose name starts with "serie") is counted, and the call numbered VESPARA_UCCIDI_A
// never runs. Without that variable the update runs to its end and the count is printed.
#include "aggiornamenti/aggiornamentisito.h"
#include "core/statoprogramma.h"
#include "piattaforma/dialoghiprova.h"
#include "piattaforma/impostazioni.h"
#include "piattaforma/rete.h"
#include "piattaforma/schermo.h"
#include "piattaforma/serverhttp.h"

#include <QCoreApplication>
#include <QDir>

#include <dlfcn.h>
#include <signal.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <strings.h>

namespace {

int chiamate = 0;

bool lista(const char *percorso) {
    if (!percorso)
        return false;
    const char *barra = std::strrchr(percorso, '/');
    const char *nome = barra ? barra + 1 : percorso;
    return strncasecmp(nome, "serie", 5) == 0;
}

void forseUccidi(const char *a, const char *b = nullptr) {
    if (!lista(a) && !lista(b))
        return;
    ++chiamate;
    const char *limite = std::getenv("VESPARA_UCCIDI_A");
    if (limite && std::atoi(limite) == chiamate)
        raise(SIGKILL);
}

template <typename F> F originale(const char *nome) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, nome));
}

} // namespace

extern "C" {

int rename(const char *da, const char *a) noexcept {
    forseUccidi(da, a);
    return originale<int (*)(const char *, const char *)>("rename")(da, a);
}

int renameat(int dirDa, const char *da, int dirA, const char *a) noexcept {
    forseUccidi(da, a);
    return originale<int (*)(int, const char *, int, const char *)>("renameat")(dirDa, da, dirA, a);
}

int renameat2(int dirDa, const char *da, int dirA, const char *a, unsigned int flag) noexcept {
    forseUccidi(da, a);
    return originale<int (*)(int, const char *, int, const char *, unsigned int)>("renameat2")(
        dirDa, da, dirA, a, flag);
}

int link(const char *da, const char *a) noexcept {
    forseUccidi(da, a);
    return originale<int (*)(const char *, const char *)>("link")(da, a);
}

int linkat(int dirDa, const char *da, int dirA, const char *a, int flag) noexcept {
    forseUccidi(da, a);
    return originale<int (*)(int, const char *, int, const char *, int)>("linkat")(dirDa, da, dirA,
                                                                                   a, flag);
}

int unlink(const char *percorso) noexcept {
    forseUccidi(percorso);
    return originale<int (*)(const char *)>("unlink")(percorso);
}

int unlinkat(int dir, const char *percorso, int flag) noexcept {
    forseUccidi(percorso);
    return originale<int (*)(int, const char *, int)>("unlinkat")(dir, percorso, flag);
}
}

// uccisione <data folder> <site folder>
int main(int argc, char *argv[]) {
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "uso: uccisione <cartella dati> <cartella sito>\n");
        return 2;
    }
    ServerHttp server(QString::fromLocal8Bit(argv[2]));
    if (!server.avvia())
        return 3;
    DialoghiProva dialoghi;
    Impostazioni impostazioni(
        QDir(QString::fromLocal8Bit(argv[1])).filePath(QStringLiteral("impostazioni.ini")));
    Schermo schermo;
    StatoProgramma stato(dialoghi, impostazioni, schermo);
    stato.PercorsoDati = QString::fromLocal8Bit(argv[1]);
    stato.rete().setRadice(server.radice());
    try {
        AggiornamentiSito sito(stato);
        sito.aggiornaConcorsiStranieri();
    } catch (const std::exception &e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    std::printf("chiamate %d\n", chiamate);
    return 0;
}
