"""terminal_test.py CHROMAHOST...: types at the prompt on a terminal and reads the screen."""
import fcntl, os, pty, re, select, struct, sys, tempfile, termios, time

UP, DOWN, CTRL_D = "\x1b[A", "\x1b[B", "\x04"


class Terminal:
    def __init__(self, columns=80):
        self.pid, self.screen = pty.fork()
        if self.pid == 0:
            fcntl.ioctl(0, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
            os.environ.update(TERM="xterm", NO_COLOR="1", XDG_STATE_HOME=tempfile.mkdtemp(), INPUTRC="/dev/null")
            os.execvp(sys.argv[1], [*sys.argv[1:], "repl"])
        self.until("> ")

    def until(self, wanted):
        """Reads until the text is on the screen, and returns all that was read, without control sequences."""
        read, shown, end = "", "", time.monotonic() + 60
        while wanted not in shown:
            if not select.select([self.screen], [], [], max(0.0, end - time.monotonic()))[0]:
                sys.exit(f"no {wanted!r} in {read!r}")
            read += os.read(self.screen, 65536).decode()
            shown = re.sub("\x1b\\[[0-9;?]*[A-Za-z]|\r", "", read)
        self.drawn = len(read)
        return shown

    def type(self, keys, wanted):
        os.write(self.screen, keys.encode())
        return self.until(wanted)

    def exit_code(self):
        return os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])


def check(holds, what):
    if not holds:
        sys.exit(what)


# Ctrl-D cancels a block, and leaves the prompt after that.
terminal = Terminal()
terminal.type("While True\r", "| ")
terminal.type("Print 1\r", "| ")
terminal.type(CTRL_D, "> ")
terminal.type("40 + 2\r", "\n42\n")
os.write(terminal.screen, CTRL_D.encode())
check(terminal.exit_code() == 0, "Ctrl-D does not leave the prompt")

# Help fits the screen.
terminal = Terminal(columns=50)
page = terminal.type(":help\r", "Ctrl-D gives up a block.\n")
check(max(map(len, page.splitlines())) <= 50, page)

# Up and Down move within a recalled block first.
terminal.type("1000 + 1\r", "1001")
for line in "If True Then", "Print 3":
    terminal.type(line + "\r", "| ")
terminal.type("End If\r", "\n3\n")
terminal.type(3 * UP + DOWN + "9\r", "\n93\n")
terminal.type(7 * UP + "0\r", "\n1010\n")

# A pasted block is drawn once.
pasted = "\r".join(["If True Then", *("Print " + str(line) for line in range(500)), "End If"])
terminal.type("\x1b[200~" + pasted + "\x1b[201~", "End If")
check(terminal.drawn < 1.2 * len(pasted), f"{terminal.drawn} characters drawn of {len(pasted)}")
terminal.type("\r", "\n499\n")
print("typed")
