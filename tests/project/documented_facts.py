#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares bytes, names and tables in the documents with the output of the program and with the
sources: documented_facts.py CONVERT BUILD."""

import json
import re
import sys
import unittest
from pathlib import Path

import documents
from world import PACKAGE, World

ROOT = Path(__file__).resolve().parent.parent.parent
CONVERT = ""

SOURCES = ("app", "carddb", "cardimage", "cli", "datafile", "operation", "report", "system", "text")
REPORT = Path("docs/report.md")
WORDS = {"mark": "\ufeff", "tab": "\t", "CR": "\r", "LF": "\n", "blank": "\u3000"}
# Commands and options in the middle of a text.
CONVERT_SPAN = re.compile(r"velmora-convert (\w+)(.*)")
# Paths below these folders are in the repository; those below build/ need not exist yet.
OWN_PATH = re.compile(r"(?:app|bench|carddb|cardimage|cli|cmake|datafile|docs|fuzz|operation|packaging"
                      r"|report|resources|samples|system|tests|text|tools)/[\w./-]*")

PLACEHOLDERS = {"CORPUS", "NAME", "TARGET"}


def text_of(path):
    return (ROOT / path).read_text()


def occur_in_order(pieces, contents):
    """The first is at the beginning and the last at the end, unless they are empty."""
    first, *others = pieces
    if not contents.startswith(first):
        return False
    position = len(first)
    for piece in others:
        position = contents.find(piece, position)
        if position == -1:
            return False
        position += len(piece)
    return not pieces[-1] or contents.endswith(pieces[-1])


def bytes_of(line):
    return bytes.fromhex(line.replace("...", ""))


def meant_bytes(line):
    return "".join(WORDS.get(word, word) for word in line.split()).encode("utf-16-le")


def ends_and_consequences():
    return set(re.findall(r'(?m)^    \{"(\w+)", ', text_of("report/DBCReportTexts.cpp")))


def named_in(cell):
    return re.findall(r"`([^`]+)`", cell)


class DocumentedFacts(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.world = World(CONVERT, ROOT / "samples/cards")
        cls.addClassCleanup(cls.world.close)
        cls.world.stock()

    def test_blocks(self):
        checks = {"hex": self._bytes, "journal": self._journal, "names": self._names,
                  "pdf": self._pdf, "tree": self._tree}
        seen = set()
        for document in documents.documents(ROOT):
            for block in documents.blocks(ROOT, document):
                if check := checks.get(block.language):
                    seen.add(block.language)
                    with self.subTest(f"{document}:{block.number}"):
                        check(block)
        self.assertEqual(seen, set(checks))

    def _bytes(self, block):
        """The bytes are in the file, and mean the text in the line below them."""
        lines, meanings = block.lines[::2], block.lines[1::2]
        for line, meaning in zip(lines, meanings, strict=True):
            self.assertEqual(meant_bytes(meaning).hex(" "), bytes_of(line).hex(" "))
        pieces = [bytes.fromhex(piece) for piece in " ".join(lines).split("...")]
        contents = (self.world.path / block.argument).read_bytes()
        self.assertTrue(occur_in_order(pieces, contents), block.argument)

    def _pdf(self, block):
        pieces = ["", *"\n".join(block.lines).split("\n...\n"), ""]
        pieces = [piece.encode() for piece in pieces]
        files = self.world.path.glob(block.argument)
        self.assertTrue(any(occur_in_order(pieces, file.read_bytes()) for file in files))

    def _tree(self, block):
        above = []
        for line in block.lines[1:]:
            name = re.split(r" {2,}", line.strip())[0].rstrip("/")
            depth = (len(line) - len(line.lstrip())) // 4
            above[depth - 1:] = [name]
            pattern = re.sub("<.*?>", "*", "/".join(above))
            self.assertTrue(list((self.world.path / block.argument).glob(pattern)), line)

    def _names(self, block):
        for name in block.lines:
            pattern = re.sub(r"\d", "[0-9]", name)
            self.assertTrue(list((self.world.path / block.argument).glob(pattern)), name)

    def _journal(self, block):
        source = text_of("carddb/DBCPackageJournal.cpp")
        stages = re.findall(r'StageName \{Stage::\w+, QLatin1StringView\("(\w+)"\)', source)
        keys = re.findall(r'constexpr QLatin1StringView \w+Key\("(\w+)"\)', source)
        entries = [json.JSONDecoder().raw_decode(line)[0] for line in block.lines]
        self.assertEqual([entry["stage"] for entry in entries], stages)
        self.assertEqual({key for entry in entries for key in entry}, set(keys))

    def test_exit_statuses(self):
        values = re.findall(r"^    \w+ = (\d+),", text_of("cli/DBCExitCode.h"), re.MULTILINE)
        rows = documents.table_rows(ROOT, Path("README.md"))
        self.assertEqual([row[0] for row in rows], values)

    def test_report_holds_the_names_of_its_tables(self):
        report = self._report_about_a_missing_image()
        rows = documents.table_rows(ROOT, REPORT, "## For programs")
        documented = [name for row in rows for name in named_in(row[0])]
        problem = report["cards"][0]["problems"][0]
        self.assertEqual(sorted(documented), sorted([*report, *problem]))
        prose = "\n".join(documents.prose(ROOT, REPORT))
        described = re.search(r"A card has its(.|\n)*?\n\n", prose)[0]
        self.assertEqual(set(named_in(described)), set(report["cards"][0]))
        self.assertEqual(set(report["messages"][0]), {"number", "text"})

    def test_report_ends_and_consequences(self):
        rows = {named_in(row[0])[0]: named_in(row[1])
                for row in documents.table_rows(ROOT, REPORT, "## For programs")}
        self.assertEqual(set(rows["end"]) | set(rows["consequence"]), ends_and_consequences())

    def test_columns(self):
        rows = documents.table_rows(ROOT, Path("docs/interchange-format.md"))
        data_file = self.world.path / "PARENT/名刺データ/名刺データ.txt"
        titles = data_file.read_text("utf-16").split("\n")[0].split("\t")
        self.assertEqual([row[1] for row in rows], titles)
        lengths = re.findall(r"DBCRecordKey::\w+, (?:(\d+)|\{\})\}", text_of("datafile/records/DBCColumns.h"))
        self.assertEqual([re.match(r"\d*", row[3])[0] for row in rows], lengths)

    def test_targets_and_measures(self):
        targets = re.findall(r"(?m)^velmora_add_fuzz_target\((\w+)", text_of("fuzz/CMakeLists.txt"))
        rows = documents.table_rows(ROOT, Path("fuzz/README.md"))
        self.assertEqual(sorted(name for row in rows for name in named_in(row[0])), sorted(targets))
        measures = re.findall(r'(?m)^    "([\w-]+)": Bench\.', text_of("bench/run"))
        rows = documents.table_rows(ROOT, Path("bench/README.md"), "# Benchmarks")
        self.assertEqual([row[0] for row in rows], measures)

    def test_folders(self):
        """Compares folders with the page; rooms.py does so for those with sources."""
        page = Path("docs/architecture.md")
        rows = [row for heading in ("## Rooms and floors", "## Folders beside the rooms")
                for row in documents.table_rows(ROOT, page, heading)]
        listed = {name.rstrip("/") for row in rows for name in named_in(row[0])}
        self.assertEqual([name for name in listed if not (ROOT / name).is_dir()], [])
        self.assertEqual({path.parent.name for path in ROOT.glob("*/CMakeLists.txt")} - listed, set())
        included = {name for path in (ROOT / "text").iterdir()
                    for name in re.findall(r'#include "(.+)"', path.read_text())}
        self.assertEqual({name for name in included if not name.startswith("text/")},
                         {"operation/base/DBCResultCode.h"})

    def test_names_of_the_sources_are_there(self):
        known = set()
        for folder in SOURCES:
            for path in (ROOT / folder).rglob("DBC*.*"):
                known.add(path.stem)
                known.update(re.findall(r"\bDBC\w+", path.read_text()))
        texts = [*documents.documents(ROOT), Path("docs/architecture.svg")]
        for path in texts:
            with self.subTest(str(path)):
                named = set(re.findall(r"\bDBC\w*[a-z]\w*", text_of(path)))
                self.assertEqual(named - known, set())

    def test_links_lead_somewhere(self):
        for document in documents.documents(ROOT):
            for link in documents.links(ROOT, document):
                with self.subTest(f"{document}: {link}"):
                    path, _, anchor = link.partition("#")
                    target = (ROOT / document.parent / path).resolve() if path else ROOT / document
                    self.assertTrue(target.exists())
                    if anchor:
                        self.assertIn(anchor, documents.anchors(ROOT, target.relative_to(ROOT)))

    def test_paths_in_the_text_are_there(self):
        for document in documents.documents(ROOT):
            for span in documents.spans(ROOT, document):
                path = span.split()[0]
                if OWN_PATH.fullmatch(path) and Path(path).stem not in PLACEHOLDERS:
                    with self.subTest(f"{document}: {span}"):
                        places = (ROOT / path, ROOT / document.parent / path)
                        self.assertTrue(any(place.exists() for place in places))

    def test_commands_in_the_text_are_known(self):
        known = set(re.findall(r"[\w-]+", self.world.run("velmora-convert --help").output))
        for document in documents.documents(ROOT):
            for span in documents.spans(ROOT, document):
                if match := CONVERT_SPAN.fullmatch(span):
                    with self.subTest(f"{document}: {span}"):
                        words = [match[1], *re.findall(r"--\w+", match[2])]
                        self.assertEqual(set(words) - known, set())

    def _report_about_a_missing_image(self):
        """The report about an import that fails after a card whose image is missing."""
        images = self.world.path / "FOLDER/名刺画像"
        next(images.glob("0001*")).unlink()
        attachments = self.world.path / "FOLDER/添付ファイル/0008"
        attachments.rename(attachments.with_name("0009"))
        ended = self.world.run(f'velmora-convert import --json FOLDER "{PACKAGE}"')
        result = json.loads(ended.output.splitlines()[-1])["result"]
        return json.loads(Path(result["report"]).with_suffix(".json").read_text())


if __name__ == "__main__":
    CONVERT = sys.argv[1]
    unittest.main(argv=sys.argv[:1])
