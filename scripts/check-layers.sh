#!/usr/bin/env bash
# Checks the layer order of the source folders: a folder includes headers only from itself and the
# folders below it, names them from the include root ("plugin/BasePlugin.h", never "../"), and the
# lower layers use only the JUCE modules that carry no audio-plug-in, graphics or GUI code.
# Prints every offending line and exits 1 when there is one.
set -euo pipefail
cd "$(dirname "$0")/../src"

order=(io parameters engine content plugin gui/core gui/widgets gui/controls gui/skin gui/editor product)
# JUCE modules each layer may include (the layers above the plug-in object take any).
declare -A juce=(
  [io]="juce_core"
  [parameters]="juce_core juce_events"
  [engine]="juce_core juce_events juce_audio_basics"
  [content]="juce_core juce_events juce_data_structures juce_cryptography"
)

status=0
for i in "${!order[@]}"; do
  folder=${order[$i]}
  [ -d "$folder" ] || continue
  above=("${order[@]:$((i + 1))}")
  while IFS= read -r line; do
    file=${line%%:*}
    rest=${line#*:}
    number=${rest%%:*}
    text=${rest#*:}
    if [[ $text =~ \#include\ \"\.\./ ]]; then
      echo "$file:$number: includes through \"../\": $text"
      status=1
      continue
    fi
    for higher in "${above[@]}"; do
      if [[ $text =~ \#include\ \"$higher/ ]]; then
        echo "$file:$number: $folder includes $higher, a layer above it: $text"
        status=1
      fi
    done
    if [[ -n ${juce[$folder]:-} && $text =~ \#include\ \<(juce_[a-z_]+)/ ]]; then
      module=${BASH_REMATCH[1]}
      if [[ " ${juce[$folder]} " != *" $module "* ]]; then
        echo "$file:$number: $folder may not use the JUCE module $module: $text"
        status=1
      fi
    fi
  done < <(grep -Hn '^#include' "$folder"/*.h "$folder"/*.cpp 2>/dev/null || true)
done
[ $status -eq 0 ] && echo "layers: every folder includes only itself and the folders below it"
exit $status
