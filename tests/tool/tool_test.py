#!/usr/bin/env python3
"""Drives the bacfmt program: exit codes, output and error lines.

Usage: tool_test.py PATH-TO-BACFMT SOURCE-DIR
"""

import os
import re
import subprocess
import sys
import tempfile

BACFMT, SOURCE = sys.argv[1], sys.argv[2]
SITE = os.path.join(SOURCE, "examples", "site.txt")
MISTAKES = os.path.join(SOURCE, "examples", "mistakes.txt")

failures = []


def run(args, stdin=""):
    # A foreign locale must not change a single byte of the output.
    env = dict(os.environ, LC_ALL="de_DE.UTF-8", LANG="de_DE.UTF-8")
    data = stdin if isinstance(stdin, bytes) else stdin.encode()
    done = subprocess.run([BACFMT] + args, input=data, capture_output=True,
                          env=env, timeout=60)
    return done.returncode, done.stdout.decode("utf-8", "replace"), \
        done.stderr.decode("utf-8", "replace")


def expect(name, condition, detail=""):
    if not condition:
        failures.append(f"{name}: {detail[:400]}")


# (arguments, exit status, exact stdout or None, regex that stderr matches or None)
COMMANDS = [
    # The tool and its subcommands
    ([], 2, "", r"no command given"),
    (["--version"], 0, None, None),
    (["frobnicate"], 2, "", r"unknown command 'frobnicate'"),
    (["help", "nope"], 2, "", r"unknown command 'nope'"),
    (["scan", "--bogus", "1"], 2, "", r"bacfmt scan: unknown option '--bogus'"),
    (["scan", "-x", "1"], 2, "", r"unknown option '-x'"),
    (["scan", "1", "--type"], 2, "", r"option '--type' needs an argument"),
    (["scan"], 2, "", r"no text given"),
    (["check"], 2, "", r"no value file given"),
    (["check", "/nonexistent/values.txt"], 2, "",
     r"cannot read '/nonexistent/values.txt': No such file or directory"),
    # scan: datatype from the option, a tag or a guess
    (["scan", "--type", "real", "1.5"], 0, "1.500000\n", None),
    (["scan", "-t", "64", "1.5"], 0, "1.500000\n", None),
    (["scan", "-t", "CT_REAL", "--prefix", "1", "1.5"], 0, "[4] 1.500000\n", None),
    (["scan", "[4] 1.5"], 0, "1.500000\n", None),
    (["scan", "1.5", "--type=real"], 0, "1.500000\n", None),
    (["scan", "-P", "2", "-t", "date-time", "((*,1-may-2026),12:00:00.00)"], 0,
     "[258] ((*, 1-may-2026),12:00:00.00)\n", None),
    (["scan", "--", "-7"], 0, "-7\n", None),
    (["scan", "7", "12:30:00.00", "T"], 0, "7\n12:30:00.00\nT\n", None),
    (["scan", "--numbers", "T"], 0, "1\n", None),
    (["scan", "-t", "enumerated", "-p", "units", "degrees-celsius"], 0,
     "62 => degrees-celsius\n", None),
    (["scan", "-t", "enumerated", "-p", "117", "-n", "degrees-celsius"], 0, "62\n", None),
    (["scan", "-t", "CT_NOPE", "1"], 2, "", r"unknown datatype 'CT_NOPE'"),
    (["scan", "-p", "presnt-value", "1"], 2, "", r"unknown property 'presnt-value'"),
    (["scan", "--prefix", "3", "1"], 2, "", r"prefix mode must be 0, 1 or 2"),
    (["scan", "-t", "time", "24:00:00.00"], 1, "",
     r"^bacfmt scan: syntax error \(as CT_TIME\): 24:00:00\.00\n$"),
    (["scan", "-t", "unsigned", "[3] 7", "5"], 0, "7\n5\n", None),
    (["scan", "-t", "unsigned", "-p", "5", "[3] 7"], 1, "",
     r"choice tag disagrees with the datatype"),
    (["scan", "[267] 1"], 1, "", r"datatype not settled or not supported"),
    (["scan", "-t", "boolean", "yes", "T"], 1, "T\n", r"syntax error .*: yes"),
    # Texts of the diagnostics and unit tables
    (["status", "0"], 0, "OK\n", None),
    (["status", "17"], 0, "Unknown BACnet status\n", None),
    (["status", "0x40"], 0, "BACnet error\n", None),
    (["status", "x"], 2, "", r"invalid status code 'x'"),
    (["status", "-1"], 2, "", r"unknown option '-1'"),
    (["status", "99999999999"], 2, "", r"invalid status code"),
    (["error", "2", "32"], 0, "Property, Unknown property\n", None),
    (["error", "8", "500"], 0, "Unknown error class, abort-security-error\n", None),
    (["error", "2"], 2, "", r"give both CLASS and CODE"),
    (["abort", "4"], 0, "Segmentation not supported\n", None),
    (["abort", "5"], 0, "Unknown abort reason\n", None),
    (["reject", "9"], 0, "Unrecognized service\n", None),
    (["reject", "1", "2"], 2, "", r"too many arguments"),
    (["units", "62"], 0, "\u00b0C\n", None),
    (["units", "degrees-celsius"], 0, "\u00b0C\n", None),
    (["units", "95"], 0, "\n", None),
    (["units", "degree-celsius"], 2, "", r"unknown unit 'degree-celsius'"),
    # Catalogue and enumerations
    (["props", "presnt"], 2, "", r"unknown object type 'presnt'"),
    (["props", "31"], 1, "", r"object type 31 \(timer\) has no properties"),
    (["props"], 2, "", r"give one OBJECT-TYPE"),
    (["enum", "units", "62"], 0, "degrees-celsius\n", None),
    (["scan", "-n", "-t", "notification-parameters", "[out-of-range] 21.5,(T,F,F,F),0.5,20"], 0,
     "[5] 21.500000,(1,0,0,0),0.500000,20.000000\n", None),
    (["scan", "-t", "notification-parameters", "[12] x"], 1, "", r"not notification parameters"),
    (["scan", "-a", "-t", "date", "((monday, 1-january-2024),(*,24-december-*))"], 0,
     "((monday, 1-january-2024),(*,24-december-*))\nerror\t0\n", None),
    (["scan", "-a", "-t", "time", "(24:00:00.00)"], 1, "\nerror\t22\n", None),
    (["scan", "-a", "-t", "real", "1.5"], 1, "", r"no array scanner for CT_REAL"),
    (["summary", "read", "analog-input,1", "present-value"], 0,
     "Obj:(analog-input,1),Prop:present-value,Idx -1\n", None),
    (["summary", "--", "read-range", "trend-log,1", "131", "position", "-1", "10"], 0,
     "Obj:(trend-log,1),Prop:log-buffer,Idx -1,by ref. pos. -1, count 10\n", None),
    (["summary", "read-file", "file,1", "record", "3", "2"], 0,
     "(file,1),accesstype:RECORD,startrecord:3,count:2\n", None),
    (["summary", "read", "analog-input", "85"], 2, "", r"not an object identifier: 'analog-input'"),
    (["summary", "write", "analog-value,1", "present-valeu"], 2, "", r"unknown property: 'present-valeu'"),
    (["enum", "units", "Degrees-Celsius"], 0, "62\n", None),
    (["enum", "object-types", "8"], 0, "device\n", None),
    (["enum", "months", "december"], 0, "12\n", None),
    (["enum", "units", "degree-celsius"], 1, "", r"unknown name 'degree-celsius' in table 117"),
    (["enum", "units", "4000"], 1, "", r"no name for 4000 in table 117"),
    (["enum", "no-such-table"], 2, "", r"no enumeration table for 'no-such-table'"),
]

