#!/usr/bin/env bash
# mirvane-cli end to end on the bundled sample: exit statuses, a decompile and
# compile round trip that keeps the objects, and damaged input.
set -u
cli=$1
sample=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
check() {  # check NAME EXPECTED_STATUS COMMAND...
  local name=$1 expected=$2
  shift 2
  "$@" >"$work/out" 2>"$work/err"
  local status=$?
  if [ "$status" -ne "$expected" ]; then
    echo "FAIL $name: status $status, expected $expected"; cat "$work/err"; failures=$((failures + 1))
  else
    echo "ok   $name"
  fi
}
check "no arguments is a usage error" 2 "$cli"
check "help" 0 "$cli" --help
check "info on the sample" 0 "$cli" info "$sample"
grep -q "Polygons:     16" "$work/out" || { echo "FAIL info counts"; failures=$((failures + 1)); }
check "info of a missing file" 2 "$cli" info "$work/none.typ"
check "roundtrip" 0 "$cli" roundtrip "$sample" -o "$work/copy.typ"
check "roundtrip to 174" 0 "$cli" roundtrip "$sample" -o "$work/copy174.typ" --header-size 174
check "bad header size" 2 "$cli" roundtrip "$sample" -o "$work/x.typ" --header-size abc
check "decompile" 0 "$cli" decompile "$sample" -o "$work/sample.txt"
check "compile" 0 "$cli" compile "$work/sample.txt" -o "$work/again.typ"
check "decompile again" 0 "$cli" decompile "$work/again.typ" --no-heading -o "$work/again.txt"
grep -c '^\[_polygon\]' "$work/again.txt" | grep -qx 16 || { echo "FAIL polygon count after compile"; failures=$((failures + 1)); }
printf 'GARMIN TYP is not here' >"$work/bad.typ"
check "damaged file reads with a log" 1 "$cli" info "$work/bad.typ"
grep -q "corrompu" "$work/err" || { echo "FAIL damaged log text"; failures=$((failures + 1)); }
printf '[_polygon]\nType=0x01\n[end]\n' >"$work/noid.txt"
check "compile without FID fails like the save" 2 "$cli" compile "$work/noid.txt" -o "$work/noid.typ"
check "compile with FID given" 0 "$cli" compile "$work/noid.txt" -o "$work/noid.typ" --fid 1 --product-code 1
# FID and product code are 16-bit: a value out of range stops the command and names the range.
range_named() {  # range_named NAME: the last command's stderr names 0 to 65535
  grep -q "0 et 65535" "$work/err" ||
    { echo "FAIL $1: no range in the message"; cat "$work/err"; failures=$((failures + 1)); }
}
check "roundtrip refuses --fid 70000" 2 "$cli" roundtrip "$sample" -o "$work/fid.typ" --fid 70000
range_named "--fid 70000"
[ ! -e "$work/fid.typ" ] || { echo "FAIL --fid 70000 wrote a file"; failures=$((failures + 1)); }
check "roundtrip refuses --product-code 65536" 2 "$cli" roundtrip "$sample" -o "$work/pid.typ" --product-code 65536
range_named "--product-code 65536"
printf '[_id]\nFID=70000\nProductCode=1\n[End]\n' >"$work/bigfid.txt"
check "compile refuses FID=70000" 2 "$cli" compile "$work/bigfid.txt" -o "$work/bigfid.typ"
range_named "FID=70000"
printf '[_id]\nFID=1\nProductCode=0x10000\n[End]\n' >"$work/bigpid.txt"
check "compile refuses ProductCode=0x10000" 2 "$cli" compile "$work/bigpid.txt" -o "$work/bigpid.typ"
range_named "ProductCode=0x10000"
check "roundtrip keeps the top of the range" 0 \
  "$cli" roundtrip "$sample" -o "$work/top.typ" --fid 65535 --product-code 65535
check "info of the top of the range" 0 "$cli" info "$work/top.typ"
grep -q "FID:          65535" "$work/out" || { echo "FAIL FID 65535 after roundtrip"; failures=$((failures + 1)); }

# special: each kind reads back with an empty log; the seed alone decides the bytes.
for kind in polygon line poi; do
  check "special $kind" 0 "$cli" special --kind $kind --from 0x010 --to 0x01f -o "$work/id_$kind.typ" --seed 5
  check "info of special $kind" 0 "$cli" info "$work/id_$kind.typ"
done
grep -q "Polygons:     512" <("$cli" info "$work/id_polygon.typ") || { echo "FAIL special polygon count"; failures=$((failures + 1)); }
check "special again" 0 "$cli" special --kind polygon --from 0x010 --to 0x01f -o "$work/id_again.typ" --seed 5
# Bytes 14 to 20 of the header hold the date of the save.
cmp -s <(head -c 14 "$work/id_polygon.typ"; tail -c +22 "$work/id_polygon.typ") \
       <(head -c 14 "$work/id_again.typ"; tail -c +22 "$work/id_again.typ") ||
  { echo "FAIL special with one seed gives two files"; failures=$((failures + 1)); }
check "special without subtypes" 0 "$cli" special --kind poi --from 0x00 --to 0xff -o "$work/id_flat.typ"
check "special refuses a range it does not offer" 2 "$cli" special --kind line --from 0x10 --to 0x30 -o "$work/x.typ"
check "special refuses an unknown kind" 2 "$cli" special --kind area --from 0x00 --to 0xff -o "$work/x.typ"
[ ! -e "$work/x.typ" ] || { echo "FAIL special wrote a refused file"; failures=$((failures + 1)); }

# mapsets: a Wine prefix with one family in its registry and one installed folder.
if [ "$(uname)" != Darwin ]; then
  prefix="$work/wine"
  mkdir -p "$prefix/drive_c/Garmin/Topo" "$prefix/drive_c/ProgramData/Garmin/Maps/Alpes.gmap"
  printf '\x50\x10\x00\x02\x00\xe8\x03\x64\x00Topo Nord\x00' >"$prefix/drive_c/Garmin/Topo/topo.tdb"
  printf '<ID>4242</ID>\n<TYP>alpes.typ</TYP>\n' >"$prefix/drive_c/ProgramData/Garmin/Maps/Alpes.gmap/info.xml"
  cat >"$prefix/system.reg" <<'REG'
WINE REGISTRY Version 2
#arch=win32
[Software\\Garmin\\MapSource\\Families\\Topo] 1700000000
"ID"=hex:e8,03
"TYP"="C:\\Garmin\\Topo\\topo.typ"
[Software\\Garmin\\MapSource\\Families\\Topo\\1] 1700000000
"LOC"="C:\\Garmin\\Topo"
"TDB"="C:\\Garmin\\Topo\\topo.tdb"
REG
  check "mapsets of a Wine prefix" 0 env WINEPREFIX="$prefix" "$cli" mapsets
  tab=$(printf '\t')
  grep -qxF "Topo Nord${tab}1000${tab}2${tab}C:\\Garmin\\Topo\\topo.typ${tab}Families\\Topo${tab}C:\\Garmin\\Topo" "$work/out" ||
    { echo "FAIL mapsets family row"; cat "$work/out"; failures=$((failures + 1)); }
  grep -qxF "Alpes.gmap${tab}4242${tab}${tab}alpes.typ${tab}Installed${tab}C:\\ProgramData\\Garmin\\Maps\\Alpes.gmap" "$work/out" ||
    { echo "FAIL mapsets installed row"; cat "$work/out"; failures=$((failures + 1)); }
  check "mapsets takes no argument" 2 "$cli" mapsets extra
fi
[ "$failures" -eq 0 ]
