#pragma once

#include "core/Files.h"
#include "core/Result.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// What a second start asks of the program that runs already, beside coming to the front.
struct InstanceRequest {
    std::optional<std::string> volume; ///< host folder, absolute, raw bytes
    std::optional<std::string> user;   ///< short name on that volume, raw bytes
    bool scan = false;
    std::string activationToken; ///< the desktop's permission to take the keyboard; may be empty

    friend bool operator==(const InstanceRequest&, const InstanceRequest&) = default;
};

/// As much as one program sends another.
inline constexpr std::size_t kInstanceMessageLimit = 4096;

/// The request as a message. The error says that it is too long or cannot be sent.
[[nodiscard]] Result<std::string> encoded(const InstanceRequest& request);

/// The request of a message; none for anything but exactly what encoded() makes.
[[nodiscard]] std::optional<InstanceRequest> decodedRequest(std::string_view message);

/// Keeps to one program a store: a lock beside the store says who is first, a socket in the user's
/// runtime folder takes what later starts ask for. The lock ends with the process, however that
/// ends.
class SingleInstance {
public:
    /// As long as a later start waits for the first one's answer, in all.
    static constexpr std::chrono::milliseconds kPatience{200};

    /// Never waits. The folders are host paths and must be there. An error says why it cannot be
    /// told; starting all the same is right then, for the store guards itself.
    [[nodiscard]] static Result<SingleInstance> claim(const std::string& dataFolder,
                                                      const std::string& runtimeFolder);

    SingleInstance(SingleInstance&&) = default;
    SingleInstance& operator=(SingleInstance&&) = delete;
    ~SingleInstance();

    [[nodiscard]] bool isFirst() const { return m_isFirst; }

    /// For the first: the socket that takes requests, not blocking, and the caller's. Without it
    /// later starts are told that this one does not answer.
    [[nodiscard]] Result<UniqueFd> listen();

    /// For a later one: hands the request to the first and waits for its answer. The error says
    /// what to do.
    [[nodiscard]] Result<Done> handOver(const InstanceRequest& request,
                                        std::chrono::milliseconds patience = kPatience) const;

    [[nodiscard]] const std::string& socketPath() const { return m_socketPath; }

private:
    SingleInstance(UniqueFd lock, bool isFirst, std::string socketPath)
        : m_lock(std::move(lock)), m_isFirst(isFirst), m_socketPath(std::move(socketPath))
    {
    }

    UniqueFd m_lock;
    bool m_isFirst;
    std::string m_socketPath;
};

/// What the first answers once it has understood.
inline constexpr std::string_view kInstanceAnswer = "ok\n";

/// Whether all of the bytes were taken. Raises no signal where the other end has gone.
bool sendOnSocket(int socket, std::string_view bytes);

} // namespace pryvane
