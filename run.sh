#!/usr/bin/env bash
# Runs the terminal against the demo back end and a broker of its own. See --help.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

usage() {
    cat <<'HELP'
usage: ./run.sh [--rooms N] [--items N] [--others N] [--room-mode] [--two] [--size WxH] [--shot FILE | --tour FOLDER]

Installs what is missing, builds, starts a mosquitto broker, the demo back end and the terminal on ports of their own,
and ends all of it when the terminal ends. Without a display a virtual one is started.

  --rooms N    size of the demo house
  --items N    number of goods, where that is more than a shop's 300
  --others N   changes a second by the house's other terminals (0.2; 0 for none)
  --room-mode  a house without hand cards, in which a room's number is its card
  --two        a second terminal beside it, in a window like the first: two stations at one call queue
  --size WxH   size of the virtual display (1920x1080), where there is no other
  --shot FILE  saves a picture of the screen after start-up and ends
  --tour DIR   walks the terminal by clicks like the front desk's evening, saves pictures of every step, then of
               every page and dialog, and ends. Of what is in the folder only an earlier tour's pictures are deleted

Settings and identity of the demo terminal are kept in build/demo, its slips in build/demo/slips; remove the folder to
start afresh.
HELP
}

options=() tour=""
while [ $# -gt 0 ]; do
    case $1 in
        --rooms | --items | --others | --size) options+=("$1" "${2:?$1 needs a value}"); shift 2 ;;
        --room-mode | --two) options+=("$1"); shift ;;
        --tour) tour=1 options+=("$1" "$(realpath -m "${2:?--tour needs a folder}")"); shift 2 ;;
        --shot) options+=("$1" "$(realpath -m "${2:?--shot needs a file}")"); shift 2 ;;
        --help | -h) usage; exit 0 ;;
        *) usage >&2; exit 2 ;;
    esac
done

# The terminal would end at once; why it did is told before anything is built.
lock=build/demo/config/KV_PANEL_V2.lock
! is_locked "$lock" || fail "the terminal of this demonstration runs already (it holds $lock)"

[ -z "$tour" ] || demo_packages+=("${hand_packages[@]}")
install_missing "${build_packages[@]}" "${run_packages[@]}" "${demo_packages[@]}"
build release kv_panel kv_house kv_card RF003Reader
exec scripts/demo.py build build/demo "${options[@]}"
