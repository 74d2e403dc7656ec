#pragma once

#include "core/Result.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace pryvane {

/// The user's web browser. Main thread only.
class WebBrowser {
public:
    virtual ~WebBrowser() = default;

    /// Opens the page of an http or https address without waiting for it. Any other address, or a
    /// desktop without a browser, is an error.
    virtual Result<Done> open(const std::string& address) = 0;
};

/// The vendor's settings file on the network. Main thread only.
class SettingsFile {
public:
    /// The body as raw bytes, or why there is none.
    using Reply = std::function<void(Result<std::string> body)>;

    static constexpr std::chrono::seconds kTimeLimit{10};
    static constexpr std::size_t kSizeLimit = std::size_t{64} * 1024;

    virtual ~SettingsFile() = default;

    /// One GET, without retry. `reply` is called exactly once, on the main thread, after this has
    /// returned; it is dropped when this ends first. An answer other than 200, one longer than
    /// kSizeLimit or one that takes longer than kTimeLimit in all is an error.
    virtual void fetch(Reply reply) = 0;
};

} // namespace pryvane
