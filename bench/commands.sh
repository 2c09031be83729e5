#!/usr/bin/env bash
# Whole-process cost of the persona tool's commands on a big personality (65,000 conventional
# channels in sets of 4,096, written by persona-sample), each against `persona info` (one load)
# in the same run: the fastest of RUNS runs of each command, its wall time and its peak
# resident memory, then the ratios to info with met/missed against the goals (at most 5 x the
# time and 3 x the memory; import, which parses a document many times the file's size, at most
# 10 x and 4 x). Outputs are written to files, so their writing counts.
#
#   bench/commands.sh [BUILD_DIR]   (default build/bench; RUNS=3 and CHANNELS=65000 from the
#                                    environment)
set -euo pipefail
build=${1:-build/bench}
persona=$build/tools/persona/persona
sample=$build/tools/sample/persona-sample
runs=${RUNS:-3}
channels=${CHANNELS:-65000}
for exe in "$persona" "$sample"; do
  [[ -x $exe ]] || { echo "commands.sh: $exe is not built" >&2; exit 2; }
done
[[ -x /usr/bin/time ]] || { echo "commands.sh: /usr/bin/time is needed (apt-get install time)" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$sample" --channels "$channels" --per-set 4096 -o "$work/big.pers"
# A second file of the same shape whose last set is a few channels shorter, for the diff.
"$sample" --channels $((channels - 10)) --per-set 4096 -o "$work/other.pers"
"$persona" export "$work/big.pers" -o "$work/big.json"

# measure NAME COMMAND...: the fastest run's wall seconds (the shell's clock, finer than time's)
# and its peak RSS in kB (GNU time), as "NAME SEC KB".
measure() {
  local name=$1 best_s="" best_kb="" s kb status
  shift
  for ((i = 0; i < runs; i++)); do
    rm -f "$work"/out.*
    status=0
    local start=$EPOCHREALTIME
    /usr/bin/time -f "%M" -o "$work/time" "$@" >/dev/null 2>"$work/stderr" || status=$?
    local end=$EPOCHREALTIME
    # diff exits 1 when the files differ; anything else is a failure.
    if ((status != 0)) && ! [[ $name == diff && $status == 1 ]]; then
      echo "commands.sh: $name failed (exit $status):" >&2
      cat "$work/stderr" >&2
      exit 1
    fi
    s=$(awk -v a="$start" -v b="$end" 'BEGIN { printf "%.3f", b - a }')
    kb=$(tail -n 1 "$work/time")
    if [[ -z $best_s ]] || awk -v a="$s" -v b="$best_s" 'BEGIN { exit !(a < b) }'; then
      best_s=$s best_kb=$kb
    fi
  done
  echo "$name $best_s $best_kb"
}

{
  measure info "$persona" info "$work/big.pers"
  measure check "$persona" check "$work/big.pers"
  measure report "$persona" report "$work/big.pers" -o "$work/out.txt"
  measure export "$persona" export "$work/big.pers" -o "$work/out.json"
  measure import "$persona" import "$work/big.json" -o "$work/out.pers"
  measure diff "$persona" diff "$work/big.pers" "$work/other.pers"
  measure merge "$persona" merge "$work/big.pers" "$work/other.pers" --prefer a --force -o "$work/out.pers"
  measure prune "$persona" prune "$work/big.pers" --dry-run
} >"$work/results"

printf '%s channels, %s bytes; fastest of %s runs\n' "$channels" \
  "$(stat -c %s "$work/big.pers")" "$runs"
awk '
  NR == 1 { t0 = $2 > 0 ? $2 : 0.01; m0 = $3 }
  {
    t = $2 > 0 ? $2 : 0.01
    xt = t / t0; xm = $3 / m0
    goal_t = ($1 == "import") ? 10 : 5; goal_m = ($1 == "import") ? 4 : 3
    verdict = (xt <= goal_t && xm <= goal_m) ? "met" : "missed"
    printf "%-8s %7.3f s %8.1f MB   x info: time %5.1f (<= %2d)  memory %5.1f (<= %d)  %s\n",
           $1, $2, $3 / 1024, xt, goal_t, xm, goal_m, verdict
  }' "$work/results"