for args, status, out, err in COMMANDS:
    name = "bacfmt " + " ".join(args)
    code, stdout, stderr = run(args)
    expect(name, code == status, f"exit {code}, wanted {status}; stderr {stderr!r}")
    if out is not None:
        expect(name, stdout == out, f"stdout {stdout!r}, wanted {out!r}")
    if err is not None:
        expect(name, re.search(err, stderr), f"stderr {stderr!r} does not match {err!r}")

# Every command has its help, on standard output, with status 0.
for command in ["check", "scan", "units", "status", "error", "abort", "reject", "props",
                "enum"]:
    for form in ([command, "--help"], [command, "-h"], ["help", command]):
        code, stdout, _ = run(form)
        expect(" ".join(form), code == 0 and stdout.startswith("Usage: bacfmt " + command),
               f"exit {code}, stdout {stdout[:40]!r}")

# Listings: exact rows where they are fixed, tab-separated.
TABLE_ROWS = [
    (["status"], "64\tBACnet error", "17\t"),
    (["error"], "code\t136\tabort-security-error", "class\t8\t"),
    (["units"], "62\t\u00b0C\tdegrees-celsius", "142\t"),
    (["props", "analog-input"], "85\tpresent-value\t64\tCT_REAL\t4\t0\t1\t0x6218", None),
    (["props", "0x8"], "75\tobject-identifier\t192\tCT_OBJECT_ID\t8\t0\t1\t0x0000", None),
    (["enum"], "117\tunits\t", None),
    (["enum", "weekdays"], "1\tmonday", "0\t"),
]
for args, present, absent in TABLE_ROWS:
    code, stdout, _ = run(args)
    lines = stdout.splitlines()
    expect(" ".join(args), code == 0 and any(l.startswith(present) for l in lines),
           f"exit {code}, no row {present!r}")
    if absent is not None:
        expect(" ".join(args), not any(l.startswith(absent) for l in lines),
               f"unexpected row {absent!r}")

