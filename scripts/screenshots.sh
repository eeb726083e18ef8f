#!/usr/bin/env bash
# Pictures of the editor as the Standalone program shows it, one set per skin the build made:
#
#   bash scripts/screenshots.sh [BUILD_DIR] [OUT_DIR]      (defaults: build, docs/gui/editor)
#
# For each skin package in BUILD_DIR/skins (lower-case name N) it writes
#   N.png                 the editor as it opens: parameters at their defaults, links on, LFO free
#   N-unlinked.png        the four link buttons clicked off: the right channel's own controls
#   N-sync-unlinked.png   "LFO Sync" clicked to its top item: the panel of note-value rates
#   N-sync.png            the four links clicked on again, still synced
#   N-info.png            right click on the left feedback knob: its parameter info panel
#   N-about.png           "LFO Sync" back off, then the about window, opened by the wordmark
#
# The program runs on a private virtual display (Xvfb, 1920 x 1080) with HOME set to a fresh
# temporary folder, so no real settings are read or written; the plug-in's settings there name the
# skin to open. The skins come from the shared data folder, so the script installs
# BUILD_DIR/skins/*.q41skin into /opt/Q41 Group/Velmarin/Skins first and must run as root. Every
# click lands where the skin's own skin.xml puts the control, read from the package. The pictures
# are the editor alone (panel and status bar), cut out of the program's window without its title
# bar and audio notice. Without an audio device the clock read-out is empty and the meters rest.
#
# Needs Xvfb, xdotool, ImageMagick and python3 (apt-get install xvfb xdotool imagemagick python3).
# Prints one line and exits non-zero on any failure; the pictures are put in OUT_DIR only when
# every one of them was taken.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$(realpath -m "${1:-$root/build}")
out=$(realpath -m "${2:-$root/docs/gui/editor}")
program="$build/Velmarin_artefacts/Release/Standalone/Velmarin"
skins_dir="/opt/Q41 Group/Velmarin/Skins"
status_bar_height=16 # the editor's status bar, below the skin's panel

work=""
xvfb_pid=""
app_pid=""
skin=""

fail() {
  echo "screenshots: $*" >&2
  exit 1
}

stop_app() {
  [ -n "$app_pid" ] || return 0
  kill "$app_pid" 2>/dev/null || true
  for _ in $(seq 30); do
    kill -0 "$app_pid" 2>/dev/null || break
    sleep 0.1
  done
  kill -9 "$app_pid" 2>/dev/null || true
  app_pid=""
}

