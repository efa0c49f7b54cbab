#!/usr/bin/env bash
# Installs what the given groups of setup/packages.txt need and the machine lacks; silent where nothing is missing.
#   setup/install.sh build test
set -euo pipefail
cd "$(dirname "$0")/.."

say() { printf 'setup: %s\n' "$*"; }
fail() { printf 'setup: %s\n' "$*" >&2; exit 1; }

# Packages of the groups, less those that are installed or whose command is there.
missing_packages() {
  local entry groups package command group
  while read -r entry groups; do
    [[ -z $entry || $entry == '#'* ]] && continue
    package=${entry%%|*} command=${entry#"$package"}
    for group in "$@"; do
      [[ " $groups " == *" $group "* ]] || continue
      [[ -n $command ]] && command -v "${command#|}" >/dev/null && break
      dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || echo "$package"
      break
    done
  done <setup/packages.txt
}

install_packages() {
  (($#)) || return 0
  command -v apt-get >/dev/null || fail "please install these yourself, there is no apt-get here: $*"
  local as_root=()
  if ((EUID != 0)); then
    command -v sudo >/dev/null || fail "needs root or sudo to install: $*"
    as_root=(sudo)
  fi
  say "installing $*"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@"
}

# npm packages of a folder, exactly as its lock file says. npm leaves node_modules/.package-lock.json when it is done.
install_node_modules() {
  local lock=$1/package-lock.json
  [[ -f $lock && ! $1/node_modules/.package-lock.json -nt $lock ]] || return 0
  say "npm ci in $1"
  npm ci --prefix "$1" --no-audit --no-fund --loglevel=error
  touch "$1/node_modules/.package-lock.json"
}

(($#)) || fail "which groups? See setup/packages.txt"
mapfile -t packages < <(missing_packages "$@")
install_packages "${packages[@]}"
for group in "$@"; do
  case $group in
    assets) install_node_modules assets ;;
    check)
      install_node_modules tests/browser
      install_node_modules tests/tokens
      ;;
    bench) install_node_modules benchmarks/pixelmatch ;;
  esac
done
