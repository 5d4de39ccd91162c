# SPDX-License-Identifier: GPL-3.0-or-later
"""The rules for the state after a run in which something went wrong. A verdict lists the broken ones."""

import collections
import os
import re

from work_area import STORE, below, cards_in, files_of, log_of, snapshot, without_journals

DONE, FAILED, REFUSED, WITH_WARNINGS, CANCELLED = 0, 1, 3, 4, 130
PACKAGE = "db/Cards.vmdb"
CHOSEN_BACKUP = "Cards_bak.vmdb"
EXPORTED = "out/名刺データ"
HIDDEN = re.compile(rb"(^|/)\.[^/]*\.velmora-[a-z]+(/|$)")

# The result of a run. exit is None if the program was killed.
Run = collections.namedtuple("Run", "exit said crashed")


class Before:
    """The work area before a run, and its state after a run without a fault."""

    def __init__(self, area):
        self.found = snapshot(area)
        self.package = without_journals(below(self.found, PACKAGE))
        self.cards = cards_in(area / PACKAGE)
        self.backup = without_journals(below(self.found, "db/" + CHOSEN_BACKUP))

    def learn_import(self, area):
        new = self.new_cards(cards_in(area / PACKAGE))
        self.new_count = len(new)
        self.new_texts = texts_of(new)
        self.images, self.attachments = files_of(area / PACKAGE, new)

    def learn_export(self, area):
        self.exported = below(snapshot(area), EXPORTED)

    def new_cards(self, cards):
        return {card_id: card for card_id, card in cards.items() if card_id not in self.cards}

    def holds_old_cards(self, cards):
        return all(cards.get(card_id) == card for card_id, card in self.cards.items())

    def is_whole_package(self, found, path):
        """Whether all files and folders are as before. The store may differ if its cards do not."""
        package = without_journals(found)
        if package == self.package:
            return True
        others = {name for name in package.keys() | self.package.keys() if name != STORE}
        return all(package.get(name) == self.package.get(name) for name in others) and (
            STORE in package and cards_in(path) == self.cards)


def texts_of(cards):
    """The contents of the cards, without their IDs and regardless of how often each is there."""
    names = ("ZFULL_NAME", "ZFULL_NAME_KANA", "ZCOMPANY", "ZADDRESS", "ZMEMO", "ZDELETEDFLAG")
    return collections.Counter(tuple(card[name] for name in names) for card in cards.values())


def times(counter, factor):
    return collections.Counter({key: count * factor for key, count in counter.items()})


def spoke(area, run):
    return bool(run.said.strip()) or "[Error]" in log_of(area)


def has_warnings(area):
    # The conversion is not at fault when its report cannot be written.
    return bool(re.search(r"\[(Warning|Error)\] (?!The report \[)", log_of(area)))


def judge_bystanders(before, found, own):
    """No file may change outside of the package, the export and the home folder."""
    own = [os.fsencode(path) for path in own]
    return [
        f"changed: {os.fsdecode(path)!r}"
        for path, entry in before.found.items()
        if not any(path == start or path.startswith(start + b"/") for start in own)
        and found.get(path) != entry
    ]


def whole_backups(before, area, found):
    names = {path.split(b"/")[1] for path in found if path.startswith(b"db/Cards_bak")}
    return [
        name for name in names
        if before.is_whole_package(
            below(found, b"db/" + name), os.path.join(os.fsencode(area / "db"), name))
    ]


def new_backups(before, found):
    return {path for path in found
            if re.fullmatch(rb"db/Cards_bak\d*\.vmdb", path) and path not in before.found}


def leftovers(found):
    return [os.fsdecode(path) for path in found if HIDDEN.search(path)]


def judge_done_import(before, area, run, found, imports):
    package, cards = area / PACKAGE, cards_in(area / PACKAGE)
    if cards is None or not before.holds_old_cards(cards):
        return ["success reported, but the store does not hold the old cards"]
    new = before.new_cards(cards)
    if texts_of(new) != times(before.new_texts, imports):
        return [f"success reported with {len(new)} new cards instead of {before.new_count * imports}"]
    wrong = [f"old file changed: {os.fsdecode(path)!r}" for path, entry in before.package.items()
             if path != STORE and below(found, PACKAGE).get(path) != entry]
    images, attachments = files_of(package, new)
    if images["missing"] or images["torn"]:
        wrong.append(f"cards without their images: {dict(images)}")
    is_complete = (images == times(before.images, imports)
                   and attachments == times(before.attachments, imports))
    if not is_complete and not has_warnings(area):
        wrong.append("files missing without a word")
    if run.exit == WITH_WARNINGS and not has_warnings(area):
        wrong.append("warnings reported that nobody wrote down")
    if not whole_backups(before, area, found):
        wrong.append("success reported without a whole backup")
    return wrong


