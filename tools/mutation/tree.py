"""The copy of the sources that is built, so that the checkout is only ever read."""

import shutil
import subprocess
from pathlib import Path

FOLDERS = ("CMakeLists.txt", "cmake", "src", "tests", "resources")
CONFIGURATION = (
    "-GNinja",
    "-DCMAKE_BUILD_TYPE=",
    "-DCMAKE_UNITY_BUILD=OFF",
    "-DCMAKE_CXX_FLAGS=-O0 -w",  # a change that leaves a variable unused is one for the tests to find
    "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld",
    "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST",
    "-DTAVREL_TESTS=ON",
    f"-DCMAKE_PROJECT_TOP_LEVEL_INCLUDES={Path(__file__).parent}/batches.cmake",
)


def files_below(top):
    inside = [top] if top.is_file() else top.rglob("*")
    return [path for path in inside if path.is_file() and not path.is_symlink()]


def copy_tree(checkout, copy):
    """Leaves alone what has not changed: a second run then builds next to nothing."""
    wanted = [path for name in FOLDERS for path in files_below(checkout / name)]
    for path in wanted:
        twin = copy / path.relative_to(checkout)
        if not twin.exists() or twin.read_bytes() != path.read_bytes():
            twin.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(path, twin)
    kept = {copy / path.relative_to(checkout) for path in wanted}
    for path in files_below(copy):
        if path not in kept:
            path.unlink()


def build_tree(copy, build, jobs):
    for command in (
        ["cmake", "-S", copy, "-B", build, *CONFIGURATION],
        ["cmake", "--build", build, "-j", str(jobs), "--target", "tavrel_unit_tests"],
    ):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode:
            raise SystemExit(f"{done.stdout}mutate: the tests must build before anything is changed; mend the above")
