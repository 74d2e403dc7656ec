# One INTERFACE target carries every compiler and linker flag of our own code.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Indirect jumps land only where they may: Intel's way, ARM's way, or none.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fcf-protection=full PRYVANE_HAS_CET)
check_cxx_compiler_flag(-mbranch-protection=standard PRYVANE_HAS_BTI)

# What a position-independent program must mend in itself at each start, in a twentieth of the room.
include(CheckLinkerFlag)
check_linker_flag(CXX -Wl,-z,pack-relative-relocs PRYVANE_HAS_RELR)

add_library(pryvane_flags INTERFACE)
target_compile_features(pryvane_flags INTERFACE cxx_std_20)
target_compile_options(pryvane_flags INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    # GCC 12 sees overlapping copies in every "literal" + std::string (its bug 105329).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${PRYVANE_WERROR}>:-Werror>
    -fstack-protector-strong $<$<PLATFORM_ID:Linux>:-fstack-clash-protection>
    $<$<BOOL:${PRYVANE_HAS_CET}>:-fcf-protection=full>
    $<$<BOOL:${PRYVANE_HAS_BTI}>:-mbranch-protection=standard>)
target_link_options(pryvane_flags INTERFACE
    $<$<PLATFORM_ID:Linux>:-Wl,-z,relro,-z,now> $<$<PLATFORM_ID:Linux>:-Wl,--as-needed>
    $<$<BOOL:${PRYVANE_HAS_RELR}>:-Wl,-z,pack-relative-relocs>)
target_compile_definitions(pryvane_flags INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    PRYVANE_VERSION="${PROJECT_VERSION}" PRYVANE_BUILD="${PRYVANE_BUILD}"
    _GLIBCXX_ASSERTIONS)

if(PRYVANE_SANITIZE)
    target_compile_options(pryvane_flags INTERFACE
        -fsanitize=${PRYVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(pryvane_flags INTERFACE -fsanitize=${PRYVANE_SANITIZE})
elseif(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
    # Debian's 12 compiler knows level 3; fortification needs optimisation and no sanitizer.
    target_compile_options(pryvane_flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
endif()
