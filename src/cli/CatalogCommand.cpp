#include "cli/CatalogFormats.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "signatures/CatalogRows.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace pryvane::cli {

namespace {

void writeJson(std::ostream& out, const std::vector<CatalogRow>& rows)
{
    auto list = nlohmann::ordered_json::array();
    for (const CatalogRow& row : rows) {
        list.push_back({{"check", row.method},
                        {"family", row.family},
                        {"rule", ruleText(row.rule)},
                        {"signature", row.signature},
                        {"note", row.note}});
    }
    out << list.dump(2) << "\n";
}

void writeText(std::ostream& out, const std::vector<CatalogRow>& rows)
{
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left, Align::Left});
    table.addRow({"Check", "Family", "Rule", "Signature"});
    for (const CatalogRow& row : rows) {
        const std::string note = row.note.empty() ? "" : "  (" + std::string(row.note) + ")";
        table.addRow({std::string(row.method), std::string(row.family),
                      std::string(ruleText(row.rule)), std::string(row.signature) + note});
    }
    out << table.text();
}

} // namespace

void addCatalogCommand(CommandLine& line, CLI::App& app)
{
    struct Arguments {
        std::string format = "text";
        bool names = false;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = line.addCommand(
        app, "catalog", "Every signature, with its rule", [arguments](const Console& console) {
            const std::string& format = arguments->format;
            if (arguments->names && format != "osquery")
                return console.fail("--names is for --format osquery");
            if (format == "json")
                writeJson(console.out, catalogRows());
            else if (format == "osquery")
                console.out << (arguments->names ? osqueryNamesPack() : osqueryPack());
            else if (format == "velociraptor")
                console.out << velociraptorArtifact();
            else if (format == "paths")
                console.out << catalogPaths();
            else
                writeText(console.out, catalogRows());
            return int{kDone};
        });
    command
        ->add_option(
            "--format", arguments->format,
            "text or json; for the engines that Macs run already, osquery (a query pack) or "
            "velociraptor (an artifact); or paths (a location a line, * for any user)")
        ->check(CLI::IsMember({"text", "json", "osquery", "velociraptor", "paths"}))
        ->type_name("FORMAT");
    command->add_flag(
        "--names", arguments->names,
        "with osquery: the pack that searches names in the default folders, which is noisy");
}

} // namespace pryvane::cli
