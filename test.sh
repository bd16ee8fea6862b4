#!/usr/bin/env bash
# Checks the style, builds, and runs every test headless. See --help.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

usage() {
    cat <<'HELP'
usage: ./test.sh [--quick] [--asan]

  --quick  leaves out what is slow
  --asan   builds and runs under AddressSanitizer and UndefinedBehaviorSanitizer
HELP
}

preset=release ctest_options=()
while [ $# -gt 0 ]; do
    case $1 in
        --quick) ctest_options+=(--label-exclude slow) ;;
        --asan) preset=asan ;;
        --help | -h) usage; exit 0 ;;
        *) usage >&2; exit 2 ;;
    esac
    shift
done

install_missing "${build_packages[@]}" "${run_packages[@]}" "${demo_packages[@]}" "${hand_packages[@]}" \
    "${test_packages[@]}"

say "Checking the style"
sources() { # those that are there; git also lists what was just deleted
    git ls-files --cached --others --exclude-standard -- "$@" | while read -r file; do [ -e "$file" ] && echo "$file"; done
}
sources '*.cpp' '*.h' | xargs -r clang-format-14 --dry-run --Werror
say "Checking the pages"
sources '*.qml' 'ui/*.js' | xargs -r /usr/lib/qt5/bin/qmllint
say "Checking the scripts"
for script in run.sh test.sh bench.sh scripts/*.sh .ci/run; do
    bash -n "$script"
done
/usr/bin/python3 -c 'import sys; [compile(open(name).read(), name, "exec") for name in sys.argv[1:]]' scripts/*.py

build "$preset"

say "Testing"
ctest --preset "$preset" --parallel 2 "${ctest_options[@]}"
