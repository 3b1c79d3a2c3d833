#!/usr/bin/env python3
"""Generates the object property catalogue from data/object-properties/.

Writes src/catalog/object_tables.cc (the 55 per-object-type tables, the
proprietary table, pAllObjectProps and nAllObjectProps) and
src/catalog/element_sizes.h (the size of one element of each datatype code).
Both outputs are committed; run this script after changing the data or the
rules below, or with --check to verify that the committed files are current.

How a table is filled
---------------------
Each object type's table has a fixed row count (ROW_COUNTS). Rows keep the
order of the data (the standard's object table order).

1. Start from the revision-14 rows: every row of the type that
   later-additions.tsv does not list.
2. Too many rows: drop optional rows named in LEAST_USED, in that order.
3. Too few rows: add later rows, best first: required ones, then older
   properties that the type received later, then those whose datatype has a
   datatype code, then by PREFERRED_LATER, then in table order.

Datatype and shape
------------------
DATATYPES maps each datatype of the data to its code; ELEMENT_SIZES holds
the size of one element of each code (the one place for these sizes). The
shape's multiplicity is 0 for a single value, N for array[N], and the
markers TEXT (253) for a single character string, ARRAY (254) for an
unbounded array and LIST (255) for a list.

Access and flags
----------------
access is 2 for properties an operator may write (conformance W, and
out-of-service), 1 for the others. The flag bits are those documented in
include/bacfmt/catalog.h; flags_of() derives them.
"""

import argparse
import csv
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "data" / "object-properties"
TABLES_OUT = ROOT / "src" / "catalog" / "object_tables.cc"
SIZES_OUT = ROOT / "src" / "catalog" / "element_sizes.h"

FROM_VALUE = "BACNET_DATATYPE_FROM_VALUE"

