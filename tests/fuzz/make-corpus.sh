#!/usr/bin/env bash
# Regenerates the committed seed corpora in tests/fuzz/corpus from files the project itself writes:
# state chunks and settings written by velmarin-render, factory presets, the parameter description,
# packages built by velmarin-package with the fuzz test key, and hand-written samples of the small
# formats. Usage: tests/fuzz/make-corpus.sh BUILD_DIR   (a build holding velmarin-render and
# velmarin-package; copy them elsewhere first if that build may be rebuilt meanwhile). Skin packages
# are packed by velmarin-skin.
set -euo pipefail

build=${1:?usage: make-corpus.sh BUILD_DIR}
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
render="$build/tools/velmarin-render/velmarin-render"
package="$build/tools/velmarin-package/velmarin-package"
skin="$build/tools/velmarin-skin/velmarin-skin"
corpus="$here/corpus"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

rm -rf "$corpus"
mkdir -p "$corpus"/{state_chunk,preset,parameters,midi_map,host_map,settings,package,tags,skin_package,skin_document}
factory="$root/presets/factory"
some_presets=("Afterburner" "Air Lift" "Bar Sweep" "Bell Jar" "Braided")

# State chunks: the render tool's own state after a preset, a quality, a MIDI map.
cat >"$work/map.vmccmap" <<'MAP'
<MidiControlMap name="Velmarin"><assign CC="7" param="Output Volume"/><assign CC="21" param="LFO Rate L/M"/><assign CC="1" param="FX Amount"/></MidiControlMap>
MAP
run() { "$render" --seconds 0.05 --out "$work/out.wav" --user-dir "$work/user" --data-dir "$work/data" "$@" >/dev/null; }
run --state-out "$corpus/state_chunk/default.bin"
for p in "${some_presets[@]}"; do
  run --preset "$factory/$p.vmprs2" --state-out "$corpus/state_chunk/preset-${p// /-}.bin"
