#!/usr/bin/env bash
# Runs the two commands as somebody who has just cloned the tree on a bare Debian. See --help.
set -euo pipefail

usage() {
    cat <<'HELP'
usage: scripts/newcomer-check.sh [--as-root] [--quick | --only "TEST..."] [--ccache FOLDER] [--report FILE] [--suite SUITE]
                                 [--mirror URL]

Makes a bare Debian in a folder of its own, without a hosts file, clones what is committed here into the home of a user
there who may use sudo, and runs ./run.sh and ./test.sh as that user. Looks at what they install, take and leave behind,
and at what a second ./run.sh says. Ends with 1 when something failed. Everything it starts and makes is gone afterwards.

Needs root, a Debian mirror, the npm registry, 6 GB of disk, and more than half an hour on two processors.

  --as-root      runs them as root, where there is no sudo
  --quick        ./test.sh --quick
  --only TESTS   in place of ./test.sh only these of its tests, built and run by hand
  --ccache DIR   lets the compilers there read this machine's cache of compiled files, for a machine without the time;
                 the report says so
  --report FILE  writes the figures to FILE (docs/newcomer.md)
HELP
}

user=newcomer only="" cache="" test_options=() report="" suite=bookworm mirror=http://deb.debian.org/debian
arguments=("$@")
while [ $# -gt 0 ]; do
    case $1 in
        --as-root) user=root; shift ;;
        --quick) test_options=(--quick); shift ;;
        --only) only=${2:?--only needs the names of tests}; shift 2 ;;
        --ccache) cache=$(realpath "${2:?--ccache needs a folder}"); shift 2 ;;
        --report) report=$(realpath -m "${2:?--report needs a file}"); shift 2 ;;
        --suite) suite=${2:?}; shift 2 ;;
        --mirror) mirror=${2:?}; shift 2 ;;
        --help | -h) usage; exit 0 ;;
        *) usage >&2; exit 2 ;;
    esac
done
[ "$(id -u)" -eq 0 ] || { echo "error: root is needed" >&2; exit 2; }
. "$(dirname "$0")/common.sh"
install_missing debootstrap git

# Mounts, processes and shared memory of its own: nothing outlives the run, and nothing of this machine is in the way.
if [ -z "${KV_NEWCOMER_CHECK:-}" ]; then
    KV_NEWCOMER_CHECK=1 exec unshare --mount --ipc --pid --mount-proc --fork --kill-child "$0" "${arguments[@]}"
fi

tree=$(git -C "$(dirname "$0")" rev-parse --show-toplevel)
work=$(mktemp -d /tmp/kv-newcomer-XXXXXX)
root=$work/root
failures=0
rows=()

finish() {
    for mounted in ccache proc dev/pts dev/shm; do
        umount --lazy "$root/$mounted" 2>/dev/null || true
    done
    rm -rf --one-file-system "$work"
}
trap finish EXIT
trap 'exit 130' INT TERM

# check TEXT COMMAND...
check() {
    local text=$1
    shift
    if "$@"; then
        echo "ok      $text"
    else
        echo "FAILED  $text"
        failures=$((failures + 1))
    fi
}

inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"; }
# A command at the top of the clone, in a login shell of the user.
typed() { inside su - $user -c "cd kv_panel && ${ca:+export NODE_EXTRA_CA_CERTS=$ca && }$*"; }
packages() { inside dpkg-query -W -f '${Package}\n' | wc -l; }
megabytes() { { du -sm --one-file-system --exclude "$root/ccache" "$@" 2>/dev/null || true; } | awk '{ sum += $1 } END { print sum + 0 }'; }
fetched() { megabytes "$root/var/cache/apt/archives" "$root/var/lib/apt/lists"; }

# timed NAME COMMAND: runs it, and notes what it took.
timed() {
    local name=$1 before_packages before_fetched before_disk begin=$SECONDS code=0
    shift
    before_packages=$(packages) before_fetched=$(fetched) before_disk=$(megabytes "$root")
    say "$name"
    typed "$*" >"$work/typed.log" 2>&1 || code=$?
    [ $code -eq 0 ] || tail -n 40 "$work/typed.log" | sed 's/^/        /'
    check "ends with 0" [ $code -eq 0 ]
    rows+=("| \`$name\` | $((SECONDS - begin)) s | $(($(packages) - before_packages)) | $(($(fetched) - before_fetched)) MB | $(($(megabytes "$root") - before_disk)) MB |")
    echo "        ${rows[-1]}"
}

say "A bare $suite, a clone of $(git -C "$tree" rev-parse --short HEAD)"
extra=git,ca-certificates
[ $user = root ] || extra+=,sudo
debootstrap --variant=minbase --include=$extra "$suite" "$root" "$mirror" >"$work/debootstrap.log" || { tail "$work/debootstrap.log"; exit 1; }
mount -t proc proc "$root/proc"
mount -t devpts -o newinstance,ptmxmode=0666,mode=0620,gid=5 devpts "$root/dev/pts"
mkdir -p "$root/dev/shm"
mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
ln -sf pts/ptmx "$root/dev/ptmx"
cp /etc/resolv.conf "$root/etc/resolv.conf"
rm -f "$root/etc/hosts"
# A network that reads along has a certificate of its own.
ca=""
if [ -n "${NODE_EXTRA_CA_CERTS:-}" ]; then
    ca=/etc/ssl/certs/of-this-network.pem
    cp "$NODE_EXTRA_CA_CERTS" "$root$ca"
