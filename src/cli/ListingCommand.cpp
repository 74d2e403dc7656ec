#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "volume/image/ImageDisk.h"

#include <algorithm>
#include <ostream>

namespace pryvane::cli {

namespace {

struct ListingArguments {
    VolumeArguments volume;
    bool parts = false;
};

int showParts(const ListingArguments& arguments, const Console& console)
{
    if (arguments.volume.image.empty())
        return console.fail("--list shows what an image consists of; name one with --image");
    const auto options = imageOptions(arguments.volume);
    if (!options)
        return console.fail(options.error().message);
    Result<ImageLayout> layout = Error{};
    withProgress(
        console, [] { return std::string("reading"); },
        [&] { layout = imageLayout(arguments.volume.image, *options, console.interrupted); });
    if (!layout)
        return console.fail(layout.error().message);
    using Align = TextTable::Align;
    TextTable partitions({Align::Right, Align::Right, Align::Left});
    for (const auto& partition : layout->partitions) {
        partitions.addRow({std::to_string(partition.number),
                           sizeText(static_cast<std::int64_t>(
                               std::min<std::uint64_t>(partition.length, INT64_MAX))),
                           forTerminal(partition.description)});
    }
    console.out << "Partitions: " << layout->partitions.size() << "\n" << partitions.text("  ");
    TextTable volumes({Align::Left, Align::Right, Align::Left, Align::Left, Align::Left});
    for (const auto& volume : layout->volumes) {
        volumes.addRow({volume.partition ? "partition " + std::to_string(volume.partition)
                                         : std::string("whole image"),
                        volume.number ? std::to_string(volume.number) : std::string(),
                        volume.fileSystem + (volume.caseSensitive ? ", case-sensitive" : "") +
                            (volume.encrypted ? ", encrypted" : ""),
                        imageRoleText(volume.role), forTerminal(volume.name)});
    }
    console.out << "Volumes of a Mac: " << layout->volumes.size() << "\n" << volumes.text("  ");
    return kDone;
}

/// The mode of a bodyfile: what the name says it is, then what the file itself is.
const char* modeOf(FileKind kind)
{
    switch (kind) {
    case FileKind::Folder:
        return "d/drwxr-xr-x";
    case FileKind::RegularFile:
        return "r/rrw-r--r--";
    case FileKind::SymbolicLink:
        return "l/lrwxr-xr-x";
    case FileKind::Other:
        return "p/prw-r--r--";
    default:
        return "-/-";
    }
}

/// Writes each entry with its path. A line of a bodyfile cannot hold a newline.
class BodyfileWriter {
public:
    BodyfileWriter(const NameIndex& names, const Console& console)
        : m_names(names), m_console(console)
    {
    }

    void write()
    {
        line(NameIndex::kRoot, "/");
        std::string path;
        NameIndex::Node folder = NameIndex::kRoot;
        NameIndex::Node node = NameIndex::kNone;
        while (!m_console.interrupted.requested() && m_console.out) {
            node = m_names.nextIn(folder, node);
            if (node == NameIndex::kNone) {
                if (folder == NameIndex::kRoot)
                    return;
                path.resize(path.size() - m_names.name(folder).size() - 1);
                node = folder;
                folder = m_names.parent(folder);
                continue;
            }
            path.append("/").append(m_names.name(node));
            line(node, path);
            if (m_names.kind(node) == FileKind::Folder) {
                folder = node;
                node = NameIndex::kNone;
            } else {
                path.resize(path.size() - m_names.name(node).size() - 1);
            }
        }
    }

    [[nodiscard]] std::size_t leftOut() const { return m_leftOut; }

private:
    void line(NameIndex::Node node, const std::string& path)
    {
        const std::string* target = m_names.target(node);
        const bool hasBreak = path.find('\n') != std::string::npos ||
                              (target && target->find('\n') != std::string::npos);
        if (hasBreak) {
            ++m_leftOut;
            return;
        }
        const NameIndex::Facts facts = m_names.facts(node);
        m_console.out << "0|" << path;
        if (target)
            m_console.out << " -> " << *target;
        m_console.out << "|0|" << modeOf(facts.kind) << "|0|0|"
                      << std::max<std::int64_t>(facts.size, 0) << "|0|"
                      << std::max<std::int64_t>(facts.modified, 0) << "|0|0\n";
    }

    const NameIndex& m_names;
    const Console& m_console;
    std::size_t m_leftOut = 0;
};

int runListing(const ListingArguments& arguments, const Console& console)
{
    if (arguments.parts)
        return showParts(arguments, console);
    if (arguments.volume.isFolder())
        return console.fail("name an image with --image; of a folder, "
                            "find FOLDER -print0 writes a list");
    auto host = Host::open(console, arguments.volume, StoreUse::None);
    if (!host)
        return console.fail(host.error().message);
    BodyfileWriter writer((*host)->nameIndex(), console);
    writer.write();
    if (console.interrupted.requested()) {
        console.say("interrupted; the list is not whole");
        return kInterrupted;
    }
    if (writer.leftOut() > 0) {
        console.say(countedText(writer.leftOut(), "name", "names") +
                    " with a line break left out, which this format cannot hold");
        return kFindings;
    }
    return kDone;
}

} // namespace

void addListingCommand(CommandLine& line, CLI::App& app)
{
    const auto arguments = std::make_shared<ListingArguments>();
    CLI::App* command = line.addCommand(
        app, "listing", "Write the names on a disk image as a list (bodyfile)",
        [arguments](const Console& console) { return runListing(*arguments, console); });
    command->add_flag("--list", arguments->parts,
                      "Show the image's partitions and volumes instead");
    addVolumeOptions(*command, arguments->volume);
    command->footer("Example: pryvane-cli listing --image mac.E01 > mac.body\n"
                    "         pryvane-cli scan --deep --listing mac.body --user alice");
}

} // namespace pryvane::cli
