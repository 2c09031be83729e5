#!/usr/bin/env bash
# The library as an application gets it: builds persona (static, then shared), installs it into
# a temporary prefix, builds examples/first_program against that prefix with find_package, runs
# it on the bundled sample and checks what it printed and saved, and checks the pkg-config
# files. Usage: scripts/package-test.sh [static|shared]... (default: both).
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
kinds=("$@")
[ ${#kinds[@]} -gt 0 ] || kinds=(static shared)

fail() {
  echo "package-test ($kind): $*" >&2
  exit 1
}

for kind in "${kinds[@]}"; do
  case $kind in
    static) shared=OFF ;;
    shared) shared=ON ;;
    *) echo "package-test: unknown kind $kind (static or shared)" >&2; exit 64 ;;
  esac
  build=$root/build/package-$kind
  prefix=$work/$kind/prefix
  # Only the libraries and the tool: the tests run elsewhere.
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=$shared \
    -DPERSONA_BUILD_TESTS=OFF -DCMAKE_INSTALL_PREFIX="$prefix" >/dev/null
  cmake --build "$build" --target persona persona_json persona_tool
  cmake --install "$build" >/dev/null

  lib=$(find "$prefix" -name "libpersona.so*" -o -name "libpersona.a" | head -n 1)
  case $kind in
    static) [[ $lib == *.a ]] || fail "no static libpersona.a installed" ;;
    shared) [[ $lib == *.so* ]] || fail "no shared libpersona.so installed" ;;
  esac
  [ -x "$prefix/bin/persona" ] || fail "the persona tool is not installed under bin/"

  # The consumer knows nothing but the prefix.
  example=$work/$kind/example
  cmake -S "$root/examples/first_program" -B "$example" -G Ninja \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_RPATH="$prefix/lib" >/dev/null
  cmake --build "$example" >/dev/null
  out=$work/$kind/changed.pers
  "$example/first_program" "$root/examples/sample.pers" "$out" 851.5125 >"$work/$kind/log"
  grep -q "^persona 0\.2\." "$work/$kind/log" || fail "no version line"
  grep -q "receive .* MHz -> 851.51250 MHz" "$work/$kind/log" || fail "channel not changed"
  grep -q "^saved " "$work/$kind/log" || fail "nothing saved"
  # The saved file reads back with the installed tool and holds the new frequency (grep reads
  # the whole report: the tool streams it, and a reader that stops early would break the pipe).
  LD_LIBRARY_PATH="$prefix/lib" "$prefix/bin/persona" report "$out" | grep -E "Rx Frequency +- 851\.5125 " >/dev/null ||
    fail "the saved personality does not hold the changed frequency"

  # pkg-config: the flags of both libraries, and a program built with nothing else.
  export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
  flags=$(pkg-config --cflags --libs persona-json)
  printf '#include <persona/persona.h>\n#include <cstdio>\nint main() { std::puts(persona::Version()); }\n' \
    >"$work/$kind/version.cpp"
  # shellcheck disable=SC2086
  c++ -std=c++17 "$work/$kind/version.cpp" -o "$work/$kind/version" $(pkg-config --cflags --libs persona)
  [ "$(LD_LIBRARY_PATH="$prefix/lib" "$work/$kind/version")" = "$(pkg-config --modversion persona)" ] ||
    fail "pkg-config's version and persona::Version() differ"
  echo "package-test ($kind): installed, found, linked and run; pkg-config: $flags"
done