# Size of one element of each datatype code on the 32-bit target, and the
# sizeof expression that gives it on every build where a public element type
# exists. Layouts of the families not described elsewhere (32-bit words
# unless noted):
#   CT_ADDRESS           network number, MAC length (8 bits), 7 MAC octets
#   CT_RECIPIENT         choice, then a device ObjectID or an address
#   CT_DESTINATION       valid days (bit string), from time, to time,
#                        recipient, process id, issue-confirmed (8 bits),
#                        transitions (bit string)
#   CT_ADDRESS_BINDING   device ObjectID, address
#   CT_CLIENT_COV        choice (0 real increment, 1 default), increment
#   CT_COV_SUBSCRIPTION  recipient, process id, monitored ObjPropReference,
#                        issue-confirmed (8 bits), time remaining,
#                        increment present (8 bits), increment
#   CT_AUTHENTICATION_POLICY  policy count, policy pointer,
#                        order-enforced (8 bits), timeout
#   CT_AUTHENTICATION_FACTOR  format type, format class, value (octet string)
#   CT_CREDENTIAL_AUTHENTICATION_FACTOR  disable, authentication factor
#   CT_ACCESS_RULE       time range specifier, time range (DevObjPropReference),
#                        location specifier, location (DevObjReference),
#                        enable (8 bits)
#   CT_ASSIGNED_ACCESS_RIGHTS  access rights (DevObjReference), enable (8 bits)
#   CT_AUTHENTICATION_FACTOR_FORMAT  format type, vendor id, vendor format
#   CT_VT_SESSION        local session id, remote session id, remote address
#   CT_SESSION_KEY       key (octet string), peer address
#   CT_NETWORK_SECURITY_POLICY  port id, security level
#   CT_KEY_IDENTIFIER    algorithm, key id
#   CT_SECURITY_KEY_SET  key revision, activation DateTime, expiration
#                        DateTime, key id count, key id pointer
#   CT_EVENT_NOTIFICATION_SUBSCRIPTION  recipient, process id,
#                        issue-confirmed (8 bits), time remaining
#   CT_PROCESS_ID_SELECTION  choice, process id
#   CT_PORT_PERMISSION   port id, enabled (8 bits)
# Doubles inside the choice records (priority-array item, channel value,
# event parameters) sit on 32-bit boundaries, so those records are counted
# in 32-bit words.
ELEMENT_SIZES = {
    "CT_NULL":                             (5,  None),  # the text "NULL"
    "CT_BOOLEAN":                          (1,  "sizeof(uint8_t)"),
    "CT_UNSIGNED":                         (4,  "sizeof(uint32_t)"),
    "CT_SIGNED":                           (4,  "sizeof(int32_t)"),
    "CT_REAL":                             (4,  "sizeof(float)"),
    "CT_DOUBLE":                           (8,  "sizeof(double)"),
    "CT_OCTET_STRING":                     (12, "sizeof(BACnetOctetString)"),
    "CT_CHARACTER_STRING":                 (16, "sizeof(BACnetCharString)"),
    "CT_BIT_STRING":                       (24, "sizeof(BACnetBitString)"),
    "CT_ENUMERATED":                       (4,  "sizeof(uint32_t)"),
    "CT_DATE":                             (16, "sizeof(BACnetDate)"),
    "CT_TIME":                             (4,  "sizeof(BACnetTime)"),
    "CT_OBJECT_ID":                        (8,  "sizeof(BACnetObjectID)"),
    "CT_PRI_ARRAY_ITEM":                   (28, None),
    "CT_ADDRESS":                          (12, None),
    "CT_DATE_TIME":                        (20, "sizeof(BACnetDateTime)"),
    "CT_OBJ_PROP_REFERENCE":               (16, None),
    "CT_PROPERTY_STATES":                  (8,  None),
    "CT_EVENT_PARAMETER":                  (52, None),
    "CT_DATE_RANGE":                       (32, None),
    "CT_WEEK_N_DAY":                       (12, None),
    "CT_CALENDAR_ENTRY":                   (36, None),
    "CT_TIME_VALUE":                       (28, None),
    "CT_SPECIAL_EVENT":                    (52, None),
    "CT_RECIPIENT":                        (16, None),
    "CT_SETPOINT_REFERENCE":               (20, None),
    "CT_DESTINATION":                      (80, None),
    "CT_DAILY_SCHEDULE":                   (8,  None),
    "CT_TIME_STAMP":                       (24, None),
    "CT_PROPERTY_REFERENCE":               (8,  None),
    "CT_ADDRESS_BINDING":                  (20, None),
    "CT_DEV_OBJ_PROP_REFERENCE":           (28, None),
    "CT_CLIENT_COV":                       (8,  None),
    "CT_LOG_RECORD":                       (80, None),
    "CT_ACTION_LIST":                      (8,  None),
    "CT_READ_ACCESS_SPEC":                 (16, None),
    "CT_READ_ACCESS_RESULT":               (20, None),
    "CT_COV_SUBSCRIPTION":                 (52, None),
    "CT_DEV_OBJ_REFERENCE":                (20, None),
    "CT_DEV_OBJ_PROP_VALUE":               (48, None),
    "CT_ACCUMULATOR_RECORD":               (32, None),
    "CT_PRESCALE":                         (8,  None),
    "CT_SCALE":                            (8,  None),
    "CT_EVENT_LOG_RECORD":                 (68, None),
    "CT_LOG_RECORD_MULTIPLE":              (52, None),
    "CT_SHED_LEVEL":                       (8,  None),
    "CT_AUTHENTICATION_POLICY":            (16, None),
    "CT_AUTHENTICATION_FACTOR":            (20, None),
    "CT_CREDENTIAL_AUTHENTICATION_FACTOR": (24, None),
    "CT_ACCESS_RULE":                      (60, None),
    "CT_ASSIGNED_ACCESS_RIGHTS":           (24, None),
    "CT_AUTHENTICATION_FACTOR_FORMAT":     (12, None),
    "CT_OPTIONAL_CHARACTER_STRING":        (16, "sizeof(BACnetCharString)"),
    "CT_PROPERTY_ACCESS_RESULT":           (56, None),
    "CT_VT_SESSION":                       (20, None),
    "CT_SESSION_KEY":                      (24, None),
    "CT_NETWORK_SECURITY_POLICY":          (8,  None),
    "CT_KEY_IDENTIFIER":                   (8,  None),
    "CT_SECURITY_KEY_SET":                 (52, None),
    "CT_LIGHTING_COMMAND":                 (28, None),
    "CT_CHANNEL_VALUE":                    (32, None),
    "CT_EVENT_NOTIFICATION_SUBSCRIPTION":  (28, None),
    "CT_PROCESS_ID_SELECTION":             (8,  None),
    "CT_PORT_PERMISSION":                  (8,  None),
    "CT_FAULT_PARAMETER":                  (40, None),
    "CT_ASN1_FIRST":                       (8,  "sizeof(BACnetRawASN1)"),
    "CT_ASN1_SECOND":                      (8,  "sizeof(BACnetRawASN1)"),
    "CT_ASN1_THIRD":                       (8,  "sizeof(BACnetRawASN1)"),
    "CT_ASN1_LAST":                        (8,  "sizeof(BACnetRawASN1)"),
}

