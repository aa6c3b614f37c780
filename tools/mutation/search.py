"""Finds every change that the rules allow in the core, through the compiler's own reading of it."""

import json
import os
import re
import shlex
from concurrent.futures import ProcessPoolExecutor
from pathlib import Path

from clang.cindex import CursorKind, Index

from mutation.change import Change, named
from mutation.rules import ASSERT, LOG, RULES, text

CORE = re.compile(r"src/(base|menu|invoke|selection|exec|bridge|scripting|maint|app)/(?!main_)")


def is_none_of_ours(cursor, source):
    """A check by the compiler or the debugger, and the body that the compiler writes for `= default`."""
    if cursor.kind == CursorKind.COMPOUND_STMT:
        return not text(source, cursor).startswith(b"{")
    return cursor.kind == CursorKind.STATIC_ASSERT or text(source, cursor).startswith(ASSERT)


class Walk:
    """Goes through one source and the headers of the core that it includes."""

    def __init__(self, tree):
        self.tree, self.sources, self.changes = tree, {}, []

    def file_of(self, cursor):
        if not cursor.location.file:
            return None
        path = os.path.realpath(cursor.location.file.name)
        return os.path.relpath(path, self.tree) if path.startswith(f"{self.tree}/") else None

    def top(self, unit):
        for cursor in unit.cursor.get_children():
            file = self.file_of(cursor)
            if file and CORE.match(file):
                self.sources.setdefault(file, Path(self.tree, file).read_bytes())
                self.visit(cursor, file)

    def visit(self, cursor, file):
        source = self.sources[file]
        if is_none_of_ours(cursor, source):
            return
        for rule in RULES:
            for (start, end), new in rule(cursor, source):
                line = source.count(b"\n", 0, start) + 1
                self.changes.append(Change(file, line, start, end, new))
        # What the text of a log line says is for people alone.
        is_log = cursor.kind == CursorKind.CALL_EXPR and text(source, cursor).startswith(LOG)
        for child in [] if is_log else cursor.get_children():
            self.visit(child, file)


def in_source(job):
    tree, command = job
    options = [a for a in shlex.split(command["command"])[1:] if a.startswith(("-I", "-D", "-std="))]
    unit = Index.create().parse(command["file"], options)
    worst = [str(d) for d in unit.diagnostics if d.severity >= 3]
    if worst:
        raise RuntimeError(f"cannot read {command['file']}: {worst[0]}")
    walk = Walk(tree)
    walk.top(unit)
    return set(walk.changes), walk.sources


def all_changes(tree, build, jobs):
    """Every possible change to the core of the tree, by the compiler runs of its build folder."""
    commands = json.loads(Path(build, "compile_commands.json").read_text())
    ours = [c for c in commands if CORE.match(os.path.relpath(c["file"], tree))]
    changes, sources = set(), {}
    with ProcessPoolExecutor(jobs) as pool:
        for found, read in pool.map(in_source, [(tree, c) for c in ours]):
            changes |= found
            sources |= read
    return named(changes, sources)
