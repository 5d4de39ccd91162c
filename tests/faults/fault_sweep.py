#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets something go wrong at every file call of an import, an export and the restore of a chosen
backup, and checks the state afterwards.

    fault_sweep.py --convert PROGRAM --tracer PROGRAM [--sample N] [--jobs N] [--seed N]
                   [--job NAME]... [--mode NAME]... [--only N] [--keep FOLDER] [--work FOLDER]

Each run has a work area of its own and one fault (mode), at its k-th call. Without --sample, every
call of every job is tried in every mode; with it, there are N runs, spread over jobs, modes and kinds
of calls. After a run that was killed, or that left hidden files, the program starts once more without a
fault and has to succeed. Ends with 1 if a run breaks a rule, and with 77 if programs cannot be traced
on this system.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import random
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from verdicts import (CANCELLED, CHOSEN_BACKUP, DONE, FAILED, PACKAGE, Before, Run, judge_export,
                      judge_import, judge_restore, leftovers)
from work_area import ATTACHMENTS, cards_in, environment, make_template, snapshot

TIMEOUT_SECONDS = 60
ROOM_BYTES = 256 * 1024 * 1024
NOT_TRACEABLE = 77
EINTR, EIO, EROFS = 4, 5, 30
CHANGING = "open,write,names,flush"
READING = "openr,read,list,look"

# lasts: the fault goes on after the k-th call. deaths: the signals that may end the program.
Mode = collections.namedtuple("Mode", "arguments calls lasts deaths")
KILLED = (9,)
MODES = {
    "error": Mode(("--fault", "error"), CHANGING, False, ()),
    "forever": Mode(("--fault", "forever", "--errno", EIO), CHANGING, True, ()),
    "full": Mode(("--fault", "full"), CHANGING, True, ()),
    "readonly": Mode(("--fault", "forever", "--errno", EROFS), CHANGING, True, ()),
    "short": Mode(("--fault", "short"), CHANGING, False, ()),
    "interrupted": Mode(("--fault", "error", "--errno", EINTR), CHANGING, False, ()),
    "kill": Mode(("--fault", "kill"), CHANGING, False, KILLED),
    "torn": Mode(("--fault", "torn"), CHANGING, False, KILLED),
    "killed-again": Mode(("--fault", "full"), CHANGING, True, KILLED),
    # Until the conversion begins, the signal ends the program at once.
    "term": Mode(("--signal-at",), CHANGING, False, (15,)),
    "read": Mode(("--fault", "error", "--errno", EIO), READING, False, ()),
    "lock": Mode(("--fault", "error"), "lock", False, ()),
    "close": Mode(("--fault", "error", "--errno", EIO), "close", False, ()),
}
# A tracer does not see allocations. A library that is loaded before the others lets them fail, which
# may end the program.
ALLOCATION = "allocation"
ALLOCATION_MODE = Mode((), CHANGING, False, (5, 6, 11))
KILLED_AGAIN_AFTER = (1, 2, 3, 5, 8, 13, 21, 34, 55)

IMPORT = ("import", "--yes", "{area}/ix", "{area}/" + PACKAGE)
EXPORT = ("export", "--yes", "{area}/" + PACKAGE, "{area}/out")
RESTORE = ("backups", "--yes", "--restore", CHOSEN_BACKUP, "{area}/" + PACKAGE)


class Job:
    def __init__(self, name, command, ending, folders, spoil=None, cancels=False):
        self.name, self.command, self.ending, self.folders = name, command, ending, folders
        self.spoil, self.cancels = spoil, cancels

    @property
    def is_import(self):
        return self.command is IMPORT


def take_last_attachments_away(area):
    shutil.rmtree(area / "ix" / ATTACHMENTS / "0012")


