#pragma once

#include <string>

namespace pryvane {

/// What the program knows of itself and of whom it serves; settled once at start.
struct ApplicationFacts {
    std::string user;             ///< login short name, as raw bytes
    std::string bundleIdentifier; ///< CFBundleIdentifier
    std::string bundleVersion;    ///< CFBundleVersion
    std::string homePage;         ///< address of the maker's web site
};

} // namespace pryvane
