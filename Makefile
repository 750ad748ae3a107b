# The thin front door; CMake does the work. Each target installs the missing packages first.

PRESET ?= release
BUILD = build/$(PRESET)
JOBS ?= $(shell nproc)
# Tests of windows wait most of their time.
TEST_JOBS ?= $(shell expr $(JOBS) + 2)
PACKAGES = $(shell sed 's/\#.*//' packages.txt)

PREFIX ?= /usr/local

.PHONY: all run test bench check check-all check-format format docs install package setup clean

all: $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

# Installs what is missing, and asks for rights only then.
setup:
	@tools/install-packages $(foreach package,$(PACKAGES),'$(package)')

$(BUILD)/build.ninja: packages.txt | setup
	cmake --preset $(PRESET)

# The host, or without a display its tour; nothing else is built.
run: setup $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS) --target $(if $(DISPLAY)$(WAYLAND_DISPLAY),tessaron-host,tessaron-tour)
	tools/run-host $(BUILD)

test: setup all
	ctest --test-dir $(BUILD) --output-on-failure -j $(TEST_JOBS)

bench: setup $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS) --target bench
	tools/bench $(BUILD)

# The analysis takes minutes: `check` looks at what differs from the last release, or includes what does, and `check-all`
# at everything. It has a build folder of its own, since clang cannot read the precompiled headers of another compiler.
check: CHECK_SINCE = --since $(shell cat cmake/last-release)
check check-all: setup
	cmake --preset $(PRESET) -B build/check -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON
	tools/check build/check $(CHECK_SINCE)

check-format: setup
	git ls-files '*.h' '*.cpp' '*.c' | xargs clang-format --dry-run -Werror

format: setup
	git ls-files '*.h' '*.cpp' '*.c' | xargs clang-format -i

# The reference of the public headers and the pages of docs/, in build/docs/html. Any warning is an error.
docs: PACKAGES = doxygen
docs: setup
	tools/make-docs build/docs

# DESTDIR is honoured.
install: setup all
	cmake --install $(BUILD) --prefix $(PREFIX)

package: setup all
	cpack --config $(BUILD)/CPackConfig.cmake -B $(BUILD)

clean:
	rm -rf build