done
run --quality Ultra --offline --state-out "$corpus/state_chunk/ultra.bin"
run --midi-map "$work/map.vmccmap" --state-out "$corpus/state_chunk/midi-map.bin"
# The chunk with the MIDI map, as another product's, cut short, and as bare XML without the header.
python3 - "$corpus/state_chunk" <<'PY'
import sys, struct, pathlib
d = pathlib.Path(sys.argv[1])
chunk = (d / "midi-map.bin").read_bytes()
xml = chunk[8:].rstrip(b"\0")
def wrap(text): return struct.pack("<II", 0x21324356, len(text) + 1) + text + b"\0"
(d / "foreign.bin").write_bytes(wrap(xml.replace(b'application="Velmarin"', b'application="Other"', 1)))
(d / "truncated.bin").write_bytes(chunk[: len(chunk) // 2])
(d / "bare-xml.bin").write_bytes(xml)
(d / "one-byte.bin").write_bytes(b"\0")
(d / "sparse.bin").write_bytes(wrap(b'<PluginState application="VELMARIN"><ParametersState><Preset name="Few">'
    b'<param name="Preamp" value="0.5"/></Preset></ParametersState></PluginState>'))
PY

# Presets: factory files, the older layout, extra data, broken ones.
for p in "$factory"/*.vmprs2; do
  n=$(basename "$p" .vmprs2)
  case "$n" in A*|B*|C*|D*|S*) cp "$p" "$corpus/preset/${n// /-}.vmprs2" ;; esac
done
cat >"$corpus/preset/old-layout.vmprs2" <<'P'
<Preset author="Ann" rating="4" id="x1" category="Lead" application="Velmarin"><param name="Preamp" value="0.1"/><param name="M/S Mode" value="On"/><param name="Unknown" value="1"/></Preset>
P
cat >"$corpus/preset/extra-data.vmprs2" <<'P'
<?xml version="1.0" encoding="UTF-8"?>
<Preset version="1.0" rating="9" tags="Type:A|B;:C;Modulation:"><Parameters><param name="LFO Note Rate L/M" value="1/8"/><param name="Feedback L/M" value="nan"/></Parameters><ExtraData><x/></ExtraData></Preset>
P
head -c 300 "$factory/Afterburner.vmprs2" >"$corpus/preset/cut-short.vmprs2"
# UTF-16 with a byte order mark, with a character outside the Basic Multilingual Plane.
python3 - "$factory/Air Lift.vmprs2" "$corpus/preset/utf-16.vmprs2" <<'PY'
import sys, pathlib
text = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8").replace('<Preset ', '<Preset author="Zo\U0001F3B8" ', 1)
pathlib.Path(sys.argv[2]).write_bytes(text.replace('encoding="UTF-8"', 'encoding="UTF-16"').encode("utf-16"))
PY

# The parameter description, and a small one with a row of every type.
cp "$root/src/parameters/resources/parameters.xml" "$corpus/parameters/parameters.xml"
cat >"$corpus/parameters/every-type.xml" <<'P'
<PluginParameters application="Velmarin">
  <param index="0" name="F" type="float" min="-1" max="1" value="0.5" auto="1" unit="dB" format="decimal.2"/>
  <param index="1" name="I" type="int" min="0" max="10" value="3" meta="1"/>
  <param index="2" name="E" type="enum" enum="A;B;C" value="B"/>
  <param index="3" name="N" type="note" value="C#5"/>
  <param index="4" name="B" type="bool" value="true"/>
  <param index="5" name="S" type="state" value="On"/>
  <param index="6" name="L" type="logic" value="1"/>
  <param index="7" name="Y" type="answer" value="yes"/>
  <param index="8" name="T" type="string" value="text"/>
  <param index="9" name="X" type="float" min="2" max="2" value="2" format="crossfade"/>
</PluginParameters>
P

# MIDI maps: the map element as the plug-in writes it into a state chunk, and the other accepted forms.
python3 - "$corpus/state_chunk/midi-map.bin" "$corpus/midi_map" <<'PY'
import sys, re, pathlib
xml = pathlib.Path(sys.argv[1]).read_bytes()[8:].rstrip(b"\0").decode()
m = re.search(r"<MidiControlMap[^>]*[^/]>.*?</MidiControlMap>|<MidiControlMap[^>]*/>", xml, re.S)
out = pathlib.Path(sys.argv[2])
(out / "written.vmccmap").write_text(m.group(0))
(out / "cc-map.vmccmap").write_text('<MidiCCMap application="velmarin"><assign CC="127" param="Preamp"/><assign param="Preamp"/><assign CC="128" param="Low Cut"/></MidiCCMap>')
(out / "other-product.vmccmap").write_text('<MidiControlMap name="Other"><assign CC="7" param="Output Volume"/></MidiControlMap>')
(out / "not-automatable.vmccmap").write_text('<MidiControlMap name="Velmarin"><assign CC="3" param="Current BBD Frequency"/><assign CC="4" param="Processing Quality"/></MidiControlMap>')
PY

# Host maps.
cat >"$corpus/host_map/rearranged.vmhpmap" <<'P'
<HostParametersMap name="Velmarin"><assign hostParam="1" pluginParam="Output Volume"/><assign hostParam="2" pluginParam="Preamp"/><assign hostParam="28" pluginParam="FX Amount"/></HostParametersMap>
P
cat >"$corpus/host_map/edges.vmhpmap" <<'P'
<HostParametersMap name="VELMARIN"><assign hostParam="0" pluginParam="Preamp"/><assign hostParam="29" pluginParam="Preamp"/><assign hostParam="3" pluginParam="Nothing"/><assign hostParam="4" pluginParam="Preset Name"/><assign hostParam="5" pluginParam="Preamp"/><assign hostParam="6" pluginParam="Preamp"/></HostParametersMap>
P
cat >"$corpus/host_map/other-product.vmhpmap" <<'P'
<HostParametersMap name="Other"><assign hostParam="1" pluginParam="Output Volume"/></HostParametersMap>
P

# Settings: the file a render run leaves behind, and variations of it.
rm -rf "$work/user"
run --quality Draft
cp "$work/user/Velmarin.ini" "$corpus/settings/written.ini"
sed -e 's/default="no"/default="YES" file="\/tmp\/x.vmccmap"/' "$work/user/Velmarin.ini" >"$corpus/settings/defaults.ini"
sed -e 's/application="Velmarin"/application="Other"/' "$work/user/Velmarin.ini" >"$corpus/settings/other-product.ini"
printf '<UserSettings application="velmarin"><MidiControlMap default="yes" file="relative/map.vmccmap"/></UserSettings>' >"$corpus/settings/relative.ini"

# Packages, signed with the unit tests' key pair (tests/content/TestPackageKey.h), as PackageFuzz.cpp
# checks whole packages: the first byte 0 for a whole file, 1 for an inner archive.
python3 - "$here/../content/TestPackageKey.h" "$work/test.key" <<'PY'
import sys, re
text = open(sys.argv[1]).read()
def key(name):
    body = re.search(name + r" =\s*((?:\s*\"[0-9a-f,]*\")+);", text).group(1)
    return "".join(re.findall(r'"([0-9a-f,]*)"', body))
open(sys.argv[2], "w").write("public=%s\nprivate=%s\n" % (key("publicKey"), key("privateKey")))
PY
mkdir -p "$work/two"
cp "$factory/Afterburner.vmprs2" "$factory/Bell Jar.vmprs2" "$work/two/"
printf '<Preset tags="Type:Odd"><Parameters><param name="Preamp" value="1"/></Parameters></Preset>' >"$work/two/No Author.vmprs2"
"$package" build --key "$work/test.key" --presets "$work/two" --out "$work/two.q41pkg" --name "Fuzz Factory" --author "Q41" >/dev/null
"$package" verify --key "$work/test.key" "$work/two.q41pkg" >/dev/null
python3 - "$work/two.q41pkg" "$corpus/package" <<'PY'
import sys, zipfile, pathlib
pkg = pathlib.Path(sys.argv[1]).read_bytes()
out = pathlib.Path(sys.argv[2])
(out / "whole.bin").write_bytes(b"\0" + pkg)
inner = zipfile.ZipFile(sys.argv[1]).read("content")
(out / "inner.bin").write_bytes(b"\1" + inner)
(out / "whole-cut.bin").write_bytes(b"\0" + pkg[: len(pkg) // 2])
(out / "inner-cut.bin").write_bytes(b"\1" + inner[: len(inner) * 2 // 3])
(out / "not-a-zip.bin").write_bytes(b"\0PK\3\4 nothing")
PY

# Skin packages packed by the skin tool, as SkinPackageFuzz.cpp reads them: the first byte 0 for a
# whole package, 1 for an inner archive.
mkdir -p "$work/Fuzz/fonts"
cat >"$work/Fuzz/skin.xml" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<PluginEditor>
  <Fonts><font typeface="Label" style="bold" file="fonts/Label.ttf"/><font typeface="Label" file="Missing.ttf"/></Fonts>
  <Panel name="MainPanel" background="Background.png">
    <Knob name="Rate"><gfx resource="Knob.png" framesNum="2"/></Knob>
    <Mixer><gfx><image name="slider" strip="Knob.png" frames="2"/></gfx></Mixer>
  </Panel>
</PluginEditor>
XML
python3 - "$work/Fuzz" <<'PY'
import sys, zlib, struct, pathlib
folder = pathlib.Path(sys.argv[1])
def png(width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data) & 0xffffffff)
    rows = b"".join(b"\0" + b"\x40\x80\xc0\xff" * width for _ in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))
(folder / "Background.png").write_bytes(png(8, 6))
(folder / "Thumbnail.png").write_bytes(png(2, 2))
(folder / "Knob.png").write_bytes(png(3, 4))
(folder / "Thumbnail.gif").write_bytes(b"GIF89a\x01\x00\x01\x00\x00\x00\x00;")
(folder / "fonts" / "Label.ttf").write_bytes(b"\0\1\0\0\0\0\0\0\0\0\0\0")
PY
"$skin" pack "$work/Fuzz" "$work/Fuzz.q41skin" >/dev/null
python3 - "$work/Fuzz.q41skin" "$corpus/skin_package" <<'PY'
import sys, zipfile, pathlib
pkg = pathlib.Path(sys.argv[1]).read_bytes()
out = pathlib.Path(sys.argv[2])
(out / "whole.bin").write_bytes(b"\0" + pkg)
inner = zipfile.ZipFile(sys.argv[1]).read("Fuzz.skin")
(out / "inner.bin").write_bytes(b"\1" + inner)
(out / "whole-cut.bin").write_bytes(b"\0" + pkg[: len(pkg) * 2 // 3])
(out / "digest-renamed.bin").write_bytes(b"\0" + pkg.replace(b"Fuzz.md5", b"Fuzz.MD5"))
PY

# Skin documents: the panel builder's test skin that uses every control word, and damaged copies.
every="$root/tests/gui/skin/every-word-skin.xml"
cp "$every" "$corpus/skin_document/every-word.xml"
sed -e 's/framesNum="[0-9]*"/framesNum="0"/g' "$every" >"$corpus/skin_document/zero-frames.xml"
sed -e 's/width="[0-9]*"/width="-7"/g; s/left="[0-9]*"/left="2147483647"/g' "$every" >"$corpus/skin_document/bad-sizes.xml"
sed -e '/<gfx/d; /<pos/d' "$every" >"$corpus/skin_document/no-children.xml"
sed -e 's/<controls[^>]*>/<controls ofsX="x"><Panel name="deeper"><controls>/; s#</controls>#</controls></Panel></controls>#' \
  "$every" >"$corpus/skin_document/nested.xml"

# Tags.
printf 'Type:Flanger|Jet|Gritty;Modulation:Slow;Spatialize:Wide' >"$corpus/tags/factory.txt"
printf 'Type:Chorus;Type:Flanger' >"$corpus/tags/twice.txt"
printf 'Loose|Tags;;:Empty|;Name:;a:b:c|d' >"$corpus/tags/odd.txt"
printf ';;|;:' >"$corpus/tags/separators.txt"

# Documents nested just past the deepest nesting the reader accepts (256 levels), for every target
# that reads XML, and one preset whose comment and CDATA section hold markup characters.
python3 - "$corpus" <<'PY'
import sys, struct, zipfile, io, pathlib
corpus = pathlib.Path(sys.argv[1])
def nest(outer, inner=b""):
    # outer: list of (open, close) around 257 levels in all
    levels = 257 - len(outer)
    text = b"<a>" * levels + inner + b"</a>" * levels
    for o, c in reversed(outer):
        text = o + text + c
    return text
preset = nest([(b'<Preset version="1.0">', b"</Preset>"), (b"<Parameters>", b"</Parameters>")], b'<param name="Preamp" value="0.5"/>')
(corpus / "preset" / "nested-too-deep.vmprs2").write_bytes(preset)
(corpus / "preset" / "markup-in-comment.vmprs2").write_bytes(
    b'<?xml version="1.0"?>\n<!-- Bass & Drums <? -->\n<Preset author="A &amp; B"><!-- & <?x --><Parameters>'
    b'<![CDATA[ & <? <!DOCTYPE ]]><param name="Preamp" value="0.25"/><?keep going?> </Parameters></Preset>')
state = nest([(b'<PluginState application="Velmarin">', b"</PluginState>"), (b"<ParametersState>", b"</ParametersState>"),
              (b'<Preset name="Deep">', b"</Preset>")])
(corpus / "state_chunk" / "nested-too-deep.bin").write_bytes(struct.pack("<II", 0x21324356, len(state) + 1) + state + b"\0")
(corpus / "parameters" / "nested-too-deep.xml").write_bytes(nest([(b'<PluginParameters application="Velmarin">', b"</PluginParameters>")]))
(corpus / "midi_map" / "nested-too-deep.vmccmap").write_bytes(nest([(b'<MidiControlMap name="Velmarin">', b"</MidiControlMap>")], b'<assign CC="7" param="Output Volume"/>'))
(corpus / "host_map" / "nested-too-deep.vmhpmap").write_bytes(nest([(b'<HostParametersMap name="Velmarin">', b"</HostParametersMap>")]))
(corpus / "settings" / "nested-too-deep.ini").write_bytes(nest([(b'<UserSettings application="Velmarin">', b"</UserSettings>")]))
inner = io.BytesIO()
with zipfile.ZipFile(inner, "w") as z:
    z.writestr("__desc__", nest([(b'<Description product="Velmarin" name="Deep">', b"</Description>")]))
    z.writestr("Deep.vmprs2", preset)
(corpus / "package" / "nested-too-deep.bin").write_bytes(b"\1" + inner.getvalue())
PY

find "$corpus" -type f | wc -l
