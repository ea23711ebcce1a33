# SPDX-License-Identifier: BSD-3-Clause
#
# The face of the build for people. `make` lists what there is; CMakePresets.json holds the configurations.

PREFIX ?= /usr/local
DESTDIR ?=
# Installs the Debian packages that are missing; `make SETUP=: …` leaves that out.
SETUP ?= tools/setup
JOBS ?= $(shell nproc)
# How many mistakes make mutation makes, and more arguments for tools/mutate.
MUTATIONS ?= 310
MUTATION_ARGS ?=
# More arguments for ctest, tools/static-analysis, the benchmarks and the terminal.
TEST_ARGS ?=
TIDY_ARGS ?=
BENCH_ARGS ?=
RUN_ARGS ?=
# What the fuzzers do: seconds for each, names (empty: all), how many at the same time.
FUZZ_SECONDS ?= 600
FUZZ_TARGETS ?=
FUZZ_JOBS ?= 1

# A value that cannot be meant ends the call before anything is built.
$(foreach name,JOBS MUTATIONS FUZZ_SECONDS FUZZ_JOBS,$(if $(shell echo '$($(name))' | grep -xE '[1-9][0-9]{0,8}'),,\
    $(error $(name)=$($(name)): give a whole number from 1)))
FUZZERS := $(sort $(patsubst fuzz_%.cpp,%,$(notdir $(wildcard fuzz/*/fuzz_*.cpp))))
$(foreach name,$(filter-out $(FUZZERS),$(FUZZ_TARGETS)),\
    $(error FUZZ_TARGETS=$(FUZZ_TARGETS): there is no fuzzer $(name); there are $(FUZZERS)))

.PHONY: help run test test-arm soak check-all asan tsan valgrind coverage mutation tidy bench fuzz docs install clean
.DEFAULT_GOAL := help

help:
	@echo 'make run      build the terminal and start it with the sample plug-ins on a simulated scale;'
	@echo '              without a display it plays a short demonstration and leaves screenshots'
	@echo 'make test     build everything and run all tests'
	@echo 'make test-arm run the tests of the library and scripts of the terminal on 32-bit ARM, in an emulator'
	@echo 'make soak     run the tests that take long by design'
	@echo 'make asan     run all tests with the address, leak and undefined-behaviour sanitizers'
	@echo 'make tsan     run the tests of what several threads use with the thread sanitizer'
	@echo 'make valgrind run the tests of life cycles under valgrind'
	@echo 'make tidy     analyse the sources with clang-tidy and clazy, the scripts with shellcheck'
	@echo 'make coverage run the tests of the library, and fail when they leave out more of it than is known'
	@echo 'make mutation make small mistakes in the library, and fail when the tests overlook a new one'
	@echo 'make check-all  everything that is too slow for every change: see CONTRIBUTING.md'
	@echo 'make bench    build and run the benchmarks; a table compares them with limits, peers and goals'
	@echo 'make fuzz     build and run the fuzzers; a table tells what they did and what they found'
	@echo 'make docs     write the reference and the guides as HTML'
	@echo 'make install  install library, terminal and SDK (PREFIX=$(PREFIX), DESTDIR=$(DESTDIR))'
	@echo 'make clean    remove build/'
	@echo
	@echo 'Missing Debian packages are installed on the way (tools/setup --help).'
	@echo 'Variables: JOBS=$(JOBS), TEST_ARGS for ctest, TIDY_ARGS for the analysis, BENCH_ARGS for the benchmarks,'
	@echo 'RUN_ARGS for the terminal, MUTATIONS=$(MUTATIONS), FUZZ_SECONDS=$(FUZZ_SECONDS), FUZZ_TARGETS and'
	@echo 'FUZZ_JOBS=$(FUZZ_JOBS) for the fuzzers.'

run:
	$(SETUP) --group run
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS) --target brimvale-terminal counting density formulation statistics weighing
	tools/run-terminal build/release $(RUN_ARGS)

test:
	$(SETUP) --group test
	cmake --preset dev
	cmake --build --preset dev --parallel $(JOBS)
	ctest --preset dev --parallel $(JOBS) $(TEST_ARGS)

test-arm:
	$(SETUP) --group arm
	tools/arm-sysroot build/arm
	cmake --preset arm
	cmake --build --preset arm --parallel $(JOBS)
	@# The table of this processor that the other's is compared with, where there is a build.
	@if [ -x build/dev/bin/results ]; then \
		cmake --build --preset dev --parallel $(JOBS) --target results && ctest --preset dev -R '^results$$' || true; fi
	ctest --preset arm --parallel $(JOBS) $(TEST_ARGS)

soak:
	$(SETUP) --group test
	cmake --preset dev
	cmake --build --preset dev --parallel $(JOBS)
	ctest --preset dev -C soak -L soak $(TEST_ARGS)

# One after the other, the quick ones first: each uses all processors.
check-all:
	$(MAKE) tidy
	$(MAKE) tsan
	$(MAKE) coverage
	$(MAKE) soak
	$(MAKE) test-arm
	ctest --test-dir build/arm/build --output-on-failure --parallel $(JOBS) -L exhaustive
	$(MAKE) valgrind
	$(MAKE) mutation
	$(MAKE) fuzz

asan:
	$(SETUP) --group test
	cmake --preset asan
	cmake --build --preset asan --parallel $(JOBS)
	ctest --preset asan --parallel $(JOBS) $(TEST_ARGS)

tsan:
	$(SETUP) --group test
	cmake --preset tsan
	cmake --build --preset tsan --parallel $(JOBS)
	ctest --preset tsan --parallel $(JOBS) $(TEST_ARGS)

valgrind:
	$(SETUP) --group valgrind
	cmake --preset valgrind
	cmake --build --preset valgrind --parallel $(JOBS)
	ctest --preset valgrind --test-dir build/valgrind -T memcheck --parallel $(JOBS) $(TEST_ARGS)

tidy:
	$(SETUP) --group test --group analysis
	cmake --preset dev
	tools/static-analysis --jobs $(JOBS) $(TIDY_ARGS)

# docs/quality.md says which branches are left. A long comparison of texts shows no more than a short one. What programs
# that are not run here make of inline functions is not counted, nor what the optimised plug-in of version 1.0 does.
coverage:
	$(SETUP) --group coverage
	cmake --preset coverage
	cmake --build --preset coverage --parallel $(JOBS)
	find build/coverage -name '*.gcda' -delete
	BRIMVALE_TEXT_COUNT=10000 ctest --preset coverage --parallel $(JOBS) $(TEST_ARGS)
	mkdir -p build/coverage/report
	gcovr --root . --object-directory build/coverage --filter src/ --filter include/ \
		--exclude-throw-branches --exclude-unreachable-branches \
		--exclude-directories '.*/(oldest|results|contract_probe)\.dir' --sort-uncovered --print-summary \
		--html-details build/coverage/report/index.html --fail-under-line 100 --fail-under-branch 96
	@echo 'Line by line: build/coverage/report/index.html'

mutation:
	$(SETUP) --group mutation
	tools/mutate --count $(MUTATIONS) --jobs $(JOBS) $(MUTATION_ARGS)

bench:
	$(SETUP) --group bench
	cmake --preset bench
	cmake --build --preset bench --parallel $(JOBS)
	rm -rf build/bench/results
	mkdir -p build/bench/results
	@set -e; for benchmark in build/bench/bin/bench_*; do \
		name=$${benchmark##*/}; echo "running $$name"; \
		"$$benchmark" --benchmark_repetitions=9 --benchmark_min_time=0.1 \
			--benchmark_enable_random_interleaving=true --benchmark_out_format=json \
			--benchmark_out="build/bench/results/$$name.json" $(BENCH_ARGS) >/dev/null; \
	done
	@tools/bench-table --goals benchmarks/goals.json --json build/bench/table.json build/bench/results/*.json
	@echo 'As JSON: build/bench/table.json'

fuzz:
	$(SETUP) --group fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz --parallel $(JOBS) $(if $(FUZZ_TARGETS),--target $(FUZZ_TARGETS:%=fuzz_%))
	tools/fuzz --seconds $(FUZZ_SECONDS) --jobs $(FUZZ_JOBS) $(FUZZ_TARGETS)

docs:
	$(SETUP) --group docs
	cmake --preset release
	cmake --build --preset release --target docs
	@echo 'Documentation: build/release/docs/html/index.html'

install:
	$(SETUP)
	cmake --preset release -DCMAKE_INSTALL_PREFIX='$(abspath $(PREFIX))'
	cmake --build --preset release --parallel $(JOBS)
	DESTDIR='$(abspath $(DESTDIR))' cmake --install build/release

clean:
	rm -rf build
