#include "reports/pdf/painter/PackedPdf.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>
#include <zlib.h>

namespace pryvane::pdf {

namespace {

constexpr std::size_t kObjectsInStream = 200;

/// Reads the plain parts of a PDF file from the front.
class Reader {
public:
    explicit Reader(std::string_view text) : m_rest(text) {}
    [[nodiscard]] bool skip(std::string_view token)
    {
        const auto start = m_rest.find_first_not_of(" \n\r\t");
        if (start == std::string_view::npos || !m_rest.substr(start).starts_with(token))
            return false;
        m_rest.remove_prefix(start + token.size());
        return true;
    }
    [[nodiscard]] std::optional<std::size_t> number()
    {
        const auto start = m_rest.find_first_not_of(" \n\r\t");
        if (start == std::string_view::npos)
            return {};
        std::size_t value = 0;
        const char* begin = m_rest.data() + start;
        const auto [end, error] = std::from_chars(begin, m_rest.data() + m_rest.size(), value);
        if (error != std::errc())
            return {};
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        return value;
    }
    [[nodiscard]] std::string_view rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

struct Object {
    std::size_t id = 0;
    std::string_view body; ///< between "obj" and "endobj"
    bool isStream = false;
};

/// A document with one classic cross-reference table and nothing between its objects.
struct Document {
    std::string_view header;
    std::size_t size = 0; ///< one more than the largest object number
    std::vector<Object> objects;
    std::string_view trailer; ///< inside its << >>, without the size
};

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \n\r\t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \n\r\t") - first + 1);
}

/// The offsets of the objects in use, by object number.
std::optional<std::vector<std::pair<std::size_t, std::size_t>>> readTable(Reader& reader,
                                                                          std::size_t& size)
{
    const auto first = reader.skip("xref") ? reader.number() : std::nullopt;
    const auto count = first == 0U ? reader.number() : std::nullopt;
    if (!count)
        return {};
    size = *count;
    std::vector<std::pair<std::size_t, std::size_t>> offsets;
    for (std::size_t id = 0; id < *count; ++id) {
        const auto offset = reader.number();
        const auto generation = reader.number();
        if (!offset || !generation)
            return {};
        if (reader.skip("f"))
            continue;
        if (*generation != 0 || !reader.skip("n"))
            return {};
        offsets.emplace_back(*offset, id);
    }
    return offsets;
}

std::optional<Object> readObject(std::string_view slice, std::size_t id)
{
    Reader reader(slice);
    if (reader.number() != id || reader.number() != 0U || !reader.skip("obj"))
        return {};
    std::string_view body = trimmed(reader.rest());
    constexpr std::string_view end = "endobj";
    if (!body.ends_with(end))
        return {};
    body = trimmed(body.substr(0, body.size() - end.size()));
    return Object{id, body, body.ends_with("endstream")};
}

std::optional<Document> parsed(std::string_view bytes)
{
    const auto start = bytes.rfind("startxref");
    if (!bytes.starts_with("%PDF-1.") || start == std::string_view::npos)
        return {};
    Reader tail(bytes.substr(start + 9));
    const auto tableAt = tail.number();
    if (!tableAt || *tableAt > start)
        return {};
    Document document;
    Reader reader(bytes.substr(*tableAt, start - *tableAt));
    auto offsets = readTable(reader, document.size);
    if (!offsets || offsets->empty() || !reader.skip("trailer") || !reader.skip("<<") ||
        !reader.skip("/Size") || !reader.number())
        return {};
    document.trailer = trimmed(reader.rest());
    if (!document.trailer.ends_with(">>"))
        return {};
    document.trailer.remove_suffix(2);

    std::sort(offsets->begin(), offsets->end());
    document.header = bytes.substr(0, offsets->front().first);
    for (std::size_t i = 0; i < offsets->size(); ++i) {
        const auto [from, id] = (*offsets)[i];
        const std::size_t to = i + 1 < offsets->size() ? (*offsets)[i + 1].first : *tableAt;
        if (from > to || to > bytes.size())
            return {};
        auto object = readObject(bytes.substr(from, to - from), id);
        if (!object)
            return {};
        document.objects.push_back(*object);
    }
    return document;
}

std::string deflated(std::string_view bytes)
{
    std::string out(compressBound(bytes.size()), '\0');
    uLongf length = out.size();
    if (compress(reinterpret_cast<Bytef*>(out.data()), &length,
                 reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()) != Z_OK)
        return {};
    out.resize(length);
    return out;
}

/// Writes the packed form.
class Packer {
public:
    explicit Packer(const Document& document)
        : m_document(document), m_entries(document.size), m_bodies(document.size)
    {
        for (const Object& object : document.objects)
            m_bodies[object.id] = object.body;
    }
    [[nodiscard]] std::string packed();

private:
    enum Kind : std::uint8_t { Free, AtOffset, InStream };
    struct Entry {
        Kind kind = Free;
        std::size_t where = 0; ///< offset, or number of the object stream
        std::size_t index = 0; ///< inside the object stream
    };

