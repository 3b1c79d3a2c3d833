#!/usr/bin/env python3
"""Writes src/textservices/enum_tables.inc from data/enumerations/*.tsv.

The build does not run this script; run it after changing the data files and
commit its output with them:

    python3 scripts/gen_enumtext.py

Output, in the namespace the including header opens:
  - one array of names per enumeration, indexed by value (nullptr where a
    value has no name), and an Enumeration over it;
  - kKeyedEnumerations: table key -> enumeration, ascending by key;
  - kObjectPropertyEnumerations: (object type, property) -> enumeration for
    the properties whose datatype depends on the object type, ascending.
"""

import csv
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "data" / "enumerations"
OUTPUT = ROOT / "src" / "textservices" / "enum_tables.inc"

# Tables not named after the property whose values they name.
FIXED_KEYS = [
    (32, "weekdays", "day-of-week"),
    (56, "months", "month"),
    (78, "property identifiers", "property-identifier"),
    (79, "object types", "object-type"),
]

# A value this far above the previous one starts the enumeration's extended
# run (22-bit property identifiers, the second block of units), so that the
# array indexed by value does not fill millions of empty slots.
EXTENDED_GAP = 4096

# The date notation separates day, month and year with '-' and the
# week-and-day notation month, week and weekday, so a month or weekday name
# with a '-' would not read back. The two month groups lose their suffix.
RENAMED = {
    "month": {13: "odd", 14: "even"},
}
HYPHEN_FREE = {"month", "day-of-week"}


def fail(message):
    sys.exit(f"gen_enumtext: {message}")


def read_rows(file_name, columns):
    path = DATA / file_name
    with path.open(newline="", encoding="utf-8") as handle:
        reader = csv.reader(handle, delimiter="\t")
        header = next(reader)
        if header[: len(columns)] != columns:
            fail(f"{file_name}: expected columns {columns}, found {header}")
        return [row for row in reader if row]


def read_enumeration(stem):
    names = {}
    for value, name in read_rows(f"{stem}.tsv", ["value", "name"]):
        value = int(value)
        if value in names:
            fail(f"{stem}.tsv: value {value} twice")
        names[value] = RENAMED.get(stem, {}).get(value, name)
    if len(set(names.values())) != len(names):
        fail(f"{stem}.tsv: a name is used twice; the scanners would read back the first only")
    if stem in HYPHEN_FREE and any("-" in name for name in names.values()):
        fail(f"{stem}.tsv: a name holds '-', which the date notation uses as separator")
    return names


def split_runs(stem, names):
    """The values from 0 up, and the distant extended run (may be empty)."""
    values = sorted(names)
    for previous, value in zip(values, values[1:]):
        if value - previous > EXTENDED_GAP:
            low = [v for v in values if v < value]
            high = [v for v in values if v >= value]
            if any(b - a > EXTENDED_GAP for a, b in zip(high, high[1:])):
                fail(f"{stem}.tsv: more than two distant runs of values")
            return low, high
    return values, []


def identifier(stem):
    """C++ name of an enumeration: month -> kMonth, binary-pv -> kBinaryPv."""
    return "k" + "".join(part.capitalize() for part in stem.split("-"))


def name_array(identifier, names, values, first):
    """One name a line, the value as an aligned comment."""
    last = values[-1] if values else first - 1
    cells = []
    for value in range(first, last + 1):
        text = names.get(value)
        cells.append((f'"{text}",' if text is not None else "nullptr,", value))
    width = max((len(cell) for cell, _ in cells), default=0)
    digits = len(str(last))
    lines = [f"inline constexpr const char *{identifier}[] = {{"]
    for cell, value in cells:
        lines.append(f"    {cell:<{width}}  // {value:>{digits}}")
    lines.append("};")
    return lines


def main():
    property_names = {int(v): n for v, n in read_rows("property-identifier.tsv", ["value", "name"])}
    object_names = {int(v): n for v, n in read_rows("object-type.tsv", ["value", "name"])}

    # key -> (enumeration stem, what the table names)
    keyed = {}

    def add_key(key, stem, what):
        if key in keyed and keyed[key][0] != stem:
            fail(f"key {key} names both {keyed[key][0]} and {stem}")
        keyed.setdefault(key, (stem, what))

    for key, what, stem in FIXED_KEYS:
        add_key(key, stem, what)
    for value, name, stem in read_rows("property-enumerations.tsv",
                                       ["property_value", "property_name", "enumeration_file"]):
        add_key(int(value), stem, name)
    for value, name, stem, _ in read_rows("property-enumerations-extra.tsv",
                                          ["property_value", "property_name", "enumeration_file", "use"]):
        add_key(int(value), stem, name)

    by_object = []
    for object_type, prop, stem in read_rows("property-enumerations-by-object.tsv",
                                             ["object_type_value", "property_value", "enumeration_file"]):
        object_type, prop = int(object_type), int(prop)
        if prop not in keyed:
            fail(f"property {prop} depends on the object type but has no default table")
        by_object.append((object_type, prop, stem))
    by_object.sort()
    if len({(o, p) for o, p, _ in by_object}) != len(by_object):
        fail("an (object type, property) pair is listed twice")

    stems = sorted({stem for stem, _ in keyed.values()} | {stem for _, _, stem in by_object})
    out = [
        "// Generated by scripts/gen_enumtext.py from data/enumerations/*.tsv; do not edit.",
        "// Included by enum_tables.h inside its namespace.",
        "// clang-format off",
        "",
    ]
    for stem in stems:
        names = read_enumeration(stem)
        name = identifier(stem)
        low, high = split_runs(stem, names)
        out.append(f"// {stem}.tsv")
        out += name_array(f"{name}Names", names, low, 0)
        if high:
            out += name_array(f"{name}ExtendedNames", names, high, high[0])
            out.append(f"inline constexpr Enumeration {name}{{{name}Names, {high[0]}, {name}ExtendedNames}};")
        else:
            out.append(f"inline constexpr Enumeration {name}{{{name}Names}};")
        out.append("")

    key_width = len(str(max(keyed)))
    ref_width = max(len(identifier(stem)) for stem, _ in keyed.values()) + 1
    out.append("// Ascending by key.")
    out.append("inline constexpr KeyedEnumeration kKeyedEnumerations[] = {")
    for key in sorted(keyed):
        stem, what = keyed[key]
        ref = "&" + identifier(stem)
        out.append(f"    {{{key:>{key_width}}, {ref + '},':<{ref_width + 2}}  // {what}")
    out.append("};")
    out.append("")

    ref_width = max(len(identifier(stem)) for _, _, stem in by_object) + 1
    out.append("// Ascending by object type, then property.")
    out.append("inline constexpr ObjectPropertyEnumeration kObjectPropertyEnumerations[] = {")
    for object_type, prop, stem in by_object:
        ref = "&" + identifier(stem)
        where = f"{object_names.get(object_type, object_type)} {property_names.get(prop, prop)}"
        out.append(f"    {{{object_type:>2}, {prop:>3}, {ref + '},':<{ref_width + 2}}  // {where}")
    out.append("};")

    OUTPUT.write_text("\n".join(out) + "\n", encoding="utf-8")
    print(f"wrote {OUTPUT.relative_to(ROOT)}: {len(keyed)} tables, {len(stems)} enumerations")


if __name__ == "__main__":
    main()
