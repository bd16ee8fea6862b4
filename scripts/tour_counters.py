"""The evening's end of the tour: what guests do for themselves, cards that pay for others, and the technician."""
import time

from hands import new_slip
from stand import MANAGER


def log_in(hands, entry, *seen):
    hands.tap(entry)
    hands.see("loginDlg")
    for _ in ("number", "password"):
        hands.keys(MANAGER)
        hands.tap("confirmButton")
    hands.see(*seen)


def leave(hands):
    hands.tap("returnButton")
    hands.see("tileGrid")


def answered(hands, word):
    hands.until(f"the answer {word}", lambda: hands.text("answerWord") == word)


def guests(stand):
    """Three hand cards that owe something and haven't been at a counter."""
    lines = [line["guest"] for line in stand.control("orders") if not line["isRoom"]]
    owing = [guest for guest in dict.fromkeys(lines) if lines.count(guest) > 1 and guest > "8001"]
    return owing[:3]


def self_entry(stand, hands, guest):
    log_in(hands, "tile_SELF_ORDER", "Module7", "cardType_0")
    hands.picture("self-entry")
    hands.number("counterButton", guest)
    answered(hands, "已录入")
    hands.picture("self-entry-taken")
    leave(hands)


def buffet(stand, hands, guest, other):
    stand.control("meal", {"meal": "晚餐"})
    log_in(hands, "tile_ZZC_CTRL", "Module8", "mealPerson")
    hands.picture("buffet")
    before = stand.slip_pictures()
    hands.number("counterButton", guest)
    answered(hands, "请用餐")
    hands.picture("buffet-taken")
    new_slip(stand, hands, before, "slip-buffet")
    hands.number("counterButton", guest)
    answered(hands, "已用过餐")
    hands.picture("buffet-again")
    hands.gone("counterAnswer")
    before = stand.slip_pictures()
    hands.tap("childBox", "plusButton")
    hands.number("counterButton", other)
    answered(hands, "请用餐")
    new_slip(stand, hands, before, "slip-child-meal")
    leave(hands)
    stand.control("meal", {})


def transfer(stand, hands, sources, target):
    log_in(hands, "tile_TRANSFER_CTRL", "transferCardsDlg")
    for source in sources:
        hands.number("cardButton", source)
        hands.see(f"card_{source}")
    hands.picture("transfer-cards")
    hands.tap("confirmButton")
    hands.gone("transferCardsDlg")
    hands.see("cardFact_0")
    hands.picture("transfer")
    before = stand.slip_pictures()
    hands.number("counterButton", target)
    hands.see("msgConfirmDlg")
    hands.picture("transfer-question")
    hands.tap("confirmButton")
    hands.see("tileGrid")
    new_slip(stand, hands, before, "slip-transfer")


def settings(stand, hands):
    """A setting is changed and saved, the workbench tries printer, voice, lines and readers, the program starts anew."""
    log_in(hands, "bottom_SYS_CTRL", "Module5", "set_leave_room_print_count")
    hands.picture("settings")
    hands.tap("set_leave_room_print_count")
    hands.see("numDlg")
    hands.keys("2")
    hands.tap("confirmButton")
    hands.gone("numDlg")
    hands.picture("settings-unsaved")
    hands.tap("saveButton")
    hands.see("restartButton")
    hands.picture("settings-saved")
    hands.scroll("settingsScroll", -2)
    before = stand.slip_pictures()
    hands.tap("printTest", "voiceTest", "linesTest")
    new_slip(stand, hands, before, "slip-test")
    hands.tap("readersTest")
    hands.until("the reader to be listened to", lambda: hands.text("readersTest") == "停止读卡")
    stand.present_hand_card("61893583")
    stand.present_staff_card()
    hands.see("row_1")
    hands.picture("workbench")
    hands.tap("readersTest", "restartButton")
    hands.see("msgConfirmDlg")
    hands.tap("confirmButton")
    hands.gone_terminal()
    hands.connect()
    hands.see("mainPage", "tile_ROOMINFO_CTRL")
    time.sleep(1)  # the readers have opened
    if stand.settings()["leave_room_print_count"] != "2":
        raise AssertionError("the setting wasn't kept")


def counters(desk):
    stand, hands = desk.stand, desk.hands
    first, second, third = guests(stand)
    self_entry(stand, hands, first)
    buffet(stand, hands, first, second)
    transfer(stand, hands, (first, second), third)
    settings(stand, hands)
