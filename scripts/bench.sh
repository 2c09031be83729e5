#!/usr/bin/env bash
# Builds the benchmarks (the `bench` preset: release, Google Benchmark, Boost.Serialization for
# the reference) and runs them, then measures the tool's commands as whole processes against
# `persona info` (bench/commands.sh); installs what it needs first. Extra arguments go to
# persona_bench (Google Benchmark options, e.g. --benchmark_filter=load); COMMANDS=0 leaves the
# whole-process part out.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh bench >&2
cmake --preset bench >&2
cmake --build --preset bench --target persona_bench persona_tool persona_sample_tool >&2
build/bench/bench/persona_bench "$@"
if [[ ${COMMANDS:-1} != 0 ]]; then
  echo
  echo "Whole-process commands against persona info:"
  bench/commands.sh build/bench
fi
