#!/usr/bin/python3 -B
"""How long a practised hand takes for a sale of 12 items at the till: till_pace.py BUILD_FOLDER.

Taps as fast as a person, 350 ms each, and only what stands still on the screen; once by categories and once by
initials. Ends with 1 when a sale takes longer than 36 s or more taps than 2 an item by category and 4 by initials, or
when the books lack a line.
"""
import sys
import tempfile
import time

from hands import Hands, Stuck
from stand import MANAGER_CARD, Stand, end_on_signals, say
from tour_till import GUEST_CARD, HALL

TAP_S = 0.35
LIMIT_S = 36
GUEST = "8001"
# Category of the hall and place in it: each in another category than the one before.
BY_CATEGORY = [(1, 0), (2, 0), (3, 3), (1, 2), (2, 1), (3, 4), (1, 4), (2, 3), (3, 6), (1, 5), (2, 4), (3, 7)]
BY_INITIALS = ["KQS", "SDS", "HPJ", "XGG", "ZHG", "HMG", "KXG", "NRG", "SMT", "CWQ", "MLH", "PES"]


class Pace:
    """One tap after the other, none earlier than a person's."""

    def __init__(self, hands):
        self.hands, self.taps, self.last = hands, 0, 0

    def tap(self, name):
        x, y, width, height, _ = self.hands.settled(name)
        time.sleep(max(0, self.last + TAP_S - time.monotonic()))
        self.last = time.monotonic()
        self.taps += 1
        self.hands.click(x + width // 2, y + height // 2)

    def tap_when_alone(self, name, other):
        """What is searched for is there once nothing else is."""
        self.hands.until(f"only {name}", lambda: self.hands.place(name) and self.hands.is_gone(other))
        self.tap(name)


def by_category(pace):
    for category, item in BY_CATEGORY:
        pace.tap(f"type_{category}")
        time.sleep(0.1)  # the tap's call has begun
        pace.tap(f"item_{item}")


def by_initials(pace):
    for letters in BY_INITIALS:
        for letter in letters:
            pace.tap(f"initial_{letter}")
        pace.tap_when_alone("item_0", "item_1")


def sale(stand, hands, enter, opening=()):
    """Seconds and taps from the guest's card to the saved order."""
    hands.see("numKeyDlg")
    before = len(stand.control(f"orders?guest={GUEST}"))
    pace = Pace(hands)
    begin = time.monotonic()
    stand.present_hand_card(GUEST_CARD)
    hands.gone("numKeyDlg")
    for name in (HALL, *opening):
        pace.tap(name)
    enter(pace)
    pace.tap("saveSaleButton")
    hands.see("numKeyDlg")
    seconds = time.monotonic() - begin
    if len(stand.control(f"orders?guest={GUEST}")) != before + 12:
        raise Stuck("the books lack a line")
    return seconds, pace.taps


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    end_on_signals()
    is_good = True
    with tempfile.TemporaryDirectory() as folder, Stand(sys.argv[1], folder, has_own_program=True) as stand:
        for variable in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"):
            stand.environment.pop(variable, None)
        stand.start_all("1366x768")
        stand.start_terminal()
        hands = Hands(stand.places, stand.environment, settled_s=0.03).connect()
        try:
            hands.tap("tile_CONSUME_CTRL")
            hands.see("loginDlg")
            stand.present_staff_card(MANAGER_CARD)
            for name, enter, opening, most in (("category", by_category, (), 2), ("initials", by_initials, ("searchKey",), 4)):
                seconds, taps = sale(stand, hands, enter, opening)
                say(f"12 items by {name}, and the save: {taps} taps, {seconds:.1f} s")
                is_good = is_good and seconds <= LIMIT_S and taps - len(opening) - 2 <= 12 * most
        except Stuck as stuck:
            sys.exit(f"till_pace: {stuck}; see {hands.save_screen('till-pace-stuck.png')}")
    sys.exit(0 if is_good else 1)


if __name__ == "__main__":
    main()
