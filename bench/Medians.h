#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace pryvane::bench {

/// One thing to time, and the milliseconds of each round.
struct Contender {
    std::string name;
    std::function<void()> work;
    std::vector<double> rounds = {};

    [[nodiscard]] double median() const
    {
        std::vector<double> sorted = rounds;
        std::sort(sorted.begin(), sorted.end());
        return sorted.empty() ? 0 : sorted[sorted.size() / 2];
    }
};

/// Runs all contenders in turn, round after round, so that noise of the machine meets them alike.
inline void race(std::vector<Contender>& contenders, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        for (Contender& contender : contenders) {
            const auto start = std::chrono::steady_clock::now();
            contender.work();
            const std::chrono::duration<double, std::milli> taken =
                std::chrono::steady_clock::now() - start;
            contender.rounds.push_back(taken.count());
        }
    }
}

/// Prints one line of a table and tells whether the target was met.
inline bool row(const std::string& what, double value, double target, const char* unit = "")
{
    const bool met = value <= target;
    std::printf("%-64s %8.2f%s  at most %6.2f%s  %s\n", what.c_str(), value, unit, target, unit,
                met ? "ok" : "FALLS SHORT");
    return met;
}

} // namespace pryvane::bench
