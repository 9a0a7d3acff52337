#!/usr/bin/env python3
"""Sets the game up for each board as its page says, and starts it as the board then does.

    boards.py PROGRAM SYSOP SOURCE

Every configuration is read by a parser of its format, and every line to be pasted or typed is read,
run, or named here as one that only a running board can try. Each board has its own kind of drop
file: the new character must belong to the caller whom that file names, and the log must tell of the
call. While he is inside, somebody else plays on another node, and he cannot come in a second time.
"""
import configparser, contextlib, glob, json, os, re, shlex, shutil, socket, subprocess, sys
import tempfile, textwrap, time

PROGRAM, SYSOP, SOURCE = map(os.path.abspath, sys.argv[1:4])
BOARDS = f"{SOURCE}/packaging/boards"
# Makes a character, of any name, and stays in Towne; leaves from there.
ENTER, LEAVE = "S{}\ry2x", "qqxq"

# As an operator does who keeps the game and his boards elsewhere; blanks in paths are no trouble.
HOME = tempfile.mkdtemp(prefix="morvek boards.")
GAME = f"{HOME}/morvek"

# What the pages say to run and only a machine with the board can.
NEEDS_BOARD = re.compile(
    r'cd /home/bbs/enigma|grep -rl "doors" config/menus|jsexec install-xtrn /home/bbs/morvek'
    r"|node_modules/.bin/hjson -j config/menus/N-doors.hjson >/dev/null|chgrp -R bbs \S+")

board = None


def check(good, *complaint):
    if not good:
        sys.exit(f"{board}: " + " ".join(map(str, complaint)))


def here(text):
    # In one pass: the tree itself may be below /home/bbs.
    paths = {"/usr/share/morvek/boards": BOARDS, "/usr/bin/morvek": PROGRAM, "/home/bbs": HOME}
    return re.sub("|".join(paths), lambda path: paths[path[0]], text)


def words(line, **codes):
    """The words of a board's command line; its codes are replaced once it is taken apart."""
    found = [here(word) for word in line.split()]
    return [re.sub("%(.)", lambda code: codes[code[1]], word) for word in found]


def text(name):
    with open(f"{SOURCE}/{name}") as file:
        return file.read()


def configuration(name):
    return text(f"packaging/boards/{board}/{name}")


# --- The parsers of the formats ------------------------------------------------------------------
def hjson(source):
    if not shutil.which("hjson-cli"):
        sys.exit("hjson-cli is not installed; it is in the package hjson-go")
    done = subprocess.run(["hjson-cli", "-c"], input=source, capture_output=True, text=True)
    check(done.returncode == 0, done.stderr.split("\n")[0], "in:\n" + source)
    return json.loads(done.stdout)


def ini(source):
    parser = configparser.RawConfigParser()
    parser.read_string(source if source.startswith("[") else "[above]\n" + source)
    return parser


def fields(source):
    """What is to be typed into an editor: the lines of one block, a name and a value each."""
    block = source.strip().split("\n\n")[1]
    return dict(re.fullmatch(r"(\w[\w. ]*): +(\S.*)", line).groups() for line in block.split("\n"))


# --- The lines of the kinds of drop files --------------------------------------------------------
def lines(*start, end="\r\n", count=0):
    texts = [str(line) for line in start]
    return end.join(texts + ["0"] * (count - len(texts)) + [""])


def door32(name):
    return lines(2, -1, 0, "Board", 1, "Real Name", name, 50, 40, 1, 7)


def chain_txt(name):
    return lines(1, name, "Real Name", "", 21, "M", 0, "06/01/26", 80, 25, 50, 0, 0, 1, 1,
                 "2400.00", end="\n", count=32)


def door_sys(name):
    return lines("COM1:", 38400, 8, 7, 38400, "N", "N", "N", "N", name, "Towne", 1, 1, "secret",
                 50, 1, "01/01/26", 2400, 40, "GR", count=31)


# --- A call --------------------------------------------------------------------------------------
def log():
    """The calls that the log tells of, each as a list of what its line says."""
    if not os.path.exists(f"{GAME}/morvek.log"):
        return []
    with open(f"{GAME}/morvek.log") as file:
        return [line.split("\t") for line in file.read().splitlines()]


def sysop(*arguments):
    return subprocess.run([SYSOP, *arguments], check=True, capture_output=True).stdout


def check_owners(*names):
    players = json.loads(sysop("--game", GAME, "players", "--json"))
    check([player["ownerName"] for player in players] == list(names), "the players are:", players)


