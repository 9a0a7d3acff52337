#!/usr/bin/env python3
"""Plays over ssh, as docs/ssh.md says, with an sshd of its own on a port of 127.0.0.1.

    ssh.py PROGRAM SYSOP SOURCE

The files of packaging/ssh are used as they are, with paths, keys and the group of this test put in.
No right of root is needed. Root's sshd wants /run/sshd, which is made if it is not there.
"""
import grp, json, os, pty, re, select, shutil, signal, subprocess, sys, tempfile, time

PROGRAM, SYSOP, SOURCE = map(os.path.abspath, sys.argv[1:4])
SSH = f"{SOURCE}/packaging/ssh"
TIMEOUT = 60  # in seconds, for slow machines
ACCOUNT, GROUP = (subprocess.check_output(["id", f"-{what}n"], text=True).strip() for what in "ug")


def tool(name, package):
    path = shutil.which(name, path=os.environ["PATH"] + ":/usr/local/sbin:/usr/sbin:/sbin")
    return path or sys.exit(f"{name} is not installed; it is in the package {package}")


SSHD, CLIENT, KEYGEN = (tool("sshd", "openssh-server"), tool("ssh", "openssh-client"),
                        tool("ssh-keygen", "openssh-client"))
HOME = tempfile.mkdtemp(prefix="morvek-ssh.")
GAME = f"{HOME}/game"


def check(good, *complaint):
    if not good:
        with open(f"{HOME}/sshd.log") as log:
            sys.exit(" ".join(map(str, complaint)) + "\nsshd says:\n" + log.read())


def wait_until(condition, *complaint):
    latest = time.monotonic() + TIMEOUT
    while not condition():
        check(time.monotonic() < latest, *complaint)
        time.sleep(.02)


def write(name, content):
    with open(f"{HOME}/{name}", "w") as file:
        file.write(content)


def read(path):
    with open(path, encoding="latin-1") as file:
        return file.read()


def adapted(name):
    return (read(f"{SSH}/{name}").replace("/home/morvek/game", GAME)
            .replace("/var/games/morvek", GAME).replace("Group players", f"Group {GROUP}"))


def account_is_locked():
    """Without PAM, sshd turns away an account that has no password; root reads whether it has."""
    shadow = read("/etc/shadow") if os.access("/etc/shadow", os.R_OK) else ""
    return re.search(f"^{re.escape(ACCOUNT)}:!", shadow, re.M)


def skip_without_terminals():
    """Says so where an sshd that is not root's cannot give a terminal to the group tty."""
    master, terminal = os.openpty()
    wanted = grp.getgrnam("tty").gr_gid
    if os.getuid() != 0 and wanted not in [os.fstat(terminal).st_gid, *os.getgroups()]:
        print("Skipped: /dev/pts is mounted without gid=5, so only root's sshd has terminals")
        sys.exit(77)


class Server:
    """An sshd whose authorized_keys hold those lines, and which includes that configuration."""

    def __init__(self, keys, included):
        write("authorized_keys", keys)
        write("morvek.conf", included)
        self.log, self.process = open(f"{HOME}/sshd.log", "w"), None
        for port in range(20000 + os.getpid() % 20000, 65000, 97):
            write("sshd_config", f"""Include {HOME}/morvek.conf
ListenAddress 127.0.0.1
Port {port}
HostKey {HOME}/key
PidFile none
StrictModes no
UsePAM {"yes" if account_is_locked() else "no"}
AuthorizedKeysFile {HOME}/authorized_keys
PasswordAuthentication no
KbdInteractiveAuthentication no
Subsystem sftp internal-sftp
""")
            self.process = subprocess.Popen([SSHD, "-D", "-e", "-f", f"{HOME}/sshd_config"],
                                            stdin=subprocess.DEVNULL, stderr=self.log)
            self.port, said = str(port), lambda: read(f"{HOME}/sshd.log")
            wait_until(lambda: "Server listening" in said() or self.process.poll() is not None,
                       "sshd does not begin")
            if self.process.poll() is None:
                return
            check("in use" in said(), "sshd ended with", self.process.returncode)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        self.log.close()

    def command(self, key, *more):
        return [CLIENT, "-F", "none", "-p", self.port, "-i", f"{HOME}/{key}", "-o", "BatchMode=yes",
                "-o", "IdentitiesOnly=yes", "-o", "IdentityAgent=none", "-o", "LogLevel=ERROR",
                "-o", "StrictHostKeyChecking=no", "-o", f"UserKnownHostsFile={HOME}/known_hosts",
                f"{ACCOUNT}@127.0.0.1", *more]


class Player:
    """A player at his own terminal."""

    def __init__(self, server, key):
        self.screen = ""
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.execvp(CLIENT, server.command(key, "-t"))

    def look(self, timeout):
        """Reads what comes; false when nothing more can come."""
        try:
            if select.select([self.terminal], [], [], timeout)[0]:
                shown = os.read(self.terminal, 65536).decode(errors="replace")
                self.screen += shown
                if "\x1b[6n" in shown:  # Where is the cursor?
                    self.types("\x1b[1;1R")
        except OSError:
            return False
        return True

    def sees(self, text):
        latest = time.monotonic() + TIMEOUT
        while text not in self.screen:
            check(self.look(.1) and time.monotonic() < latest, f"{text!r} is not in {self.screen!r}")

    def types(self, keys):
        os.write(self.terminal, keys.encode())

    def enters(self, character=None):
        """The game, with a character to be created or with the one that he has."""
        self.sees("Hosted by")
        self.types(f"S{character}\ry2x" if character else "Sx")

    def ends(self, status):
        latest = time.monotonic() + TIMEOUT
        while self.look(.1):
            check(time.monotonic() < latest, "the call does not end:", self.screen)
        found = os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
        os.close(self.terminal)
        check(found == status, f"ended with {found}, not {status}: {self.screen!r}")


