#include "hosts/linux/LinuxMachineInfo.h"

#include "core/Files.h"
#include "hosts/posix/CurrentUser.h"

#include <array>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace pryvane {

namespace {

/// Firmware and settings files say what they have to say in their first page.
std::string beginningOf(const std::string& path)
{
    const UniqueFd file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    std::array<char, 4096> buffer;
    const ssize_t length = file ? read(file.get(), buffer.data(), buffer.size()) : 0;
    return {buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0};
}

/// Without blanks, and without the NUL that ends a device tree's texts.
std::string trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks(" \t\r\n\0", 5);
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos)
        return {};
    return std::string(text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1));
}

/// A value as os-release(5) and its kin quote it.
std::string unquoted(std::string_view value)
{
    const bool isQuoted =
        value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0];
    if (!isQuoted)
        return std::string(value);
    const bool escapes = value[0] == '"';
    value = value.substr(1, value.size() - 2);
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (escapes && value[i] == '\\' && i + 1 < value.size())
            ++i;
        text += value[i];
    }
    return text;
}

std::string settingIn(std::string_view content, std::string_view name)
{
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        const std::string line = trimmed(content.substr(0, end));
        if (line.starts_with(name) && line.substr(name.size()).starts_with('='))
            return trimmed(unquoted(std::string_view(line).substr(name.size() + 1)));
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
    }
    return {};
}

} // namespace

std::optional<std::string> LinuxMachineInfo::computerName()
{
    const std::string content = beginningOf(m_root + "/etc/machine-info");
    if (std::string pretty = settingIn(content, "PRETTY_HOSTNAME"); !pretty.empty())
        return pretty;
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0 || name[0] == '\0')
        return std::nullopt;
    return std::string(name.data());
}

std::string LinuxMachineInfo::loginName()
{
    return loginUser();
}

std::string LinuxMachineInfo::machineModel()
{
    return firstWord({"/sys/class/dmi/id/product_name", "/proc/device-tree/model"})
        .value_or("Just an Apple Computer");
}

std::optional<std::string> LinuxMachineInfo::serialNumber()
{
    return firstWord({"/sys/class/dmi/id/product_serial", "/proc/device-tree/serial-number"});
}

std::optional<std::string>
LinuxMachineInfo::firstWord(std::initializer_list<const char*> paths) const
{
    for (const char* path : paths) {
        if (std::string text = trimmed(beginningOf(m_root + path)); !text.empty())
            return text;
    }
    return std::nullopt;
}

} // namespace pryvane
