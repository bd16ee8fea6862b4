#!/usr/bin/env python3
"""What becomes of a finger's presses while the board lives: presses.py BUILD_FOLDER [--presses N] [--down MS].

Rooms of the board are pressed one after the other for as long as a finger stays down, at a person's pace, while other
terminals change the house once a second and every call of the board takes 60 ms. A press opens the room that it was on, or it is
lost; one that opens another room, or does anything later, is a fault. Ends with 1 when a press acted elsewhere or more
than one in twenty was lost.
"""
import argparse
import random
import subprocess
import sys
import tempfile
import time

from hands import Hands, Stuck
from stand import MANAGER_CARD, Stand, end_on_signals, say

ROOMS = ("101", "103", "106", "109", "112", "115", "118", "203", "205", "207", "208")
DIALOGS = {"openRoomDlg": "fact_roomNoText", "roomDetailDlg": "fact_roomNoText", "confirmDlg": "contentText",
           "msgConfirmDlg": "contentText"}
CALL_MS = 60
BOARD_CALLS = ("/bba01/getRoomList", "/bba01/getFloorSum", "/bba01/getRoomTypeSum", "/bba01/getOverTime",
               "/bba01/getRoomDetailNew", "/bba01/getRoomConsList")
ANSWER_S = 3


def open_dialog(hands):
    return next((name for name in DIALOGS if hands.place(name)), None)


def press(hands, room, down_ms):
    x, y, width, height, _ = hands.settled(f"room_{room}")
    subprocess.run(["xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "mousedown", "1", "sleep",
                    str(down_ms / 1000), "mouseup", "1"], check=True, env=hands.environment)


def outcome(hands, room, wait_s=ANSWER_S):
    """hit, lost, or what else was opened."""
    end = time.monotonic() + wait_s
    while time.monotonic() < end and not open_dialog(hands):
        if hands.message():
            return "hit"  # a reserved room, or one that was just changed, says so
        time.sleep(0.02)
    dialog = open_dialog(hands)
    if not dialog:
        return "lost"
    shown = hands.until("the dialog's room", lambda: hands.text(DIALOGS[dialog]))
    hands.sure_tap("cancelButton" if DIALOGS[dialog] == "contentText" else "closeButton",
                   lambda: hands.is_gone(dialog))
    return "hit" if room in shown else f"{dialog} of {shown}"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--presses", type=int, default=200)
    parser.add_argument("--down", type=int, default=120)
    options = parser.parse_args()
    end_on_signals()
    dice = random.Random(11)
    counts = {"hit": 0, "lost": 0, "late": 0}
    elsewhere = []
    with tempfile.TemporaryDirectory() as folder, Stand(options.build, folder, has_own_program=True) as stand:
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            stand.environment.pop(variable, None)
        stand.start_all()
        stand.start_terminal()
        hands = Hands(stand.places, stand.environment, settled_s=0.03).connect()
        try:
            hands.sure_tap("tile_ROOMINFO_CTRL", lambda: hands.place("loginDlg"))
            stand.present_staff_card(MANAGER_CARD)
            hands.see("room_112")
            for path in BOARD_CALLS:
                stand.control("fault", {"path": path, "kind": f"delay:{CALL_MS}"})
            stand.control("others", {"perSecond": 1, "seed": 7})
            room = None
            for number in range(options.presses):
                time.sleep(dice.uniform(0.1, 2.5))
                # What comes so late is the answer to the press before.
                late = "hit" if hands.message() else outcome(hands, room, 0) if room else "lost"
                if late != "lost":
                    print(f"{number}: late, {room}: {late}", flush=True)
                    counts["late"] += 1
                room = dice.choice(ROOMS)
                press(hands, room, options.down)
                result = outcome(hands, room)
                if result in counts:
                    counts[result] += 1
                else:
                    elsewhere.append(f"{number}: {room}: {result}")
        except Stuck as stuck:
            sys.exit(f"presses: {stuck}; see {hands.save_screen('presses-stuck.png')}")
    for line in elsewhere:
        print(line)
    say(f"{options.presses} presses of {options.down} ms: {counts['hit']} opened their room, {counts['lost']} "
        f"didn't within {ANSWER_S} s ({counts['late']} did later), {len(elsewhere)} acted elsewhere")
    sys.exit(1 if elsewhere or counts["lost"] * 20 > options.presses else 0)


if __name__ == "__main__":
    main()