def owners():
    listed = subprocess.check_output([SYSOP, "--game", GAME, "players", "--json"])
    return {player["ownerName"] for player in json.loads(listed)}


def last_in_log(name, status):
    """Whether the last line is of that player and tells of that end."""
    line = read(f"{GAME}/morvek.log").splitlines()[-1].split("\t")
    return line[2] == name and line[-1].endswith(f"({status})")


def games():
    """The processes of this game."""
    found = []
    for process in filter(str.isdigit, os.listdir("/proc")):
        try:
            if os.readlink(f"/proc/{process}/cwd") == GAME:
                found.append(process)
        except OSError:
            pass
    return found


def quits(server, key, name):
    player = Player(server, key)
    player.enters(character=f"Hero{len(owners())}")
    player.types("qqxq")
    player.ends(0)
    check(name in owners(), name, "is not among", owners())
    check(last_in_log(name, 0), "the log says", read(f"{GAME}/morvek.log"))


def gets_nothing_else(server, key):
    """Neither a command of his own, nor a line to anywhere."""
    def asks(*more):
        return subprocess.run(server.command(key, *more), stdin=subprocess.DEVNULL, text=True,
                              capture_output=True, timeout=TIMEOUT)
    done = asks("touch", f"{HOME}/shell")
    check(done.returncode == 1 and "played in a terminal" in done.stderr, done)
    check(not os.path.exists(f"{HOME}/shell"), "a command was run")
    done = asks("-s", "sftp")  # Its standard error is dropped by ssh.
    check(done.returncode == 1 and not done.stdout, done)
    done = asks("-W", f"127.0.0.1:{server.port}")
    check(done.returncode != 0 and not done.stdout, "forwards a port:", done)


def hangs_up(server, key, name):
    """With himself on a second line; the character stays as it was last saved."""
    player = Player(server, key)
    player.enters()
    player.sees("save, back to title")
    saved = read(f"{GAME}/morchars.dat")
    second = Player(server, key)
    second.enters()
    second.sees("already in the game on another node")
    second.ends(5)
    os.kill(player.pid, signal.SIGKILL)
    began = time.monotonic()
    wait_until(lambda: not games(), "the game goes on without its caller:", games())
    print(f"{time.monotonic() - began:.2f} s from the hang-up to the end of the game")
    player.ends(-signal.SIGKILL)
    check(read(f"{GAME}/morchars.dat") == saved, "the hang-up changed the characters")
    check(last_in_log(name, 2), "the log says", read(f"{GAME}/morvek.log"))


def falls_asleep(server, key):
    script = read(f"{GAME}/morvek-ssh.sh")
    write("game/morvek-ssh.sh", re.sub("-INACTIVITY [0-9]+", "-INACTIVITY 1", script))
    player = Player(server, key)
    player.sees("No key was pressed for too long.")
    player.ends(4)
    check(last_in_log("Mo O'Hara", 4), "the log says", read(f"{GAME}/morvek.log"))
    write("game/morvek-ssh.sh", script)


def check_page():
    """What the page says to copy is there, and the lines that it shows are those that are tried."""
    examples = sum((read(f"{SSH}/{name}").splitlines() for name in os.listdir(SSH)), [])
    for line in re.findall(r"^    +(command=.*)", read(f"{SOURCE}/docs/ssh.md"), re.M):
        check(line in examples, "the page shows another line:", line)
    for name in re.findall(r"/usr/share/morvek/ssh/(\S+)", read(f"{SOURCE}/docs/ssh.md")):
        check(os.path.exists(f"{SSH}/{name}"), "the page copies", name)


def play():
    os.mkdir(GAME)
    os.chmod(GAME, 0o2770)
    subprocess.run([SYSOP, "init", GAME, "--board", "Friends", "--menus", f"{SOURCE}/menus"],
                   check=True, stdout=subprocess.DEVNULL)
    os.symlink(PROGRAM, f"{GAME}/morvek")
    shutil.copy(f"{SSH}/morvek-ssh.sh", GAME)
    keys = adapted("authorized_keys")
    for key in ("key", "alice", "mo"):
        subprocess.run([KEYGEN, "-q", "-t", "ed25519", "-N", "", "-f", f"{HOME}/{key}"], check=True)
        public = " ".join(read(f"{HOME}/{key}.pub").split()[:2])
        keys = re.sub(rf"ssh-ed25519 AAAA\.\.\. {key}", f"{public} {key}", keys)
    check("AAAA... " not in keys, "authorized_keys has another player")
    check_page()
    with Server(keys, "") as server:
        quits(server, "alice", "Alice Doe")
        quits(server, "mo", "Mo O'Hara")
        gets_nothing_else(server, "alice")
        hangs_up(server, "alice", "Alice Doe")
        falls_asleep(server, "mo")
    with Server(read(f"{HOME}/alice.pub"), adapted("morvek.conf")) as server:
        quits(server, "alice", ACCOUNT)
        gets_nothing_else(server, "alice")
        hangs_up(server, "alice", ACCOUNT)
    for name in "morchars.dat", "morvek.lock", "morvek.log":
        check(os.stat(f"{GAME}/{name}").st_mode & 0o77 == 0o60, name, "is not the group's")


made_directory = os.getuid() == 0 and not os.path.isdir("/run/sshd")
try:
    if made_directory:
        os.mkdir("/run/sshd", 0o755)
    skip_without_terminals()
    play()
finally:
    shutil.rmtree(HOME)
    if made_directory:
        os.rmdir("/run/sshd")
