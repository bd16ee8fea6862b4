"""The till's part of the evening: a guest consumes, takes something back and changes his ticket."""
import time

from hands import new_slip
from stand import MANAGER_CARD

CASHIER_CARD = "73942863"
GUEST_CARD = "49748974"  # of a guest in a massage room, with a ticket
HALL, MASSAGE = "area_405800110000006035", "area_405800110000005028"


class Till:
    """What is done at the till, in the words of the cashier."""

    def __init__(self, stand, hands):
        self.stand, self.hands = stand, hands

    def guest(self):
        self.hands.see("numKeyDlg")
        self.stand.present_hand_card(GUEST_CARD)
        self.hands.gone("numKeyDlg")
        self.hands.see("guestText", "oldLine_0")

    def sell(self, category, item):
        self.hands.tap(f"type_{category}")
        time.sleep(0.5)  # the category's tiles have come
        self.hands.tap(f"item_{item}")

    def confirm(self, dialog, picture=None):
        if picture:
            self.hands.picture(picture)
        self.hands.tap("confirmButton")
        self.hands.gone(dialog)

    def supervised(self, picture, slip):
        """What is saved here is looked at by a supervisor."""
        before = self.stand.slip_pictures()
        self.hands.see("authDlg")
        self.hands.picture(picture)
        self.stand.present_staff_card(MANAGER_CARD)
        self.hands.gone("authDlg")
        new_slip(self.stand, self.hands, before, slip)
        self.hands.message()


def enter_lines(till):
    """Drinks, a dish, a fish, a massage; one of them is a gift, one has a remark."""
    hands = till.hands
    hands.tap(HALL)
    till.sell(1, 0)
    hands.tap("item_0", "item_0")
    hands.see("newLine_0")
    till.sell(4, 0)
    hands.tap("taste_0_1")
    till.confirm("tasteDlg", "till-taste")
    till.sell(5, 0)
    hands.tap("priceField")
    hands.see("numDlg")
    hands.keys("86.5")
    till.confirm("numDlg")
    till.confirm("definePriceDlg", "till-market-price")
    hands.tap("areaKey", MASSAGE)
    till.sell(1, 0)
    hands.tap("shift_0", "kind_1")
    for field, number in (("staffField", "805"), ("pushField", "801")):
        hands.tap(field)
        hands.see("staffQueryDlg")
        hands.keys(number)
        till.confirm("staffQueryDlg")
    till.confirm("setJsServiceDlg", "till-technician")
    hands.see("newLine_3")
    hands.swipe("newLine_0", 0, -120)  # up: the list's
    time.sleep(1)  # until the list rests
    hands.swipe("newName_2", -120, 10)
    hands.see("entry_gift")
    hands.picture("till-swipe")
    hands.tap("entry_gift")
    hands.tap("newMenu_2", "entry_remark", "phrase_加茶水")
    till.confirm("remarkDlg")
    hands.picture("till-lines")


def evening_at_the_till(stand, hands):
    till = Till(stand, hands)
    hands.tap("tile_CONSUME_CTRL")
    hands.see("loginDlg")
    stand.present_staff_card(CASHIER_CARD)
    hands.see("Module2")
    till.guest()
    hands.picture("till-guest")
    enter_lines(till)
    hands.tap("saveSaleButton")
    hands.see("numKeyDlg")
    hands.keys("7")
    till.confirm("numKeyDlg")
    till.supervised("till-gift-supervisor", "slip-sale")
    till.guest()
    hands.tap("oldMenu_1", "entry_refund")
    hands.see("newLine_0")
    hands.picture("till-chargeback")
    hands.tap("saveSaleButton")
    till.supervised("till-chargeback-supervisor", "slip-chargeback")
    till.guest()
    before = stand.slip_pictures()
    hands.tap("oldMenu_1", "entry_reprint")
    new_slip(stand, hands, before, "slip-again")
    hands.tap("oldMenu_0", "entry_ticket", "ticket_1")
    till.confirm("chgTpDlg", "till-ticket")
    hands.tap("sumsButton", "queryButton")
    hands.see("sumArea_0")
    hands.picture("till-sums")
    before = stand.slip_pictures()
    hands.tap("printButton")
    new_slip(stand, hands, before, "slip-sums")
    hands.tap("backButton", "cardsButton")
    hands.see("totalInfo")
    hands.picture("till-cards")
    hands.tap("backButton")
    hands.gone("allInCardsDlg")
    hands.tap("returnButton")
    hands.gone("Module2")
