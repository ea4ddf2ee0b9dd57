#!/bin/sh
# Runs a script with the system's Node where that is new enough, else with the one that tools.sh got.
set -eu
major=$(node -p 'process.versions.node.split(".")[0]')
[ "$major" -ge 20 ] && exec node "$@"
exec "$(dirname "$0")/../node_modules/node-linux-$(node -p process.arch)/bin/node" "$@"
