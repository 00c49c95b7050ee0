#!/usr/bin/env bash
# Builds Kiekbord and runs the demo or the tests. Installs missing Debian
# packages when run as root; otherwise prints the apt-get line to run.
set -euo pipefail
cd "$(dirname "$0")"

PACKAGES=(cmake ninja-build g++ pkg-config git libgtest-dev libgmock-dev
          libvips-dev libturbojpeg0-dev libexif-dev libjpeg62-turbo-dev qt6-base-dev qt6-translations-l10n xdg-utils)

# The demo's photos: real photographs under free licences (the photographers
# and licences are in examples/demo/demo.kbs), taken from this Debian package
# at run time and never committed.
DEMO_PACKAGE=lomiri-wallpapers-16.04
DEMO_PHOTO_DIR=/usr/share/backgrounds

usage() {
  echo "Gebruik: $0 demo|test" >&2
  echo "  demo  bouwt Kiekbord en maakt de voorbeeldkiekbord" >&2
  echo "  test  bouwt Kiekbord en draait alle tests (gewoon en met sanitizers)" >&2
  exit 2
}

ensure_packages() {
  local missing=() p
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed" || missing+=("$p")
  done
  ((${#missing[@]} == 0)) && return 0
  if [ "$(id -u)" -ne 0 ]; then
    echo "Er ontbreken pakketten. Installeer ze eerst met:" >&2
    echo "  sudo apt-get install -y ${missing[*]}" >&2
    exit 1
  fi
  echo "Installeren: ${missing[*]}"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

build() {
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1"
}

run_demo() {
  ensure_packages "$DEMO_PACKAGE"
  build release
  local demo_dir="$PWD/build/demo"
  local site="$demo_dir/site"
  rm -rf "$site"
  mkdir -p "$site"
  # Every photo the script names is copied under its lower-case name.
  local name src
  while IFS= read -r name; do
    src=$(find "$DEMO_PHOTO_DIR" -maxdepth 1 -type f -iname "$name" -print -quit)
    if [ -z "$src" ]; then
      echo "Foto $name ontbreekt in $DEMO_PHOTO_DIR (pakket $DEMO_PACKAGE)." >&2
      exit 1
    fi
    cp "$src" "$site/$name"
  done < <(sed -n 's/\r$//; s/^Foto=//p' examples/demo/demo.kbs)
  # The script with this machine's folders, line by line, so that no character
  # of the path is taken as a pattern.
  local line
  while IFS= read -r line || [ -n "$line" ]; do
    line=${line%$'\r'}
    case $line in
      InvoerDir=*) line="InvoerDir=$site/" ;;
      UitvoerDir=*) line="UitvoerDir=$site/" ;;
    esac
    printf '%s\r\n' "$line"
  done < examples/demo/demo.kbs > "$demo_dir/demo.kbs"
  build/release/bin/kiekbord-maak "$demo_dir/demo.kbs"
  echo
  echo "Klaar: $site/index.html"
}

# The browser check of the test suite: Chromium, Node.js with npm, and the npm
# packages of tests/browser at the versions of its package-lock.json.
ensure_browser_check() {
  ensure_packages chromium
  # Node.js from another source may bring its own npm; Debian's npm would conflict.
  if ! command -v node >/dev/null || ! command -v npm >/dev/null; then
    ensure_packages nodejs npm
  fi
  (cd tests/browser && npm ci --no-audit --no-fund --loglevel=error)
}

run_tests() {
  ensure_browser_check
  build dev
  ctest --preset dev -j "$(nproc)"
  build asan
  ctest --preset asan -j "$(nproc)"
  # The thread sanitizer on the parallel thumbnail run: its preset builds
  # only the two test programs and runs only those tests.
  build tsan
  ctest --preset tsan -j "$(nproc)"
  # In CI every fuzz target runs for a short while too (docs/robustness.md).
  # Debian's clang only recommends the libFuzzer runtime, so it is named.
  if [ "${CI:-}" = true ]; then
    ensure_packages clang libclang-rt-14-dev
    fuzz/run.sh 20
  fi
}

[ $# -eq 1 ] || usage
ensure_packages "${PACKAGES[@]}"
case "$1" in
  demo) run_demo ;;
  test) run_tests ;;
  *) usage ;;
esac
