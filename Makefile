# Convenience targets around CMake presets.
.PHONY: run test build clean fuzz

# Installs only what the release build needs, builds the release binary and
# runs the example settings file unattended: it scans /usr/share and writes
# its reports, with the date in their names, into build/reports/.
run:
	scripts/install-deps.sh --build
	cmake --preset release -DZORVANE_BUILD_TESTS=OFF >/dev/null
	cmake --build --preset release --target zorvane-cli
	mkdir -p build/reports
	build/release/src/app/zorvane-cli examples/usr-share.zorvane
	@echo "Reports written to $(CURDIR)/build/reports/:"
	@ls -1 build/reports/*_$$(date +%Y_%m_%d).html

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
