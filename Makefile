# A thin front over the CMake presets; `make help` lists what there is.

PREFIX ?= /usr/local
DESTDIR ?=
JOBS = $(shell nproc)

BUILD = build/release
CXX_FILES = find . -path ./build -prune -o -path ./.git -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0

.DEFAULT_GOAL := help
.PHONY: help demo build test test-windows package-windows bench bench-windows windows-libraries generate format check \
        format-check types install packages check-packages

help:
	@echo 'make demo      show the starter configuration as a tree'
	@echo 'make build     build everything into $(BUILD)'
	@echo 'make test      build everything and run the tests'
	@echo 'make test-windows  build everything for Windows, 64-bit and 32-bit, and run the tests under wine'
	@echo 'make package-windows  a zip for Windows: both servers, an install script and a configuration'
	@echo 'make bench     build and run the benchmarks'
	@echo 'make bench-windows  the same of calls through the Windows server'
	@echo 'make install   install below PREFIX ($(PREFIX)), staged below DESTDIR'
	@echo 'make generate  write the manuals, the interface description and the Python stubs anew'
	@echo 'make format    format the C++ files in place'
	@echo 'make types     check the types of the Python stubs, their tests and the sample in the README'
	@echo 'make check     format, types, clang-tidy, tests with sanitizers, and no warnings from clang or gcc'
	@echo
	@echo 'demo, build, test, bench and install need the Debian packages that tools/install-dependencies'
	@echo 'names, check a few more; what is missing is installed with apt-get.'

packages:
	@tools/install-dependencies

check-packages:
	@tools/install-dependencies check

demo: packages
	@cmake --preset release --log-level=WARNING
	@cmake --build --preset release --target lwconfig-cli
	@$(BUILD)/bin/lwconfig show --config share/starter

build: packages
	cmake --preset release
	cmake --build --preset release

test: build
	ctest --preset release -j $(JOBS)

windows-libraries:
	tools/windows-libraries build/windows
	cmake --preset windows
	cmake --preset windows-32

package-windows: packages windows-libraries
	cmake --preset release --log-level=WARNING
	cmake --build --preset release --target lwconfig-cli
	cmake --build --preset windows --target LWConfigObjects lwconfig_interface
	cmake --build --preset windows-32 --target LWConfigObjects lwconfig_interface
	tools/windows-package build/windows $(BUILD)/bin/lwconfig

# What cannot run is said last, where it is seen.
test-windows: package-windows
	cmake --build --preset windows
	cmake --build --preset windows-32
	tools/windows-prefix
	ctest --preset windows
	[ -e build/windows/no-32-bit ] || ctest --preset windows-32
	cmake -D ZIP=$$(ls build/windows/LWConfigObjects-*-windows.zip) -D RUN=$(CURDIR)/tools/windows-run \
	  -D WORK_DIR=$(CURDIR)/build/windows/package-test $$([ ! -e build/windows/no-32-bit ] || echo -D NO_32_BIT=ON) \
	  -P tests/packaging/windows_test.cmake
	@[ ! -e build/windows/no-32-bit ] || \
	  echo "The 32-bit programs were built and NOT run: $$(cat build/windows/no-32-bit)."

bench-windows: windows-libraries
	cmake --build --preset windows --target lwconfig_com_bench
	tools/windows-prefix
	tools/windows-run build/windows/release/bin/lwconfig_com_bench.exe

bench: build
	$(BUILD)/bin/lwconfig_bench
	PYTHONPATH=build/python /usr/bin/python3 bench/python/attributes.py

install: build
	cmake --install $(BUILD) --prefix $(PREFIX)
	if [ -z "$(DESTDIR)" ] && [ "$$(id -u)" = 0 ]; then ldconfig; fi

generate: packages
	cmake --preset release
	cmake --build --preset release --target generate

format: check-packages
	$(CXX_FILES) | xargs -0 clang-format-14 -i

format-check: check-packages
	$(CXX_FILES) | xargs -0 clang-format-14 --dry-run -Werror

types: check-packages
	tools/check-types

# One build serves clang's warnings, clang-tidy and the sanitizers, the other gcc's warnings.
check: format-check types
	cmake --preset check
	cmake --build --preset check -- -k 0
	ctest --preset check -j $(JOBS)
	cmake --preset release -D LWCONFIG_WERROR=ON
	cmake --build --preset release -- -k 0
