# SPDX-License-Identifier: GPL-3.0-or-later
"""The folder in which the commands of the documents run. It has all that they rely on: a folder of cards
named FOLDER, a folder PARENT to export into, a home folder, and velmora-convert on the path."""

import os
import pty
import shutil
import subprocess
import tempfile
import threading
from pathlib import Path

PACKAGE = "Velmora DB.vmdb"
MOST_QUESTIONS = 8  # of one command

STOCK = (
    f'velmora-convert create "{PACKAGE}"',
    f'velmora-convert import FOLDER "{PACKAGE}"',
    f'velmora-convert export "{PACKAGE}" PARENT',
)


class Run:
    """A command that has ended."""

    def __init__(self, status, output, errors):
        self.status, self.output, self.errors = status, output, errors


class World:
    def __init__(self, convert, samples):
        self._folder = tempfile.TemporaryDirectory(prefix="velmora_documents_")
        self.path = Path(self._folder.name)
        shutil.copytree(samples, self.path / "FOLDER")
        for name in ("PARENT", "home", "bin"):
            (self.path / name).mkdir()
        (self.path / "bin/velmora-convert").symlink_to(convert)
        self._environment = os.environ | {
            "HOME": str(self.path / "home"),
            "PATH": f"{self.path / 'bin'}:{os.environ['PATH']}",
        }

    def close(self):
        self._folder.cleanup()

    def stock(self):
        """Imports the cards into a new card database and exports them again."""
        for command in STOCK:
            ended = self.run(command)
            if ended.status != 0:
                raise RuntimeError(f"{command}: {ended.status}\n{ended.errors}")

    def run(self, command):
        """Runs it at a terminal, and answers every question with yes."""
        terminal, keyboard = pty.openpty()
        os.write(terminal, b"y\n" * MOST_QUESTIONS)
        process = subprocess.Popen(
            ["bash", "-o", "pipefail", "-c", command], cwd=self.path, env=self._environment,
            stdin=keyboard, stdout=subprocess.PIPE, stderr=keyboard, start_new_session=True)
        os.close(keyboard)
        shown = []
        reader = threading.Thread(target=read_all, args=(terminal, shown))
        reader.start()
        output = process.communicate()[0].decode()
        reader.join()
        return Run(process.returncode, output, b"".join(shown).decode(errors="replace"))


def read_all(terminal, shown):
    """Reads until the last process has closed the other end."""
    with open(terminal, "rb", buffering=0) as stream:
        try:
            while data := stream.read(4096):
                shown.append(data)
        except OSError:
            pass
