# Everything a newcomer needs: `make demo` and `make test`. Both install what is missing (root on Debian 12).
PRESET ?= release
BUILD := build/$(PRESET)

.PHONY: all setup build install deb demo desktop pictures test corpus bench fuzz tidy format check-format clean

all: build

setup:
	@tools/setup.sh

build: setup
	cmake --preset $(PRESET) --log-level=WARNING
	cmake --build $(BUILD) -j2

# make install PREFIX=/usr/local
PREFIX ?= /usr/local
install: build
	cmake --build $(BUILD) -j2 --target kovra_manual
	cmake --install $(BUILD) --prefix "$(PREFIX)" --strip

# In build/release: kovra_VERSION_ARCHITECTURE.deb, and kovra-desktop_... which needs it and Qt
deb: build
	cmake --build $(BUILD) -j2 --target kovra_manual kovra_changelog
	cd $(BUILD) && cpack

demo: build
	tools/demo.sh $(BUILD)

# The window, on a copy of the example project.
desktop: build
	rm -rf build/desktop-demo && mkdir -p build/desktop-demo && cp -r examples/panel build/desktop-demo/
	$(BUILD)/bin/kovra-desktop -p build/desktop-demo/panel --state build/desktop-demo/state.db \
	  build/desktop-demo/panel/*.dxf

# The pictures in docs/: every dialog in both languages, columns of texts, a sheet of the demo.
pictures: demo
	tools/make_pictures.py $(BUILD)/bin/kovra docs/dialogs
	tools/make_align_pictures.py $(BUILD)/bin/kovra docs/aligning
	cp build/demo/pictures/terminals-after.svg docs/terminals.svg
	tools/make_window_picture.py $(BUILD)/bin/kovra-desktop examples/panel docs/desktop.png

test: build
	ctest --test-dir $(BUILD) -j2 --output-on-failure

# Opens and saves every drawing below DIR and compares the bytes: make corpus DIR=/some/drawings
corpus: build
	tools/corpus.sh $(BUILD) "$(DIR)"

bench: build
	bench/run.sh $(BUILD)

# The parser under a fuzzer for a bounded time; a seed other than 0 makes runs alike.
SECONDS_TO_RUN ?= 300
SEED ?= 0
fuzz: setup
	fuzz/run.sh build/fuzz $(SECONDS_TO_RUN) $(SEED)

# The analyser over all sources.
tidy: setup
	tools/tidy.sh build/tidy

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

check-format:
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror

clean:
	rm -rf build
