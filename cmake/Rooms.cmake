# The rooms of src/ as libraries. Which room uses which, and which Qt modules it sees, stands in
# src/rooms.txt alone; scripts/check-layers holds the includes to the same table. A room's library
# is named for its folder: removal/disk is pryvane_removal_disk.
set(PRYVANE_ROOM_TABLE "${CMAKE_SOURCE_DIR}/src/rooms.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PRYVANE_ROOM_TABLE}")

# Which folder of src/hosts is this system's.
string(TOLOWER "${CMAKE_SYSTEM_NAME}" PRYVANE_SYSTEM)
if(APPLE)
    set(PRYVANE_SYSTEM "mac")
endif()

# pryvane_room_targets(VARIABLE ROOM…)
#   the libraries of these rooms.
function(pryvane_room_targets variable)
    list(TRANSFORM ARGN REPLACE "/" "_")
    list(TRANSFORM ARGN PREPEND "pryvane_")
    set(${variable} ${ARGN} PARENT_SCOPE)
endfunction()

# Whether this build makes a room: not where its Qt modules are missing or not wanted, not on
# another system, and not where it uses a room that is not made.
function(pryvane_room_is_made variable room uses modules)
    set(made TRUE)
    if(modules AND NOT TARGET Qt6::Core)
        set(made FALSE)
    endif()
    list(REMOVE_ITEM modules Core)
    if(modules AND NOT (PRYVANE_GUI AND TARGET Qt6::Widgets))
        set(made FALSE)
    elseif(room MATCHES "^hosts/linux" AND NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
        set(made FALSE)
    elseif(room MATCHES "^hosts/mac" AND NOT APPLE)
        set(made FALSE)
    endif()
    foreach(used IN LISTS uses)
        if(NOT used IN_LIST PRYVANE_ROOMS)
            set(made FALSE)
        endif()
    endforeach()
    set(${variable} ${made} PARENT_SCOPE)
endfunction()

# PRYVANE_ROOMS: the rooms that this build makes, each below those that use it. USES_ROOM and
# QT_ROOM: what the table says of one.
file(STRINGS "${PRYVANE_ROOM_TABLE}" lines REGEX "^[^#]")
foreach(line IN LISTS lines)
    if(NOT line MATCHES "^([a-z/]+):([a-z/ ]*)(\\|([A-Za-z ]+))?$")
        message(FATAL_ERROR "src/rooms.txt: this line is not \"room: rooms | Qt modules\": ${line}")
    endif()
    set(room "${CMAKE_MATCH_1}")
    separate_arguments(USES_${room} UNIX_COMMAND "${CMAKE_MATCH_2}")
    separate_arguments(QT_${room} UNIX_COMMAND "${CMAKE_MATCH_4}")
    pryvane_room_is_made(made ${room} "${USES_${room}}" "${QT_${room}}")
    if(made)
        list(APPEND PRYVANE_ROOMS ${room})
    endif()
endforeach()

# Links a target with what the table gives its room.
function(pryvane_link_room target kind room)
    target_include_directories(${target} ${kind} "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${target} ${kind} pryvane_flags)
    foreach(used IN LISTS USES_${room})
        pryvane_room_targets(library ${used})
        if(TARGET ${library}) # a room that is a module alone gives nothing but headers
            target_link_libraries(${target} ${kind} ${library})
        endif()
    endforeach()
    foreach(module IN LISTS QT_${room})
        target_link_libraries(${target} ${kind} Qt6::${module})
    endforeach()
endfunction()

# pryvane_room(SOURCES … [HOST …] [LINKS …])
#   the library of the room in this folder. HOST names sources that each system has its own of:
#   NAMELinux.cpp, NAMEMac.cpp, or NAMEPosix.cpp where a system has none, or is to do without it.
#   LINKS are third-party targets that stay behind its sources.
function(pryvane_room)
    cmake_parse_arguments(ROOM "" "" "SOURCES;HOST;LINKS" ${ARGN})
    file(RELATIVE_PATH room "${CMAKE_SOURCE_DIR}/src" "${CMAKE_CURRENT_SOURCE_DIR}")
    string(REPLACE "Darwin" "Mac" system "${CMAKE_SYSTEM_NAME}")
    foreach(name IN LISTS ROOM_HOST)
        set(posix "${CMAKE_CURRENT_SOURCE_DIR}/${name}Posix.cpp")
        set(own "${CMAKE_CURRENT_SOURCE_DIR}/${name}${system}.cpp")
        if(EXISTS "${posix}" AND (PRYVANE_POSIX_FORM OR NOT EXISTS "${own}"))
            list(APPEND ROOM_SOURCES "${posix}")
        else()
            list(APPEND ROOM_SOURCES "${own}")
        endif()
    endforeach()
    pryvane_room_targets(library ${room})
    add_library(${library} STATIC ${ROOM_SOURCES})
    pryvane_link_room(${library} PUBLIC ${room})
    target_link_libraries(${library} PRIVATE ${ROOM_LINKS})
    if(QT_${room})
        set_target_properties(${library} PROPERTIES AUTOMOC ON)
    endif()
endfunction()
