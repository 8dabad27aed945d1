# Vocalog: `make run` builds and runs the program on the bundled sample data;
# `make test` builds with the sanitizers and runs every test.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
RELEASE := build
CHECKED := build-asan

.PHONY: all deps build build-checked run test bench fuzz clean

all: build

deps:
	@bash scripts/install-deps.sh

$(RELEASE)/CMakeCache.txt:
	cmake -S . -B $(RELEASE) -DCMAKE_BUILD_TYPE=Release -DVOCALOG_TESTS=OFF

$(CHECKED)/CMakeCache.txt:
	cmake -S . -B $(CHECKED) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVOCALOG_SANITIZE=ON -DVOCALOG_BENCH=OFF

build: deps $(RELEASE)/CMakeCache.txt
	cmake --build $(RELEASE) -j $(JOBS)

build-checked: deps $(CHECKED)/CMakeCache.txt
	cmake --build $(CHECKED) -j $(JOBS)

run: build
	@bash scripts/run.sh $(RELEASE)

test: build-checked
	cd $(CHECKED) && ctest --output-on-failure -j $(JOBS)

bench: build
	@bash scripts/bench.sh $(RELEASE)

# Fuzzes the file readers for FUZZ_SECONDS (clang's libFuzzer), starting from the sample world.
FUZZ_SECONDS ?= 300
fuzz:
	@bash scripts/install-deps.sh fuzz
	CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVOCALOG_FUZZ=ON -DVOCALOG_TESTS=OFF -DVOCALOG_BENCH=OFF
	cmake --build build-fuzz -j $(JOBS) --target fuzz_readers vocalog-gen-prefs
	@bash scripts/fuzz.sh build-fuzz $(FUZZ_SECONDS)

clean:
	rm -rf $(RELEASE) $(CHECKED) build-fuzz
