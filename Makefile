# The front door: `make run` and `make test` do all the set-up themselves.
BUILD ?= build
JOBS ?= $(shell nproc)
SAMPLE ?= 200
TRIES ?= 5
SEED ?= 1
COUNT ?= 100000
PRESSES ?= 10000
TAPS ?= 1000
TRANSFERS ?= 1000

.PHONY: help run test build with-tests deb check bench bench-desktop soak field asan mutate fresh format clean

help:
	@echo "make run     installs what is missing, builds, starts Tavrel (on a virtual desktop without a display)"
	@echo "make test    installs what is missing, builds, runs every test"
	@echo "make build   builds the program into $(BUILD)/"
	@echo "make deb     makes a Debian package, build-deb/tavrel_*.deb"
	@echo "make check   runs the checks of style and structure"
	@echo "make asan    runs the tests that need no display under the sanitizers"
	@echo "make mutate  changes the core in $(SAMPLE) places, one at a time, and tells what no unit test notices"
	@echo "make field   tries what is selected in the programs that people have, TRIES=$(TRIES) times each"
	@echo "make bench   measures, and prints the ratios"
	@echo "make bench-desktop  measures gestures beside other launchers"
	@echo "make soak    captures a selection $(COUNT) times, from a program that copies in every way,"
	@echo "             presses the hot key of a hidden entry $(PRESSES) times,"
	@echo "             taps Ctrl $(TAPS) times, two and two, and moves files $(TRANSFERS) times"
	@echo "             while system calls fail"
	@echo "make fresh SUITE=trixie  tries both on a fresh Debian 13 (SUITE=bookworm: 12), as root"
	@echo "make format  lays the sources out"
	@echo "make clean   removes what was built"

run:
	@tools/install-packages build run
	@tools/run $(BUILD)

# The program, and the tests where the folder knows them already.
build:
	@tools/install-packages build
	[ -f $(BUILD)/build.ninja ] || cmake --preset default -B $(BUILD) -DTAVREL_TESTS=OFF >/dev/null
	cmake --build $(BUILD) -j $(JOBS)

# Configured every time: a build folder made by `make run` or `make build` knows no tests yet.
with-tests:
	@tools/install-packages build run demo deb test mutate
	cmake --preset default -B $(BUILD) >/dev/null
	cmake --build $(BUILD) -j $(JOBS)

test: with-tests
	ctest --test-dir $(BUILD) --no-tests=error --output-on-failure -j $(JOBS)

# Programs that are large, and some hundred gestures: no part of the tests, but for the lightest.
field:
	@tools/install-packages build run demo test field
	cmake --preset default -B $(BUILD) >/dev/null
	cmake --build $(BUILD) -j $(JOBS) --target tavrel device_keys
	TAVREL_DEVICE_KEYS=$(abspath $(BUILD))/tests/field/device_keys \
	  tests/field/run --write docs/gestures.md $(BUILD)/src/tavrel $(TRIES)

# Packages bring newer versions themselves.
deb:
	@tools/install-packages build deb
	cmake --preset default -B build-deb -DTAVREL_TESTS=OFF -DTAVREL_UPDATE_CHECK=OFF >/dev/null
	cmake --build build-deb -j $(JOBS)
	@tools/deb build-deb

check: with-tests
	ctest --test-dir $(BUILD) --no-tests=error --output-on-failure -L check

asan: with-tests
	ctest --test-dir $(BUILD) --no-tests=error --output-on-failure -L sanitizers

mutate:
	@tools/install-packages build test mutate
	@tools/mutate --sample $(SAMPLE) --seed $(SEED) --jobs $(JOBS)

bench:
	@tools/install-packages build run demo bench
	@tools/bench

bench-desktop:
	@tools/install-packages build run demo test bench
	@tools/bench-desktop

soak: with-tests
	tools/with-desktop --wm $(BUILD)/tests/soak/capture_soak $(COUNT)
	tests/soak/hand-on.sh $(BUILD)/src/tavrel $(BUILD)/tests/soak/hand_on_soak $(PRESSES)
	tools/with-desktop --wm $(BUILD)/tests/soak/tap_soak $(TAPS)
	TAVREL_TRANSFERS=$(TRANSFERS) tools/with-desktop \
	  $(BUILD)/tests/contract/contract_linux_FileTransferFaultsTest --gtest_filter='RandomFaults.*'

fresh:
	@tools/install-packages fresh
	@tools/fresh $(SUITE)

format:
	git ls-files '*.h' '*.cpp' '*.mm' | xargs clang-format -i

clean:
	rm -rf build build-*
