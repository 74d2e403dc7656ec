#!/usr/bin/env bash
# One disk, scanned, taken off and mounted at another folder: where the file system tells its disks apart, its report is
# still of it, and what was found can be removed; where it does not, nothing is said or removed. Usage:
# mounted_elsewhere_test.sh PRYVANE-CLI
set -uo pipefail
cli=$(realpath "$1")
[[ $(id -u) == 0 ]] || { echo "only root may mount"; exit 77; }
if [[ ${ELSEWHERE_INSIDE:-} != yes ]]; then
    unshare -m true 2>/dev/null || { echo "no mounts of its own"; exit 77; }
    ELSEWHERE_INSIDE=yes exec unshare -m --propagation private "$0" "$@"
fi
work=$(mktemp -d)
trap 'umount -l "$work"/at.* "$work"/base 2>/dev/null; rm -rf "$work"' EXIT
finding=Library/LaunchAgents/com.refog.agent.plist
failed=0
fail() { echo "FAILED: $kind: $*"; failed=1; }

# A Mac's disk with one finding, below the folder $1.
plant() { mkdir -p "$1/Users/alice" "$1/${finding%/*}" && echo x >"$1/$finding"; }

# Makes the disk, once.
make() {
    local disk=$work/$kind
    case $kind in
    folder | folder-by-bind) plant "$disk.tree" ;;
    tmpfs) mkdir -p "$work/base" && mount -t tmpfs none "$work/base" && plant "$work/base" ;;
    overlay) mkdir -p "$disk.upper" "$disk.work" "$disk.lower" && plant "$disk.lower" ;;
    ext4) truncate -s 8M "$disk.img" && plant "$disk.tree" && mkfs.ext4 -q -d "$disk.tree" "$disk.img" ;;
    ext2-in-user-space) truncate -s 2M "$disk.img" && plant "$disk.tree" && mkfs.ext2 -q -d "$disk.tree" "$disk.img" ;;
    squashfs) plant "$disk.tree" && mksquashfs "$disk.tree" "$disk.img" -quiet -no-progress ;;
    esac >"$work/log" 2>&1
}

# Mounts it at the folder $1.
attach() {
    local disk=$work/$kind
    mkdir -p "$1"
    case $kind in
    folder) rmdir "$1" && mv "$disk.tree" "$1" ;;
    folder-by-bind) mount --bind "$disk.tree" "$1" ;;
    tmpfs) mount --bind "$work/base" "$1" ;;
    overlay) mount -t overlay none -o "lowerdir=$disk.lower,upperdir=$disk.upper,workdir=$disk.work" "$1" ;;
    ext4) mount -o loop "$disk.img" "$1" ;;
    ext2-in-user-space) fuse2fs "$disk.img" "$1" ;;
    squashfs) mount -t squashfs -o loop "$disk.img" "$1" ;;
    esac >"$work/log" 2>&1
}

tried=0
while read -r kind expected; do
    export PRYVANE_DATA_DIR=$work/data.$kind
    make && attach "$work/at.one" || { echo "skipped: $kind: $(tail -1 "$work/log")"; umount "$work"/at.one "$work/base" 2>/dev/null; continue; }
    tried=$((tried + 1))
    "$cli" scan --volume "$work/at.one" --user alice >"$work/scan" 2>&1
    [[ $? == 1 ]] || fail "its finding: $(cat "$work/scan")"
    id=$("$cli" report list | awk '{ print $1; exit }')
    umount "$work/at.one" 2>/dev/null || mv "$work/at.one" "$work/$kind.tree"
    attach "$work/at.other" || { fail "it cannot be mounted again: $(tail -1 "$work/log")"; continue; }
    told=$("$cli" report export "$id" --volume "$work/at.other" 2>/dev/null | sed -n 's/.*"presence": "\([a-z]*\)".*/\1/p')
    echo "$kind: $told"
    [[ $told == "$expected" ]] || fail "its finding is \"$told\""
    "$cli" remove "$id" --all --yes --volume "$work/at.other" --user alice >"$work/out" 2>"$work/err"
    code=$?
    if [[ $expected == there && $kind != squashfs ]]; then
        [[ $code == 0 && ! -e $work/at.other/$finding ]] || fail "removal: $(cat "$work/out" "$work/err")"
    else
        [[ $code != 0 && -e $work/at.other/$finding ]] || fail "removal: $(cat "$work/out" "$work/err")"
    fi
    umount "$work/at.other" 2>/dev/null
    umount "$work/base" 2>/dev/null
    rm -rf "$work"/at.*
done <<'KINDS'
folder there
folder-by-bind there
tmpfs there
overlay there
ext4 there
ext2-in-user-space unknown
squashfs unknown
KINDS
((tried > 0)) || { echo "nothing can be mounted here"; exit 77; }
exit $failed
