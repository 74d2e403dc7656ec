# pryvane_layer(NAME SOURCES … USES … [LINKS …])
#   one static library a layer. USES names the layers below it (public: a header may show their
#   types), LINKS names third-party targets that stay behind its sources.
function(pryvane_layer name)
    cmake_parse_arguments(LAYER "" "" "SOURCES;USES;LINKS" ${ARGN})
    add_library(pryvane_${name} STATIC ${LAYER_SOURCES})
    target_include_directories(pryvane_${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(pryvane_${name} PUBLIC pryvane_flags)
    foreach(used IN LISTS LAYER_USES)
        target_link_libraries(pryvane_${name} PUBLIC pryvane_${used})
    endforeach()
    target_link_libraries(pryvane_${name} PRIVATE ${LAYER_LINKS})
endfunction()
