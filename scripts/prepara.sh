#!/usr/bin/env bash
# Installs the Debian packages that Vespara needs to build, test and run, if any is missing, and
# those named as arguments (the packaging script adds its checker).
set -euo pipefail
PACCHETTI=(g++ cmake ninja-build pkg-config qt6-base-dev libqt6sql6-sqlite libxlsxwriter-dev
    qt6-translations-l10n libbenchmark-dev fonts-liberation2 xvfb xauth python3-openpyxl
    poppler-utils clang libclang-rt-14-dev qt6-svg-dev desktop-file-utils appstream dpkg-dev
    cups printer-driver-cups-pdf qt6-charts-dev "$@")
mancanti=()
for p in "${PACCHETTI[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || mancanti+=("$p")
done
if [ ${#mancanti[@]} -gt 0 ]; then
    echo "Installo: ${mancanti[*]}"
    SUDO=""
    [ "$(id -u)" -eq 0 ] || SUDO="sudo"
    $SUDO apt-get update -q
    # The tests start a cupsd of their own; without systemd nothing would ever stop the system's
    # cupsd that the installation starts, so services stay down while installing.
    politica=/usr/sbin/policy-rc.d
    if [ ! -d /run/systemd/system ] && [ ! -e "$politica" ]; then
        printf '#!/bin/sh\nexit 101\n' | $SUDO tee "$politica" >/dev/null
        $SUDO chmod 755 "$politica"
        trap '$SUDO rm -f "$politica"' EXIT
    fi
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -q "${mancanti[@]}"
fi
