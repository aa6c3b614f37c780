"""Programs that are started so that none outlives this one or eats the machine."""

import os
import signal
import subprocess

MEMORY = 4 << 30


class Children:
    def __init__(self, home):
        self.surroundings = dict(os.environ, HOME=str(home), TMPDIR=str(home))
        self.running, self.stopped = set(), False

    def ends_well(self, command, folder, seconds):
        """In so much time of the processor; a busy machine gets ten times that by the clock."""
        if self.stopped:
            return False
        limited = ["prlimit", f"--as={MEMORY}", f"--cpu={seconds}", "--core=0", "--", *command]
        quiet = dict.fromkeys(("stdin", "stdout", "stderr"), subprocess.DEVNULL)
        child = subprocess.Popen(limited, cwd=folder, env=self.surroundings, start_new_session=True, **quiet)
        self.running.add(child)
        try:
            return child.wait(timeout=10 * seconds) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            self.end(child)

    def end(self, child):
        try:
            os.killpg(child.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        child.wait()
        self.running.discard(child)

    def end_all(self):
        self.stopped = True
        for child in list(self.running):
            self.end(child)
