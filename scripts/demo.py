#!/usr/bin/python3 -B
"""Runs the demonstration that run.sh has built; its options are told there.

demo.py BUILD_FOLDER FOLDER [--rooms N] [--items N] [--others N] [--room-mode] [--two] [--size WIDTHxHEIGHT] [--shot FILE | --tour FOLDER]
"""
import argparse
import contextlib
import pathlib
import subprocess
import sys
import time

import tour
from hands import Hands, Stuck
from stand import Failed, MANAGER_CARD, Stand, end_on_signals, say, until

FAILED_START = 255


def options_of(arguments):
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("folder")
    parser.add_argument("--rooms")
    parser.add_argument("--items")
    parser.add_argument("--others", default="0.2")
    parser.add_argument("--room-mode", action="store_true")
    parser.add_argument("--two", action="store_true")
    parser.add_argument("--size", default="1920x1080")
    parser.add_argument("--shot", type=pathlib.Path)
    parser.add_argument("--tour", type=pathlib.Path)
    return parser.parse_args(arguments)


def take_shot(stand, picture):
    """A picture once something is painted."""
    until("the terminal", lambda: stand.calls("/baa00/getSysInitByAuthCode")[1])
    time.sleep(2)  # the main page turns in

    def is_painted():
        subprocess.run(["import", "-window", "root", picture], check=True, env=stand.environment)
        bright = subprocess.run(["identify", "-format", "%[fx:mean > 0.05]", picture], check=True,
                                capture_output=True, text=True)
        return bright.stdout == "1"
    until("the picture", is_painted)
    say(f"Picture saved: {picture}")


def run(stand, options, beside):
    house_options = [word for name in ("rooms", "items") if getattr(options, name)
                     for word in (f"--{name}", getattr(options, name))]
    stand.start_all(options.size, "--others", "0" if options.tour else options.others, *house_options)
    if options.room_mode:
        stand.control("config", {"usedRoomMod": 1})
    say("To present a card or steer the house, from another shell:")
    card = stand.build / "sim" / "kv_card"
    print(f"   {card} staff {stand.staff_reader} {MANAGER_CARD}     # staff, by the numbers in README.md")
    print(f"   {card} hand {stand.hand_reader} SERIAL          # a guest's hand card")
    print(f"   curl -d '{{\"perSecond\": 2}}' {stand.house_url}/_control/others     # and the other orders of README.md",
          flush=True)
    say("Starting the terminal")
    terminal = stand.start_terminal(*(["--windowed"] if options.two else []), stdout=None)
    if options.two:
        second = beside.enter_context(Stand(options.build, pathlib.Path(options.folder) / "second", has_own_program=True))
        second.start_beside(stand, "--windowed")
    if options.shot:
        take_shot(stand, options.shot.resolve())
        return 0
    if options.tour:
        tour.remove_earlier(options.tour)
        hands = Hands(stand.places, stand.environment, options.tour)
        return tour.run(stand, hands.connect())
    code = terminal.wait()
    if code == FAILED_START:
        raise Failed("the terminal didn't start: " + (stand.said("terminal") or f"see {stand.bin / 'log'}"))
    return code


def main():
    options = options_of(sys.argv[1:])
    end_on_signals()
    with Stand(options.build, options.folder) as stand, contextlib.ExitStack() as beside:
        try:
            return run(stand, options, beside)
        except (Failed, Stuck) as failure:
            print(f"error: {failure}", file=sys.stderr)
            return 1


if __name__ == "__main__":
    sys.exit(main())
