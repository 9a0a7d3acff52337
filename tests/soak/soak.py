#!/usr/bin/env python3
"""A crowd plays the real program over one set of files, several at once, and hangs up as it likes.

    soak.py PROGRAM TOOL MENUS [KEYS [SEED]]

Callers press the keys that their screens offer, each as he likes today; vandals type anything.
When they are gone the operator's tool must find nothing wrong with the files, and no strange file
may lie about. A seed gives the same crowd once more; the game's own chance stays the clock's.
"""
import os, random, re, select, shutil, signal, subprocess, sys, tempfile, time
from collections import Counter

PROGRAM, TOOL, MENUS = map(os.path.abspath, sys.argv[1:4])
KEYS = int((sys.argv[4:] + [20000])[0])
SEED = (sys.argv[5:] + [str(random.SystemRandom().randrange(10**6))])[0]

# How much a caller likes what his screen offers: 1 where nothing is said.
LIKES = {"Forest": 20, "Attack": 9, "Flee": .1, "Heal": 5, "Return": 2, "Tavern": 3, "Train": 9}
MOODS = ["North", "South", "East", "West", "Player", "Weapon", "Armour", "Bank", "Look", "Write"]
WAYS_OUT = {"Return": 90, "Quit": 90, "Flee": 90, "Close": 90, "Leave": 90}
LINES = [b"Bree", b"Edda", b"Al Ice ", b"`red`Zed`", b"%s%n%d", b"J\x94rg", b"x" * 60, b"7", b"250"]
ENDS = ["quit"] * 4 + ["eof", "gone", signal.SIGHUP, signal.SIGTERM, signal.SIGKILL]
KNOWN = re.compile(r"morvek\.(cfg|lock)|morchars\.dat|scroll\.(dat|old)|scores\.(dat|asc|ans)|\d{6}\.txt")
SEQUENCE = re.compile(rb"\x1b\[[0-9;]*([A-Za-z])")

count, seen = Counter(), set()


def keys_for(screen, likes, rng):
    """What is typed at the end of such a screen."""
    line = re.split(rb"[\r\n]", screen)[-1]
    if re.search(rb"key!$|Y/N|y.?/.?n|\? $", line):
        return b"n" if rng.random() < .2 else b"y"
    offered = re.findall(rb"(?:^|[\r\n(])\W*(\w)\)\s?([A-Za-z]*)", screen)
    if not offered or re.search(rb"(?<!choice): ", line) or rng.random() < .02:
        return rng.choice(LINES) + rng.choice([b"\r", b"\r", b"\b\b\r", b"\x1b[A\r"])
    names = [(key + word).decode("cp437") for key, word in offered]
    weights = [likes.get(name, likes.get(name[1:], 1)) for name in names]
    return rng.choices(names, weights)[0][:1].encode("cp437")


class Call:
    """One call through pipes, from the caller's end; tests/faults dials in by other lines."""

    def __init__(self, caller):
        name, self.rng, self.vandal = caller
        self.likes = LIKES | {word: self.rng.choice([1, 9]) for word in MOODS}
        self.left, self.end = self.rng.choice([20, 100, 400]), self.rng.choice(ENDS)
        options = ["-LOCAL", "-USERNAME", name, self.rng.choice(["-GRAPHICS", "-ASCII"]),
                   "-CHARSET", self.rng.choice(["utf8", "cp437"])]
        self.process = subprocess.Popen([PROGRAM] + options, bufsize=0, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.to, self.of, self.screen = self.process.stdin, self.process.stdout, b""
        count["calls"] += 1

    def look(self, patience):
        """Reads what is shown until no more comes; false when the program is gone."""
        answer = b""
        while select.select([self.of], [], [], patience)[0]:
            shown = self.of.read(65536)
            if not shown:
                return False
            patience = 0
            answer += SEQUENCE.sub(lambda found: b"\n" if found[1] in b"JH" else b"", shown)
        seen.update(re.split(rb"[\r\n]+", answer))
        self.screen = answer or self.screen
        return True

    def turn(self):
        """Types once; false when the call is over."""
        typed = keys_for(self.screen, WAYS_OUT if self.left <= 0 else self.likes, self.rng)
        if self.vandal and self.rng.random() < .3:
            # A name with this mark ends the list of scores, as check then tells.
            typed = self.rng.randbytes(12).replace(b"#", b"")
        self.left -= len(typed)
        count["keys"] += len(typed)
        if self.left < -1000:
            self.end = "eof"  # He does not find out.
        try:
            self.to.write(typed)
        except OSError:
            return False
        return (self.left > 0 or self.end == "quit") and self.look(.004)

    def finish(self):
        """Hangs up, unless he has quit, and looks at how the program ended."""
        if isinstance(self.end, signal.Signals):
            self.process.send_signal(self.end)
        elif self.end != "quit":
            self.to.close()
        latest = time.monotonic() + 20
        while self.end != "gone" and time.monotonic() < latest and self.look(5):
            pass
        self.to.close()
        self.of.close()
        complaints, how = self.process.stderr.read(), self.process.wait(timeout=20)
        legal = {0} if self.end == "quit" else {0, 2}
        signalled = isinstance(self.end, signal.Signals)
        if self.end == signal.SIGKILL or (signalled and not self.screen):  # Not begun yet.
            legal.add(-self.end)
        assert how in legal and not complaints, (self.end, how, complaints)
        count[getattr(self.end, "name", self.end)] += 1


def pass_a_day():
    """What was today is long ago, for the characters and for the news."""
    if os.path.exists("morchars.dat"):
        with open("morchars.dat", "r+b") as file:
            for slot in range(0, 75000, 1500):
                file.seek(slot + 64)
                if file.read(1) != b"\0":  # He has an owner.
                    file.seek(slot + 52)
                    file.write((10126).to_bytes(4, "little"))
    for name in os.listdir():
        if name.endswith(".txt"):
            os.replace(name, "010126.txt")
    count["days"] += 1


def check(killed):
    found = subprocess.run([TOOL, "check"], capture_output=True, timeout=20)
    assert found.returncode == 0, (found.stdout + found.stderr).decode()
    for name in set(os.listdir()) - set(os.listdir(MENUS)):
        # What a killed call leaves, the next save takes over.
        assert KNOWN.fullmatch(name) or (killed and name.endswith(".new")), name


def play():
    rng, killed, crowd = random.Random(SEED), False, []
    for i in range(40):
        name = f"Caller {i}" if i % 5 else f"{i}\x1b[2J`%n\n"
        crowd.append((name, random.Random(SEED + name), i % 5 == 0))
    while count["keys"] < KEYS:
        if rng.random() < .3:
            pass_a_day()
        calls = [Call(caller) for caller in rng.sample(crowd, rng.randint(1, 8))]
        while calls:
            call = rng.choice(calls)
            if not call.turn():
                calls.remove(call)
                call.finish()
                killed = killed or call.end == signal.SIGKILL
        check(killed)


home, began = tempfile.mkdtemp(prefix="morvek."), time.monotonic()
shutil.copytree(MENUS, home, dirs_exist_ok=True)
os.chdir(home)
open("morvek.cfg", "w").write("Morvek\nThe Oak\n.\n")
print("seed", SEED, flush=True)
try:
    play()
except (AssertionError, subprocess.TimeoutExpired) as failure:
    sys.exit(f"seed {SEED}, {dict(count)}, files in {home}:\n{failure}")
print(f"{dict(count)} in {time.monotonic() - began:.0f} s; {len(seen)} different lines seen")
shutil.rmtree(home)
