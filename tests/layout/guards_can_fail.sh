#!/usr/bin/env bash
# The check of what mutexes guard must be content with code that locks, and object to each way not to.
set -u
check=$1 build=$2
source=$(mktemp --suffix=.cpp)
trap 'rm -f "$source"' EXIT
written() { # BODY of a member function of a class with a guarded count
    cat >"$source" <<END
#include "core/ThreadSafety.h"
struct Counter {
    int taken() { $1 }
    int next() REQUIRES(m_mutex) { return ++m_count; }
    void reset() EXCLUDES(m_mutex) {}
    pryvane::Mutex m_mutex;
    int m_count GUARDED_BY(m_mutex) = 0;
};
END
    "$check" "$build" "$source" >"$source.out"
    status=$?
    out=$(cat "$source.out")
    rm "$source.out"
    ((status == 77)) && exit 77
}
allowed() {
    written "$1"
    ((status == 0)) || { printf 'objected to: %s\n%s\n' "$1" "$out"; exit 1; }
}
refused() { # BODY TEXT
    written "$1"
    ((status == 1)) && [[ $out == *"$2"* ]] || { printf 'not objected to: %s\n%s\n' "$1" "$out"; exit 1; }
}

allowed 'const pryvane::MutexLock lock(m_mutex); return next() + m_count;'
allowed 'pryvane::MutexLock lock(m_mutex); lock.unlock(); reset(); lock.lock(); return next();'
refused 'return m_count;' "requires holding mutex 'm_mutex'"
refused 'return next();' "requires holding mutex 'm_mutex'"
refused 'pryvane::MutexLock lock(m_mutex); lock.unlock(); return m_count;' "requires holding mutex 'm_mutex'"
refused 'const pryvane::MutexLock lock(m_mutex); reset(); return 0;' "while mutex 'm_mutex' is held"
refused 'std::mutex unseen; const std::lock_guard lock(unseen); return 0;' 'use core/ThreadSafety.h in place of std::mutex'
