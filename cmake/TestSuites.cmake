# Makes one test of CTest of each suite of a GoogleTest program, named ROOM.SUITE. (A process for each single test would
# be started two thousand times.) The suites are asked for once the program has been built; until then the room has one
# test, which fails. What the program starts, or loads, is named behind the room.
#     tallybrook_test_suites(PROGRAM ROOM [STARTED...])
function(tallybrook_test_suites program room)
    list(TRANSFORM ARGN REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE starts)
    string(JOIN "," starts ${starts})
    set(list ${CMAKE_CURRENT_BINARY_DIR}/${program}_suites.cmake)
    set(tests ${CMAKE_CURRENT_BINARY_DIR}/${program}_tests.cmake)
    add_custom_command(TARGET ${program} POST_BUILD BYPRODUCTS ${list} VERBATIM
        COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${program}> -DSTARTS=${starts} -DROOM=${room} -DLIST=${list}
            -P ${CMAKE_SOURCE_DIR}/cmake/ListSuites.cmake)
    file(CONFIGURE OUTPUT ${tests} CONTENT
        "if(EXISTS \"@list@\")\n  include(\"@list@\")\nelse()\n  add_test(@room@.not_built @program@)\nendif()\n" @ONLY)
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${tests})
endfunction()