# Datatypes of the data, by the code that holds their values.
PRIMITIVES = {
    "Null": "CT_NULL",
    "Boolean": "CT_BOOLEAN",
    "Unsigned": "CT_UNSIGNED",
    "Integer": "CT_SIGNED",
    "Real": "CT_REAL",
    "Double": "CT_DOUBLE",
    "OctetString": "CT_OCTET_STRING",
    "CharacterString": "CT_CHARACTER_STRING",
    "BitString": "CT_BIT_STRING",
    "Enumerated": "CT_ENUMERATED",
    "Date": "CT_DATE",
    "Time": "CT_TIME",
    "BACnetObjectIdentifier": "CT_OBJECT_ID",
    "AccessThreatLevel": "CT_UNSIGNED",  # an unsigned 0..100
}
ENUMERATIONS = """
    AccessCredentialDisable AccessCredentialDisableReason AccessEvent
    AccessPassbackMode AccessUserType AccessZoneOccupancyState Action AuditLevel
    AuthenticationStatus AuthorizationException AuthorizationMode BackupState
    BinaryLightingPV BinaryPV DeviceStatus DoorAlarmState DoorSecuredStatus
    DoorStatus DoorValue EngineeringUnits EventState EventType FaultType
    FileAccessMethod IPMode LifeSafetyMode LifeSafetyOperation LifeSafetyState
    LightingInProgress LightingTransition LockStatus LoggingType Maintenance
    NetworkNumberQuality NetworkPortCommand NetworkType NodeType NotifyType
    ObjectType Polarity ProgramError ProgramRequest ProgramState
    PropertyIdentifier ProtocolLevel Relationship Reliability RestartReason
    SecurityLevel Segmentation ShedState SilencedState TimerState
    TimerTransition VTClass WriteStatus
""".split()
BIT_STRINGS = """
    AuditOperationFlags DaysOfWeek EventTransitionBits LimitEnable LogStatus
    ObjectTypesSupported PriorityFilter ResultFlags ServicesSupported StatusFlags
""".split()
CONSTRUCTED = {
    "AccessRule": "CT_ACCESS_RULE",
    "AccumulatorRecord": "CT_ACCUMULATOR_RECORD",
    "ActionList": "CT_ACTION_LIST",
    "AddressBinding": "CT_ADDRESS_BINDING",
    "AssignedAccessRights": "CT_ASSIGNED_ACCESS_RIGHTS",
    "AuthenticationFactor": "CT_AUTHENTICATION_FACTOR",
    "AuthenticationFactorFormat": "CT_AUTHENTICATION_FACTOR_FORMAT",
    "AuthenticationPolicy": "CT_AUTHENTICATION_POLICY",
    "COVSubscription": "CT_COV_SUBSCRIPTION",
    "CalendarEntry": "CT_CALENDAR_ENTRY",
    "ChannelValue": "CT_CHANNEL_VALUE",
    "ClientCOV": "CT_CLIENT_COV",
    "CredentialAuthenticationFactor": "CT_CREDENTIAL_AUTHENTICATION_FACTOR",
    "DailySchedule": "CT_DAILY_SCHEDULE",
    "DateRange": "CT_DATE_RANGE",
    "DateTime": "CT_DATE_TIME",
    "Destination": "CT_DESTINATION",
    "DeviceObjectPropertyReference": "CT_DEV_OBJ_PROP_REFERENCE",
    "DeviceObjectReference": "CT_DEV_OBJ_REFERENCE",
    "EventLogRecord": "CT_EVENT_LOG_RECORD",
    "EventNotificationSubscription": "CT_EVENT_NOTIFICATION_SUBSCRIPTION",
    "EventParameter": "CT_EVENT_PARAMETER",
    "FaultParameter": "CT_FAULT_PARAMETER",
    "KeyIdentifier": "CT_KEY_IDENTIFIER",
    "LightingCommand": "CT_LIGHTING_COMMAND",
    "LogMultipleRecord": "CT_LOG_RECORD_MULTIPLE",
    "LogRecord": "CT_LOG_RECORD",
    "NetworkSecurityPolicy": "CT_NETWORK_SECURITY_POLICY",
    "ObjectPropertyReference": "CT_OBJ_PROP_REFERENCE",
    "OptionalCharacterString": "CT_OPTIONAL_CHARACTER_STRING",
    "PortPermission": "CT_PORT_PERMISSION",
    "Prescale": "CT_PRESCALE",
    "PriorityValue": "CT_PRI_ARRAY_ITEM",
    "ProcessIdSelection": "CT_PROCESS_ID_SELECTION",
    "PropertyAccessResult": "CT_PROPERTY_ACCESS_RESULT",
    "PropertyStates": "CT_PROPERTY_STATES",
    "ReadAccessResult": "CT_READ_ACCESS_RESULT",
    "ReadAccessSpecification": "CT_READ_ACCESS_SPEC",
    "Recipient": "CT_RECIPIENT",
    "Scale": "CT_SCALE",
    "SecurityKeySet": "CT_SECURITY_KEY_SET",
    "SetpointReference": "CT_SETPOINT_REFERENCE",
    "ShedLevel": "CT_SHED_LEVEL",
    "SpecialEvent": "CT_SPECIAL_EVENT",
    "TimeStamp": "CT_TIME_STAMP",
    "VTSession": "CT_VT_SESSION",
}
# Values whose datatype travels with the value, and datatypes without a code.
WITHOUT_CODE = """
    Any COVMultipleSubscription NameValue NameValueCollection OptionalBinaryPV
    OptionalPriorityFilter OptionalReal OptionalUnsigned TimerStateChangeValue
    ValueSource
""".split()

