#include "volume/listing/ListingReader.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Sha256.h"
#include "core/Texts.h"
#include "platform/MacFolders.h"
#include "volume/listing/ListingFormat.h"
#include "volume/listing/ListingIndexer.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

namespace pryvane {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;
constexpr std::size_t kFirstSkipped = 3;
constexpr std::size_t kShownOfLine = 200;

/// One list on its way into an index.
class Reading {
public:
    Reading(const std::string& name, const ListingOptions& options)
        : m_name(name), m_options(options), m_index(std::make_unique<NameIndex>(options.matching)),
          m_indexer(*m_index, *options.choice, options.prefix)
    {
    }

    [[nodiscard]] Result<Done> readFrom(int fd, const StopFlag& stop,
                                        std::atomic<std::uint64_t>& bytesRead)
    {
        std::vector<char> buffer(kBlock + kLongestLine + 1);
        std::size_t held = 0;
        for (;;) {
            if (stop.requested())
                return Error{"interrupted"};
            const ssize_t got = read(fd, buffer.data() + held, buffer.size() - held);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0)
                return Error{shown() + " cannot be read (" + errorText(errno) + ")"};
            if (m_options.withHash)
                m_hash.add({buffer.data() + held, static_cast<std::size_t>(got)});
            held += static_cast<std::size_t>(got);
            bytesRead += static_cast<std::uint64_t>(got);
            const bool atEnd = got == 0;
            // The format is told from a fair amount of lines, even where they come one by one.
            if (!m_lines && !atEnd && held < kLongestLine)
                continue;
            const std::string_view text(buffer.data(), held);
            if (!m_lines && !begin(text))
                return Error{
                    shown() +
                    (held == 0
                         ? " is empty"
                         : " is no list of names that is known: "
                           "paths, one a line or with NUL behind each; find -ls; bodyfile; mtree; "
                           "JSON Lines with \"path\"")};
            const std::size_t used = take(text);
            if (atEnd) {
                endWith(text.substr(used));
                return Done{};
            }
            std::memmove(buffer.data(), buffer.data() + used, held - used);
            held -= used;
            if (held > kLongestLine) {
                held = 0;
                m_isInLongLine = true;
            }
        }
    }

    [[nodiscard]] Result<std::unique_ptr<IndexFileSystem>> finished()
    {
        SourceFacts& facts = m_facts;
        if (facts.entries == 0)
            return Error{shown() + " holds no path that could be understood as " +
                         std::string(listingFormatText(m_format)) +
                         (facts.firstSkipped.empty()
                              ? std::string()
                              : "; its first line: " + forScreen(facts.firstSkipped.front())) +
                         (m_options.prefix.empty()
                              ? ""
                              : "; does every path begin with what --strip names?")};
        if (m_options.withHash)
            facts.sha256 = m_hash.hex();
        facts.source = "a list of names";
        facts.name = m_name;
        facts.format = listingFormatText(m_format);
        facts.remark = tellsKinds(m_format)
                           ? "A list tells names, not contents."
                           : "This list does not tell files from empty folders, nor sizes.";
        IndexFileSystem::Parts parts;
        parts.names = std::move(m_index);
        parts.choice = m_options.choice;
        parts.cover = NameCover::AsListed;
        parts.deepest = m_indexer.deepest();
        parts.facts = std::move(facts);
        auto disk = std::make_unique<IndexFileSystem>(std::move(parts));
        // Of a list, which need not cover the disk, at least one must be known.
        const bool isMac = std::ranges::any_of(kMacFolders, [&](std::string_view name) {
            return disk->exists(FileURL::fileURLWithPath(name));
        });
        if (!isMac)
            return noMac();
        return disk;
    }

private:
    [[nodiscard]] std::string shown() const
    {
        return m_name == "-" ? std::string("the list on standard input")
                             : "\"" + forScreen(m_name) + "\"";
    }

    [[nodiscard]] Error noMac() const
    {
        std::string text = shown() + " holds no Mac's disk: none of /Users, /Library, /System and "
                                     "/Applications is in it";
        if (!m_indexer.likelyPrefix().empty())
            text += "; its paths begin with something else, try --strip " +
                    forScreen(m_indexer.likelyPrefix());
        return {text};
    }

