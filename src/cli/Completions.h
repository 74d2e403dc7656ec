#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace pryvane::cli {

// Completion scripts made from the parser.
[[nodiscard]] std::string bashCompletion(const CLI::App& app);
[[nodiscard]] std::string zshCompletion(const CLI::App& app);
[[nodiscard]] std::string fishCompletion(const CLI::App& app);

} // namespace pryvane::cli
