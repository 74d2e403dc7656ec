#!/usr/bin/env bash
# The layer check must be content with a tree in order, and object to each way to be out of order.
set -u
check=$1
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
# Two rooms in order, the upper one using the lower one and QtCore.
fresh() {
    rm -rf "${root:?}"/*
    mkdir -p "$root"/{low,high}
    printf '%s\n' '# a table' 'low:' 'high: low | Core' >"$root/rooms.txt"
    printf '%s\n' '#include "low/Low.h"' '#include <QObject>' '#include <QtCore/QString>' >"$root/high/High.cpp"
    echo 'int low();' >"$root/low/Low.h"
}
expect() { # TEXT
    "$check" "$root" | grep -qF "$1" || { echo "not objected to: $1"; exit 1; }
    "$check" "$root" >/dev/null && { echo "exits 0: $1"; exit 1; }
    fresh
}

fresh
"$check" "$root" >/dev/null || { echo "objects to a tree in order:"; "$check" "$root"; exit 1; }
echo '#include "high/High.h"' >"$root/low/Up.h"
expect 'low/Up.h:1: low may not include high/High.h'
echo '#include <QtWidgets/QWidget>' >"$root/high/Widget.cpp"
expect 'high/Widget.cpp:1: high may not include <QtWidgets/QWidget>'
echo '#include <QLabel>' >"$root/high/Label.cpp"
expect 'high/Label.cpp:1: high may not include <QLabel>'
echo '#include <QObject>' >"$root/low/Object.h"
expect 'low/Object.h:1: low may not include <QObject>'
mkdir "$root/stray" && echo 'int x;' >"$root/stray/X.cpp"
expect 'stray/X.cpp: its folder is no room'
printf '%s\n' 'low: high' 'high: low | Core' >"$root/rooms.txt"
expect 'rooms.txt:1: low may only use rooms that stand above it, and high does not'
echo 'empty:' >>"$root/rooms.txt"
expect 'rooms.txt:4: there is no folder empty'
sed -i '1d' "$root/high/High.cpp"
expect 'rooms.txt:3: nothing in high includes low; take it off the row'
sed -i '2d' "$root/high/High.cpp"
sed -i '$d' "$root/high/High.cpp"
expect 'rooms.txt:3: nothing in high includes QtCore; take it off the row'
printf '%s\n' 'top: high' >>"$root/rooms.txt" && mkdir "$root/top" && echo '#include "high/High.h"' >"$root/top/Top.h"
expect 'rooms.txt:4: top is to know no Qt, but uses high, which does'
echo 'high low' >>"$root/rooms.txt"
expect 'rooms.txt:4: this line is not'
