#!/usr/bin/env bash
# Builds Vespara and starts it. Without VESPARA_DATI the data folder is the user's own
# (~/.local/share/vespara/), filled with the delivered data on the first start.
set -euo pipefail
radice="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$radice/scripts/compila.sh" -DVESPARA_TEST=OFF
exec "$radice/build/vespara" "$@"
