# The thin front of the build, for people and for CI. What a target does stands in CMakePresets.json and scripts/.

RELEASE = build/release
SOURCES = $(shell git ls-files '*.h' '*.c' '*.cpp')

.PHONY: all help demo check test soak fuzz coverage mutation bench bench-instructions bench-peers \
	mips size stack debug asan tsan lint format install dependencies clean
.DEFAULT_GOAL := all

all: ## the release library, build/release/libkelmora_json.so.1.3.0
	@sh scripts/build.sh release kelmora_json

help: ## this list
	@awk -F ':.*## ' '/^[a-z -]+:.*## / { printf "  make %-20s %s\n", $$1, $$2 }' Makefile

demo: dependencies ## the main job on real input, with the development host
	@sh scripts/build.sh release kelmora_json kelmora-host
	@sh scripts/demo.sh

check: dependencies ## everything that must hold: all tests on x86-64, with sanitizers and on MIPS, the ABI, lint
	@sh scripts/check.sh

test: ## the quick inner loop: the tests on x86-64
	@sh scripts/build.sh release
	@ctest --preset release

soak: ## CALLS (1000000) random reads and writes, with documents kept as by contract, then with none kept
	@sh scripts/soak.sh $(or $(CALLS),1000000)

fuzz: ## runs both fuzzers for SECONDS (60) over the kept corpus
	@sh scripts/fuzz.sh $(or $(SECONDS),60)

coverage: dependencies ## the lines and branches of the library that the unit tests run; fails below 100 % and 95 %
	@sh scripts/coverage.sh

mutation: dependencies ## makes a sample of small faults in the library, one at a time; 95 % must fail a unit test
	@python3 -B scripts/mutate.py

bench: dependencies ## times every translator, a dozen beside the least that the JSON library takes for the same
	@sh scripts/build.sh release kelmora-bench
	@$(RELEASE)/kelmora-bench --benchmark_min_time=0.2

bench-instructions: dependencies ## counts instructions, allocations and heap of the dozen and of that least
	@sh scripts/build.sh release kelmora-bench-instructions kelmora-bench-allocations
	@python3 -B scripts/bench_instructions.py release
	@sh scripts/build-mips-sysroot.sh
	@sh scripts/build.sh mips kelmora-bench-instructions kelmora-bench-allocations
	@python3 -B scripts/bench_instructions.py mips

bench-peers: dependencies ## the library beside other JSON libraries that do the same: instructions, allocations, peak heap
	@sh scripts/build.sh release kelmora-bench-peers kelmora-bench-peers-heap
	@python3 -B scripts/bench_peers.py

mips: ## the target's library, host and tests, in build/mips
	@sh scripts/build-mips-sysroot.sh
	@sh scripts/build.sh mips

size: dependencies ## what the target's plug-in takes of a device: bytes by section and unit, relocations, pages
	@sh scripts/build-mips-sysroot.sh
	@sh scripts/build.sh mips kelmora_json kelmora-bench-pages
	@python3 -B scripts/size.py

stack: dependencies ## what stack its translators take, measured and as the compiler states it
	@sh scripts/build-mips-sysroot.sh
	@sh scripts/build.sh mips kelmora_json kelmora-bench-stack
	@python3 -B scripts/stack.py

debug asan tsan: ## builds of everything, in build/debug, build/asan, build/tsan
	@sh scripts/build.sh $@

lint: ## clang-format and clang-tidy find nothing
	@sh scripts/lint.sh

format: ## clang-format all sources in place
	@clang-format -i $(SOURCES)

install: all ## puts library, headers and package files below PREFIX (and DESTDIR)
	@cmake --install $(RELEASE) $(if $(PREFIX),--prefix $(PREFIX))

dependencies: ## installs what building and testing need (Debian, as root or through sudo)
	@sh scripts/install-dependencies.sh || [ $$? -eq 3 ]

clean: ## removes build/
	@rm -rf build
