#!/usr/bin/env python3
"""Keeps the manual page true to the tool's help.

Every command of 'bacfmt --help' has a section in docs/bacfmt.1 headed by
the usage line of its own --help, and the section names exactly the options
that help names (--help itself aside, which the page describes once for
all). The page must also format without groff warnings where groff exists.

Usage: manpage_test.py PATH-TO-BACFMT SOURCE-DIR
"""

import os
import re
import shutil
import subprocess
import sys

BACFMT, SOURCE = sys.argv[1], sys.argv[2]
PAGE = os.path.join(SOURCE, "docs", "bacfmt.1")

failures = []


def expect(name, condition, detail=""):
    if not condition:
        failures.append(f"{name}: {detail}")


def help_text(*args):
    done = subprocess.run([BACFMT] + list(args), capture_output=True, text=True, timeout=30)
    return done.stdout


def plain(roff):
    """The words of a roff line: escapes resolved, font changes dropped."""
    text = roff.replace("\\-", "-").replace("\\(dq", '"').replace("\\&", "")
    text = re.sub(r"\\f[BIRP]", "", text)
    return re.sub(r"\\\(\w\w", "", text)


# An option: one or two hyphens and a letter, not inside a word ("non-blank")
# and not a negative number.
OPTION = re.compile(r"(?<![\w-])(--?[A-Za-z][\w-]*)")
HELP_OPTIONS = {"-h", "--help"}


def options(text):
    return set(OPTION.findall(text)) - HELP_OPTIONS


with open(PAGE, encoding="utf-8") as f:
    page = [plain(line.rstrip("\n")) for line in f]

# Sections of the page: heading (the .SS text) -> body.
sections, heading = {}, None
for line in page:
    if line.startswith(".SS "):
        heading = line[4:].strip().strip('"')
        sections[heading] = []
    elif line.startswith(".SH "):
        heading = None
    elif heading is not None:
        sections[heading].append(line)
by_command = {h.split()[1]: (h, "\n".join(body)) for h, body in sections.items()}

listing = help_text("--help")
commands = re.findall(r"^  (\S+) ", listing.split("Commands:")[1], re.M)
expect("commands listed", "check" in commands, listing)
known = {"--version"}
for command in commands:
    if command == "help":
        expect("help section", "help" in by_command, "no section for 'bacfmt help'")
        continue
    text = help_text(command, "--help")
    usage = text.splitlines()[0].removeprefix("Usage: ") if text else ""
    if command not in by_command:
        failures.append(f"{command}: no section in the page (want '.SS \"{usage}\"')")
        continue
    heading, body = by_command[command]
    expect(command + " heading", heading == usage, f"page '{heading}', help '{usage}'")
    in_help, in_page = options(text), options(body)
    known |= in_help
    expect(command + " options", in_help == in_page,
           f"only in --help: {sorted(in_help - in_page)}, only in the page: {sorted(in_page - in_help)}")
for command in by_command:
    expect("section " + command, command in commands, "the page describes a command the tool lacks")

# Outside the command sections the page may name only options that exist.
stray = options("\n".join(page)) - known
expect("options of no command", not stray, f"{sorted(stray)}")

if shutil.which("groff"):
    done = subprocess.run(["groff", "-man", "-ww", "-z", PAGE], capture_output=True, text=True)
    expect("groff", done.returncode == 0 and done.stderr == "", done.stderr)

for failure in failures:
    print("FAIL", failure)
print(f"{len(failures)} failures")
sys.exit(1 if failures else 0)
