"""The back end delays, drops, truncates, lies and dies; the broker comes and goes."""
import signal
import time

from fault_round import OPEN_ROOM, POST_LIMIT_S, READ_LIMIT_S, Row
from stand import END_LIMIT_S, MANAGER

DETAIL = "/bba01/getRoomDetailNew"
LOGIN = "/baa00/loginMod"
ROOMS = "/bba01/getRoomList"
FLOORS = "/bba01/getFloorSum"
INIT = "/baa00/getSysInitByAuthCode"
BUSY_ROOM = "101"

KINDS = {"delay:3000": "answers after 3 s", "drop": "hangs up without doing it", "drop-after": "does it, then hangs up",
         "http500": "status 500 and a text", "http500-ok": "does it, status 500", "garbage": "answers what is no JSON",
         "truncate": "does it, half an answer", "refuse:BUSY_0001": "refuses", "hang": "never answers"}
# The kinds with which the change is made all the same.
DONE = {"delay:3000", "drop-after", "http500-ok", "truncate"}

LIES = {"a list in place of the record": '{"code":"200","msg":"ok","data":[]}',
        "no record": '{"code":"200","msg":"ok","data":null}',
        "texts for lists, lists for numbers": '{"code":"200","msg":"ok","data":{"id":7,"roomNo":["x"],"status":"two",'
                                              '"hours":{},"cardlist":"none"}}',
        "the code as a number": '{"code":200,"msg":"ok","data":{}}',
        "a depth of 5,000": '{"code":"200","data":' + '{"data":' * 5000 + "1" + "}" * 5000 + "}",
        "a text of 5 MB": '{"code":"200","msg":"ok","data":{"id":"1","roomNo":"101","status":2,"remark":"' +
                          "水" * 1_700_000 + '"}}'}


def saving(shop):
    """A massage room is opened: the one change that must not be sent twice."""
    shop.shop()
    for kind, words in KINDS.items():
        row = Row(f"the back end {words}", "opens a room")
        if not shop.wants(row.fault, row.road):
            continue
        _, card = shop.fill_opening()
        shop.stand.control("fault", {"path": OPEN_ROOM, "kind": kind})
        is_closed = shop.save_opening(row, card)
        shop.stand.control("clear", {})
        if not is_closed:
            # The user tries again.
            again = Row(row.fault, row.road)
            closed_now = shop.save_opening(again, card)
            row.saw += f"; again: {again.saw}"
            row.faults += again.faults
            if not closed_now:
                shop.hands.tap("closeButton")
                shop.hands.gone("openRoomDlg")
            if kind in DONE:
                row.lost = "nothing; that it was done shows on the board"
            elif not closed_now:
                row.faults.append("IT CAN'T BE SAVED ANY MORE")
        shop.add(row, POST_LIMIT_S)


def reading(shop):
    """A room's detail is looked at."""
    shop.shop()
    for kind, words in KINDS.items():
        row = Row(f"the back end {words}", "looks at a room")
        if not shop.wants(row.fault, row.road):
            continue
        shop.stand.control("fault", {"path": DETAIL, "kind": kind})
        look_at_a_room(shop, row)
        shop.stand.control("clear", {})
        shop.add(row, READ_LIMIT_S)


def lies(shop):
    """The back end answers in the right envelope what makes no sense."""
    shop.shop()
    for words, body in LIES.items():
        row = Row(f"the back end tells {words}", "looks at a room")
        if not shop.wants(row.fault, row.road):
            continue
        shop.stand.control("answer", {"path": DETAIL, "body": body})
        look_at_a_room(shop, row)
        shop.stand.control("clear", {})
        shop.add(row, READ_LIMIT_S)
        row = Row(f"the back end tells {words}", "the board is fetched")
        shop.stand.control("answer", {"path": ROOMS, "body": body})
        fetch_board(shop, row)
        shop.stand.control("clear", {})
        fetch_board(shop, Row("", ""))
        if shop.hands.is_gone(f"room_{BUSY_ROOM}"):
            row.faults.append("THE BOARD STAYS EMPTY")
        shop.add(row)


