#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Uses the window as a user does, from start to end: end_to_end.py PROGRAM CONVERT SAMPLES.

The test uses only keys, mouse clicks and the texts that a screen reader gets. Afterwards it checks
the results on the disk."""

import shutil
import sqlite3
import subprocess
import sys
import tempfile
from pathlib import Path

from desktop_session import ScreenReader, Session, hands, press, type_text, wait_for

PROGRAM = "VelmoraConverter"
SAMPLE_CARDS = 12
MANY_CARDS = 800  # enough for a user to press Cancel twice
DATA_FILE = "名刺データ.txt"

QUIT_MAIN_PROGRAM = "Quit Velmora before you begin"
QUIT_NOW = "Do you want to quit VelmoraConverter?"
CANCEL_IMPORT = "Do you want to cancel the import?"
RESTORE_BACKUP = "Restore the card database from this backup?"


class Window:
    def __init__(self, program):
        self._command = [program]
        self._process = subprocess.Popen(self._command, stdin=subprocess.DEVNULL)
        self.reader = ScreenReader(PROGRAM)
        self.reader.wait_until_hears("What would you like to do?")
        wait_for("the window in front", lambda: active_window() == PROGRAM)

    def start_again(self):
        """Starts a second copy of the program, waits for its end and returns its exit code."""
        return subprocess.run(self._command, stdin=subprocess.DEVNULL, check=False).returncode

    def has_ended(self):
        return self._process.poll() is not None

    def exit_code(self):
        return self._process.wait()

    def open_screen(self, key, choice):
        press(key)
        wait_for(f"{choice} to be chosen", lambda: self.reader.is_checked(choice))
        press("Return")
        self.reader.find("Back")

    def fill(self, first, second, keys_between=("Tab", "Tab")):
        """Types the two paths, the source first, beginning in the field that has the focus."""
        for number, path in enumerate((first, second)):
            if number:
                press(*keys_between)
            press("ctrl+a")
            type_text(str(path))
            wait_for(f"{path} in its field", lambda: str(path) in self.reader.texts())

    def answer(self, question, key):
        self.reader.wait_until_hears(question)
        press(key)
        self.reader.wait_until_silent(question)


def active_window():
    return hands("getactivewindow", "getwindowname", check=False)


def cards_in(package):
    with sqlite3.connect(f"file:{package}/Velmora.sqldb?mode=ro", uri=True) as store:
        return store.execute("SELECT COUNT(*) FROM ZCARD").fetchone()[0]


def make_many_cards(samples, folder):
    shutil.copytree(samples, folder)
    file = folder / DATA_FILE
    title, card = file.read_bytes().decode("utf-16").split("\r\n")[:2]
    lines = [title, *[card] * MANY_CARDS, ""]
    file.write_bytes("\r\n".join(lines).encode("utf-16"))


def make_incomplete(samples, folder):
    shutil.copytree(samples, folder)
    next(folder.rglob("*.jpg")).unlink()


def check_folder(window, folder, package, list_of_problems):
    window.open_screen("alt+i", "Import cards")
    window.fill(folder, package)
    press("alt+k")
    window.reader.wait_until_hears("does not exist, so the card would be imported without it")
    press("alt+s")
    window.reader.find("Save the List of Problems")
    press("ctrl+a")
    type_text(str(list_of_problems))
    press("Return")
    window.reader.wait_until_hears(f"The list was saved: [{list_of_problems}]")
    assert "Line\tFile\tProblem\n" in list_of_problems.read_text(encoding="utf-8-sig")
    press("Escape")
    window.reader.wait_until_silent("Problems found in")
    window.reader.click("Back")
    window.reader.wait_until_hears("What would you like to do?")


def check_clean_folder(window):
    press("alt+k")
    window.reader.wait_until_hears("No problems were found.")
    press("Escape")
    window.reader.wait_until_silent("No problems were found.")


def import_samples(window, samples, package):
    window.open_screen("alt+i", "Import cards")
    window.fill(samples, package)
    check_clean_folder(window)
    press("ctrl+i")
    window.answer(QUIT_MAIN_PROGRAM, "Return")
    window.answer(QUIT_NOW, "Escape")
    assert window.reader.hears(f"Cards: {SAMPLE_CARDS}, imported: {SAMPLE_CARDS}")
    assert cards_in(package) == SAMPLE_CARDS
    assert not window.reader.is_enabled("Import")


def export_cards(window, package, parent):
    window.reader.click("Back")
    window.reader.wait_until_hears("What would you like to do?")
    window.open_screen("alt+e", "Export cards")
    window.fill(package, parent, keys_between=("Tab", "Tab", "Tab"))
    window.reader.click("Export")
    window.answer(QUIT_MAIN_PROGRAM, "Return")
    window.answer(QUIT_NOW, "Escape")
    exported = parent / "名刺データ"
    assert (exported / DATA_FILE).is_file() and (exported / "Version.txt").is_file()


def cancel_import(window, folder, package):
    window.reader.click("Back")
    window.reader.wait_until_hears("What would you like to do?")
    window.open_screen("alt+i", "Import cards")
    window.fill(folder, package)
    press("ctrl+i")
    window.answer(QUIT_MAIN_PROGRAM, "Return")
    window.reader.wait_until_hears("Import is running.")
    assert not window.reader.is_enabled("Quit")
    press("alt+F4")  # closes a window, but must not end a running import
    press("ctrl+a")
    window.answer(CANCEL_IMPORT, "Escape")
    window.reader.click("Cancel")
    window.answer(CANCEL_IMPORT, "Return")
    window.reader.wait_until_hears("Restore of the card database has ended.")
    wait_for("the Import button", lambda: window.reader.is_enabled("Import"))
    assert cards_in(package) == SAMPLE_CARDS


def show_an_error(window):
    press("alt+o", "ctrl+a")
    type_text("/nowhere/at/all")
    window.reader.wait_until_hears("There is nothing at this path.")
    press("ctrl+i")
    window.answer(QUIT_MAIN_PROGRAM, "Return")
    window.answer("does not exist at [/nowhere/at/all]", "Return")
    assert window.reader.is_enabled("Import")


def restore_backup(window, package):
    backup = package.with_name("Cards_bak.vmdb")
    press("alt+u")
    window.reader.wait_until_hears(backup.name)
    press("alt+r")
    window.answer(RESTORE_BACKUP, "Return")
    window.reader.wait_until_hears(f"has been restored from the backup [{backup.name}]")
    assert cards_in(package) == cards_in(backup) == 0
    assert cards_in(package.with_name("Cards_bak1.vmdb")) == SAMPLE_CARDS
    wait_for("the backups in front", lambda: active_window() == "Backups")
    press("Escape")
    wait_for("the window in front", lambda: active_window() == PROGRAM)


def start_second_copy(window):
    other = subprocess.Popen(["xmessage", "-name", "other", "in front"])
    try:
        wait_for("another window", lambda: active_window() != PROGRAM)
        assert window.start_again() == 0
        wait_for("the first copy", lambda: active_window() == PROGRAM)
    finally:
        other.terminate()
        other.wait()


def close_window(window):
    press("alt+F4")
    wait_for("the program's end", window.has_ended)
    assert window.exit_code() == 0, f"the program ended with {window.exit_code()}"


def main():
    program, convert, samples = (str(Path(argument).resolve()) for argument in sys.argv[1:4])
    with tempfile.TemporaryDirectory() as scratch:
        folder = Path(scratch)
        package, parent, many = folder / "Cards.vmdb", folder / "out", folder / "many"
        incomplete, list_of_problems = folder / "incomplete", folder / "problems.tsv"
        parent.mkdir()
        make_many_cards(samples, many)
        make_incomplete(samples, incomplete)
        subprocess.run([convert, "create", package], check=True, stdout=subprocess.DEVNULL)
        session = Session(folder)
        try:
            window = Window(program)
            check_folder(window, incomplete, package, list_of_problems)
            import_samples(window, samples, package)
            export_cards(window, package, parent)
            cancel_import(window, many, package)
            show_an_error(window)
            restore_backup(window, package)
            start_second_copy(window)
            close_window(window)
        finally:
            session.end()


if __name__ == "__main__":
    main()