# The dump shows the record and the payload of a 32-bit unsigned 7.
code, stdout, _ = run(["scan", "--dump", "-t", "unsigned", "7"])
expect("scan --dump", code == 0 and stdout.startswith(
    "7\ntype\t32\tCT_UNSIGNED\nfrom\t--type\ncount\t1\nsize\t4\n")
       and "payload\t0000\t07 00 00 00" in stdout, repr(stdout))

# check: the example site is clean, and its output checks to itself.
code, first, stderr = run(["check", SITE])
expect("check site", code == 0, stderr)
expect("check site summary", re.search(r"bacfmt check: [1-9]\d* values read, 0 errors found", stderr),
       stderr)
code, second, stderr = run(["check", "-"], stdin=first)
expect("check site twice", code == 0 and second == first, stderr)
site_values = [l for l in first.splitlines() if l.strip() and not l.lstrip().startswith("#")]
expect("check site values", all(" = " in l for l in site_values), "")

# check: every value line of the mistakes file is reported with its number.
code, stdout, stderr = run(["check", "--quiet", MISTAKES])
expect("check mistakes status", code == 1, stderr)
expect("check mistakes quiet", stdout == "", stdout)
with open(MISTAKES, encoding="utf-8") as f:
    mistake_lines = [n for n, l in enumerate(f, 1) if l.strip() and not l.lstrip().startswith("#")]
reported = [int(m) for m in re.findall(r"mistakes\.txt:(\d+): ", stderr)]
expect("check mistakes lines", reported == mistake_lines, f"{reported} != {mistake_lines}")
expect("check mistakes summary",
       f"{len(mistake_lines)} values read, {len(mistake_lines)} errors found" in stderr, stderr)

