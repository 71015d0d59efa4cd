#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (core instrumented with ASan/UBSan)
# and runs one of them for a given time, on inputs of at most 4 KB: small
# inputs reach the same code far faster.
#   scripts/fuzz.sh TARGET [SECONDS]    e.g. scripts/fuzz.sh fuzz_binary_reader 600
set -euo pipefail
target=${1:?usage: scripts/fuzz.sh TARGET [SECONDS]}
seconds=${2:-60}
root=$(cd "$(dirname "$0")/.." && pwd)
build="$root/build-fuzz"
flags="-fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_CXX_FLAGS="$flags" \
  -DMIRVANE_BUILD_FUZZ=ON -DMIRVANE_BUILD_TESTS=OFF -DMIRVANE_BUILD_APP=OFF -DMIRVANE_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" --target "$target"
corpus="$root/fuzz/corpus-$target"
mkdir -p "$corpus" "$root/fuzz/artifacts"
seeds=()
[ -d "$root/fuzz/seeds/$target" ] && seeds+=("$root/fuzz/seeds/$target")
"$build/fuzz/$target" -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2048 \
  -artifact_prefix="$root/fuzz/artifacts/" "$corpus" "${seeds[@]}"
