"""Printer, settings, disk, clock, reader and power fail."""
import os
import pathlib
import signal
import socket
import threading
import time

from fault_round import OPEN_ROOM, POST_LIMIT_S, PRINT_LIMIT_S, Row
from hands import Stuck
from stand import Failed, MANAGER_CARD, free_port


class BadPrinter:
    """A network printer that "refuses" connections, is "silent" when asked for one, or "hangs-up" in the middle."""

    def __init__(self, how):
        self.how, self.port = how, free_port()
        self.server, self.lines = None, []
        if how != "refuses":
            self.server = socket.create_server(("127.0.0.1", self.port), backlog=0)
        if how == "silent":
            for _ in range(3):  # nobody takes them, and what comes behind them gets no answer
                line = socket.socket()
                line.setblocking(False)
                line.connect_ex(("127.0.0.1", self.port))
                self.lines.append(line)
        elif how == "hangs-up":
            threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                line, _ = self.server.accept()
            except OSError:
                return
            line.recv(64)
            line.close()

    def close(self):
        for line in self.lines:
            line.close()
        if self.server:
            self.server.close()


def printer(shop):
    """The printer disappears."""
    for how, words in (("refuses", "isn't there"), ("hangs-up", "hangs up in the middle of a slip"),
                       ("silent", "doesn't answer")):
        row = Row(f"the printer {words}", "opens a room, with a slip")
        if not shop.wants(row.fault, row.road):
            continue
        bad = BadPrinter(how)
        try:
            shop.shop({"print": "前台"}, {"KV_PANEL_PRINTERS": f"前台=tcp://127.0.0.1:{bad.port}"})
            room, card = shop.fill_opening()
            if not shop.save_opening(row, card):
                row.faults.append("A ROOM THAT IS OPEN SEEMS NOT TO BE")
            time.sleep(1)  # the log's writer
            is_told = "receipt printer" in shop.stand.log()
            row.lost = "the slip; the log tells" if is_told else "the slip; nobody is told"
            if not is_told:
                row.faults.append("THE LOG DOESN'T TELL")
            shop.add(row, PRINT_LIMIT_S)
        finally:
            bad.close()


# What only the program sees: a read-only working directory, in which it may write its log and slips all the same.
READ_ONLY = """mkdir -p slips && mount --bind . . && cd "$PWD" && mount --bind program program &&
mount --bind slips slips && mount -o remount,bind,ro . && exec "$@" """

# The same for settings, slips and log on a disk of 1 MB.
SMALL_DISK = """mount -t tmpfs -o size=1m small state && mkdir -p state/log program/log && cp kv_panel_v2.db state &&
mount --bind state/log program/log && cd state && exec "$@" """


def in_its_own_mounts(script):
    return "unshare", "-rm", "sh", "-c", script, "sh"


def settings(shop):
    """The settings can't be written, or read."""
    fault = "the settings are read-only"
    if shop.wants(fault, "starts"):
        row = Row(fault, "starts, opens a room, looks for lines")
        shop.shop(opens_board=False)
        shop.hands.see("mainPage")
        shop.restart_terminal(in_its_own_mounts(READ_ONLY))
        before = shop.stand.settings()
        row.saw = f"at the start: {shop.message()}"
        shop.open_board()
        _, card = shop.fill_opening()
        saved = Row("", "")
        if not shop.save_opening(saved, card):
            row.faults.append("NO ROOM CAN BE OPENED")
        row.calls, row.waited_s = saved.calls, saved.waited_s
        shop.hands.tap("returnButton", "vendorBlock")
        shop.hands.see("cloudDlg", "saveButton")
        row.saw += f"; opening a room: {saved.saw}; at the lines: {shop.message()}"
        row.lost = "nothing; the list of lines is fetched again at the next start"
        if shop.stand.settings() != before:
            row.faults.append("SETTINGS CHANGED")
        shop.add(row, POST_LIMIT_S)
    fault = "the settings are no database"
    if shop.wants(fault, "starts"):
        row = Row(fault, "starts")
        shop.shop(opens_board=False)
        shop.stand.stop("terminal")
        database = shop.stand.folder / "kv_panel_v2.db"
        database.write_bytes(os.urandom(8192))
        before = database.read_bytes()
        shop.start_terminal()
        shop.hands.see("mainPage")
        row.saw = f"the program starts with nothing set: {shop.message()}"
        aside = [file.read_bytes() for file in shop.stand.folder.glob("kv_panel_v2.db.2*")]
        if aside != [before]:
            row.faults.append("THE FILE ISN'T KEPT")
        row.lost = "the settings, which are to be set again; the file is kept under another name"
        shop.add(row)


def whole_slips(state):
    return sum(file.read_bytes().endswith(b"IEND\xaeB`\x82") for file in state.glob("slips/*.png"))


