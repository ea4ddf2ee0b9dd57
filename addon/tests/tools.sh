#!/bin/sh
# Installs the add-on's development tools, exactly as locked, unless that is what is there.
set -e
cd "$(dirname "$0")/.."
stamp=node_modules/.kest-lock
if ! cmp -s package-lock.json "$stamp"; then
    npm ci --no-fund --no-audit
    cp package-lock.json "$stamp"
fi