DATATYPES = dict(PRIMITIVES)
DATATYPES.update({name: "CT_ENUMERATED" for name in ENUMERATIONS})
DATATYPES.update({name: "CT_BIT_STRING" for name in BIT_STRINGS})
DATATYPES.update(CONSTRUCTED)
DATATYPES.update({name: FROM_VALUE for name in WITHOUT_CODE})

MULT_TEXT, MULT_ARRAY, MULT_LIST = 253, 254, 255
MULT_NAMES = {0: "0", MULT_TEXT: "OBJPROP_TEXT", MULT_ARRAY: "OBJPROP_ARRAY",
              MULT_LIST: "OBJPROP_LIST"}

# Table name and row count of each object type; type 31 has no table.
ROW_COUNTS = [
    ("AllAIProps", 37), ("AllAOProps", 36), ("AllAVProps", 35),
    ("AllBIProps", 35), ("AllBOProps", 39), ("AllBVProps", 36),
    ("AllCalendarProps", 8), ("AllCommandProps", 11), ("AllDeviceProps", 60),
    ("AllEventProps", 26), ("AllFileProps", 13), ("AllGroupProps", 8),
    ("AllLoopProps", 46), ("AllMIProps", 29), ("AllMOProps", 30),
    ("AllNotifyProps", 10), ("AllProgramProps", 25), ("AllScheduleProps", 26),
    ("AllAveragingProps", 17), ("AllMVProps", 30), ("AllTrendlogProps", 39),
    ("AllLifeSafetyPointProps", 38), ("AllLifeSafetyZoneProps", 36),
    ("AllAccumulatorProps", 39), ("AllPulseConverterProps", 38),
    ("AllEventlogProps", 31), ("AllGlobalGroupProps", 34),
    ("AllTrendLogMultipleProps", 37), ("AllLoadControlProps", 34),
    ("AllStructuredViewProps", 10), ("AllAccessDoorProps", 39), (None, 0),
    ("AllAccessCredential", 28), ("AllAccessPoint", 52), ("AllAccessRights", 14),
    ("AllAccessUser", 17), ("AllAccessZone", 39), ("AllCredentialDataInput", 23),
    ("AllNetworkSecurity", 17), ("AllBitstringValue", 29),
    ("AllCharacterstringValue", 28), ("AllDatePatternValue", 14),
    ("AllDateValue", 14), ("AllDateTimePatternValue", 15),
    ("AllDateTimeValue", 15), ("AllIntegerValue", 35),
    ("AllLargeAnalogValue", 35), ("AllOctetstringValue", 14),
    ("AllPositiveIntegerValue", 35), ("AllTimePatternValue", 14),
    ("AllTimeValue", 14), ("AllNotificationForwarder", 15),
    ("AllAlertEnrollment", 20), ("AllChannel", 27), ("AllLightingOutput", 29),
]

