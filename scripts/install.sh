#!/usr/bin/env bash
# Installs what scripts/demo.sh or scripts/test.sh built: the VST3 and LV2 bundles where hosts look
# for the current user (~/.vst3, ~/.lv2), the Standalone program and the renderer in ~/.local/bin,
# and the factory presets and the two skins into the shared data folder (/opt/Q41 Group/Velmarin,
# Presets and Skins). That last step needs root: the script does it when it runs as root, and
# otherwise prints the commands that finish it.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
artefacts="$root/build/Velmarin_artefacts/Release"
package="$root/build/presets/Velmarin Factory.q41pkg"
skins=("$root/build/skins/Big.q41skin" "$root/build/skins/Small.q41skin")
[ -d "$artefacts/VST3/Velmarin.vst3" ] || { echo "install: build first (bash scripts/demo.sh)" >&2; exit 2; }

mkdir -p ~/.vst3 ~/.lv2 ~/.local/bin
rm -rf ~/.vst3/Velmarin.vst3 ~/.lv2/Velmarin.lv2
cp -r "$artefacts/VST3/Velmarin.vst3" ~/.vst3/
cp -r "$artefacts/LV2/Velmarin.lv2" ~/.lv2/
cp "$artefacts/Standalone/Velmarin" ~/.local/bin/Velmarin
[ -x "$root/build/tools/velmarin-render/velmarin-render" ] && cp "$root/build/tools/velmarin-render/velmarin-render" ~/.local/bin/
echo "installed Velmarin.vst3 in ~/.vst3, Velmarin.lv2 in ~/.lv2, Velmarin and velmarin-render in ~/.local/bin"

shared="/opt/Q41 Group/Velmarin/Presets"
shared_skins="/opt/Q41 Group/Velmarin/Skins"
for file in "$package" "${skins[@]}"; do
  if [ ! -f "$file" ]; then
    echo "install: $file was not built" >&2
    exit 2
  fi
done
if [ "$(id -u)" = 0 ]; then
  install -d -m 755 "$shared" "$shared_skins"
  install -m 644 "$package" "$shared/"
  install -m 644 "${skins[@]}" "$shared_skins/"
  echo "installed the factory presets in $shared and the skins in $shared_skins"
else
  echo "to install the factory presets and the skins for every user, run:"
  echo "  sudo install -D -m 644 \"$package\" \"$shared/Velmarin Factory.q41pkg\""
  echo "  sudo install -d -m 755 \"$shared_skins\""
  echo "  sudo install -m 644 \"${skins[0]}\" \"${skins[1]}\" \"$shared_skins/\""
fi
