#!/usr/bin/env bash
# One disk, scanned, taken off and mounted at another folder: where the file system tells its disks apart, its report is
# still of it, and what was found can be removed; where it does not, nothing is said or removed. And a second disk of
# the same make, mounted where the first one was: that report knows nothing of it and removes nothing from it.
#   other_disks_test.sh PRYVANE-CLI
set -uo pipefail
cli=$(realpath "$1")
[[ $(id -u) == 0 ]] || { echo "only root may mount"; exit 77; }
if [[ ${OTHER_DISKS_INSIDE:-} != yes ]]; then
    unshare -m true 2>/dev/null || { echo "no mounts of its own"; exit 77; }
    OTHER_DISKS_INSIDE=yes exec unshare -m --propagation private "$0" "$@"
fi
work=$(mktemp -d)
trap 'umount -l "$work"/at.* "$work"/base.* 2>/dev/null; rm -rf "$work"' EXIT
finding=Library/LaunchAgents/com.refog.agent.plist
failed=0
fail() { echo "FAILED: $kind: $*"; failed=1; }

# A Mac's disk with one finding, below the folder $1.
plant() { mkdir -p "$1/Users/alice" "$1/${finding%/*}" && echo x >"$1/$finding"; }

# Makes the disk number $1 of the kind.
make() {
    local disk=$work/$kind.$1
    case $kind in
    folder | folder-by-bind) plant "$disk.tree" ;;
    tmpfs) mkdir -p "$work/base.$1" && mount -t tmpfs none "$work/base.$1" && plant "$work/base.$1" ;;
    overlay) mkdir -p "$disk.upper" "$disk.work" "$disk.lower" && plant "$disk.lower" ;;
    ext4) truncate -s 8M "$disk.img" && plant "$disk.tree" && mkfs.ext4 -q -d "$disk.tree" "$disk.img" ;;
    ext2-in-user-space) truncate -s 2M "$disk.img" && plant "$disk.tree" && mkfs.ext2 -q -d "$disk.tree" "$disk.img" ;;
    squashfs) plant "$disk.tree" && mksquashfs "$disk.tree" "$disk.img" -quiet -no-progress ;;
    esac >"$work/log" 2>&1
}

# Mounts it at the folder $2.
attach() {
    local disk=$work/$kind.$1
    mkdir -p "$2"
    case $kind in
    folder) rmdir "$2" && mv "$disk.tree" "$2" ;;
    folder-by-bind) mount --bind "$disk.tree" "$2" ;;
    tmpfs) mount --bind "$work/base.$1" "$2" ;;
    overlay) mount -t overlay none -o "lowerdir=$disk.lower,upperdir=$disk.upper,workdir=$disk.work" "$2" ;;
    ext4) mount -o loop "$disk.img" "$2" ;;
    ext2-in-user-space) fuse2fs "$disk.img" "$2" ;;
    squashfs) mount -t squashfs -o loop "$disk.img" "$2" || squashfuse "$disk.img" "$2" ;;
    esac >"$work/log" 2>&1
}

detach() { umount "$2" 2>/dev/null || umount -l "$2" 2>/dev/null || mv "$2" "$work/$kind.$1.tree"; }

# What the first disk's report says of the disk at the folder $1, and whether it removes there.
expect() {
    local told code
    told=$("$cli" report export "$id" --volume "$1" 2>/dev/null | sed -n 's/.*"presence": "\([a-z]*\)".*/\1/p')
    echo "$kind: $told"
    [[ $told == "$2" ]] || fail "its finding is \"$told\" at $1"
    "$cli" remove "$id" --all --yes --volume "$1" --user alice >"$work/out" 2>"$work/err"
    code=$?
    if [[ $2 == there ]]; then
        [[ $code == 0 && ! -e $1/$finding ]] || fail "removal: $(cat "$work/out" "$work/err")"
    else
        [[ $code == 2 && ! -s $work/out && -s $work/err && -e $1/$finding ]] ||
            fail "removal at $1: $code $(cat "$work/out" "$work/err")"
    fi
}

tried=0
while read -r kind expected; do
    export PRYVANE_DATA_DIR=$work/data.$kind
    make 1 && make 2 && attach 1 "$work/at.one" ||
        { echo "skipped: $kind: $(tail -1 "$work/log")"; umount "$work"/at.one "$work"/base.* 2>/dev/null; continue; }
    tried=$((tried + 1))
    "$cli" scan --volume "$work/at.one" --user alice >"$work/scan" 2>&1
    [[ $? == 1 ]] || fail "its finding: $(cat "$work/scan")"
    id=$("$cli" report list | awk '{ print $1; exit }')
    detach 1 "$work/at.one"
    if attach 1 "$work/at.other"; then expect "$work/at.other" "$expected"; else fail "not again: $(tail -1 "$work/log")"; fi
    detach 1 "$work/at.other"
    if attach 2 "$work/at.one"; then expect "$work/at.one" unknown; else fail "the second: $(tail -1 "$work/log")"; fi
    detach 2 "$work/at.one"
    umount "$work"/base.* 2>/dev/null
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
