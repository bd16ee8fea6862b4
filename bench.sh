#!/usr/bin/env bash
# Prints a table of ratios: what the terminal does against a base measured in the same run.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh

install_missing "${build_packages[@]}" "${run_packages[@]}" "${demo_packages[@]}" openssl
build release

say "Measuring"
export LC_ALL=C.UTF-8
printf '%-66s %9s %9s %-3s %6s\n' "what: measured / base (medians)" base measured "" ratio
for bench in build/bin/bench_*; do
    "$bench"
done
