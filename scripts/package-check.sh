#!/usr/bin/env bash
# Tries the Debian package on a system that has nothing else. See --help.
set -euo pipefail

usage() {
    cat <<'HELP'
usage: scripts/package-check.sh PACKAGE.deb [--house KV_HOUSE] [--suite SUITE] [--mirror URL]

Checks the package with lintian, makes a bare Debian in a folder of its own, installs the package there, starts the
terminal as its user and as root, runs the kiosk's command line on a virtual screen, boots that Debian with the kiosk
enabled, installs the package over itself, also with links in its user's folder, removes and purges it. Says what it did; ends with 1 when something failed. Everything it
starts and makes is gone afterwards, but for debootstrap, lintian and systemd-nspawn, which it installs when they are missing.

Builds nothing; scripts/package.sh does. Needs root and a Debian mirror.

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

. "$(dirname "$0")/common.sh"
install_missing debootstrap lintian systemd-container

# Mounts, processes and shared memory of its own: nothing outlives the run, and a terminal on this machine isn't in the way.
if [ -z "${KV_PACKAGE_CHECK:-}" ]; then
    KV_PACKAGE_CHECK=1 exec unshare --mount --ipc --pid --mount-proc --fork --kill-child "$0" "${arguments[@]}"
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
    chroot "$root" setpriv --reuid=kv-panel --regid=kv-panel --init-groups env -i "${plain[@]}" HOME=/$state "$@"
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

say "lintian"
check "no errors, no warnings" sh -c 'lintian --allow-root --fail-on error,warning "$1" >"$2" 2>&1' sh "$package" "$work/lintian.log"

say "A bare $suite"
debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$work/debootstrap.log" || { tail "$work/debootstrap.log"; exit 1; }
mount -t proc proc "$root/proc"
cp "$package" "$root/root/package.deb"

say "Installing the package, without what it only recommends"
check "installs" apt install /root/package.deb
for folder in /$state /$state/.config /var/log/kv-panel; do
    check "$folder is its user's" [ "$(owner_of "$folder")" = "2770 kv-panel kv-panel" ]
done
check "its user may use readers and printers, and nothing else" \
    [ "$(inside id -nG kv-panel | tr ' ' '\n' | sort | xargs)" = "dialout kv-panel lp" ]
check "tells its version" as_user sh -c "kv-panel --version | grep -q '^kv_panel [0-9]'"

say "Starting it as its user, without a back end"
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

say "Starting it as root"
inside "${no_screen[@]}" KV_PANEL_API_URLS=http://127.0.0.1:9 timeout 60 kv-panel >"$work/root.log" 2>&1 &
runs_as_its_user() { pgrep -u "$(inside id -u kv-panel)" -x kv_panel; }
check "it runs as its own user" until_true 10 runs_as_its_user
check "not as root" sh -c '! pgrep -u root -x kv_panel'
end_terminal
wait $! || true
roots=$(find "$root/$state" "$root/var/log/kv-panel" -user root)
check "nothing there is root's" [ -z "$roots" ]

if [ -n "$house" ]; then
    say "The self-test against the demo back end"
    "$house" --seed "$seed" --url-file "$work/url" --log "$work/house.log" >/dev/null &
    until_true 10 test -s "$work/url"
    as_user sh -c "umask 077; printf 'authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n' >/$state/.config/KV_PANEL_V2.ini"
    code=0
    as_user "${no_screen[@]}" KV_PANEL_API_URLS="$(cat "$work/url")" KV_PANEL_PASSWORD=1001 \
        timeout 300 kv-panel --selftest --staff 1001 >"$work/selftest.log" 2>&1 || code=$?
    grep -v '^ok' "$work/selftest.log" | sed 's/^/        /'
    check "the self-test ends with 0" [ $code -eq 0 ]
fi

say "The kiosk's command line on a virtual screen"
check "what it needs installs" apt install xinit xvfb x11-utils systemd udev
unit=/lib/systemd/system/kv-panel-kiosk.service
check "systemd takes the unit" inside systemd-analyze verify --man=no $unit
check "an exposure of at most 2.5" sh -c \
    'chroot "$1" systemd-analyze security --offline=true --no-pager --threshold=25 "$2" >"$3" 2>&1' sh "$root" $unit "$work/exposure.log"
grep Overall "$work/exposure.log" | sed 's/^[^O]*/        /'
inside systemctl enable kv-panel-kiosk >>"$work/apt.log" 2>&1
# The X server is all that is changed; the screen is one that this machine doesn't use.
runtime=/run/kv-panel
inside install -d -m 700 -o kv-panel -g kv-panel $runtime
display=:$((100 + RANDOM % 800))
as_user RUNTIME_DIRECTORY=$runtime timeout 60 "$(sed -n 's/^ExecStart=\([^ ]*\).*/\1/p' "$root$unit")" \
    /usr/bin/Xvfb $display -screen 0 1366x768x24 >"$work/xinit.log" 2>&1 &
window_fills_screen() {
    as_user DISPLAY=$display XAUTHORITY=$runtime/Xauthority xwininfo -name Kv_Panel_V2 | grep -q -- '-geometry 1366x768+0+0'
}
check "the terminal fills the screen" until_true 30 window_fills_screen
for stranger in desk nobody; do
    check "$stranger doesn't see the screen" \
        sh -c '! chroot "$1" runuser -u "$2" -- env DISPLAY="$3" xwininfo -root >"$4" 2>&1' sh "$root" $stranger $display "$work/stranger.log"
done
end_terminal
wait $! || true
rm -r "$root$runtime" # systemd does, where it runs

say "Booting it with the kiosk enabled, the screen a virtual one"
check "what a boot needs installs" apt install systemd-sysv dbus libpam-systemd procps
override=$root/etc/systemd/system/kv-panel-kiosk.service.d
mkdir -p "$override"
printf '[Service]\nExecStart=\nExecStart=/usr/lib/kv-panel/kiosk /usr/bin/Xvfb %s -screen 0 1366x768x24\n%s\n' $display \
    'TTYPath=
TTYReset=no
TTYVHangup=no
StandardInput=null' >"$override/screen.conf"
printf '[Unit]\nAfter=kv-panel-kiosk.service\nSuccessAction=poweroff\nFailureAction=poweroff\n[Service]\nType=oneshot\n%s\n' \
    'ExecStart=/root/booted' >"$root/etc/systemd/system/booted.service"
ln -s /etc/systemd/system/booted.service "$root/etc/systemd/system/multi-user.target.wants"
cat >"$root/root/booted" <<END
#!/bin/sh
exec >/root/booted.out 2>&1
export DISPLAY=$display
seen() {
    for try in \$(seq 60); do
        XAUTHORITY=$runtime/Xauthority xwininfo -name Kv_Panel_V2 >/dev/null 2>&1 && return
        sleep 0.5
    done
    return 1
}
seen && echo shown
runuser -u nobody -- xwininfo -root >/dev/null 2>&1 || echo closed
pkill -x kv_panel
sleep 1
seen && [ "\$(systemctl show -P NRestarts kv-panel-kiosk)" = 1 ] && echo again
systemctl stop kv-panel-kiosk
pgrep 'kv_panel|Xvfb|xinit' || echo stopped
journalctl --no-pager -u kv-panel-kiosk
END
chmod +x "$root/root/booted"
umount "$root/proc" # it gets one of its own
timeout 180 systemd-nspawn --quiet --directory="$root" --register=no --keep-unit --boot </dev/null >"$work/boot.log" 2>&1 || true
mount -t proc proc "$root/proc"
if [ -e "$root/root/booted.out" ]; then
    cp "$root/root/booted.out" "$work/booted.log"
    for word in shown "closed to others" "again after its end" "stopped and gone"; do
        check "the kiosk is $word" grep -q "^${word%% *}\$" "$work/booted.log"
    done
else
    echo "        not tried: no system can be booted here"
    tail -n 3 "$work/boot.log" | sed 's/^/        /'
fi
rm -r "$override" "$root/etc/systemd/system/booted.service" "$root"/etc/systemd/system/multi-user.target.wants/booted.service "$root"/root/booted*

say "What it wrote"
elsewhere=$(find "$root" -xdev -user "$(inside id -u kv-panel)" -newer "$work/started" ! -path "$root/$state*" \
    ! -path "$root/var/log/kv-panel*" ! -path "$root/tmp*" | sed "s|^$root||")
[ -z "$elsewhere" ] || echo "        $elsewhere"
check "nothing but settings, log and temporary files" [ -z "$elsewhere" ]

say "Installing it over itself"
echo KV_PANEL_COM1=/dev/ttyS3 >>"$root/etc/default/kv-panel"
before=$(inside sha256sum /etc/default/kv-panel /$state/kv_panel_v2.db)
check "installs" apt install --reinstall /root/package.deb
check "settings and environment are kept" [ "$(inside sha256sum /etc/default/kv-panel /$state/kv_panel_v2.db)" = "$before" ]

say "Installing it over links that its user has made"
as_user sh -c "cd /$state && mv .config kept.config && mv kv_panel_v2.db kept.db && ln -s /etc .config && ln -s /etc/made kv_panel_v2.db"
check "installs" apt install --reinstall /root/package.deb
check "what they lead to stays root's" [ "$(owner_of /etc)" = "755 root root" ]
check "nothing is made where they lead to" is_gone etc/made
as_user sh -c "cd /$state && rm .config kv_panel_v2.db && mv kept.config .config && mv kept.db kv_panel_v2.db"

say "Removing it"
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

say "$failures failed"
[ "$failures" -eq 0 ]