# Optional properties dropped first when the revision-14 rows are too many.
LEAST_USED = [357]  # reliability-evaluation-inhibit
# Later property identifiers preferred when rows are missing.
PREFERRED_LATER = [388, 389, 498, 501]  # fault limits, audit level, auditable operations

# The proprietary table: object types above 54 get these rows, whatever the
# type is. Present-value is a time here on purpose, writable by the operator.
PROPRIETARY = [
    (75, "object-identifier", "BACnetObjectIdentifier", "single"),
    (77, "object-name", "CharacterString", "single"),
    (79, "object-type", "ObjectType", "single"),
    (28, "description", "CharacterString", "single"),
    (85, "present-value", "Time", "single"),
    (111, "status-flags", "StatusFlags", "single"),
    (36, "event-state", "EventState", "single"),
    (103, "reliability", "Reliability", "single"),
    (371, "property-list", "PropertyIdentifier", "array"),
    (168, "profile-name", "CharacterString", "single"),
]
PROPRIETARY_OPERATOR_WRITABLE = {85}

# Flag bits (the OBJPROP_FLAG_ macros of catalog.h) and the rules behind them.
FLAGS = {
    "OBJPROP_FLAG_PROFILE":           0x0001,
    "OBJPROP_FLAG_REQUIRED_WRITABLE": 0x0004,
    "OBJPROP_FLAG_LIST_ENTRY":        0x0008,
    "OBJPROP_FLAG_STATE":             0x0010,
    "OBJPROP_FLAG_OPERATOR_WRITABLE": 0x0100,
    "OBJPROP_FLAG_COV":               0x0200,
    "OBJPROP_FLAG_DETAIL_VIEW":       0x2000,
    "OBJPROP_FLAG_SELF_CHANGING":     0x4000,
    "OBJPROP_FLAG_STATUS":            0x8000,
}
PROFILE_PROPERTIES = {168, 485}           # profile-name, profile-location
# Object types whose entry in an object list shows more than the identifier.
LIST_VIEW_TYPES = set(range(0, 11)) | set(range(12, 18)) | set(range(19, 23)) | {25, 27, 29}
LIST_ENTRY_PROPERTIES = {77, 85, 81, 111}  # name, present value, out-of-service, status
PROPRIETARY_LIST_ENTRY = {168}            # all a browser knows of what the object is
STATE_PROPERTIES = {85, 81, 111, 36, 103, 112, 164, 378, 92}
COV_PROPERTIES = {85, 111}                # carried in change-of-value notifications
STATUS_PROPERTIES = {111, 36, 103}        # status flags, event state, reliability
TITLE_PROPERTIES = {75, 79, 168}          # shown in a detail view's title instead
OUT_OF_SERVICE = 81


def read_tsv(name):
    with open(DATA / name, newline="", encoding="utf-8") as f:
        return list(csv.DictReader(f, delimiter="\t"))


def multiplicity(datatype, shape):
    if shape == "single":
        return MULT_TEXT if datatype == "CharacterString" else 0
    if shape == "array":
        return MULT_ARRAY
    if shape == "list":
        return MULT_LIST
    if shape.startswith("array[") and shape.endswith("]"):
        return int(shape[6:-1])
    raise ValueError(f"unknown shape {shape!r}")


def access_of(row, proprietary):
    if proprietary:
        return 2 if row["property"] in PROPRIETARY_OPERATOR_WRITABLE else 1
    return 2 if row["conformance"] == "W" or row["property"] == OUT_OF_SERVICE else 1


