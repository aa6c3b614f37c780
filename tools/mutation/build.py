"""How the compiler and the linker are called for one source, as the build folder tells."""

import json
import os
import shlex
import subprocess
from pathlib import Path

TESTS = "tavrel_unit_tests"


def said(build, *arguments):
    return subprocess.run(["ninja", "-C", build, *arguments], stdout=subprocess.PIPE, text=True, check=True).stdout


class Build:
    def __init__(self, tree, folder):
        self.tree, self.folder = Path(tree), Path(folder)
        self.commands = {}  # object -> arguments
        for entry in json.loads(Path(folder, "compile_commands.json").read_text()):
            arguments = shlex.split(entry["command"])
            self.commands[arguments[arguments.index("-o") + 1]] = arguments
        self.users = self.read_users()
        last = said(folder, "-t", "commands", TESTS).strip().splitlines()[-1]
        self.link = shlex.split(last.removeprefix(": && ").split(" && ")[0])
        self.program = Path(folder, self.link[self.link.index("-o") + 1])

    def read_users(self):
        """source or header -> the objects that are made from it."""
        users, made = {}, ""
        for line in said(self.folder, "-t", "deps").splitlines():
            if line.startswith(" "):
                file = os.path.realpath(os.path.join(self.folder, line.strip()))
                users.setdefault(os.path.relpath(file, self.tree), set()).add(made)
            else:
                made = line.split(":")[0]
        return users

    def compile_command(self, made, overlay, new):
        """Compiles to `new`; what stands in the overlay goes before what stands in the tree."""
        old = self.commands[made]
        source = os.path.relpath(old[-1], self.tree)
        changed = Path(overlay, source)
        options = old[1 : old.index("-o")]
        return [old[0], f"-I{overlay}/src", *options, "-o", new, "-c", changed if changed.exists() else old[-1]]

    def link_command(self, new_objects, program):
        """The objects of a library's members that are made anew go before the library."""
        link = list(self.link)
        link[link.index("-o") + 1] = program
        extra = [new for old, new in new_objects.items() if old not in link]
        link = [new_objects.get(part, part) for part in link]
        place = link.index("-o")
        return link[:place] + extra + link[place:]