class Call:
    """A caller on a node. In the words of the command and in the paths, {} stands for the node."""

    def __init__(self, setup, node, name):
        command, kind, drop, directory, environment = setup
        path = f"{HOME}/{drop}".format(node)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", newline="") as file:
            file.write(kind(name))
        self.name, self.command = name, [word.format(node) for word in command]
        own = {key: value.format(node) for key, value in environment.items()}
        try:
            self.door = subprocess.Popen(self.command, cwd=directory, env=os.environ | own,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         stderr=subprocess.STDOUT)
        except OSError as failure:
            check(False, failure)

    def enters(self):
        self.door.stdin.write(ENTER.format(self.name).encode())
        self.door.stdin.flush()
        latest = time.monotonic() + 60
        while not os.path.exists(f"{GAME}/morchars.dat"):
            check(time.monotonic() < latest, self.command, "saves no character")
            time.sleep(.02)

    def ends(self, status, keys):
        logged = len(log())
        shown = self.door.communicate(keys.format(self.name).encode(), timeout=60)[0]
        check(self.door.returncode == status, self.command, "ended with", self.door.returncode,
              shown[-300:])
        told = log()[logged:]
        check(len(told) == 1 and told[0][2] == self.name and told[0][-1].endswith(f"({status})"),
              self.command, "left in the log:", told)
        return shown


def plays(command, kind, drop, directory="/", **environment):
    """The first caller of this board; another one, and himself again, while he plays."""
    setup = command, kind, drop, directory, environment
    sysop("--game", GAME, "reset", "--force")
    first = Call(setup, 1, board)
    first.enters()
    Call(setup, 2, "Another").ends(0, ENTER + LEAVE)
    check(b"on another node" in Call(setup, 3, board).ends(5, ENTER), command, "lets him in twice")
    check(b"The Oak" in first.ends(0, LEAVE), command, "shows no title")
    check_owners(board, "Another")


def plays_over_socket(command):
    """The board waits at a port, and has given the door a terminal all the same."""
    sysop("--game", GAME, "reset", "--force")
    listener = socket.create_server(("127.0.0.1", 0))
    port = str(listener.getsockname()[1])
    socket.setdefaulttimeout(60)
    listener.settimeout(60)
    keys = (ENTER + LEAVE).format(board).encode()
    for typed, status in ((keys, 0), (b"", 2)):  # He quits; he hangs up.
        master, terminal = os.openpty()
        door = subprocess.Popen([word.replace("{srvPort}", port) for word in command], cwd="/",
                                stdin=terminal, stdout=terminal, stderr=terminal)
        os.close(terminal)
        with listener.accept()[0] as caller:
            caller.sendall(typed)
            received, shown = b"-", b""
            while received and (typed or b"The Oak" not in shown):
                received = caller.recv(4096)
                shown += received
        check(door.wait(timeout=60) == status, command, "ended with", door.returncode)
        check(b"The Oak" in shown and b"\xff" not in shown, "over the socket:", shown)
        os.close(master)
    check_owners(board)


# --- The pages -----------------------------------------------------------------------------------
def pasted(page):
    """The blocks of a page that are to be pasted or typed."""
    return [textwrap.dedent(block) for block in re.findall(r"(?:^ {4,}\S.*\n)+", page, re.M)]


def run(line):
    done = subprocess.run([here(word) for word in shlex.split(line)], capture_output=True, text=True)
    check(done.returncode == 0 and not done.stderr, line, done.stderr)
    return done.stdout


@contextlib.contextmanager
def page_of(name):
    """A game of its own, set up as the page of that board says; what else it says comes after."""
    global board
    board = name
    sysop("init", GAME, "--board", "The Oak", "--menus", f"{SOURCE}/menus")
    os.symlink(PROGRAM, f"{GAME}/morvek")
    page = text(f"docs/boards/{board}.md")
    listed = sum((block.splitlines() for block in pasted(page)), [])
    for line in listed:
        if line.startswith("cp "):
            run(line)
    for copied in glob.glob(f"{GAME}/*.sh"):
        with open(copied) as file:
            adapted = here(file.read())
        with open(copied, "w") as file:
            file.write(adapted)
    tried = {re.sub("^// *", "", line) for path in glob.glob(f"{BOARDS}/{board}/*")
             for line in text(os.path.relpath(path, SOURCE)).splitlines()}
    yield page, tried
    for line in listed:
        if re.match("find |ls ", line):
            check(run(line), line, "shows nothing")
        elif line.startswith("chmod "):
            run(line)
        else:
            check(line in tried or line.startswith("cp ") or NEEDS_BOARD.fullmatch(line),
                  "nobody has tried this line of the page:", line)
    for code in re.findall(r"`([^`\n]*/morvek[^`\n]* -[^`\n]*)`", page):
        check(any(code in line for line in tried), "nobody has tried this on the page:", code)
    shutil.rmtree(GAME)


