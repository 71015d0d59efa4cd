#!/usr/bin/env bash
# mirvane-cli end to end on the bundled sample: exit statuses, a decompile and
# compile round trip that keeps the objects, and damaged input.
set -u
cli=$1
sample=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() { echo "FAIL $1"; failures=$((failures + 1)); }
check() {  # check NAME EXPECTED_STATUS COMMAND...
  local name=$1 expected=$2
  shift 2
  "$@" >"$work/out" 2>"$work/err"
  local status=$?
  if [ "$status" -ne "$expected" ]; then fail "$name: status $status, expected $expected"; cat "$work/err"
  else echo "ok   $name"; fi
}
expect() {  # expect NAME COMMAND...: a check of the output or of the state left behind
  local name=$1
  shift
  if "$@"; then echo "ok   $name"; else fail "$name"; cat "$work/out"; fi
}
check "no arguments is a usage error" 2 "$cli"
check "roundtrip to 174" 0 "$cli" roundtrip "$sample" -o "$work/copy174.typ" --header-size 174
check "decompile" 0 "$cli" decompile "$sample" -o "$work/sample.txt"
check "compile" 0 "$cli" compile "$work/sample.txt" -o "$work/again.typ"
# diff: the same drawing through a text and back is 0, a changed colour 1, a
# missing file 2; lint: the sample is clean, a text without draw order is not.
check "diff binary against its compiled listing" 0 "$cli" diff "$sample" "$work/again.typ"
check "decompile in UTF-8" 0 "$cli" decompile "$sample" --encoding utf-8 -o "$work/utf8.txt"
expect "UTF-8 text has a byte order mark" cmp -s <(head -c 3 "$work/utf8.txt") <(printf '\xEF\xBB\xBF')
check "compile the UTF-8 text" 0 "$cli" compile "$work/utf8.txt" -o "$work/utf8.typ"
check "diff binary against its UTF-8 round trip" 0 "$cli" diff "$sample" "$work/utf8.typ"
check "unknown encoding is a usage error" 2 "$cli" decompile "$sample" --encoding latin9
sed '0,/^"1 c #[0-9A-Fa-f]\{6\}"/s//"1 c #123456"/' "$work/sample.txt" >"$work/recoloured.txt"
check "diff finds a changed colour" 1 "$cli" diff "$work/sample.txt" "$work/recoloured.txt"
check "diff of a missing file" 2 "$cli" diff "$sample" "$work/none.typ"
check "lint of the sample" 0 "$cli" lint "$sample"
printf '[_id]\nFID=0\nProductCode=1\n[end]\n[_polygon]\nType=0x01\nXpm="0 0 1 0"\n"a c #FF0000"\n[end]\n' >"$work/lint.txt"
check "lint finds problems" 1 "$cli" lint "$work/lint.txt"
expect "lint finds the draw order" grep -q "not in the draw order" "$work/out"
printf 'GARMIN TYP is not here' >"$work/bad.typ"
check "damaged file reads with a log" 1 "$cli" info "$work/bad.typ"
expect "damaged log text" grep -q "damaged" "$work/err"
printf '[_polygon]\nType=0x01\n[end]\n' >"$work/noid.txt"
check "compile without FID fails like the save" 2 "$cli" compile "$work/noid.txt" -o "$work/noid.typ"
# FID and product code are 16-bit: a value out of range stops the command and names the range.
check "roundtrip refuses --fid 70000" 2 "$cli" roundtrip "$sample" -o "$work/fid.typ" --fid 70000
expect "--fid 70000 names the range" grep -q "0 and 65535" "$work/err"
expect "--fid 70000 wrote no file" test ! -e "$work/fid.typ"
printf '[_id]\nFID=70000\nProductCode=1\n[End]\n' >"$work/bigfid.txt"
check "compile refuses FID=70000" 2 "$cli" compile "$work/bigfid.txt" -o "$work/bigfid.typ"
expect "FID=70000 names the range" grep -q "0 and 65535" "$work/err"
check "roundtrip keeps the top of the range" 0 \
  "$cli" roundtrip "$sample" -o "$work/top.typ" --fid 65535 --product-code 65535
check "info of the top of the range" 0 "$cli" info "$work/top.typ"
expect "FID 65535 after roundtrip" grep -q "FID:          65535" "$work/out"

# special: the file reads back with an empty log; the seed alone decides the bytes.
check "special polygon" 0 "$cli" special --kind polygon --from 0x010 --to 0x01f -o "$work/id_polygon.typ" --seed 5
expect "special polygon count" grep -q "Polygons:     512" <("$cli" info "$work/id_polygon.typ")
check "special again" 0 "$cli" special --kind polygon --from 0x010 --to 0x01f -o "$work/id_again.typ" --seed 5
# Bytes 14 to 20 of the header hold the date of the save.
expect "special with one seed gives one file" \
  cmp -s <(head -c 14 "$work/id_polygon.typ"; tail -c +22 "$work/id_polygon.typ") \
         <(head -c 14 "$work/id_again.typ"; tail -c +22 "$work/id_again.typ")
