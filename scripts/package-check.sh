#!/usr/bin/env bash
# Tries the Debian package on a system that has nothing else. See --help.
set -euo pipefail

usage() {
    cat <<'HELP'
usage: scripts/package-check.sh PACKAGE.deb [--house KV_HOUSE] [--suite SUITE] [--mirror URL]

Checks the package with lintian, makes a bare Debian in a folder of its own, installs the package there, starts the
terminal as its user, runs the kiosk's command line on a virtual screen, installs it over itself, removes and purges it.
Says what it did; ends with 1 when something failed. Everything it starts and makes is gone afterwards.

Builds nothing. Needs root, debootstrap, lintian and a Debian mirror.

  --house KV_HOUSE  the demo back end, built: the self-test goes through the pages against it
HELP
}

package="" house="" suite=bookworm mirror=http://deb.debian.org/debian
arguments=("$@")
while [ $# -gt 0 ]; do
    case $1 in
        --house) house=$(realpath "${2:?--house needs a program}"); shift 2 ;;
        --suite) suite=${2:?}; shift 2 ;;
        --mirror) mirror=${2:?}; shift 2 ;;
        --help | -h) usage; exit 0 ;;
        *) package=$(realpath "$1"); shift ;;
    esac
done
[ -f "$package" ] || { usage >&2; exit 2; }
[ "$(id -u)" -eq 0 ] || { echo "error: root is needed" >&2; exit 2; }

# Mounts, processes and shared memory of its own: nothing outlives the run, and a terminal on this machine isn't in the way.
if [ -z "${KV_PACKAGE_CHECK:-}" ]; then
    KV_PACKAGE_CHECK=1 exec unshare --mount --ipc --pid --fork --kill-child "$0" "${arguments[@]}"
fi

seed=$(dirname "$(realpath "$0")")/../house/seed/house.json
work=$(mktemp -d /tmp/kv-package-XXXXXX)
root=$work/root
state=var/lib/kv-panel
failures=0

finish() {
    kill $(jobs -p) 2>/dev/null || true
    wait || true
    umount "$root/proc" 2>/dev/null || true
    rm -rf --one-file-system "$work"
}
trap finish EXIT
trap 'exit 130' INT TERM

step() { printf '\033[1m== %s\033[0m\n' "$*"; }

# check TEXT COMMAND...
check() {
    local text=$1
    shift
    if "$@"; then
        echo "ok      $text"
    else
        echo "FAILED  $text"
        tail -n 10 "$(ls -t "$work"/*.log | head -n 1)" | sed 's/^/        /'
        failures=$((failures + 1))
    fi
}

plain=(PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive)
inside() { chroot "$root" env -i "${plain[@]}" HOME=/root "$@"; }
as_user() {
    chroot --userspec=kv-panel:kv-panel --groups=dialout,lp,video,tty "$root" env -i "${plain[@]}" HOME=/$state "$@"
}
apt() { inside apt-get -qq -y --no-install-recommends "$@" >>"$work/apt.log" 2>&1; }
is_gone() { ! [ -e "$root/$1" ] && ! [ -L "$root/$1" ]; }
owner_of() { inside stat -c '%a %U %G' "$1"; }

# until_true SECONDS COMMAND...
until_true() {
    local tries=$(($1 * 10))
    shift
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.1
    done
}

logged() { cat "$root"/var/log/kv-panel/*.log 2>/dev/null | grep -q "$1"; }

# The namespace holds no other terminal than ours.
end_terminal() {
    local process
    for process in "$root"/proc/[0-9]*; do
        [ "$(cat "$process/comm" 2>/dev/null)" != kv_panel ] || kill "${process##*/}"
    done
}

step "lintian"
check "no errors, no warnings" sh -c 'lintian --allow-root --fail-on error,warning "$1" >"$2" 2>&1' sh "$package" "$work/lintian.log"

step "A bare $suite"
debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$work/debootstrap.log" || { tail "$work/debootstrap.log"; exit 1; }
mount -t proc proc "$root/proc"
cp "$package" "$root/root/package.deb"

step "Installing the package, without what it only recommends"
check "installs" apt install /root/package.deb
for folder in /$state /$state/.config /var/log/kv-panel; do
    check "$folder is its user's" [ "$(owner_of "$folder")" = "2770 kv-panel kv-panel" ]
