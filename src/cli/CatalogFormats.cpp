#include "cli/CatalogFormats.h"

#include "core/Texts.h"
#include "signatures/CatalogPlaces.h"
#include "signatures/Catalogue.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace pryvane::cli {

namespace {

constexpr std::string_view kAnyUser = "%@";
constexpr int kSecondsOfADay = 86400;

std::string replaced(std::string text, std::string_view what, std::string_view with)
{
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

/// Each character of `special` with `mark` before it.
std::string escaped(std::string_view text, std::string_view special, char mark)
{
    std::string result;
    for (const char c : text) {
        if (special.find(c) != std::string_view::npos)
            result += mark;
        result += c;
    }
    return result;
}

std::string joined(const std::vector<std::string>& parts, std::string_view between)
{
    std::string text;
    for (const std::string& part : parts)
        text.append(text.empty() ? "" : between).append(part);
    return text;
}

std::string sqlText(std::string_view text)
{
    return "'" + replaced(std::string(text), "'", "''") + "'";
}

/// The condition for one location with a user in it. The plain LIKE is what the table of files
/// needs to know where to look: it treats "%" as one name of any kind, and brackets, braces and "?"
/// as a shell does. What it lets through too many, the escaped one takes away.
std::string likeUser(std::string_view path)
{
    std::string wide = replaced(std::string(path), kAnyUser, "%");
    const bool isWide = wide.find_first_of("_[]{}*?\\") != std::string::npos;
    for (char& c : wide) {
        if (std::string_view("[]{}*?\\").find(c) != std::string_view::npos)
            c = '%';
    }
    if (!isWide)
        return "path LIKE " + sqlText(wide);
    std::string exact = replaced(std::string(path), kAnyUser, "\n");
    exact = replaced(escaped(exact, "%_\\", '\\'), "\n", "%");
    return "(path LIKE " + sqlText(wide) + " AND path LIKE " + sqlText(exact) + " ESCAPE '\\')";
}

/// The locations of one family as a condition.
std::string conditionOf(const std::vector<CatalogPlace>& places)
{
    std::vector<std::string> fixed;
    std::vector<std::string> terms;
    for (const CatalogPlace& place : places) {
        const bool ofUser = place.path.find(kAnyUser) != std::string::npos;
        if (!ofUser && !place.folderOnly) {
            fixed.push_back(sqlText(place.path));
            continue;
        }
        std::string term = ofUser ? likeUser(place.path) : "path = " + sqlText(place.path);
        terms.push_back(place.folderOnly ? "(" + term + " AND type = 'directory')" : term);
    }
    if (!fixed.empty())
        terms.insert(terms.begin(), "path IN (" + joined(fixed, ", ") + ")");
    return joined(terms, " OR ");
}

constexpr std::string_view kColumns = "path, type, size, btime, mtime, ctime FROM file";

/// A family's name as part of a query's: letters, digits and underscores.
std::string slug(std::string_view family)
{
    std::string text;
    for (const char c : lowerAscii(family)) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (plain || (!text.empty() && text.back() != '_'))
            text += plain ? c : '_';
    }
    return text;
}

nlohmann::ordered_json query(std::string sql, std::string description)
{
    return {{"query", std::move(sql)},
            {"interval", kSecondsOfADay},
            {"snapshot", true},
            {"description", std::move(description)}};
}

std::string pack(nlohmann::ordered_json queries)
{
    return nlohmann::ordered_json({{"platform", "darwin"}, {"queries", std::move(queries)}})
               .dump(2) +
           "\n";
}

/// The default folders as a pattern each, any entry at its end.
std::vector<std::string> entriesOfDefaultFolders(std::string_view any)
{
    std::vector<std::string> patterns;
    for (const std::string_view folder : catalogue::defaultFolders())
        patterns.push_back(replaced(std::string(folder), kAnyUser, any) + "/" + std::string(any));
    return patterns;
}

/// A field of comma-separated values.
std::string csv(std::string_view text)
{
    return "\"" + replaced(std::string(text), "\"", "\"\"") + "\"";
}

/// The text as a regular expression that matches just it.
std::string expression(std::string_view text)
{
    return escaped(text, ".^$|()[]{}*+?\\/", '\\');
}

/// A location as a glob: what would be a wildcard in it stands for any one character.
std::string glob(const CatalogPlace& place)
{
    std::string text = place.path;
    for (char& c : text) {
        if (std::string_view("[]{}*?\\").find(c) != std::string_view::npos)
            c = '?';
    }
    return replaced(std::move(text), kAnyUser, "*");
}

std::string knownGoodExpression()
{
    std::vector<std::string> files;
    for (const std::string_view file : catalogue::knownGoodFiles())
        files.push_back(
            replaced(expression(replaced(std::string(file), kAnyUser, "\n")), "\n", "[^\\/]+"));
    return "^(" + joined(files, "|") + ")$";
}

/// Lines of a literal block of YAML.
std::string indented(const std::vector<std::string>& lines, std::size_t depth)
{
    std::string text;
    for (const std::string& line : lines)
        text.append(depth, ' ').append(line).append("\n");
    return text;
}

} // namespace

std::string catalogPaths()
{
    std::string text;
    std::set<std::string> seen;
    for (const CatalogPlace& place : catalogPlaces()) {
        const std::string line =
            replaced(place.path, kAnyUser, "*") + (place.folderOnly ? "/" : "");
        if (seen.insert(line).second)
            text += line + "\n";
    }
    return text;
}

