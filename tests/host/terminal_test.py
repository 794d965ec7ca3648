"""terminal_test.py CHROMAHOST... types at the prompt and in shells on a terminal and reads the screen."""
import fcntl, os, pty, re, select, shutil, signal, struct, subprocess, sys, tempfile, termios, time

UP, DOWN, CTRL_D = "\x1b[A", "\x1b[B", "\x04"


folder = tempfile.mkdtemp()
signal.alarm(900)  # a program that neither prints nor exits fails the test


class Terminal:
    def __init__(self, *command, columns=80, prompt="> ", **environment):
        self.pid, self.screen = pty.fork()
        if self.pid == 0:
            fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
            os.environ.update(TERM="xterm", NO_COLOR="1", XDG_STATE_HOME=folder, INPUTRC="/dev/null", **environment)
            command = command or [*sys.argv[1:], "repl"]
            os.execvp(command[0], command)
        self.until(prompt)

    def until(self, wanted, last=""):
        """Reads until the screen has one text and ends with the other, and returns what it shows since the last call. Keys
        that arrive before a prompt is ready would be handled by the terminal, not by the program."""
        read, shown, end = "", "", time.monotonic() + 120
        while wanted not in shown or not shown.endswith(last):
            if not select.select([self.screen], [], [], max(0.0, end - time.monotonic()))[0]:
                sys.exit(f"the screen does not show {wanted!r} followed by {last!r}: {read!r}")
            read += os.read(self.screen, 65536).decode()
            shown = re.sub("\x1b\\[[0-9;?]*[A-Za-z]|[\r\a]", "", read)
            shown = re.sub(".\x08", "", shown)
        self.drawn = len(read)
        return shown

    def type(self, keys, wanted, last="> "):
        os.write(self.screen, keys.encode())
        return self.until(wanted, last)

    def exit_code(self):
        return os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])


def check(holds, what):
    if not holds:
        sys.exit(what)


# Ctrl-D cancels a block, and leaves the prompt after that.
terminal = Terminal()
terminal.type("While True\r", "\n", "| ")
terminal.type("Print 1\r", "\n", "| ")
terminal.type(CTRL_D, "\n")
terminal.type("40 + 2\r", "\n42\n")
os.write(terminal.screen, CTRL_D.encode())
check(terminal.exit_code() == 0, "Ctrl-D does not leave the prompt")

# Help fits the screen.
terminal = Terminal(columns=50)
page = terminal.type(":help\r", "Ctrl-D discards a block.\n")
check(max(map(len, page.splitlines())) <= 50, page)

# Up and Down move within a recalled block first.
terminal.type("1000 + 1\r", "1001")
for line in "If True Then", "Print 3":
    terminal.type(line + "\r", "\n", "| ")
terminal.type("End If\r", "\n3\n")
terminal.type(3 * UP + DOWN + "9\r", "\n93\n")
terminal.type(7 * UP + "0\r", "\n1010\n")

# A pasted block is drawn once.
pasted = "\r".join(["If True Then", *("Print " + str(line) for line in range(500)), "End If"])
terminal.type("\x1b[200~" + pasted + "\x1b[201~", "End If", "")
check(terminal.drawn < 1.2 * len(pasted), f"{terminal.drawn} characters drawn of {len(pasted)}")
terminal.type("\r", "\n499\n")
# A page is printed if its pager cannot be started.
Terminal(*sys.argv[1:], "browse", "NSColorZRX", PAGER="/no/pager", prompt="Shared methods")

# Shells complete names with blanks, and words that contain other separators.
for shell, script in ("bash", "_chromahost"), ("zsh", "_chromahost"):
    if not shutil.which(shell):
        print(shell, "is not installed")
        continue
    with open(f"{folder}/{script}", "w") as file:
        subprocess.run([*sys.argv[1:], "completion", shell], stdout=file, check=True)
    os.makedirs(f"{folder}/a folder", exist_ok=True)
    open(f"{folder}/a folder/first program.bas", "w").close()
    start = {"bash": ["--norc", "--noprofile", "-i"], "zsh": ["-f", "-i"]}[shell]
    terminal = Terminal(shell, *start, PS1="ready> ", PROMPT="ready> ", prompt="ready> ")
    load = {"bash": "source", "zsh": "fpath=($PWD $fpath); autoload -U compinit; compinit -u -D; echo"}[shell]
    terminal.type(f"cd {folder}; {load} ./{script}; PS1=do'ne> '\r", "done> ")
    for typed, completed in ("run a\tf\t", "run a\\ folder/first\\ program.bas"), ("browse NSColorLis\tcolorW\t", "ListZRX colorWithKey"), \
                            ("swatches --format=s\t", "--format=svg"), ("--host-v\t", "--host-version"):
        terminal.type("chromahost " + typed, completed, "")
        terminal.type("\x15\r", "\n", "done> ")
print("typed")
