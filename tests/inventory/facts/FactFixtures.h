#pragma once

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Files as a Mac writes them: databases made from SQL, property lists from values.
namespace pryvane::test {

/// The bytes of a database that these statements make.
[[nodiscard]] inline std::string databaseOf(const std::string& sql)
{
    sqlite3* handle = nullptr;
    sqlite3_open(":memory:", &handle);
    char* problem = nullptr;
    sqlite3_exec(handle, "PRAGMA page_size=4096", nullptr, nullptr, nullptr);
    sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, &problem);
    EXPECT_EQ(problem, nullptr) << problem;
    sqlite3_int64 size = 0;
    unsigned char* bytes = sqlite3_serialize(handle, "main", &size, 0);
    const std::string made(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
    sqlite3_free(bytes);
    sqlite3_close(handle);
    return made;
}

/// A database of permissions with those rows, each "(service,client,client_type,value,reason)".
[[nodiscard]] inline std::string permissionsOf(const std::string& rows)
{
    return databaseOf("CREATE TABLE access (service,client,client_type,auth_value,auth_reason); "
                      "INSERT INTO access VALUES " +
                      rows);
}

/// A value of a property list; the lists are written by another implementation.
class Plist {
public:
    using Entries = std::vector<std::pair<std::string, Plist>>;

    Plist(const std::string& text) : Plist(plist_new_string(text.c_str())) {}
    Plist(const char* text) : Plist(plist_new_string(text)) {}
    Plist(bool value) : Plist(plist_new_bool(value)) {}
    Plist(int number) : Plist(plist_new_uint(static_cast<std::uint64_t>(number))) {}

    [[nodiscard]] static Plist data(const std::string& bytes)
    {
        return Plist(plist_new_data(bytes.data(), bytes.size()));
    }
    /// What refers to an object of a keyed archive.
    [[nodiscard]] static Plist reference(std::size_t number)
    {
        return Plist(plist_new_uid(number));
    }
    [[nodiscard]] static Plist list(const std::vector<Plist>& values)
    {
        Plist made(plist_new_array());
        for (const Plist& value : values)
            plist_array_append_item(made.m_node.get(), plist_copy(value.m_node.get()));
        return made;
    }
    [[nodiscard]] static Plist dictionary(const Entries& entries)
    {
        Plist made(plist_new_dict());
        for (const auto& [key, value] : entries)
            plist_dict_set_item(made.m_node.get(), key.c_str(), plist_copy(value.m_node.get()));
        return made;
    }

    [[nodiscard]] std::string xml() const { return written(plist_to_xml); }
    [[nodiscard]] std::string binary() const { return written(plist_to_bin); }

private:
    explicit Plist(plist_t node) : m_node(node, plist_free) {}

    template <typename Writer>
    [[nodiscard]] std::string written(Writer writer) const
    {
        char* bytes = nullptr;
        std::uint32_t size = 0;
        writer(m_node.get(), &bytes, &size);
        const std::unique_ptr<char, decltype(&std::free)> owner(bytes, &std::free);
        return {bytes, size};
    }

    std::shared_ptr<void> m_node;
};

[[nodiscard]] inline Plist dict(const Plist::Entries& entries)
{
    return Plist::dictionary(entries);
}
[[nodiscard]] inline Plist list(const std::vector<Plist>& values)
{
    return Plist::list(values);
}

/// The file of a job that starts by itself.
[[nodiscard]] inline std::string jobOf(const std::string& label, const std::string& program,
                                       bool disabled = false)
{
    Plist::Entries entries{{"Label", label}, {"Program", program}};
    if (disabled)
        entries.emplace_back("Disabled", true);
    return dict(entries).xml();
}

/// What a Mac keeps of an account.
[[nodiscard]] inline std::string accountOf(const std::string& name, const std::string& home,
                                           int uid = 501)
{
    return dict({{"name", list({name})},
                 {"uid", list({std::to_string(uid)})},
                 {"home", list({home})}})
        .xml();
}

/// A keyed archive, object by object. Each add() gives the reference to the object.
class Archive {
public:
    Plist add(const Plist& object)
    {
        m_objects.push_back(object);
        return Plist::reference(m_objects.size() - 1);
    }
    Plist addList(const std::vector<Plist>& references)
    {
        return add(dict({{"NS.objects", list(references)}}));
    }
    Plist addDictionary(const Plist::Entries& entries)
    {
        std::vector<Plist> keys, values;
        for (const auto& [key, value] : entries) {
            keys.push_back(add(key));
            values.push_back(value);
        }
        return add(dict({{"NS.keys", list(keys)}, {"NS.objects", list(values)}}));
    }
    Plist addUrl(const std::string& text)
    {
        return add(dict({{"NS.base", Plist::reference(0)}, {"NS.relative", add(text)}}));
    }
    [[nodiscard]] Plist finished(const Plist::Entries& top) const
    {
        return dict(
            {{"$archiver", "NSKeyedArchiver"}, {"$top", dict(top)}, {"$objects", list(m_objects)}});
    }

private:
    std::vector<Plist> m_objects = {"$null"};
};

/// Real files of Macs, which are not part of the project, lie where PRYVANE_SAMPLES says.
[[nodiscard]] inline std::string samplePath(const std::string& name)
{
    const char* folder = std::getenv("PRYVANE_SAMPLES");
    return folder ? std::string(folder) + "/" + name : std::string();
}

} // namespace pryvane::test
