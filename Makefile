# The two commands that matter: `make run` and `make test`.
BUILD ?= build
JOBS  ?= $(shell nproc)

.PHONY: run test build configure deps bench clean

deps:
	@scripts/deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

run: build
	$(BUILD)/bin/quillo

test: build
	tests/desktop-session.sh ctest --test-dir $(BUILD) --output-on-failure --timeout 300

bench: configure
	@scripts/deps.sh --bench
	@cmake --build $(BUILD) -j $(JOBS)
	bench/run-all.sh $(BUILD)

clean:
	rm -rf $(BUILD)
