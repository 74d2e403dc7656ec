#include "cli/LinesHead.h"

namespace pryvane::cli {

nlohmann::ordered_json headOf(const char* type, Host& host, const CaseLabels& labels)
{
    const Subject subject = readSubject(host.disk(), host.homes().users);
    const NameTree* const names = host.disk().names();
    return headLine({type, subject, host.disk().identity(), labels, host.clock().now(),
                     names ? names->facts().sha256 : std::string()});
}

void writeEndLine(const TextSink& sink, bool whole, Date end)
{
    writeLine(sink, {{"type", "end"}, {"whole", whole}, {"end", iso8601(end)}});
}

} // namespace pryvane::cli