def judge_import(before, area, run, fault_lasts, imports=1, spoiled=False):
    """imports: how often the cards are in the database after a success. spoiled: the interchange
    folder was changed before the run."""
    found = snapshot(area)
    own = [PACKAGE, "home", *map(os.fsdecode, new_backups(before, found))]
    wrong = judge_bystanders(before, found, own + (["ix"] if spoiled else []))
    if run.crashed:
        return [*wrong, f"crashed: {run.crashed}"]
    if run.exit is None:
        return wrong + judge_killed_import(before, area, found)
    if run.exit in (DONE, WITH_WARNINGS):
        return wrong + judge_done_import(before, area, run, found, imports)
    if run.exit not in (FAILED, REFUSED, CANCELLED):
        return [*wrong, f"ended with {run.exit}"]
    if run.exit != CANCELLED and not spoke(area, run):
        wrong.append("failed without a message")
    is_same = before.is_whole_package(below(found, PACKAGE), area / PACKAGE)
    stands_in = fault_lasts and whole_backups(before, area, found)
    if not is_same and not stands_in:
        wrong.append("failed, and the package is not as before")
    return wrong


def judge_restore(before, area, run, fault_lasts):
    """After a success, the package is the chosen backup, and the former package a new backup."""
    found = snapshot(area)
    own = [PACKAGE, "home", *map(os.fsdecode, new_backups(before, found))]
    wrong = judge_bystanders(before, found, own)
    if run.crashed:
        return [*wrong, f"crashed: {run.crashed}"]
    if run.exit is None:
        return wrong + judge_killed_import(before, area, found, [before.backup])
    kept = whole_backups(before, area, found)
    if run.exit == DONE:
        if without_journals(below(found, PACKAGE)) != before.backup:
            wrong.append("success reported, but the package is not the backup")
        return wrong + ([] if kept else ["what stood there is lost"])
    if run.exit not in (FAILED, REFUSED):
        return [*wrong, f"ended with {run.exit}"]
    if not spoke(area, run):
        wrong.append("failed without a message")
    is_same = before.is_whole_package(below(found, PACKAGE), area / PACKAGE)
    if not is_same and not (fault_lasts and kept):
        wrong.append("failed, and the package is not as before")
    return wrong


def judge_killed_import(before, area, found, others=()):
    """others: contents that a backup may have besides those of the package."""
    backups = whole_backups(before, area, found)
    partial = [name for name in new_backups(before, found)
               if os.path.basename(name) not in backups
               and without_journals(below(found, name)) not in others]
    wrong = [f"half a backup under a good name: {os.fsdecode(name)}" for name in partial]
    if before.is_whole_package(below(found, PACKAGE), area / PACKAGE) or backups:
        return wrong
    return [*wrong, "killed, and there is neither a whole package nor a whole backup"]


def judge_export(before, area, run, is_single_fault):
    found = snapshot(area)
    wrong = judge_bystanders(before, found, [PACKAGE, "home", "out"])
    if not before.is_whole_package(below(found, PACKAGE), area / PACKAGE):
        wrong.append("the package was changed")
    exported = below(found, EXPORTED)
    if run.crashed:
        return [*wrong, f"crashed: {run.crashed}"]
    if run.exit == DONE and exported != before.exported:
        differing = sorted(path for path in exported.keys() | before.exported.keys()
                           if exported.get(path) != before.exported.get(path))
        wrong.append(f"success reported, but not all is there: {differing[:3]}")
    if run.exit in (FAILED, REFUSED) and not spoke(area, run):
        wrong.append("failed without a message")
    if run.exit == WITH_WARNINGS and not has_warnings(area):
        wrong.append("warnings reported that nobody wrote down")
    if run.exit is None and is_single_fault and b"Version.txt" in exported:
        version = exported[b"Version.txt"].size
        if version == before.exported[b"Version.txt"].size and exported != before.exported:
            wrong.append("killed half way, but it looks like a whole export")
    if run.exit not in (None, DONE, FAILED, REFUSED, WITH_WARNINGS, CANCELLED):
        wrong.append(f"ended with {run.exit}")
    return wrong
