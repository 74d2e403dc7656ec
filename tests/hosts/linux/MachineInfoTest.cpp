#include "hosts/linux/LinuxMachineInfo.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <unistd.h>

namespace pryvane {
namespace {

using namespace std::string_literals;

TEST(LinuxMachineInfo, FallsBackWhereTheMachineTellsNothing)
{
    const test::TemporaryFolder root;
    LinuxMachineInfo machine(root.path());
    std::array<char, 256> host{};
    ASSERT_EQ(gethostname(host.data(), host.size() - 1), 0);
    EXPECT_EQ(machine.computerName(), std::string(host.data()));
    EXPECT_EQ(machine.machineModel(), "Just an Apple Computer");
    EXPECT_EQ(machine.serialNumber(), std::nullopt);

    // Firmware that was never filled in, and a machine identity that is nobody's business.
    root.file("sys/class/dmi/id/product_name", " \n");
    root.file("etc/machine-id", "0123456789abcdef0123456789abcdef\n");
    EXPECT_EQ(machine.machineModel(), "Just an Apple Computer");
    EXPECT_EQ(machine.serialNumber(), std::nullopt);
}

TEST(LinuxMachineInfo, ReadsFirmwareAndDeviceTree)
{
    const test::TemporaryFolder root;
    LinuxMachineInfo machine(root.path());
    root.file("proc/device-tree/model", "Apple MacBook Air (M1)\0"s);
    root.file("proc/device-tree/serial-number", "C02TREE\0"s);
    EXPECT_EQ(machine.machineModel(), "Apple MacBook Air (M1)");
    EXPECT_EQ(machine.serialNumber(), "C02TREE");
    root.file("sys/class/dmi/id/product_name", "MacBookPro11,1 \n");
    root.file("sys/class/dmi/id/product_serial", "C02DMI\n");
    EXPECT_EQ(machine.machineModel(), "MacBookPro11,1");
    EXPECT_EQ(machine.serialNumber(), "C02DMI");
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