def look_at_a_room(shop, row):
    seen = shop.stand.calls(DETAIL)
    shop.hands.tap(f"room_{BUSY_ROOM}")
    row.waited_s = shop.waited(READ_LIMIT_S)
    has_menu = not shop.hands.is_gone("menu_REMARK_ROOM")
    row.saw = shop.message() + (", the room" if has_menu else ", an empty dialog")
    row.calls = " / ".join(str(now - before) for now, before in zip(shop.stand.calls(DETAIL), seen))
    shop.hands.tap("closeButton")
    shop.hands.gone("roomDetailDlg")


def fetch_board(shop, row):
    """As an event would have it fetched."""
    shop.stand.control("publish", {"topic": "ROOMSTATUS_" + store_id(shop), "payload": "{}"})
    row.waited_s = None
    time.sleep(2.5)
    is_there = not shop.hands.is_gone(f"room_{BUSY_ROOM}")
    row.saw = shop.message() + (", the board as it was" if is_there else ", an empty board")


def store_id(shop):
    request = shop.stand.control("requests?path=" + ROOMS)[-1]
    return request["json"]["storeId"]


def board(shop):
    """The board is fetched after an event."""
    shop.shop()
    for kind, words in KINDS.items():
        row = Row(f"the back end {words}", "the board is fetched")
        if not shop.wants(row.fault, row.road) or kind == "hang":
            continue
        shop.stand.control("fault", {"path": ROOMS, "kind": kind, "count": 1})
        fetch_board(shop, row)
        shop.stand.control("clear", {})
        shop.add(row)
    silent_board(shop)


def silent_board(shop):
    """Nothing answers when the board is fetched: one call's time without taps, not one after the other."""
    row = Row("the back end never answers anything", "the board is fetched")
    if not shop.wants(row.fault, row.road):
        return
    seen = {path: shop.stand.calls(path)[0] for path in (ROOMS, FLOORS)}
    shop.stand.control("fault", {"path": "*", "kind": "hang"})
    shop.stand.control("publish", {"topic": "ROOMSTATUS_" + store_id(shop), "payload": "{}"})
    shop.hands.until("the fetch", lambda: not shop.taps_taken())
    row.waited_s = shop.waited(READ_LIMIT_S)
    row.saw = shop.message()
    asked = {path: shop.stand.calls(path)[0] - before for path, before in seen.items()}
    row.calls = f"{asked[ROOMS]} / 0"
    if asked[FLOORS]:
        row.faults.append("THE NEXT LIST WAS ASKED FOR ALL THE SAME")
    shop.stand.control("clear", {})
    fetch_board(shop, again := Row("", ""))
    row.saw += f"; with an answer: {again.saw}"
    if shop.hands.is_gone(f"room_{BUSY_ROOM}"):
        row.faults.append("THE BOARD STAYS EMPTY")
    shop.add(row, READ_LIMIT_S)


def modules(shop):
    """The back end holds rights without end."""
    for module in ("CONSUME_CTRL", "NEW_CTRL"):
        row = Row(f"the back end tells 100,000 modules {module}", "starts and ends")
        if not shop.wants(row.fault, row.road):
            continue
        shop.shop(opens_board=False)
        shop.stand.stop("terminal")
        rights = [{"funcVal": module, "authName": "x", "pid": "0", "authflg": True}] * 100000
        shop.stand.control("answer", {"path": INIT, "body": {"code": "200", "msg": "", "data": {"modAuth": rights}}})
        shop.start_terminal()
        shop.hands.see("mainPage")
        begin = time.monotonic()
        code = shop.stand.stop("terminal")
        row.waited_s = time.monotonic() - begin
        row.saw = f"the main page; ends with {code}"
        if code != 0:
            row.faults.append("IT DOESN'T END")
        shop.stand.control("clear", {})
        shop.start_terminal()
        shop.hands.see("mainPage")
        shop.add(row, END_LIMIT_S)


