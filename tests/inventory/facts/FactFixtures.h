#pragma once

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

/// Files as a Mac writes them, made from SQL and XML.
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

/// The elements as a property list in XML.
[[nodiscard]] inline std::string xmlOf(const std::string& elements)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + elements +
           "</plist>";
}

/// Turns each dictionary of "CF$UID" alone into what refers to an object in the binary form.
inline void makeReferences(plist_t list)
{
    const auto referenceIn = [](plist_t item) -> plist_t {
        plist_t number = plist_dict_get_item(item, "CF$UID");
        if (plist_get_node_type(item) != PLIST_DICT || plist_dict_get_size(item) != 1 || !number)
            return nullptr;
        std::uint64_t value = 0;
        plist_get_uint_val(number, &value);
        return plist_new_uid(value);
    };
    if (plist_get_node_type(list) == PLIST_ARRAY) {
        for (std::uint32_t i = 0; i < plist_array_get_size(list); ++i) {
            plist_t item = plist_array_get_item(list, i);
            if (plist_t made = referenceIn(item))
                plist_array_set_item(list, made, i);
            else
                makeReferences(item);
        }
    } else if (plist_get_node_type(list) == PLIST_DICT) {
        std::vector<std::pair<std::string, plist_t>> entries;
        plist_dict_iter next = nullptr;
        plist_dict_new_iter(list, &next);
        char* key = nullptr;
        plist_t item = nullptr;
        for (plist_dict_next_item(list, next, &key, &item); item;
             plist_dict_next_item(list, next, &key, &item)) {
            entries.emplace_back(key, item);
            std::free(key);
        }
        std::free(next);
        for (const auto& [name, value] : entries) {
            if (plist_t made = referenceIn(value))
                plist_dict_set_item(list, name.c_str(), made);
            else
                makeReferences(value);
        }
    }
}

/// The same in the binary form.
[[nodiscard]] inline std::string binaryOf(const std::string& elements)
{
    const std::string xml = xmlOf(elements);
    plist_t list = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &list);
    EXPECT_NE(list, nullptr) << elements;
    makeReferences(list);
    char* bytes = nullptr;
    std::uint32_t size = 0;
    plist_to_bin(list, &bytes, &size);
    const std::string made(bytes, size);
    plist_to_bin_free(bytes);
    plist_free(list);
    return made;
}

[[nodiscard]] inline std::string element(const std::string& name, const std::string& content)
{
    return "<" + name + ">" + content + "</" + name + ">";
}
[[nodiscard]] inline std::string entry(const std::string& key, const std::string& value)
{
    return element("key", key) + value;
}
[[nodiscard]] inline std::string string(const std::string& text)
{
    return element("string", text);
}
[[nodiscard]] inline std::string integer(long long number)
{
    return element("integer", std::to_string(number));
}
[[nodiscard]] inline std::string reference(std::size_t number)
{
    return element("dict", entry("CF$UID", integer(static_cast<long long>(number))));
}

/// A keyed archive, object by object.
class Archive {
public:
    /// Adds an object and gives the reference to it.
    std::string add(const std::string& object)
    {
        m_objects.push_back(object);
        return reference(m_objects.size() - 1);
    }
    std::string addText(const std::string& text) { return add(string(text)); }
    std::string addList(const std::vector<std::string>& references)
    {
        std::string all;
        for (const std::string& each : references)
            all += each;
        return add(element("dict", entry("NS.objects", element("array", all))));
    }
    std::string addDictionary(const std::vector<std::pair<std::string, std::string>>& entries)
    {
        std::string keys;
        std::string values;
        for (const auto& [key, value] : entries) {
            keys += addText(key);
            values += value;
        }
        return add(element("dict", entry("NS.keys", element("array", keys)) +
                                       entry("NS.objects", element("array", values))));
    }
    std::string addUrl(const std::string& text)
    {
        return add(
            element("dict", entry("NS.base", reference(0)) + entry("NS.relative", addText(text))));
    }
    enum class Form : std::uint8_t { Binary, Xml };
    [[nodiscard]] std::string finished(const std::string& top, Form form = Form::Binary) const
    {
        std::string objects = string("$null");
        for (std::size_t i = 1; i < m_objects.size(); ++i)
            objects += m_objects[i];
        const std::string all = element("dict", entry("$archiver", string("NSKeyedArchiver")) +
                                                    entry("$top", element("dict", top)) +
                                                    entry("$objects", element("array", objects)));
        return form == Form::Xml ? xmlOf(all) : binaryOf(all);
    }

private:
    std::vector<std::string> m_objects = {""};
};

/// Real files of Macs, which are not part of the project, lie where PRYVANE_SAMPLES says.
[[nodiscard]] inline std::string samplePath(const std::string& name)
{
    const char* folder = std::getenv("PRYVANE_SAMPLES");
    return folder ? std::string(folder) + "/" + name : std::string();
}

} // namespace pryvane::test
