#include "cli/ScanSources.h"

#include "cli/CommandLine.h"
#include "core/Escape.h"
#include "core/Files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <istream>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane::cli {

namespace {

constexpr std::array kKinds = {ScanSource::Kind::Folder, ScanSource::Kind::Image,
                               ScanSource::Kind::Listing};

/// Whether bytes are the beginning of a list of names: lines, or texts with a NUL behind each.
/// Every image has binary numbers there, or nothing but zeros; but one kind has a text of its own.
bool isText(std::string_view bytes)
{
    char before = '\0';
    for (const char c : bytes) {
        const bool isControl =
            static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r' && c != '\0';
        if (isControl || (c == '\0' && before == '\0'))
            return false;
        before = c;
    }
    return !bytes.empty() && !bytes.starts_with("# Disk DescriptorFile");
}

Result<ScanSource> sourceOfLine(std::string_view line)
{
    const auto cut = [&line] {
        const auto tab = line.find('\t');
        std::string field(line.substr(0, tab));
        line.remove_prefix(tab == std::string_view::npos ? line.size() : tab + 1);
        return field;
    };
    ScanSource source;
    source.label = cut();
    source.path = cut();
    const std::string kind(line);
    if (source.label.empty() || source.path.empty())
        return Error{"a line is a label, a tab and a folder, image or list"};
    if (source.label.size() > kLongestLabel)
        return Error{"the label is longer than " + std::to_string(kLongestLabel) + " bytes"};
    const auto named =
        std::ranges::find_if(kKinds, [&](auto known) { return kind == kindWord(known); });
    if (!kind.empty() && named == kKinds.end())
        return Error{"\"" + forTerminal(kind) + "\" is no folder, image or listing"};
    source.kind = kind.empty() ? recognisedKind(source.path) : *named;
    return source;
}

} // namespace

const char* kindWord(ScanSource::Kind kind)
{
    switch (kind) {
    case ScanSource::Kind::Image:
        return "image";
    case ScanSource::Kind::Listing:
        return "listing";
    case ScanSource::Kind::Folder:
        break;
    }
    return "folder";
}

ScanSource::Kind recognisedKind(const std::string& path)
{
    struct stat data {};
    if (stat(path.c_str(), &data) != 0 || S_ISDIR(data.st_mode))
        return ScanSource::Kind::Folder;
    if (!S_ISREG(data.st_mode))
        return ScanSource::Kind::Image;
    std::array<char, 512> beginning{};
    const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    const ssize_t got = fd ? read(fd.get(), beginning.data(), beginning.size()) : 0;
    const std::string_view bytes(beginning.data(),
                                 static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return isText(bytes) ? ScanSource::Kind::Listing : ScanSource::Kind::Image;
}

Result<std::vector<ScanSource>> readScanSources(const std::string& file, std::istream& input)
{
    const std::string shown = file == "-" ? "the standard input" : forTerminal(file);
    std::ifstream opened;
    if (file != "-") {
        opened.open(file, std::ios::binary);
        if (!opened)
            return Error{"no disks can be read from " + shown + ": " + errorText(errno)};
    }
    std::istream& lines = file == "-" ? input : opened;
    std::vector<ScanSource> sources;
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.ends_with('\r'))
            line.pop_back();
        if (line.empty() || line.starts_with('#'))
            continue;
        auto source = sourceOfLine(line);
        if (!source)
            return Error{shown + ", line " + std::to_string(number) + ": " +
                         source.error().message};
        sources.push_back(std::move(source).value());
    }
    if (lines.bad())
        return Error{shown + " cannot be read to its end"};
    if (sources.empty())
        return Error{shown +
                     " names no disk; a line is a label, a tab and a folder, image or list"};
    return sources;
}

} // namespace pryvane::cli
