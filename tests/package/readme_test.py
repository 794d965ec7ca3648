#!/usr/bin/env python3
"""readme_test.py TREE FOLDER: follows TREE's README in a copy of its sources in FOLDER, as a new user does.

The page's first program is saved as sea.bas. Each line at the margin of an indented block is a command. Two blanks
and an explanation may follow it. All commands run in the page's order after ./run without arguments, and each must succeed.
The output of a command after "$ " must equal the lines below it. Commands for other builds run in TREE, which has those builds.
"""
import os
import re
import shutil
import subprocess
import sys

tree, folder = (os.path.abspath(argument) for argument in sys.argv[1:3])
copy = os.path.join(folder, "tree")
names = {"FILE.bas": "sea.bas", "DIR": os.path.join(folder, "installed")}
command_form = re.compile(r"(\$ |)((\./|tools/|build/|cmake ).*?)(  +.*)?$")
not_here = {"./test", "./bench"}  # ./test runs this test, and ./bench takes two minutes
other_builds = {"--m32": "m32", "--gnustep": "gnustep"}


def copy_sources():
    shutil.rmtree(folder, ignore_errors=True)
    listed = subprocess.run(["git", "-C", tree, "ls-files", "-z", "--cached", "--others", "--exclude-standard"], capture_output=True, check=True)
    for name in filter(None, listed.stdout.decode().split("\0")):
        if os.path.lexists(os.path.join(tree, name)):
            os.makedirs(os.path.dirname(os.path.join(copy, name)), exist_ok=True)
            shutil.copy2(os.path.join(tree, name), os.path.join(copy, name), follow_symlinks=False)


def commands(page):
    """Yields each command with the lines that it must print, or with None if the page shows none."""
    shown = None
    for line in page.splitlines():
        text = line[4:] if line.startswith("    ") else ""
        if shown and text and not text.startswith("$ "):
            shown[1].append(text)
            continue
        if shown:
            yield shown
        shown = None
        found = command_form.match(text)
        if found and found[1]:
            shown = (found[2], [])
        elif found:
            yield found[2], None
    if shown:
        yield shown


def run(command, lines):
    place = copy
    for option, build in other_builds.items():
        if option in command.split():
            place = tree
            if not os.path.exists(f"{tree}/build/{build}/bin/chromahost"):
                print(f"not run, because {build} is not built: {command}")
                return True
    for name, meaning in names.items():
        command = re.sub(rf"(?<![\w./]){re.escape(name)}(?!\w)", meaning, command)
    if place == tree:
        command = command.replace("sea.bas", os.path.join(copy, "one.bas"))
    print("$", command, flush=True)
    done = subprocess.run(command, shell=True, executable="/bin/bash", cwd=place, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, env=dict(os.environ, TERM="dumb"))
    if lines is not None and done.stdout.splitlines() != lines:
        print("printed:\n" + done.stdout + "\nthe page shows:\n" + "\n".join(lines))
        return False
    if done.returncode != 0:
        print(f"exit code {done.returncode}:\n{done.stdout[-4000:]}")
    return done.returncode == 0


copy_sources()
with open(os.path.join(copy, "README.md"), encoding="utf-8") as file:
    page = file.read()
with open(os.path.join(copy, "sea.bas"), "w", encoding="utf-8") as file:
    file.write(re.search(r"```basic\n(.*?)```", page, re.DOTALL)[1])
with open(os.path.join(copy, "one.bas"), "w", encoding="utf-8") as file:
    file.write("Print NSColorZRX.redColor.redComponent\n")

count = failures = 0
for command, lines in commands(page):
    if command in not_here:
        continue
    count += 1
    failures += not run(command, lines)
    if count == 1:  # after ./run, every file of the build that the page names exists
        for path in sorted(set(re.findall(r"build/m64/[\w./]+\w", page))):
            if not os.path.exists(os.path.join(copy, path)):
                print(f"./run does not create {path}")
                failures += 1
print(f"readme: {count} commands, {failures} failures")
sys.exit(failures > 0 or count < 15)
