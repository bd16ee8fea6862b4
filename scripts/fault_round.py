"""A shop in which things break, and the table of what that did."""
import tempfile
import time

from hands import Hands, Stuck
from stand import MANAGER_CARD, Stand
from tour import Desk

READ_LIMIT_S = 160  # five tries of 30 s and the pauses between
POST_LIMIT_S = 32   # one try
PRINT_LIMIT_S = 10  # a slip to a printer that takes no data, and the call before it
OPEN_ROOM = "/bba01/openMassRoom"


class Row:
    def __init__(self, fault, road):
        self.fault, self.road = fault, road
        self.saw, self.calls, self.lost = "", "-", "nothing"
        self.waited_s = None
        self.faults = []  # of the terminal

    def line(self):
        waited = "-" if self.waited_s is None else f"{self.waited_s:.1f}"
        cells = (self.fault, self.road, self.saw, waited, self.calls, self.lost, "; ".join(self.faults) or "ok")
        return "| " + " | ".join(cell.replace("|", "/") for cell in cells) + " |"


class Round:
    """A stand, a pair of hands, and the table that they fill."""

    def __init__(self, build, only):
        self.build, self.only = build, only
        self.rows = []
        self.stand = self.hands = self.desk = None
        self.rooms = iter(())
        self.cards = iter(())

    # A shop for some rows

    def shop(self, settings=None, environment=None, opens_board=True):
        """A fresh one, with the terminal at the board."""
        self.close()
        self.folder = tempfile.TemporaryDirectory()
        self.stand = Stand(self.build, self.folder.name, has_own_program=True)
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            self.stand.environment.pop(variable, None)
        self.stand.start_all()
        self.stand.environment.update(environment or {})
        self.stand.write_settings(settings or {})
        self.rooms = iter("112 115 118 203 207 208 212 215 216 217 219 220".split())
        self.cards = iter(str(number) for number in range(8046, 8100))
        self.start_terminal()
        if opens_board:
            self.open_board()

    def restart_terminal(self, wrapper=()):
        self.stand.stop("terminal")
        self.start_terminal(wrapper)

    def start_terminal(self, wrapper=()):
        self.stand.start_terminal(wrapper=wrapper)
        self.hands = Hands(self.stand.places, self.stand.environment).connect()
        self.desk = Desk(self.stand, self.hands)

    def open_board(self):
        self.hands.tap("tile_ROOMINFO_CTRL")
        self.hands.see("loginDlg")
        self.stand.present_staff_card(MANAGER_CARD)
        self.hands.see("room_112", "floor_一楼")

    def close(self):
        if self.stand:
            self.stand.end()
            self.folder.cleanup()
            self.stand = None

    # Rows

    def wants(self, fault, road):
        return self.only in fault or self.only in road

    def add(self, row, limit_s=None):
        if not self.stand.is_running("terminal"):
            row.faults.append("THE TERMINAL ENDED")
        if limit_s is not None and row.waited_s is not None and row.waited_s > limit_s:
            row.faults.append(f"TOOK NO TAPS FOR MORE THAN {limit_s} s")
        self.rows.append(row)
        print(row.line(), flush=True)

    def taps_taken(self):
        """The page below is told of whenever taps are taken, also below a dialog."""
        return self.hands.place("mainPage") is not None

    def waited(self, limit_s):
        """How long no tap is taken from here on: until half a second long each was."""
        begin = last = time.monotonic()
        while time.monotonic() - last < 0.5:
            asked = time.monotonic()
            taken = self.taps_taken()
            now = time.monotonic()
            if not taken or now - asked > 0.2:
                last = now
            if now - begin > limit_s + 30:
                raise Stuck(f"waited {limit_s + 30} s for taps to be taken again")
            time.sleep(0.02)
        return last - begin

    def message(self):
        """What is told; a window takes a moment to come."""
        end = time.monotonic() + 1
        while time.monotonic() < end:
            if text := self.hands.message():
                return text
            time.sleep(0.05)
        return "no message"

    def fill_opening(self):
        """The page that opens a massage room, with a card on it, all but saved."""
        room, card = next(self.rooms), next(self.cards)
        self.desk.empty_room(room, "MASS_ROOM")
        self.desk.card(card)
        return room, card

    def save_opening(self, row, card, limit_s=POST_LIMIT_S):
        """Saves, and notes what became of it; True when the dialog has closed."""
        seen, executed = self.stand.calls(OPEN_ROOM) if self.stand.is_running("house") else (0, 0)
        self.hands.tap("saveButton")
        row.waited_s = self.waited(limit_s)
        is_closed = self.hands.is_gone("openRoomDlg")
        row.saw = self.message() + (", dialog closed" if is_closed else ", dialog and cards stay")
        if not is_closed and self.hands.is_gone(f"card_{card}"):
            row.faults.append("THE CARD IS GONE FROM THE PAGE")
        if self.stand.is_running("house"):
            seen, executed = (now - before for now, before in zip(self.stand.calls(OPEN_ROOM), (seen, executed)))
            row.calls = f"{seen} / {executed}"
            if seen > 1:
                row.faults.append("THE CHANGE WAS SENT TWICE")
            if is_closed and not executed:
                row.faults.append("CLOSED WITHOUT HAVING BEEN DONE")
        return is_closed
