# SPDX-License-Identifier: MIT
# SPDX-FileCopyrightText: 2026 The Tonalith authors
"""Builds and tests a sample of mutants, prints a line for each and a summary."""

import argparse
import itertools
import random
import signal
import time

from mutants import draw, mutants_of
from mutation_tree import BuildFailure, Tree
from rooms import own_tests, read_rooms, read_test_programs, sources, targets

# A test run that takes this many times as long as without a mutant hangs; short runs get the seconds in addition, for a
# machine that is busy.
_TIME_FACTOR = 5
_EXTRA_SECONDS = 20
_SHOWN_LETTERS = 70


def main(root, arguments):
    """The command line of tools/mutate. Returns the exit code: 0 after a complete run, 1 on errors, 130 on Ctrl+C."""
    parser = argparse.ArgumentParser(prog="tools/mutate", description="Changes the source of one room at random places "
                                     "and shows which changes no test notices.")
    parser.add_argument("room", help="a room of docs/rooms.tsv, or all")
    parser.add_argument("seed", nargs="?", type=int, default=1, help="the same seed draws the same changes (1)")
    parser.add_argument("count", nargs="?", type=int, default=30, help="changes to test (30)")
    parser.add_argument("--own", action="store_true", help="run the room's own tests only")
    options = parser.parse_args(arguments)
    rooms = read_rooms(root)
    chosen = [room for room in rooms if options.room in (room.name, "all")]
    if not chosen:
        parser.error(f"no room {options.room}; docs/rooms.tsv has " + ", ".join(room.name for room in rooms))
    try:
        run = Run(root, chosen, rooms)
    except BlockingIOError:
        print("Another tools/mutate is running in this checkout.")
        return 1
    _interrupt_by_signals()
    try:
        return run.all(options)
    except BuildFailure as failure:
        print(f"Without any mutant:\n{failure}")
        return 1
    except KeyboardInterrupt:
        print("\nInterrupted.")
        run.summary()
        return 130


