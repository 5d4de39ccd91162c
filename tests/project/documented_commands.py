#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs every command that a document shows, in the order of the document: documented_commands.py
CONVERT BUILD. NOT_RUN lists the commands that no test can run, each with a function that checks it in
another way."""

import json
import os
import re
import shlex
import subprocess
import sys
import unittest
from pathlib import Path

import documents
from world import World

ROOT = Path(__file__).resolve().parent.parent.parent
# The languages of the blocks. documented_facts.py checks the blocks of the others.
COMMANDS = {"sh", "console"}
OTHERS = {"hex", "journal", "names", "pdf", "tree"}
# Its commands start in an empty folder, because they show how to make a card database.
FROM_THE_START = Path("README.md")
CONVERT, BUILD = Path(), Path()


def text_of(path):
    return (ROOT / path).read_text()


def presets(kind):
    listed = json.loads(text_of("CMakePresets.json"))[kind]
    return {preset["name"] for preset in listed if not preset.get("hidden")}


def is_script(test, words):
    """For scripts that need root, the network, a display or minutes: the script exists."""
    test.assertTrue(os.access(ROOT / words[0], os.X_OK), f"{words[0]} is no program")
    test.assertEqual(words[1:], [])


def is_check(test, words):
    """Its one option changes the sources, so it is not run with it."""
    is_script(test, words[:1])
    test.assertIn(words[1:], ([], ["--fix"]))
    test.assertTrue("--fix) " in text_of(words[0]))


def is_script_that_knows(test, words):
    """The help of the script names all options and words. Numbers and paths are not checked."""
    test.assertTrue(os.access(ROOT / words[0], os.X_OK), f"{words[0]} is no program")
    listed = subprocess.run([ROOT / words[0], "--help"], capture_output=True, text=True, check=True)
    known = set(re.findall(r"[\w-]+", listed.stdout))
    for word in words[1:]:
        if word.startswith("build/"):
            is_built(test, word)
        elif "/" not in word and not word.isdigit():
            test.assertTrue(word in known, f"{words[0]} does not know {word}")


def is_built(test, path):
    """The CMakeLists.txt of FOLDER makes build/PRESET/FOLDER/PROGRAM."""
    _, preset, folder = path.split("/", 2)
    folder, program = folder.rsplit("/", 1)
    test.assertIn(preset, presets("buildPresets"))
    made = re.findall(r"add_executable\((\S+)", text_of(f"{folder}/CMakeLists.txt"))
    test.assertIn(program, made)


def is_build(test, words):
    preset, *targets = words[1:]
    test.assertIn(preset, presets("buildPresets"))
    known = set(re.findall(r"(?m)^build ([^ :]+): phony ", (BUILD / "build.ninja").read_text()))
    test.assertEqual(set(targets) - known, set())


def finds_tests(test, words):
    """The tests that the command names exist."""
    _, preset_option, preset, option, wanted = words
    test.assertEqual(preset_option, "--preset")
    test.assertIn(preset, presets("testPresets"))
    before = {"-R": r"add_test\(\S*", "-L": r'LABELS "[^"]*'}[option]
    listed = "\n".join(file.read_text() for file in BUILD.rglob("CTestTestfile.cmake"))
    test.assertIsNotNone(re.search(before + wanted, listed), f"no tests: {wanted}")


def is_fuzzing(test, words):
    """A fuzz program with options of libFuzzer. TARGET, CORPUS and FILE are placeholders."""
    folder, program = words[0].removeprefix("build/fuzz/").rsplit("/", 1)
    test.assertEqual(program, "fuzz_TARGET")
    test.assertTrue("set(program fuzz_${name})" in text_of(f"{folder}/CMakeLists.txt"))
    for word in words[1:]:
        test.assertRegex(word, r"^(-(minimize_crash|merge)=1|-runs=\d+|FILE|fuzz/corpus/CORPUS"
                               r"|build/fuzz/(corpus/TARGET|findings/TARGET-crash-\.\.\.))$")


def is_installation(test, words):
    """It installs the package that tools/package makes."""
    test.assertEqual(words[1:3], ["apt", "install"])
    test.assertEqual(words[3:], ["./build/package/*.deb"])
    test.assertTrue("package=$(echo build/package/*.deb)" in text_of("tools/package"))


NOT_RUN = {
    "./run": is_script,
    "./test": is_script,
    "bench/run": is_script_that_knows,
    "build/fuzz/fuzz/fuzz_TARGET": is_fuzzing,
    "ctest": finds_tests,
    "fuzz/run": is_script_that_knows,
    "sudo": is_installation,
    "tests/faults/fault_sweep.py": is_script_that_knows,
    "tests/faults/power_cuts.py": is_script_that_knows,
    "tools/build": is_build,
    "tools/check": is_check,
    "tools/coverage": is_script,
    "tools/draw": is_script_that_knows,
    "tools/lint": is_script,
    "tools/night": is_script,
    "tools/package": is_script,
    "tools/sample-comments": is_script_that_knows,
    "tools/test-conditions": is_script,
    "tools/test-package": is_script,
}


class DocumentedCommands(unittest.TestCase):
    def test_every_block_says_of_what_kind_it_is(self):
        for document in documents.documents(ROOT):
            with self.subTest(str(document)):
                self.assertEqual(documents.indented_lines(ROOT, document), [])
                kinds = {block.language for block in documents.blocks(ROOT, document)}
                self.assertEqual(kinds - COMMANDS - OTHERS, set())

    def test_commands(self):
        count = 0
        for document in documents.documents(ROOT):
            found = [command for block in documents.blocks(ROOT, document)
                     if block.language in COMMANDS for command in documents.commands(block)]
            count += len(found)
            self._run_all(found, document != FROM_THE_START)
        self.assertGreater(count, 30)

    def test_commands_that_are_not_run_are_still_shown(self):
        shown = "\n".join(text_of(document) for document in documents.documents(ROOT))
        self.assertEqual([name for name in NOT_RUN if name not in shown], [])

    def _run_all(self, found, is_stocked):
        listed = [command for command in found if first_word(command) in NOT_RUN]
        for command in listed:
            with self.subTest(command.place):
                NOT_RUN[first_word(command)](self, words_of(command))
        if len(listed) == len(found):
            return
        world = World(CONVERT, ROOT / "samples/cards")
        self.addCleanup(world.close)
        if is_stocked:
            world.stock()
        for command in found:
            if command not in listed:
                with self.subTest(command.place):
                    self._run(world, command)

    def _run(self, world, command):
        ended = world.run(command.text)
        self.assertEqual(ended.status, 0, f"{command.text}\n{ended.output}{ended.errors}")
        if command.output is not None:
            self.assertEqual(ended.output.splitlines(), command.output)


def words_of(command):
    return shlex.split(command.text.replace("\\\n", " "), comments=True)


def first_word(command):
    return words_of(command)[0]


if __name__ == "__main__":
    CONVERT, BUILD = map(Path, sys.argv[1:3])
    unittest.main(argv=sys.argv[:1])
