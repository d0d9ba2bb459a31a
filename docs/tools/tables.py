#!/usr/bin/env python3
"""Writes docs/reference from the headers and the texts of the tree. With --check it writes nothing
and names the pages that are not as they would be written."""

import csv
import re
import sys

import contracts
from headers import ROOT, families, family, text_of

PAGES = ROOT / "docs" / "reference"
NOTE = "Made by `docs/refresh` from {}. Do not edit."
LANGUAGES = (("English", "en"), ("Traditional Chinese", "zh-Hant"), ("Simplified Chinese", "zh-Hans"))

SERVICES = "viewdata/services/"
MARKET = "viewdata/market/MarketAttributes.h"
POSITION = "viewdata/position/PositionAttributes.h"
POSITION_VIEW = "viewdata/positionview/PositionViewAttributes.h"
ACCOUNT = "viewdata/account/AccountAttributes.h"


class Missing(SystemExit):
    pass


def cell(text):
    return str(text).replace("|", "\\|").replace("\r\n", " / ").replace("\n", " / ")


def sentence(text):
    text = text.rstrip(".")
    return text[:1].upper() + text[1:]


def table(heads, rows):
    lines = ["| " + " | ".join(heads) + " |", "|" + "---|" * len(heads)]
    lines += ["| " + " | ".join(cell(part) for part in row) + " |" for row in rows]
    return "\n".join(lines)


def number_of(constant, known):
    """The number of a constant, which may be that of another family's."""
    if re.fullmatch(r"-?\d+", constant.value):
        return int(constant.value)
    return known[constant.value]


def need(meaning, path, constant):
    if not meaning:
        raise Missing(f"{path}: {constant.name} has no comment that says what it means")
    return sentence(meaning)


def level_meaning(name):
    level = re.fullmatch(r"(Bid|Ask)(Quantity|Price|Depth)(\d+)", name)
    if not level:
        return ""
    kind = "price" if level.group(2) == "Price" else "quantity"
    return f"{kind} of {level.group(1).lower()} level {level.group(3)}"


def numbered(path, name, known=None):
    """Rows (number, name, meaning), the gaps of a row of levels filled."""
    rows = []
    constants = family(path, name).constants
    for constant in constants:
        number = number_of(constant, known or {})
        meaning = constant.note or level_meaning(constant.name)
        level = re.fullmatch(r"(\w+Depth)(\d+)", constant.name)
        if level and rows:
            last = re.fullmatch(r"(\w+Depth)(\d+)", rows[-1][1])
            if last and last.group(1) == level.group(1):
                for gap in range(rows[-1][0] + 1, number):
                    of = int(level.group(2)) - (number - gap)
                    filled = f"{level.group(1)}{of}"
                    rows.append((gap, filled, sentence(level_meaning(filled))))
        rows.append((number, constant.name, need(meaning, path, constant)))
    return rows


def page(title, source, *parts):
    return "\n\n".join([f"# {title}", NOTE.format(source), *parts]) + "\n"


def columns():
    position = {f"PositionAttribute::{row[1]}": row[0] for row in numbered(POSITION, "PositionAttribute")}
    heads = ("Number", "Name", "Meaning")

    def section(title, path, name, text, known=None):
        rows = sorted(numbered(path, name, known))
        return "\n\n".join([f"## {title}", text, table(heads, rows)])

    return page(
        "Columns",
        "the headers of the views",
        "Numbers of the columns that controls answer: `Attribute` of `GetValue` and "
        "`GetDisplayValue`, and the tags of grid and tree columns. From 100000 up a number is a "
        "custom column: what is left after taking 100000 off is a [field number](fields.md). A "
        "number that a control does not know answers empty text. \"Embedded\" marks what the "
        "embedded services take the figure for; another service may mean something else.",
        section("Market watch and underlyer list", MARKET, "MarketAttribute",
                "Names are in `MarketAttribute`. The depth columns have no cells: a click on one "
                "copies the quantity of its level into order entry, and so do the numbers of the "
                "level fields 51 to 54, 61 to 64, 81 to 84, 91 to 94 and 3155 to 3194 for theirs. "
                "To show a level, take a custom column."),
        section("Position list", POSITION, "PositionAttribute",
                "Names are in `PositionAttribute`; the position view answers these numbers too."),
        section("Position view", POSITION_VIEW, "PositionViewAttribute",
                "Names are in `PositionViewAttribute`: what the position view adds to the list "
                "above, and what it answers in its own way.", position),
        section("Account trees: figures", ACCOUNT, "AccountAttribute",
                "Names are in `AccountAttribute`. In the information tree these are rows, in the "
                "cash tree columns. Every other number below 100000 is read as a number from "
                "`GetFieldString` of the record."),
        section("Account information tree: columns", ACCOUNT, "AccountTreeColumn",
                "Names are in `AccountTreeColumn`: the two tags that the tree answers."),
    )


def fields():
    rows = sorted(numbered(SERVICES + "FieldNumbers.h", "Field"))
    return page(
        "Fields",
        f"`{SERVICES}FieldNumbers.h`",
        "Numbers of the fields of a live item (`TCustomSubItem`), named in `Field`. Every field "
        "reads as Double and as text; one marked \"text\" means something as text only. Prices and "
        "quantities have level 1 as the best. A field of any other number can be fed and shown as a "
        "custom column.",
        table(("Number", "Name", "Meaning"), rows),
    )