# check: one value file line each, what comes out and what goes to stderr.
# (input line, output line, stderr regex or None)
CHECK_LINES = [
    ("0,1 85 = 4.5", "analog-input,1 present-value = 4.500000", None),
    ("  analog-input , 1   units =62 ", "analog-input,1 units = 62 => degrees-celsius", None),
    ("device,1 description = \"Hall, east (new)\"",
     "device,1 description = \"Hall, east (new)\"", None),
    ("device,1 description = It's here", "device,1 description = \"It's here\"", None),
    ("device,1 description = \"say \"hi\"\"", "device,1 description = 'say \"hi'", None),
    # Both quote kinds in one string: no written form reads back the same.
    ("device,1 description = \"it's \"x\" y\"", "device,1 description = \"it's \"x\" y\"",
     r"<stdin>:1: value does not read back as written \(description as CT_CHARACTER_STRING\)"),
    ("schedule,1 present-value = 21.5", "schedule,1 present-value = [4] 21.500000", None),
    ("schedule,1 present-value = [9] active", "schedule,1 present-value = [9] 1 => active",
     None),
    ("analog-input,1 proprietary-600 = 7", "analog-input,1 proprietary-600 = [2] 7", None),
    ("binary-input,1 present-value = 1", "binary-input,1 present-value = 1 => active", None),
    ("analog-input,1 present-value = (1.5,2)", "analog-input,1 present-value = (1.5,2)",
     r"<stdin>:1: element count differs \(present-value as CT_REAL\): \(1\.5,2\)"),
    ("analog-input,4194303 status-flags = 1", None, None),
    # Bit strings name their set bits; dates, times and date-times keep their
    # unspecified fields; a fixed array wants all of its elements.
    ("analog-input,1 status-flags = (T,F,T,F)",
     "analog-input,1 status-flags = (T,F,T,F) (0 => in-alarm|2 => overridden)", None),
    ("device,1 object-list = ((8,1),(0,7))",
     "device,1 object-list = ((device,1),(analog-input,7))", None),
    ("binary-input,1 change-of-state-time = ((*,1-may-2026),12:00:00.00)",
     "binary-input,1 change-of-state-time = ((*, 1-may-2026),12:00:00.00)", None),
    ("device,1 local-date = (*,*-*-*)", "device,1 local-date = (*,*-*-*)", None),
    ("device,1 local-time = *:*:*.*", "device,1 local-time = *:*:*.*", None),
    ("device,1 utc-offset = +60", "device,1 utc-offset = 60", None),
    ("analog-input,1 event-message-texts = (\"a\",\"b\")", None,
     r"element count differs \(event-message-texts as CT_CHARACTER_STRING\)"),
    ("analog-input,1 event-message-texts = (\"a\",\"b\",\"c\")",
     "analog-input,1 event-message-texts = (\"a\",\"b\",\"c\")", None),
    ("schedule,1 schedule-default = null", "schedule,1 schedule-default = [0] NULL", None),
    ("schedule,1 schedule-default = [5] 1.25", "schedule,1 schedule-default = [5] 1.250000",
     None),
    ("analog-value,1 priority-array = (NULL,NULL)", None,
     r"element count differs \(priority-array as CT_PRI_ARRAY_ITEM\)"),
    ("x" * 5000, "x" * 5000, r"<stdin>:1: no \"=\""),
    # Names and numbers of the line's left side, and their limits.
    ("ANALOG-INPUT,0x10 Present-Value = 1", "analog-input,16 present-value = 1.000000", None),
    ("1023,4194303 75 = (1023,4194303)",
     "proprietary-1023,4194303 object-identifier = (proprietary-1023,4194303)", None),
    ("1024,1 present-value = 1", None, r"<stdin>:1: unknown object type: 1024\n"),
    ("analog-input,4294967296 present-value = 1", None, r"invalid instance number: 4294967296"),
    ("analog-input,4194304 present-value = 1", None, r"invalid instance number: 4194304"),
    ("analog-input,+1 present-value = 1", None, r"invalid instance number: \+1"),
    ("analog-input,1 4194304 = 1", None, r"unknown property: 4194304"),
    (",1 present-value = 1", None, r"object type missing"),
    ("analog-input, present-value = 1", None, r"instance number missing"),
    ("analog-input,1 = 1", None, r"property missing"),
    ("analog-input 1 present-value = 1", None, r"no \",\" between object type and instance"),
    # The proprietary table gives present-value the time datatype.
    ("proprietary-200,5 present-value = 1.5", None,
     r"syntax error \(present-value as CT_TIME\): 1\.5"),
    ("analog-input,1 description = " + "(" * 300, None, r"syntax error"),
    ("analog-input,1 description = \xe9t\xe9 \u20ac", "analog-input,1 description = "
     "\"\xe9t\xe9 \u20ac\"", None),
]
for line, output, err in CHECK_LINES:
    code, stdout, stderr = run(["check", "-"], stdin=line + "\n")
    expect("check " + line[:40], code in (0, 1), f"exit {code}: {stderr}")
    if output is not None:
        expect("check " + line[:40], stdout == output + "\n", f"{stdout!r} != {output!r}")
    if err is not None:
        expect("check " + line[:40], re.search(err, stderr), stderr)
    elif code == 0:
        # Whatever a good line became must stay as it is.
        _, again, _ = run(["check", "-"], stdin=stdout)
        expect("check twice " + line[:40], again == stdout, f"{again!r} != {stdout!r}")

