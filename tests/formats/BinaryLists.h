#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pryvane::test {

/// Writes binary property lists that no honest program would: objects refer to any others.
class BinaryList {
public:
    explicit BinaryList(unsigned referenceSize = 4) : m_referenceSize(referenceSize) {}

    [[nodiscard]] static std::string bytesOf(std::uint64_t number, unsigned size)
    {
        std::string bytes;
        for (unsigned i = size; i > 0; --i)
            bytes += static_cast<char>(number >> (8 * (i - 1)) & 0xff);
        return bytes;
    }

    /// A marker's type in its high half, and a count that may be any.
    [[nodiscard]] static std::string head(unsigned type, std::uint64_t count)
    {
        const auto marker = [type](unsigned low) {
            return std::string(1, static_cast<char>(type << 4 | low));
        };
        return count < 15 ? marker(static_cast<unsigned>(count))
                          : marker(15) + '\x13' + bytesOf(count, 8);
    }

    void object(const std::string& bytes)
    {
        m_offsets.push_back(m_body.size());
        m_body += bytes;
    }
    /// An object that stands where these bytes of the body do.
    void objectAt(std::uint64_t offset) { m_offsets.push_back(offset); }

    /// An array (10), set (12) or dictionary (13), whose keys come first.
    void container(unsigned type, const std::vector<std::uint64_t>& references)
    {
        std::string bytes = head(type, type == 13 ? references.size() / 2 : references.size());
        for (const std::uint64_t reference : references)
            bytes += bytesOf(reference, m_referenceSize);
        object(bytes);
    }

    [[nodiscard]] std::size_t size() const { return m_body.size(); }

    [[nodiscard]] std::string finished(std::uint64_t top = 0) const
    {
        constexpr unsigned kOffset = 4;
        std::string all = m_body;
        for (const std::uint64_t offset : m_offsets)
            all += bytesOf(offset, kOffset);
        return all + std::string(6, '\0') + static_cast<char>(kOffset) +
               static_cast<char>(m_referenceSize) + bytesOf(m_offsets.size(), 8) + bytesOf(top, 8) +
               bytesOf(m_body.size(), 8);
    }

    [[nodiscard]] static std::string nested(std::size_t levels)
    {
        BinaryList list;
        for (std::size_t i = 1; i < levels; ++i)
            list.container(10, {i});
        list.container(10, {});
        return list.finished();
    }
    /// An array whose elements are all the array itself.
    [[nodiscard]] static std::string holdingItself(std::size_t times)
    {
        BinaryList list;
        list.container(10, std::vector<std::uint64_t>(times, 0));
        return list.finished();
    }
    /// Each level twice holds the one below.
    [[nodiscard]] static std::string doubling(std::size_t levels)
    {
        BinaryList list;
        for (std::size_t i = 1; i <= levels; ++i)
            list.container(10, {i, i});
        list.container(10, {});
        return list.finished();
    }
    /// One array that refers to one empty dictionary very often.
    [[nodiscard]] static std::string sharing(std::size_t times)
    {
        BinaryList list(1);
        list.container(10, std::vector<std::uint64_t>(times, 1));
        list.container(13, {});
        return list.finished();
    }
    /// UTF-16 texts, each of which ends where all others do.
    [[nodiscard]] static std::string overlappingTexts(std::size_t count)
    {
        constexpr std::size_t kHead = 10; // marker, the integer's marker, the integer
        std::vector<std::uint64_t> references;
        for (std::size_t i = 1; i <= count; ++i)
            references.push_back(i);
        BinaryList list;
        list.container(10, references);
        const std::size_t start = list.size();
        for (std::size_t i = 0; i < count; ++i)
            list.object(head(6, (count - i - 1) * kHead / 2 + 15));
        list.m_body += std::string(start + 64, '\x20');
        return list.finished();
    }
    /// A list of one text whose trailer says something else: 0 objects, 1 top, 2 table.
    [[nodiscard]] static std::string withTrailer(std::size_t field, std::uint64_t number)
    {
        BinaryList list;
        list.object("\x51"
                    "a");
        std::string all = list.finished();
        const std::string honest = field == 1 ? bytesOf(0, 8) : std::string();
        const std::string said = bytesOf(number, 8);
        // The top's honest value is 0; that one is moved by one.
        all.replace(all.size() - 24 + field * 8, 8, said == honest ? bytesOf(1, 8) : said);
        return all;
    }
    /// One object of that marker whose size is said to be that.
    [[nodiscard]] static std::string ofSize(unsigned marker, std::uint64_t size)
    {
        BinaryList list;
        list.object(static_cast<char>(marker) + ('\x13' + bytesOf(size, 8)));
        return list.finished();
    }

private:
    std::string m_body = "bplist00";
    std::vector<std::uint64_t> m_offsets;
    unsigned m_referenceSize;
};

} // namespace pryvane::test