    [[nodiscard]] bool begin(std::string_view text)
    {
        constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
        if (text.starts_with(kByteOrderMark)) {
            text.remove_prefix(kByteOrderMark.size());
            m_skipFirst = kByteOrderMark.size();
        }
        const auto format = recognisedFormat(text.substr(0, kLongestLine), m_options.prefix);
        if (!format)
            return false;
        m_format = *format;
        const auto end = text.find('\n');
        m_hasReturns = m_format != ListingFormat::PlainNul && end != text.npos && end > 0 &&
                       text[end - 1] == '\r';
        m_lines = lineReader(m_format);
        return true;
    }

    /// Reads the whole lines; returns how many bytes they were.
    [[nodiscard]] std::size_t take(std::string_view text)
    {
        const char separator = lineEnd(m_format);
        std::size_t at = std::exchange(m_skipFirst, 0);
        for (;;) {
            const void* end = text.size() > at
                                  ? std::memchr(text.data() + at, separator, text.size() - at)
                                  : nullptr;
            if (end == nullptr)
                return at;
            const auto length =
                static_cast<std::size_t>(static_cast<const char*>(end) - (text.data() + at));
            if (std::exchange(m_isInLongLine, false))
                skip("(a line of more than " + std::to_string(kLongestLine) + " bytes)");
            else
                line(text.substr(at, length));
            at += length + 1;
        }
    }

    void endWith(std::string_view rest)
    {
        bool cutOff = false;
        if (m_isInLongLine) {
            skip("(a line of more than " + std::to_string(kLongestLine) + " bytes)");
        } else if (!rest.empty()) {
            // Nobody can tell whether the name went on, but for an object that was closed.
            const auto skipped = m_facts.skipped;
            line(rest);
            cutOff = m_format != ListingFormat::JsonLines || m_facts.skipped != skipped;
        }
        m_indexer.finish(cutOff);
    }

    void line(std::string_view text)
    {
        if (text.size() > kLongestLine) {
            skip(text);
            return;
        }
        if (m_hasReturns && text.ends_with('\r'))
            text.remove_suffix(1);
        switch (m_lines->read(text, m_entry)) {
        case LineReader::Outcome::Entry:
            if (m_indexer.add(m_entry))
                m_facts.entries += m_entry.isPartial ? 0 : 1;
            else
                skip(text);
            break;
        case LineReader::Outcome::Nothing:
            break;
        case LineReader::Outcome::Malformed:
            skip(text);
            break;
        }
    }

    void skip(std::string_view text)
    {
        ++m_facts.skipped;
        if (m_facts.firstSkipped.size() < kFirstSkipped)
            m_facts.firstSkipped.emplace_back(text.substr(0, kShownOfLine));
    }

    const std::string m_name;
    const ListingOptions& m_options;
    std::unique_ptr<NameIndex> m_index;
    ListingIndexer m_indexer;
    ListingFormat m_format = ListingFormat::Plain;
    std::unique_ptr<LineReader> m_lines;
    ListedEntry m_entry;
    SourceFacts m_facts;
    Sha256 m_hash;
    std::size_t m_skipFirst = 0; ///< bytes before the first line
    bool m_hasReturns = false;   ///< lines end as on Windows
    bool m_isInLongLine = false; ///< what comes belongs to a line that is too long
};

} // namespace

Result<std::unique_ptr<IndexFileSystem>> readListing(int fd, const std::string& name,
                                                     const ListingOptions& options,
                                                     const StopFlag& stop,
                                                     std::atomic<std::uint64_t>& bytesRead)
{
    Reading reading(name, options);
    if (const auto read = reading.readFrom(fd, stop, bytesRead); !read)
        return read.error();
    return reading.finished();
}

Result<std::unique_ptr<IndexFileSystem>> openListing(const std::string& path,
                                                     const ListingOptions& options,
                                                     const StopFlag& stop,
                                                     std::atomic<std::uint64_t>& bytesRead)
{
    if (path == "-")
        return readListing(STDIN_FILENO, path, options, stop, bytesRead);
    const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    struct stat data {};
    if (!fd || fstat(fd.get(), &data) != 0)
        return Error{"the list \"" + forScreen(path) + "\" cannot be opened (" + errorText(errno) +
                     ")"};
    if (S_ISDIR(data.st_mode))
        return Error{"\"" + forScreen(path) + "\" is a folder, not a list; --volume takes folders"};
    return readListing(fd.get(), path, options, stop, bytesRead);
}

} // namespace pryvane
