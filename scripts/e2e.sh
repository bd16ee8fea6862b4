#!/usr/bin/env bash
# Walks the whole road through the real program on a virtual screen: scripts/e2e.sh BUILD_FOLDER. Fails on a step that
# can't be done, on any complaint of the pages in the log, and on a process that is left behind.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

build_folder=$(realpath "${1:?the build folder}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/tmp" "$work/runtime"
chmod 700 "$work/runtime"

# A copy of the program, so that its log is this run's alone; each process of the run carries the mark.
mkdir -p "$work/build/bin/res"
ln -s "$build_folder/sim" "$work/build/sim"
ln -s "$build_folder/bin/res/fonts" "$work/build/bin/res/fonts"
for file in kv_panel kv_house libPOSDLL.so; do
    cp "$build_folder/bin/$file" "$work/build/bin/"
done
export KV_E2E_MARK=$work
env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM TMPDIR="$work/tmp" XDG_RUNTIME_DIR="$work/runtime" \
    KV_PANEL_BUILD="$work/build" KV_PANEL_DEMO="$work/demo" ./run.sh --tour "$work/pictures" || {
    [ -z "${KV_E2E_KEEP:-}" ] || cp -r "$work" "$KV_E2E_KEEP"
    fail "the road broke off"
}

complaints='qrc:.*(Error|[Ww]arning|Unable to assign|[Bb]inding loop|[Cc]annot|is not )|QML [A-Z]'
if grep -E "$complaints" "$work"/build/bin/log/*.log; then
    fail "the pages complained"
fi
grep -q "mqtt connected" "$work"/build/bin/log/*.log || fail "the log doesn't tell of the broker"
[ "$(find "$work/pictures" -name '*.png' | wc -l)" -ge 20 ] || fail "pictures are missing"
[ "$(find "$work/demo/slips" -name '*.txt' | wc -l)" -eq 2 ] || fail "there should be two slips"
sleep 1 # what was ended may take a moment
left=$(grep -lz "^KV_E2E_MARK=$work$" /proc/[0-9]*/environ 2>/dev/null | grep -v -e "/$$/" -e "/self/" || true)
for environ in $left; do
    pid=${environ#/proc/} pid=${pid%/environ}
    [ "$(ps -o ppid= -p "$pid" 2>/dev/null | tr -d ' ')" = $$ ] && continue # this script's own helpers
    [ -d "/proc/$pid" ] && fail "left behind: $(tr '\0' ' ' < "/proc/$pid/cmdline")"
done
say "The whole road was walked"
