#!/usr/bin/env python3
"""Walks the running terminal like a person at the front desk, by real clicks on the screen, and takes pictures.

tour.py PLACES PICTURES SLIPS CARD HOUSE
  PLACES    socket that tells where the items of the pages are (kv_panel --places)
  PICTURES  folder for the pictures, numbered in the order of the road
  SLIPS     folder of the preview printer
  CARD      command that presents the manager's staff card
  HOUSE     base URL of the demo back end, whose other terminals are switched on at the end

Ends with 1 and the cause at the first step that can't be done within 15 seconds.
"""
import json
import pathlib
import socket
import subprocess
import sys
import time
import urllib.request

LIMIT_S = 15
SETTLED_S = 0.06


class Stuck(Exception):
    pass


class Terminal:
    def __init__(self, places, pictures):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(places)
        self.lines = self.socket.makefile("r", encoding="utf-8")
        self.pictures = pathlib.Path(pictures)
        self.pictures.mkdir(parents=True, exist_ok=True)
        self.count = 0

    def place(self, name):
        """What the terminal says of an item: its rectangle and its text; None while it can't be tapped."""
        self.socket.sendall(f"{name}\n".encode())
        words = self.lines.readline().rstrip("\n").split(" ", 4)
        return (*map(int, words[:4]), words[4] if len(words) > 4 else "") if len(words) >= 4 else None

    def until(self, what, condition):
        end = time.monotonic() + LIMIT_S
        while time.monotonic() < end:
            result = condition()
            if result:
                return result
            time.sleep(0.02)
        raise Stuck(what)

    def settled(self, name):
        def same():
            before = self.place(name)
            time.sleep(SETTLED_S)
            return before if before and before == self.place(name) else None
        return self.until(f"to see {name}", same)

    def see(self, *names):
        for name in names:
            self.settled(name)

    def gone(self, name):
        self.until(f"{name} to go", lambda: self.place(name) is None)

    def tap(self, *names):
        for name in names:
            x, y, width, height, _ = self.settled(name)
            subprocess.run(["xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "1"],
                           check=True)

    def keys(self, text):
        for key in text:
            self.tap(f"key_{key}")

    def number(self, button, text):
        """Taps the button that asks for a number, and types it."""
        self.tap(button)
        self.see("numKeyDlg")
        self.keys(text)
        self.tap("confirmButton")
        self.gone("numKeyDlg")

    def write(self, text):
        subprocess.run(["xdotool", "type", "--delay", "40", text], check=True)

    def picture(self, name):
        time.sleep(0.5)  # messages and pressed looks have come, animations are over
        self.count += 1
        path = self.pictures / f"{self.count:02}-{name}.png"
        subprocess.run(["import", "-window", "root", "+dither", "-colors", "255", f"PNG8:{path}"], check=True)


def slips(folder):
    return sorted(pathlib.Path(folder).glob("*.png")) if pathlib.Path(folder).is_dir() else []


def new_slip(terminal, folder, before, name):
    """Waits for the next slip and puts its picture among the others."""
    slip = terminal.until("a slip", lambda: next((s for s in slips(folder) if s not in before), None))
    time.sleep(0.3)
    terminal.count += 1
    (terminal.pictures / f"{terminal.count:02}-{name}.png").write_bytes(slip.read_bytes())


def walk(terminal, slip_folder, card, house):
    t = terminal
    t.see("mainPage", "tile_ROOMINFO_CTRL")
    t.picture("main-page")
    t.tap("tile_ROOMINFO_CTRL")
    t.see("loginDlg")
    t.picture("login")
    subprocess.run(card, shell=True, check=True)
    t.see("Module1", "room_112", "floor_一楼")
    t.picture("board")
    t.tap("modeButton")
    t.see("roomGroups", "room_112")
    t.picture("board-by-type")
    t.tap("modeButton")

    # A massage room with two cards; its slip comes out of the preview printer.
    t.tap("room_112")
    t.see("openRoomDlg", "menu_MASS_ROOM")
    t.picture("empty-room")
    t.tap("menu_MASS_ROOM")
    t.number("cardButton", "8042")
    t.see("card_8042")
    t.number("cardButton", "8043")
    t.see("card_8043")
    t.picture("open-massage-room")
    before = slips(slip_folder)
    t.tap("saveButton")
    t.gone("openRoomDlg")
    new_slip(t, slip_folder, before, "slip-open-room")
    t.picture("room-112-open")

    def detail(entry=None, room="112"):
        t.tap(f"room_{room}")
        t.see("roomDetailDlg", "menu_REMARK_ROOM")
        if entry:
            t.tap(f"menu_{entry}")

    def done():
        t.tap("saveButton")
        t.gone("roomDetailDlg")
        time.sleep(1.2)  # the event of the change comes and the board is fetched

    detail()
    t.picture("room-detail")
    t.tap("menu_ROOM_CALLING", "plusButton_0", "plusButton_0")
    t.picture("call-service")
    done()

    # To a rest room, with one card more, and back to a massage room.
    detail("MASS_CHG_REST")
    t.tap("plan_0")
    t.picture("massage-to-rest")
    done()
    detail("ADD_CARD")
    t.number("cardButton", "8044")
    t.see("card_8044")
    t.picture("add-card")
    done()
    detail()
    t.picture("rest-room-detail")
    t.tap("menu_REST_CHG_MASS", "check_8042")
    t.picture("rest-to-massage")
    done()

    # One card moves to the room next door, and both rooms become a group.
    detail("UNPACK_ROOM")
    t.number("searchButton", "115")
    t.tap("room_0", "card_8044")
    t.picture("split")
    done()
    detail("UNION_ROOM")
    t.number("searchButton", "115")
    t.see("groups")
    t.tap("room_4*")  # the one that is left, by its id
    t.picture("merge")
    done()
    detail("REMARK_ROOM")
    t.tap("remarkArea")
    t.write("VIP 安静")
    t.picture("remark")
    done()
    t.picture("board-with-group")

    # The guests of the first room leave with a slip, and the room is cleaned in its two steps.
    detail("OUT_ROOM")
    t.picture("leave")
    before = slips(slip_folder)
    done()
    new_slip(t, slip_folder, before, "slip-leave-room")
    for step in ("cleaning-begins", "cleaning-done", "room-empty"):
        t.tap("room_112")
        t.see("confirmDlg")
        t.picture(step)
        t.tap("confirmButton")
        t.gone("confirmDlg")
        time.sleep(1.2)

    # What other terminals do arrives by itself.
    order = urllib.request.Request(f"{house}/_control/others", json.dumps({"perSecond": 4, "seed": 7}).encode(),
                                   {"Content-Type": "application/json"})
    urllib.request.urlopen(order, timeout=5).read()
    time.sleep(8)
    t.picture("others-at-work")
    t.tap("returnButton")
    t.see("tile_ROOMINFO_CTRL")


def main():
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    places, pictures, slip_folder, card, house = sys.argv[1:]
    terminal = Terminal(places, pictures)
    try:
        walk(terminal, slip_folder, card, house)
    except Stuck as stuck:
        terminal.picture("stuck")
        sys.exit(f"tour: waited {LIMIT_S} s for {stuck}; see {terminal.pictures}")
    print(f"tour: {terminal.count} pictures in {terminal.pictures}")


if __name__ == "__main__":
    main()
