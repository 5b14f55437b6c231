# Shared by the other scripts: the project's folder, messages, and installing missing packages.
# shellcheck shell=bash
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
PATH=$PATH:/usr/sbin:/sbin # what only administrators use is not on everybody's

say() { printf '\n== %s\n' "$*"; }

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "installing packages needs root: run this as root or install sudo"
  fi
}

# apt_get ARGUMENT...: waits while another apt-get runs. Its own option waits for dpkg's lock, not for that of
# the package lists.
apt_get() {
  local said
  for _ in {1..60}; do
    if said=$(as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C \
      apt-get -qq -o DPkg::Lock::Timeout=600 "$@" 2>&1); then return 0; fi
    [[ $said == *"Could not get lock"* ]] || break
    sleep 5
  done
  printf '%s\n' "$said" >&2
  return 1
}

# need PACKAGE...: installs missing Debian packages.
need() {
  local missing=() package
  for package in "$@"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  command -v apt-get >/dev/null || fail "this machine has no apt-get; install by hand: ${missing[*]}"
  say "Installing ${missing[*]}"
  apt_get update || fail "the package lists could not be updated; is the network up?"
  apt_get install -y --no-install-recommends "${missing[@]}" || fail "these packages could not be installed: ${missing[*]}"
}

need_build_tools() { need g++ cmake ninja-build; }
# What the example tools run. The font is for burnt-in texts.
need_ffmpeg() { need ffmpeg fonts-dejavu-core; }
need_test_tools() {
  need_build_tools
  need_ffmpeg
  need libgtest-dev libgmock-dev nlohmann-json3-dev libavutil-dev libxxhash-dev libssl-dev python3 doxygen
  need binutils dpkg-dev file pkgconf xz-utils # what the packaging is tested with
}

# build_and_test PRESET
build_and_test() {
  say "Configuring and building ($1)"
  cmake --preset "$1"
  cmake --build --preset "$1"
  say "Testing ($1)"
  ctest --preset "$1" --parallel "$(nproc)" --progress
}
