#pragma once

#include "signatures/CatalogueTypes.h"

namespace pryvane::tables {

using namespace std::chrono_literals;

/// The session's steps in order: checks, label (shown as it stands), pause.
inline constexpr SequenceRow kSequenceRows[] = {
    {{"Spyme"}, "Spyme", 200ms},
    {{"Osxvnc"}, "Osxvnc", 300ms},
    {{"AoboKeyloggerPro"}, "AoboKeyloggerPro", 200ms},
    {{"RefogPersonalMonitor"}, "RefogPersonalMonitor", 300ms},
    {{"TypeRecorderX"}, "TypeRecorderX", 200ms},
    {{"BlackHoleRAT"}, "BlackHoleRAT", 300ms},
    {{"OSXLaoShuA"}, "OSXLaoShuA", 200ms},
    {{"DevilRobber"}, "DevilRobber", 500ms},
    {{"AmacKeylogger"}, "AmacKeylogger", 300ms},
    {{"TsunamiTrojanHorse"}, "Tsunamitrojancourse", 200ms},
    {{"OkazInstaller"}, "OkazInstaller", 300ms},
    {{"OSXCoinThief"}, "OSXCoinThief", 200ms},
    {{"Leverage"}, "OSXLeverage", 300ms},
    {{"OSXiWorm"}, "OSXiWorm", 200ms},
    {{"OSXWireLurker"}, "OSXWireLurker", 300ms},
    {{"OtherSpyWareSearch"}, "Other Spyware", 300ms},
    {{"Olyx"}, "Olyx", 200ms},
    {{"iMonitorMacKeylogger"}, "iMonitorMacKeylogger", 300ms},
    {{"SniperSpy"}, "SniperSpy", 200ms},
    {{"Spector"}, "Spector", 300ms},
    {{"Inqtana"}, "Inqtana", 300ms},
    {{"AsTHT"}, "AsTHT", 200ms},
    {{"MacGuard"}, "MacGuard", 300ms},
    {{"Revir"}, "Revir", 200ms},
    {{"Miner"}, "Miner", 300ms},
    {{"MacControl"}, "MacControl", 200ms},
    {{"FkCodec"}, "FkCodec", 300ms},
    {{"GetShell"}, "GetShell", 200ms},
    {{"Crisis"}, "Crisis", 300ms},
    {{"NetWeird"}, "NetWeird", 200ms},
    {{"Pintsized"}, "Pintsized", 300ms},
    {{"Minesteal"}, "Minesteal", 200ms},
    {{"CoinThief"}, "CoinThief", 300ms},
    {{"XSLCmd"}, "XSLCmd", 500ms},
    {{"Ventir"}, "Ventir", 200ms},
    {{"RSPlug"}, "RSPlug", 300ms},
    {{"Renepo"}, "Renepo", 200ms},
    {{"Loompa"}, "Loompa", 300ms},
    {{"DNSChanger"}, "DNSChanger", 200ms},
    {{"Lamzev"}, "Lamzev", 300ms},
    {{"iServices"}, "iServices", 200ms},
    {{"OpinionSpy"}, "OpinionSpy", 300ms},
    {{"Boonana"}, "Boonana", 200ms},
    {{"Sabpab"}, "Sabpab", 300ms},
    {{"SMSSend"}, "SMSSend", 200ms},
    {{"Machook"}, "Machook", 300ms},
    {{"SniperSpyKeylogger"}, "SniperSpyKeylogger", 200ms},
    {{"checkForBackDoor", "otherCheckDefaultOnly", "checkForARD"}, "Default Check", 1000ms},
};

} // namespace pryvane::tables
