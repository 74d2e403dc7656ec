#pragma once

#include "signatures/Explain.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace pryvane {

class Spyware;

/// Which rule flagged a finding, and how strongly that speaks.
struct FlaggedBy {
    std::string_view rule; ///< in a few words, as in the catalogue; lasts as long as the program
    std::string
        text; ///< the location, name or text that fits, raw bytes; empty: none could be told
    Evidence evidence = Evidence::BareSubstring;
    friend bool operator==(const FlaggedBy&, const FlaggedBy&) = default;
};

/// Tells of findings which rule of their threat fits best. Of the record alone: the user whose name
/// fills the rules is the one whose home the path is in, and names are compared as they are
/// written, since a finding's path is the catalogue's or one that the disk listed. Keeps what it
/// made for a user, so that each of a great many findings of a deep scan costs one pass over its
/// path. For one thread at a time.
class FindingRules {
public:
    FindingRules();
    ~FindingRules();
    FindingRules(const FindingRules&) = delete;
    FindingRules& operator=(const FindingRules&) = delete;

    [[nodiscard]] FlaggedBy flaggedBy(const Spyware& record);

private:
    class OfUser;
    [[nodiscard]] OfUser& rulesOf(const std::string& user);

    std::unordered_map<std::string, std::unique_ptr<OfUser>> m_users;
};

/// Whether a finding of that kind may well be something harmless of a similar name.
[[nodiscard]] constexpr bool isWeak(Evidence evidence)
{
    return evidence == Evidence::NameFragment || evidence == Evidence::BareSubstring;
}

/// The evidence and the text it rests on: "name fragment "okaz"". Raw bytes. An exact path says all
/// by itself.
[[nodiscard]] std::string evidenceText(const FlaggedBy& flaggedBy);

/// The short name in a path of the form "/Users/NAME/..."; empty for any other.
[[nodiscard]] std::string userOfPath(std::string_view path);

} // namespace pryvane