def flags_of(row, object_type, access):
    p = row["property"]
    proprietary = object_type is None
    bits = {
        "OBJPROP_FLAG_PROFILE": p in PROFILE_PROPERTIES,
        "OBJPROP_FLAG_REQUIRED_WRITABLE": row["conformance"] == "W",
        "OBJPROP_FLAG_LIST_ENTRY": (p in PROPRIETARY_LIST_ENTRY) if proprietary
        else (object_type in LIST_VIEW_TYPES and p in LIST_ENTRY_PROPERTIES),
        "OBJPROP_FLAG_STATE": p in STATE_PROPERTIES,
        "OBJPROP_FLAG_OPERATOR_WRITABLE": access == 2,
        "OBJPROP_FLAG_COV": p in COV_PROPERTIES,
        "OBJPROP_FLAG_DETAIL_VIEW": p not in TITLE_PROPERTIES,
        "OBJPROP_FLAG_SELF_CHANGING": p in STATE_PROPERTIES and p != OUT_OF_SERVICE,
        "OBJPROP_FLAG_STATUS": p in STATUS_PROPERTIES,
    }
    return sum(FLAGS[name] for name, on in bits.items() if on)


def code_of(datatype):
    if datatype not in DATATYPES:
        raise SystemExit(f"datatype {datatype!r} has no mapping in gen_catalog.py")
    return DATATYPES[datatype]


def select_rows(object_type, rows, later, count):
    """The rows of one table, in data order, following the module's rules."""
    chosen = [r for r in rows if (object_type, r["property"]) not in later]
    for drop in LEAST_USED:
        if len(chosen) <= count:
            break
        chosen = [r for r in chosen if not (r["property"] == drop and r["conformance"] == "O")]
    if len(chosen) > count:
        raise SystemExit(f"object type {object_type}: {len(chosen)} rows, {count} wanted")

    def rank(item):
        position, r = item
        reason = later[(object_type, r["property"])]
        preference = (PREFERRED_LATER.index(r["property"])
                      if r["property"] in PREFERRED_LATER else len(PREFERRED_LATER))
        return (r["conformance"] == "O", reason != "added-to-object-type",
                code_of(r["datatype"]) == FROM_VALUE, preference, position)

    candidates = sorted(((i, r) for i, r in enumerate(rows)
                         if (object_type, r["property"]) in later), key=rank)
    extra = {id(r) for _, r in candidates[:count - len(chosen)]}
    kept = {id(r) for r in chosen} | extra
    result = [r for r in rows if id(r) in kept]
    if len(result) != count:
        raise SystemExit(f"object type {object_type}: {len(result)} rows, {count} wanted")
    return result


def described(rows, object_type):
    """Rows as (property, name, code, multiplicity, access, flags)."""
    out = []
    for r in rows:
        code = code_of(r["datatype"])
        access = access_of(r, object_type is None)
        out.append((r["property"], r["name"], code, multiplicity(r["datatype"], r["shape"]),
                    access, flags_of(r, object_type, access)))
    return out


def check_common_rows(table_name, object_type, rows):
    """The three rows every table starts with, as callers rely on them."""
    name_flags = 0x2008 if object_type in LIST_VIEW_TYPES else 0x2000
    expected = [(75, "CT_OBJECT_ID", 0, 1, 0), (77, "CT_CHARACTER_STRING", MULT_TEXT, 1, name_flags),
                (79, "CT_ENUMERATED", 0, 1, 0)]
    if [(p, c, m, a, f) for p, _, c, m, a, f in rows[:3]] != expected:
        raise SystemExit(f"{table_name}: the first three rows are not the common ones")
    if len({p & 0xFFFF for p, *_ in rows}) != len(rows):
        raise SystemExit(f"{table_name}: a property appears twice")


def load_tables():
    later = {(int(r["object_type"]), int(r["property_id"])): r["reason"]
             for r in read_tsv("later-additions.tsv")}
    by_type = {}
    for r in read_tsv("object-properties.tsv"):
        by_type.setdefault(int(r["object_type"]), []).append({
            "property": int(r["property_id"]), "name": r["property_name"],
            "datatype": r["datatype"], "shape": r["shape"], "conformance": r["conformance"]})
    tables = []
    for object_type, (name, count) in enumerate(ROW_COUNTS):
        if name is None:
            tables.append((object_type, None, []))
            continue
        rows = described(select_rows(object_type, by_type[object_type], later, count), object_type)
        check_common_rows(name, object_type, rows)
        tables.append((object_type, name, rows))
    proprietary = described([{"property": p, "name": n, "datatype": d, "shape": s,
                              "conformance": "R"} for p, n, d, s in PROPRIETARY], None)
    check_common_rows("AllProprietary", None, proprietary)
    return tables, proprietary