fi
if [ $user != root ]; then
    inside useradd -m -s /bin/bash $user
    echo "$user ALL=(ALL) NOPASSWD: ALL" >"$root/etc/sudoers.d/$user"
fi
home=$(inside getent passwd $user | cut -d: -f6)
if [ -n "$cache" ]; then
    mkdir "$root/ccache"
    mount --bind "$cache" "$root/ccache"
    mount -o remount,bind,ro "$root/ccache"
    printf '%s\n' 'cache_dir = /ccache' 'read_only = true' 'temporary_dir = /tmp' "base_dir = $home" 'hash_dir = false' \
        'sloppiness = include_file_ctime, include_file_mtime, pch_defines, time_macros' >"$root/etc/ccache.conf"
fi
git clone -q --depth 1 "file://$tree" "$root$home/kv_panel"
inside chown -R $user: "$home/kv_panel"
before=$(cd "$root$home" && find . -path ./kv_panel -prune -o -print | sort)

timed "./run.sh --shot FILE" ./run.sh --shot /tmp/shot.png
check "there is a picture" [ -s "$root/tmp/shot.png" ]
timed "./run.sh --shot FILE, again" ./run.sh --shot /tmp/shot.png

say "A second ./run.sh while one runs"
typed 'echo $$ >/tmp/first; exec ./run.sh' >"$work/first.log" 2>&1 &
first=$!
lock=kv_panel/build/demo/config/KV_PANEL_V2.lock
for _ in $(seq 600); do
    ! is_locked "$root$home/$lock" || break
    sleep 0.2
done
begin=$SECONDS code=0
typed ./run.sh >"$work/second.log" 2>&1 || code=$?
check "ends at once, with 1" [ $code -eq 1 -a $((SECONDS - begin)) -le 5 ]
check "says that one runs" grep -q "runs already" "$work/second.log"
check "the first one has told the house's address" grep -q "http://127.0.0.1:[0-9]*/_control/" "$work/first.log"
kill "$(cat "$root/tmp/first")"
wait $first || true

say "What a tour deletes"
typed "mkdir /tmp/tour && cd /tmp/tour && touch holiday.png 01-main-page.png && echo 01-main-page.png >tour.txt"
typed "cd scripts && /usr/bin/python3 -Bc 'import pathlib, tour; tour.remove_earlier(pathlib.Path(\"/tmp/tour\"))'" || true
check "its own pictures and nobody else's" [ "$(ls "$root/tmp/tour" | xargs)" = "holiday.png tour.txt" ]

name="./test.sh${test_options[*]:+ ${test_options[*]}}"
if [ -z "$only" ]; then
    timed "$name" "$name"
else
    targets=$(tr ' ' '\n' <<<"$only" | grep ^tst_ | xargs)
    timed "$only" "bash -c 'set -eu; . scripts/common.sh; install_missing \"\${demo_packages[@]}\" \"\${hand_packages[@]}\"
        cmake --build build --target kv_panel kv_house kv_card RF003Reader $targets
        ctest --test-dir build --output-on-failure -R \"^(${only// /|})\\\$\"'"
fi

say "What is left behind"
check "no process" [ -z "$(pgrep -x 'mosquitto|socat|Xvfb|openbox|kv_panel|kv_house' | xargs)" ]
enabled=$(find "$root/etc/systemd/system" "$root"/etc/rc[2-5].d -name 'mosquitto.service' -o -name 'S*mosquitto')
check "none is enabled" [ -z "$enabled" ]
check "no lock of a serial port" [ -z "$(find "$root/run/lock" -name 'LCK*')" ]
check "in the tree nothing but build folders" \
    [ "$(inside git -c safe.directory='*' -C "$home/kv_panel" status --porcelain --ignored | grep -v '^!! build' | xargs)" = "" ]
after=$(cd "$root$home" && find . -path ./kv_panel -prune -o -print | sort)
# Caches: of the compiler and of npm; and what sudo remembers.
left=$(comm -13 <(echo "$before") <(echo "$after") | grep -vE '^\./(\.cache(/ccache.*)?|\.config(/ccache.*)?|\.npm.*|\.sudo_as_admin_successful)$' || true)
[ -z "$left" ] || echo "$left" | head -20 | sed 's/^/        /'
check "in the home folder nothing but caches" [ -z "$left" ]
sizes="build folder $(megabytes "$root$home/kv_panel/build") MB, ~/.cache/ccache $(megabytes "$root$home/.cache/ccache") MB, ~/.npm $(megabytes "$root$home/.npm") MB"
echo "        $sizes"

if [ -n "$report" ]; then
    {
        printf '# A newcomer'"'"'s machine\n\nWhat the two commands take on a bare Debian with nothing but git%s, without a hosts file. Made by\n\n' \
            "$([ $user = root ] || echo " and sudo")"
        printf '`scripts/newcomer-check.sh%s`\n\nCommit %s, Debian %s, %s processors, %s; %s failed.\n\n' \
            "$(printf ' %s' "${arguments[@]}")" "$(git -C "$tree" rev-parse --short HEAD)" "$(cat "$root/etc/debian_version")" "$(nproc)" "$(date +%F)" $failures
        printf '| command | time | packages installed | fetched by apt | disk |\n|---|---|---|---|---|\n'
        printf '%s\n' "${rows[@]}"
        [ -z "$cache" ] || printf '\nThe compilers found most of their results in a cache; without it the first build takes longer.\n'
        printf '\nLeft behind: %s.\n' "$sizes"
    } >"$report"
fi
say "$failures failed"
[ "$failures" -eq 0 ]
