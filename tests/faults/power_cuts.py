#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Cuts the power at file calls of an import and right after one, and checks the contents of the disk.

    power_cuts.py --convert PROGRAM --tracer PROGRAM [--cuts N] [--seed N]
                  [--file-system ext4|xfs|btrfs]...

The work area is on a file system in an image file. When the program reaches its k-th call, it is
stopped and the image is copied. The copy holds only the data that the file system has sent to its disk
by then. It is mounted, which replays the journal of the file system, and checked; then the program
starts once more on it and has to succeed. One cut for each file system comes right after a reported
success, after which nothing may be missing. Needs root. No other process sees the mounts. Ends with 1
if a cut breaks a rule.
"""

import argparse
import collections
import os
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from fault_sweep import CHANGING, DONE, JOBS, Sweep, spread
from verdicts import Run, judge_done_import, judge_import, leftovers
from work_area import snapshot

FileSystem = collections.namedtuple("FileSystem", "megabytes make options")
# The file systems wait long before they send data by themselves, so that the disk holds only the data
# that the program has flushed.
FILE_SYSTEMS = {
    "ext4": FileSystem(48, ("mkfs.ext4", "-q", "-F", "-E", "lazy_itable_init=0,lazy_journal_init=0"),
                       "commit=900,noauto_da_alloc"),
    "xfs": FileSystem(320, ("mkfs.xfs", "-q", "-f"), ""),
    "btrfs": FileSystem(160, ("mkfs.btrfs", "-q", "-f"), "commit=300"),
}
UNSHARED = "POWER_CUTS_UNSHARED"


def call(*command):
    subprocess.run([str(part) for part in command], check=True)


def in_own_mounts():
    if UNSHARED not in os.environ:
        os.environ[UNSHARED] = "1"
        os.execvp("unshare", ["unshare", "-m", "--propagation", "private", sys.executable, *sys.argv])


class Disk:
    """A file system in an image file, with the template of the work areas on it."""

    def __init__(self, name, folder, template):
        self.kind, self.folder = FILE_SYSTEMS[name], folder
        self.pristine, self.running, self.cut = (folder / part for part in ("a", "b", "c"))
        self.mount_point = folder / "disk"
        self.mount_point.mkdir()
        call("truncate", "-s", f"{self.kind.megabytes}M", self.pristine)
        call(*self.kind.make, self.pristine)
        self.mount(self.pristine, "")
        call("cp", "-a", template, self.mount_point / "area")
        self.unmount()

    def mount(self, image, options):
        options = ",".join(filter(None, ("loop", options)))
        call("mount", "-o", options, image, self.mount_point)

    def unmount(self):
        call("umount", self.mount_point)

    def start(self):
        shutil.copyfile(self.pristine, self.running)
        self.mount(self.running, self.kind.options)
        return self.mount_point / "area"

    def pull_the_plug(self):
        return f"cp --sparse=always {self.running} {self.cut}"

    def end(self):
        call("umount", "-l", self.mount_point)

    def rescued_area(self):
        """Copies the work area from the disk to a place where the next start may change it."""
        self.mount(self.cut, "")
        area = self.folder / "rescued"
        shutil.rmtree(area, ignore_errors=True)
        call("cp", "-a", self.mount_point / "area", area)
        self.unmount()
        self.cut.unlink()
        return area


def judge_cut(sweep, disk, task):
    area = disk.start()
    sweep.run(task.job, area, ["--calls", CHANGING, "--fault", "hook", "--at", task.k,
                               "--hook", disk.pull_the_plug()])
    disk.end()
    if not disk.cut.exists():
        return []
    area = disk.rescued_area()
    wrong = judge_import(sweep.before, area, Run(None, "", ""), False)
    return wrong or sweep.start_again(task, area)


def judge_cut_after_success(sweep, disk):
    area = disk.start()
    happened, text = sweep.run(JOBS[0], area)
    subprocess.run(disk.pull_the_plug(), shell=True, check=True)
    disk.end()
    run = Run(happened["exit"], text, "")
    area = disk.rescued_area()
    if run.exit != DONE:
        return [f"a clean import ended with {run.exit}: {text}"]
    wrong = judge_done_import(sweep.before, area, run, snapshot(area), 1)
    hidden = leftovers(snapshot(area))
    return wrong + ([f"left behind: {hidden}"] if hidden else [])


def cut_on(name, sweep, folder, options):
    disk = Disk(name, folder, sweep.template)
    tasks = spread(sweep.tasks(JOBS[0], "kill"), options.cuts, random.Random(options.seed))
    results = [(f"{task.k} {' '.join(task.call)}", judge_cut(sweep, disk, task)) for task in tasks]
    results.append(("after success", judge_cut_after_success(sweep, disk)))
    bad = [(where, wrong) for where, wrong in results if wrong]
    print(f"{name}: {len(results)} power cuts, {len(bad)} in which something does not hold")
    for where, wrong in bad[:20]:
        print(f"    {where}\n        {wrong[0][:400]}")
    return not bad


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--convert", type=Path, required=True)
    parser.add_argument("--tracer", type=Path, required=True)
    parser.add_argument("--cuts", type=int, default=0, help="a file system; default: every call")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--file-system", action="append", choices=FILE_SYSTEMS)
    options = parser.parse_args()
    options.convert, options.tracer = options.convert.resolve(), options.tracer.resolve()
    options.keep = None
    in_own_mounts()
    with tempfile.TemporaryDirectory(prefix="power.", dir="/dev/shm") as folder:
        sweep = Sweep(options, Path(folder) / "sweep")
        sweep.learn()
        held = []
        for name in options.file_system or FILE_SYSTEMS:
            (Path(folder) / name).mkdir()
            held.append(cut_on(name, sweep, Path(folder) / name, options))
    return 0 if all(held) else 1


if __name__ == "__main__":
    sys.exit(main())
