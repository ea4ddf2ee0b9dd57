#!/bin/sh
# Gets what the add-on's tests run with: the linter, and a Node that is new enough where the system's is not.
set -eu
cd "$(dirname "$0")/.."
major=$(node -p 'process.versions.node.split(".")[0]')
[ "$major" -ge 20 ] || older=yes

# Quick when nothing changed.
wanted="$(cksum package-lock.json) ${older:-}"
if [ "$(cat node_modules/.wanted 2>/dev/null)" != "$wanted" ]; then
  npm ci --no-fund --no-audit
  [ -z "${older:-}" ] || npm install --no-save --no-fund --no-audit "node-linux-$(node -p process.arch)@20.19.5"
  echo "$wanted" >node_modules/.wanted
fi
