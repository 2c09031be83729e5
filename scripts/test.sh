#!/usr/bin/env bash
# Builds the release configuration and runs every test. Installs what it needs first.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release
cmake --build --preset release
ctest --preset release
