# Modules are parts of a program that are loaded on first use, because what they link would cost
# every start time. A program opens them by their place beside its own file, which is the same in
# the build tree as when installed. So no file of ours needs a run path; only dependencies outside
# the system's folders still get one.
include(GNUInstallDirs)
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
set(PRYVANE_PROGRAMS "${CMAKE_BINARY_DIR}/bin")
file(RELATIVE_PATH PRYVANE_MODULES "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}/pryvane")

# The component that something is installed with: "cli" where nothing else is said.
function(pryvane_component variable said)
    set(${variable} "cli" PARENT_SCOPE)
    if(said)
        set(${variable} "${said}" PARENT_SCOPE)
    endif()
endfunction()

# pryvane_program(NAME SOURCES … LINKS … [MODULES …] [COMPONENT gui])
#   a program that is installed, with what needs no screen unless said otherwise.
function(pryvane_program name)
    cmake_parse_arguments(PROGRAM "" "COMPONENT" "SOURCES;LINKS;MODULES" ${ARGN})
    add_executable(${name} ${PROGRAM_SOURCES})
    target_link_libraries(${name} PRIVATE ${PROGRAM_LINKS})
    pryvane_uses_modules(${name} ${PROGRAM_MODULES})
    set_property(GLOBAL APPEND PROPERTY PRYVANE_PRODUCTS ${name})
    pryvane_component(component "${PROGRAM_COMPONENT}")
    install(TARGETS ${name} COMPONENT ${component})
endfunction()

# pryvane_module(NAME SOURCES … [LINKS …] [COMPONENT gui])
#   the file libpryvane-NAME.so, linked with what the room in this folder uses, and LINKS.
function(pryvane_module name)
    cmake_parse_arguments(MODULE "" "COMPONENT" "SOURCES;LINKS" ${ARGN})
    set(target pryvane_${name}_module)
    add_library(${target} MODULE ${MODULE_SOURCES})
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME pryvane-${name}
        LIBRARY_OUTPUT_DIRECTORY "${PRYVANE_PROGRAMS}/${PRYVANE_MODULES}"
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    file(RELATIVE_PATH room "${CMAKE_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
    pryvane_link_room(${target} PRIVATE ${room})
    target_link_libraries(${target} PRIVATE ${MODULE_LINKS})
    set_property(GLOBAL APPEND PROPERTY PRYVANE_PRODUCTS ${target})
    pryvane_component(component "${MODULE_COMPONENT}")
    install(TARGETS ${target}
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/pryvane" COMPONENT ${component})
endfunction()

# pryvane_uses_modules(PROGRAM [NAME …])
#   puts the program, which may be a test, where it finds modules, and has these built before it.
function(pryvane_uses_modules program)
    set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PRYVANE_PROGRAMS}")
    foreach(name IN LISTS ARGN)
        add_dependencies(${program} pryvane_${name}_module)
    endforeach()
    if(PRYVANE_SANITIZE AND "pdf" IN_LIST ARGN)
        target_sources(${program} PRIVATE "${CMAKE_SOURCE_DIR}/cmake/LibraryLeaks.cpp")
    endif()
endfunction()
