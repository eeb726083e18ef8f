#!/usr/bin/env bash
# Installs what scripts/demo.sh or scripts/test.sh built: the VST3 and LV2 bundles where hosts look
# for the current user (~/.vst3, ~/.lv2), the Standalone program and the renderer in ~/.local/bin,
# and the factory presets into the shared data folder (/opt/Q41 Group/Velmarin/Presets). That last
# step needs root: the script does it when it runs as root, and otherwise prints the one command
# that finishes it.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
artefacts="$root/build/Velmarin_artefacts/Release"
package="$root/build/presets/Velmarin Factory.q41pkg"
[ -d "$artefacts/VST3/Velmarin.vst3" ] || { echo "install: build first (bash scripts/demo.sh)" >&2; exit 2; }

mkdir -p ~/.vst3 ~/.lv2 ~/.local/bin
rm -rf ~/.vst3/Velmarin.vst3 ~/.lv2/Velmarin.lv2
cp -r "$artefacts/VST3/Velmarin.vst3" ~/.vst3/
cp -r "$artefacts/LV2/Velmarin.lv2" ~/.lv2/
cp "$artefacts/Standalone/Velmarin" ~/.local/bin/Velmarin
[ -x "$root/build/tools/velmarin-render/velmarin-render" ] && cp "$root/build/tools/velmarin-render/velmarin-render" ~/.local/bin/
echo "installed Velmarin.vst3 in ~/.vst3, Velmarin.lv2 in ~/.lv2, Velmarin and velmarin-render in ~/.local/bin"

shared="/opt/Q41 Group/Velmarin/Presets"
if [ ! -f "$package" ]; then
  echo "install: no factory package was built ($package)" >&2
  exit 2
fi
if [ "$(id -u)" = 0 ]; then
  install -d -m 755 "$shared"
  install -m 644 "$package" "$shared/"
  echo "installed the factory presets in $shared"
else
  echo "to install the factory presets for every user, run:"
  echo "  sudo install -D -m 644 \"$package\" \"$shared/Velmarin Factory.q41pkg\""
fi
