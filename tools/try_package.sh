#!/usr/bin/env bash
# Installs the Debian package into a bare Debian system in a folder of its own, runs the programs there as a
# user without rights, and takes the package off again. Needs root, and debootstrap unless a root is given.
#
# Usage: tools/try_package.sh [--root DIR] [PACKAGE.deb]
#   PACKAGE.deb   default: made from the release build
#   --root DIR    a bare system to copy, as debootstrap --variant=minbase makes it
set -euo pipefail

project="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
root="" package=""
while [[ $# -gt 0 ]]; do
    case "$1" in
        --root) root="$(cd "${2:?--root needs a folder}" && pwd)"; shift 2 ;;
        -*) echo "try_package: there is no option $1" >&2; exit 1 ;;
        *) package="$(realpath -e "$1")"; shift ;;
    esac
done
fail() { echo "try_package: $1" >&2; exit 1; }
step() { printf '== %s (at %d s)\n' "$1" "$SECONDS"; }

[[ "$(id -u)" -eq 0 ]] || fail "a system in a folder of its own needs root"
# What is mounted goes away with the name space, even when this is killed.
if [[ "${TRY_PACKAGE_UNSHARED:-}" != yes ]]; then
    TRY_PACKAGE_UNSHARED=yes exec unshare --mount --propagation private -- "${BASH_SOURCE[0]}" \
        ${root:+--root "$root"} ${package:+"$package"}
fi

work="$(mktemp -d)"
clean() {
    umount "$work/bare/proc" "$work/bare/tmp" 2>/dev/null || true
    rm -rf --one-file-system "$work"
}
trap clean EXIT

if [[ -z "$package" ]]; then
    step "Package from the release build"
    cd "$project"
    [[ -f build/release/build.ninja ]] || cmake --preset release
    cmake --build --preset release --target installables
    cpack --preset release -B "$work/package"
    package="$(echo "$work"/package/*.deb)"
fi

step "Bare system"
bare="$work/bare"
if [[ -n "$root" ]]; then
    cp -a --one-file-system "$root" "$bare"
else
    # Where this system itself has its packages from.
    # shellcheck disable=SC2016  # apt's own variable
    mirror="$(apt-get indextargets 'Created-By: Packages' 'Codename: bookworm' 'Component: main' \
        --format '$(REPO_URI)' | head -n 1)"
    [[ -n "$mirror" ]] || fail "apt knows no source of Debian 12"
    debootstrap --variant=minbase bookworm "$bare" "$mirror" >"$work/debootstrap.log" 2>&1 \
        || { tail -n 20 "$work/debootstrap.log" >&2; fail "the bare system could not be made"; }
fi
cp /etc/resolv.conf "$bare/etc/resolv.conf"
mount -t proc proc "$bare/proc"
mount -t tmpfs tmpfs "$bare/tmp"

in_bare() { chroot "$bare" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 "$@"; }
files() { in_bare find / -xdev -path /proc -prune -o -path /tmp -prune -o -path /home -prune -o -type f -print | sort; }

step "Install"
cp "$package" "$bare/var/cache/kest.deb"
in_bare DEBIAN_FRONTEND=noninteractive apt-get update -q >"$work/apt.log"
count="$(in_bare dpkg-query -f '.\n' -W | wc -l)"
# What the package merely recommends stays away: the programs run without it.
in_bare DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends /var/cache/kest.deb \
    >>"$work/apt.log" 2>&1 || { tail -n 40 "$work/apt.log" >&2; fail "apt could not install $package"; }
# shellcheck disable=SC2016  # dpkg's own variables
echo "$(in_bare dpkg-query -f '${Package} ${Version}, ${Installed-Size} kB' -W kest);" \
    "$(($(in_bare dpkg-query -f '.\n' -W | wc -l) - count - 1)) packages came with it"
in_bare dpkg --verify kest
in_bare useradd --create-home ann

as_user() { in_bare setpriv --reuid ann --regid ann --clear-groups env HOME=/home/ann XDG_RUNTIME_DIR=/home/ann "$@"; }
sample=/usr/share/kest/samples/office.dxf

step "layerman"
as_user layerman --version
rows="$(as_user layerman list "$sample" --format csv | wc -l)"
[[ "$rows" -eq 66 ]] || fail "layerman lists $rows lines of the sample, not 65 layers and their title"
as_user layerman set "$sample" --search 'E-*' locked=yes -o /home/ann/office.dxf
locked="$(as_user layerman list /home/ann/office.dxf --search 'E-*' --columns locked --format csv | sort -u)"
[[ "$locked" == $'locked\nyes' ]] || fail "after locking, layerman lists: $locked"

step "kest --batch"
printf '%s\n' '-LAYER Freeze E-DATA' 'SAVEAS /home/ann/frozen.dxf' >"$bare/tmp/script"
as_user kest --batch /tmp/script "$sample"
frozen="$(as_user layerman list /home/ann/frozen.dxf --search E-DATA --columns freeze --format csv | tail -n 1)"
[[ "$frozen" == yes ]] || fail "the layer that the script froze is not frozen"

step "kest, window without a display"
as_user QT_QPA_PLATFORM=offscreen kest --screenshot /home/ann/window.png "$sample" >"$bare/tmp/window.log" 2>&1 \
    || { cat "$bare/tmp/window.log" >&2; fail "the window could not be drawn"; }
size="$(stat -c %s "$bare/home/ann/window.png")"
[[ "$size" -gt 100000 ]] || fail "the picture of the window has $size bytes; with a drawing in it there are more"
mkdir -p "$project/build"
cp "$bare/home/ann/window.png" "$project/build/try_package.png"
echo "the picture is $project/build/try_package.png"

step "Manuals and completions"
for file in man/man1/kest.1.gz man/man1/layerman.1.gz bash-completion/completions/kest bash-completion/completions/layerman; do
    [[ -s "$bare/usr/share/$file" ]] || fail "there is no /usr/share/$file"
done

step "Remove"
in_bare dpkg --purge kest >/dev/null
left="$(files | grep -E '/(kest|layerman|LayerManager)' | grep -v '^/var/cache/kest.deb$' || true)"
[[ -z "$left" ]] || fail "this is left after removal: $left"
step "All of it worked"
