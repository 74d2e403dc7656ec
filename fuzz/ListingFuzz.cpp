// Lists of names come from anywhere: no bytes may crash their readers, and what is read must be
// found again, and be the same once it was written out as a list and read back.

#include "platform/NameTree.h"
#include "scan/walker/ScanChoice.h"
#include "volume/listing/BodyfileWriter.h"
#include "volume/listing/ListingReader.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace {

using namespace pryvane;

Result<std::unique_ptr<IndexFileSystem>> readFrom(std::string_view text,
                                                  const ListingOptions& options)
{
    const int fd = memfd_create("list", MFD_CLOEXEC);
    if (fd < 0 || write(fd, text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        lseek(fd, 0, SEEK_SET) != 0)
        std::abort();
    std::atomic<std::uint64_t> bytes{0};
    auto disk = readListing(fd, "list", options, StopFlag(), bytes);
    close(fd);
    return disk;
}

/// Everything that is there, with its kind.
class Everything final : public NameVisitor {
public:
    void enterFolder(std::string_view name) override
    {
        tell("d", name);
        ++m_depth;
    }
    void leaveFolder() override { --m_depth; }
    void entry(std::string_view name, FileKind kind) override
    {
        tell(std::to_string(static_cast<int>(kind)), name);
    }
    void unnamed(std::int64_t) override {}
    void refused(std::string_view) override {}

    std::string text;

private:
    void tell(std::string_view kind, std::string_view name)
    {
        text.append(std::to_string(m_depth)).append(kind).append(" ").append(name).append("\n");
    }
    int m_depth = 0;
};

std::string everythingOn(const IndexFileSystem& disk)
{
    Everything all;
    static_cast<void>(disk.names()->visit(FileURL::fileURLWithPath("/"), StopFlag(), all));
    return all.text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto choice = std::make_shared<ScanChoice>();
    if (size == 0)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    ListingOptions options;
    if ((data[0] & 1) != 0)
        options.choice = choice;
    if ((data[0] & 2) != 0)
        options.prefix = "/mnt/mac";
    if ((data[0] & 4) != 0)
        options.matching = NameMatching::Exact;
    const auto disk = readFrom(text, options);
    if (!disk)
        return 0;
    const NameIndex& names = (*disk)->index();
    for (NameIndex::Node node = 1; node < names.size(); ++node) {
        const FileURL url = FileURL::fileURLWithPath(names.path(node));
        const auto listing = (*disk)->list(url);
        static_cast<void>((*disk)->allocatedSize(url));
        if (names.facts(node).isListed && !names.facts(node).isDeleted &&
            (*disk)->presence(url) == Presence::Absent &&
            names.kind(node) != FileKind::SymbolicLink &&
            names.find(names.parent(node), names.name(node)) == node) {
            // Only where something on the way is no folder of its own.
            bool plain = true;
            for (auto at = names.parent(node); at != NameIndex::kRoot; at = names.parent(at))
                plain = plain && names.kind(at) == FileKind::Folder && !names.facts(at).isDeleted &&
                        names.find(names.parent(at), names.name(at)) == at;
            if (plain)
                std::abort();
        }
    }
    std::ostringstream out;
    BodyfileWriter writer(out);
    writer.write(names, StopFlag());
    if ((data[0] & 1) != 0 || writer.leftOut() > 0 || options.matching == NameMatching::AsOnMac)
        return 0;
    ListingOptions exact;
    exact.matching = NameMatching::Exact;
    const auto again = readFrom(out.str(), exact);
    if (again && everythingOn(**again) != everythingOn(**disk))
        std::abort();
    return 0;
}
