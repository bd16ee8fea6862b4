#!/usr/bin/env bash
# Pictures for the eye of every page, empty and crowded: the tests of the pages walk their roads on a virtual screen and
# take them. ./scripts/pictures.sh FOLDER [WIDTHxHEIGHT]
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

folder=$(realpath -m "${1:?a folder for the pictures}") size=${2:-1920x1080}
install_missing "${build_packages[@]}" "${run_packages[@]}" "${demo_packages[@]}"
tests=(tst_shell tst_dialogs tst_board tst_room_dialogs tst_sales tst_till tst_clock tst_queue tst_counters tst_settings_page)
build release "${tests[@]}" kv_house

mkdir -p "$folder"
runtime=$(mktemp -d)
trap 'rm -rf "$runtime"' EXIT
chmod 700 "$runtime"
export QT_PLUGIN_PATH=$PWD/build/tests/plugins # a voice that is the same everywhere
export KV_PICTURES=$folder XDG_RUNTIME_DIR=$runtime QT_QUICK_BACKEND=software LC_ALL=C.UTF-8
for test in "${tests[@]}"; do
    say "Walking $test at $size"
    xvfb-run -a -s "-screen 0 ${size}x24" bash -c 'openbox >/dev/null 2>&1 & "$1" >"$2/log" 2>&1 || { tail "$2/log"; exit 1; }' \
        _ "build/tests/$test" "$runtime"
done