    void writeStream(const Object& object);
    void writeStreamBody(std::string_view body);
    void writeObjectStreams();
    void writeTable();
    void add(std::size_t id, std::string_view dictionary, std::string_view content);

    const Document& m_document;
    std::vector<Entry> m_entries;
    std::vector<std::string_view> m_bodies; ///< by object number
    std::string m_out;
};

/// Adds a new stream object behind all that are there.
void Packer::add(std::size_t id, std::string_view dictionary, std::string_view content)
{
    const std::string bytes = deflated(content);
    m_out += std::to_string(id) + " 0 obj\n<<" + std::string(dictionary) +
             "/Filter/FlateDecode/Length " + std::to_string(bytes.size()) + ">>stream\n" + bytes +
             "\nendstream\nendobj\n";
}

void Packer::writeStream(const Object& object)
{
    m_entries[object.id] = {AtOffset, m_out.size(), 0};
    m_out += std::to_string(object.id) + " 0 obj\n";
    writeStreamBody(object.body);
    m_out += "\nendobj\n";
}

/// With the length itself where the dictionary refers to an object that holds it: not every reader
/// looks into compressed objects while it looks for a stream's end.
void Packer::writeStreamBody(std::string_view body)
{
    constexpr std::string_view key = "/Length ";
    const auto at = body.substr(0, body.find("stream")).find(key);
    if (at != std::string_view::npos) {
        Reader reader(body.substr(at + key.size()));
        const auto id = reader.number();
        if (id && *id < m_bodies.size() && reader.number() == 0U && reader.skip("R") &&
            Reader(m_bodies[*id]).number()) {
            m_out += body.substr(0, at + key.size());
            m_out += m_bodies[*id];
            m_out += reader.rest();
            return;
        }
    }
    m_out += body;
}

void Packer::writeObjectStreams()
{
    std::string index, content;
    std::size_t count = 0, number = m_entries.size();
    const auto flush = [&] {
        if (count == 0)
            return;
        m_entries.push_back({AtOffset, m_out.size(), 0});
        add(number++,
            "/Type/ObjStm/N " + std::to_string(count) + "/First " + std::to_string(index.size()),
            index + content);
        index.clear();
        content.clear();
        count = 0;
    };
    for (const Object& object : m_document.objects) {
        if (object.isStream)
            continue;
        m_entries[object.id] = {InStream, number, count};
        index += std::to_string(object.id) + ' ' + std::to_string(content.size()) + ' ';
        content += object.body;
        content += '\n';
        if (++count == kObjectsInStream)
            flush();
    }
    flush();
}

void Packer::writeTable()
{
    const std::size_t start = m_out.size();
    m_entries.push_back({AtOffset, start, 0});
    std::string rows;
    for (const Entry& entry : m_entries) {
        rows += static_cast<char>(entry.kind);
        for (int shift = 24; shift >= 0; shift -= 8)
            rows += static_cast<char>((entry.where >> shift) & 0xff);
        rows += static_cast<char>(entry.index);
    }
    add(m_entries.size() - 1,
        "/Type/XRef/W[1 4 1]/Size " + std::to_string(m_entries.size()) +
            std::string(m_document.trailer),
        rows);
    m_out += "startxref\n" + std::to_string(start) + "\n%%EOF\n";
}

std::string Packer::packed()
{
    m_out = m_document.header;
    for (const Object& object : m_document.objects) {
        if (object.isStream)
            writeStream(object);
    }
    writeObjectStreams();
    writeTable();
    return std::move(m_out);
}

} // namespace

std::string packedPdf(std::string document)
{
    const auto known = parsed(document);
    if (!known)
        return document;
    std::string packed = Packer(*known).packed();
    return packed.size() < document.size() && packed.size() <= UINT32_MAX ? packed : document;
}

} // namespace pryvane::pdf
