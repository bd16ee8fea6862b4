#!/usr/bin/env bash
# Fuzzes the reading of replies. ./scripts/fuzz.sh [--runs N | --seconds N]; what it finds is left in build-fuzz/found.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

limit=(-runs=20000)
case ${1:-} in
    "") ;;
    --runs) limit=(-runs="${2:?}") ;;
    --seconds) limit=(-max_total_time="${2:?}") ;;
    *) echo "usage: scripts/fuzz.sh [--runs N | --seconds N]" >&2; exit 2 ;;
esac

install_missing "${build_packages[@]}" "${fuzz_packages[@]}"
cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang \
    -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKV_PANEL_FUZZ=ON >/dev/null
cmake --build build-fuzz --target fuzz_records

mkdir -p build-fuzz/corpus build-fuzz/found
build-fuzz/bin/fuzz_records --dictionary > build-fuzz/keys.dict
# Leaks are judged elsewhere: Qt's own parser loses an object whose key is repeated.
export ASAN_OPTIONS=detect_leaks=0
build-fuzz/bin/fuzz_records "${limit[@]}" -seed=1 -detect_leaks=0 -max_len=2000 -timeout=10 -print_final_stats=1 \
    -dict=build-fuzz/keys.dict -artifact_prefix=build-fuzz/found/ build-fuzz/corpus tests/fuzz/corpus