# Several files: a missing one is reported, the others are still checked,
# and the summary counts them all; CR LF line ends are taken as line ends.
with tempfile.TemporaryDirectory() as tmp:
    good, bad = os.path.join(tmp, "good.txt"), os.path.join(tmp, "bad.txt")
    with open(good, "wb") as f:
        f.write(b"# comment\r\n\r\nanalog-input,1 present-value = 1.5\r\n")
    with open(bad, "w", encoding="utf-8") as f:
        f.write("analog-input,1 present-value = 1.5\nanalog-input,1 units = nope\n")
    code, stdout, stderr = run(["check", good, os.path.join(tmp, "gone.txt"), bad])
    expect("check files status", code == 2, stderr)
    expect("check files output", stdout.splitlines()[2] == "analog-input,1 present-value = 1.500000",
           stdout)
    expect("check files errors", re.search(r"cannot read .*gone\.txt", stderr)
           and re.search(r"bad\.txt:2: datatype not settled .*: nope", stderr), stderr)
    expect("check files summary", "3 values read, 1 errors found" in stderr, stderr)
    code, _, stderr = run(["check", bad])
    expect("check bad file status", code == 1, stderr)

# Bytes that are no text at all must not crash the tool.
with tempfile.NamedTemporaryFile("wb", suffix=".txt", delete=False) as junk:
    junk.write(bytes(range(256)) * 4 + b"\nanalog-input,1 description = \xff\xfe\x00x\n")
code, _, stderr = run(["check", junk.name])
os.unlink(junk.name)
expect("check junk", code in (0, 1), f"exit {code}: {stderr}")

# --- Strict reading: the tool accepts only what the person wrote -----------
# The library reads a word as 0, "4.5x" as 4.5 and wraps out-of-range
# numbers; the tool must report each such value with its line and column.
# (value line as bytes, stderr regex after "<stdin>:2: ")
STRICT_REJECTS = [
    (b"analog-input,1 present-value = abc", r"column 32: 'abc' is not a real number "
     r"\(present-value as CT_REAL\): abc$"),
    (b"analog-input,1 present-value = 4.5x", r"column 32: '4\.5x' is not a real number"),
    (b"analog-input,1 present-value = 1e40", r"'1e40' is out of range for a real"),
    (b"analog-input,1 present-value = 1e-50", r"too small for a real"),
    (b"analog-input,1 present-value = +1.INF", r"reads as a NaN"),
    (b"analog-input,1 present-value = \"5\"", r"a quoted text where a real number belongs"),
    (b"multi-state-value,1 number-of-states = 4294967296", r"out of range for an unsigned"),
    (b"multi-state-value,1 number-of-states = -1", r"'-1' is not an unsigned number"),
    (b"multi-state-value,1 number-of-states = 010", r"leading 0"),
    (b"multi-state-value,1 number-of-states = 0x", r"'0x' is not an unsigned number"),
    (b"device,1 utc-offset = 2147483648", r"out of range for a signed"),
    (b"device,1 utc-offset = 60x", r"'60x' is not a signed number"),
    (b"analog-input,1 units = 62 => degrees-fahrenheit",
     r"'degrees-fahrenheit' is not the name of 62 in the units table"),
    (b"analog-input,1 units = foo-3", r"'foo-3' reads as the number after its last '-'"),
    (b"analog-input,1 units = 62x", r"'62x' is not an enumeration value"),
    (b"device,1 object-list = ((analog-3,1))", r"'analog-3' reads as the number"),
    (b"device,1 object-list = ((1024,1))", r"syntax error|out of range for an object type"),
    (b"device,1 local-time = 07:30:00.5x", r"is not a time"),
    (b"device,1 local-date = (wednesday,14-january-2026x)", r"is not a date"),
    (b"analog-input,1 status-flags = (T,F,t,F)", r"column 36: 't' reads as a bit not given"),
    (b"analog-input,1 status-flags = (T,F,F,F) (2 => overridden)",
     r"does not name the bits that are set"),
    (b"analog-input,1 out-of-service = 1x", r"syntax error|'1x' is not a boolean"),
    (b"schedule,1 present-value = [4x] 1.5", r"\[4x\] is not a datatype tag"),
    # Six decimals cannot hold it: the file would change the value.
    (b"analog-input,1 present-value = 0.0000001", r"value does not read back as written"),
    # Bytes the scanners would cut at or take as Latin-1.
    (b"analog-input,1 present-value = 2\x00 1.5", r"column 33: NUL byte .*: 2\\x00 1\.5$"),
    (b"device,1 description = \"ab\x00cd\"", r"column 27: NUL byte"),
    (b"device,1 description = \"ab\xfc\x80\x80\x80\x80\x80cd\"", r"column 27: invalid UTF-8"),
    (b"device,1 description = \"caf\xe9\"", r"column 28: invalid UTF-8"),
    (b"device,1 description = \"\xc0\xaf\"", r"invalid UTF-8"),
    (b"device,1 description = \"\xed\xa0\x80\"", r"invalid UTF-8"),
    (b"device,1 description = \"\xf4\x90\x80\x80\"", r"invalid UTF-8"),
]
for line, err in STRICT_REJECTS:
    name = "strict " + line[:50].decode("latin-1")
    code, stdout, stderr = run(["check", "-"], stdin=b"# a comment first\n" + line + b"\n")
    expect(name, code == 1, f"exit {code}: {stderr}")
    expect(name, re.search(r"^<stdin>:2: .*" + err, stderr, re.M), stderr)

