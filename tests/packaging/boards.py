#!/usr/bin/env python3
"""Sets the game up for each board as its page says, and starts it as the board then does.

    boards.py PROGRAM SYSOP SOURCE

Every configuration is read by a parser of its format, and every line to be pasted or typed is read,
run, or named here as one that only a running board can try. Each board has its own kind of drop
file: the new character must belong to the caller whom that file names, and the log must tell of the
call. Where the configuration relies on the lock, a second caller must be sent away.
"""
import configparser, contextlib, fcntl, glob, json, os, re, shlex, shutil, socket, subprocess, sys
import tempfile, textwrap

PROGRAM, SYSOP, SOURCE = map(os.path.abspath, sys.argv[1:4])
BOARDS = f"{SOURCE}/packaging/boards"
KEYS = b"SArwen\ry2xqqxq"

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


def door32():
    return lines(2, -1, 0, "Board", 1, "Real Name", board, 50, 40, 1, 7)


def chain_txt():
    return lines(1, board, "Real Name", "", 21, "M", 0, "06/01/26", 80, 25, 50, 0, 0, 1, 1,
                 "2400.00", end="\n", count=32)


def door_sys():
    return lines("COM1:", 38400, 8, 7, 38400, "N", "N", "N", "N", board, "Towne", 1, 1, "secret",
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


def check_owner():
    players = json.loads(sysop("--game", GAME, "players", "--json"))
    check([player["ownerName"] for player in players] == [board], "another played:", players)


def call(command, directory, status, **environment):
    """A caller who types all at once; what he saw."""
    logged = log()
    try:
        done = subprocess.run(command, cwd=directory, input=KEYS, timeout=60,
                              env=os.environ | environment, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
    except OSError as failure:
        check(False, failure)
    check(done.returncode == status, command, "ended with", done.returncode, done.stdout[-300:])
    told = log()[len(logged):]
    check(len(told) == 1 and told[0][2] == board and told[0][-1].endswith(f"({status})"),
          command, "left in the log:", told)
    return done.stdout


def plays(command, kind, drop, directory="/", alone=True, **environment):
    """The first caller of this board, and a second one who comes while he plays."""
    os.makedirs(os.path.dirname(f"{HOME}/{drop}"), exist_ok=True)
    with open(f"{HOME}/{drop}", "w", newline="") as file:
        file.write(kind())
    sysop("--game", GAME, "reset", "--force")
    check(b"The Oak" in call(command, directory, 0, **environment), command, "shows no title")
    check_owner()
    if alone:
        with open(f"{GAME}/morvek.lock") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            call(command, directory, 5, **environment)


def plays_over_socket(command):
    """The board waits at a port, and has given the door a terminal all the same."""
    sysop("--game", GAME, "reset", "--force")
    listener = socket.create_server(("127.0.0.1", 0))
    port = str(listener.getsockname()[1])
    socket.setdefaulttimeout(60)
    listener.settimeout(60)
    for typed, status in ((KEYS, 0), (b"", 2)):  # He quits; he hangs up.
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
    check_owner()


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
        drop = "drop/DOOR32.SYS"

        def command(door):
            return [here(word).replace("{dropFilePath}", f"{HOME}/{drop}")
                    for word in [door["cmd"], *door["args"]]]
        check(door["io"] == "stdio" and door["nodeMax"] == 1, door)
        plays(command(door), door32, drop, here(door["cwd"]), alone=False)
        plays([f"{GAME}/morvek.sh", *command(door)[1:]], door32, drop, alone=False)
        other = next(block for block in pasted(page) if block.startswith("cmd:"))
        tried.update(other.splitlines())
        check(hjson(other)["io"] == "socket", other)
        plays_over_socket(command(hjson(other)))


def synchronet():
    with page_of("synchronet"):
        installer = ini(configuration("install-xtrn.ini"))
        door = installer["prog:MORVEK"]
        check(installer["above"]["name"] and door["type"] == "XTRN_DOOR32", dict(door))
        check(set(door["settings"].split(" | ")) == {"XTRN_NATIVE", "XTRN_STDIO"}, dict(door))
        check(len(door["cmd"]) < 64, "an old board cuts", door["cmd"])
        plays(words(door["cmd"], f=f"{HOME}/node1/door32.sys"), door32, "node1/door32.sys",
              here(door["startup_dir"]), alone=False)


def wwiv():
    with page_of("wwiv"):
        chain = fields(configuration("morvek.txt"))
        check((chain["Exec Mode"], chain["Multi User"]) == ("STDIO", "No"), chain)
        plays(words(chain["Filename"], C=f"{HOME}/wwiv/CHAIN.TXT"), chain_txt, "wwiv/CHAIN.TXT",
              alone=False)


def mystic():
    with page_of("mystic"):
        item = fields(configuration("morvek.txt"))
        check(item["Command"] == "D3", item)
        plays(words(item["Data"], P=f"{HOME}/mystic/temp1/"), door32, "mystic/temp1/door32.sys")


def talisman():
    with page_of("talisman") as (page, tried):
        script = "/home/bbs/morvek/morvek-talisman.sh"
        tried.add(script)
        plays([here(script), "1"], door32, "talisman/temp/1/door32.sys")


def magicka():
    with page_of("magicka"):
        door = ini(configuration("doors.ini"))["Morvek"]
        check(len(door["key"]) == 1 and door["stdio"] == "true", dict(door))
        plays([here(door["command"]), "1"], door32, "magicka/node1/door32.sys")


def mbse():
    with page_of("mbse"):
        item = fields(configuration("morvek.txt"))
        check(item["Type"].startswith("7 "), item)
        plays(words(item["Opt. data"]), door_sys, "users/alice/door.sys",
              HOME=f"{HOME}/users/alice")


def maximus():
    with page_of("maximus"):
        line = re.search(r"^/.*/morvek\.sh .*", configuration("morvek.txt"), re.M)[0]
        plays(words(line, k="1"), door32, "maximus/node1/door32.sys")


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
