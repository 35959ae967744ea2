# Two entry points: `make demo` and `make test`. Both install what is missing first.
JOBS ?= $(shell nproc)

.PHONY: demo test soak bootstrap build build-asan bench fuzz fuzz-corpus clean format

bootstrap:
	@bash scripts/bootstrap.sh

build: bootstrap
	cmake --preset dev >/dev/null
	cmake --build --preset dev -j $(JOBS)

build-asan: bootstrap
	cmake --preset asan >/dev/null
	cmake --build --preset asan -j $(JOBS)

demo: build
	./build/dev/app/talven examples/quickstart.mel
	./build/dev/app/talven examples/quickstart.py
	./build/dev/app/talven examples/rig.mel

test: build
	ctest --preset dev
	$(MAKE) --no-print-directory fuzz FUZZ_SECONDS=5
	$(MAKE) --no-print-directory build-asan
	ctest --preset asan

# The undo property test over many more random command sequences, with a new seed each run
# (SOAK_SEED=… repeats one).
SOAK_ROUNDS ?= 2000
SOAK_SEED ?= $(shell date +%s)
soak: build
	TALVEN_UNDO_ROUNDS=$(SOAK_ROUNDS) TALVEN_UNDO_SEED=$(SOAK_SEED) \
	    ./build/dev/tests/talven_tests --gtest_filter='UndoSequence.*'

bench: bootstrap
	cmake --preset release >/dev/null
	cmake --build --preset release -j $(JOBS)
	bash bench/run.sh build/release

# Every fuzz target of fuzz/ for FUZZ_SECONDS each, built with clang under ASan and UBSan.
FUZZ_SECONDS ?= 60
fuzz: bootstrap
	cmake -S fuzz -B build/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
	cmake --build build/fuzz -j $(JOBS)
	bash fuzz/run.sh build/fuzz $(FUZZ_SECONDS)

# Regenerates the seed corpora from the test cases.
fuzz-corpus: build
	TALVEN_DELTA_CORPUS=fuzz/corpus/delta_scanner ./build/dev/tests/talven_tests --gtest_filter='DeltaFileScanner.SeedCorpus'

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf build