def login(shop):
    """Somebody logs in by number and password."""
    shop.shop(opens_board=False)
    for kind, words in KINDS.items():
        row = Row(f"the back end {words}", "logs in")
        if not shop.wants(row.fault, row.road) or kind == "hang":
            continue
        hands = shop.hands
        seen = shop.stand.calls(LOGIN)
        hands.tap("tile_ROOMINFO_CTRL")
        hands.see("loginDlg")
        hands.keys(MANAGER)
        hands.tap("confirmButton")
        hands.keys(MANAGER)
        shop.stand.control("fault", {"path": LOGIN, "kind": kind})
        hands.tap("confirmButton")
        row.waited_s = shop.waited(POST_LIMIT_S)
        is_in = not hands.is_gone("modeButton")
        is_open = not hands.is_gone("loginDlg")
        row.saw = f"{shop.message()}, " + ("the board" if is_in else "the dialog stays" if is_open else "back at the tiles")
        row.calls = " / ".join(str(now - before) for now, before in zip(shop.stand.calls(LOGIN), seen))
        row.lost = "nothing" if is_in else "number and password, typed again"
        if not row.calls.startswith("1 "):
            row.faults.append("THE LOGIN WAS NOT SENT ONCE")
        shop.stand.control("clear", {})
        if is_in:
            hands.tap("returnButton")
            hands.see("tile_ROOMINFO_CTRL")
        elif is_open:
            hands.tap("cancelButton")
        shop.add(row, POST_LIMIT_S)


def dying(shop):
    """The back end dies and comes back, with its memory of rooms and sessions lost."""
    fault = "the back end dies in the middle, and is back 5 s later"
    if not shop.wants(fault, "opens a room"):
        return
    shop.shop()
    row = Row(fault, "opens a room")
    _, card = shop.fill_opening()
    shop.stand.control("fault", {"path": OPEN_ROOM, "kind": "delay:4000"})
    shop.hands.tap("saveButton")
    time.sleep(1)
    shop.stand.stop("house", signal.SIGKILL)
    row.waited_s = shop.waited(POST_LIMIT_S)
    row.saw = shop.message()
    if shop.hands.is_gone(f"card_{card}"):
        row.faults.append("THE CARD IS GONE FROM THE PAGE")
    time.sleep(5)
    shop.stand.start_house()
    again = Row("", "")
    shop.save_opening(again, card)
    row.saw += f"; once it is back: {again.saw}"
    row.faults += again.faults
    shop.hands.tap("closeButton")
    shop.hands.gone("openRoomDlg")
    shop.hands.tap("returnButton")
    shop.open_board()
    row.lost = "the session, with the back end's memory: the page is left to log in anew, the card entered again"
    room, card = shop.fill_opening()
    if not shop.save_opening(Row("", ""), card):
        row.faults.append("NO ROOM CAN BE OPENED ANY MORE")
    shop.add(row, POST_LIMIT_S)


def broker(shop):
    """The broker is killed, frozen, and back."""
    shop.shop()
    for fault, breaks, mends in (
            ("the broker is killed, and back 4 s later", lambda: shop.stand.stop("broker", signal.SIGKILL),
             shop.stand.start_broker),
            ("the broker freezes for 4 s", lambda: shop.stand.freeze("broker"), lambda: shop.stand.thaw("broker"))):
        row = Row(fault, "another terminal opens a room")
        if not shop.wants(row.fault, row.road):
            continue
        breaks()
        seen = shop.stand.calls(ROOMS)[0]
        shop.stand.control("others", {"perSecond": 2, "seed": 7})
        time.sleep(4)
        shop.stand.control("others", {"perSecond": 0})
        taken = "taps are taken" if shop.taps_taken() else "no taps are taken"
        mends()
        begin = time.monotonic()
        shop.hands.until("the board to be fetched", lambda: shop.stand.calls(ROOMS)[0] > seen, 60)
        row.saw = (f"{shop.message()}, {taken}; "
                   f"{time.monotonic() - begin:.0f} s after it is back the board is fetched")
        shop.add(row)


PARTS = (saving, reading, lies, board, modules, login, dying, broker)
