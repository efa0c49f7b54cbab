# The front door. Every target installs what it lacks and may be the first command after a clone.

JOBS ?= $(shell nproc)
SECONDS ?= 60
PREFIX ?= /usr/local
FOR ?= build assets gallery test

install_for := @setup/install.sh
python := /usr/bin/python3
# $(call build,<preset>[,<target>])
build = cmake --preset $(1) && cmake --build --preset $(1) -j $(JOBS) $(if $(2),--target $(2))
tested_release = cmake --preset release -D BRISEL_BUILD_TESTS=ON && cmake --build --preset release -j $(JOBS)
ctest = ctest --preset $(1) -j $(JOBS)

.PHONY: help setup gallery docs test check pressure asan tsan lint browser window tokens fuzz bench coverage install clean
.NOTPARALLEL:

help:
	@echo 'make gallery   build the library and draw its style guide: out/gallery/index.html'
	@echo 'make docs      write the reference and the guide: out/docs/index.html'
	@echo 'make test      build and run the tests'
	@echo 'make check     what test leaves out: $(check_stages)'
	@echo 'make bench     measure against the peers: out/bench/report.md'
	@echo 'make fuzz      run every fuzz target for SECONDS=$(SECONDS)'
	@echo 'make coverage  which lines the tests reach: out/coverage/index.html'
	@echo 'make install   install below PREFIX=$(PREFIX)'
	@echo 'make setup     install what FOR="$(FOR)" needs (setup/packages.txt), nothing else'
	@echo 'make clean     remove build/ and out/'

setup:
	$(install_for) $(FOR)

gallery:
	$(install_for) build assets gallery
	$(call build,release,brisel_program)
	build/release/bin/brisel gallery --out out/gallery
	@echo 'The style guide is at out/gallery/index.html'

# Fails where a public name is not described.
docs:
	$(install_for) docs
	rm -rf out/docs && mkdir -p out
	doxygen docs/Doxyfile
	@echo 'The reference is at out/docs/index.html'

# What is tested is what is installed and draws the style guide.
test:
	$(install_for) build assets test
	$(tested_release)
	$(call ctest,release)

check_stages := gallery docs pressure asan tsan lint browser window tokens
check:
	$(install_for) build assets gallery test check
	@for stage in $(check_stages); do setup/stage.sh $$stage $(MAKE) --no-print-directory $$stage || exit 1; done

# Tests that make the machine run short of memory: alone, and not under sanitizers.
pressure:
	$(install_for) build assets test
	$(tested_release) --target pressure_tests
	ctest --test-dir build/release -L pressure --no-tests=error --output-on-failure

# By clang. The first also builds the fuzz targets and replays their stored inputs.
asan tsan:
	$(install_for) build assets test check
	$(call build,$@)
	$(call ctest,$@)

lint:
	$(install_for) build assets check
	tests/lint/run.sh $(JOBS)

browser: gallery
	$(install_for) build assets gallery check
	node tests/browser/run.mjs out/gallery $(JOBS)

# The live window, on a display that nobody sees.
window:
	$(install_for) build assets gallery check
	$(call build,release,brisel_program)
	$(python) tests/window/run.py build/release/bin/brisel

# What other tools read of the exported tokens. They need a newer Node than Debian's, which their lock file brings.
tokens:
	$(install_for) build assets gallery check
	$(call build,release,brisel_program)
	tests/tokens/node_modules/node-linux-*/bin/node tests/tokens/run.mjs build/release/bin/brisel out/tokens

fuzz:
	$(install_for) build assets check
	$(call build,asan,brisel_fuzzers)
	fuzz/run.sh build/asan/bin $(SECONDS)

bench:
	$(install_for) build assets bench
	cmake --preset release -D BRISEL_BUILD_BENCHMARKS=ON
	cmake --build --preset release -j $(JOBS) --target brisel_benchmarks
	$(python) benchmarks/report.py build/release/bin/brisel_benchmarks out/bench

coverage:
	$(install_for) build assets test coverage
	$(call build,coverage)
	$(call ctest,coverage)
	mkdir -p out/coverage
	gcovr --filter brisel/ --exclude '.*_test\.cc' --html-details out/coverage/index.html --print-summary build/coverage

install:
	$(install_for) build assets gallery
	$(call build,release)
	cmake --install build/release --prefix $(PREFIX)

clean:
	rm -rf build out
