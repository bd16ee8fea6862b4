"""The evening of a person at the front desk, walked by clicks on the screen, with a picture of every step."""
import subprocess
import sys
import time

from hands import new_slip
from stand import MANAGER, MANAGER_CARD
from tour_counters import counters
from tour_clock import board_again, service_clock, timer_first
from tour_till import evening_at_the_till

MADE = "tour.txt"  # which pictures of its folder a tour has made
HELPER = "601"  # number and password
HELPER_CARD = "31927757"
QUEUE_NUMBER, QUEUE_CARD = "8001", "49748974"  # a guest's hand card
CALL_S = 2.5  # a call takes longer to say
BOARD_S = 1.2  # the event of a change comes and the board is fetched


class Desk:
    """What is done at a room, in the words of the front desk."""

    def __init__(self, stand, hands):
        self.stand, self.hands = stand, hands

    def empty_room(self, room, entry):
        self.hands.tap(f"room_{room}")
        self.hands.see("openRoomDlg")
        self.hands.tap(f"menu_{entry}")

    def detail(self, room, entry=None):
        self.hands.tap(f"room_{room}")
        self.hands.see("roomDetailDlg", "menu_REMARK_ROOM")
        if entry:
            self.hands.tap(f"menu_{entry}")

    def card(self, number):
        self.hands.number("cardButton", number)
        self.hands.see(f"card_{number}")

    def save(self, dialog="roomDetailDlg"):
        self.hands.tap("saveButton")
        self.hands.gone(dialog)
        time.sleep(BOARD_S)

    def save_with_slip(self, dialog, name):
        before = self.stand.slip_pictures()
        self.save(dialog)
        self.slip(before, name)

    def slip(self, before, name):
        new_slip(self.stand, self.hands, before, name)

    def confirm(self, dialog, picture=None):
        self.hands.see(dialog)
        if picture:
            self.hands.picture(picture)
        self.hands.tap("confirmButton")
        self.hands.gone(dialog)
        time.sleep(BOARD_S)

    def clean(self, room, pictures=(None, None, None)):
        """The two steps of cleaning, then the room is free."""
        for picture in pictures:
            self.hands.tap(f"room_{room}")
            self.confirm("confirmDlg", picture)


def open_board(stand, hands):
    hands.tap("tile_ROOMINFO_CTRL")
    hands.see("loginDlg")
    hands.picture("login")
    stand.present_staff_card(MANAGER_CARD)
    hands.see("Module1", "room_112", "floor_一楼")
    hands.picture("board")
    hands.tap("modeButton")
    hands.see("roomGroups", "room_112")
    hands.picture("board-by-type")
    hands.tap("modeButton")
    hands.tap("floor_二楼")
    hands.gone("room_112")
    hands.picture("board-one-floor")
    hands.tap("floor_二楼")
    hands.see("room_112")


def massage_room(desk):
    """Two cards come in, a slip is printed, a service is called."""
    hands = desk.hands
    hands.tap("room_112")
    hands.see("openRoomDlg", "menu_MASS_ROOM")
    hands.picture("empty-room")
    hands.tap("menu_MASS_ROOM", "cardButton")
    hands.see("numKeyDlg")
    hands.keys("8042")
    hands.picture("card-number")
    hands.tap("confirmButton")
    hands.see("card_8042")
    desk.card("8043")
    hands.picture("open-massage-room")
    desk.save_with_slip("openRoomDlg", "slip-open-room")
    hands.picture("room-112-open")
    desk.detail("112")
    hands.picture("room-detail")
    hands.tap("menu_ROOM_CALLING", "plusButton_0", "plusButton_0")
    hands.picture("call-service")
    desk.save()


def to_rest_and_back(desk):
    hands = desk.hands
    desk.detail("112", "MASS_CHG_REST")
    hands.tap("plan_0")
    hands.picture("massage-to-rest")
    desk.save()
    desk.detail("112", "ADD_CARD")
    desk.card("8044")
    hands.picture("add-card")
    desk.save()
    desk.detail("112")
    hands.picture("rest-room-detail")
    hands.tap("menu_REST_CHG_MASS", "check_8042")
    hands.picture("rest-to-massage")
    desk.save()