def format_row(row, code_width):
    prop, name, code, mult, access, flags = row
    return (f"    Row({prop:>4}, {code + ',':<{code_width}} {MULT_NAMES.get(mult, str(mult)) + ',':<14} "
            f"{access}, 0x{flags:04X}),  // {name}")


def format_table(name, rows, comment, code_width):
    lines = [f"// {comment}", f'extern "C" const ObjPropDescription {name}[] = {{']
    lines += [format_row(r, code_width) for r in rows]
    lines.append("};")
    lines.append(f"static_assert(std::size({name}) == {len(rows)});")
    return "\n".join(lines)


HEADER = """\
// Generated by scripts/gen_catalog.py from data/object-properties/. Do not
// edit by hand: change the data or the script and run it again.
"""


def render_tables(tables, proprietary):
    types = {int(r["object_type"]): r["object_name"] for r in read_tsv("object-types.tsv")}
    parts = [HEADER, '#include <cstdint>\n#include <iterator>\n\n#include <bacfmt/catalog.h>\n\n#include "catalog/table_row.h"\n',
             "using bacfmt::catalog::Row;\n"]
    parts += [f"static_assert({flag} == 0x{value:04X});" for flag, value in FLAGS.items()]
    parts.append("")
    width = 1 + max(len(code) for _, _, rows in tables for _, _, code, *_ in rows)
    for object_type, name, rows in tables:
        if name is not None:
            parts.append(format_table(name, rows, f"{object_type}: {types[object_type]}", width) + "\n")
    parts.append(format_table("AllProprietary", proprietary, "object types above 54", width) + "\n")
    name_width = 1 + max(len(name or "nullptr") for _, name, _ in tables)
    pointers = [f"    {(name or 'nullptr') + ',':<{name_width}}  // {t}" for t, name, _ in tables]
    counts = [f"    {len(rows):>2},  // {t} {name if name else '(none)'}" for t, name, rows in tables]
    parts.append('extern "C" const ObjPropDescription *const pAllObjectProps[BACNET_CATALOG_OBJECT_TYPES] = {')
    parts += pointers + ["};\n"]
    parts.append('extern "C" const uint8_t nAllObjectProps[BACNET_CATALOG_OBJECT_TYPES] = {')
    parts += counts + ["};"]
    return "\n".join(parts) + "\n"


def render_sizes():
    width = max(len(code) for code in ELEMENT_SIZES) + 1
    rows = []
    for code, (size32, expression) in ELEMENT_SIZES.items():
        here = expression or str(size32)
        rows.append(f"    {{{code + ',':<{width}} {here + ',':<28} {size32:>2}}},")
    return HEADER + f"""\
// Size of one element of each datatype code, as the catalogue's shapes give
// it: sizeof of the element type where a public one exists, otherwise the
// size of the layout on the 32-bit target.
#ifndef BACFMT_CATALOG_ELEMENT_SIZES_H
#define BACFMT_CATALOG_ELEMENT_SIZES_H

#include <cstdint>

#include <bacfmt/catalog.h>
#include <bacfmt/contents.h>

namespace bacfmt::catalog {{

struct ElementSize {{
    uint32_t code;
    uint32_t size;         // on this build
    uint32_t targetSize;   // on the 32-bit target
}};

inline constexpr ElementSize kElementSizes[] = {{
    // code                                this build                  32-bit
{chr(10).join(rows)}
}};

// 0 for BACNET_DATATYPE_FROM_VALUE and for codes without an element.
constexpr uint32_t ElementSizeOf(uint32_t code) {{
    for (const ElementSize &entry : kElementSizes)
        if (entry.code == code) return entry.size;
    return 0;
}}

}}  // namespace bacfmt::catalog

#endif  // BACFMT_CATALOG_ELEMENT_SIZES_H
"""


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true",
                        help="fail if the committed outputs differ from fresh ones")
    args = parser.parse_args()
    tables, proprietary = load_tables()
    outputs = {TABLES_OUT: render_tables(tables, proprietary), SIZES_OUT: render_sizes()}
    stale = []
    for path, text in outputs.items():
        if args.check:
            if not path.exists() or path.read_text(encoding="utf-8") != text:
                stale.append(path)
        else:
            path.write_text(text, encoding="utf-8")
    if stale:
        print("out of date: " + ", ".join(str(p.relative_to(ROOT)) for p in stale), file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
