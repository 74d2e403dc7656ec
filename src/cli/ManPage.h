#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace pryvane::cli {

/// The manual page of the whole program, in roff, made from the parser.
[[nodiscard]] std::string manPage(const CLI::App& app);

} // namespace pryvane::cli