# What the strict reading must still accept, and how it prints it.
STRICT_ACCEPTS = [
    ("analog-input,1 present-value = 1e3", "analog-input,1 present-value = 1000.000000"),
    ("analog-input,1 present-value = -inf", "analog-input,1 present-value = -inf"),
    ("multi-state-value,1 number-of-states = 0x10", "multi-state-value,1 number-of-states = 16"),
    ("multi-state-value,1 number-of-states = 4294967295",
     "multi-state-value,1 number-of-states = 4294967295"),
    ("device,1 utc-offset = -2147483648", "device,1 utc-offset = -2147483648"),
    ("analog-input,1 units = proprietary-300", "analog-input,1 units = 300 => proprietary-300"),
    ("analog-input,1 units = 62 => degrees-celsius", "analog-input,1 units = 62 => degrees-celsius"),
    ("device,1 local-date = (*,1-5-2026)", "device,1 local-date = (*, 1-may-2026)"),
    ("device,1 object-list = ((proprietary-1023,4194303))",
     "device,1 object-list = ((proprietary-1023,4194303))"),
    ("analog-input,1 status-flags = (1,0,1,0)",
     "analog-input,1 status-flags = (T,F,T,F) (0 => in-alarm|2 => overridden)"),
]
for line, output in STRICT_ACCEPTS:
    code, stdout, stderr = run(["check", "-"], stdin=line + "\n")
    expect("strict accepts " + line, code == 0 and stdout == output + "\n",
           f"exit {code}, {stdout!r}, {stderr!r}")

