#!/usr/bin/python3 -B
"""A whole evening as fast as it goes: soak.py BUILD_FOLDER [REPORT] [--minutes N] [--others N].

The front desk opens rooms, adds cards, orders services, lets guests leave and cleans, room after room, by clicks, while
other terminals change the house N times a second, and every now and then somebody else logs in. What the terminal holds
of the machine is noted all along; the table goes to REPORT (docs/soak.md). Ends with 1 when a step can't be done, the
pages complain, or the second half of the evening takes more memory, handles or threads than a leak-free one would.
"""
import argparse
import itertools
import pathlib
import re
import shlex
import sys
import tempfile
import time

from e2e import complaints
from hands import Hands, Stuck
from stand import MANAGER_CARD, Stand, end_on_signals, install_missing, say, versions

ROOMS = ("112", "115", "118", "203", "207", "208")
# What one round takes. Other terminals leave alone what was named here in the last ten minutes.
CARDS = [str(number) for number in range(8046, 8046 + 2 * len(ROOMS))]
# Between the middle and the end; an allocator's own unrest stays below.
MOST_GROWTH_KB = 6000
MOST_NEW_HANDLES = 2
# What comes again within ten seconds is counted.
EVENT = re.compile(r"^(?:ROOMSTATUS|STAFFSTATUS|CALLCHGDATA)_(?:: (\d+) times more)?$", re.MULTILINE)


class Evening:
    def __init__(self, stand, hands):
        self.stand, self.hands = stand, hands
        self.cards = itertools.cycle(CARDS)
        self.actions = 0
        self.samples = []

    def log_in(self):
        self.hands.sure_tap("tile_ROOMINFO_CTRL", lambda: self.hands.place("loginDlg"))
        self.stand.present_staff_card(MANAGER_CARD)
        self.hands.see("room_112")

    def open_dialog(self, room, dialog):
        """The board learns of a change by an event; until then the tile opens what fitted before."""
        dialogs = ("openRoomDlg", "roomDetailDlg", "confirmDlg")

        def opened():
            self.hands.sure_tap(f"room_{room}", lambda: any(map(self.hands.place, dialogs)))
            if self.hands.place(dialog):
                return True
            wrong = next((name for name in dialogs if self.hands.place(name)), None)
            if wrong:
                self.hands.sure_tap("cancelButton" if wrong == "confirmDlg" else "closeButton",
                                    lambda: self.hands.is_gone(wrong))
            time.sleep(0.3)
            return False
        self.hands.until(f"room {room} to open {dialog}", opened, 30)

    def enter_card(self, number):
        hands = self.hands
        hands.sure_tap("cardButton", lambda: hands.place("numKeyDlg"))
        for typed in range(1, len(number) + 1):
            hands.sure_tap(f"key_{number[typed - 1]}", lambda: hands.text("inputLine") == number[:typed])
        hands.sure_tap("confirmButton", lambda: hands.is_gone("numKeyDlg"))
        hands.see(f"card_{number}")

    def save(self, dialog):
        self.hands.sure_tap("saveButton", lambda: self.hands.is_gone(dialog))

    def open_room(self, room):
        self.open_dialog(room, "openRoomDlg")
        self.hands.sure_tap("menu_MASS_ROOM", lambda: self.hands.place("cardButton"))
        self.enter_card(next(self.cards))
        self.save("openRoomDlg")

    def add_card(self, room):
        self.open_dialog(room, "roomDetailDlg")
        self.hands.sure_tap("menu_ADD_CARD", lambda: self.hands.place("cardButton"))
        self.enter_card(next(self.cards))
        self.save("roomDetailDlg")

    def order(self, room):
        self.open_dialog(room, "roomDetailDlg")
        self.hands.sure_tap("menu_ROOM_CALLING", lambda: self.hands.place("plusButton_0"))
        self.hands.sure_tap("plusButton_0", lambda: self.hands.text("stepValue_0") == "1")
        self.save("roomDetailDlg")

    def leave(self, room):
        self.open_dialog(room, "roomDetailDlg")
        self.hands.sure_tap("menu_OUT_ROOM", lambda: self.hands.place("saveButton"))
        self.save("roomDetailDlg")

    def clean(self, room):
        self.open_dialog(room, "confirmDlg")
        self.hands.sure_tap("confirmButton", lambda: self.hands.is_gone("confirmDlg"))

    def round(self):
        for step in (self.open_room, self.add_card, self.order, self.leave, self.clean, self.clean, self.clean):
            for room in ROOMS:
                step(room)
                self.actions += 1
        self.hands.sure_tap("modeButton", lambda: self.hands.place("roomGroups"))
        self.hands.sure_tap("modeButton", lambda: self.hands.place("roomGrid"))
        self.hands.sure_tap("returnButton", lambda: self.hands.place("tile_ROOMINFO_CTRL"))
        self.log_in()
        for slip in self.stand.slips.glob("*"):
            slip.unlink()

    def sample(self, begin):
        process = pathlib.Path("/proc") / str(self.stand.parts["terminal"].pid)
        status = dict(line.split(":", 1) for line in (process / "status").read_text().splitlines())
        kilobytes = int(status["VmRSS"].split()[0])
        calls = sum(count["seen"] for count in self.stand.control("stats").values())
        self.samples.append((time.monotonic() - begin, self.hands.taps, self.actions, calls, kilobytes,
                             len(list((process / "fd").iterdir())), int(status["Threads"])))
        print("  ".join(f"{value:.0f}" for value in self.samples[-1]), flush=True)


