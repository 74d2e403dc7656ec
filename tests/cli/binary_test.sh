#!/usr/bin/env bash
# The program as installed: what it links, signals, a closed output, its documentation.
set -u
cli=$1
share=$2
scripts=$(cd "$(dirname "$0")/../../scripts" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export PRYVANE_DATA_DIR=$work/data
fail() { echo "FAILED: $*"; exit 1; }

ldd "$cli" | grep -E 'Qt6(Gui|Widgets)|libX11|libcairo|libpango|libcups' &&
    fail "a library is linked that every start would pay for"
[[ $("$cli" --version) == pryvane-cli\ *Removal\ is\ *confined* ]] || fail "--version"
"$cli" --help | grep -q 'pryvane-cli scan --volume' || fail "--help gives no first step"

"$scripts/make-demo-volume" "$work/demo" >/dev/null || fail "the demonstration volume"
"$scripts/make-demo-volume" "$work/clean" --clean >/dev/null || fail "the clean volume"
"$cli" scan --volume "$work/demo" --user alice --format json >"$work/scan.json"
[[ $? == 1 ]] || fail "findings must give exit code 1"
[[ $(grep -c '"infections"' "$work/scan.json") == 11 ]] || fail "the demonstration's findings"
grep -A1 '"heldBack"' "$work/scan.json" | grep -q '"/Applications/Codec-M.app"' || fail "the application held back"
"$cli" scan --volume "$work/clean" --user alice >"$work/clean.txt" || fail "a clean volume must give exit code 0"
grep -q '^Clean for alice: nothing found.' "$work/clean.txt" || fail "the clean verdict"

# A removal that is interrupted tells exactly what it took away.
finding=$work/demo/Users/alice/Library/.A_o_b_o
for i in $(seq 200); do mkdir "$finding/$i" && (cd "$finding/$i" && touch $(seq 100)); done
before=$(find "$finding" | wc -l)
"$cli" scan --volume "$work/demo" --user alice >/dev/null
item=$("$cli" report show latest 2>/dev/null | awk '/A_o_b_o/ { print $1 }')
"$cli" remove latest --item "$item" --yes --volume "$work/demo" --user alice >"$work/removed.txt" 2>"$work/removed.err" &
pid=$!
# It is stopped while it is looked at, so that a busy machine does not let it come to its end meanwhile.
while [[ /proc/$pid/exe -ef /proc/$$/exe ]]; do :; done # not yet begun
while kill -STOP $pid && (($(ls -U "$finding" | wc -l) > 200)); do kill -CONT $pid && sleep 0.002; done
kill -INT $pid && kill -CONT $pid
wait $pid
[[ $? == 130 ]] || fail "SIGINT must end a removal with exit code 130: $(cat "$work/removed.err")"
told=$(awk '$2 == "failed" { print $3 }' "$work/removed.txt")
left=$(find "$finding" | wc -l)
((told > 0 && told == before - left)) || fail "told $told of $((before - left)) entries"
grep -q 'stopped before it was done' "$work/removed.txt" || fail "an interrupted removal must say so"
"$cli" remove latest --item "$item" --yes --volume "$work/demo" --user alice >/dev/null || fail "removing the rest"
[[ -e $finding ]] && fail "the rest is still there"

"$cli" report export latest >/dev/full 2>"$work/full.err"
[[ $? == 2 ]] || fail "an output that cannot be written must give exit code 2"

if command -v man >/dev/null; then
    man --warnings -E UTF-8 -l "$share/pryvane-cli.1" >"$work/man.txt" 2>"$work/man.err" || fail "man"
    [[ -s $work/man.err ]] && fail "man warns: $(head -1 "$work/man.err")"
    grep -q 'report compare OLD NEW' "$work/man.txt" || fail "the man page lacks a command"
fi
completes() { # what is offered for the last of the words "$2"
    bash -c "source '$share/pryvane-cli.bash'; cd /usr; COMP_WORDS=($2); COMP_CWORD=\$((\${#COMP_WORDS[@]} - 1)); _pryvane_cli
        [[ \${COMPREPLY[*]} == $1 ]]" || fail "bash completion of: $2"
}
completes show "pryvane-cli report s"
completes "'text json jsonl'" "pryvane-cli scan --format ''"
completes "*lib*" "pryvane-cli scan --from li"
if command -v fish >/dev/null; then
    fish --no-config -c "source '$share/pryvane-cli.fish'; complete -C 'pryvane-cli report '" | grep -q compare ||
        fail "fish completion"
fi
if command -v zsh >/dev/null; then
    zsh -n "$share/_pryvane-cli" || fail "zsh completion does not parse"
fi
echo passed
