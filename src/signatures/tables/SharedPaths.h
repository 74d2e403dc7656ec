#pragma once

// Locations that a check and the full-system list have in common, so that they stand once. Macros,
// because only literals can be joined at compile time and then stand inside another list.

// One location a line:
// clang-format off

#define PRYVANE_SYSLOGAGENT(leaf) \
    "/Library/Application Support/syslogagent/syslogagent.app/Contents/" leaf

#define PRYVANE_SYSLOGAGENT_STUB(language) \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/Resources/" language \
                        ".lproj/ApplicationStub.nib/keyedobjects.nib")

#define PRYVANE_SYSLOGAGENT_PATHS \
    PRYVANE_SYSLOGAGENT("MacOS/syslogagent"), \
    PRYVANE_SYSLOGAGENT("Info.plist"), \
    PRYVANE_SYSLOGAGENT("PkgInfo"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/Info.plist"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/PkgInfo"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/MacOS/Configure"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/Resources/English.lproj/MainMenu.nib"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/Resources/English.lproj/InfoPlist.strings"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/Resources/SniperSpy.icns"), \
    PRYVANE_SYSLOGAGENT("Resources/Configure.app/Contents/Resources/Preferences.nib"), \
    PRYVANE_SYSLOGAGENT("Resources/English.lproj/MainMenu.nib"), \
    PRYVANE_SYSLOGAGENT("Resources/English.lproj/InfoPlist.strings"), \
    PRYVANE_SYSLOGAGENT("Resources/LoginWindow.nib"), \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/document.wflow"), \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/MacOS/Application Stub"), \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/Info.plist"), \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/PkgInfo"), \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/Resources/AutomatorApplet.icns"), \
    PRYVANE_SYSLOGAGENT("Resources/sysloglauncher.app/Contents/version.plist"), \
    PRYVANE_SYSLOGAGENT_STUB("Dutch"), \
    PRYVANE_SYSLOGAGENT_STUB("da"), \
    PRYVANE_SYSLOGAGENT_STUB("fi"), \
    PRYVANE_SYSLOGAGENT_STUB("English"), \
    PRYVANE_SYSLOGAGENT_STUB("German"), \
    PRYVANE_SYSLOGAGENT_STUB("French"), \
    PRYVANE_SYSLOGAGENT_STUB("Japanese"), \
    PRYVANE_SYSLOGAGENT_STUB("Italian"), \
    PRYVANE_SYSLOGAGENT_STUB("no"), \
    PRYVANE_SYSLOGAGENT_STUB("ko"), \
    PRYVANE_SYSLOGAGENT_STUB("pt"), \
    PRYVANE_SYSLOGAGENT_STUB("pl"), \
    PRYVANE_SYSLOGAGENT_STUB("ru"), \
    PRYVANE_SYSLOGAGENT_STUB("pt_PT"), \
    PRYVANE_SYSLOGAGENT_STUB("sv"), \
    PRYVANE_SYSLOGAGENT_STUB("Spanish"), \
    PRYVANE_SYSLOGAGENT_STUB("zh_TW"), \
    PRYVANE_SYSLOGAGENT_STUB("zh_CN")

/// Relative on purpose: resolved against the current folder.
#define PRYVANE_MACGUARD(leaf) "Applications/MacGuard.app/Contents/Resources/" leaf

#define PRYVANE_MACGUARD_RESOURCE_PATHS \
    PRYVANE_MACGUARD("About-Back.png"), \
    PRYVANE_MACGUARD("About-Mail.png"), \
    PRYVANE_MACGUARD("About-Phone32x32.png"), \
    PRYVANE_MACGUARD("About-Ticket.png"), \
    PRYVANE_MACGUARD("AboutD.nib"), \
    PRYVANE_MACGUARD("AboutMBMI.png"), \
    PRYVANE_MACGUARD("CC-Back.png"), \
    PRYVANE_MACGUARD("CC-BigOptions.png"), \
    PRYVANE_MACGUARD("CC-BigOptionsHover.png"), \
    PRYVANE_MACGUARD("CC-BigOptionsPressed.png"), \
    PRYVANE_MACGUARD("CC-BigScan.png"), \
    PRYVANE_MACGUARD("CC-BigScanHover.png"), \
    PRYVANE_MACGUARD("CC-BigScanPressed.png"), \
    PRYVANE_MACGUARD("CC-BigSysInfo.png"), \
    PRYVANE_MACGUARD("CC-BigSysInfoHover.png"), \
    PRYVANE_MACGUARD("CC-BigSysInfoPressed.png"), \
    PRYVANE_MACGUARD("CC-CleanupBtn.png")

// clang-format on
