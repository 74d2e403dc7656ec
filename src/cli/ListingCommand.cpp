#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "volume/image/ImageDisk.h"
#include "volume/listing/BodyfileWriter.h"

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

/// What is not on the list, in words; false where all is.
bool sayWhatLacks(const BodyfileWriter& writer, const Console& console)
{
    if (writer.leftOut() > 0)
        console.say(countedText(writer.leftOut(), "name", "names") +
                    " left out, which this format cannot hold; the folders are marked");
    if (writer.unread() > 0)
        console.say(countedText(writer.unread(), "folder", "folders") +
                    " not read, or not to the end; the list says so");
    return writer.leftOut() > 0 || writer.unread() > 0;
}

/// Writes the names straight from the folder: the disk may hold more of them than fit in memory.
Result<Done> writeFolder(BodyfileWriter& writer, const std::string& folder, const Console& console)
{
    const auto written = writer.write(folder, console.interrupted);
    return written ? written
                   : Result<Done>(Error{"the folder \"" + forTerminal(folder) +
                                        "\" cannot be read: " + written.error().message});
}

int runListing(const ListingArguments& arguments, const Console& console)
{
    if (arguments.parts)
        return showParts(arguments, console);
    BodyfileWriter writer(console.out);
    if (arguments.volume.isFolder()) {
        if (const auto written = writeFolder(writer, arguments.volume.volume, console); !written)
            return console.fail(written.error().message);
    } else {
        auto host = Host::open(console, arguments.volume, StoreUse::None);
        if (!host)
            return console.fail(host.error().message);
        writer.write((*host)->nameIndex(), console.interrupted);
    }
    if (console.interrupted.requested()) {
        console.say("interrupted; the list is not whole");
        return kInterrupted;
    }
    if (!console.out.flush())
        return console.fail("the list could not be written to its end");
    return sayWhatLacks(writer, console) ? kFindings : kDone;
}

} // namespace

void addListingCommand(CommandLine& line, CLI::App& app)
{
    const auto arguments = std::make_shared<ListingArguments>();
    CLI::App* command = line.addCommand(
        app, "listing", "Write the names on a disk as a list (bodyfile)",
        [arguments](const Console& console) { return runListing(*arguments, console); });
    command->add_flag("--list", arguments->parts,
                      "Show the image's partitions and volumes instead");
    addVolumeOptions(*command, arguments->volume);
    command->footer(
        "Exit code: 0 done, 1 something could not be listed, 2 error, 130 interrupted.\n"
        "Example: pryvane-cli listing --image mac.E01 > mac.body\n"
        "         pryvane-cli listing --volume /mnt/mac > mac.body\n"
        "         pryvane-cli scan --deep --listing mac.body --user alice");
}

} // namespace pryvane::cli
