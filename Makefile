# Everything a newcomer needs: `make demo` and `make test`. Both install what is missing (root on Debian 12).
PRESET ?= release
BUILD := build/$(PRESET)

.PHONY: all demo test corpus bench fuzz format check-format tidy setup clean

all: build

setup:
	@tools/setup.sh

build: setup
	@cmake --preset $(PRESET) > build-$(PRESET).log 2>&1 || { cat build-$(PRESET).log; rm -f build-$(PRESET).log; exit 1; }
	@rm -f build-$(PRESET).log
	cmake --build $(BUILD) -j2

.PHONY: build

demo: build
	tools/demo.sh $(BUILD)

test: build
	ctest --test-dir $(BUILD) --output-on-failure

# Opens and saves every drawing below DIR and compares the bytes: make corpus DIR=/some/drawings
corpus: build
	tools/corpus.sh $(BUILD) "$(DIR)"

bench: build
	bench/run.sh $(BUILD)

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

check-format:
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror

clean:
	rm -rf build