std::string osqueryPack()
{
    std::vector<std::string_view> order;
    std::map<std::string_view, std::vector<CatalogPlace>> families;
    for (CatalogPlace& place : catalogPlaces()) {
        auto& places = families[place.family];
        if (places.empty())
            order.push_back(place.family);
        places.push_back(std::move(place));
    }
    auto queries = nlohmann::ordered_json::object();
    for (const std::string_view family : order) {
        queries["pryvane_" + slug(family)] =
            query("SELECT " + sqlText(family) + " AS family, " + std::string(kColumns) + " WHERE " +
                      conditionOf(families[family]) + ";",
                  "Locations of " + std::string(family));
    }
    return pack(std::move(queries));
}

std::string osqueryNamesPack()
{
    std::vector<std::string> folders;
    for (const std::string& pattern : entriesOfDefaultFolders("%"))
        folders.push_back("path LIKE " + sqlText(pattern));
    std::vector<std::string> rows;
    for (const CatalogFragment& fragment : catalogFragments())
        rows.push_back("(" + sqlText(fragment.family) + ", " + sqlText(fragment.text) + ")");
    std::vector<std::string> good;
    for (const std::string_view file : catalogue::knownGoodFiles()) {
        const bool ofUser = file.find(kAnyUser) != std::string_view::npos;
        good.push_back(ofUser ? "NOT " + likeUser(file) : "path <> " + sqlText(file));
    }
    const std::string sql =
        "WITH fragment(family, text) AS (VALUES " + joined(rows, ", ") +
        ") SELECT DISTINCT fragment.family AS family, path, type, size, btime, mtime, ctime "
        "FROM file CROSS JOIN fragment WHERE (" +
        joined(folders, " OR ") + ") AND " + joined(good, " AND ") +
        " AND instr(lower(path), fragment.text) > 0;";
    auto queries = nlohmann::ordered_json::object();
    queries["pryvane_names"] =
        query(sql, "Names in the default folders that hold the name of a known spyware. Noisy: "
                   "harmless programs share some of these words.");
    return pack(std::move(queries));
}

std::string velociraptorArtifact()
{
    std::vector<std::string> locations = {"Family,Glob,FolderOnly"};
    for (const CatalogPlace& place : catalogPlaces())
        locations.push_back(csv(place.family) + "," + csv(glob(place)) + "," +
                            (place.folderOnly ? "Y" : "N"));
    std::vector<std::string> names = {"Family,Expression"};
    for (const CatalogFragment& fragment : catalogFragments())
        names.push_back(csv(fragment.family) + "," + csv("(?i)" + expression(fragment.text)));
    std::vector<std::string> folders = {"Glob"};
    for (const std::string& pattern : entriesOfDefaultFolders("*"))
        folders.push_back(csv(pattern));
    const std::string columns = "OSPath, Size, Mode.String AS Mode, Btime, Mtime, Ctime";
    return "name: MacOS.Detection.Pryvane\n"
           "author: Pryvane " PRYVANE_VERSION "\n"
           "description: |\n"
           "  Files, launch agents, extensions and applications that Pryvane's catalogue ties to\n"
           "  known spyware. Only names are looked at. SearchNames adds words in the names of the\n"
           "  default folders' entries; harmless programs share some of them.\n"
           "type: CLIENT\n"
           "precondition: SELECT OS FROM info() WHERE OS = 'darwin'\n"
           "parameters:\n"
           "  - name: Locations\n"
           "    description: Where known spyware stands; FolderOnly asks for a folder.\n"
           "    type: csv\n"
           "    default: |\n" +
           indented(locations, 6) +
           "  - name: SearchNames\n"
           "    description: Also search the names in the default folders.\n"
           "    type: bool\n"
           "  - name: Names\n"
           "    description: Words in names.\n"
           "    type: csv\n"
           "    default: |\n" +
           indented(names, 6) +
           "  - name: Folders\n"
           "    description: The default folders, whose entries' names are searched.\n"
           "    type: csv\n"
           "    default: |\n" +
           indented(folders, 6) +
           "  - name: KnownGood\n"
           "    description: Entries that the system itself puts there.\n"
           "    type: regex\n"
           "    default: '" +
           knownGoodExpression() +
           "'\n"
           "sources:\n"
           "  - name: Locations\n"
           "    query: |\n"
           "      SELECT * FROM foreach(row=Locations, query={\n"
           "        SELECT Family, " +
           columns +
           "\n"
           "        FROM glob(globs=Glob)\n"
           "        WHERE FolderOnly = 'N' OR IsDir\n"
           "      })\n"
           "  - name: Names\n"
           "    query: |\n"
           "      SELECT * FROM foreach(\n"
           "        row={\n"
           "          SELECT " +
           columns +
           "\n"
           "          FROM glob(globs=Folders.Glob)\n"
           "          WHERE SearchNames AND NOT OSPath.String =~ KnownGood\n"
           "        },\n"
           "        query={\n"
           "          SELECT Family, OSPath, Size, Mode, Btime, Mtime, Ctime\n"
           "          FROM foreach(row=Names)\n"
           "          WHERE OSPath.String =~ Expression\n"
           "          GROUP BY Family\n"
           "        })\n";
}

} // namespace pryvane::cli
