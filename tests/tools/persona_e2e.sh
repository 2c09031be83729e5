#!/usr/bin/env bash
# End-to-end tests of the persona tool: runs the real binaries on the bundled sample.
#   persona_e2e.sh CASE PERSONA PERSONA_SAMPLE SOURCE_DIR WORK_DIR
set -uo pipefail

case_name=$1
persona=$2
persona_sample=$3
source_dir=$4
work=$5
sample="$source_dir/examples/sample.pers"
expected="$source_dir/tests/tools/expected"

rm -rf "$work" && mkdir -p "$work" && cd "$work" || exit 1

failures=0
fail() {
  echo "FAIL: $*" >&2
  failures=$((failures + 1))
}
# expect_rc CODE COMMAND...: runs the command, output to out.txt / err.txt, checks its exit code.
expect_rc() {
  local want=$1
  shift
  "$@" >out.txt 2>err.txt
  local got=$?
  [[ $got -eq $want ]] || fail "exit $got, expected $want: $* ($(head -c 300 err.txt))"
}
same_file() { cmp -s "$1" "$2" || fail "$1 and $2 differ"; }
contains() { grep -qF -- "$2" "$1" || fail "$1 does not contain: $2"; }

case "$case_name" in
  sample)
    # The checked-in sample is what the generator writes today.
    expect_rc 0 "$persona_sample" -o regenerated.pers
    same_file regenerated.pers "$sample"
    ;;
  report)
    expect_rc 0 "$persona" report
    same_file out.txt "$expected/sample_report.txt"
    expect_rc 0 "$persona" report "$sample" -o report.txt
    same_file report.txt "$expected/sample_report.txt"
    [[ -s out.txt ]] && fail "report -o also wrote to stdout"
    # Writing over an existing report keeps the previous one.
    echo old >report.txt
    expect_rc 0 "$persona" report "$sample" -o report.txt
    same_file report.txt "$expected/sample_report.txt"
    [[ "$(cat report.txt.bak)" == old ]] || fail "report.txt.bak is not the previous file"
    ;;
  json)
    # Archive -> JSON -> archive gives the same bytes.
    expect_rc 0 "$persona" export "$sample" -o sample.json
    expect_rc 0 "$persona" import sample.json -o back.pers
    same_file back.pers "$sample"
    expect_rc 0 "$persona" export back.pers
    same_file out.txt sample.json
    # JSON -> archive -> JSON gives the same document, for a document edited by hand.
    sed -e 's/"SAMPLE COUNTY"/"EDITED COUNTY"/' -e 's/"TxNac": 660/"TxNac": 661/' \
      sample.json >edited.json
    cmp -s edited.json sample.json && fail "the edit changed nothing"
    expect_rc 0 "$persona" import edited.json -o edited.pers
    expect_rc 0 "$persona" export edited.pers -o edited_back.json
    same_file edited_back.json edited.json
    # A document that is not a personality fails with exit 2 and names the place.
    echo '{"format": "persona-personality", "formatVersion": 1, "personality": {"$class": "CPersonality", "Version": "x"}}' >bad.json
    expect_rc 2 "$persona" import bad.json -o bad.pers
    contains err.txt "bad.json"
    [[ -e bad.pers ]] && fail "a failed import wrote bad.pers"
    echo '{ not json' >broken.json
    expect_rc 2 "$persona" import broken.json -o bad.pers
    ;;
  diff)
    expect_rc 0 "$persona" diff "$sample" "$sample"
    [[ -s out.txt ]] && fail "diff of a file with itself printed: $(cat out.txt)"
    expect_rc 0 "$persona" diff "$sample" "$sample" --json
    [[ "$(cat out.txt)" == "[]" ]] || fail "diff --json of equal files: $(cat out.txt)"
    expect_rc 0 "$persona" export "$sample" -o sample.json
    sed -e 's/"SAMPLE COUNTY"/"EDITED COUNTY"/' -e 's/"PAGE ALL"/"PAGE EVAC"/' \
      sample.json >edited.json
    expect_rc 0 "$persona" import edited.json -o edited.pers
    expect_rc 1 "$persona" diff "$sample" edited.pers
    same_file out.txt "$expected/diff_edited.txt"
    expect_rc 1 "$persona" diff "$sample" edited.pers --json
    same_file out.txt "$expected/diff_edited.json"
    # One channel fewer in the last conventional set: exactly one removal.
    expect_rc 0 "$persona_sample" --channels 47 -o smaller.pers
    expect_rc 1 "$persona" diff "$sample" smaller.pers
    [[ $(wc -l <out.txt) -eq 1 ]] || fail "expected one difference: $(cat out.txt)"
    contains out.txt 'removed sets/conv/SOUTH/MUTL 2: {"$class":"CConvChannel","Name":"MUTL 2"'
    expect_rc 1 "$persona" diff smaller.pers "$sample"
    contains out.txt 'added sets/conv/SOUTH/MUTL 2: {"$class":"CConvChannel","Name":"MUTL 2"'
    # A set that changed only its name is a rename; --stat counts records per kind.
    expect_rc 0 "$persona" rename "$sample" --set conv metro DOWNTOWN -o renamed.pers
    expect_rc 1 "$persona" diff "$sample" renamed.pers
    [[ "$(cat out.txt)" == 'changed systems/CNV METRO/ConvSetName: "METRO" -> "DOWNTOWN"
renamed sets/conv/METRO: "METRO" -> "DOWNTOWN"' ]] || fail "diff of a rename: $(cat out.txt)"
    expect_rc 1 "$persona" diff "$sample" renamed.pers --stat
    [[ "$(cat out.txt)" == 'systems: 1 changed
conv sets: 1 renamed
2 record(s) differ: 1 changed, 1 renamed' ]] || fail "diff --stat of a rename: $(cat out.txt)"
    expect_rc 1 "$persona" diff "$sample" smaller.pers --stat --json
    contains out.txt '"group": "conv elements",'
    contains out.txt '"removed": 1,'
    # A global set file against the set of its kind and name in a personality, or another file.
    expect_rc 0 "$persona" set export "$sample" --kind conv --name metro --dir sets
    expect_rc 1 "$persona" diff sets/METRO.CVS "$sample"
    [[ "$(cat out.txt)" == 'changed sets/conv/METRO/Scope: 1 -> 0' ]] || fail "set diff: $(cat out.txt)"
    expect_rc 0 "$persona" diff sets/METRO.CVS sets/METRO.CVS
    expect_rc 4 "$persona" diff sets/METRO.CVS renamed.pers
    contains err.txt "renamed.pers holds no conv set named METRO"
    ;;
  merge)
    # A new model-103 personality (empty WAN list) merged with the sample: only option classes
    # clash. Keeping A's WAN record leaves B's P25 trunked systems naming WANs that C lacks:
    # listed, exit 1, nothing written unless --force.
    expect_rc 0 "$persona" new --radio-type 103 --name FLEET -o new.pers
    expect_rc 1 "$persona" merge new.pers "$sample" --prefer a -o merged.pers
    [[ $(grep -c '^clash: option .*: kept A.s$' out.txt) -eq 48 ]] || fail "expected 48 kept options"
    contains out.txt "clash: option CP25tWanOpts: kept A's"
    tail -6 out.txt >tail.txt
    cat >want.txt <<'EOT'
dangling: systems/P25T METRO/WaNetName: names P25 wide-area network "WAN 1", which is not in the WAN list
dangling: systems/P25T METRO/HomeWanName: names P25 wide-area network "WAN 1", which is not in the WAN list
dangling: systems/P25T NORTH/WaNetName: names P25 wide-area network "WAN 2", which is not in the WAN list
dangling: systems/P25T NORTH/HomeWanName: names P25 wide-area network "WAN 1", which is not in the WAN list
48 name clash(es), 4 error(s) added by the merge
the merge adds errors; nothing written (--force writes it all the same)
EOT
    same_file tail.txt want.txt
    [[ -e merged.pers ]] && fail "a merge that adds errors wrote merged.pers"
    expect_rc 1 "$persona" merge new.pers "$sample" --prefer a --force -o forced.pers
    expect_rc 1 "$persona" check forced.pers
    contains out.txt "4 error(s)"
    # --prefer b takes the sample's option records: one per class, no error added.
    expect_rc 0 "$persona" merge new.pers "$sample" --prefer b -o merged.pers
    contains out.txt "clash: option CP25tWanOpts: took B's"
    contains out.txt "48 name clash(es), 0 error(s) added by the merge"
    expect_rc 0 "$persona" info merged.pers
    contains out.txt "Name                       - FLEET"
    contains out.txt "Systems                    - 12"
    contains out.txt "Option Records             - 48"
    # The sample with itself: unsettled clashes are refused; --rename-clashes keeps both and
    # B's records follow the new names, so the result has no error; --dry-run writes nothing.
    cp "$sample" copy.pers
    expect_rc 1 "$persona" merge copy.pers "$sample" -o copy.pers
    contains out.txt "names held by both: choose --prefer a, --prefer b or --rename-clashes SUFFIX; nothing written"
    same_file copy.pers "$sample"
    expect_rc 0 "$persona" merge copy.pers "$sample" --rename-clashes -B --dry-run
    contains out.txt "dry run: nothing written"
    [[ -e copy.pers.bak ]] && fail "a dry run wrote"
    expect_rc 0 "$persona" merge copy.pers "$sample" --rename-clashes -B -o copy.pers
    contains out.txt "clash: system KVX METRO: B's renamed to KVX METRO-B"
    contains out.txt "clash: group set G-METRO: B's renamed to G-METRO-B"
    contains out.txt "93 name clash(es), 0 error(s) added by the merge"
    same_file copy.pers.bak "$sample"
    expect_rc 0 "$persona" check copy.pers
    contains out.txt "0 error(s)"
    expect_rc 0 "$persona" info copy.pers
    contains out.txt "Systems                    - 24"
    contains out.txt "Option Records             - 48"
    expect_rc 64 "$persona" merge copy.pers "$sample" --prefer a --rename-clashes X -o x.pers
    ;;
  global_sets)
    # export --global marks the set in the personality and writes the file with scope 1; a
    # newer file is taken by refresh, which says so; the set stays global.
    expect_rc 0 "$persona" set export "$sample" --kind conv --name south --dir sets --global -o g.pers
    printf 'wrote conv set SOUTH to sets/SOUTH.CVS\nconv set SOUTH: marked global in g.pers\n' >want.txt
    same_file out.txt want.txt
    expect_rc 0 "$persona_sample" --channels 47 -o smaller.pers
    expect_rc 0 "$persona" set export smaller.pers --kind conv --name SOUTH --dir sets
    expect_rc 0 "$persona" set scope g.pers conv metro global --in-place
    contains out.txt "conv set METRO: scope 0 -> 1 (global)"
    cp g.pers before.pers
    expect_rc 0 "$persona" set refresh g.pers --dir sets --dry-run
    cat >want.txt <<'EOT'
kept conv set METRO local: Global Conv set METRO not found, using local copy
refreshed conv set SOUTH: 16 -> 15 elements
2 global set(s): 1 refreshed, 1 kept local
dry run: nothing written
EOT
    same_file out.txt want.txt
    same_file g.pers before.pers
    expect_rc 0 "$persona" set refresh g.pers --dir sets -o r.pers
    expect_rc 0 "$persona" set refresh r.pers --dir sets --dry-run
    contains out.txt "1 global set(s): 1 refreshed, 0 kept local"
    expect_rc 64 "$persona" set refresh r.pers --dir sets
    # import: a new set, then a clash that needs --replace (exit 4 without it).
    expect_rc 0 "$persona" new --radio-type 103 -o new.pers
    expect_rc 0 "$persona" set import new.pers sets/SOUTH.CVS -o imp.pers
    contains out.txt "imported conv set SOUTH from sets/SOUTH.CVS (15 elements, global)"
    expect_rc 4 "$persona" set import imp.pers sets/SOUTH.CVS -o imp2.pers
    contains err.txt "imp.pers holds a conv set SOUTH already"
    expect_rc 0 "$persona" set import imp.pers sets/SOUTH.CVS --replace --in-place
    contains out.txt "replaced conv set SOUTH"
    expect_rc 64 "$persona" set import imp.pers smaller.pers -o x.pers
    ;;
  set_files)
    # info, check, export and report look at a global set file as one set.
    expect_rc 0 "$persona" set export "$sample" --kind conv --name SOUTH --dir sets
    expect_rc 0 "$persona" info sets/SOUTH.CVS
    cat >want.txt <<'EOT'
GLOBAL SET FILE:
----------------
   Kind                       - conv set (CConvSet)
   Name                       - SOUTH
   Scope                      - 1 - global
   Elements                   - 16
   File Size                  - 1674 bytes

EOT
    same_file out.txt want.txt
    expect_rc 0 "$persona" check sets/SOUTH.CVS
    contains out.txt "info FREQ_NOT_CHECKED file: no band limits given"
    expect_rc 0 "$persona" check sets/SOUTH.CVS --limits-from "$sample"
    contains out.txt "0 error(s), 0 warning(s), 0 note(s)"
    expect_rc 1 "$persona" check sets/SOUTH.CVS --band 150 174 150 851.5
    contains out.txt "error FREQ_OUT_OF_RANGE sets/conv/SOUTH/#9/RxFreq: channel FIRE 2 receives on 851.51250 MHz, outside 150.00000 - 851.50000 MHz"
    contains out.txt "8 error(s)"
    expect_rc 0 "$persona" export sets/SOUTH.CVS -o south.json
    contains south.json '"$class": "CConvSet"'
    expect_rc 0 "$persona" report sets/SOUTH.CVS
    contains out.txt "SOUTH"
    cp "$sample" fake.CVS
    expect_rc 2 "$persona" info fake.CVS
    expect_rc 2 "$persona" info sets/NOSUCH.CVS
    contains err.txt "sets/NOSUCH.CVS"
    ;;
  commands)
    expect_rc 0 "$persona" --help
    contains out.txt "Exit codes:"
    for cmd in report info export import diff merge set new; do contains out.txt "$cmd"; done
    expect_rc 0 "$persona" info "$sample"
    same_file out.txt "$expected/sample_info.txt"
    expect_rc 0 "$persona" new --radio-type 103 -o new.pers
    expect_rc 0 "$persona" info new.pers
    contains out.txt "Option Records             - 48"
    contains out.txt "Systems                    - 0"
    expect_rc 0 "$persona" set export "$sample" --kind conv --name metro --dir sets
    [[ -s sets/METRO.CVS ]] || fail "sets/METRO.CVS not written"
    expect_rc 0 "$persona" set export "$sample" --kind 0 --name T-NORTH --dir sets
    [[ -s sets/T-NORTH.TRS ]] || fail "sets/T-NORTH.TRS not written"
    expect_rc 4 "$persona" set export "$sample" --kind conv --name NORHT --dir sets
    contains err.txt "holds no conv set named NORHT; the nearest: NORTH, "
    expect_rc 64 "$persona" set export "$sample" --kind convx --name METRO --dir sets
    contains err.txt "unknown set kind convx; the kinds: trunk, conv, group,"
    ;;
  integrity)
    # check: the sample has no errors; a name that points at nothing is an error with its code
    # and path; bytes after the personality are a warning; an unreadable file is exit 2.
    expect_rc 0 "$persona" check "$sample"
    contains out.txt "0 error(s)"
    expect_rc 0 "$persona" export "$sample" -o sample.json
    sed 's/"GroupSetName": "G-METRO"/"GroupSetName": "G-NOSUCH"/' sample.json >broken.json
    expect_rc 0 "$persona" import broken.json -o broken.pers
    expect_rc 1 "$persona" check broken.pers
    contains out.txt "error REF_SET_MISSING systems/KVX METRO/GroupSetName"
    contains out.txt "1 error(s)"
    expect_rc 1 "$persona" check broken.pers --json
    contains out.txt '"code": "REF_SET_MISSING"'
    cp "$sample" trailing.pers && printf 'junk' >>trailing.pers
    expect_rc 0 "$persona" check trailing.pers
    contains out.txt "warning FILE_TRAILING_BYTES file: 4 bytes"
    expect_rc 2 "$persona" check missing.pers
    # prune: a dry run lists what goes and writes nothing; a real run writes what it listed.
    expect_rc 0 "$persona" prune "$sample" --dry-run -o never.pers
    contains out.txt "removed conv set NORTH"
    contains out.txt "dry run: nothing written"
    [[ -e never.pers ]] && fail "prune --dry-run wrote a file"
    expect_rc 64 "$persona" prune "$sample"
    expect_rc 0 "$persona" prune "$sample" -o pruned.pers
    contains out.txt "removed eagroup set E-NORTH"
    expect_rc 0 "$persona" prune pruned.pers --dry-run
    contains out.txt "0 record(s) removed"
    expect_rc 0 "$persona" prune "$sample" --radio-type 74 --dry-run
    contains out.txt "removed Conventional system CNV METRO"
    contains out.txt "removed conv set METRO"
    # rename carries the new name into every record that names the set.
    expect_rc 0 "$persona" rename "$sample" --set conv metro DOWNTOWN -o renamed.pers
    contains out.txt "renamed conv set metro to DOWNTOWN"
    expect_rc 1 "$persona" diff "$sample" renamed.pers
    contains out.txt 'changed systems/CNV METRO/ConvSetName: "METRO" -> "DOWNTOWN"'
    expect_rc 0 "$persona" check renamed.pers
    contains out.txt "0 error(s)"
    expect_rc 4 "$persona" rename "$sample" --system NOSUCH OTHER -o never.pers
    contains err.txt "holds no system named NOSUCH; the nearest: "
    expect_rc 4 "$persona" rename "$sample" --set conv metro SOUTH -o never.pers
    contains err.txt "the name SOUTH is taken by conv set SOUTH"
    [[ -e never.pers ]] && fail "a refused rename wrote a file"
    # set refresh: SOUTH marked global takes the content of its file; METRO, marked global
    # without a file, stays local with the message.
    sed -e '/"Name": "SOUTH",/,/"Scope"/ s/"Scope": 0/"Scope": 1/' \
        -e '/"Name": "METRO",/,/"Scope"/ s/"Scope": 0/"Scope": 1/' sample.json >global.json
    expect_rc 0 "$persona" import global.json -o global.pers
    expect_rc 0 "$persona_sample" --channels 47 -o smaller.pers
    expect_rc 0 "$persona" set export smaller.pers --kind conv --name south --dir sets
    mv sets/SOUTH.CVS sets/south.cvs
    expect_rc 0 "$persona" set refresh global.pers --dir sets -o refreshed.pers
    contains out.txt "Global Conv set METRO not found, using local copy"
    expect_rc 1 "$persona" diff global.pers refreshed.pers
    contains out.txt 'removed sets/conv/SOUTH/MUTL 2: {"$class":"CConvChannel","Name":"MUTL 2"'
    contains out.txt 'changed sets/conv/METRO/Scope: 1 -> 0'
    ;;
  exit_codes)
    expect_rc 64 "$persona"
    expect_rc 64 "$persona" rprot
    contains err.txt "unknown command rprot; the nearest: report"
    expect_rc 64 "$persona" set exprot
    contains err.txt "unknown command set exprot; the nearest: export"
    # The exit-code table is in the top-level help only; usage lines name the program.
    expect_rc 0 "$persona" merge --help
    contains out.txt "Usage: persona merge"
    grep -q "Exit codes" out.txt && fail "merge --help repeats the exit codes"
    expect_rc 64 "$persona" diff only-one.pers
    expect_rc 64 "$persona" new --radio-type 2 -o never.pers
    [[ -e never.pers ]] && fail "new with an unknown radio type wrote a file"
    expect_rc 2 "$persona" info missing.pers
    contains err.txt "missing.pers"
    head -c 300 "$sample" >cut.pers
    expect_rc 2 "$persona" report cut.pers
    contains err.txt "cut.pers: byte 300"
    expect_rc 2 "$persona" diff "$sample" cut.pers
    expect_rc 3 "$persona" report -o no-such-folder/report.txt
    # A failed write leaves the file that was there.
    mkdir locked && cp "$sample" locked/keep.pers && chmod a-w locked
    if [[ ! -w locked ]]; then
      expect_rc 3 "$persona" merge "$sample" "$sample" -o locked/keep.pers
      same_file locked/keep.pers "$sample"
    fi
    chmod u+w locked
    ;;
  *)
    fail "unknown case $case_name"
    ;;
esac

[[ $failures -eq 0 ]] || exit 1
echo "ok: $case_name"