JOBS = [
    Job("import", IMPORT, DONE, ("db", "ix")),
    Job("failing-import", IMPORT, FAILED, ("db", "ix"), spoil=take_last_attachments_away),
    Job("cancelled-import", IMPORT, CANCELLED, ("db", "ix"), cancels=True),
    Job("export", EXPORT, DONE, ("db", "out")),
    Job("restored-backup", RESTORE, DONE, ("db",)),
]

Task = collections.namedtuple("Task", "job mode k call")


def mode_of(task):
    return ALLOCATION_MODE if task.mode == ALLOCATION else MODES[task.mode]


class Sweep:
    def __init__(self, options, folder):
        self.options, self.folder = options, folder
        self.template = folder / "template"
        self.template.mkdir(parents=True)
        make_template(options.convert, self.template)
        self.before = Before(self.template)
        self.areas = 0
        self.cancel_calls = {}
        self.clean_calls = {}

    def fresh_area(self, name, job):
        area = self.folder / name
        subprocess.run(["cp", "-a", self.template, area], check=True)
        if job.spoil:
            job.spoil(area)
        return area

    def run(self, job, area, arguments=(), variables=()):
        """Returns the report of the tracer and the output of the program."""
        report, said = Path(f"{area}.report"), Path(f"{area}.said")
        below = [part for folder in job.folders for part in ("--below", area / folder)]
        command = [part.format(area=area) for part in job.command]
        with open(said, "wb") as output:
            traced = subprocess.run(
                [str(part) for part in (self.options.tracer, *below, "--timeout", TIMEOUT_SECONDS,
                                        "--report", report, *arguments, "--",
                                        self.options.convert, *command)],
                cwd=area / "cwd", env=environment(area) | dict(variables), stdin=subprocess.DEVNULL,
                stdout=output, stderr=output, check=False)
        if traced.returncode == NOT_TRACEABLE:
            print(said.read_text(errors="replace"))
            sys.exit(NOT_TRACEABLE)
        happened = json.loads(report.read_text(errors="surrogateescape"))
        text = said.read_text(errors="replace")
        for file in (report, said):
            file.unlink()
        return happened, text

    def outcome(self, happened, text, mode):
        killed = happened["signal"] in mode.deaths and not happened["timeout"]
        crashed = ""
        if happened["timeout"]:
            crashed = "no end"
        elif happened["signal"] and not killed:
            crashed = f"signal {happened['signal']}"
        elif "Sanitizer" in text or "runtime error" in text:
            crashed = "sanitizer: " + text[-600:]
        return Run(None if killed else happened["exit"], text, crashed)

    def calls_of(self, job, calls):
        """Returns the calls of a run without a fault, and its work area."""
        area = self.fresh_area(f"clean-{job.name}-{self.areas}", job)
        self.areas += 1
        log = Path(f"{area}.log")
        arguments = ["--log", log, "--calls", calls]
        if job.cancels:
            arguments += ["--signal-at", self.cancel_call(job, calls)]
        happened, text = self.run(job, area, arguments)
        expected = (DONE, CANCELLED) if job.cancels else (job.ending,)
        if happened["exit"] not in expected:
            sys.exit(f"a clean {job.name} ended with {happened['exit']}: {text}")
        lines = log.read_text(errors="surrogateescape").splitlines()
        return [tuple(line.split("\t")[1:]) for line in lines], area

    def cancel_call(self, job, calls):
        """The call of these kinds at which a job is cancelled: it is in the middle of the cards."""
        if calls not in self.cancel_calls:
            plain = Job(job.name, job.command, DONE, job.folders)
            made, area = self.calls_of(plain, calls)
            shutil.rmtree(area)
            pictures = [k for k, (_, path) in enumerate(made, 1)
                        if path.endswith((".jpg", "_N1.pdf")) and "velmora-copy" not in path]
            self.cancel_calls[calls] = pictures[len(pictures) // 2] if pictures else len(made)
        return self.cancel_calls[calls]

    def learn(self):
        for job, learn in ((JOBS[0], self.before.learn_import), (JOBS[3], self.before.learn_export)):
            _, area = self.calls_of(job, CHANGING)
            learn(area)
            shutil.rmtree(area)

    def failing_allocation(self, area, k):
        return {"LD_PRELOAD": str(self.options.allocations), "FAIL_ALLOCATION_BELOW": f"{area}/",
                "FAIL_ALLOCATION_AT": str(k), "FAIL_ALLOCATION_COUNT": f"{area}.count"}

    def allocation_tasks(self, job):
        area = self.fresh_area(f"clean-{job.name}-allocations", job)
        self.run(job, area, variables=self.failing_allocation(area, 0))
        count = int(Path(f"{area}.count").read_text())
        shutil.rmtree(area)
        return [Task(job, ALLOCATION, k, ("allocation", "")) for k in range(1, count + 1)]

    def tasks(self, job, mode_name):
        if mode_name == ALLOCATION:
            return self.allocation_tasks(job)
        if mode_name == "term" and job.cancels:
            return []
        kinds = MODES[mode_name].calls
        if (job, kinds) not in self.clean_calls:
            self.clean_calls[job, kinds], area = self.calls_of(job, kinds)
            shutil.rmtree(area)
        calls = self.clean_calls[job, kinds]
        return [Task(job, mode_name, k, call) for k, call in enumerate(calls, 1)]

    def arguments(self, task):
        mode = MODES[task.mode]
        if task.mode == "term":
            return ["--calls", mode.calls, "--signal-at", task.k]
        arguments = ["--calls", mode.calls, *mode.arguments, "--at", task.k]
        if task.mode == "killed-again":
            chosen = random.Random(self.options.seed * 1_000_003 + task.k)
            arguments += ["--kill-after", chosen.choice(KILLED_AGAIN_AFTER)]
        if task.job.cancels:
            arguments += ["--signal-at", self.cancel_call(task.job, mode.calls)]
        return arguments

    def perform(self, task):
        """Runs the task, starts the program again where needed, and returns the broken rules."""
        mode = mode_of(task)
        area = self.fresh_area(f"{task.job.name}-{task.mode}-{task.k}", task.job)
        if mode is ALLOCATION_MODE:
            happened, text = self.run(
                task.job, area, variables=self.failing_allocation(area, task.k))
            happened["fired"] = True
        else:
            happened, text = self.run(task.job, area, self.arguments(task))
        run = self.outcome(happened, text, mode)
        wrong = self.judge(task, area, run)
        if not wrong and (run.exit is None or leftovers(snapshot(area))):
            wrong = self.start_again(task, area)
        if wrong and self.options.keep:
            shutil.copytree(area, self.options.keep / area.name, symlinks=True, dirs_exist_ok=True)
            (self.options.keep / f"{area.name}.txt").write_text(f"{wrong}\n{text}")
        shutil.rmtree(area)
        return task, wrong, run, happened["fired"]

    def judge(self, task, area, run):
        lasts = mode_of(task).lasts
        if task.job.is_import:
            return judge_import(self.before, area, run, lasts, spoiled=task.job.spoil)
        if task.job.command is RESTORE:
            return judge_restore(self.before, area, run, lasts)
        return judge_export(self.before, area, run, task.mode != "killed-again")

    def start_again(self, task, area):
        """Starts without a fault. Repairs the input first if the job was made to fail by it."""
        cards = cards_in(area / PACKAGE)
        was_saved = cards is not None and len(cards) > len(self.before.cards)
        if task.job.spoil:
            shutil.rmtree(area / "ix")
            subprocess.run(["cp", "-a", self.template / "ix", area / "ix"], check=True)
        happened, text = self.run(task.job, area)
        run = self.outcome(happened, text, MODES["error"])
        wrong = [f"the next start ended with {run.exit}: {text[-300:]}"] if run.exit != DONE else []
        if task.job.is_import:
            wrong += judge_import(self.before, area, run, False, imports=2 if was_saved else 1)
        elif task.job.command is RESTORE:
            wrong += judge_restore(self.before, area, run, False)
        else:
            wrong += judge_export(self.before, area, run, True)
        hidden = leftovers(snapshot(area))
        return [f"after the next start: {one}" for one in wrong] + (
            [f"left behind after the next start: {hidden}"] if hidden else [])


def spread(tasks, count, chosen):
    """Chooses count tasks: the first and last of each kind of call in each job and mode, then any."""
    if not count or count >= len(tasks):
        return tasks
    groups = collections.defaultdict(list)
    for task in tasks:
        name, path = task.call
        groups[task.job.name, task.mode, name, os.path.splitext(path)[1]].append(task)
    ends = [task for group in groups.values() for task in dict.fromkeys((group[0], group[-1]))]
    chosen.shuffle(ends)
    ends = ends[:count]
    taken = set(ends)
    rest = [task for task in tasks if task not in taken]
    return ends + chosen.sample(rest, count - len(ends))


def roomy_memory():
    """A folder in memory, where a flush takes no time, or None without one that is large enough."""
    memory = Path("/dev/shm")
    has_room = memory.is_dir() and shutil.disk_usage(memory).free >= ROOM_BYTES
    return memory if has_room and os.access(memory, os.W_OK) else None


def options():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--convert", type=Path, required=True)
    parser.add_argument("--tracer", type=Path, required=True)
    parser.add_argument("--sample", type=int, default=0)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--job", action="append", choices=[job.name for job in JOBS])
    parser.add_argument("--mode", action="append", choices=MODES)
    parser.add_argument("--allocations", type=Path,
                        help="failing_allocations.so: let allocations fail and nothing else")
    parser.add_argument("--only", type=int, help="the k of a single call")
    parser.add_argument("--keep", type=Path, help="where to keep the areas of what does not hold")
    parser.add_argument("--work", type=Path, default=roomy_memory(),
                        help="default: memory where there is enough, or the folder for temporary files")
    given = parser.parse_args()
    if given.allocations:
        given.allocations = given.allocations.resolve()
        given.mode = [ALLOCATION]
    given.convert, given.tracer = given.convert.resolve(), given.tracer.resolve()
    if given.keep:
        given.keep.mkdir(parents=True, exist_ok=True)
    return given


def report(results):
    by_mode = collections.defaultdict(collections.Counter)
    for task, wrong, run, _ in results:
        ending = "killed" if run.exit is None else f"exit {run.exit}"
        by_mode[task.job.name, task.mode]["WRONG" if wrong else ending] += 1
    for (job, mode), endings in sorted(by_mode.items()):
        print(f"{job:18}{mode:14}{sum(endings.values()):6}  {dict(sorted(endings.items()))}")
    bad = [(task, wrong) for task, wrong, _, _ in results if wrong]
    for task, wrong in bad[:40]:
        print(f"{task.job.name} {task.mode} {task.k} {' '.join(task.call)}\n    {wrong[0][:400]}")
    fired = sum(1 for *_, happened in results if happened)
    print(f"{len(results)} runs, {fired} faults, {len(bad)} in which something does not hold")
    return bool(bad)


def main():
    given = options()
    with tempfile.TemporaryDirectory(prefix="faults.", dir=given.work) as folder:
        sweep = Sweep(given, Path(folder))
        sweep.learn()
        jobs = [job for job in JOBS if not given.job or job.name in given.job]
        tasks = [task for job in jobs for mode in given.mode or MODES
                 for task in sweep.tasks(job, mode)]
        if given.only:
            tasks = [task for task in tasks if task.k == given.only]
        tasks = spread(tasks, given.sample, random.Random(given.seed))
        with concurrent.futures.ThreadPoolExecutor(given.jobs) as pool:
            results = list(pool.map(sweep.perform, tasks))
    return report(results)


if __name__ == "__main__":
    sys.exit(main())