def group_of_rooms(desk):
    """One card moves to the room next door, and both rooms become a group."""
    hands = desk.hands
    desk.detail("112", "UNPACK_ROOM")
    hands.number("searchButton", "115")
    hands.tap("room_0", "card_8044")
    hands.picture("split")
    desk.save()
    desk.detail("112", "UNION_ROOM")
    hands.number("searchButton", "115")
    hands.see("groups")
    hands.tap("room_4*")  # the one that is left, by its id
    hands.picture("merge")
    desk.save()
    desk.detail("112", "REMARK_ROOM")
    hands.tap("remarkArea")
    hands.write("VIP 安静")
    hands.picture("remark")
    desk.save()
    hands.picture("board-with-group")
    desk.detail("115", "LEAVE_TEAM")
    desk.confirm("msgConfirmDlg", "leave-group")
    hands.gone("roomDetailDlg")
    desk.detail("115", "MASS_CHG_ROOM")
    hands.number("searchButton", "118")
    hands.picture("move-massage-room")
    desk.save()


def rest_room(desk):
    """A guest sleeps: a longer plan, more time, another room, and in the end it wasn't him."""
    hands = desk.hands
    desk.empty_room("305", "REST_ROOM")
    desk.card("8045")
    hands.tap("plan_0")
    hands.picture("open-rest-room")
    desk.save_with_slip("openRoomDlg", "slip-open-rest-room")
    desk.detail("305", "REST_CHG_PLAN")
    hands.tap("plan_1")
    hands.picture("change-plan")
    desk.save()
    desk.detail("305", "ADD_TIME")
    hands.tap("plusButton")
    hands.picture("add-time")
    desk.save()
    desk.detail("305", "REST_CHG_ROOM")
    hands.number("searchButton", "312")
    hands.tap("plan_0")
    hands.picture("move-rest-room")
    desk.save()
    desk.detail("312", "CANCEL_ROOM")
    desk.confirm("msgConfirmDlg", "cancel-room")
    hands.gone("roomDetailDlg")


def occupied_room(desk):
    hands = desk.hands
    desk.empty_room("203", "OCCUPY_ROOM")
    hands.tap("occupy_1")
    hands.picture("occupy-room")
    desk.save("openRoomDlg")


def guests_leave(desk):
    """The guests of the first room leave with a slip, and the room is cleaned in its two steps."""
    hands = desk.hands
    desk.detail("112", "OUT_ROOM")
    hands.picture("leave")
    desk.save_with_slip("roomDetailDlg", "slip-leave-room")
    desk.clean("112", ("cleaning-begins", "cleaning-done", "room-empty"))


def others_at_work(desk):
    """What other terminals do arrives by itself."""
    desk.stand.control("others", {"perSecond": 4, "seed": 7})
    time.sleep(8)
    desk.hands.picture("others-at-work")
    desk.stand.control("others", {"perSecond": 0})


def locked_module(desk):
    """A locked module is only left by who may open it; this time by number and password."""
    hands = desk.hands
    hands.tap("lockButton", "returnButton")
    hands.see("loginDlg")
    hands.keys(MANAGER)
    hands.tap("confirmButton")
    hands.keys(MANAGER)
    hands.picture("locked")
    hands.tap("confirmButton")
    hands.see("tile_ROOMINFO_CTRL")
    # The lock outlives the module; whoever may open it takes it off in the next one.
    hands.tap("tile_ROOMINFO_CTRL")
    hands.see("loginDlg")
    desk.stand.present_staff_card(MANAGER_CARD)
    hands.see("Module1", "room_112")
    hands.tap("lockButton")
    hands.see("loginDlg")
    desk.stand.present_staff_card(MANAGER_CARD)
    hands.gone("loginDlg")
    hands.tap("returnButton")
    hands.see("tile_ROOMINFO_CTRL")


def walk(stand, hands):
    desk = Desk(stand, hands)
    hands.see("mainPage", "tile_ROOMINFO_CTRL")
    hands.picture("main-page")
    evening_at_the_till(stand, hands)
    open_board(stand, hands)
    for part in (massage_room, to_rest_and_back, group_of_rooms, rest_room, occupied_room, guests_leave,
                 service_clock, timer_first, call_queue, counters, board_again, others_at_work, locked_module):
        part(desk)


def queue_action(hands, button, number=None):
    """A button of the call queue, with a hand card where it asks for one."""
    hands.tap(button)
    if number:
        hands.see("numKeyDlg")
        hands.keys(number)
        hands.tap("confirmButton")
        hands.gone("numKeyDlg")


