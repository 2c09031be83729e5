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
    # Writing over an existing report keeps the previous one only when asked.
    echo old >report.txt
    expect_rc 0 "$persona" report "$sample" -o report.txt
    same_file report.txt "$expected/sample_report.txt"
    [[ -e report.txt.bak ]] && fail "a report kept a backup unasked"
    echo old >report.txt
    expect_rc 0 "$persona" report "$sample" -o report.txt --backup
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
  edit)
    # A path that check prints is accepted back by get and edit.
    expect_rc 0 "$persona" edit "$sample" "systems/KVX METRO/GroupSetName=NOPE" --force -o broken.pers
    contains out.txt 'added error REF_SET_MISSING systems/KVX METRO/GroupSetName: names group set "NOPE"'
    expect_rc 1 "$persona" check broken.pers
    path=$(sed -n 's/^error REF_SET_MISSING \([^:]*\):.*/\1/p' out.txt)
    [[ "$path" == "systems/KVX METRO/GroupSetName" ]] || fail "check printed '$path'"
    expect_rc 0 "$persona" get broken.pers "$path"
    [[ "$(cat out.txt)" == NOPE ]] || fail "get printed $(cat out.txt)"
    cp broken.pers fix.pers
    expect_rc 1 "$persona" edit fix.pers "$path=ALSO-NOPE" --in-place  # still an error: not saved
    same_file fix.pers broken.pers
    expect_rc 0 "$persona" edit fix.pers "$path=g-metro" --in-place
    expect_rc 0 "$persona" check fix.pers
    # An edit of each field type changes exactly that field.
    one_change() {  # PATH=VALUE, then the text the one diff line must hold
      expect_rc 0 "$persona" edit "$sample" "$1" --force -o one.pers
      expect_rc 1 "$persona" diff "$sample" one.pers
      [[ $(grep -c . out.txt) -eq 1 ]] || fail "$1 made other changes: $(cat out.txt)"
      contains out.txt "$2"
    }
    one_change "sets/conv/SOUTH/FIRE 1/RxFreq=851.5" "RxFreq: 851.4125 -> 851.5"
    one_change "sets/conv/SOUTH/#1/Power=2" "Power: 0 -> 2"
    one_change "options/CGenRadioOpts/Squelch=0xC8" "Squelch: 160 -> 200"
    one_change "options/CAlarmOpts/Alarm1On=On" "Alarm1On: 0 -> 1"
    one_change "options/CAlarmOpts/Alarm1Active=low" "Alarm1Active: 1 -> 0"
    one_change "options/CP25OtarOpts/OtarEnabled=yes" "OtarEnabled: false -> true"
    one_change "Description=Night shift" '-> "Night shift"'
    one_change "sets/conv/METRO/HomeChan=PD 1" '-> "PD 1"'
    # A set renamed by edit is renamed where it is named, too.
    expect_rc 0 "$persona" edit "$sample" "sets/conv/south/Name=SOUTH 2" -o renamed.pers
    expect_rc 0 "$persona" get renamed.pers "systems/CNV NORTH/ConvSetName" "sets/conv/SOUTH 2/#1/Name"
    [[ "$(cat out.txt)" == $'SOUTH 2\nFIRE 1' ]] || fail "rename not carried: $(cat out.txt)"
    # A bad value is refused and the file stays byte-identical.
    cp "$sample" bad.pers
    for bad in "sets/conv/SOUTH/FIRE 1/RxFreq=851,5" "options/CGenRadioOpts/Squelch=70000" \
      "options/CAlarmOpts/Alarm1Active=Medium" "Name=$(printf '\xe6\x97\xa5')" "sets/conv/NOPE/Scope=1"; do
      expect_rc 64 "$persona" edit bad.pers "$bad" --in-place
      same_file bad.pers "$sample"
      [[ -e bad.pers.bak ]] && fail "a refused edit wrote bad.pers ($bad)"
    done
    contains err.txt 'bad.pers: sets/conv/NOPE/Scope: no conv set "NOPE" (column 11) (nothing written)'
    # A fleet: every file edited in place, a damaged one reported without stopping the others.
    for n in 1 2 3 4; do cp "$sample" "fleet$n.pers"; done
    head -c 500 "$sample" >fleet3.pers
    expect_rc 2 "$persona" edit fleet*.pers "options/CGenRadioOpts/Squelch=200" "Name=FLEET" --in-place
    contains err.txt "fleet3.pers: byte 494"
    expect_rc 2 "$persona" get fleet*.pers options/CGenRadioOpts/Squelch Name
    [[ "$(cat out.txt)" == $'fleet1.pers: 200\nfleet1.pers: FLEET\nfleet2.pers: 200\nfleet2.pers: FLEET\nfleet4.pers: 200\nfleet4.pers: FLEET' ]] ||
      fail "fleet get: $(cat out.txt)"
    same_file fleet1.pers.bak "$sample"
    # The other commands over the same fleet: lines carry the file, the damaged file is named
    # with its byte offset, the others still run, the exit code is the worst of all files.
    expect_rc 2 "$persona" info fleet*.pers --json
    [[ $(grep -c '"file": "fleet[124].pers"' out.txt) -eq 3 ]] || fail "info --json: $(head -5 out.txt)"
    contains out.txt '"name": "FLEET"'
    contains err.txt "persona: error: fleet3.pers: byte 494"
    expect_rc 2 "$persona" check fleet1.pers fleet3.pers broken.pers
    [[ "$(grep -c ' error(s)' out.txt)" -eq 2 ]] || fail "check fleet: $(cat out.txt)"
    contains out.txt "broken.pers: error REF_SET_MISSING systems/KVX METRO/GroupSetName: "
    contains out.txt "fleet1.pers: 0 error(s), 2 warning(s), 10 note(s)"
    expect_rc 1 "$persona" check fleet1.pers broken.pers --json
    contains out.txt '"pointer": "/Systems/0/GroupSetName"'
    expect_rc 1 "$persona" check broken.pers fleet1.pers  # errors in one file: exit 1
    expect_rc 2 "$persona" rename fleet*.pers --set conv metro DOWNTOWN --in-place
    [[ "$(cat out.txt)" == $'fleet1.pers: renamed conv set metro to DOWNTOWN, 1 reference(s) updated\nfleet2.pers: renamed conv set metro to DOWNTOWN, 1 reference(s) updated\nfleet4.pers: renamed conv set metro to DOWNTOWN, 1 reference(s) updated' ]] ||
      fail "fleet rename: $(cat out.txt)"
    expect_rc 4 "$persona" rename fleet1.pers fleet2.pers --set conv metro X --dry-run
    contains err.txt "fleet1.pers holds no conv set named metro; the nearest: "
    expect_rc 64 "$persona" rename fleet1.pers fleet2.pers --set conv DOWNTOWN X -o one.pers
    expect_rc 2 "$persona" prune fleet*.pers --in-place
    [[ $(grep -c '^fleet[124].pers: 17 record(s) removed$' out.txt) -eq 3 ]] || fail "fleet prune: $(cat out.txt)"
    expect_rc 0 "$persona" list fleet1.pers fleet2.pers conv DOWNTOWN
    [[ $(grep -c '^fleet2.pers: FIRE 1 ' out.txt) -eq 1 ]] || fail "fleet list: $(head -3 out.txt)"
    expect_rc 0 "$persona" set refresh fleet1.pers fleet2.pers --dir . --dry-run
    contains out.txt "fleet2.pers: 0 global set(s): 0 refreshed, 0 kept local"
    # A JSON import error names the record path beside the pointer; the path works in get.
    expect_rc 0 "$persona" export "$sample" -o sample.json
    sed '0,/"TxFreq": [0-9.]*/s//"TxFreq": "x"/' sample.json >badfreq.json
    expect_rc 2 "$persona" import badfreq.json -o never.pers
    contains err.txt 'badfreq.json: sets/trunk/T-METRO/#1/TxFreq (/TrunkSets/0/Elements/0/TxFreq): expected a number'
    expect_rc 0 "$persona" get "$sample" "sets/trunk/T-METRO/#1/TxFreq"
    # list: the systems and sets, and a set's elements as a table.
    expect_rc 0 "$persona" list "$sample"
    contains out.txt "systems/CNV NORTH  Conventional  sets/conv/SOUTH, sets/phone/PH-SOUTH"
    contains out.txt "sets/conv/NORTH  16 element(s)  local  used by nothing"
    expect_rc 0 "$persona" list "$sample" conv SOUTH
    [[ $(grep -c . out.txt) -eq 17 ]] || fail "list conv SOUTH: $(head -3 out.txt)"
    contains out.txt "FIRE 1   FIRE 1  851.4125"
    expect_rc 0 "$persona" show "$sample" "sets/conv/SOUTH/FIRE 1/RxCg"
    [[ "$(cat out.txt)" == "sets/conv/SOUTH/FIRE 1/RxCg = 111.2" ]] || fail "show: $(cat out.txt)"
    # The model catalogue follows the pruning rules: model 74 takes trunked systems only.
    expect_rc 0 "$persona" models
    grep -qx "74  Model 74 trunked  Korvex" out.txt || fail "models: no trunked-only 74"
    contains out.txt "101  Model 101 P25 trunked  Korvex, Conventional, Project 25 Conventional"
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
  files)
    # "-" is standard input and standard output.
    expect_rc 0 "$persona" info "$sample"
    mv out.txt info.txt
    "$persona" info - <"$sample" >out.txt 2>err.txt || fail "info - failed: $(cat err.txt)"
    same_file out.txt info.txt
    cat "$sample" | "$persona" export - -o - >sample.json || fail "export - -o - failed"
    "$persona" import - -o - <sample.json >back.pers || fail "import - -o - failed"
    same_file back.pers "$sample"
    "$persona" merge "$sample" "$sample" --prefer a -o - >merged.pers 2>err.txt || fail "merge -o - failed"
    contains err.txt "name clash(es)"
    expect_rc 64 "$persona" diff - - <"$sample"
    contains err.txt "standard input (-) can be given only once"
    # Folders, FIFOs and the wrong kind of file are refused with what they are.
    mkdir d && mkfifo fifo
    expect_rc 2 timeout 10 "$persona" info d
    contains err.txt "persona: error: cannot read d: it is a folder, not a file"
    expect_rc 2 timeout 10 "$persona" import fifo -o x.pers
    contains err.txt "cannot read fifo: it is a FIFO (named pipe), not a file; give - to read"
    expect_rc 3 "$persona" import sample.json -o d
    contains err.txt "cannot write d: it is a folder, not a file"
    expect_rc 2 "$persona" info sample.json
    contains err.txt "sample.json: this is a JSON document; use persona import"
    expect_rc 2 "$persona" import "$sample" -o x.pers
    contains err.txt "this is a personality file, not a JSON document"
    expect_rc 0 "$persona" set export "$sample" --kind conv --name metro --dir sets
    expect_rc 2 "$persona" prune sets/METRO.CVS --dry-run
    contains err.txt "sets/METRO.CVS: this is a global set file, not a personality"
    expect_rc 3 "$persona" import sample.json -o missing/x.pers
    contains err.txt "cannot write missing/x.pers: the folder missing does not exist"
    [[ -e x.pers ]] && fail "a refused command wrote x.pers"
    # Devices are written in place; a link's target is replaced with its mode kept.
    expect_rc 0 "$persona" export "$sample" -o /dev/null
    if [[ -w /dev/full ]]; then
      expect_rc 3 "$persona" export "$sample" -o /dev/full
      contains err.txt "cannot write /dev/full: No space left on device"
      [[ -c /dev/full ]] || fail "/dev/full is no longer a device"
    fi
    cp "$sample" real.pers && chmod 600 real.pers && ln -s real.pers link.pers
    expect_rc 0 "$persona" new --radio-type 68 -o link.pers
    [[ -L link.pers ]] || fail "link.pers is no longer a link"
    [[ $(stat -c %a real.pers) == 600 ]] || fail "real.pers mode $(stat -c %a real.pers)"
    same_file real.pers.bak "$sample"
    expect_rc 0 "$persona" new --radio-type 68 -o fresh.pers
    expect_rc 0 "$persona" new --radio-type 68 -o fresh.pers --no-backup
    [[ -e fresh.pers.bak ]] && fail "--no-backup kept a backup"
    # A file size limit is a clean failure: exit 3, a message, the old file, no temporary file.
    echo old >limited.json
    (ulimit -f 8 && exec "$persona" export "$sample" -o limited.json) >out.txt 2>err.txt
    rc=$?
    [[ $rc -eq 3 ]] || fail "export under ulimit -f: exit $rc, expected 3"
    contains err.txt "cannot write limited.json: File too large"
    [[ "$(cat limited.json)" == old ]] || fail "limited.json was damaged"
    # Two saves to the same file at once both succeed, fifty times over.
    bad=0
    for round in $(seq 50); do
      "$persona" import sample.json -o twice.pers 2>>race.txt &
      "$persona" import sample.json -o twice.pers 2>>race.txt || bad=$((bad + 1))
      wait $! || bad=$((bad + 1))
    done
    [[ $bad -eq 0 ]] || fail "$bad concurrent saves failed: $(head -3 race.txt)"
    same_file twice.pers "$sample"
    leftovers=$(ls -A | grep '^\.persona-')
    [[ -z "$leftovers" ]] || fail "temporary files left: $leftovers"
    ;;
  model_rules)
    # check applies the rules of the personality's model (its last radio): the kinds of system
    # it takes, conventional sets, the WAN record, security keys. Warnings only: exit 0.
    expect_rc 0 "$persona" edit "$sample" LastRadio=74 -o m74.pers
    expect_rc 0 "$persona" check m74.pers
    for line in \
      "warning SYSTEM_UNSUPPORTED systems/P25T METRO: system P25T METRO is a Project 25 Trunked system, which the Model 74 trunked (radio type 74) does not take; radio types 101-106 take it (prune removes it)" \
      "warning SYSTEM_UNSUPPORTED systems/CNV NORTH: system CNV NORTH is a Conventional system, which the Model 74 trunked (radio type 74) does not take; every radio type but 72-75 takes it (prune removes it)" \
      "warning SET_UNSUPPORTED sets/conv/METRO: conv set METRO is a conventional channel set, which the Model 74 trunked (radio type 74) does not take, as it takes no Conventional system; every radio type but 72-75 takes it (prune removes every conventional set)" \
      "warning OPTION_UNSUPPORTED options/CP25tWanOpts: holds 2 P25 wide-area network(s), which the Model 74 trunked (radio type 74) does not take, as it takes no Project 25 Trunked system; radio types 101-106 take it (prune deletes the record)" \
      "warning KEY_UNSUPPORTED systems/KVX NORTH/TrunkESK: system KVX NORTH has security key \"KEY NORTH\" (12), which the Model 74 trunked (radio type 74) does not take: its sets get no key list (key 0 is none); radio types 68-70, 80, 88-90, 92, 94-97, 101-106 take keys" \
      "0 error(s), 16 warning(s), 9 note(s)"; do
      grep -qxF -- "$line" out.txt || fail "check m74.pers lacks: $line"
    done
    # A key of a system the model does not take is not reported again; pruning leaves the keys
    # of the trunked systems, which an edit to 0 clears.
    grep -q "KEY_UNSUPPORTED systems/KIP" out.txt && fail "KIP keys reported: $(grep KIP out.txt)"
    expect_rc 0 "$persona" prune m74.pers -o p74.pers
    expect_rc 0 "$persona" check p74.pers
    [[ "$(grep -c '^warning' out.txt)" -eq 2 ]] || fail "after prune: $(cat out.txt)"
    expect_rc 0 "$persona" edit p74.pers "systems/KVX METRO/TrunkESK=0" "systems/KVX NORTH/TrunkESK=0" -o k74.pers
    expect_rc 0 "$persona" check k74.pers
    [[ "$(cat out.txt)" == "0 error(s), 0 warning(s), 0 note(s)" ]] || fail "k74: $(cat out.txt)"
    # A P25 conventional model keeps keys and P25 conventional systems, not P25 trunked ones.
    expect_rc 0 "$persona" edit "$sample" LastRadio=88 -o m88.pers
    expect_rc 0 "$persona" check m88.pers
    [[ "$(grep -o '^warning [A-Z_]* [^:]*' out.txt | tr '\n' ';')" == "warning SYSTEM_UNSUPPORTED systems/MSG METRO;warning SYSTEM_UNSUPPORTED systems/P25T METRO;warning SYSTEM_UNSUPPORTED systems/MSG NORTH;warning SYSTEM_UNSUPPORTED systems/P25T NORTH;warning OPTION_UNSUPPORTED options/CP25tWanOpts;" ]] ||
      fail "check m88.pers: $(cat out.txt)"
    ;;
  *)
    fail "unknown case $case_name"
    ;;
esac

[[ $failures -eq 0 ]] || exit 1
echo "ok: $case_name"
