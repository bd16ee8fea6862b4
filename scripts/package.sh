#!/usr/bin/env bash
# Makes the Debian package. See --help.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh

usage() {
    cat <<'HELP'
usage: scripts/package.sh [FOLDER] [-DNAME=VALUE...]

Installs what is missing, builds in build-package and puts the package into FOLDER, which is build-package unless told.

  -DKV_PANEL_API_URLS="https://…;https://…"  the shop's endpoints, exactly six, without a slash at the end
  -DKV_PANEL_VENDOR_TEXT="…;…"               two lines of text for the vendor block
  -D…                                        the other values of cmake/Deployment.cmake
HELP
}

folder=build-package values=()
for argument; do
    case $argument in
    -D?*) values+=("$argument") ;;
    --help | -h) usage; exit 0 ;;
    -*) usage >&2; exit 2 ;;
    *) folder=$argument ;;
    esac
done
folder=$(realpath -m "$folder")

install_missing "${build_packages[@]}" "${package_packages[@]}"
say "Building"
# Afresh, so that no value of an earlier package stays.
cmake --preset release -B build-package --fresh -DKV_PANEL_TESTS=OFF "${values[@]}" >/dev/null
cmake --build build-package
say "Packing"
(cd build-package && rm -f kv-panel_*.deb && cpack -G DEB -B "$folder" >/dev/null)
rm -rf "$folder/_CPack_Packages"
ls "$folder"/kv-panel_*.deb