def identify(hands, number):
    """At the login dialog, by a number that is the password too."""
    hands.see("loginDlg")
    for _ in ("number", "password"):
        hands.keys(number)
        hands.tap("confirmButton")
    hands.gone("loginDlg")


def log_in_helper(hands, number):
    hands.tap("tile_HELP_BASH_WAIT")
    identify(hands, number)
    hands.see("Module4", "call_8042")


def call_queue(desk):
    """A guest queues by card, is called aloud, served, booked, evaluated; another one is passed over and called again."""
    hands, stand = desk.hands, desk.stand
    log_in_helper(hands, HELPER)
    hands.picture("queue")
    stand.present_hand_card(QUEUE_CARD)
    hands.see(f"call_{QUEUE_NUMBER}")
    queue_action(hands, f"call_{QUEUE_NUMBER}")
    hands.see("inputOrReadDlg")
    hands.picture("who-acts")
    stand.present_staff_card(HELPER_CARD)
    hands.see(f"repeat_{QUEUE_NUMBER}")
    hands.picture("called")
    queue_action(hands, f"startServerDir_{QUEUE_NUMBER}")
    hands.gone(f"repeat_{QUEUE_NUMBER}")
    hands.picture("served")
    queue_action(hands, "complateButton", QUEUE_NUMBER)
    hands.see("Module2", "guestText")
    hands.tap("item_0")
    hands.see("newLine_0")
    hands.picture("booked-after-service")
    before = stand.slip_pictures()
    hands.tap("saveSaleButton")
    hands.see("numKeyDlg")
    hands.tap("cancelButton")
    hands.gone("numKeyDlg")
    new_slip(stand, hands, before, "slip-order")
    hands.tap("returnButton")
    hands.see("Module4", "assessButton")
    queue_action(hands, "assessButton", "8041")
    hands.see("serviceEvalDlg", "grade_0_0")
    hands.tap("grade_0_0")
    hands.picture("evaluation")
    hands.tap("confirmButton")
    hands.gone("serviceEvalDlg")
    queue_action(hands, "cross_6031")
    hands.gone("cross_6031")
    queue_action(hands, "passRecordDlgButton")
    hands.see("passRecordDlg", "recall_6031")
    hands.picture("passed-over")
    hands.tap("recall_6031", "backButton")
    hands.gone("passRecordDlg")
    hands.see("repeat_6031")
    hands.until("both calls to be said", lambda: stand.said_seconds() > 2 * CALL_S)
    hands.tap("returnButton")
    hands.see("tile_HELP_BASH_WAIT")


def pictures_in(folder):
    return {picture: picture.stat().st_mtime_ns for picture in folder.rglob("*.png")}


def note(folder, before):
    """Writes down which pictures a tour has made, so that the next one can tell them from others."""
    made = sorted(str(picture.relative_to(folder)) for picture, time_ns in pictures_in(folder).items()
                  if before.get(picture) != time_ns)
    (folder / MADE).write_text("".join(f"{name}\n" for name in made))


def remove_earlier(folder):
    """Deletes what an earlier tour has made in the folder, and nothing else."""
    names = (folder / MADE).read_text().splitlines() if (folder / MADE).exists() else []
    for name in names:
        if name.endswith(".png") and ".." not in name and not name.startswith("/"):
            (folder / name).unlink(missing_ok=True)


def every_page(stand, folder):
    """Then the terminal shows each of its pages and dialogs by itself; the exit code of that."""
    stand.stop("terminal")
    stand.environment["KV_PANEL_PASSWORD"] = MANAGER
    before = pictures_in(folder)
    code = stand.start_terminal("--selftest", "--strict", "--staff", MANAGER, "--pictures", folder, stdout=None).wait()
    for picture, time_ns in pictures_in(folder).items():
        if before.get(picture) != time_ns:
            subprocess.run(["mogrify", "-strip", "-define", "png:compression-level=9", f"PNG24:{picture}"], check=True)
    return code


def run(stand, hands):
    folder = hands.pictures.resolve()
    before = pictures_in(folder)
    try:
        walk(stand, hands)
        code = every_page(stand, folder / "pages")
    finally:
        note(folder, before)
    print(f"tour: {len((folder / MADE).read_text().splitlines())} pictures in {hands.pictures}", file=sys.stderr)
    return code
