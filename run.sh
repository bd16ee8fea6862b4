#!/usr/bin/env bash
# Runs the terminal against the demo back end and a broker of its own. See --help.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

usage() {
    cat <<'HELP'
usage: ./run.sh [--rooms N] [--others N] [--shot FILE | --tour FOLDER]

Installs what is missing, builds, starts a mosquitto broker, the demo back end and the terminal on ports of their own,
and ends all of it when the terminal ends. Without a display a virtual one is started.

  --rooms N    size of the demo house
  --others N   changes a second by the house's other terminals (0.2; 0 for none)
  --shot FILE  saves a picture of the screen after start-up and ends
  --tour DIR   walks the terminal by clicks like the front desk's evening, saves pictures of every step and ends

Settings and identity of the demo terminal are kept in build/demo, its slips in build/demo/slips; remove the folder to
start afresh.
HELP
}

shot="" tour="" others=0.2 house_options=()
while [ $# -gt 0 ]; do
    case $1 in
        --rooms) house_options+=(--rooms "${2:?--rooms needs a number}"); shift 2 ;;
        --others) others=${2:?--others needs a number}; shift 2 ;;
        --tour) tour=$(realpath -m "${2:?--tour needs a folder}") others=0; shift 2 ;;
        --shot) shot=$(realpath -m "${2:?--shot needs a file}"); shift 2 ;;
        --help | -h) usage; exit 0 ;;
        *) usage >&2; exit 2 ;;
    esac
done

# A build folder that is given is used as it is.
build_folder=${KV_PANEL_BUILD:-}
if [ -z "$build_folder" ]; then
    build_folder=$PWD/build
    [ -z "$tour" ] || demo_packages+=(xdotool)
    install_missing "${build_packages[@]}" "${run_packages[@]}" "${demo_packages[@]}"
    build release kv_panel kv_house kv_card RF003Reader
fi

# Everything that is started here is ended here, and nothing else.
bin=$build_folder/bin sim=$build_folder/sim demo=${KV_PANEL_DEMO:-$build_folder/demo} house_seed=$PWD/house/seed/house.json
run=$(mktemp -d) started=()
end_all() {
    trap - EXIT
    trap '' INT TERM HUP # a second one must not keep the rest from being ended
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2>/dev/null || continue
        wait "${started[i]}" 2>/dev/null || continue
    done
    rm -rf "$run"
}
trap end_all EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

wait_for() { # wait_for WHAT COMMAND...: up to 20 s
    local what=$1
    shift
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    fail "$what did not start"
}

