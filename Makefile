# Convenience targets around CMake presets.
.PHONY: run test build clean

# Builds the release binary and runs the command-line program.
run:
	scripts/install-deps.sh
	cmake --preset release -DZORVANE_BUILD_TESTS=OFF >/dev/null
	cmake --build --preset release --target zorvane-cli
	build/release/src/app/zorvane-cli --version

# Installs what is missing, builds and runs every test: native, sanitizers,
# and the Windows binaries under Wine.
test:
	scripts/test.sh

build:
	cmake --preset debug
	cmake --build --preset debug

clean:
	rm -rf build
