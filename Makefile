# The thin front of the build, for people and for CI. What a target does stands in CMakePresets.json and scripts/.

PRESET = release
WHAT = instructions
SOURCES = $(shell git ls-files '*.h' '*.c' '*.cpp')

# install-dependencies.sh ends with 3 when a part is missing that can be left out.
needs = @sh scripts/install-dependencies.sh library $(1) || [ $$? -eq 3 ]
needs_instructions = mips
needs_libraries = libraries
needs_size = mips
needs_stack = mips

.PHONY: all help demo check test mips machines musl bench soak fuzz coverage mutation docs contracts packages lint format install \
	clean
.DEFAULT_GOAL := all

all: ## the plug-in for this machine, in build/release
	$(call needs)
	@sh scripts/build.sh release kelmora_json

help: ## this list
	@awk -F ':.*## ' '/^[a-z]+:.*## / { printf "  make %-10s %s\n", $$1, $$2 }' Makefile

demo: ## builds the development host too, and shows the plug-in's main job on real input
	$(call needs,host)
	@sh scripts/build.sh release kelmora_json kelmora-host
	@sh scripts/demo.sh

check: ## everything that must hold, on x86-64, with sanitizers and on MIPS
	$(call needs,host test sanitize mips machines lint bench docs browser packages)
	@sh scripts/check.sh

test: ## the quick loop while working: the tests of PRESET (release), with gcc on this machine
	$(call needs,host test)
	@sh scripts/build.sh $(PRESET)
	@ctest --preset $(PRESET)

mips: ## the target's plug-in, host and tests, in build/mips
	$(call needs,host test mips)
	@sh scripts/build.sh release selftest_vectors
	@sh scripts/build-sysroot.sh mips-linux-gnu
	@sh scripts/build.sh mips

machines: ## unit tests, contracts and self-test on further machines: build/arm and build/s390x
	$(call needs,host test mips machines)
	@sh scripts/build.sh release selftest_vectors learned_contracts
	@sh scripts/test_machines.sh arm-linux-gnueabihf s390x-linux-gnu

musl: ## the target's plug-in and self-test with musl, in build/mips-musl
	$(call needs,host mips)
	@sh scripts/build.sh release selftest_vectors
	@sh scripts/build-musl-sysroot.sh
	@sh scripts/build.sh mips-musl

bench: ## measures WHAT (instructions): instructions, time, libraries, size or stack
	$(call needs,host bench $(needs_$(WHAT)))
	@sh scripts/bench.sh $(WHAT)

soak: ## CALLS (1000000) random calls, with the known leaks, then without
	$(call needs,host)
	@sh scripts/soak.sh $(or $(CALLS),1000000)

fuzz: ## runs the fuzzers for SECONDS (60)
	$(call needs,host test sanitize)
	@sh scripts/fuzz.sh $(or $(SECONDS),60)

coverage: ## the lines and branches of the library that the unit tests run; fails below 100 % and 95 %
	$(call needs,host test coverage)
	@sh scripts/coverage.sh

mutation: ## makes small faults in the library, one at a time; 95 % must fail a unit test
	$(call needs,host test)
	@python3 -B scripts/mutate.py

docs: ## the reference of all resources, in build/docs
	$(call needs,host docs)
	@sh scripts/build.sh release kelmora_json kelmora-host
	@sh scripts/make_docs.sh

contracts: ## makes schemas/ and types/ anew from the plug-in
	$(call needs,host)
	@sh scripts/build.sh release kelmora_json kelmora-host
	@sh scripts/make_contract_files.sh

packages: ## Debian packages for this machine and archives for the target, in build/packages
	$(call needs,host mips docs packages)
	@sh scripts/make_packages.sh

lint: ## clang-format, clang-tidy and shellcheck find nothing
	$(call needs,host test sanitize bench lint)
	@sh scripts/lint.sh

format: ## clang-format all sources in place
	$(call needs,lint)
	@clang-format -i $(SOURCES)

install: all ## puts plug-in, headers and package files below PREFIX (and DESTDIR)
	@cmake --install build/release $(if $(PREFIX),--prefix $(PREFIX))

clean: ## removes build/
	@rm -rf build
