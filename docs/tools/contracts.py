"""The page of the service contracts: the operations of each class of viewdata/services, in order,
with what their comments say."""

import re

from headers import ROOT

SERVICES = ROOT / "viewdata" / "services"
_CLASS = re.compile(r"class (TCustom\w+|TBaseData) : public (.*) \{")
_OPERATION = re.compile(r"(?:virtual )?(.*?)\s*(?:const)?\s*(?:noexcept)?\s*(= 0;|\{.*|;)$")


def _body(lines, start):
    for line in lines[start + 1:]:
        if line.startswith("}"):
            return
        yield line.strip()


def _operations(lines, start):
    """(declaration, comment) of each operation."""
    comment, fresh, declaration = [], True, ""
    for text in _body(lines, start):
        if declaration:
            declaration += " " + text
        elif text.startswith("//"):
            if not fresh:
                comment = []
            comment.append(text[2:].strip())
            fresh = True
            continue
        elif text == "":
            if fresh and comment and comment[0].startswith("Operations"):
                comment = []
            comment = []
            continue
        elif "(" in text and text.startswith("virtual "):
            declaration = text
        else:
            comment = []
            continue
        if declaration.endswith((";", "}")):
            name = declaration
            note = " ".join(comment) if fresh and comment else ""
            if not note and re.match(r"virtual void Remove\w*(Callback|Listener)\(", name):
                note = "Ends that registration."
            yield name, note
            declaration, comment, fresh = "", [], False


def _signature(declaration):
    text = re.sub(r"^virtual ", "", declaration)
    text = re.sub(r"\s*(= 0;|\{.*\}|;)$", "", text)
    return re.sub(r"\s+", " ", text)


def _about(lines, start):
    above = []
    for line in reversed(lines[:start]):
        if not line.startswith("//"):
            break
        above.insert(0, line[2:].strip())
    return " ".join(above)


def classes():
    """(class, bases, header, about, operations), those with an installed instance first."""
    services, records = [], []
    for path in sorted(SERVICES.glob("*.h")):
        lines = path.read_text(encoding="utf-8").splitlines()
        for index, line in enumerate(lines):
            whole = line
            if line.startswith("class ") and not line.endswith(("{", ";")):
                whole = line + " " + lines[index + 1].strip()
            found = _CLASS.match(whole)
            if not found:
                continue
            entry = (found.group(1), path.name, _about(lines, index), list(_operations(lines, index)))
            if not entry[3]:
                continue
            (services if "TService<" in found.group(2) else records).append(entry)
    return services, records


def page():
    services, records = classes()

    def parts(entries):
        for name, header, about, operations in entries:
            yield f"### {name}"
            yield f"`viewdata/services/{header}`" + (f". {about}" if about else "")
            rows = ["| Operation | What it does |", "|---|---|"]
            rows += [f"| `{_signature(declaration)}` | {note} |".replace(" |  |", " | |")
                     for declaration, note in operations]
            yield "\n".join(rows)

    return "\n\n".join([
        "# Contracts",
        "Made by `docs/refresh` from `viewdata/services`. Do not edit.",
        "The operations of every service and of every record that a service hands out, in order. "
        "[Services](../services.md) says what holds for all of them.",
        "## Services",
        *parts(services),
        "## Records",
        *parts(records),
    ]) + "\n"
