#!/usr/bin/env bash
# The layer check must object to an upward include, to Qt where none may be, and to a stray folder.
set -u
check=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
mkdir -p "$root"/{core,reports,stray}
expect() { # TEXT
    "$check" "$root" | grep -qF "$1" || { echo "not objected to: $1"; exit 1; }
}
echo '#include "reports/Report.h"' >"$root/core/Up.h"
expect 'core/Up.h:1: core may not include reports/Report.h'
echo '#include <QtWidgets/QWidget>' >"$root/reports/Widget.cpp"
expect 'reports/Widget.cpp:1: reports may not include <QtWidgets/QWidget>'
echo 'int x;' >"$root/stray/X.cpp"
expect 'stray/X.cpp: its folder stands in no layer'
echo 'fine'
