# Convenience targets around CMake presets.
.PHONY: run test build clean fuzz

# Installs only what the release build needs, builds the release binary
# and scans a directory every machine has.
RUN_TREE ?= /usr/share
run:
	scripts/install-deps.sh --build
	cmake --preset release -DZORVANE_BUILD_TESTS=OFF >/dev/null
	cmake --build --preset release --target zorvane-cli
	build/release/src/app/zorvane-cli scan $(RUN_TREE)

# Installs what is missing, builds and runs every test: native, sanitizers,
# and the Windows binaries under Wine.
test:
	scripts/test.sh

# Runs every fuzz target for five minutes on its corpus, kept between runs
# in build/fuzz/corpus/.
fuzz:
	scripts/install-deps.sh
	fuzz/run-fuzzers.sh 300

build:
	cmake --preset debug
	cmake --build --preset debug

clean:
	rm -rf build
