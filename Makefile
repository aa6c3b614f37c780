# The front door: `make run` and `make test` do all the set-up themselves.
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: help run test build deb check bench bench-desktop asan format clean packages-build packages-run packages-test packages-bench

help:
	@echo "make run     installs what is missing, builds, starts Tavrel (on a virtual desktop without a display)"
	@echo "make test    installs what is missing, builds, runs every test"
	@echo "make build   builds into $(BUILD)/"
	@echo "make deb     makes a Debian package, build-deb/tavrel_*.deb"
	@echo "make check   runs the checks of style and structure"
	@echo "make asan    runs the tests that need no display under the sanitizers"
	@echo "make bench   measures, and prints the ratios"
	@echo "make bench-desktop  measures gestures beside other launchers"
	@echo "make format  lays the sources out"
	@echo "make clean   removes what was built"

packages-build packages-run packages-test packages-bench: packages-%:
	@tools/install-packages $*

# Configured every time: a build folder made by `make run` on a display knows no tests yet.
build: packages-build packages-test
	cmake --preset default -B $(BUILD) >/dev/null
	cmake --build $(BUILD) -j $(JOBS)

run: packages-build packages-run
	@tools/run $(BUILD)

test: packages-build packages-run packages-test build
	ctest --test-dir $(BUILD) --no-tests=error --output-on-failure -j $(JOBS)

# Packages bring newer versions themselves.
deb: packages-build packages-run packages-test
	cmake --preset default -B build-deb -DTAVREL_TESTS=OFF -DTAVREL_UPDATE_CHECK=OFF >/dev/null
	cmake --build build-deb -j $(JOBS)
	@tools/deb build-deb

check: build
	ctest --test-dir $(BUILD) --no-tests=error --output-on-failure -L check

asan: build
	ctest --test-dir $(BUILD) --no-tests=error --output-on-failure -L sanitizers

bench: packages-build packages-run packages-test
	@tools/bench

bench-desktop: packages-build packages-run packages-test packages-bench
	@tools/bench-desktop

format:
	git ls-files '*.h' '*.cpp' '*.mm' | xargs clang-format -i

clean:
	rm -rf build build-*