class Run:
    """One run over the sources of the rooms `chosen`."""

    def __init__(self, root, chosen, rooms):
        self.tree = Tree(root, root / "build/mutate")
        self.tree.update()
        programs = read_test_programs(root)
        self.tests = {room.name: own_tests(room, programs) for room in chosen}
        files = sources(root, rooms)
        self.targets = {room.name: targets(room, files[room.name], self.tests[room.name]) for room in chosen}
        self.room_of = {file: room.name for room in chosen for file in files[room.name]}
        self.texts = {file: (root / file).read_text(encoding="utf-8") for file in self.room_of}
        self.seconds = {}
        self.objects = {}
        self.others = None
        self.all_objects = {}
        self.mutated = None
        self.caught = 0
        self.survivors = []
        self.discarded = {"did not compile": 0, "equal code": 0}

    def all(self, options):
        """Draws and tests mutants until `options.count` of them are caught or survive."""
        drawn = draw([mutant for file, text in self.texts.items() for mutant in mutants_of(file, text)],
                     random.Random(options.seed))
        print("Configuring and building without mutants.", flush=True)
        self.tree.configure()
        done = 0
        while done < options.count:
            # Sorted, so that a file is restored and built again as rarely as possible.
            batch = sorted(itertools.islice(drawn, options.count - done))
            if not batch:
                print(f"Only {done} lines can be mutated.")
                break
            for mutant in batch:
                tested = self.one(mutant, options, f"{done + 1}/{options.count}")
                done += tested
        self.summary()
        return 0

    def one(self, mutant, options, progress):
        """Tests one mutant and prints its line. Returns whether it counts: False where it is discarded."""
        room = self.room_of[mutant.file]
        self.baseline(room)
        started = time.monotonic()
        self.restore(keep=mutant.file)
        self.put(mutant)
        outcome = self.outcome(mutant, room, options)
        if outcome in self.discarded:
            self.discarded[outcome] += 1
        elif outcome == "SURVIVED":
            self.survivors.append(mutant)
        else:
            self.caught += 1
        print(f"{progress:>7}  {outcome:<24} {_description(mutant)}  ({time.monotonic() - started:.0f} s)", flush=True)
        return outcome not in self.discarded

    def outcome(self, mutant, room, options):
        """Builds and tests the tree with the mutant in it. Gives the words of the printed line."""
        try:
            self.tree.build(self.targets[room])
        except BuildFailure:
            return "did not compile"
        equal = self.tree.objects(self.targets[room]) == self.objects[room]
        # What a header changes may be used by other rooms only.
        if equal and (options.own or not mutant.file.endswith(".h")):
            return "equal code"
        failed = [] if equal else self.tree.test(self.names(room), self.seconds[room])
        if failed or options.own:
            return f"caught by {failed[0]}" if failed else "SURVIVED"
        return self.outcome_of_others(mutant, room)

    def outcome_of_others(self, mutant, room):
        """Builds everything and runs all tests that are not the room's own."""
        if self.others is None:
            self.restore()
            self.prepare_others()
            self.put(mutant)
        try:
            self.tree.build()
        except BuildFailure:
            return "did not compile"
        if self.tree.objects() == self.all_objects:
            return "equal code"
        names, seconds = self.others
        failed = self.tree.test([name for name in names if name not in self.names(room)], seconds)
        return f"caught by {failed[0]}" if failed else "SURVIVED"

    def prepare_others(self):
        """Builds everything without a mutant and finds the tests that pass; the others can catch none."""
        print("Building everything without mutants.", flush=True)
        self.tree.build()
        self.all_objects = self.tree.objects()
        names = self.tree.test_names()
        print("Running all tests without mutants.", flush=True)
        started = time.monotonic()
        failing = self.tree.test(names, None, fail_fast=False)
        if failing:
            print("Left out, because they fail without a mutant: " + ", ".join(failing))
        self.others = [name for name in names if name not in failing], _limit(time.monotonic() - started)

    def names(self, room):
        """The names of the room's own tests."""
        return [test.name for test in self.tests[room]]

    def baseline(self, room):
        """Builds and runs the room's own tests without a mutant, once. Raises BuildFailure where they fail."""
        if room in self.objects:
            return
        if not self.names(room):
            raise BuildFailure(f"No test program belongs to the room {room}.")
        self.restore()
        self.tree.build(self.targets[room])
        started = time.monotonic()
        failing = self.tree.test(self.names(room), None)
        if failing:
            raise BuildFailure(f"The tests of {room} fail: " + ", ".join(failing))
        self.seconds[room] = _limit(time.monotonic() - started)
        self.objects[room] = self.tree.objects(self.targets[room])

    def put(self, mutant):
        """Puts a mutant into the tree."""
        self.mutated = mutant.file
        self.tree.write(mutant.file, mutant.apply(self.texts[mutant.file]))

    def restore(self, keep=None):
        """Takes the mutant out of the tree, unless it is in the file `keep`, which the caller writes next."""
        if self.mutated not in (None, keep):
            self.tree.write(self.mutated, self.texts[self.mutated])
            self.mutated = None

    def summary(self):
        """Prints the survivors and the share that was caught; takes the last mutant out of the tree."""
        self.restore()
        tested = self.caught + len(self.survivors)
        for mutant in self.survivors:
            print(f"survivor {_description(mutant)}")
        share = f"{100 * self.caught / tested:.1f} %" if tested else "none"
        print(f"Of {tested} mutants {self.caught} caught ({share}), {len(self.survivors)} survived. Discarded: " +
              ", ".join(f"{count} {reason}" for reason, count in self.discarded.items()) + ".")


def _interrupt_by_signals():
    """Makes SIGTERM end the run like Ctrl+C; and SIGINT, which a shell lets its background processes ignore."""
    def interrupt(_number, _frame):
        raise KeyboardInterrupt

    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, interrupt)


def _limit(seconds):
    return _EXTRA_SECONDS + _TIME_FACTOR * seconds


def _description(mutant):
    before, after = (_short(text) for text in (mutant.before, mutant.after))
    return f"{mutant.file}:{mutant.line}: `{before}` -> " + (f"`{after}`" if after else "removed")


def _short(text):
    text = " ".join(text.split())
    return text if len(text) <= _SHOWN_LETTERS else text[:_SHOWN_LETTERS - 3] + "..."