def disk(shop):
    """The disk is full."""
    row = Row("the disk is full, and has room again", "opens rooms, with slips")
    if not shop.wants(row.fault, row.road):
        return
    shop.shop(opens_board=False)
    state = shop.stand.folder / "state"
    state.mkdir()
    shop.stand.environment["KV_PANEL_PREVIEW_DIR"] = str(state / "slips")
    shop.restart_terminal(in_its_own_mounts(SMALL_DISK))
    shop.open_board()
    seen_by_it = pathlib.Path(f"/proc/{shop.stand.parts['terminal'].pid}/root{state}")
    filler = seen_by_it / "filler"
    try:
        with open(filler, "wb", buffering=0) as file:
            while True:
                file.write(bytes(512))
    except OSError:
        pass  # full
    _, card = shop.fill_opening()
    if not shop.save_opening(row, card):
        row.faults.append("NO ROOM CAN BE OPENED")
    slips_before = whole_slips(seen_by_it)
    filler.unlink()
    _, card = shop.fill_opening()
    again = Row("", "")
    if not shop.save_opening(again, card):
        row.faults.append("NO ROOM CAN BE OPENED ANY MORE")
    time.sleep(1)
    row.saw += f"; with room again: {again.saw}"
    row.lost = "nothing" if slips_before else "the slip of the preview printer"
    if whole_slips(seen_by_it) <= slips_before:
        row.faults.append("NO SLIP COMES ANY MORE")
    if card not in "".join(file.read_text("utf-8", "replace") for file in seen_by_it.glob("log/*.log")):
        row.faults.append("NOTHING IS LOGGED ANY MORE")
    shop.add(row, PRINT_LIMIT_S)


def clock(shop):
    """The clock jumps."""
    library = next(pathlib.Path("/usr/lib").glob("*/faketime/libfaketime.so.1"), None)
    if library is None:
        raise Failed("faketime is missing")
    if not shop.wants("the clock jumps", "opens a room"):
        return
    shop.shop(opens_board=False)
    offset = shop.stand.run / "clock"
    offset.write_text("+0")
    shop.restart_terminal(("env", f"LD_PRELOAD={library}", f"FAKETIME_TIMESTAMP_FILE={offset}", "FAKETIME_NO_CACHE=1",
                           "DONT_FAKE_MONOTONIC=1"))
    shop.open_board()
    for words, value, works in (("forward by a minute", "+60", True), ("forward by a day", "+86400", False),
                                ("back by a day", "-86400", False), ("back to the right time", "+0", True)):
        row = Row(f"the clock jumps {words}", "opens a room")
        _, card = shop.fill_opening()
        offset.write_text(value)
        time.sleep(1.5)
        is_closed = shop.save_opening(row, card)
        if is_closed != works:
            row.faults.append("IT WAS DONE ALL THE SAME" if is_closed else "IT ISN'T DONE")
        if not is_closed:
            row.lost = "nothing; the back end refuses the terminal until its clock is set"
            offset.write_text("+0")
            again = Row("", "")
            if not shop.save_opening(again, card):
                row.faults.append("WITH THE RIGHT TIME IT ISN'T DONE EITHER")
            row.saw += f"; with the right time: {again.saw}"
        shop.add(row, POST_LIMIT_S)


def reader(shop):
    """The staff reader is pulled and plugged in again."""
    row = Row("the staff reader is pulled, and plugged in again", "logs in")
    if not shop.wants(row.fault, row.road):
        return
    shop.shop()
    shop.hands.tap("returnButton")
    shop.hands.see("tile_ROOMINFO_CTRL")
    shop.stand.stop("staff-reader", signal.SIGKILL)
    time.sleep(1)
    row.saw = shop.message()
    shop.stand.start_readers()
    time.sleep(6)  # it is tried every five
    shop.hands.tap("tile_ROOMINFO_CTRL")
    shop.hands.see("loginDlg")
    shop.stand.present_staff_card(MANAGER_CARD)
    try:
        shop.hands.see("room_112")
        row.saw += "; plugged in again it reads"
    except Stuck:
        row.faults.append("NO CARD IS READ ANY MORE")
    shop.add(row)


def power(shop):
    """The terminal itself is cut off in the middle of a change."""
    row = Row("the power fails in the middle of a change", "opens a room, starts again")
    if not shop.wants(row.fault, row.road):
        return
    shop.shop()
    before = shop.stand.settings()
    room, _ = shop.fill_opening()
    shop.stand.control("fault", {"path": OPEN_ROOM, "kind": "delay:3000"})
    shop.hands.tap("saveButton")
    time.sleep(1)
    shop.stand.stop("terminal", signal.SIGKILL)
    shop.stand.stop("staff-reader", signal.SIGKILL)  # nobody gives its line back
    shop.stand.start_readers()
    shop.stand.control("clear", {})
    time.sleep(3)
    shop.start_terminal()
    shop.open_board()
    seen, executed = shop.stand.calls(OPEN_ROOM)
    row.calls = f"{seen} / {executed}"
    shop.hands.tap(f"room_{room}")
    shop.hands.see("roomDetailDlg")
    row.saw = "started again, the board has the room open"
    row.lost = "nothing" if shop.stand.slip_pictures() else "the slip"
    if (seen, executed) != (1, 1):
        row.faults.append("THE CHANGE WAS NOT MADE ONCE")
    if shop.stand.settings() != before:
        row.faults.append("SETTINGS CHANGED")
    shop.add(row)


PARTS = (printer, settings, disk, clock, reader, power)
