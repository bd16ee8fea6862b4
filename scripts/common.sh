# What the commands at the top of the tree share. Sourced, with the top of the tree as working directory.

build_packages=(g++ cmake ninja-build pkg-config ccache qtbase5-dev qtdeclarative5-dev qtdeclarative5-dev-tools
    qtquickcontrols2-5-dev libqt5serialport5-dev libqt5texttospeech5-dev libcurl4-openssl-dev libmosquitto-dev
    fonts-wqy-microhei fonts-material-design-icons-iconfont python3-fonttools)
run_packages=(libqt5sql5-sqlite libcurl4 qml-module-qtquick2 qml-module-qtquick-window2 qml-module-qtquick-controls2
    qml-module-qtquick-templates2 qml-module-qtquick-layouts qml-module-qtquick-shapes qml-module-qtqml
    qml-module-qtqml-models2)
# The voice; without a sound card it is recorded.
speech_packages=(qtspeech5-speechd-plugin speech-dispatcher espeak-ng alsa-utils sox)
run_packages+=("${speech_packages[@]}")
# The demo back end is built with the tests, and a display is made where there is none.
demo_packages=(libcpp-httplib-dev nlohmann-json3-dev libssl-dev mosquitto xvfb xauth openbox imagemagick
    libgl1-mesa-dri socat curl)
# What clicks on the screen, and what turns the clock of a program.
hand_packages=(xdotool)
fault_packages=(faketime)
fuzz_packages=(clang libclang-rt-14-dev)
test_packages=("${fuzz_packages[@]}" clang-format-14 openssl qml-module-qttest)
package_packages=(file dpkg-dev)
# A parser of printer bytes that we didn't write comes from npm; any node will do.
command -v npm >/dev/null || test_packages+=(nodejs npm)

say() { printf '\033[1m== %s\033[0m\n' "$*"; }

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# Installs those of the packages that are missing; asks nothing.
install_missing() {
    command -v dpkg-query >/dev/null || fail "this script installs Debian packages; install these by hand: $*"
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "root or sudo is needed to install: ${missing[*]}"
        as_root=(sudo)
    fi
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300)
    "${apt[@]}" update
    "${apt[@]}" install -y --no-install-recommends "${missing[@]}" >/dev/null
    # Of the broker only the program is wanted: a service of the system that wasn't there before stays off.
    if [[ " ${missing[*]} " == *" mosquitto "* ]]; then
        "${as_root[@]}" sh -c 'invoke-rc.d --quiet mosquitto stop; update-rc.d mosquitto disable' >/dev/null 2>&1 || true
    fi
}

# Whether a process holds a lock on the file; asking for the lock would keep its owner out.
is_locked() { [ -e "$1" ] && grep -q "FLOCK .*:$(stat -c %i "$1") " /proc/locks; }

# build PRESET [TARGET...]: configures when needed and builds.
build() {
    local preset=$1
    shift
    local args=()
    [ $# -gt 0 ] && args=(--target "$@")
    say "Configuring ($preset)"
    cmake --preset "$preset" >/dev/null
    say "Building"
    cmake --build --preset "$preset" "${args[@]}"
}
