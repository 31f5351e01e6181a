#!/bin/bash
# Writes docs/nodes.md, the page of node types, from what the engine's nodes have.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

"$root/scripts/setup.sh"
"$root/scripts/build.sh" dev engine_tests
BRINDLE_WRITE_PAGES=1 QT_QPA_PLATFORM=offscreen "$root/build/dev/bin/engine_tests" --gtest_brief=1 \
    --gtest_filter='NodePage.IsWhatTheEngineHas'
