#!/usr/bin/env bash
# End-to-end tests of `persona csv`: the real binary on the bundled sample, edits made by
# Python's csv module, and a trip through a real spreadsheet program.
#   csv_e2e.sh CASE PERSONA SOURCE_DIR WORK_DIR
# Exit 0: passed; 1: failed; 77: skipped (the spreadsheet program cannot be had).
set -uo pipefail

case_name=$1
persona=$2
sample="$3/examples/sample.pers"
work=$4

rm -rf "$work" && mkdir -p "$work" && cd "$work" || exit 1

failures=0
fail() {
  echo "FAIL: $*" >&2
  failures=$((failures + 1))
}
expect_rc() {
  local want=$1
  shift
  "$@" >out.txt 2>err.txt
  local got=$?
  [[ $got -eq $want ]] || fail "exit $got, expected $want: $* ($(head -c 300 err.txt))"
}
same_file() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }
contains() { grep -qF -- "$2" "$1" || fail "$1 does not contain: $2 ($(head -c 300 "$1"))"; }

# Every set of the sample as "KIND NAME" lines.
all_sets() {
  "$persona" export "$sample" -o sets.json || return 1
  python3 - <<'EOF'
import json
p = json.load(open("sets.json"))["personality"]
kinds = {"TrunkSets": "trunk", "ConvSets": "conv", "GroupSets": "group", "PhoneSets": "phone",
         "ICallSets": "icall", "SpCallSets": "spcall", "PlmGroupSets": "plmgroup",
         "PlmSpCallSets": "plmspcall", "P25ConvSets": "p25conv", "P25GroupSets": "p25group",
         "EaGroupSets": "eagroup"}
for key, kind in kinds.items():
    for s in p[key]:
        print(kind, s["Name"])
EOF
}

case "$case_name" in
  edit)
    # An edit with Python's csv module: a frequency changed, a channel added, one deleted, the
    # columns reordered. The same edit made on the JSON document must give the same file.
    expect_rc 0 "$persona" csv export "$sample" conv metro -o metro.csv
    expect_rc 0 "$persona" export "$sample" -o sample.json
    python3 - <<'EOF' || fail "the Python edit failed"
import csv, json
with open("metro.csv", newline="") as f:
    reader = csv.DictReader(f)
    columns, rows = reader.fieldnames, list(reader)
fire2 = next(r for r in rows if r["Name"] == "FIRE 2")
fire2["RxFreq"] = "851.5125"
tac = dict(fire2, Name="TAC 9", TxFreq="806.9875", RxFreq="851.9875")
rows = [r for r in rows if r["Name"] != "UTIL 2"] + [tac]
with open("edited.csv", "w", newline="") as f:
    writer = csv.DictWriter(f, fieldnames=list(reversed(columns)))
    writer.writeheader()
    writer.writerows(rows)

