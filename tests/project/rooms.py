#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the includes of all sources and compares them with the table of rooms and floors in
docs/architecture.md."""

import collections
import graphlib
import os
import re
import tempfile
import unittest
from pathlib import Path

import documents

ROOT = Path(__file__).resolve().parent.parent.parent
PAGE = Path("docs/architecture.md")
ROOMS, OTHER_FOLDERS = "## Rooms and floors", "## Folders beside the rooms"
MOST_FILES = 40
INCLUDE = re.compile(r'\s*#\s*include\s*[<"]([^">]+)[">]')

Include = collections.namedtuple("Include", "source line target")  # paths relative to the root


def folder_named_in(cell):
    return re.search(r"`([^`]+)/`", cell)[1]


def floors_of_rooms(root):
    """From the table: the floor of each room. A row that lacks one of its sentences is an error."""
    floors = {}
    for room, floor, holds, keeps_out in documents.table_rows(root, PAGE, ROOMS):
        if not holds or not keeps_out:
            raise ValueError(f"{PAGE}: the row of {room} does not say what may and may not go in")
        floors[folder_named_in(room)] = int(floor)
    return floors


def folders_without_rooms(root):
    return {folder_named_in(row[0]) for row in documents.table_rows(root, PAGE, OTHER_FOLDERS)}


def sources(root):
    """The C++ files of the rooms, and of any folder that the page does not mention."""
    skipped = folders_without_rooms(root) | {"build"}
    for top in sorted(root.iterdir()):
        if top.is_dir() and top.name not in skipped and not top.name.startswith("."):
            yield from (path.relative_to(root) for path in sorted(top.rglob("*"))
                        if path.suffix in (".h", ".cpp"))


def includes(root, source):
    """Those that lead to a file of the project. The compiler looks beside the source first."""
    for number, line in enumerate((root / source).read_text().splitlines(), 1):
        if match := INCLUDE.match(line):
            for target in (source.parent / match[1], Path(match[1])):
                if (root / target).is_file():
                    yield Include(source, number, Path(os.path.normpath(target)))
                    break


def room_of(path):
    return path.parent.as_posix()


def unit_of(path):
    """The header and the sources of one name: X_topic.cpp belongs to X."""
    return (path.parent / path.stem.split("_")[0]).as_posix()


def faults_of_the_table(floors, files):
    """Rooms without a row, rows without a room, and rooms that have grown too large."""
    counts = collections.Counter(map(room_of, files))
    for room in sorted(counts.keys() - floors.keys()):
        yield f"{room}/ has sources but no row in {PAGE}"
    for room in sorted(floors.keys() - counts.keys()):
        yield f"{PAGE} has a row for {room}/ (floor {floors[room]}), which has no sources"
    for room, count in sorted(counts.items()):
        if count > MOST_FILES:
            yield (f"{room}/ (floor {floors.get(room, 'unknown')}) has {count} files, more than"
                   f" {MOST_FILES}: make a room inside it")


def fault_of_include(floors, include):
    """None when the include leads to the same room or to a floor below."""
    here, there = room_of(include.source), room_of(include.target)
    if here == there or here not in floors:
        return None
    place = f"{include.source}:{include.line}: {here}/ (floor {floors[here]}) includes {include.target}"
    if there not in floors:
        return f"{place}, which is in no room"
    if floors[there] < floors[here]:
        return None
    where = "on the same floor" if floors[there] == floors[here] else "above it"
    return f"{place} of {there}/ (floor {floors[there]}), {where}"


def next_ring(edges):
    """The edges of one ring, each from a unit to one that it includes; none when there is none."""
    graph = collections.defaultdict(set)
    for here, there in edges:
        graph[here].add(there)
    try:
        graphlib.TopologicalSorter(graph).prepare()
    except graphlib.CycleError as error:
        # The sorter names a ring from each unit to the one that includes it.
        members = error.args[1][::-1]
        return list(zip(members, members[1:]))
    return []


def rings(found):
    """The rings of units that include each other, each broken up before the next is looked for."""
    edges = {}
    for include in found:
        here, there = unit_of(include.source), unit_of(include.target)
        if here != there:
            edges.setdefault((here, there), include)
    while ring := next_ring(edges):
        yield "these units include each other in a ring:"
        for step in map(edges.pop, ring):
            yield f"    {step.source}:{step.line} includes {step.target}"


def faults(root):
    floors, files = floors_of_rooms(root), list(sources(root))
    found = [include for file in files for include in includes(root, file)]
    wrong = (fault_of_include(floors, include) for include in found)
    return [*faults_of_the_table(floors, files), *filter(None, wrong), *rings(found)]


class Rooms(unittest.TestCase):
    def test_the_sources_keep_to_the_table(self):
        self.assertGreater(len(list(sources(ROOT))), 200)
        found = faults(ROOT)
        if found:
            self.fail("\n" + "\n".join(found))


class MadeUpRooms(unittest.TestCase):
    """Small trees, each with one fault, so that a rule that is no longer looked at is noticed."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="velmora_rooms_")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.write("docs/architecture.md", (
            f"{ROOMS}", "| room | floor | holds | keeps out |", "|---|---|---|---|",
            "| `high/` | 2 | a | b |", "| `high/part/` | 1 | a | b |", "| `low/` | 1 | a | b |",
            f"{OTHER_FOLDERS}", "| folder | holds |", "|---|---|", "| `docs/` | a |",
            "| `tests/` | a |"))
        self.write("high/A.h", ["#pragma once", '#include "low/C.h"', '#include "high/part/B.h"'])
        self.write("high/part/B.h", ["#include <QString>"])
        self.write("low/C.h")
        self.write("tests/T.h")

    def write(self, path, lines=()):
        (self.root / path).parent.mkdir(parents=True, exist_ok=True)
        (self.root / path).write_text("\n".join(lines))

    def test_no_fault(self):
        self.assertEqual(faults(self.root), [])

    def test_include_from_above(self):
        self.write("low/D.cpp", ["", '#include "high/A.h"'])
        self.assertEqual(faults(self.root), [
            "low/D.cpp:2: low/ (floor 1) includes high/A.h of high/ (floor 2), above it"])

    def test_include_from_the_same_floor(self):
        self.write("low/D.cpp", ["#include <high/part/B.h>"])
        self.assertEqual(faults(self.root), [
            "low/D.cpp:1: low/ (floor 1) includes high/part/B.h of high/part/ (floor 1),"
            " on the same floor"])

    def test_include_by_a_path_relative_to_the_source(self):
        self.write("high/part/D.cpp", ['#include "../A.h"'])
        self.assertEqual(faults(self.root), [
            "high/part/D.cpp:1: high/part/ (floor 1) includes high/A.h of high/ (floor 2),"
            " above it"])

    def test_include_from_no_room(self):
        self.write("low/D.cpp", ['#include "tests/T.h"'])
        self.assertEqual(faults(self.root), [
            "low/D.cpp:1: low/ (floor 1) includes tests/T.h, which is in no room"])

    def test_room_without_row(self):
        self.write("new/D.cpp")
        self.assertEqual(faults(self.root), ["new/ has sources but no row in docs/architecture.md"])

    def test_row_without_room(self):
        (self.root / "low/C.h").rename(self.root / "high/part/C.h")
        self.write("high/A.h")
        self.assertEqual(faults(self.root), [
            "docs/architecture.md has a row for low/ (floor 1), which has no sources"])

    def test_too_many_files(self):
        for number in range(MOST_FILES):
            self.write(f"low/D{number}.h")
        self.assertEqual(faults(self.root), [
            "low/ (floor 1) has 41 files, more than 40: make a room inside it"])

    def test_ring_of_units(self):
        self.write("low/D.h", ['#include "low/C.h"'])
        self.write("low/C_topic.cpp", ["", '#include "low/D.h"'])
        lines = faults(self.root)
        self.assertEqual(lines[0], "these units include each other in a ring:")
        self.assertEqual(sorted(lines[1:]), ["    low/C_topic.cpp:2 includes low/D.h",
                                             "    low/D.h:1 includes low/C.h"])


if __name__ == "__main__":
    unittest.main()