done
check "tells its version" as_user sh -c "kv-panel --version | grep -q '^kv_panel [0-9]'"

step "Starting it as its user, without a back end"
touch "$work/started"
no_screen=(QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software)
as_user "${no_screen[@]}" KV_PANEL_API_URLS=http://127.0.0.1:9 timeout 60 kv-panel >"$work/terminal.log" 2>&1 &
check "the log tells in Chinese that nobody answers" until_true 30 logged 请求服务器失败
end_terminal
code=0; wait $! || code=$?
check "ends when it is told to, with 0" [ $code -eq 0 ]
check "made its settings" [ -s "$root/$state/kv_panel_v2.db" ]
inside useradd -G kv-panel desk
check "a member of its group may write settings and log" \
    inside su desk -c "test -w /$state/kv_panel_v2.db && test -w /var/log/kv-panel/*.log"

if [ -n "$house" ]; then
    step "The self-test against the demo back end"
    "$house" --seed "$seed" --url-file "$work/url" --log "$work/house.log" >/dev/null &
    until_true 10 test -s "$work/url"
    as_user sh -c "umask 077; printf 'authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n' >/$state/.config/KV_PANEL_V2.ini"
    code=0
    as_user "${no_screen[@]}" KV_PANEL_API_URLS="$(cat "$work/url")" KV_PANEL_PASSWORD=1001 \
        timeout 300 kv-panel --selftest --staff 1001 >"$work/selftest.log" 2>&1 || code=$?
    grep -v '^ok' "$work/selftest.log" | sed 's/^/        /'
    check "the self-test ends with 0" [ $code -eq 0 ]
fi

step "The kiosk's command line on a virtual screen"
check "what it needs installs" apt install xinit xvfb x11-utils systemd udev
unit=/lib/systemd/system/kv-panel-kiosk.service
check "systemd takes the unit" inside systemd-analyze verify --man=no $unit
inside systemctl enable kv-panel-kiosk >>"$work/apt.log" 2>&1
# The X server's own arguments are all that is changed; the screen is one that this machine doesn't use.
client=$(sed -n 's/^ExecStart=\(.*\) -- .*/\1/p' "$root$unit")
server_options=$(sed -n 's/^ExecStart=.* -keeptty //p' "$root$unit")
display=:$((100 + RANDOM % 800))
as_user timeout 60 $client -- /usr/bin/Xvfb $display -screen 0 1366x768x24 $server_options >"$work/xinit.log" 2>&1 &
window_fills_screen() { as_user DISPLAY=$display xwininfo -name Kv_Panel_V2 | grep -q -- '-geometry 1366x768+0+0'; }
check "the terminal fills the screen" until_true 30 window_fills_screen
end_terminal
wait $! || true

step "What it wrote"
elsewhere=$(find "$root" -xdev -user "$(inside id -u kv-panel)" -newer "$work/started" ! -path "$root/$state*" \
    ! -path "$root/var/log/kv-panel*" ! -path "$root/tmp*" | sed "s|^$root||")
[ -z "$elsewhere" ] || echo "        $elsewhere"
check "nothing but settings, log and temporary files" [ -z "$elsewhere" ]

step "Installing it over itself"
echo KV_PANEL_COM1=/dev/ttyS3 >>"$root/etc/default/kv-panel"
before=$(inside sha256sum /etc/default/kv-panel /$state/kv_panel_v2.db)
check "installs" apt install --reinstall /root/package.deb
check "settings and environment are kept" [ "$(inside sha256sum /etc/default/kv-panel /$state/kv_panel_v2.db)" = "$before" ]

step "Removing it"
wanted=etc/systemd/system/multi-user.target.wants/kv-panel-kiosk.service
check "removes" apt remove kv-panel
check "the program is gone" is_gone usr/lib/kv-panel
check "the settings are kept" [ -e "$root/$state/kv_panel_v2.db" ]
check "purges" apt purge kv-panel
rm "$root/root/package.deb"
check "the purge takes the link that enabled the kiosk" is_gone $wanted
left=$(find "$root" -xdev -iname '*kv[-_]panel*' ! -path "$root/tmp/*" | sed "s|^$root||")
[ -z "$left" ] || echo "        $left"
check "the purge leaves nothing but the user" [ -z "$left" ]

step "$failures failed"
[ "$failures" -eq 0 ]
