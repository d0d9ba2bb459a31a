#!/usr/bin/env python3
"""Writes platform/rtl/CaseTable.h from the character data of the running Python.

    python3 cmake/make_case_table.py > platform/rtl/CaseTable.h

One character to one character, both of 16 bits. What becomes two characters (the German sharp s)
stays as it is.
"""

import unicodedata

ASCII_END = 0x80
BMP_END = 0x10000
ENTRIES_PER_LINE = 3


def simple(character, whole, fallback):
    """The mapping to one character; the fallback serves where the whole mapping is longer."""
    for mapped in (whole, fallback):
        if len(mapped) == 1 and ord(mapped) < BMP_END:
            return ord(mapped)
    return ord(character)


def upper(character):
    return simple(character, character.upper(), character.title())


def lower(character):
    # A capital I with a dot has its dot as a second character behind the letter.
    return simple(character, character.lower(), character.lower()[:1])


def ranges(mapping):
    """(first, last, step, target of first): runs of neighbours, or of every second character."""
    runs = []
    for code in range(ASCII_END, BMP_END):
        target = mapping(chr(code))
        if target == code:
            continue
        if runs:
            run = runs[-1]
            distance = code - run[1]
            same = target - code == run[3] - run[0]
            if same and distance <= 2 and (run[0] == run[1] or distance == run[2]):
                run[1], run[2] = code, distance
                continue
        runs.append([code, code, 1, target])
    return runs


def table(name, runs):
    print(f"inline constexpr TCaseRange {name}[] = {{")
    for start in range(0, len(runs), ENTRIES_PER_LINE):
        entries = ("{0x%04X, 0x%04X, %d, 0x%04X}," % tuple(run)
                   for run in runs[start:start + ENTRIES_PER_LINE])
        print("    " + " ".join(entries))
    print("};")


def main():
    print("#pragma once\n")
    print("// Made by cmake/make_case_table.py from character data "
          f"{unicodedata.unidata_version}; do not edit.\n")
    print('#include "platform/rtl/Types.h"\n')
    print("namespace quorin {\n")
    print("// The characters First, First + Step, ... Last map to the same distance as First to "
          "Target.\n// Sorted by First; without the ASCII letters.")
    print("struct TCaseRange {\n    Char First;\n    Char Last;\n    Char Step;\n"
          "    Char Target;\n};\n")
    print("// clang-format off")
    table("UpperCaseRanges", ranges(upper))
    print()
    table("LowerCaseRanges", ranges(lower))
    print("// clang-format on\n")
    print("} // namespace quorin")


main()
