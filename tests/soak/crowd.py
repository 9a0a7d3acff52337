#!/usr/bin/env python3
"""A crowd plays the real program at once, and each has at the end what he would have had alone.

    crowd.py PROGRAM TOOL MENUS SHIM [ROUNDS [SEED]]

In each round every caller first plays in a directory of his own. Then all play the same keys with
the same chance in one directory: key by key in random turns; at full speed; and at full speed while
a third of them are killed. A round depends on its seed only, which a failure names.
"""
import os, pathlib, random, re, shutil, subprocess, sys, tempfile, time
from collections import Counter

PROGRAM, TOOL, MENUS, SHIM = map(os.path.abspath, sys.argv[1:5])
ROUNDS = int((sys.argv[5:] + [6])[0])
SEED = int((sys.argv[6:] + [random.SystemRandom().randrange(10**6)])[0])

NEWS, DAY = "011527.txt", "It's a new day!"  # the shim's clock stands still
KNOWN = re.compile(rf"morvek\.(cfg|lock)|morchars\.dat|scroll\.dat|scores\.(dat|asc|ans)|{NEWS}")

# Each begins and ends in Towne, whatever the caller owns; {} is a digit.
ERRANDS = ["wb{}yxlxr", "wsyxr", "ab{}yxlxr", "asyxr", "bd{}\rxr", "bw{}\rxr", "haxr", "hg{}xr",
           "hh{}\rxxr", "to{}yxlxr", "to{}yxlxr", "tlcr", "yx", "lx", "ox", "m"]
STEPS = ["a"] * 40 + ["s"] * 4 + ["haxr"] * 2 + list("12346789eldu")
TRAINING = "ttttt" + "ax" * 15 + "rrr"
# The quit; the inn, and the quit if a room is too dear. Who has died on a walk is at the title,
# where both end the program.
WAYS_OUT = ["qxxq", "tgyxrrqxxq"]

count = Counter()


class Caller:
    """One user of the board. Who is killed in a call writes no messages."""

    def __init__(self, rng, number, calls):
        self.rng, self.number, self.name = rng, number, f"Caller {number}"
        self.seeds = [rng.randrange(1, 2**31 - 1) for _ in range(calls)]
        self.killed_in = rng.randrange(calls) if number % 3 == 2 else None

    def choose_keys(self, is_new, with_inn):
        """Fills keys, a text for each call. A capital Y confirms a message and nothing else."""
        self.keys, self.messages = [], []
        for _ in self.seeds:
            games = []
            for _ in range(self.rng.randint(1, 2)):
                creation = f"hero {self.number}\ry{self.rng.randint(1, 8)}x" if is_new else "x"
                games.append("s" + creation + self.errands() + self.message() + self.errands())
                is_new = False
            walk = "f" + "".join(self.rng.choices(STEPS, k=60)) + "fyxrrr"
            self.keys.append(self.rng.choice(["", "hx"]) + "qxx".join(games)
                             + self.rng.choice(["", walk, walk, walk, TRAINING])
                             + self.rng.choice(WAYS_OUT[:1 + with_inn]))

    def errands(self):
        chosen = self.rng.choices(ERRANDS, k=self.rng.randint(0, 4))
        return "".join(errand.format(self.rng.randint(1, 6)) for errand in chosen)

    def message(self):
        if self.killed_in is not None or self.rng.random() < .5:
            return ""
        text = f"{self.number} says {len(self.messages)}"
        self.messages.append(f"hero {self.number}: {text}")
        return f"tlw{text}\rYcr"

    def dial(self, folder, call, waits="/dev/null", **options):
        count["calls"] += 1
        environment = {**os.environ, "TZ": "UTC", "LD_PRELOAD": "../../shim.so",
                       "MORVEK_FAULT": "yield 0", "MORVEK_SEED": str(self.seeds[call]),
                       "MORVEK_WAITS": waits,
                       "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"}
        graphics = ["-GRAPHICS", "-ASCII"][self.number % 2]
        return subprocess.Popen([PROGRAM, "-LOCAL", "-USERNAME", self.name, graphics], cwd=folder,
                                env=environment, bufsize=0, stdin=subprocess.PIPE,
                                stdout=subprocess.DEVNULL, **options)

    def play(self, folder):
        """Plays alone; false when a call does not end by itself."""
        for k, keys in enumerate(self.keys):
            call = self.dial(folder, k)
            call.communicate(keys.encode(), timeout=20)
            if call.returncode != 0:
                return False
        return True

    def play_alone(self, start):
        """Finds keys that lead to the end of each call, and notes what they leave."""
        while True:
            shutil.copytree(start, self.name)
            self.choose_keys(self.name not in records(start), bool(records(start)))
            if self.play(self.name) and board(self.name) == self.messages[-10:]:
                break
            count["keys chosen again"] += 1
            shutil.rmtree(self.name)
        self.record = records(self.name)[self.name]
        self.arrivals = read(self.name, NEWS).count(self.name)
        self.scores = scores(self.name)

    def turns(self, folder, confirmed):
        """Types a key at each step."""
        messages = iter(self.messages)
        for k, keys in enumerate(self.keys):
            waits, report = os.pipe()
            call = self.dial(folder, k, f"/dev/fd/{report}", pass_fds=[report])
            os.close(report)
            waiting = os.read(waits, 1)
            for key in keys:
                if waiting:
                    yield
                    call.stdin.write(key.encode())
                    waiting = os.read(waits, 1)
                    if key == "Y":
                        confirmed.append(next(messages))
            call.stdin.close()
            os.close(waits)
            assert call.wait(20) == 0, (self.name, k, call.returncode)


