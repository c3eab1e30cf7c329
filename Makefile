# The two commands of the project: `make demo` and `make test`.
BUILD ?= build
DATOS ?= $(CURDIR)/datos
JOBS ?= $(shell nproc)

.PHONY: all deps configure build demo test bench clean format

all: build

deps:
	@scripts/dependencias.sh

configure: deps
	@if [ ! -f $(BUILD)/build.ninja ]; then \
		cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVK_WERROR=ON; \
	fi

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

demo: build
	@$(BUILD)/app/vkfactuven demo --db $(DATOS)

test: build
	@scripts/pruebas.sh $(BUILD)

format:
	@find core fiscal engine runs issue accounting reports suite ui app bench tests \
		\( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format -i

bench: build
	@scripts/bench.sh $(BUILD)

clean:
	rm -rf $(BUILD)
