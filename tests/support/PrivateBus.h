#pragma once

#include "support/TemporaryFolder.h"

#include <memory>
#include <string>
#include <sys/types.h>

namespace pryvane::test {

/// A session bus of its own, with no service to start and nobody else on it. While it lives the
/// environment names it, for this process and those it starts.
class PrivateBus {
public:
    /// None where the bus daemon is missing or does not start.
    [[nodiscard]] static std::unique_ptr<PrivateBus> start();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const std::string& address() const { return m_address; }

private:
    PrivateBus() = default;

    TemporaryFolder m_folder;
    std::string m_address;
    pid_t m_daemon = -1;
};

} // namespace pryvane::test
