// Permission databases of unknown origin. The first byte chooses between the raw bytes and a sound
// database in which the others change single bytes, so that the reading gets past its head.

#include "inventory/facts/Permissions.h"

#include <sqlite3.h>

#include <cstdlib>

namespace {

using namespace pryvane;

void require(bool condition)
{
    if (!condition)
        std::abort();
}

const std::string& soundDatabase()
{
    static const std::string made = [] {
        sqlite3* handle = nullptr;
        sqlite3_open(":memory:", &handle);
        sqlite3_exec(
            handle,
            "PRAGMA page_size=512;"
            "CREATE TABLE admin (key TEXT PRIMARY KEY, value INTEGER);"
            "CREATE TABLE access (service TEXT NOT NULL, client TEXT NOT NULL, client_type "
            "INTEGER, auth_value INTEGER, auth_reason INTEGER, csreq BLOB, "
            "indirect_object_identifier TEXT DEFAULT 'UNUSED', last_modified INTEGER "
            "DEFAULT (strftime('%s','now')), PRIMARY KEY (service, client));"
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n LIMIT 40) "
            "INSERT INTO access SELECT 's'||i, '/a/b/'||i, 1, 2, 3, zeroblob(i*9), 'x', "
            "1700000000 FROM n;",
            nullptr, nullptr, nullptr);
        sqlite3_int64 size = 0;
        unsigned char* bytes = sqlite3_serialize(handle, "main", &size, 0);
        std::string all(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
        sqlite3_free(bytes);
        sqlite3_close(handle);
        return all;
    }();
    return made;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    std::string bytes;
    if (data[0] % 4 == 0) {
        bytes.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    } else {
        bytes = soundDatabase();
        for (std::size_t i = 1; i + 2 < size; i += 3) {
            const std::size_t place = static_cast<std::size_t>(data[i]) << 8 | data[i + 1];
            bytes[place % bytes.size()] = static_cast<char>(data[i + 2]);
        }
    }
    const auto read = readPermissions(std::move(bytes));
    if (!read) {
        require(!read.error().message.empty());
        return 0;
    }
    require(read->entries.size() <= kMostFactsOfASource);
    for (const Permission& row : read->entries)
        require(row.client.size() <= kLongestFactText + 3 &&
                row.service.size() <= kLongestFactText + 3);
    return 0;
}
