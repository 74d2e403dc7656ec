#!/usr/bin/env bash
# Each fault that is planted into a copy of the translations is found, and the text is named.
#   translations_can_fail.sh scripts/translations
set -euo pipefail
root=$(cd "$(dirname "$1")/.." && pwd)
copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
mkdir "$copy/scripts"
cp "$root/scripts/translations" "$copy/scripts"
cp -r "$root/src" "$root/translations" "$copy"
german=$copy/translations/pryvane_de.ts

# expect WORDS SED-PROGRAM FILE
expect() {
    cp "$3" "$copy/whole"
    sed -i "$2" "$3"
    cmp -s "$3" "$copy/whole" && { echo "nothing was planted by: $2"; exit 1; }
    if found=$("$copy/scripts/translations" --check 2>&1) || [[ $found != *"$1"* ]]; then
        printf 'planted: %s\nfound: %s\n' "$2" "$found"
        exit 1
    fi
    cp "$copy/whole" "$3"
}
expect "unfinished: 'Scan Now'" '/<source>Scan Now</{n;s/<translation>/<translation type="unfinished">/}' "$german"
expect "not in the file: 'Scan Now'" 's|<source>Scan Now</source>|<source>Scan then</source>|' "$german"
expect "no longer said: 'Scan then'" 's|<source>Scan Now</source>|<source>Scan then</source>|' "$german"
expect "other placeholders: 'Last scan: %1'" 's|Letzter Scan: %1|Letzter Scan|' "$german"
expect "not in the file: 'Scan At Once'" 's/tr("Scan Now")/tr("Scan At Once")/' "$copy/src/scan/views/ScanView.cpp"
expect "does not say 'Every day'" 's/"Every day"/"Each day"/' "$copy/src/app/SchedulerVC.h"
echo ok
