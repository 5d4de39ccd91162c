# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the card database and the interchange folder of a run, and reads them afterwards."""

import collections
import hashlib
import os
import shutil
import sqlite3
import stat
import subprocess
import tempfile
from pathlib import Path

SAMPLES = Path(__file__).resolve().parents[2] / "samples/cards"
DATA_FILE, IMAGES, ATTACHMENTS = "名刺データ.txt", "名刺画像", "添付ファイル"
STORE = b"Velmora.sqldb"
LOCK_FILE = b".VMLock.vmlk"
JOURNAL_ENDINGS = (b"-journal", b"-wal", b"-shm")

# The lines of the sample cards that the database holds before the run, and of those to import.
CARDS_BEFORE = (1, 3, 8, 4)
CARDS_TO_IMPORT = (8, 4, 12, 9)

Entry = collections.namedtuple("Entry", "kind mode size content")


def environment(area):
    kept = {key: value for key, value in os.environ.items() if "DISPLAY" not in key}
    # The sanitizer cannot look for leaks in a program that is traced.
    asan = ":".join(filter(None, (kept.get("ASAN_OPTIONS"), "detect_leaks=0")))
    return kept | {"HOME": str(area / "home"), "LC_ALL": "C.UTF-8", "ASAN_OPTIONS": asan}


def make_interchange_folder(folder, lines):
    """Writes a folder with the sample cards of these lines, their images and attachments."""
    for name in (IMAGES, ATTACHMENTS):
        (folder / name).mkdir(parents=True)
    shutil.copy(SAMPLES / "Version.txt", folder)
    data = (SAMPLES / DATA_FILE).read_bytes().decode("utf-16").split("\r\n")
    rows = [data[0]] + [data[line] for line in lines]
    (folder / DATA_FILE).write_bytes("\r\n".join([*rows, ""]).encode("utf-16"))
    for item in {item for row in rows[1:] for item in row.split("\t")[:3] if item}:
        image, attachment = SAMPLES / IMAGES / item, SAMPLES / ATTACHMENTS / item
        if image.is_file():
            shutil.copy(image, folder / IMAGES)
        if attachment.is_dir():
            shutil.copytree(attachment, folder / ATTACHMENTS / item, dirs_exist_ok=True)


def make_template(convert, folder):
    """A database with cards and an older backup, a folder to import, and files that may not change."""
    for name in ("db", "out", "home", "cwd", "outside"):
        (folder / name).mkdir(parents=True)
    for name in ("cwd/precious.txt", "outside/precious.txt", "db/neighbour.txt"):
        (folder / name).write_text("precious")
    package = folder / "db/Cards.vmdb"
    with tempfile.TemporaryDirectory() as scratch:
        scratch = Path(scratch)
        make_interchange_folder(scratch / "first", CARDS_BEFORE)
        for command in (["create", package], ["import", "--yes", scratch / "first", package]):
            subprocess.run([convert, "--quiet", *command], check=True, env=environment(scratch))
    (package / os.fsdecode(LOCK_FILE)).unlink()
    (package / "Files/empty").mkdir()
    (package / "Files/link").symlink_to("../Version.txt")
    with open(os.fsencode(package / "Files") + b"/no UTF-8 \xff.txt", "wb") as file:
        file.write(b"kept")
    make_interchange_folder(folder / "ix", CARDS_TO_IMPORT)


def digest(path):
    with open(path, "rb") as file:
        return hashlib.sha1(file.read()).hexdigest()


def entry_of(path):
    status = os.lstat(path)
    mode = stat.S_IMODE(status.st_mode)
    if stat.S_ISLNK(status.st_mode):
        return Entry("link", 0, 0, os.readlink(path))
    if stat.S_ISDIR(status.st_mode):
        return Entry("folder", mode, 0, b"")
    return Entry("file", mode, status.st_size, digest(path))


def snapshot(folder):
    """All below a folder, by its path in bytes, except the lock file, which every run makes."""
    found, root = {}, os.fsencode(folder)
    for parent, folders, files in os.walk(root):
        for name in folders + files:
            if name != LOCK_FILE:
                path = os.path.join(parent, name)
                found[os.path.relpath(path, root)] = entry_of(path)
    return found


def below(found, folder):
    start = os.fsencode(folder) + b"/"
    return {path[len(start):]: entry for path, entry in found.items() if path.startswith(start)}


def without_journals(found):
    return {path: entry for path, entry in found.items() if not path.endswith(JOURNAL_ENDINGS)}


def cards_in(package):
    """The cards of a store by their IDs, read from a copy with its journals; None if it is damaged."""
    with tempfile.TemporaryDirectory() as scratch:
        copy = os.path.join(os.fsencode(scratch), STORE)
        for ending in (b"", *JOURNAL_ENDINGS):
            source = os.path.join(os.fsencode(package), STORE + ending)
            if os.path.isfile(source):
                shutil.copyfile(source, copy + ending)
        if not os.path.isfile(copy):
            return None
        try:
            with sqlite3.connect(os.fsdecode(copy)) as store:
                store.row_factory = sqlite3.Row
                if store.execute("PRAGMA integrity_check").fetchone()[0] != "ok":
                    return None
                rows = store.execute("SELECT * FROM ZCARD").fetchall()
            store.close()
        except sqlite3.Error:
            return None
        return {row["ZCARDID"]: dict(row) for row in rows}


def files_of(package, cards):
    """Counts the undamaged images and attachments of the cards."""
    images, attachments = collections.Counter(), collections.Counter()
    for card_id, card in cards.items():
        image = package / "Images" / (card["ZFACE_IMAGE_FILE"] or "")
        if not card["ZFACE_IMAGE_FILE"]:
            images["none"] += 1
        elif not image.is_file():
            images["missing"] += 1
        else:
            content = image.read_bytes()
            is_whole = content.startswith(b"%PDF") and b"%%EOF" in content[-1024:]
            images[len(content) if is_whole else "torn"] += 1
        folder = package / "Files" / card_id
        attachments[repr(sorted(snapshot(folder).items())) if folder.is_dir() else "none"] += 1
    return images, attachments


def log_of(area):
    path = area / "home/Library/Logs/VelmoraConverter.log"
    return path.read_text(errors="replace") if path.is_file() else ""
