"""A technician's part of the evening: his shift on the service clock, and a service whose items are told at its end."""
import time

from stand import MANAGER_CARD

TECHNICIAN_CARD = "55687260"  # 812
TIMER_CARD = "17018771"  # 811


def log_in(desk, tile, card, *seen):
    desk.hands.tap(f"tile_{tile}")
    desk.hands.see("loginDlg")
    time.sleep(1)  # the card was lifted since it was read last
    desk.stand.present_staff_card(card)
    desk.hands.see(*seen)


def start_service(desk):
    hands = desk.hands
    log_in(desk, "STAFF_QTZ_CTRL", TECHNICIAN_CARD, "UpServerPage", "server_1")
    hands.tap("server_1", "kind_1")
    hands.number("cardField", "8042")
    hands.see("consumedLines")
    hands.number("roomField", "101")
    hands.picture("clock-start")
    hands.tap("startButton")
    hands.gone("Module3")
    hands.see("tile_STAFF_QTZ_CTRL", "messageText")
    hands.picture("clock-started")


def seen_on_the_board(desk):
    hands = desk.hands
    log_in(desk, "ROOMINFO_CTRL", MANAGER_CARD, "Module1", "room_101")
    hands.picture("board-with-service")
    hands.tap("returnButton")
    hands.see("tile_STAFF_QTZ_CTRL")


def change_service(desk):
    """Two clocks more by a long press, another kind, another hand card."""
    hands = desk.hands
    log_in(desk, "STAFF_QTZ_CTRL", TECHNICIAN_CARD, "DownServerPage", "running_0", "add_0")
    hands.picture("clock-running")
    hands.hold("add_0")
    hands.see("numDlg")
    hands.keys("2")
    hands.tap("confirmButton")
    hands.see("running_1")
    hands.tap("running_1")
    hands.see("change_2")
    hands.picture("clock-change-item")
    hands.tap("change_2")
    hands.gone("change_2")
    hands.tap("kind_1")
    hands.until("the kind", lambda: hands.text("messageText") == "更换成功")
    hands.number("cardField", "8043")
    hands.until("the card", lambda: hands.text("cardFieldText") == "8043")


def stop_service(desk):
    hands = desk.hands
    before = desk.stand.slip_pictures()
    hands.tap("stopButton")
    hands.see("msgConfirmDlg")
    hands.picture("clock-stop-early")
    hands.tap("confirmButton")
    hands.gone("Module3")
    desk.slip(before, "slip-technician-end")


def service_clock(desk):
    """By his card: start, add by a long press, other kind, other card, stop with the voucher; the board shows it."""
    desk.hands.tap("returnButton")
    desk.hands.see("tile_STAFF_QTZ_CTRL")
    start_service(desk)
    seen_on_the_board(desk)
    change_service(desk)
    stop_service(desk)


def timer_first(desk):
    """Nothing but the clock is started; two items and a pusher are told when it stops."""
    hands = desk.hands
    log_in(desk, "NO_ITEM_SERVER", TIMER_CARD, "StartServerPage")
    hands.picture("timer-start")
    hands.tap("startButton")
    hands.gone("Module6")
    log_in(desk, "NO_ITEM_SERVER", TIMER_CARD, "EndServerPage", "item_1")
    hands.tap("item_0", "item_1", "plus_1")
    hands.number("cardField", "8043")
    hands.number("positionField", "101")
    hands.tap("pushField")
    hands.see("staffQueryDlg")
    hands.keys("802")
    hands.tap("confirmButton")
    hands.gone("staffQueryDlg")
    hands.picture("timer-end")
    before = desk.stand.slip_pictures()
    hands.tap("bookButton")
    hands.gone("Module6")
    desk.slip(before, "slip-service-end")


def board_again(desk):
    log_in(desk, "ROOMINFO_CTRL", MANAGER_CARD, "Module1", "room_112")
