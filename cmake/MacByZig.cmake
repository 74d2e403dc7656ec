# A toolchain for a Mac on Linux, as far as Zig goes: scripts/mac-check configures with it. There is no Objective-C
# library and no framework behind it, so what is built with it are the parts without Cocoa.
#   PRYVANE_ZIG    the folder that mac-check fills: zig-cc, zig-c++, zig-ar, zig-ranlib, and what stands for packages
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR arm64)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PRYVANE_ZIG)
foreach(language C CXX OBJCXX)
    set(CMAKE_${language}_COMPILER "${PRYVANE_ZIG}/zig-c++")
endforeach()
set(CMAKE_C_COMPILER "${PRYVANE_ZIG}/zig-cc")
set(CMAKE_AR "${PRYVANE_ZIG}/zig-ar")
set(CMAKE_RANLIB "${PRYVANE_ZIG}/zig-ranlib")
set(CMAKE_INSTALL_NAME_TOOL "${PRYVANE_ZIG}/no-tool") # nothing built here is installed
set(CMAKE_OSX_SYSROOT "")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_FIND_ROOT_PATH "${PRYVANE_ZIG}/root")
foreach(kind PROGRAM LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
