#!/usr/bin/env bash
# Renders a fixed set of settings with two builds of velmarin-render and compares the WAV files
# byte for byte: the check that a change to the code leaves the sound exactly as it was.
#
#   bash scripts/compare-renders.sh OLD_RENDER NEW_RENDER [WORK_DIR]
#
# Every quality, voltage curve, length and mix regime, M/S, tempo sync with a playing transport,
# mono, 22.05/44.1/48/96/192 kHz, block sizes 1 and 512. Prints one line per setting and exits
# non-zero when any pair differs.
set -euo pipefail
old=$1
new=$2
work=${3:-$(mktemp -d)}
mkdir -p "$work/old" "$work/new"

settings=(
  "default|"
  "draft|--quality Draft"
  "normal|--quality Normal"
  "high|--quality High"
  "ultra|--quality Ultra"
  "linear|--set LFO Voltage Curve=Linear"
  "concave|--set LFO Voltage Curve=Concave"
  "len16|--set BBD Length=16"
  "len32|--set BBD Length=32"
  "len128|--set BBD Length=128"
  "len512|--set BBD Length=512 --quality Ultra"
  "manualmix|--set Mistress Auto Mix Mode=Off --set FX Amount=0.7"
  "negfeedback|--set Feedback L/M=0.1"
  "posfeedback|--set Feedback L/M=0.95 --set Feedback Link=Off --set Feedback R/S=0.3"
  "ms|--set M/S Mode=On --set Channels Crossfade=0.3"
  "lowcutoff|--set Low Cut=Off"
  "lowcutlow|--set Low Cut=Low"
  "preamp|--set Preamp=0.8 --set Output Volume=0.8"
  "range|--set BBD Frequency Range=0.05 --set LFO Depth L/M=0.9"
  "unlinked|--set LFO Rate Link=Off --set LFO Rate R/S=0.6 --set Delay Offset Link=Off --set Delay Offset R/S=0.4"
  "sync|--set LFO Sync=Full --set LFO Note Rate L/M=1/8 --tempo 128 --playing"
  "syncdotted|--set LFO Sync=Dotted --tempo 97 --ppq-start 3.25 --playing --set LFO Phase Shift=0.5"
  "synctriplet|--set LFO Sync=Triplet --tempo 140 --playing --quality High"
  "mono|--layout 1-1"
  "monostereo|--layout 1-2 --quality Ultra"
  "rate22050|--rate 22050"
  "rate48k|--rate 48000 --quality High"
  "rate96k|--rate 96000"
  "rate96kultra|--rate 96000 --quality Ultra --set BBD Length=512"
  "rate192k|--rate 192000 --quality Ultra"
  "block1|--block 1 --seconds 1"
  "block1sync|--block 1 --seconds 1 --set LFO Sync=Full --tempo 120 --playing"
  "block512odd|--block 512 --rate 44100 --set BBD Length=64 --cc 5000:1:64"
  "offline|--offline --quality Draft"
  "bypass|--bypass"
)

status=0
for entry in "${settings[@]}"; do
  name=${entry%%|*}
  args=${entry#*|}
  # Each "--set NAME=VALUE" keeps its spaces: split on " --" and re-add the dashes.
  argv=()
  if [ -n "$args" ]; then
    IFS=$'\n' read -r -d '' -a parts < <(printf '%s' "$args" | sed 's/ --/\n--/g'; printf '\0') || true
    for part in "${parts[@]}"; do
      option=${part%% *}
      value=${part#"$option"}
      value=${value# }
      argv+=("$option")
      [ -n "$value" ] && argv+=("$value")
    done
  fi
  for side in old new; do
    bin=$old
    [ "$side" = new ] && bin=$new
    "$bin" --seconds 2 "${argv[@]}" --out "$work/$side/$name.wav" >/dev/null
  done
  if cmp -s "$work/old/$name.wav" "$work/new/$name.wav"; then
    echo "same       $name"
  else
    echo "DIFFERENT  $name"
    status=1
  fi
done
exit $status
