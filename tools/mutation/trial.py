"""Whether the unit tests notice a change."""

import shutil
import time

from mutation.children import Children

KILLED, SURVIVED, REFUSED = "killed", "survived", "refused"  # refused: by the compiler


class Trials:
    def __init__(self, build, scratch):
        self.build, self.scratch = build, scratch
        self.children = Children(scratch)
        self.seconds = 600

    def tests_pass(self, program):
        tests = [program, "--gtest_fail_fast", "--gtest_brief=1"]
        return self.children.ends_well(tests, self.scratch, self.seconds)

    def measure(self):
        """The tests must pass as things are; how long they take tells when to give up on a change."""
        start = time.monotonic()
        if not self.tests_pass(self.build.program):
            raise SystemExit(f"mutate: {self.build.program} fails before anything is changed; mend that first")
        self.seconds = 10 + int(5 * (time.monotonic() - start))

    def of(self, change):
        place = self.scratch / f"change-{abs(hash(change)):x}"
        try:
            return self.inside(place, change)
        finally:
            shutil.rmtree(place, ignore_errors=True)

    def inside(self, place, change):
        overlay = place / "overlay"
        changed = overlay / change.file
        changed.parent.mkdir(parents=True)
        changed.write_bytes(change.apply((self.build.tree / change.file).read_bytes()))
        program = place / "tests"
        if not self.builds(overlay, self.build.users.get(change.file, ()), program):
            return REFUSED
        return SURVIVED if self.tests_pass(program) else KILLED

    def builds(self, overlay, objects, program):
        anew = {old: str(overlay.parent / f"{n}.o") for n, old in enumerate(sorted(objects))}
        commands = [self.build.compile_command(old, overlay, new) for old, new in anew.items()]
        commands.append(self.build.link_command(anew, program))
        return all(self.children.ends_well(command, self.build.folder, 300) for command in commands)
