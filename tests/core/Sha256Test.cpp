#include "core/Sha256.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

/// The first two are the standard's own; the others were made with sha256sum, at the lengths at
/// which the padding takes another block.
TEST(Sha256, AgreesWithOthers)
{
    const struct {
        std::string bytes, hex;
    } rows[] = {
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {std::string(1'000'000, 'a'),
         "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {std::string(55, '\xff'),
         "aadaed00a3c5fbb8072ae7f1984ba8199fbe5272de427d11eaf31583af37db51"},
        {std::string(56, '\xff'),
         "528ff50ab05e77bbbd224a9ec86165dbb6824a9a9efb544be0a1d57d5b416457"},
        {std::string(63, '\xff'),
         "d12449c8124182545ae91924286cc6af13528bcf62a5ddbd5e00b891fffc1b48"},
        {std::string(64, '\xff'),
         "8667e718294e9e0df1d30600ba3eeb201f764aad2dad72748643e4a285e1d1f7"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(sha256Hex(row.bytes), row.hex) << row.bytes.size() << " bytes";
}

} // namespace
} // namespace pryvane
