#!/usr/bin/env bash
# Builds the Debian package of Vespara: a Release build without tests in build-pacchetto/, with
# the hardening flags Debian builds its packages with, then CPack's DEB generator, then lintian,
# which must find neither errors nor warnings. The package lands in build-pacchetto/
# (vespara_<version>_<arch>.deb).
set -euo pipefail
radice="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$radice/scripts/prepara.sh" lintian
build="$radice/build-pacchetto"
# Fortified functions, stack protector, read-only relocations bound at start; asked from
# dpkg-buildflags in the root, so the paths written into the program are relative to it.
flag() { (cd "$radice" && DEB_BUILD_MAINT_OPTIONS=hardening=+all dpkg-buildflags --get "$1"); }
cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVESPARA_TEST=OFF \
    "-DCMAKE_C_FLAGS=$(flag CPPFLAGS) $(flag CFLAGS)" \
    "-DCMAKE_CXX_FLAGS=$(flag CPPFLAGS) $(flag CXXFLAGS)" \
    "-DCMAKE_EXE_LINKER_FLAGS=$(flag LDFLAGS)" "$@"
cmake --build "$build" --parallel "$(nproc)"
rm -f "$build"/*.deb
(cd "$build" && cpack -G DEB)
pacchetto=$(ls -1 "$build"/*.deb)
echo "$pacchetto"
# Any E: or W: line fails the script; I: and the rest are told, not fatal.
lintian --info --fail-on error,warning "$pacchetto"
