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
    const auto format = std::make_shared<std::string>("text");
    CLI::App* command = line.addCommand(app, "catalog", "Every signature, with its rule",
                                        [format](const Console& console) {
                                            if (*format == "json")
                                                writeJson(console.out, catalogRows());
                                            else
                                                writeText(console.out, catalogRows());
                                            return int{kDone};
                                        });
    command->add_option("--format", *format, "text or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
}

} // namespace pryvane::cli
