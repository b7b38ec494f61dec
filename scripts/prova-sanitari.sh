#!/usr/bin/env bash
# Builds Vespara with clang, AddressSanitizer and UndefinedBehaviorSanitizer in build-sanitari/,
# runs the whole test suite there, then each fuzz target of tests/fuzz/ for the given seconds
# (20 unless told) on a copy of its seeds. Any sanitizer report, failed test or fuzz finding makes
# it fail, naming what failed.
set -euo pipefail
radice="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
secondi="${1:-20}"
if ! [[ "$secondi" =~ ^[0-9]+$ ]] || [ "$secondi" -lt 1 ]; then
    echo "Uso: $0 [secondi per ogni fuzz target]" >&2
    exit 2
fi

bash "$radice/scripts/prepara.sh"
build="$radice/build-sanitari"
cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER=clang++ -DVESPARA_SANITARI=ON -DVESPARA_TEST=ON
cmake --build "$build" --parallel 2

# Every report stops the program with a failure, leaks at exit included, except those of the
# system libraries listed in tests/fuzz/lsan.supp.
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS="halt_on_error=1:detect_leaks=1:detect_stack_use_after_return=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
export LSAN_OPTIONS="suppressions=$radice/tests/fuzz/lsan.supp:print_suppressions=0"

falliti=()
if ! (cd "$build" && ctest --output-on-failure --timeout 600); then
    falliti+=("ctest")
fi

# Scratch corpora, findings and the readers' temporary files stay out of the checkout; in memory
# when the system offers it, since some readers write a file per input.
base=/tmp
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    base=/dev/shm
fi
lavoro="$(mktemp -d "$base/vespara-fuzz.XXXXXX")"
for eseguibile in "$build"/tests/fuzz/fuzz_*; do
    [ -f "$eseguibile" ] && [ -x "$eseguibile" ] || continue
    nome="$(basename "$eseguibile")"
    nome="${nome#fuzz_}"
    cartella="$lavoro/$nome"
    mkdir -p "$cartella/corpus" "$cartella/tmp"
    if [ -d "$radice/tests/fuzz/semi/$nome" ]; then
        cp -r "$radice/tests/fuzz/semi/$nome/." "$cartella/corpus/"
    fi
    opzioni=(-max_total_time="$secondi" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
        -artifact_prefix="$cartella/")
    if [ -f "$radice/tests/fuzz/$nome.dict" ]; then
        opzioni+=(-dict="$radice/tests/fuzz/$nome.dict")
    fi
    echo "== fuzz_$nome per $secondi secondi"
    if (cd "$cartella" && TMPDIR="$cartella/tmp" "$eseguibile" "${opzioni[@]}" corpus \
        >"$cartella/uscita.txt" 2>&1); then
        grep -E '^stat::number_of_executed_units' "$cartella/uscita.txt" || true
    else
        tail -n 60 "$cartella/uscita.txt"
        echo "fuzz_$nome: trovato un difetto; ingresso e uscita in $cartella"
        falliti+=("fuzz_$nome")
    fi
done

if [ ${#falliti[@]} -gt 0 ]; then
    echo "Falliti: ${falliti[*]}" >&2
    exit 1
fi
rm -rf "$lavoro"
echo "Sanitizzatori e fuzz: nessun difetto."
