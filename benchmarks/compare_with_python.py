#!/usr/bin/env python3
"""Runs programs of the script language and the same programs in Python, alternately, and prints a table.

    benchmarks/compare_with_python.py [CHROMAHOST] [ROUNDS]

Each program runs with three sizes, each twice the previous one. A cell has the minimum processor time of the program for each
size, and the maximum memory.
"""

import os
import subprocess
import sys

# The name of a case, its maximum size N, and the two programs. Both must print the same output.
CASES = [
    ("a Dictionary with N text keys, each written and read once", 1_000_000, """
Dim d As New Dictionary, sum As Integer
For i As Integer = 1 To N
  d.Value("key " & i) = i
Next
For i As Integer = 1 To N
  sum += Integer(d.Value("key " & i))
Next
Print d.Count, sum
""", """
d, total = {}, 0
for i in range(1, N + 1):
    d["key " + str(i)] = i
for i in range(1, N + 1):
    total += d["key " + str(i)]
print(len(d), total)
"""),
    ('N times s &= "x"', 1_200_000, """
Dim s As String
For i As Integer = 1 To N
  s &= "x"
Next
Print Len(s)
""", """
s = ""
for i in range(N):
    s += "x"
print(len(s))
"""),
    ('N times a(0) &= "x"', 200_000, """
Dim a() As String = Array("")
For i As Integer = 1 To N
  a(0) &= "x"
Next
Print Len(a(0))
""", """
a = [""]
for i in range(N):
    a[0] += "x"
print(len(a[0]))
"""),
    ("N characters of a text that is not ASCII, in order", 1_200_000, """
Dim s As String = Repeat("aä€", N \\ 3), found As Integer
For i As Integer = 1 To Len(s)
  If Mid(s, i, 1) = "ä" Then found += 1
Next
Print found
""", """
s, found = "aä€" * (N // 3), 0
for i in range(len(s)):
    if s[i] == "ä":
        found += 1
print(found)
"""),
    ("the same at random places", 1_200_000, """
Dim s As String = Repeat("aä€", N \\ 3), found As Integer
For i As Integer = 1 To Len(s)
  If Mid(s, i * 400009 Mod Len(s) + 1, 1) = "ä" Then found += 1
Next
Print found
""", """
s, found = "aä€" * (N // 3), 0
for i in range(1, len(s) + 1):
    if s[i * 400009 % len(s)] == "ä":
        found += 1
print(found)
"""),
    ("N times s = Mid(s, 2)", 200_000, """
Dim s As String = Repeat("x", N), n As Integer
While s <> ""
  s = Mid(s, 2)
  n += 1
Wend
Print n
""", """
s, n = "x" * N, 0
while s:
    s = s[1:]
    n += 1
print(n)
"""),
    ("N numbers appended to an array, then N times Remove(0)", 100_000, """
Dim a() As Integer, sum As Integer
For i As Integer = 1 To N
  a.Append i
Next
While a.Count > 0
  sum += a(0)
  a.Remove(0)
Wend
Print sum
""", """
a, total = [], 0
for i in range(1, N + 1):
    a.append(i)
while a:
    total += a[0]
    a.pop(0)
print(total)
"""),
]


def measured(command):
    """Returns the output, processor seconds and peak memory in MiB of a command."""
    with subprocess.Popen(command, stdout=subprocess.PIPE, text=True) as process:
        output = process.stdout.read()
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"exit code {process.returncode}: {command}")
    return output, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def commands(host, basic, python, size):
    """Returns the commands that run both programs for a size. Python's is in a function, where its variables are fast."""
    lines = [line for line in basic.replace("N)", f"{size})").replace("To N", f"To {size}").replace("N \\", f"{size} \\")
             .splitlines() if line]
    body = "".join(f"    {line}\n" for line in python.splitlines())
    return ([host, "run"] + [part for line in lines for part in ("-e", line)],
            [sys.executable, "-c", f"def main(N):\n{body}\nmain({size})"])


def main():
    host = sys.argv[1] if len(sys.argv) > 1 else "build/m64/bin/chromahost"
    rounds = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    print(f"| | sizes | chromahost | MiB | Python {sys.version.split()[0]} | MiB |\n|---|---|---|---|---|---|")
    for name, most, basic, python in CASES:
        sizes = [most // 4, most // 2, most]
        times, memory = ([[], []], [0, 0])
        for size in sizes:
            best, outputs = [None, None], [None, None]
            for _ in range(rounds):
                for side, command in enumerate(commands(host, basic, python, size)):
                    outputs[side], seconds, mib = measured(command)
                    best[side] = min(seconds, best[side] or seconds)
                    memory[side] = max(memory[side], mib)
            if outputs[0] != outputs[1]:
                sys.exit(f"{name}: the programs print {outputs}")
            for side in range(2):
                times[side].append(f"{best[side]:.3f}")
        print(f"| {name} | {', '.join(f'{size:,}' for size in sizes)} | {', '.join(times[0])} s | {memory[0]:.0f} | "
              f"{', '.join(times[1])} s | {memory[1]:.0f} |", flush=True)


main()
