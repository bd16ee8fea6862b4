#!/usr/bin/python3 -B
"""The whole road through the real program on a virtual screen: e2e.py BUILD_FOLDER [PICTURES].

Fails on a step that can't be done, on any complaint of the pages in the log, on a page or dialog that the terminal's
own test finds broken, on a missing slip and on a process that is left behind.
"""
import os
import pathlib
import re
import sys
import tempfile

import tour
from hands import Hands, Stuck
from stand import Failed, Stand, end_on_signals, say, until

COMPLAINT = re.compile(r"qrc:/\S*\.(qml|js):\d+|QML \w+:|Binding loop|Unable to assign")
MARK = "KV_E2E_MARK"


def complaints(log):
    return [line for line in log.splitlines() if COMPLAINT.search(line)]


def left_behind(mark):
    """What carries the mark in its environment, but isn't this process."""
    found = []
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            environment = (process / "environ").read_bytes()
            command = (process / "cmdline").read_bytes()
        except OSError:
            continue
        if mark.encode() in environment and int(process.name) != os.getpid() and command:
            found.append(command.replace(b"\0", b" ").decode("utf-8", "replace"))
    return found


def walk(build, folder, pictures):
    with Stand(build, folder, has_own_program=True) as stand:
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            stand.environment.pop(variable, None)
        mark = f"{MARK}={stand.run}"
        stand.environment[MARK] = str(stand.run)
        stand.start_all()
        stand.start_terminal()
        hands = Hands(stand.places, stand.environment, pictures).connect()
        try:
            code = tour.run(stand, hands)
        except Stuck as stuck:
            hands.picture("stuck")
            raise Failed(f"the road broke off: {stuck}\n{stand.log()[-3000:]}") from stuck
        if code != 0:
            raise Failed(f"the terminal's own test ended with {code}")
        slips = len(stand.slip_pictures())
    log = stand.log()
    if found := complaints(log):
        raise Failed("the pages complained:\n" + "\n".join(found))
    if "mqtt connected" not in log:
        raise Failed("the log doesn't tell of the broker")
    if slips != hands.slips:
        raise Failed(f"there are {slips} slips in place of {hands.slips}")
    until("every process to be gone", lambda: not left_behind(mark), 3)


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    end_on_signals()
    with tempfile.TemporaryDirectory() as folder:
        try:
            walk(sys.argv[1], folder, sys.argv[2] if len(sys.argv) == 3 else pathlib.Path(folder) / "pictures")
        except Failed as failure:
            sys.exit(f"e2e: {failure}")
    say("The whole road was walked")


if __name__ == "__main__":
    main()