doc = json.load(open("sample.json"))
metro = next(s for s in doc["personality"]["ConvSets"] if s["Name"] == "METRO")
chans = metro["Elements"]
by_name = {c["Name"]: c for c in chans}
by_name["FIRE 2"]["RxFreq"] = 851.5125
new = dict(by_name["FIRE 2"], Name="TAC 9", TxFreq=806.9875, RxFreq=851.9875)
metro["Elements"] = [c for c in chans if c["Name"] != "UTIL 2"] + [new]
json.dump(doc, open("edited.json", "w"), indent=1)
EOF
    expect_rc 0 "$persona" csv import "$sample" conv METRO edited.csv --dry-run
    contains out.txt "conv set METRO: 16 rows: 1 added, 1 changed, 1 removed, 14 unchanged (dry run)"
    [[ -e edited.pers ]] && fail "a dry run wrote a file"
    expect_rc 0 "$persona" csv import "$sample" conv METRO edited.csv -o by_csv.pers
    expect_rc 0 "$persona" import edited.json -o by_json.pers
    same_file by_csv.pers by_json.pers
    expect_rc 1 "$persona" diff "$sample" by_csv.pers
    contains out.txt "851.5125"
    # Deleting a channel that the set names stops the import; --force clears the name.
    grep -v '^"PD 1",' metro.csv >no_pd1.csv
    cp "$sample" kept.pers
    expect_rc 1 "$persona" csv import kept.pers conv METRO no_pd1.csv --in-place
    contains out.txt 'reference sets/conv/METRO/P1Chan names removed element "PD 1"'
    same_file kept.pers "$sample"
    expect_rc 0 "$persona" csv import kept.pers conv METRO no_pd1.csv --in-place --force
    contains out.txt 'names removed element "PD 1": cleared'
    same_file kept.pers.bak "$sample"
    # A value that does not fit names its row and column; nothing is written.
    sed '3s/^"PD 1",[^,]*,/"PD 1",8x1.0,/' metro.csv >bad.csv
    expect_rc 2 "$persona" csv import "$sample" conv METRO bad.csv -o bad.pers
    contains err.txt 'bad.csv: row 3, column 2: TxFreq: "8x1.0" is not a number'
    [[ -e bad.pers ]] && fail "a failed import wrote a file"
    # A semicolon-separated file with the byte-order mark, as spreadsheets of some locales
    # write it, reads back to the same personality.
    expect_rc 0 "$persona" csv export "$sample" p25conv P25METRO --delimiter ';' --bom -o semi.csv
    [[ "$(head -c 3 semi.csv | od -An -tx1 | tr -d ' ')" == efbbbf ]] || fail "no byte-order mark"
    expect_rc 0 "$persona" csv import "$sample" p25conv P25METRO semi.csv --delimiter ';' -o semi.pers
    same_file semi.pers "$sample"
    # Every set with --words: coded fields as their report words, which import takes back to
    # the same personality; a word edited in a cell is that code.
    all_sets >sets.txt || fail "cannot list the sets"
    cp "$sample" words.pers
    while read -r kind name; do
      "$persona" csv export "$sample" "$kind" "$name" --words -o "w-$kind-$name.csv" &&
        "$persona" csv import words.pers "$kind" "$name" "w-$kind-$name.csv" --in-place --no-backup \
          >out.txt 2>&1 || fail "--words $kind $name: $(cat out.txt)"
    done <sets.txt
    same_file words.pers "$sample"
    contains w-conv-METRO.csv '"PD 1",806.0250000000001,851.0250000000001,"74.1","74.1",85,85,Off,On,On,On,High,'
    contains w-trunk-T-METRO.csv '813.5125,858.5125,2,Off,Encode,0,Off'
    contains w-icall-IC-METRO.csv '"DISPATCH",0,Alpha,Ind Call,Off,'
    sed '3s/,High,/,Auto,/' w-conv-METRO.csv >auto.csv
    expect_rc 0 "$persona" csv import "$sample" conv METRO auto.csv -o auto.pers
    expect_rc 1 "$persona" diff "$sample" auto.pers
    [[ "$(cat out.txt)" == 'changed sets/conv/METRO/PD 1/Power: 1 -> 2' ]] || fail "Auto: $(cat out.txt)"
    ;;
  spreadsheet)
    # Every set through LibreOffice Calc: CSV -> .xlsx -> CSV, then imported: nothing changes.
    if ! command -v soffice >/dev/null; then
      if [[ $(id -u) -eq 0 ]] && command -v apt-get >/dev/null; then
        DEBIAN_FRONTEND=noninteractive apt-get install -y -q libreoffice-calc-nogui \
          >apt.log 2>&1 || tail -5 apt.log
      fi
      if ! command -v soffice >/dev/null; then
        echo "SKIPPED: LibreOffice Calc (libreoffice-calc-nogui) is not installed and cannot be"
        echo "         installed here; the spreadsheet round trip of persona csv was not tested"
        exit 77
      fi
    fi
    all_sets >sets.txt || fail "cannot list the sets"
    mkdir -p csv xlsx back home
    while read -r kind name; do
      "$persona" csv export "$sample" "$kind" "$name" -o "csv/$kind-$name.csv" ||
        fail "export $kind $name"
    done <sets.txt
    # Quoted cells stay text (names and codes such as "67.0"); numbers become numbers.
    export HOME="$work/home"
    lo=(soffice --headless --norestore "-env:UserInstallation=file://$work/home/profile")
    "${lo[@]}" --infilter="CSV:44,34,76,1,,1033,true,false" --convert-to xlsx --outdir xlsx \
      csv/*.csv >lo.log 2>&1 || fail "LibreOffice: CSV to xlsx ($(tail -3 lo.log))"
    "${lo[@]}" --convert-to "csv:Text - txt - csv (StarCalc):44,34,76,1,,1033,true,true,false" \
      --outdir back xlsx/*.xlsx >>lo.log 2>&1 || fail "LibreOffice: xlsx to CSV ($(tail -3 lo.log))"
    cp "$sample" current.pers
    while read -r kind name; do
      [[ -s "back/$kind-$name.csv" ]] || { fail "LibreOffice wrote no back/$kind-$name.csv"; continue; }
      cmp -s "back/$kind-$name.csv" "csv/$kind-$name.csv" && fail "$kind $name: the spreadsheet changed nothing"
      "$persona" csv import current.pers "$kind" "$name" "back/$kind-$name.csv" --in-place >out.txt 2>&1 ||
        fail "import $kind $name: $(cat out.txt)"
    done <sets.txt
    same_file current.pers "$sample"
    ;;
  *)
    fail "unknown case $case_name"
    ;;
esac

[[ $failures -eq 0 ]] || exit 1
echo "ok: $case_name"
