#!/usr/bin/env bash
# Builds the libFuzzer targets (the `fuzz` preset, clang) and runs each for a bounded time.
#   scripts/fuzz.sh [SECONDS] [TARGET...]
# SECONDS defaults to 60 per target; the JSON import target runs five times as long, since a
# value of the wrong type in one field of a whole document takes it longer to reach than a
# damaged byte takes the archive loaders. TARGET defaults to all four. Fails on any finding (a
# crash, a sanitizer report, a leak, a timeout, an allocation over the limit); the input that
# caused it is left in build/fuzz-work/artifacts/. The corpus grown by earlier runs is kept
# in build/fuzz-work/corpus/TARGET and reused; the checked-in seeds are in fuzz/seeds/.
# PERSONA_FUZZ_NO_BUILD=1 skips the build (for running several targets side by side).
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${1:-60}"
shift || true
targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
  targets=(fuzz_load_personality fuzz_load_set fuzz_import_json fuzz_import_csv)
fi

if [[ "${PERSONA_FUZZ_NO_BUILD:-0}" != 1 ]]; then
  scripts/install-deps.sh fuzz
  cmake --preset fuzz >/dev/null
  cmake --build --preset fuzz
fi

work=build/fuzz-work
mkdir -p "$work/artifacts"

# Seed folders of a target: generated seeds of its kind, and for the binary loaders the
# archive vectors of the tests.
seeds_of() {
  case "$1" in
    fuzz_load_personality) echo "fuzz/seeds/personality tests/data/vectors" ;;
    fuzz_load_set) echo "fuzz/seeds/set tests/data/vectors" ;;
    fuzz_import_json) echo "fuzz/seeds/json" ;;
    fuzz_import_csv) echo "fuzz/seeds/csv" ;;
    *) echo "unknown fuzz target: $1" >&2; return 1 ;;
  esac
}

# The archive loaders get the class names with their new-class tags; JSON import gets the
# class and field names as JSON strings.
dict_of() {
  case "$1" in
    fuzz_import_json) echo fuzz/json.dict ;;
    fuzz_import_csv) echo fuzz/csv.dict ;;
    *) echo fuzz/archive.dict ;;
  esac
}

status=0
for target in "${targets[@]}"; do
  seeds=$(seeds_of "$target")
  corpus="$work/corpus/$target"
  mkdir -p "$corpus"
  log="$work/$target.log"
  time_of_target=$seconds
  [[ "$target" == fuzz_import_json ]] && time_of_target=$((seconds * 5))
  rm -f "$work/artifacts/$target-"*
  echo "== $target: ${time_of_target}s (log: $log)"
  rc=0
  # shellcheck disable=SC2086  # seeds is a list of folders
  ASAN_OPTIONS="detect_leaks=1:allocator_may_return_null=0" \
    UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1" \
    "build/fuzz/fuzz/$target" -max_total_time="$time_of_target" -max_len=65536 -timeout=10 \
    -rss_limit_mb=2048 -malloc_limit_mb=512 -dict="$(dict_of "$target")" \
    -artifact_prefix="$work/artifacts/$target-" -print_final_stats=1 \
    "$corpus" $seeds >"$log" 2>&1 || rc=$?
  grep -E '^stat::(number_of_executed_units|peak_rss_mb)|^Done |INFO: seed corpus' "$log" || true
  echo "   corpus: $(find "$corpus" -type f | wc -l) inputs"
  if [[ $rc -ne 0 ]] || ls "$work/artifacts/$target-"* >/dev/null 2>&1; then
    echo "FINDING in $target (exit $rc):" >&2
    grep -E 'ERROR|SUMMARY|runtime error|Test unit written' "$log" | head -20 >&2 || true
    status=1
  fi
done
exit $status
