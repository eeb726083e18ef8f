#!/usr/bin/env bash
# Installs the Debian packages that building, testing and the tools need.
# Idempotent: packages already present are skipped, so a second run takes a second.
# Run as root (it calls apt-get); as another user it names what is missing and exits 2.
# `setup.sh --peers` also installs the LV2 flangers the peer benchmark (bench/peers.sh) times;
# `setup.sh --hosts` installs Ardour for scripts/ardour.sh and what scripts/screenshots.sh drives
# the Standalone program with.
set -euo pipefail

packages=(
  # toolchain
  build-essential cmake ninja-build ccache pkg-config clang libclang-rt-14-dev clang-format
  # JUCE 7.0.5 with its VST3 and LV2 SDKs, and the system libraries its modules use
  juce-modules-source juce-tools
  libasound2-dev libfreetype-dev libfontconfig1-dev libx11-dev libxrandr-dev
  libxinerama-dev libxcursor-dev libxext-dev libxcomposite-dev
  # audio file formats the render tool reads (Debian's JUCE leaves FLAC and Vorbis to the system)
  libflac-dev libvorbis-dev libogg-dev
  # tests and benchmarks
  libgtest-dev libgmock-dev libbenchmark-dev
  # hosts and validation: LV2 tools, a virtual display, pluginval's LADSPA header
  lilv-utils xvfb xauth ladspa-sdk
  # a font file the skin tests build their test skins with
  fonts-dejavu-core
  fonts-dejavu-core
)
for option in "$@"; do
  case "$option" in
    --peers) packages+=(calf-plugins swh-lv2) ;;
    --hosts) packages+=(ardour xdotool imagemagick) ;;
    *) echo "setup: unknown option $option" >&2; exit 2 ;;
  esac
done

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

if [ "$(id -u)" != 0 ]; then
  echo "setup: missing Debian packages (run this script as root): ${missing[*]}" >&2
  exit 2
fi

echo "setup: installing ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
if ! apt-get install -y -qq --no-install-recommends "${missing[@]}" >/tmp/velmarin-setup.log 2>&1; then
  apt-get update -qq >>/tmp/velmarin-setup.log 2>&1
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >>/tmp/velmarin-setup.log 2>&1 \
    || { echo "setup: apt-get failed, see /tmp/velmarin-setup.log" >&2; exit 1; }
fi
