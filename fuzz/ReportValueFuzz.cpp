// A stored report is read from pieces, and its facts from a row, of a file that anything may have
// damaged: no bytes may crash the readers or cost much memory, and a report that comes out must be
// the same after being stored again. A separator cuts the input into pieces.

#include "reports/ReportCodec.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace pryvane;

std::shared_ptr<SpywareScanReport> decoded(const std::vector<std::string>& pieces)
{
    ReportDecoder decoder;
    for (const auto& piece : pieces) {
        const bool taken = decoder.add(piece);
        if (!taken && (decoder.isWhole() != (decoder.report() != nullptr)))
            std::abort();
        if (!taken)
            return nullptr;
    }
    return decoder.report();
}

std::vector<std::string> encoded(const SpywareScanReport& report)
{
    std::vector<std::string> pieces;
    const auto done = encodeReport(report, [&](std::string_view piece) -> Result<Done> {
        pieces.emplace_back(piece);
        return Done{};
    });
    if (!done)
        std::abort();
    return pieces;
}

/// Cut at each separator: a length would let the fuzzer only guess.
std::vector<std::string> piecesOf(std::string_view bytes)
{
    constexpr std::string_view kCut = "\xff\xfe\xff";
    std::vector<std::string> pieces;
    for (auto at = bytes.find(kCut); at != std::string_view::npos; at = bytes.find(kCut)) {
        pieces.emplace_back(bytes.substr(0, at));
        bytes.remove_prefix(at + kCut.size());
    }
    pieces.emplace_back(bytes);
    return pieces;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto facts = decodeFacts(bytes); facts && facts->reportId.empty())
        std::abort();
    const auto report = decoded(piecesOf(bytes));
    if (!report)
        return 0;
    const auto again = decoded(encoded(*report));
    if (!again || encoded(*again) != encoded(*report))
        std::abort();
    if (const auto facts = decodeFacts(encodeFacts(*report));
        !facts || facts->findings != report->spyWareList->size())
        std::abort();
    return 0;
}