cleanup() {
  stop_app
  if [ -n "$xvfb_pid" ]; then
    kill "$xvfb_pid" 2>/dev/null || true
    wait "$xvfb_pid" 2>/dev/null || true
  fi
  [ -z "$work" ] || rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 1' INT TERM

# --- what the run needs ------------------------------------------------------------------------

[ "$(id -u)" = 0 ] || fail "run as root: the skins are installed into $skins_dir"
for tool in Xvfb xdotool import compare mogrify python3; do
  command -v "$tool" >/dev/null || fail "$tool is missing (apt-get install xvfb xdotool imagemagick python3)"
done
[ -x "$program" ] || fail "no Standalone program at $program (build first)"
shopt -s nullglob
packages=("$build"/skins/*.q41skin)
shopt -u nullglob
[ ${#packages[@]} -gt 0 ] || fail "no skin packages in $build/skins (build first)"
# A development build reads folders named like these beside the program instead of the user's
# settings and the shared data folder; the pictures would then not show what the script set up.
program_dir=$(dirname "$(realpath "$program")")
for local_dir in "$program_dir/Velmarin_user" "$program_dir/Velmarin_data"; do
  [ ! -d "$local_dir" ] || fail "$local_dir exists: move it away, the program would use it instead"
done

work=$(mktemp -d)
mkdir -p "$work/out"

# --- the skins' geometry -------------------------------------------------------------------------

# Prints, for one package, shell assignments: the panel's size and the rectangles (x y w h, in the
# panel's pixels) of the controls the script clicks, and writes the skin's Background.png to the
# given folder. A control without a `size` takes one frame of its image.
read_skin() {
  python3 - "$1" "$2" <<'PY'
import io, os, re, struct, sys, zipfile
import xml.etree.ElementTree as ET

package, folder = sys.argv[1], sys.argv[2]
name = os.path.splitext(os.path.basename(package))[0]

def die(message):
    sys.exit(f"{package}: {message}")

try:
    outer = zipfile.ZipFile(package)
    inner = zipfile.ZipFile(io.BytesIO(outer.read(name + ".skin")))
    root = ET.fromstring(inner.read("skin.xml"))
except (OSError, KeyError, zipfile.BadZipFile, ET.ParseError) as error:
    die(f"not a readable skin package ({error})")

def tag(e):
    return e.tag.lower()

def child(e, word):
    return next((c for c in e if tag(c) == word), None) if e is not None else None

def number(e, attribute):
    match = re.match(r"\s*[-+]?\d+", e.get(attribute, "")) if e is not None else None
    return int(match.group()) if match else 0

def image_size(entry):
    try:
        data = inner.read(entry)
    except KeyError:
        die(f"the skin lacks {entry}")
    if data[:8] == b"\x89PNG\r\n\x1a\n":
        return struct.unpack(">II", data[16:24])
    if data[:6] in (b"GIF87a", b"GIF89a"):
        return struct.unpack("<HH", data[6:10])
    if data[:2] == b"\xff\xd8":
        at = 2
        while at + 9 < len(data):
            marker, length = data[at + 1], struct.unpack(">H", data[at + 2:at + 4])[0]
            if 0xC0 <= marker <= 0xCF and marker not in (0xC4, 0xC8, 0xCC):
                h, w = struct.unpack(">HH", data[at + 5:at + 9])
                return w, h
            at += 2 + length
    die(f"{entry} is no image the script can measure")

def bounds(control, x, y):
    size = child(control, "size")
    if size is not None:
        return x, y, number(size, "width"), number(size, "height")
    gfx = child(control, "gfx")
    if gfx is None or not gfx.get("resource"):
        die(f"{control.get('name')} has neither a size nor an image")
    w, h = image_size(gfx.get("resource"))
    return x, y, w, h // max(1, number(gfx, "framesNum") or 1)

def walk(panel, x, y):
    """Every control below a panel, in document order, with its place in the main panel."""
    controls = child(panel, "controls")
    if controls is None:
        return
    dx, dy = number(controls, "ofsX"), number(controls, "ofsY")
    for control in controls:
        pos = child(control, "pos")
        cx, cy = x + dx + number(pos, "left"), y + dy + number(pos, "top")
        yield control, cx, cy
        if tag(control) == "panel":
            yield from walk(control, cx, cy)

def bound_to(control):
    links = child(control, "links")
    return [l.get("param") for l in links if tag(l) == "link"] if links is not None else []

def fires(control):
    actions = child(control, "actions")
    return [a.get("event") for a in actions if tag(a) == "action"] if actions is not None else []

if tag(root) != "plugineditor":
    die("skin.xml has another root than PluginEditor")
main = next((p for p in root if tag(p) == "panel" and p.get("name", "").lower() == "mainpanel"), None)
if main is None:
    die("skin.xml has no main panel")
try:
    background = inner.read("Background.png")
except KeyError:
    die("the skin lacks Background.png")
with open(os.path.join(folder, "Background.png"), "wb") as f:
    f.write(background)
width, height = image_size("Background.png")
print(f"skin_w={width}")
print(f"skin_h={height}")

controls = list(walk(main, 0, 0))

def first(kinds, test, what):
    for control, x, y in controls:
        if tag(control) in kinds and test(control):
            return control, bounds(control, x, y)
    die(f"skin.xml has no {what}")

def rect(values):
    return "(" + " ".join(str(v) for v in values) + ")"

link_parameters = ["Delay Offset Link", "LFO Rate Link", "LFO Depth Link", "Feedback Link"]
for i, parameter in enumerate(link_parameters):
    _, found = first({"togglebutton"}, lambda c: parameter in bound_to(c), f'toggle button bound to "{parameter}"')
    print(f"link_{i}={rect(found)}")
# A selector has one frame per item.
switch, found = first({"switch"}, lambda c: "LFO Sync" in bound_to(c), 'switch bound to "LFO Sync"')
print(f"sync={rect(found)}")
print(f"sync_rows={max(1, number(child(switch, 'gfx'), 'framesNum'))}")
_, found = first({"knob"}, lambda c: "Feedback L/M" in bound_to(c), 'knob bound to "Feedback L/M"')
print(f"info={rect(found)}")
_, found = first({"button", "togglebutton", "multistatebutton"}, lambda c: "About" in fires(c),
                 'control that fires "About"')
print(f"about={rect(found)}")
PY
}

skins=()
for package in "${packages[@]}"; do
  skin=$(basename "$package" .q41skin)
  mkdir -p "$work/$skin"
  read_skin "$package" "$work/$skin" >"$work/$skin/geometry.sh" 2>"$work/read-skin.log" \
    || fail "$(tail -n 1 "$work/read-skin.log")"
  mogrify -alpha off -format miff "$work/$skin/Background.png"
  skins+=("$skin")
done
install -d -m 755 "$skins_dir"
install -m 644 "${packages[@]}" "$skins_dir/"

use_skin() { # name: its geometry becomes the current one
  skin=$1
  skin_w="" skin_h="" sync_rows="" sync=() about=() info=() link_0=() link_1=() link_2=() link_3=()
  # shellcheck disable=SC1090
  source "$work/$skin/geometry.sh"
}

# --- the display -----------------------------------------------------------------------------------

# Xvfb picks a free display number itself and writes it to the given descriptor.
Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp 3>"$work/display" >"$work/xvfb.log" 2>&1 &
xvfb_pid=$!
for _ in $(seq 100); do
  [ -s "$work/display" ] && break
  kill -0 "$xvfb_pid" 2>/dev/null || fail "Xvfb did not start: $(tail -n 1 "$work/xvfb.log")"
  sleep 0.1
done
[ -s "$work/display" ] || fail "Xvfb gave no display number within 10 seconds"
DISPLAY=":$(head -n 1 "$work/display")"
export DISPLAY

# --- driving the program ---------------------------------------------------------------------------

win=""
home=""
ex=0 ey=0 ew=0 eh=0 # the editor's rectangle inside the program's window

alive() {
  kill -0 "$app_pid" 2>/dev/null || fail "the Standalone program exited early (skin $skin)"
}

# Finds the editor inside the window: the window is the editor with a border around it, the title
# bar and the audio notice above. Fails (status 1) while the window does not hold this skin's size.
locate_editor() {
  local WIDTH HEIGHT
  eval "$(xdotool getwindowgeometry --shell "$win" | grep -E '^(WIDTH|HEIGHT)=')"
  ew=$skin_w
  eh=$((skin_h + status_bar_height))
  local border=$(((WIDTH - ew) / 2))
  [ "$WIDTH" -ge "$ew" ] && [ $((WIDTH - ew)) -eq $((2 * border)) ] && [ "$HEIGHT" -ge $((eh + border)) ] \
    || return 1
  ex=$border
  ey=$((HEIGHT - border - eh))
}

capture() { # file [height]
  import -silent -window "$win" -crop "${ew}x${2:-$eh}+${ex}+${ey}" +repage "$1"
}

# Pixels that differ between two pictures of one size (a little colour tolerance); not a number
# when they cannot be compared.
differing() {
  compare -metric AE -fuzz 3% "$1" "$2" null: 2>&1 | cut -d ' ' -f 1 || true
}

# True when the panel on screen is this skin's: most of it shows the skin's background. Before the
# skin is loaded (or with the editor taken from the wrong place) nearly every pixel differs.
skin_on_screen() {
  locate_editor || return 1
  capture "$work/check.miff" "$skin_h"
  local count
  count=$(differing "$work/check.miff" "$work/$skin/Background.miff")
  [[ $count =~ ^[0-9.e+]+$ ]] || return 1
  awk -v n="$count" -v all=$((skin_w * skin_h)) 'BEGIN { exit !(n < 0.5 * all) }'
}

wait_for_skin() { # seconds
  local end=$((SECONDS + $1))
  while [ "$SECONDS" -lt "$end" ]; do
    alive
    skin_on_screen && return 0
    sleep 0.2
  done
  return 1
}

# Waits until two pictures in a row agree (the 25 ms timer and the repaints after a click have run
# their course) and keeps the last one.
settle() { # file
  local previous="$work/settle-a.miff" current="$work/settle-b.miff" end=$((SECONDS + 5))
  sleep 0.3
  capture "$previous"
  while :; do
    sleep 0.15
    capture "$current"
    [ "$(differing "$previous" "$current")" != 0 ] || break
    [ "$SECONDS" -lt "$end" ] || fail "the editor kept changing for five seconds ($(basename "$1"))"
    mv "$current" "$previous"
  done
  mv "$current" "$1"
}

shoot() { # picture name
  alive
  settle "$work/out/${1%.png}.miff"
}

click() { # x y, in the panel's pixels
  alive
  xdotool mousemove --window "$win" $((ex + $1)) $((ey + $2)) click 1
  # Away from the panel again, so that no control is drawn with the pointer over it.
  xdotool mousemove 0 0
  sleep 0.15
}

click_centre() { # x y w h
  click $(($1 + $3 / 2)) $(($2 + $4 / 2))
}

right_click_centre() { # x y w h
  alive
  xdotool mousemove --window "$win" $((ex + $1 + $3 / 2)) $((ey + $2 + $4 / 2)) click 3
  xdotool mousemove 0 0
  sleep 0.15
}

click_links() {
  click_centre "${link_0[@]}"
  click_centre "${link_1[@]}"
  click_centre "${link_2[@]}"
  click_centre "${link_3[@]}"
}

# "LFO Sync" is a vertical selector, one row per item, the last item on top.
click_sync() { # top or bottom
  local pitch=$((sync[3] / sync_rows))
  local y=$((sync[1] + pitch / 2))
  [ "$1" = top ] || y=$((sync[1] + sync[3] - pitch / 2))
  click $((sync[0] + sync[2] / 2)) "$y"
}

xml_attribute() {
  local text=${1//&/&amp;}
  text=${text//</&lt;}
  text=${text//>/&gt;}
  printf '%s' "${text//\"/&quot;}"
}

write_settings() { # skin
  mkdir -p "$home/.config/Q41 Group/Velmarin"
  # The plug-in's user settings: the skin a new editor opens with.
  cat >"$home/.config/Q41 Group/Velmarin/Velmarin.ini" <<SETTINGS
<?xml version="1.0" encoding="UTF-8"?>
<UserSettings application="Velmarin">
  <Editor><Skin name="$(xml_attribute "$1")"/></Editor>
</UserSettings>
SETTINGS
}

for name in "${skins[@]}"; do
  use_skin "$name"
  short=$(echo "$name" | tr '[:upper:]' '[:lower:]')
  home="$work/home-$short"
  write_settings "$name"

  HOME="$home" "$program" >"$work/standalone-$short.log" 2>&1 &
  app_pid=$!
  # Not a job of this shell: its end is checked here, without the shell's own notice about it.
  disown "$app_pid"
  win=$(timeout 30 xdotool search --sync --name '^Velmarin$' | head -n 1) \
    || { alive; fail "no window named Velmarin within 30 seconds (skin $name)"; }

  wait_for_skin 10 || fail "the editor did not show skin $name"

  shoot "$short.png"
  right_click_centre "${info[@]}"
  shoot "$short-info.png"
  click 1 1 # a press outside the panel closes it
  click_links
  shoot "$short-unlinked.png"
  click_sync top
  shoot "$short-sync-unlinked.png"
  click_links
  shoot "$short-sync.png"
  click_sync bottom
  click_centre "${about[@]}"
  shoot "$short-about.png"
  stop_app
  echo "screenshots: $name done"
done

mogrify -strip -format png "$work"/out/*.miff
pictures=("$work"/out/*.png)
mkdir -p "$out"
cp "${pictures[@]}" "$out/"
echo "screenshots: ${#pictures[@]} pictures in $out"