# scan: the same reading, the catalogue's datatype, standard input.
# (arguments, standard input, exit status, exact stdout or None, stderr regex or None)
SCAN_STRICT = [
    (["scan", "-p", "units", "degrees-celsius"], "", 0, "62 => degrees-celsius\n", None),
    (["scan", "-t", "unsigned", "hello"], "", 1, "",
     r"^bacfmt scan: column 1: 'hello' is not an unsigned number \(as CT_UNSIGNED\): hello\n$"),
    (["scan", "-t", "real", "abc"], "", 1, "", r"'abc' is not a real number"),
    (["scan", "-t", "real", "1.5", "abc", "2"], "", 1, "1.500000\n2.000000\n", r"'abc'"),
    (["scan", "-p", "present-value", "-o", "analog-input", "1"], "", 0, "1.000000\n", None),
    (["scan", "-p", "present-value", "-o", "binary-input", "active"], "", 0, "1 => active\n", None),
    (["scan", "-o", "analog-input", "1"], "", 2, "", r"-o needs a property"),
    (["scan", "-p", "units", "-o", "binary-input", "62"], "", 2, "", r"binary-input has no units"),
    (["scan", "-p", "units", "-o", "nope", "62"], "", 2, "", r"unknown object type 'nope'"),
    (["scan", "-d", "-p", "units", "62"], "", 0, None, None),
    (["scan", "-t", "real", "-"], "1.5\n\n  \nabc\n2\n", 1, "1.500000\n2.000000\n",
     r"^<stdin>:4: column 1: 'abc' is not a real number \(as CT_REAL\): abc\n$"),
    (["scan", "-t", "unsigned", "-"], b"1\n2\x00\n", 1, "1\n", r"<stdin>:2: column 2: NUL byte"),
]
for args, stdin, status, out, err in SCAN_STRICT:
    name = "bacfmt " + " ".join(args)
    code, stdout, stderr = run(args, stdin=stdin)
    expect(name, code == status, f"exit {code}, wanted {status}; stderr {stderr!r}")
    if out is not None:
        expect(name, stdout == out, f"stdout {stdout!r}, wanted {out!r}")
    if err is not None:
        expect(name, re.search(err, stderr), f"stderr {stderr!r} does not match {err!r}")

# The dump says where the datatype came from.
for args, source in [(["-t", "enumerated", "62"], "from\t--type\n"),
                     (["-p", "units", "62"], "from\tcatalogue\tunits of every object type\n"),
                     (["-p", "units", "-o", "analog-input", "62"], "from\tcatalogue\tunits of analog-input\n"),
                     (["-p", "present-value", "1"], "from\tguess\tpresent-value differs by object type"),
                     (["[4] 1"], "from\ttag\n"), (["1"], "from\tguess\n")]:
    code, stdout, stderr = run(["scan", "--dump"] + args)
    expect("scan --dump " + " ".join(args), code == 0 and source in stdout, stdout + stderr)

# Long values print whole or not at all: lists that pass the first buffer
# sizes, where a printer's part result can arrive as -1 or as a positive
# count of a cut-off element.
for count in (222, 228, 300, 2000):
    text = "(" + ",".join(f"(analog-input,{i})" for i in range(count)) + ")"
    code, stdout, stderr = run(["scan", "-t", "CT_OBJECT_ID", "-"], stdin=text + "\n")
    expect(f"object identifiers x{count}", code == 0 and stdout == text + "\n",
           f"exit {code}, ...{stdout[-60:]!r}, {stderr[:200]!r}")
bits = "(" + ",".join(["(T,F,T)"] * 600) + ")"
code, stdout, stderr = run(["scan", "-t", "bit-string", "-"], stdin=bits + "\n")
expect("bit strings x600", code == 0 and stdout.count("(T,F,T)") == 600, stderr[:200])

# Files that cannot be read are exit 2 with the system's message; the
# others are still checked.
with tempfile.TemporaryDirectory() as tmp:
    code, _, stderr = run(["check", tmp, SITE])
    expect("check directory", code == 2 and re.search(r"cannot read '.*': Is a directory", stderr)
           and "0 errors found" in stderr, stderr)
    if os.geteuid() != 0:  # root reads whatever the mode says
        locked = os.path.join(tmp, "locked.txt")
        with open(locked, "w") as f:
            f.write("analog-input,1 present-value = 1\n")
        os.chmod(locked, 0)
        code, _, stderr = run(["check", locked])
        expect("check unreadable", code == 2 and "Permission denied" in stderr, stderr)

# An error about a huge value quotes its first 80 characters only.
huge = b"device,1 description = \"" + b"x" * 10_000_000 + b"\x00\"\n"
code, _, stderr = run(["check", "-q", "-"], stdin=huge)
expect("huge value", code == 1 and len(stderr) < 400 and '"' + "x" * 79 + "... (10000003 bytes)" in stderr,
       stderr[:400])

for failure in failures:
    print("FAIL", failure)
print(f"{len(failures)} failures")
sys.exit(1 if failures else 0)