def settings():
    rows = []
    path = SERVICES + "ConfigKeys.h"
    for constant in family(path, "ConfigKey").constants:
        operation, _, meaning = constant.above.partition(": ")
        if not operation.startswith("Read"):
            raise Missing(f"{path}: {constant.name} lacks the comment \"OPERATION: meaning\"")
        rows.append((f"`{text_of(constant.value)}`", f"`{operation}`", need(meaning, path, constant)))
    return page(
        "Settings",
        f"`{path}`",
        "Keys that the view layer reads from `TCustomConfigManager`, each with its operation. All "
        "lie in the section that `GetCurrentSection` names, but for `DefaultGroupDataMode`, which "
        f"is in the section `{text_of(next(c.value for c in family(path, '').constants))}`. A key "
        "that is absent reads as empty text, 0 or false. \"Embedded\" marks what the embedded "
        "services make of it. A host that has changed settings tells its listeners once, and the "
        "controls read them again.",
        table(("Key", "Operation", "Meaning"), rows),
    )


def texts():
    """(table, key) to the text of each language."""
    found = {}
    for _, code in LANGUAGES:
        name = ROOT / "data" / "language" / f"{code}.csv"
        with open(name, encoding="utf-8-sig", newline="") as file:
            for line in csv.DictReader(file):
                found.setdefault((line["table"], line["key"]), {})[code] = line["text"]
    return found


def resources():
    path = SERVICES + "ResourceKeys.h"
    shown = texts()

    def rows_of(constants):
        rows = []
        for constant in constants:
            key = text_of(constant.value)
            languages = shown.get(("ResourceString", key))
            if languages is None or len(languages) != len(LANGUAGES):
                raise Missing(f"data/language: {key} is not there in every language")
            rows.append((f"`{key}`", *(languages[code] for _, code in LANGUAGES)))
        return rows

    heads = ("Key", *(name for name, _ in LANGUAGES))
    parts = []
    parts.append("## Texts of the user interface\n\nNames are in `ResourceKey`.")
    groups = {}
    for constant in family(path, "ResourceKey").constants:
        groups.setdefault(constant.above.rstrip("."), []).append(constant)
    for group, constants in groups.items():
        parts.append(f"### {group}")
        parts.append(table(heads, rows_of(constants)))
    parts.append("## Other tables")
    parts.append(
        "Their keys are data. A control with custom columns names a table of its own besides, with "
        "field numbers as keys; the attribute `type` of an entry says what kind of values the "
        "column has: `price`, `amount`, `qty`, `ratio`, `percent` or `integer`. Without one, and with "
        "`string`, it is a text column; any other name counts as `amount`."
    )
    rows = []
    for constant in family(path, "ResourceTag").constants:
        tag = text_of(constant.value)
        keys = [key for name, key in shown if name == tag]
        if not keys:
            raise Missing(f"data/language: no entries in {tag}")
        rows.append((f"`{tag}`", len(keys), ", ".join(f"`{key}`" for key in keys[:6])))
    parts.append(table(("Table", "Entries that come with it", "The first of their keys"), rows))
    return page(
        "Resource keys",
        "the headers and `data/language`",
        "Texts that the view layer asks `TCustomLanguageManager` for, with those that come with the "
        "embedded language manager. Those of the user interface are in "
        "the table `ResourceString`. The case of a key counts. The reference terminal adds keys of its "
        "own (`terminal/forms/TerminalKeys.h`).",
        *parts,
    )


def messages():
    path = SERVICES + "ChannelMessages.h"
    rows = []
    for constant in family(path, "ChannelMessage").constants:
        meaning, _, record = constant.above.partition(": ")
        kind = re.match(r"T\w+", record)
        rows.append((constant.value, constant.name, need(meaning, path, constant),
                     f"`{kind.group(0)}`" if kind else "none"))
    channels = [(c.value, c.name) for c in family(SERVICES + "GlobalChannelManager.h", "Channel").constants]
    return page(
        "Channel messages",
        f"`{path}` and `{SERVICES}GlobalChannelManager.h`",
        "What the view layer asks of the application with `SendChannelMessage`: the number, and the "
        "record at `Data`. The receiver has finished when the call returns, and its answer stands in "
        "the record. An application that does not take a message in leaves the record as it is.",
        table(("Number", "Name", "Asks to", "Data"), rows),
        "## Channels\n\nWhat linked fields share, by `PublishValue` and `GetGroupValue`.",
        table(("Number", "Name"), channels),
    )


def values():
    parts = []
    for header in sorted((ROOT / SERVICES).glob("*.h")):
        if header.name in ("ConfigKeys.h", "FieldNumbers.h", "ResourceKeys.h", "ChannelMessages.h"):
            continue
        for found in families(header.relative_to(ROOT)):
            if not found.name or found.name == "Channel":
                continue
            rows = [(f"`{c.name}`", f"`{c.value}`", sentence(c.note)) for c in found.constants]
            parts.append(f"## {found.name}\n\n{found.about}".rstrip() + f"\n\n`{SERVICES}{header.name}`")
            parts.append(table(("Name", "Value", "Meaning"), rows))
    return page(
        "Values",
        "the headers of the service contracts",
        "Numbers and texts that stand for something in answers and arguments of the services.",
        *parts,
    )


WRITERS = {
    "columns.md": columns,
    "contracts.md": contracts.page,
    "fields.md": fields,
    "messages.md": messages,
    "resources.md": resources,
    "settings.md": settings,
    "values.md": values,
}


def main(arguments):
    is_check = arguments == ["--check"]
    stale = []
    for name, write in WRITERS.items():
        wanted = write()
        path = PAGES / name
        there = path.read_text(encoding="utf-8") if path.exists() else None
        if wanted == there:
            continue
        stale.append(f"docs/reference/{name}")
        if not is_check:
            PAGES.mkdir(parents=True, exist_ok=True)
            path.write_text(wanted, encoding="utf-8")
    for name in stale:
        print(f"{name}: " + ("not as the code says; run docs/refresh" if is_check else "written"))
    return 1 if is_check and stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
