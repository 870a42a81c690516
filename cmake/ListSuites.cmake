# Writes a file for CTest with a test for each suite of PROGRAM into LIST, under the name of its ROOM. Its required files
# are the program and those that it STARTS, parted by commas. Random tests draw the same cases in every run; scripts/soak
# draws others.
set(ENV{QT_QPA_PLATFORM} offscreen)
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n[^ \n][^\n]*\\.( |\n)" heads "\n${listed}")
if(NOT heads)
    message(FATAL_ERROR "${PROGRAM} has no tests")
endif()

string(REPLACE "," ";" programs "${PROGRAM},${STARTS}")
set(tests "")
foreach(head IN LISTS heads)
    string(REGEX REPLACE "^\n([^\n]*)\\.[ \n]$" "\\1" suite "${head}")
    string(APPEND tests "add_test([=[${ROOM}.${suite}]=] \"${PROGRAM}\" \"--gtest_filter=${suite}.*\")\n"
        "set_tests_properties([=[${ROOM}.${suite}]=] PROPERTIES ENVIRONMENT \"QT_QPA_PLATFORM=offscreen\"\n"
        "  ENVIRONMENT_MODIFICATION \"RC_PARAMS=set:seed=20261114\" REQUIRED_FILES \"${programs}\")\n")
endforeach()
file(WRITE ${LIST} "${tests}")
