#!/usr/bin/env python3
"""Writes KorvoQRParser/Decoding/Text/CharacterTables.h from the Unicode Character Database.

To move to the next Unicode level: install its data, change LEVEL, run this program into that file, and change the
level in tests/icu/ICUTest.cpp. The tests then compare the result with an ICU of that level. What a character is
decides every length in a payload, so a new level changes answers and is a release of its own."""
import sys

LEVEL = "15.0.0"
# In the order of BreakClass and CharacterGroup in CharacterProperties.h
CLASSES = ["Other", "Control", "CR", "LF", "Extend", "Mark", "Virama", "ZWJ", "SpacingMark", "Prepend",
           "Regional_Indicator", "L", "V", "T", "LV", "LVT", "Extended_Pictographic", "Consonant"]
GROUPS = ["", "L", "M", "Nd", "N", "Zs"]
CONJUNCT_SCRIPTS = ["Bengali", "Devanagari", "Gujarati", "Malayalam", "Oriya", "Telugu"]
CODE_POINTS = 0x110000
BLOCK = 16  # code points
PAGE = 16  # blocks


def rows(folder, name):
    """The first and last code point of each row of a data file, and its other fields."""
    with open(f"{folder}/{name}", encoding="utf-8") as file:
        for line in file:
            fields = [field.strip() for field in line.split("#")[0].split(";")]
            if fields[0]:
                first, _, last = fields[0].partition("..")
                yield int(first, 16), int(last or first, 16), fields[1:]


def check_level(folder):
    with open(f"{folder}/auxiliary/GraphemeBreakProperty.txt", encoding="utf-8") as file:
        if f"-{LEVEL}.txt" not in file.readline():
            sys.exit(f"make_tables: the data in {folder} are not those of Unicode {LEVEL}")


def read_categories(folder):
    """The general category and the canonical combining class of each code point."""
    categories, combining = ["Cn"] * CODE_POINTS, [0] * CODE_POINTS
    start = None
    for code_point, _, (name, category, combining_class, *_) in rows(folder, "UnicodeData.txt"):
        start = code_point if not name.endswith(", Last>") else start
        for each in range(start, code_point + 1):
            categories[each], combining[each] = category, int(combining_class)
    return categories, combining


def read_classes(folder, combining):
    """The break class of each code point."""
    classes = ["Other"] * CODE_POINTS
    scripts = {}

    def put(first, last, value):
        classes[first:last + 1] = [value] * (last + 1 - first)

    for first, last, (value, *_) in rows(folder, "auxiliary/GraphemeBreakProperty.txt"):
        put(first, last, value)
    for code_point, value in enumerate(classes):
        if value == "Extend" and combining[code_point] != 0:
            classes[code_point] = "Mark"
    for first, last, (value, *_) in rows(folder, "emoji/emoji-data.txt"):
        if value == "Extended_Pictographic":
            put(first, last, value)
    for first, last, (script, *_) in rows(folder, "Scripts.txt"):
        scripts.update(dict.fromkeys(range(first, last + 1), script))
    for first, last, (value, *_) in rows(folder, "IndicSyllabicCategory.txt"):
        if value in ("Consonant", "Virama") and scripts[first] in CONJUNCT_SCRIPTS:
            put(first, last, value)
    return classes


def group_of(category):
    return next((g for g in (category, category[0]) if g in GROUPS), "")


def pack(blocks):
    """The blocks in one sequence, overlapping where they can, and the offset of each. A block is a string, in which
    each character is a number."""
    waiting = list(dict.fromkeys(blocks))
    size = len(waiting[0])
    sequence = waiting.pop(0)
    while waiting:
        def overlap(block):
            return size if block in sequence else next(n for n in range(size, -1, -1)
                                                       if sequence.endswith(block[:n]))
        best = max(waiting, key=overlap)
        sequence += best[overlap(best):]
        waiting.remove(best)
    return sequence, [sequence.index(block) for block in blocks]


def pieces(numbers, size):
    """The numbers, each as a character, in strings of this size. There must be no rest."""
    text = "".join(map(chr, numbers))
    assert len(text) % size == 0
    return [text[i:i + size] for i in range(0, len(text), size)]


def array(kind, name, numbers):
    numbers = list(numbers)
    lines, line = [], "   "
    for number in numbers:
        if len(line) + len(f" {number},") > 110:
            lines.append(line)
            line = "   "
        line += f" {number},"
    body = "\n".join(lines + [line])
    return f"inline constexpr std::array<{kind}, {len(numbers)}> {name}{{\n{body}\n}};\n"


def main(folder):
    check_level(folder)
    categories, combining = read_categories(folder)
    properties = [32 * GROUPS.index(group_of(category)) + CLASSES.index(value) for category, value
                  in zip(categories, read_classes(folder, combining))]
    pages = pieces(properties, PAGE * BLOCK)
    # Plane 14 lies far above the other planes that have properties, and little of it is assigned.
    special = 0xE0000 // (PAGE * BLOCK)
    empty = "\0" * PAGE * BLOCK
    end = max(i for i in range(special) if pages[i] != empty) + 1
    special_end = max(i for i in range(special, len(pages)) if pages[i] != empty) + 1
    blocks = pieces(map(ord, "".join(pages[:end] + pages[special:special_end])), BLOCK)
    properties_of_blocks, block_offsets = pack(blocks)
    blocks_of_pages, page_offsets = pack(pieces(block_offsets, PAGE))
    print(f"""// Made by tools/unicode/make_tables.py from the data of Unicode {LEVEL}. Do not edit.
#ifndef KORVOQRPARSER_DECODING_TEXT_CHARACTERTABLES_H
#define KORVOQRPARSER_DECODING_TEXT_CHARACTERTABLES_H

#include <array>
#include <cstdint>

// clang-format off
namespace korvo::detail {{

// Code points in neither range have no properties.
inline constexpr std::uint32_t ordinaryEnd = 0x{end * PAGE * BLOCK:X};
inline constexpr std::uint32_t specialBegin = 0x{special * PAGE * BLOCK:X};
inline constexpr std::uint32_t specialEnd = 0x{special_end * PAGE * BLOCK:X};

// A block is {BLOCK} code points, a page is {PAGE} blocks. In both tables of offsets, and in the last one, what is in
// pages and blocks overlaps.
inline constexpr std::uint32_t blockSize = {BLOCK};
inline constexpr std::uint32_t pageSize = {PAGE};
// The offset in blockOffsets of each page: those of the ordinary range, then the special.
{array("std::uint16_t", "pageOffsets", page_offsets)}
// The offset in blockProperties of each block.
{array("std::uint16_t", "blockOffsets", map(ord, blocks_of_pages))}
// The break class of a code point plus 32 times its group.
{array("std::uint8_t", "blockProperties", map(ord, properties_of_blocks))}
}}  // namespace korvo::detail

#endif""")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "/usr/share/unicode")
