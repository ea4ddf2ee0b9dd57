#!/bin/sh
# A manual page that groff formats without a warning.
set -eu
words=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$1" 2>&1 >/dev/null)
[ -z "$words" ] || {
  echo "$words" >&2
  exit 1
}
