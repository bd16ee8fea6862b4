#!/usr/bin/python3 -B
"""Walks the terminal's roads while what surrounds it misbehaves: faults.py BUILD_FOLDER [REPORT] [--only WORD].

Each row of the table is one fault on one road: what the user saw, how long no tap was taken, how often the back end was
asked and did what it was asked, and what was lost. The table goes to REPORT (docs/faults.md). Ends with 1 when the
terminal ended, took no taps for longer than its limits allow, sent a change twice, or lost what the user had entered
without having sent it. --only runs the rows whose fault or road holds the word.

Installs what is missing. Needs a kernel that lets the user have a mount of his own.
"""
import argparse
import pathlib
import shlex
import sys

import faults_backend
import faults_machine
from fault_round import Round, Row
from hands import Stuck
from stand import Failed, end_on_signals, install_missing, say, versions


def report(rows, command, made_with):
    bad = sum(bool(row.faults) for row in rows)
    head = ["# Faults", "",
            "What the terminal does while what surrounds it misbehaves. Made by the script named below, which walks",
            "the real program by clicks against the demo house, a mosquitto broker and a printer that it breaks; run",
            "it again to renew the table. \"s\" is how long no tap was taken; \"asked / done\" counts the calls of the",
            "change in question at the back end.", "",
            f"`{command}`", "", f"{made_with}.", "",
            f"{len(rows)} rows, {bad} bad ones.", "",
            "| fault | road | what the user saw | s | asked / done | lost | |", "|---|---|---|---|---|---|---|"]
    return "\n".join(head + [row.line() for row in rows]) + "\n"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("report", nargs="?", type=pathlib.Path)
    parser.add_argument("--only", default="")
    options = parser.parse_args()
    end_on_signals()
    install_missing("run_packages", "demo_packages", "hand_packages", "fault_packages")
    faults = Round(options.build, options.only)
    try:
        for part in (*faults_backend.PARTS, *faults_machine.PARTS):
            say(part.__doc__.splitlines()[0])
            try:
                part(faults)
            except (Stuck, Failed) as failure:
                row = Row(part.__name__, "-")
                row.faults.append(f"BROKE OFF: {failure}")
                faults.rows.append(row)
                print(row.line(), flush=True)
    finally:
        faults.close()
    if options.report:
        options.report.write_text(report(faults.rows, shlex.join(sys.argv), versions(options.build)))
    bad = sum(bool(row.faults) for row in faults.rows)
    say(f"{len(faults.rows)} rows, {bad} bad ones")
    sys.exit(1 if bad or not faults.rows else 0)


if __name__ == "__main__":
    main()
