#!/usr/bin/env python3
"""Hands a header to Doxygen with its plain comments as documentation: "//" on a line of its own
stands for what follows, behind a declaration for that."""

import re
import sys

_ABOVE = re.compile(r"^(\s*)//(?![/!]|\s*clang-format)")
_BEHIND = re.compile(r"([;,{}(]|\b\w+)(\s+)//(?![/!<])(?=[^\"]*$)")


def quoted(comment):
    """Without what Doxygen would take for a command or a tag."""
    return re.sub(r"([\\@<>#&$%])", r"\\\1", comment)


def main(path):
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    goes_on = False  # a comment behind a declaration
    for index, line in enumerate(lines):
        above = _ABOVE.match(line)
        if above:
            rest = line[above.end():]
            if goes_on and len(above.group(1)) > 20:
                print(f"{above.group(1)}///<{quoted(rest)}")
            else:
                print(f"{above.group(1)}///{quoted(rest)}" if describes(lines, index) else line)
                goes_on = False
            continue
        behind = _BEHIND.search(line)
        goes_on = behind is not None
        if behind:
            line = f"{line[:behind.end(2)]}///<{quoted(line[behind.end():])}"
        print(line)


def describes(lines, index):
    """Whether the comment stands right above something; others head what follows."""
    while index < len(lines) and _ABOVE.match(lines[index]):
        index += 1
    return index < len(lines) and lines[index].strip() not in ("", "}", "};")


if __name__ == "__main__":
    main(sys.argv[1])
