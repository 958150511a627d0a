# The whole of Corvane by one word each; `make help` lists the words.
SHELL := /bin/bash
.SHELLFLAGS := -euo pipefail -c
.DEFAULT_GOAL := help
.PHONY: help packages run test asan fuzz tsan coverage bench docs screenshots package format tidy clean

export CTEST_PARALLEL_LEVEL ?= $(shell nproc)

help: ## list these words
	@sed -nE 's/^([a-z]+):.*## (.*)/  make \1\t\2/p' $(MAKEFILE_LIST) | expand -t 18

packages:
	@tools/install-packages

run: packages ## build, show everything that is inside a sample file, and change a copy of it
	@cmake --preset release
	@cmake --build --preset release --target tour corvane-cli
	@build/release/apps/cli/corvane show build/release/examples/tour.mp3
	@printf '\n\nA copy of it is given another title and another picture:\n\n'
	@cp build/release/examples/tour.mp3 build/release/examples/changed.mp3
	@build/release/apps/cli/corvane set build/release/examples/changed.mp3 --title "The Chord, Changed and Saved" \
		--picture build/release/examples/cover.png
	@printf '\n\n'
	@build/release/apps/cli/corvane show build/release/examples/changed.mp3

test: packages ## build and run all tests, those of units, controls and editor under sanitizers once more, and the fuzz targets for a moment
	cmake --workflow --preset test
	cmake --workflow --preset asan
	cmake --workflow --preset fuzz

tsan: packages ## the unit tests under ThreadSanitizer
	cmake --workflow --preset tsan

coverage: packages ## the tests with a table of the lines that they reach
	cmake --workflow --preset coverage
	tools/coverage build/coverage

bench: packages ## build the benchmarks and print their table
	cmake --preset release
	cmake --build --preset release --target bench/all corvane-cli tour
	tools/bench-table build/release

docs: packages ## build the API reference of the published headers
	@docs/reference/build.py build/reference
	@echo build/reference/html/index.html

screenshots: packages ## take pictures of the controls and of the editor, into build/screenshots
	cmake --preset dev
	cmake --build --preset dev --target controls-screenshots editor-screenshots corvane-cli tour
	tools/screenshots build/dev build/screenshots

package: packages ## make the Debian packages build/package/*.deb and try them
	cmake --workflow --preset package

format: packages ## format every C++ file
	tools/format

tidy: packages ## run clang-tidy
	tools/tidy

clean: ## remove everything that was built
	rm -rf build
