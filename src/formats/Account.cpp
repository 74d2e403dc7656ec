#include "formats/Account.h"

#include "formats/PropertyList.h"

#include <charconv>

namespace pryvane {

namespace {

constexpr std::size_t kLongest = 4096; ///< of a text that is kept; a path is never longer

/// The directory keeps every attribute as an array, of which the first element counts.
std::string firstText(const PropertyValue& account, std::string_view key)
{
    const PropertyValue value = account[key];
    const PropertyValue first =
        value.kind() == PropertyKind::Array && value.size() > 0 ? (*value.begin()).value : value;
    const auto text = first.text();
    return text && text->size() <= kLongest ? std::string(*text) : std::string();
}

} // namespace

Result<Account> readAccount(std::string bytes)
{
    const auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    const PropertyValue root = list->root();
    if (root.kind() != PropertyKind::Dictionary)
        return Error{"an account is a dictionary, and this is none"};
    Account account{firstText(root, "name"),
                    firstText(root, "home"),
                    firstText(root, "realname"),
                    firstText(root, "generateduid"),
                    {}};
    const std::string uid = firstText(root, "uid");
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(uid.data(), uid.data() + uid.size(), number);
    if (!uid.empty() && error == std::errc() && end == uid.data() + uid.size())
        account.uid = number;
    return account;
}

} // namespace pryvane
