"""A person at the screen: real clicks on what the terminal shows, found by name, and pictures of it."""
import pathlib
import socket
import subprocess
import time

LIMIT_S = 15
SETTLED_S = 0.06
PRESS_S = 0.1  # a finger stays down that long
PACE_S = 0.35  # from one press to the next
HOLD_S = 0.9  # and that long when it means more


class Stuck(Exception):
    pass


class Hands:
    """`places` is the socket on which the terminal tells where its items are; `environment` holds the display."""

    def __init__(self, places, environment, pictures=None, settled_s=SETTLED_S):
        self.environment = environment
        self.settled_s = settled_s
        self.pictures = pathlib.Path(pictures) if pictures else None
        self.count = 0
        self.taps = 0
        self.slips = 0  # that were waited for
        self.pressed_at = 0
        self.again = 0  # of these those that had to be repeated
        self.places = places
        self.socket = None
        if self.pictures:
            self.pictures.mkdir(parents=True, exist_ok=True)

    def connect(self):
        """To the terminal that runs now."""
        def connected():
            try:
                self.socket = socket.socket(socket.AF_UNIX)
                self.socket.connect(str(self.places))
                return True
            except OSError:
                return False
        self.until("the terminal", connected)
        self.lines = self.socket.makefile("r", encoding="utf-8")
        return self

    def asked(self, name):
        self.socket.sendall(f"{name}\n".encode())
        return self.lines.readline().rstrip("\n")

    def is_gone(self, name):
        return self.asked(name) == "-"

    def place(self, name):
        """What the terminal says of an item: its rectangle and its text; None while it can't be tapped."""
        words = self.asked(name).split(" ", 4)
        return (*map(int, words[:4]), words[4] if len(words) > 4 else "") if len(words) >= 4 else None

    def until(self, what, condition, limit_s=LIMIT_S):
        end = time.monotonic() + limit_s
        while time.monotonic() < end:
            result = condition()
            if result:
                return result
            time.sleep(0.02)
        raise Stuck(f"waited {limit_s} s for {what}")

    def settled(self, name, limit_s=LIMIT_S):
        """Its place once it stands still."""
        def same():
            before = self.place(name)
            if not before:
                return None
            time.sleep(self.settled_s)
            return before if before == self.place(name) else None
        return self.until(f"a sight of {name}", same, limit_s)

    def see(self, *names, limit_s=LIMIT_S):
        for name in names:
            self.settled(name, limit_s)

    def gone(self, name, limit_s=LIMIT_S):
        self.until(f"{name} to go", lambda: self.is_gone(name), limit_s)

    def text(self, name):
        place = self.place(name)
        return place[4] if place else None

    def tap(self, *names):
        for name in names:
            x, y, width, height, _ = self.settled(name)
            self.click(x + width // 2, y + height // 2)

    def sure_tap(self, name, condition):
        """Taps until the condition holds: a tap during a back-end call counts for nothing, and a person taps again."""
        def tapped():
            if condition():
                return True
            if self.place(name):
                self.tap(name)
                self.again += 1
            end = time.monotonic() + 1
            while time.monotonic() < end:
                if condition():
                    return True
                time.sleep(0.01)
            return False
        self.again -= 1
        self.until(f"what a tap on {name} brings", tapped)

    def hold(self, name):
        """Presses long."""
        x, y, width, height, _ = self.settled(name)
        self.click(x + width // 2, y + height // 2, HOLD_S)

    def click(self, x, y, down_s=PRESS_S):
        # Nobody taps faster, and what comes faster behind a dialog's end counts as meant for the dialog.
        time.sleep(max(0, self.pressed_at + PACE_S - time.monotonic()))
        self.pressed_at = time.monotonic()
        self.taps += 1
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "mousedown", "1", "sleep", str(down_s), "mouseup", "1"],
                       check=True, env=self.environment)

    def swipe(self, name, across, down=0):
        """Slides over an item with the finger down."""
        x, y, width, height, _ = self.settled(name)
        x, y = x + width // 2, y + height // 2
        moves = [word for step in range(1, 9) for word in ("mousemove", str(x + across * step // 8),
                                                           str(y + down * step // 8), "sleep", "0.01")]
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "mousedown", "1", "sleep", "0.05", *moves, "mouseup",
                        "1"], check=True, env=self.environment)

    def scroll(self, name, screens):
        """Drags what lies under the name by so many of its heights, upwards when negative."""
        x, y, width, height, _ = self.settled(name)
        for _ in range(2 * abs(screens)):
            start, end = (y + height * 3 // 4, y + height // 4)[::-1 if screens > 0 else 1]
            path = [str(start + (end - start) * step // 10) for step in range(1, 11)]
            moves = [word for to in path for word in ("mousemove", str(x + width - 40), to, "sleep", "0.02")]
            subprocess.run(["xdotool", "mousemove", str(x + width - 40), str(start), "mousedown", "1", *moves, "sleep",
                            "0.2", "mouseup", "1"], check=True, env=self.environment)

    def gone_terminal(self):
        """Waits until the terminal that was connected has ended."""
        def ended():
            try:
                return not self.asked("mainPage")
            except OSError:
                return True
        self.until("the terminal to end", ended)

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
        subprocess.run(["xdotool", "type", "--delay", "40", text], check=True, env=self.environment)

    def message(self):
        """The message on the screen, if there is one; it is waved away."""
        place = self.place("messageText")
        if not place:
            return ""
        x, y, width, height, text = place
        self.click(x + width // 2, y + height // 2)
        self.gone("messageText")
        return text

    def picture(self, name):
        if not self.pictures:
            return
        time.sleep(0.5)  # messages and pressed looks have come, animations are over
        self.count += 1
        self.save_screen(self.pictures / f"{self.count:02}-{name}.png")

    def save_screen(self, path):
        subprocess.run(["import", "-window", "root", "-strip", "-define", "png:compression-level=9", f"PNG24:{path}"],
                       check=True, env=self.environment)
        return path


def new_slip(stand, hands, before, name):
    """Waits for the next slip and puts its picture among the others."""
    slip = hands.until("a slip", lambda: next((s for s in stand.slip_pictures() if s not in before), None))
    time.sleep(0.3)
    hands.slips += 1
    if hands.pictures:
        hands.count += 1
        (hands.pictures / f"{hands.count:02}-{name}.png").write_bytes(slip.read_bytes())
