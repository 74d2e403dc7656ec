#!/usr/bin/env bash
# Two disks of one make, mounted one after the other at the same folder: a stored report of the first knows nothing of
# the second, and removes nothing from it. Usage: swapped_disks_test.sh PRYVANE-CLI
set -uo pipefail
cli=$(realpath "$1")
[[ $(id -u) == 0 ]] || { echo "only root may mount"; exit 77; }
if [[ ${SWAPPED_INSIDE:-} != yes ]]; then
    unshare -m true 2>/dev/null || { echo "no mounts of its own"; exit 77; }
    SWAPPED_INSIDE=yes exec unshare -m --propagation private "$0" "$@"
fi
work=$(mktemp -d)
at=$work/at
trap 'umount -l "$at" 2>/dev/null; rm -rf "$work"' EXIT
finding=Library/LaunchAgents/com.refog.agent.plist
failed=0
fail() { echo "FAILED: $kind: $*"; failed=1; }

# A Mac's disk with one finding, below the folder $1.
plant() { mkdir -p "$1/Users/alice" "$1/${finding%/*}" && echo x >"$1/$finding"; }

# Mounts the disk number $1 of the kind.
attach() {
    local disk=$work/$kind.$1
    case $kind in
    tmpfs) mount -t tmpfs none "$at" && plant "$at" ;;
    overlay)
        mkdir -p "$disk.upper" "$disk.work" "$disk.lower" && plant "$disk.lower" &&
            mount -t overlay none -o "lowerdir=$disk.lower,upperdir=$disk.upper,workdir=$disk.work" "$at" ;;
    ext2-in-user-space)
        plant "$disk.tree" && truncate -s 2M "$disk.img" && mkfs.ext2 -q -d "$disk.tree" "$disk.img" &&
            fuse2fs "$disk.img" "$at" ;;
    squashfs)
        plant "$disk.tree" && mksquashfs "$disk.tree" "$disk.img" -quiet -no-progress &&
            { mount -t squashfs -o loop "$disk.img" "$at" || squashfuse "$disk.img" "$at"; } ;;
    esac >"$work/log" 2>&1
}

tried=0
for kind in tmpfs overlay ext2-in-user-space squashfs; do
    export PRYVANE_DATA_DIR=$work/data.$kind
    mkdir -p "$at"
    attach 1 || { echo "skipped: cannot mount $kind: $(tail -1 "$work/log")"; umount "$at" 2>/dev/null; continue; }
    tried=$((tried + 1))
    "$cli" scan --volume "$at" --user alice >"$work/scan" 2>&1
    [[ $? == 1 ]] || fail "the first disk's finding: $(cat "$work/scan")"
    id=$("$cli" report list | awk '{ print $1; exit }')
    umount "$at" || umount -l "$at"
    attach 2 || { fail "the second one cannot be mounted: $(tail -1 "$work/log")"; continue; }
    for report in latest "$id"; do
        "$cli" remove "$report" --all --yes --volume "$at" --user alice >"$work/out" 2>"$work/err"
        [[ $? == 2 && ! -s $work/out && -s $work/err ]] || fail "remove $report: $(cat "$work/out" "$work/err")"
    done
    [[ -e $at/$finding ]] || fail "the second disk's file is gone"
    "$cli" report export "$id" --volume "$at" 2>/dev/null | grep -q '"presence": "unknown"' ||
        fail "the first report says something of the second disk"
    umount "$at" || umount -l "$at"
done
((tried > 0)) || { echo "nothing can be mounted here"; exit 77; }
exit $failed
