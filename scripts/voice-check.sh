#!/usr/bin/env bash
# Makes a sound file of a call by the voice that the terminal uses here, and measures whether it is Mandarin speech:
# read as the right syllables with their tones, as long as speech takes, and loud in most of it.
# voice-check.sh [FILE], which is kept when it is named.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/common.sh
install_missing "${speech_packages[@]}"

text='请 1 2 3 号贵宾前往助浴区'
syllables="tS;h'i21N_| j'i55_| '@r51_| s'a55n_| X'Au51_| k'uei51_| p'i55n_| tS;h'iE35n_| w'A21N_| ts.'u51_| ;'y51_| tS;h'y55_|"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
file=$(realpath -m "${1:-$folder/call.wav}")
rm -f "$file"

read_as=$(espeak-ng -v cmn-latn-pinyin -x -q "$text" | xargs -0 echo | tr -s ' \n' ' ' | sed 's/^ //; s/ $//')
[ "$read_as" = "$syllables" ] || fail "read as: $read_as"
printf %s "$text" | KV_PANEL_SPEECH_FILE=$file packaging/speech/kv-say 180

length=$(soxi -D "$file")
loudness=$(sox "$file" -n stat 2>&1 | awk '/RMS.*amplitude/ {print $3}')
# What is left without the pauses.
spoken=$(sox "$file" -n silence 1 0.02 1% -1 0.1 1% stat 2>&1 | awk '/Length/ {print $3}')
say "\"$text\": $length s, of which $spoken s are spoken, loudness $loudness of 1${1:+, in $file}"
awk -v length_s="$length" -v loud="$loudness" -v spoken="$spoken" \
    'BEGIN {exit !(length_s > 2.5 && length_s < 8 && loud > 0.03 && spoken > 0.6 * length_s)}' ||
    fail "that is no speech"
