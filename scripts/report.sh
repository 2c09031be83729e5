#!/usr/bin/env bash
# Builds the release configuration and prints the report of the bundled sample personality.
# Installs what it needs first. Extra arguments go to `persona report` (a FILE, -o OUT).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh >&2
cmake --preset release >&2
cmake --build --preset release --target persona_tool >&2
exec build/release/tools/persona/persona report "$@"
