"""Whether the unit tests notice a change."""

import resource
import shutil
from xml.etree import ElementTree

from mutation.children import Children

KILLED, SURVIVED, REFUSED = "killed", "survived", "refused"  # refused: by the compiler


def processor_seconds():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Trials:
    def __init__(self, build, scratch):
        self.build, self.scratch = build, scratch
        self.children = Children(scratch)
        self.seconds = 600
        self.slow = []  # tests that take more than a twentieth of all the time

    def ends_well(self, program, *options):
        tests = [program, "--gtest_fail_fast", "--gtest_brief=1", *options]
        return self.children.ends_well(tests, self.scratch, self.seconds)

    def tests_pass(self, program):
        """The quick ones first: nearly every change is noticed by one of them."""
        slow = ":".join(self.slow)
        if not slow:
            return self.ends_well(program)
        return self.ends_well(program, f"--gtest_filter=-{slow}") and self.ends_well(program, f"--gtest_filter={slow}")

    def measure(self):
        """The tests must pass as things are; how long they take tells when to give up on a change."""
        before, times = processor_seconds(), self.scratch / "times.xml"
        if not self.ends_well(self.build.program, f"--gtest_output=xml:{times}"):
            raise SystemExit(f"mutate: {self.build.program} fails before anything is changed; mend that first")
        taken = processor_seconds() - before
        self.seconds = 5 + int(3 * taken)
        tests = ElementTree.parse(times).iter("testcase") if times.exists() else ()
        self.slow = [f"{t.get('classname')}.{t.get('name')}" for t in tests if float(t.get("time")) > taken / 20]

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
