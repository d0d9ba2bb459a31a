"""Reads named constants, with what their comments say, out of the headers of the tree."""

import re
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

_NAMESPACE = re.compile(r"namespace (\w+) \{")
_ENUM = re.compile(r"enum class (\w+)[^{]*\{")
_CONSTANT = re.compile(r"inline constexpr \w+ (\w+) =\s*([^;]*);\s*(?://\s*(.*))?$")
_ENUMERATOR = re.compile(r"(\w+) = (\w+),?\s*(?://\s*(.*))?$")


@dataclass
class Constant:
    name: str
    value: str
    note: str = ""  # behind the constant
    above: str = ""  # the comment that it, or the row of constants it is in, stands below
    starts: bool = False  # the first below that comment


@dataclass
class Family:
    name: str
    about: str
    constants: list = field(default_factory=list)


def _statements(lines):
    """Lines, with a comment or a constant that goes on in the next line put together."""
    whole = []
    for line in lines:
        text = line.strip()
        behind = line.startswith(" " * 20) and text.startswith("//")
        if whole and (behind or whole[-1].endswith("=")):
            whole[-1] += " " + (text[2:].strip() if behind else text)
        else:
            whole.append(text)
    return whole


def families(path):
    """The constants of a header by namespace or enumeration; those of `quorin` itself are in
    the family of the empty name."""
    plain = Family("", "")
    found = [plain]
    current = plain
    comment, is_new = "", False
    for text in _statements((ROOT / path).read_text(encoding="utf-8").splitlines()):
        if text.startswith("//"):
            comment = f"{comment} {text[2:].strip()}" if is_new else text[2:].strip()
            is_new = True
            continue
        opened = _NAMESPACE.match(text) or _ENUM.match(text)
        if opened and opened.group(1) != "quorin":
            current = Family(opened.group(1), comment if is_new else "")
            found.append(current)
            comment, is_new = "", False
            continue
        if text.startswith("}"):
            current = plain
            comment, is_new = "", False
            continue
        constant = _CONSTANT.match(text) or (current is not plain and _ENUMERATOR.match(text))
        if constant:
            name, value, note = constant.groups()
            current.constants.append(Constant(name, value.strip(), note or "", comment, is_new))
        elif text:
            comment = ""
        elif is_new:  # a comment with nothing right below it heads what follows
            is_new = False
            continue
        is_new = False
    return [family for family in found if family.constants]


def family(path, name):
    for found in families(path):
        if found.name == name:
            return found
    raise SystemExit(f"{path}: no constants {name}")


def text_of(value):
    """The text of a literal u"..."."""
    found = re.fullmatch(r'u"(.*)"', value)
    if not found:
        raise SystemExit(f"{value}: no text literal")
    return found.group(1)
