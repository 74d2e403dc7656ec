#pragma once

#include "core/Files.h"

#include <array>
#include <string_view>
#include <sys/types.h>

namespace pryvane {

/// Two local sockets, connected with each other, which no program that is started inherits. Not
/// open, with errno set, on failure.
[[nodiscard]] std::array<UniqueFd, 2> socketPair();

/// send(), raising no signal where the other end has gone.
[[nodiscard]] ssize_t sendQuietly(int socket, std::string_view bytes);

} // namespace pryvane
