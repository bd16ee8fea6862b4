#!/usr/bin/env bash
# Draws the pictures of the pages from their sources; needs rsvg-convert (Debian: librsvg2-bin).
# The pictures are kept beside the pages, so the build itself doesn't need it.
# Usage: make_images.sh [folder], the folder of the pictures if not given.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/..}

draw() {
    local side=$1
    shift
    for name in "$@"; do
        rsvg-convert --width "$side" --height "$side" --output "$out/$name.png" "$here/$name.svg"
    done
}

draw 64 info-fill success-fill error-fill
draw 96 sys_config person gryj
draw 128 logo
draw 200 empty