def faults(samples, log):
    middle, last = samples[len(samples) // 2], samples[-1]
    found = []
    if last[4] - middle[4] > MOST_GROWTH_KB:
        found.append(f"the second half took {last[4] - middle[4]} kB")
    if last[5] - middle[5] > MOST_NEW_HANDLES:
        found.append(f"the second half took {last[5] - middle[5]} handles")
    if last[6] - middle[6] > MOST_NEW_HANDLES:
        found.append(f"the second half took {last[6] - middle[6]} threads")
    return found + complaints(log)[:5]


def report(samples, found, others, log, again, made_with):
    first, last = samples[0], samples[-1]
    events = sum(int(more or 1) for more in EVENT.findall(log))
    lines = ["# Soak", "", "One simulated evening at the front desk, as fast as it goes; made by", "",
             f"`{shlex.join(sys.argv)}`", "", f"{made_with}.", "",
             f"{last[0] / 60:.0f} minutes, {last[1]} taps ({again} of them repeated, because a call was under way),",
             f"{last[2]} changes saved, {last[3]} calls, other terminals at {others:.0f} changes a second,",
             f"{events} events of the broker logged. Memory {first[4]} kB at the start and {last[4]} kB at the end,",
             f"handles {first[5]} and {last[5]}, threads {first[6]} and {last[6]}.",
             "; ".join(found) or "No leak, no complaint of the pages.", "",
             "| s | taps | changes | calls | memory (kB) | handles | threads |", "|---|---|---|---|---|---|---|"]
    step = max(1, len(samples) // 16)
    shown = samples[::step] + ([samples[-1]] if (len(samples) - 1) % step else [])
    return "\n".join(lines + ["| " + " | ".join(f"{value:.0f}" for value in row) + " |" for row in shown]) + "\n"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("report", nargs="?", type=pathlib.Path)
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--others", type=float, default=20)
    options = parser.parse_args()
    end_on_signals()
    install_missing("run_packages", "demo_packages", "hand_packages")
    with tempfile.TemporaryDirectory() as folder, Stand(options.build, folder, has_own_program=True) as stand:
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            stand.environment.pop(variable, None)
        stand.start_all()
        stand.start_terminal()
        evening = Evening(stand, Hands(stand.places, stand.environment, settled_s=0.03).connect())
        try:
            evening.log_in()
            begin = time.monotonic()
            evening.round()  # every page has been there once
            stand.control("others", {"perSecond": options.others, "seed": 7})
            evening.sample(begin)
            while time.monotonic() - begin < options.minutes * 60:
                evening.round()
                evening.sample(begin)
        except Stuck as stuck:
            sys.exit(f"soak: {stuck}; see {evening.hands.save_screen('soak-stuck.png')}")
        log = stand.log()
    found = faults(evening.samples, log)
    if options.report:
        options.report.write_text(report(evening.samples, found, options.others, log, evening.hands.again,
                                         versions(options.build)))
    say("; ".join(found) or "No leak")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
