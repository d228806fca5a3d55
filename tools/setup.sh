#!/usr/bin/env bash
# Installs the Debian packages of tools/packages.txt that are missing. Does nothing, and needs no rights,
# when all are there.
set -euo pipefail

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
mapfile -t wanted < <(sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$here/packages.txt")

if ! command -v dpkg-query >/dev/null; then
    echo "setup: this is no Debian system; please provide what these packages hold:" >&2
    printf '  %s\n' "${wanted[@]}" >&2
    exit 0
fi

missing=()
for package in "${wanted[@]}"; do
    status="$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)"
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

echo "setup: installing ${missing[*]}"
as_root=()
if [[ "$(id -u)" -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "setup: these packages are missing, and installing them needs root: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
