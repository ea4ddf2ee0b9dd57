# Sourced by the front door: installs Debian packages that are missing, and says so.

# The names in the given lists, comments and blank lines left out.
listed_packages() {
  sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$@"
}

# Prints those of the named packages that are not installed.
missing_packages() {
  local name
  for name in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null | grep -q '^installed$' && continue
    # node and npm often come from elsewhere than Debian; what counts is that they run.
    case $name in
      nodejs) command -v node >/dev/null && continue ;;
      npm) command -v npm >/dev/null && continue ;;
    esac
    echo "$name"
  done
}

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# need_packages LIST...: files under packaging/packages.
need_packages() {
  local lists=() list missing
  for list in "$@"; do lists+=("$top/packaging/packages/$list"); done
  if ! command -v apt-get >/dev/null; then
    echo "Kest installs what it needs on Debian only. Elsewhere, install the counterparts of these first:" >&2
    listed_packages "${lists[@]}" | tr '\n' ' ' >&2
    echo >&2
    return 0
  fi
  # shellcheck disable=SC2046
  missing=$(missing_packages $(listed_packages "${lists[@]}"))
  [ -n "$missing" ] || return 0
  echo "Installing: $(echo "$missing" | tr '\n' ' ')"
  as_root apt-get update -qq
  # Never at the price of a package that is there: a desktop's own sound server excludes the other one, for example.
  # shellcheck disable=SC2086
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends --no-remove $missing || {
    echo "The packages above could not be installed beside what is there. Nothing was removed." >&2
    echo "The tests want two sound servers; where a desktop forbids that, run them in a container." >&2
    return 1
  }
}

# build PRESET [cmake arguments]: configures when that was not done yet, and builds.
build() {
  local preset=$1
  shift
  if [ ! -f "$top/build/$preset/build.ninja" ]; then
    (cd "$top" && cmake --preset "$preset" "$@" >"$top/build-configure.log" 2>&1) || {
      cat "$top/build-configure.log" >&2
      return 1
    }
    rm -f "$top/build-configure.log"
  fi
  (cd "$top" && cmake --build --preset "$preset")
}
