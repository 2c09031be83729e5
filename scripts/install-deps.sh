#!/usr/bin/env bash
# Installs the Debian packages the build needs, when they are missing.
#   scripts/install-deps.sh          library, tests and tool
#   scripts/install-deps.sh bench    also the benchmark packages
#   scripts/install-deps.sh fuzz     also clang and its sanitizer and libFuzzer runtimes
set -euo pipefail

packages=(cmake ninja-build g++ libgtest-dev libgmock-dev nlohmann-json3-dev libcli11-dev python3
          pkg-config clang-format)
case "${1:-}" in
  bench) packages+=(libbenchmark-dev libboost-serialization-dev libcereal-dev rapidjson-dev time) ;;
  fuzz) packages+=(clang libclang-rt-14-dev) ;;
esac

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [[ $(id -u) -ne 0 ]]; then sudo_cmd=(sudo); fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