# --- The boards ----------------------------------------------------------------------------------
def enigma():
    with page_of("enigma") as (page, tried):
        source = configuration("morvek.hjson")
        menu = next(line[2:] for line in source.splitlines() if line.startswith("//   {"))
        menus = hjson("menus: {\n" + source + "doors: {\nsubmit: [\n" + menu + "\n]\n}\n}")["menus"]
        entry = menus["doors"]["submit"][0]["action"].removeprefix("@menu:")
        check(menus[entry]["module"] == "abracadabra", "no module behind", entry)
        door = menus[entry]["config"]
        drop = "drop/{}/DOOR32.SYS"

        def command(door, node="{}"):
            return [here(word).replace("{dropFilePath}", f"{HOME}/{drop}".format(node))
                    for word in [door["cmd"], *door["args"]]]
        check(door["io"] == "stdio" and "nodeMax" not in door, door)
        plays(command(door), door32, drop, here(door["cwd"]))
        plays([f"{GAME}/morvek.sh", *command(door)[1:]], door32, drop)
        other = next(block for block in pasted(page) if block.startswith("cmd:"))
        tried.update(other.splitlines())
        check(hjson(other)["io"] == "socket", other)
        plays_over_socket(command(hjson(other), node=1))


def synchronet():
    with page_of("synchronet"):
        installer = ini(configuration("install-xtrn.ini"))
        door = installer["prog:MORVEK"]
        check(installer["above"]["name"] and door["type"] == "XTRN_DOOR32", dict(door))
        check(set(door["settings"].split(" | ")) ==
              {"XTRN_NATIVE", "XTRN_STDIO", "XTRN_MULTIUSER"}, dict(door))
        check(len(door["cmd"]) < 64, "an old board cuts", door["cmd"])
        plays(words(door["cmd"], f=f"{HOME}/node{{}}/door32.sys"), door32, "node{}/door32.sys",
              here(door["startup_dir"]))


def wwiv():
    with page_of("wwiv"):
        chain = fields(configuration("morvek.txt"))
        check((chain["Exec Mode"], chain["Multi User"]) == ("STDIO", "Yes"), chain)
        plays(words(chain["Filename"], C=f"{HOME}/wwiv/{{}}/CHAIN.TXT"), chain_txt,
              "wwiv/{}/CHAIN.TXT")


def mystic():
    with page_of("mystic"):
        item = fields(configuration("morvek.txt"))
        check(item["Command"] == "D3", item)
        plays(words(item["Data"], P=f"{HOME}/mystic/temp{{}}/"), door32,
              "mystic/temp{}/door32.sys")


def talisman():
    with page_of("talisman") as (page, tried):
        script = "/home/bbs/morvek/morvek-talisman.sh"
        tried.add(script)
        plays([here(script), "{}"], door32, "talisman/temp/{}/door32.sys")


def magicka():
    with page_of("magicka"):
        door = ini(configuration("doors.ini"))["Morvek"]
        check(len(door["key"]) == 1 and door["stdio"] == "true", dict(door))
        plays([here(door["command"]), "{}"], door32, "magicka/node{}/door32.sys")


def mbse():
    with page_of("mbse"):
        item = fields(configuration("morvek.txt"))
        check(item["Type"].startswith("7 "), item)
        plays(words(item["Opt. data"]), door_sys, "users/{}/door.sys",
              HOME=f"{HOME}/users/{{}}")


def maximus():
    with page_of("maximus"):
        line = re.search(r"^/.*/morvek\.sh .*", configuration("morvek.txt"), re.M)[0]
        plays(words(line, k="{}"), door32, "maximus/node{}/door32.sys")


def any_board():
    """The guide's example for boards that have no page, which stands in the script too."""
    with page_of("mystic"):
        line = re.search(r"^#   (/.*)", text("packaging/boards/morvek.sh"), re.M)[1]
        check(f"    {line}\n" in text("docs/guide-operator.md"), "the guide has another", line)
        plays(words(line), door32, "node1/DOOR32.SYS")


BOARD_TESTS = [enigma, synchronet, mystic, wwiv, talisman, magicka, mbse, maximus]
try:
    for test in [*BOARD_TESTS, any_board]:
        test()
    pages = {os.path.basename(path)[:-3] for path in glob.glob(f"{SOURCE}/docs/boards/*.md")}
    check(pages == {test.__name__ for test in BOARD_TESTS}, "the pages are", pages)
finally:
    shutil.rmtree(HOME)