port_answers() { (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

free_port() {
    local port
    while :; do
        port=$((20000 + RANDOM % 12000)) # below what the system hands out itself
        port_answers "$port" || { echo "$port"; return; }
    done
}

start_broker() {
    say "Starting the broker"
    broker_port=$(free_port)
    local mosquitto=mosquitto
    command -v mosquitto >/dev/null || mosquitto=/usr/sbin/mosquitto
    mosquitto_passwd -c -b "$run/passwords" terminal demo-broker 2>"$run/passwd.log" || fail "$(cat "$run/passwd.log")"
    cat > "$run/mosquitto.conf" <<CONF
listener $broker_port 127.0.0.1
allow_anonymous false
password_file $run/passwords
persistence false
user $(id -un)
log_dest file $run/mosquitto.log
CONF
    "$mosquitto" -c "$run/mosquitto.conf" 2>>"$run/mosquitto.log" &
    started+=($!)
    wait_for "the broker" port_answers "$broker_port"
}

# On loopback a line answers in no time, which counts as none at all; hence the delay.
start_house() {
    say "Starting the demo back end"
    "$bin/kv_house" --seed "$house_seed" --url-file "$run/url" --mqtt-url "tcp://127.0.0.1:$broker_port" \
        --mqtt-user terminal --mqtt-pwd demo-broker --fault /line/check=delay:20 --others "$others" --log "$run/house.log" \
        "${house_options[@]}" >/dev/null &
    started+=($!)
    wait_for "the demo back end" test -s "$run/url"
    house_url=$(cat "$run/url")
}

start_display() {
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && return
    say "No display here: starting a virtual one of 1920 x 1080"
    mkfifo "$run/display"
    Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp 3>"$run/display" 2>"$run/xvfb.log" &
    started+=($!)
    export DISPLAY
    DISPLAY=:$(head -n 1 "$run/display")
    openbox >"$run/openbox.log" 2>&1 &
    started+=($!)
}

prepare_terminal() {
    mkdir -p "$demo/config" "$run/runtime"
    chmod 700 "$run/runtime"
    export XDG_CONFIG_HOME=$demo/config XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$run/runtime} LC_ALL=C.UTF-8
    export KV_PANEL_API_URLS=$house_url KV_PANEL_PREVIEW_DIR=$demo/slips QT_QUICK_BACKEND=${QT_QUICK_BACKEND:-software}
    # The identity that a shop enters once; a line that an earlier run chose is gone with its port.
    printf 'authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n' > "$XDG_CONFIG_HOME/KV_PANEL_V2.ini"
}

# Both card readers: a pair of pseudo terminals for the staff reader, a stand-in for the hand card reader's library.
start_readers() {
    staff_reader=$run/staff-reader hand_reader=$run/hand-reader
    socat "PTY,link=$run/staff-line,rawer" "PTY,link=$staff_reader,rawer" 2>"$run/socat.log" &
    started+=($!)
    for _ in $(seq 30); do
        [ -e "$staff_reader" ] && break
        sleep 0.1
    done
    [ -e "$staff_reader" ] || say "No pseudo terminals here: going on without a staff reader"
    export KV_PANEL_COM1=$run/staff-line KV_SIM_HAND_SOCKET=$hand_reader
    export LD_LIBRARY_PATH=$sim${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}
    /usr/bin/python3 - "$demo/kv_panel_v2.db" <<'PYTHON'
import sqlite3, sys
database = sqlite3.connect(sys.argv[1])
database.execute("CREATE TABLE IF NOT EXISTS sys_config (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, "
                 "code VARCHAR(128) NOT NULL UNIQUE, value VARCHAR(128) NOT NULL DEFAULT(''))")
for code, value in (("staff_device_com", "COM1"), ("hand_card_device", "1"), ("print", "预览打印机"),
                    ("is_open_room_print", "1"), ("leave_room_print_count", "1")):
    database.execute("DELETE FROM sys_config WHERE code = ?", (code,))
    database.execute("INSERT INTO sys_config (code, value) VALUES (?, ?)", (code, value))
database.commit()
PYTHON
    say "To present a card, from another shell:"
    echo "   $sim/kv_card staff $staff_reader 94780011     # staff, by the numbers in README.md"
    echo "   $sim/kv_card hand $hand_reader SERIAL          # a guest's hand card"
}

house_started_terminal() {
    /usr/bin/python3 - "$house_url" <<'PYTHON'
import json, sys, urllib.request
stats = json.load(urllib.request.urlopen(sys.argv[1] + "/_control/stats", timeout=5))
sys.exit(0 if stats.get("/baa00/getSysInitByAuthCode", {}).get("executed", 0) else 1)
PYTHON
}

shot_is_painted() {
    import -window root "$shot"
    [ "$(identify -format '%[fx:mean > 0.05]' "$shot")" = 1 ]
}

start_broker
start_house
start_display
prepare_terminal
start_readers

walk() {
    rm -rf "$demo/slips" "$tour"
    wait_for "the terminal" test -S "$run/places"
    /usr/bin/python3 "$tools/tour.py" "$run/places" "$tour" "$demo/slips" \
        "'$sim/kv_card' staff '$staff_reader' 94780011" "$house_url"
}

say "Starting the terminal"
tools=$PWD/scripts
cd "$demo"
"$bin/kv_panel" --places "$run/places" &
terminal=$!
started+=("$terminal")
if [ -n "$shot" ]; then
    wait_for "the terminal" house_started_terminal
    sleep 2 # the main page turns in
    wait_for "the picture" shot_is_painted
    say "Picture saved: $shot"
    exit 0
fi
if [ -n "$tour" ]; then
    walk
    exit
fi
code=0
wait "$terminal" || code=$?
[ "$code" -eq 255 ] && fail "the terminal ended at once: another one is running, or see build/bin/log"
exit "$code"