def read(folder, name):
    path = pathlib.Path(folder, name)
    return path.read_bytes().decode("latin-1") if path.exists() else ""


def text(slot):
    return slot[8:8 + ord(slot[4])]


def records(folder):
    """The records by their owners, without slotIndex."""
    roster = read(folder, "morchars.dat")
    slots = [roster[at:at + 1500] for at in range(0, len(roster), 1500)]
    return {text(slot[60:]): slot[:48] + slot[52:] for slot in slots if text(slot[60:])}


def board(folder):
    entries = [read(folder, "scroll.dat")[at:at + 48] for at in range(0, 480, 48)]
    return [text(entry) + ": " + text(entry[24:]) for entry in entries if entry.strip("\0")]


def scores(folder):
    return re.findall(r"(.*)#(\d+)([A-Z][a-z]+)\n", read(folder, "scores.dat"))


def play_in_turns(rng, crowd, folder):
    """Gives the messages in the order of their confirmation."""
    confirmed = []
    playing = [caller.turns(folder, confirmed) for caller in crowd]
    while playing:
        one = rng.choice(playing)
        if next(one, "over") == "over":
            playing.remove(one)
    return confirmed


def play_at_once(rng, crowd, folder, kills):
    for k in range(len(crowd[0].keys)):
        calls = [(caller, caller.dial(folder, k), kills and caller.killed_in == k)
                 for caller in crowd if not kills or caller.killed_in in [None, *range(k, 9)]]
        time.sleep(.02)  # They wait for keys now.
        for caller, call, killed in calls:
            keys = caller.keys[k].encode()
            call.stdin.write(keys[:len(keys) // 2] if killed else keys)
        time.sleep(rng.uniform(0, .04))
        for caller, call, killed in calls:
            if killed:
                call.kill()
                count["killed"] += 1
            call.stdin.close()
        for caller, call, killed in calls:
            assert call.wait(20) == (-9 if killed else 0), (caller.name, k, call.returncode)


def check_news(folder, crowd, survivors):
    lines = read(folder, NEWS).split("\n\r")
    assert lines[0] == DAY and lines.count(DAY) == 1 and lines[-1] == "", lines
    arrivals = Counter(lines[1:-1])
    assert arrivals.keys() <= {f"{caller.name} joined the game." for caller in crowd}, lines
    for caller in survivors:
        assert arrivals[f"{caller.name} joined the game."] == caller.arrivals, (caller.name, lines)


def check_board(folder, crowd, confirmed):
    """Where the order of all is not known, that of each caller's own messages is."""
    shown = board(folder)
    assert confirmed is None or shown == confirmed[-10:], (shown, confirmed)
    sent = sum(len(caller.messages) for caller in crowd)
    assert len(shown) == min(sent, 10), (shown, sent)
    for caller in crowd:
        own = [message for message in shown if message in caller.messages]
        assert own == caller.messages[len(caller.messages) - len(own):], (own, caller.messages)
    count["messages"] += sent


def check_scores(folder, survivors):
    """Of a full list, a better score of one who is in it costs the tenth: nine are certain."""
    table, best = scores(folder), [line for caller in survivors for line in caller.scores]
    best += [line for line in table if line[0] not in {name for name, _, _ in best}]
    best.sort(key=lambda line: -int(line[1]))
    assert [line[1] for line in table][:9] == [line[1] for line in best][:9], (table, best)
    looker = Caller(random.Random(0), 0, 1)
    looker.keys = ["hxq"]
    assert looker.play(folder)
    lines = [f"{rank}.".ljust(6) + name.ljust(22) + score.ljust(18) + title.ljust(15) + "\n"
             for rank, (name, score, title) in enumerate(table, 1)]
    assert not table or read(folder, "scores.asc").split("-\n")[1] == "".join(lines), table


def check(folder, crowd, survivors, confirmed):
    found = records(folder)
    lost = [caller.name for caller in survivors if found.get(caller.name) != caller.record]
    assert not lost, f"records differ: {lost}"
    check_news(folder, crowd, survivors)
    check_board(folder, crowd, confirmed)
    check_scores(folder, survivors)
    tool = subprocess.run([TOOL, "check"], cwd=folder, capture_output=True, timeout=20)
    assert tool.returncode == 0, (tool.stdout + tool.stderr).decode()
    for name in set(os.listdir(folder)) - set(os.listdir(MENUS)):
        # What a killed call leaves, the next save takes over.
        assert KNOWN.fullmatch(name) or (survivors != crowd and name.endswith(".new")), name
    assert not read(folder, "morvek.lock")


def play_round(rng):
    calls = rng.randint(1, 3)
    crowd = [Caller(rng, number, calls) for number in range(rng.randint(12, 18))]
    shutil.copytree(MENUS, "start")
    pathlib.Path("start/morvek.cfg").write_text("Morvek\nThe Oak\n.\n")
    if rng.random() < .5:
        # One has played here today. By the rules all others stamp his record at the inn.
        first = Caller(rng, 0, 1)
        first.keys = ["shero 0\ry1xqxxsxqxxq"]
        assert first.play("start")
        os.remove(f"start/{NEWS}")
    for caller in crowd:
        caller.play_alone("start")
    survivors = [caller for caller in crowd if caller.killed_in is None]
    for way, left in [("turns", crowd), ("speed", crowd), ("kills", survivors)]:
        shutil.copytree("start", way)
        count[way] += 1
        confirmed = None
        if way == "turns":
            confirmed = play_in_turns(rng, crowd, way)
        else:
            play_at_once(rng, crowd, way, kills=way == "kills")
        check(way, crowd, left, confirmed)


home, began = tempfile.mkdtemp(prefix="morvek."), time.monotonic()
os.symlink(SHIM, f"{home}/shim.so")
print("seed", SEED, flush=True)
for seed in range(SEED, SEED + ROUNDS):
    os.mkdir(f"{home}/{seed}")
    os.chdir(f"{home}/{seed}")
    try:
        play_round(random.Random(seed))
    except (AssertionError, OSError, subprocess.TimeoutExpired) as failure:
        sys.exit(f"seed {seed}, {dict(count)}, files in {os.getcwd()}:\n{failure}")
    shutil.rmtree(os.getcwd())
os.chdir("/")
shutil.rmtree(home)
print(f"{ROUNDS} rounds, {dict(count)} in {time.monotonic() - began:.0f} s")
