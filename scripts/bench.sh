#!/usr/bin/env bash
# Builds the benchmarks (the `bench` preset: release, Google Benchmark, Boost.Serialization for
# the reference) and runs them; installs what it needs first. Extra arguments go to
# persona_bench (Google Benchmark options, e.g. --benchmark_filter=load).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh bench >&2
cmake --preset bench >&2
cmake --build --preset bench --target persona_bench >&2
exec build/bench/bench/persona_bench "$@"
