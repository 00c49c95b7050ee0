#!/usr/bin/env bash
# Builds Kiekbord and runs the demo or the tests. Installs missing Debian
# packages when run as root; otherwise prints the apt-get line to run.
set -euo pipefail
cd "$(dirname "$0")"

PACKAGES=(cmake ninja-build g++ pkg-config git libgtest-dev libgmock-dev
          libvips-dev libturbojpeg0-dev qt6-base-dev qt6-translations-l10n)

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
  build release
  local demo_dir="$PWD/build/demo"
  mkdir -p "$demo_dir/site"
  sed "s|^UitvoerDir=.*|UitvoerDir=$demo_dir/site/|" examples/demo/demo.kbs > "$demo_dir/demo.kbs"
  build/release/bin/kiekbord-maak "$demo_dir/demo.kbs"
  echo
  echo "Klaar: $demo_dir/site/index.html"
}

run_tests() {
  build dev
  ctest --preset dev -j "$(nproc)"
  build asan
  ctest --preset asan -j "$(nproc)"
}

[ $# -eq 1 ] || usage
ensure_packages "${PACKAGES[@]}"
case "$1" in
  demo) run_demo ;;
  test) run_tests ;;
  *) usage ;;
esac
