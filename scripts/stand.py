"""A shop on this machine: a broker, the demo back end, a screen, two card readers, a printer and the terminal.

Everything is started on ports and in folders of its own and ended by end(), which touches nothing else. Each part can
be ended, killed, frozen and started again by itself, at the same address.
"""
import contextlib
import json
import math
import os
import pathlib
import random
import shutil
import signal
import socket
import sqlite3
import subprocess
import sys
import tempfile
import time
import urllib.request

START_LIMIT_S = 20
END_LIMIT_S = 10
LIFT_S = 1.1  # a card that is told of again sooner is one that stays on the reader
VOICE_BYTES_PER_S = 22050 * 2
HERE = pathlib.Path(__file__).resolve().parent
SEED = HERE.parent / "house" / "seed" / "house.json"
MANAGER = "1001"  # number and password
MANAGER_CARD = "94780011"
SPEECH = HERE.parent / "packaging" / "speech"
SETTINGS = {"is_use_tts": "1", "tts_language": "简体中文 (中国)", "tts_voice": "espeak-ng", "staff_device_com": "COM1",
            "hand_card_device": "1", "print": "预览打印机", "is_open_room_print": "1", "leave_room_print_count": "1",
            "stop_server_print_count": "1"}


class Failed(Exception):
    pass


def say(text):
    print(f"\033[1m== {text}\033[0m", flush=True)


def until(what, condition, limit_s=START_LIMIT_S):
    """The first result of the condition that is true."""
    end = time.monotonic() + limit_s
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise Failed(f"waited {limit_s} s for {what}")
        time.sleep(0.05)


def answers(port):
    with contextlib.closing(socket.socket()) as probe:
        probe.settimeout(1)
        return probe.connect_ex(("127.0.0.1", port)) == 0


def free_port():
    while True:
        port = random.randrange(20000, 32000)  # below what the system hands out itself
        if not answers(port):
            return port


def install_missing(*groups):
    """Installs the groups of packages that scripts/common.sh names."""
    arrays = " ".join(f'"${{{group}[@]}}"' for group in groups)
    subprocess.run(["bash", "-c", f"set -euo pipefail; . scripts/common.sh; install_missing {arrays}"], check=True,
                   cwd=HERE.parent)


def versions(build):
    """What a report was made with."""
    def said(*command):
        return subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False,
                              cwd=HERE.parent).stdout.strip()
    packages = {name: said("dpkg-query", "-W", "-f", "${Version}", package)
                for name, package in (("Qt", "libqt5core5a"), ("mosquitto", "mosquitto"))}
    return ", ".join([said(pathlib.Path(build) / "bin" / "kv_panel", "--version").replace("_", "\\_", 1),
                      f"commit {said('git', 'rev-parse', '--short', 'HEAD') or 'unknown'}",
                      f"Debian {pathlib.Path('/etc/debian_version').read_text().strip()}",
                      *(f"{name} {version}" for name, version in packages.items()),
                      f"{os.cpu_count()} processors, {time.strftime('%Y-%m-%d')}"])


def has_sound_card():
    cards = pathlib.Path("/proc/asound/cards")
    return cards.exists() and "[" in cards.read_text()


def forget_port_locks(process):
    """A killed terminal leaves the lock of its serial port behind."""
    for lock in pathlib.Path("/run/lock").glob("LCK..*"):
        with contextlib.suppress(OSError):
            if lock.read_text().split("\n", 1)[0] == str(process):
                lock.unlink()


