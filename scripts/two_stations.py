#!/usr/bin/python3 -B
"""Two helpers' stations work one queue: two_stations.py BUILD_FOLDER [PICTURES].

Each calls the next guest at the same moment and gets another one, both show the same lists, and each speaks its own kinds
of hand cards alone; what was said is told by two sound files.
"""
import json
import pathlib
import shutil
import sys
import tempfile
import threading

import tour
from hands import Hands, Stuck
from stand import SEED, Failed, Stand, end_on_signals, say, until

HELPERS = ("601", "602")
KINDS = ("1", "2")  # men's and women's cards


def seed_with_kinds(folder):
    """The demo house, with two terminals that announce different kinds."""
    shutil.copytree(SEED.parent, folder)
    seed = json.loads((folder / SEED.name).read_text("utf-8"))
    for terminal, kind in zip(seed["terminals"], KINDS):
        terminal["record"]["hardCardTypes"] = kind
        terminal["record"]["noVerifyStaffIdentity"] = "1,2,3,4,6,7,8,9,10,11"
    (folder / SEED.name).write_text(json.dumps(seed), "utf-8")
    return folder / SEED.name


class Station:
    """A terminal of its own, with screen, readers and voice, at the house of the first one."""

    def __init__(self, stand, number, pictures):
        self.stand, self.number = stand, number
        stand.start_display("1366x768")
        stand.prepare_terminal(number=number + 1)
        stand.start_speech()
        stand.start_readers()
        stand.start_terminal()
        self.hands = Hands(stand.places, stand.environment, pictures).connect()

    def log_in(self):
        tour.log_in_helper(self.hands, HELPERS[self.number])


def at_once(stations, action):
    failures = []

    def run(station):
        try:
            action(station)
        except Stuck as stuck:
            failures.append(f"station {station.number + 1}: {stuck}")
    threads = [threading.Thread(target=run, args=(station,)) for station in stations]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    if failures:
        raise Failed("; ".join(failures))


def work(stations):
    both = [station.hands for station in stations]
    at_once(stations, Station.log_in)
    at_once(stations, lambda station: station.hands.tap("callNextButton"))
    for hands in both:
        hands.see("repeat_8042", "repeat_8043")
        hands.gone("call_8042")
    at_once(stations[1:], lambda station: station.hands.tap("callNextButton"))
    for hands in both:
        hands.see("repeat_6032")
        hands.picture("called")
    # The first one called two men's cards and the second one a woman's; whoever called, the kind decides who speaks.
    until("two calls at the first station", lambda: stations[0].stand.said_seconds() > 2 * tour.CALL_S)
    until("one call at the second", lambda: stations[1].stand.said_seconds() > tour.CALL_S)
    said = [station.stand.said_seconds() for station in stations]
    if said[1] > 2 * tour.CALL_S and said[1] != float("inf"):
        raise Failed(f"the second station spoke {said[1]} s")
    # What one passes over is gone at the other.
    both[0].tap("cross_8043")
    for hands in both:
        hands.gone("repeat_8043")
    return said


def run(build, folder, pictures):
    seed = seed_with_kinds(folder / "seed")
    with Stand(build, folder / "1", has_own_program=True) as first, \
            Stand(build, folder / "2", has_own_program=True) as second:
        for stand in (first, second):
            stand.environment.pop("DISPLAY", None)
            stand.environment.pop("WAYLAND_DISPLAY", None)
        first.start_broker()
        first.start_house("--seed", seed)
        second.house_url = first.house_url
        said = work([Station(stand, number, pictures and pictures / str(number + 1))
                     for number, stand in enumerate((first, second))])
    say(f"Two stations worked one queue; speech of {said[0]:.1f} s at the first, {said[1]:.1f} s at the second")


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    end_on_signals()
    with tempfile.TemporaryDirectory() as folder:
        try:
            run(sys.argv[1], pathlib.Path(folder), pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else None)
        except (Failed, Stuck) as failure:
            sys.exit(f"two_stations: {failure}")


if __name__ == "__main__":
    main()
