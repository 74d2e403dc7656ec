#include "hosts/linux/LinuxMachineInfo.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <unistd.h>

namespace pryvane {
namespace {

using namespace std::string_literals;

TEST(LinuxMachineInfo, ReadsFirmwareOrTheDeviceTreeOrFallsBack)
{
    const test::TemporaryFolder root;
    LinuxMachineInfo machine(root.path());
    std::array<char, 256> host{};
    ASSERT_EQ(gethostname(host.data(), host.size() - 1), 0);
    EXPECT_EQ(machine.computerName(), std::string(host.data()));
    const struct {
        const char* file; ///< that comes to those before it
        std::string content;
        const char* model;
        std::optional<std::string> serial;
    } rows[] = {
        // Firmware that was never filled in, and an identity that is nobody's business.
        {"sys/class/dmi/id/product_name", " \n", "Just an Apple Computer", {}},
        {"etc/machine-id", "0123456789abcdef0123456789abcdef\n", "Just an Apple Computer", {}},
        {"proc/device-tree/model", "Apple MacBook Air (M1)\0"s, "Apple MacBook Air (M1)", {}},
        {"proc/device-tree/serial-number", "C02TREE\0"s, "Apple MacBook Air (M1)", "C02TREE"},
        {"sys/class/dmi/id/product_name", "MacBookPro11,1 \n", "MacBookPro11,1", "C02TREE"},
        {"sys/class/dmi/id/product_serial", "C02DMI\n", "MacBookPro11,1", "C02DMI"},
    };
    EXPECT_EQ(machine.machineModel(), rows[0].model);
    for (const auto& row : rows) {
        root.file(row.file, row.content);
        EXPECT_EQ(machine.machineModel(), row.model) << row.file;
        EXPECT_EQ(machine.serialNumber(), row.serial) << row.file;
    }
}

TEST(LinuxMachineInfo, PrefersThePrettyHostName)
{
    const struct {
        const char* line;
        const char* name;
    } cases[] = {
        {"PRETTY_HOSTNAME=kitchen", "kitchen"},
        {"PRETTY_HOSTNAME=\"Alice's \\\"big\\\" Mac\"", "Alice's \"big\" Mac"},
        {"PRETTY_HOSTNAME='a\\b'", "a\\b"},
        {"ICON_NAME=x\n  PRETTY_HOSTNAME=\"two words\"\nDEPLOYMENT=y", "two words"},
    };
    for (const auto& row : cases) {
        const test::TemporaryFolder root;
        root.file("etc/machine-info", row.line + "\n"s);
        EXPECT_EQ(LinuxMachineInfo(root.path()).computerName(), row.name) << row.line;
    }
}

} // namespace
} // namespace pryvane
