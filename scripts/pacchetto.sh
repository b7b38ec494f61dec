#!/usr/bin/env bash
# Builds the Debian package of Vespara: a Release build without tests in build-pacchetto/, then
# CPack's DEB generator. The package lands in build-pacchetto/ (vespara_<version>_<arch>.deb).
set -euo pipefail
radice="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$radice/scripts/prepara.sh"
build="$radice/build-pacchetto"
cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVESPARA_TEST=OFF "$@"
cmake --build "$build" --parallel "$(nproc)"
(cd "$build" && cpack -G DEB)
ls -1 "$build"/*.deb
