#!/usr/bin/env bash
# Builds Vespara with its tests and runs the whole test suite.
set -euo pipefail
radice="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$radice/scripts/compila.sh" -DVESPARA_TEST=ON
cd "$radice/build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 600
