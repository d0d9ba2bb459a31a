#!/usr/bin/env python3
"""Puts code that is compiled and run into the pages, and checks their links. A page names the code
above the block that it stands in:

    <!-- code: docs/snippets/Market.cpp#watch -->

for the lines between "// [watch]" and "// [/watch]" of the file, several names with a comma between
them; without a name it is the whole file. A block without such a line must stand in a source file of
the tree as it is. With --check nothing is written."""

import functools
import re
import sys
import textwrap

from headers import ROOT

_MARK = re.compile(r"<!-- code: (\S+?)(?:#(\S+))? -->\n```cpp\n(.*?)```\n", re.DOTALL)
_LINK = re.compile(r"\]\(([^)#\s]+)(?:#[^)]*)?\)")


class Fault(SystemExit):
    pass


def pages():
    return [ROOT / "README.md", *sorted((ROOT / "docs").rglob("*.md"))]


def region(file, name, text):
    found = re.search(rf"^ *// \[{re.escape(name)}\]\n(.*?)^ *// \[/{re.escape(name)}\]$", text,
                      re.DOTALL | re.MULTILINE)
    if not found:
        raise Fault(f"{file}: no code between // [{name}] and // [/{name}]")
    return textwrap.dedent(found.group(1)).strip("\n")


def code(file, names):
    text = (ROOT / file).read_text(encoding="utf-8")
    if not names:
        return text.strip("\n")
    return "\n\n".join(region(file, name, text) for name in names.split(","))


def filled(page, text):
    def block(found):
        file, names = found.group(1), found.group(2)
        mark = f"{file}#{names}" if names else file
        return f"<!-- code: {mark} -->\n```cpp\n{code(file, names)}\n```\n"

    text = _MARK.sub(block, text)
    for unmarked in re.findall(r"```cpp\n(.*?)```\n", _MARK.sub("", text), re.DOTALL):
        if not any(squeezed(unmarked) in source for source in sources()):
            raise Fault(f"{page}: code that no source file has: {unmarked.splitlines()[0]}")
    return text


def squeezed(text):
    return " ".join(text.split())


@functools.cache
def sources():
    return [squeezed(path.read_text(encoding="utf-8"))
            for folder in ("examples", "benchmarks", "bench", "docs/snippets", "terminal", "tests")
            if (ROOT / folder).is_dir()
            for path in (ROOT / folder).rglob("*") if path.suffix in (".cpp", ".h")]


def check_links(page, text):
    faults = []
    for target in _LINK.findall(re.sub(r"```.*?```|`[^`]*`", "", text, flags=re.DOTALL)):
        if "://" in target or target.startswith("mailto:"):
            continue
        if not (page.parent / target).exists():
            faults.append(f"{page.relative_to(ROOT)}: {target} is not there")
    return faults


def main(arguments):
    is_check = arguments == ["--check"]
    faults = []
    for page in pages():
        text = page.read_text(encoding="utf-8")
        name = page.relative_to(ROOT)
        wanted = filled(name, text)
        if wanted != text:
            if is_check:
                faults.append(f"{name}: its code is not that of the tree; run docs/refresh")
            else:
                page.write_text(wanted, encoding="utf-8")
                print(f"{name}: code renewed")
        faults += check_links(page, wanted)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