check "special refuses a range it does not offer" 2 "$cli" special --kind line --from 0x10 --to 0x30 -o "$work/x.typ"
expect "special wrote no refused file" test ! -e "$work/x.typ"

# mapsets: a Wine prefix with one family in its registry.
if [ "$(uname)" != Darwin ]; then
  prefix="$work/wine"
  mkdir -p "$prefix/drive_c/Garmin/Topo"
  printf '\x50\x10\x00\x02\x00\xe8\x03\x64\x00Topo Nord\x00' >"$prefix/drive_c/Garmin/Topo/topo.tdb"
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
  expect "mapsets family row" grep -qxF \
    "Topo Nord${tab}1000${tab}2${tab}C:\\Garmin\\Topo\\topo.typ${tab}Families\\Topo${tab}C:\\Garmin\\Topo" "$work/out"
fi

# Numbers follow the language.
check "info in French" 0 "$cli" --language Francais info "$sample"
expect "length with French digit grouping" grep -q "14 452 octets" "$work/out"

# Inputs that are no TYP file: each command refuses them with exit 2 and
# writes nothing, and never waits on a device or a pipe.
mkdir "$work/folder"
mkfifo "$work/pipe"
: >"$work/empty.typ"
printf 'GARMIN' >"$work/locked.typ"
chmod 000 "$work/locked.typ"
truncate -s 257M "$work/huge.typ"  # sparse: takes no disk
bad_inputs=("$work/folder" /dev/null /dev/zero "$work/pipe" "$work/huge.typ" "$work/empty.typ")
if ! cat "$work/locked.typ" >/dev/null 2>&1; then bad_inputs+=("$work/locked.typ")
else echo "skip unreadable input: this user reads files whatever their mode (root)"; fi
for input in "${bad_inputs[@]}"; do
  # An empty file is a file: info reads it and reports what it lacks.
  [ "$input" = "$work/empty.typ" ] && status=1 || status=2
  check "info $input" $status timeout 10 "$cli" info "$input"
  check "decompile $input" 2 timeout 10 "$cli" decompile "$input" -o "$work/out.txt"
  check "roundtrip $input" 2 timeout 10 "$cli" roundtrip "$input" -o "$work/out.typ"
  check "compile $input" 2 timeout 10 "$cli" compile "$input" -o "$work/out.typ"
  expect "nothing written from $input" test ! -e "$work/out.txt" -a ! -e "$work/out.typ"
done

# A read that finds no TYP never replaces an existing output.
cp "$sample" "$work/good.typ"
check "empty input keeps the old output" 2 "$cli" roundtrip "$work/empty.typ" -o "$work/good.typ"
expect "old output intact" cmp -s "$sample" "$work/good.typ"

# Output equal to input, by any name, only with --in-place.
cp "$sample" "$work/self.typ"
ln -s self.typ "$work/self-link.typ"
check "decompile over its input" 2 "$cli" decompile "$work/self.typ" -o "$work/self.typ"
check "roundtrip over its input through a link" 2 "$cli" roundtrip "$work/self-link.typ" -o "$work/self.typ"
expect "input intact" cmp -s "$sample" "$work/self.typ"
check "roundtrip --in-place" 0 "$cli" roundtrip "$work/self.typ" -o "$work/self.typ" --in-place

# Targets: devices and folders refused, links followed, modes kept,
# read-only files refused, no temporary left behind.
check "output to /dev/null refused" 2 "$cli" roundtrip "$sample" -o /dev/null
expect "/dev/null still a device" test -c /dev/null
check "output to a folder refused" 2 "$cli" roundtrip "$sample" -o "$work/folder"
expect "folder still empty" test -z "$(ls -A "$work/folder")"
: >"$work/target.typ"
chmod 600 "$work/target.typ"
ln -s target.typ "$work/link.typ"
check "output through a link" 0 "$cli" roundtrip "$sample" -o "$work/link.typ"
expect "link still a link" test -L "$work/link.typ"
expect "file behind the link written" test -s "$work/target.typ"
expect "mode 600 kept" test "$(stat -c %a "$work/target.typ")" = 600
printf 'old text' >"$work/ro.txt"
chmod 444 "$work/ro.txt"
check "read-only output refused" 2 "$cli" decompile "$sample" -o "$work/ro.txt"
expect "read-only file intact" test "$(cat "$work/ro.txt")" = "old text"

# Two saves to one target at once: each leaves a whole file.
"$cli" roundtrip "$sample" -o "$work/a.typ" --fid 1 && "$cli" roundtrip "$sample" -o "$work/b.typ" --fid 2
for i in 1 2 3 4 5 6 7 8 9 10; do
  "$cli" roundtrip "$work/a.typ" -o "$work/shared.typ" --fid 1 &
  "$cli" roundtrip "$work/b.typ" -o "$work/shared.typ" --fid 2 &
  wait
  "$cli" info "$work/shared.typ" >/dev/null 2>&1 || fail "concurrent saves left a broken file"
done
expect "no temporary left" test -z "$(find "$work" -name '.*.tmp')"

echo "$failures failed"
[ "$failures" -eq 0 ]
