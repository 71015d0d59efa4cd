#!/usr/bin/env bash
# Whole-process times of mirvane-cli compile and decompile on the largest
# shared files against mkgmap compiling the same text, and what opening the
# largest binary adds to a start of the desktop program. Prints milliseconds
# and the ratios.
#   bash bench/compare_mkgmap.sh [BUILD_DIR] [RUNS]
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$here/build}"
runs="${2:-15}"
corpus="$here/../shared/corpus"
cli="$build/cli/mirvane-cli"
app="$build/app/mirvane"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

command -v mkgmap >/dev/null || { echo "mkgmap is missing: apt-get install -y mkgmap" >&2; exit 2; }
[ -x "$cli" ] || { echo "no $cli: build first" >&2; exit 2; }

largest() { ls -S "$1" | head -1; }
text="$corpus/text/$(largest "$corpus/text")"
binary="$corpus/binary/$(largest "$corpus/binary")"
codepage="$(grep -a -i -m1 '^codepage *=' "$text" | tr -dc '0-9')"
codepage="${codepage:-1252}"

# Wall time in ms of running "$@" $runs times (exit status 1, a read log,
# still counts as a run): the mean from perf when it is installed, which adds
# nothing to the process, else the median of the shell's own clock, which
# adds the shell's fork to each run.
wall_ms() {
    if command -v perf >/dev/null; then
        perf stat -r "$runs" "$@" 2>&1 >/dev/null | awk '/seconds time elapsed/ {printf "%.1f", $1 * 1000}'
        return
    fi
    local times=()
    for _ in $(seq "$runs"); do
        local start end
        start=$(date +%s%N)
        "$@" >/dev/null 2>&1 || [ $? -eq 1 ]
        end=$(date +%s%N)
        times+=($(( (end - start) / 1000 )))
    done
    printf '%s\n' "${times[@]}" | sort -n | awk '{a[NR]=$1} END {printf "%.1f", a[int((NR+1)/2)]/1000}'
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN {printf "%.0f", a / b}'; }

echo "text:   $(basename "$text") ($(stat -c %s "$text") bytes, code page $codepage)"
echo "binary: $(basename "$binary") ($(stat -c %s "$binary") bytes)"
compile=$(wall_ms "$cli" compile "$text" -o "$work/m.typ")
decompile=$(wall_ms "$cli" decompile "$binary" -o "$work/m.txt")
mkgmap_runs=$runs; runs=$(( runs < 5 ? runs : 5 ))
mkgmap=$(wall_ms mkgmap --output-dir="$work/mk" --code-page="$codepage" --family-id=1234 --product-id=1 "$text")
runs=$mkgmap_runs
echo "mirvane-cli compile:   $compile ms"
echo "mirvane-cli decompile: $decompile ms"
echo "mkgmap compile:        $mkgmap ms"
echo "compile ratio:   $(ratio "$mkgmap" "$compile")x faster than mkgmap"
echo "decompile ratio: $(ratio "$mkgmap" "$decompile")x faster than mkgmap compiling the text"

if [ -x "$app" ]; then
    export QT_QPA_PLATFORM=offscreen
    empty=$(wall_ms "$app" --screenshot "$work/e.png")
    opened=$(wall_ms "$app" --screenshot "$work/o.png" "$binary")
    echo "desktop start, empty:       $empty ms"
    echo "desktop start, with binary: $opened ms (opening adds $(awk -v a="$opened" -v b="$empty" 'BEGIN {printf "%.1f", a - b}') ms)"
fi
