# Two entry points: `make demo` and `make test`. Both install what is missing first.
JOBS ?= $(shell nproc)

.PHONY: demo test bootstrap build build-asan bench clean format

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
	./build/dev/app/talven examples/rig.mel

test: build
	ctest --preset dev
	$(MAKE) --no-print-directory build-asan
	ctest --preset asan

bench: bootstrap
	cmake --preset release >/dev/null
	cmake --build --preset release -j $(JOBS)
	bash bench/run.sh build/release

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf build