class Stand:
    """One shop. `build` is the build folder, `folder` keeps settings, slips and identity from run to run."""

    def __init__(self, build, folder, has_own_program=False):
        self.build = pathlib.Path(build).resolve()
        self.folder = pathlib.Path(folder).resolve()
        self.folder.mkdir(parents=True, exist_ok=True)
        self.run = pathlib.Path(tempfile.mkdtemp(prefix="kv-stand-"))
        self.parts = {}  # by name, in the order of their start
        self.slips = self.folder / "slips"
        self.card, self.card_at = None, 0  # presented last
        self.voice = self.folder / "voice.wav"  # what was said, where it isn't heard
        self.broker_port = free_port()
        self.house_port = free_port()
        self.house_url = f"http://127.0.0.1:{self.house_port}"
        # What window manager and libraries keep goes when the stand goes.
        self.environment = {**os.environ, "XDG_CACHE_HOME": str(self.run / "cache")}
        self.bin = self._copy_program() if has_own_program else self.build / "bin"
        self.places = self.run / "places"
        self.staff_reader = self.run / "staff-reader"
        self.hand_reader = self.run / "hand-reader"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def _copy_program(self):
        """A copy has a log of its own."""
        target = self.folder / "program"
        (target / "res").mkdir(parents=True, exist_ok=True)
        for name in ("kv_panel", "kv_house", "libPOSDLL.so"):
            shutil.copy2(self.build / "bin" / name, target / name)
        with contextlib.suppress(FileExistsError):
            (target / "res" / "fonts").symlink_to(self.build / "bin" / "res" / "fonts")
        return target

    # Parts

    def start(self, name, command, **keywords):
        log = open(self.run / f"{name}.log", "ab")
        keywords.setdefault("stdout", log)
        self.parts[name] = subprocess.Popen([str(word) for word in command], stderr=log, env=self.environment,
                                            stdin=subprocess.DEVNULL, **keywords)
        log.close()
        return self.parts[name]

    def stop(self, name, how=signal.SIGTERM):
        """Its exit code; negative when it had to be killed."""
        part = self.parts.pop(name, None)
        if part is None:
            return None
        if part.poll() is None:
            part.send_signal(signal.SIGCONT)
            part.send_signal(how)
        try:
            return part.wait(END_LIMIT_S)
        except subprocess.TimeoutExpired:
            part.kill()
            part.wait()
            return -signal.SIGKILL
        finally:
            forget_port_locks(part.pid)

    def freeze(self, name):
        self.parts[name].send_signal(signal.SIGSTOP)

    def thaw(self, name):
        self.parts[name].send_signal(signal.SIGCONT)

    def is_running(self, name):
        return name in self.parts and self.parts[name].poll() is None

    def end(self):
        for name in reversed(list(self.parts)):
            self.stop(name)
        shutil.rmtree(self.run, ignore_errors=True)

    def start_broker(self):
        passwords = self.run / "passwords"
        if not passwords.exists():
            subprocess.run(["mosquitto_passwd", "-c", "-b", str(passwords), "terminal", "demo-broker"], check=True,
                           stderr=subprocess.PIPE)
            passwords.chmod(0o600)
        configuration = self.run / "mosquitto.conf"
        configuration.write_text(f"listener {self.broker_port} 127.0.0.1\nallow_anonymous false\n"
                                 f"password_file {passwords}\npersistence false\nlog_dest stderr\n"
                                 f"user {os.environ.get('USER') or subprocess.getoutput('id -un')}\n")
        self.start("broker", [shutil.which("mosquitto") or "/usr/sbin/mosquitto", "-c", configuration])
        until("the broker", lambda: answers(self.broker_port))

    def start_house(self, *options):
        # On loopback a line answers in no time, which counts as none at all; hence the delay.
        url_file = self.run / "url"
        url_file.unlink(missing_ok=True)
        self.start("house", [self.bin / "kv_house", "--seed", SEED, "--port", self.house_port, "--url-file", url_file,
                             "--mqtt-url", f"tcp://127.0.0.1:{self.broker_port}", "--mqtt-user", "terminal",
                             "--mqtt-pwd", "demo-broker", "--fault", "/line/check=delay:20",
                             "--log", self.run / "house-calls.log", *options])
        until("the demo back end", url_file.exists)

    def start_display(self, size="1920x1080"):
        if self.environment.get("DISPLAY") or self.environment.get("WAYLAND_DISPLAY"):
            return
        say(f"No display here: starting a virtual one of {size}")
        reader, writer = os.pipe()
        self.start("display", ["Xvfb", "-displayfd", writer, "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
                   pass_fds=[writer])
        os.close(writer)
        with open(reader) as number:
            self.environment["DISPLAY"] = f":{number.readline().strip()}"
        self.start("window-manager", ["openbox"])

    def start_readers(self):
        """A pair of pseudo terminals for the staff reader, a stand-in for the hand card reader's library."""
        line = self.run / "staff-line"
        for end in (line, self.staff_reader):
            end.unlink(missing_ok=True)
        self.start("staff-reader", ["socat", f"PTY,link={line},rawer", f"PTY,link={self.staff_reader},rawer"])
        try:
            until("the staff reader", self.staff_reader.exists, 3)
        except Failed:
            say("No pseudo terminals here: going on without a staff reader")
        sim = self.build / "sim"
        self.environment.update(KV_PANEL_COM1=str(line), KV_SIM_HAND_SOCKET=str(self.hand_reader),
                                LD_LIBRARY_PATH=f"{sim}:{self.environment.get('LD_LIBRARY_PATH', '')}".rstrip(":"))

    def start_speech(self):
        """A speech service of the stand's own; without a sound card it speaks into a file."""
        if not shutil.which("speech-dispatcher"):
            say("No speech service here: going on without a voice")
            return
        configuration, address = self.run / "speech", self.run / "speech.socket"
        shutil.copytree(SPEECH, configuration)
        module = configuration / "modules" / "mandarin.conf"
        module.write_text(module.read_text().replace("/usr/lib/kv-panel/speech", str(SPEECH)))
        if not has_sound_card():
            self.voice.unlink(missing_ok=True)
            self.environment["KV_PANEL_SPEECH_FILE"] = str(self.voice)
            say(f"No sound card here: calls are recorded to {self.voice}")
        self.start("speech", ["speech-dispatcher", "-s", "-t", "0", "-c", "unix_socket", "-S", address,
                              "-C", configuration, "-L", self.run, "-P", self.run / "speech.pid"])
        until("the speech service", address.exists)
        self.environment["SPEECHD_ADDRESS"] = f"unix_socket:{address}"

    def prepare_terminal(self, settings=None, number=1):
        """Identity and settings, as a technician enters them once, of one of the house's terminals."""
        config, runtime = self.folder / "config", self.run / "runtime"
        config.mkdir(exist_ok=True)
        runtime.mkdir(mode=0o700, exist_ok=True)
        # A line that an earlier run chose is gone with its port.
        (config / "KV_PANEL_V2.ini").write_text(
            f"authCode=KV-DEMO-{number:04}\nsecretKey=demo-secret-key-{number:04}\n")
        self.environment.update(XDG_CONFIG_HOME=str(config), LC_ALL="C.UTF-8", KV_PANEL_API_URLS=self.house_url,
                                KV_PANEL_PREVIEW_DIR=str(self.slips))
        self.environment.setdefault("XDG_RUNTIME_DIR", str(runtime))
        self.environment.setdefault("QT_QUICK_BACKEND", "software")
        self.write_settings({**SETTINGS, **(settings or {})})

    def write_settings(self, settings):
        with contextlib.closing(sqlite3.connect(self.folder / "kv_panel_v2.db")) as database:
            database.execute("CREATE TABLE IF NOT EXISTS sys_config (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, "
                             "code VARCHAR(128) NOT NULL UNIQUE, value VARCHAR(128) NOT NULL DEFAULT(''))")
            for code, value in settings.items():
                database.execute("DELETE FROM sys_config WHERE code = ?", (code,))
                database.execute("INSERT INTO sys_config (code, value) VALUES (?, ?)", (code, value))
            database.commit()

    def settings(self):
        with contextlib.closing(sqlite3.connect(self.folder / "kv_panel_v2.db")) as database:
            return dict(database.execute("SELECT code, value FROM sys_config"))

    def start_terminal(self, *options, wrapper=(), **keywords):
        """`wrapper` is a command that runs the program, such as one that fakes its clock."""
        self.places.unlink(missing_ok=True)
        keywords.setdefault("cwd", self.folder)
        return self.start("terminal", [*wrapper, self.bin / "kv_panel", "--places", self.places, *options], **keywords)

    def start_all(self, size="1920x1080", *house_options):
        self.start_broker()
        self.start_house(*house_options)
        self.start_display(size)
        self.prepare_terminal()
        self.start_speech()
        self.start_readers()

    def start_beside(self, first, *options):
        """The house's second terminal, with readers and a voice of its own, on the screen of the first."""
        self.house_url = first.house_url
        if "DISPLAY" in first.environment:
            self.environment["DISPLAY"] = first.environment["DISPLAY"]
        self.prepare_terminal(number=2)
        self.start_speech()
        self.start_readers()
        self.start_terminal(*options)

    # What is done to them from outside

    def present_staff_card(self, number=MANAGER_CARD):
        """The same card again is lifted meanwhile."""
        if number == self.card:
            time.sleep(max(0, self.card_at + LIFT_S - time.monotonic()))
        self.card, self.card_at = number, time.monotonic()
        subprocess.run([self.build / "sim" / "kv_card", "staff", self.staff_reader, number], check=True)

    def present_hand_card(self, serial):
        subprocess.run([self.build / "sim" / "kv_card", "hand", self.hand_reader, serial], check=True)

    def said_seconds(self):
        """How much speech was recorded; endless where it is heard instead."""
        if "KV_PANEL_SPEECH_FILE" not in self.environment:
            return math.inf
        return max(0, self.voice.stat().st_size - 44) / VOICE_BYTES_PER_S if self.voice.exists() else 0

    def control(self, path, order=None):
        """Steers the house; its answer."""
        body = None if order is None else json.dumps(order).encode()
        request = urllib.request.Request(f"{self.house_url}/_control/{path}", body,
                                         {"Content-Type": "application/json"})
        with urllib.request.urlopen(request, timeout=5) as answer:
            return json.load(answer)

    def calls(self, path):
        """How often the path was asked, and how often the house did what it asks."""
        count = self.control("stats").get(path, {})
        return count.get("seen", 0), count.get("executed", 0)

    def said(self, name):
        """The last line of what a part wrote to its standard error."""
        return ("\n" + (self.run / f"{name}.log").read_text("utf-8", "replace").rstrip()).rsplit("\n", 1)[1]

    def log(self):
        """What the terminal has logged; of a copied program this stand's alone."""
        return "".join(file.read_text("utf-8", "replace") for file in sorted((self.bin / "log").glob("*.log*"), reverse=True))

    def slip_pictures(self):
        return sorted(self.slips.glob("*.png"))


def end_on_signals():
    """What service managers and shells send ends the program like Ctrl-C does, so that nothing stays behind."""
    def leave(number, _):
        signal.signal(number, signal.SIG_IGN)
        sys.exit(128 + number)
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        signal.signal(number, leave)
