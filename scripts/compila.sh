#!/usr/bin/env bash
# Configures and builds Vespara in build/ (after installing what is missing).
set -euo pipefail
radice="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$radice/scripts/prepara.sh"
cmake -S "$radice" -B "$radice/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
cmake --build "$radice/build" --parallel "$(nproc)"
