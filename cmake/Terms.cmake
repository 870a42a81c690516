# The terms of use stand in LICENSE alone: their name in its first line, and below an empty one what they say. The about
# box, the package and the metainfo take both from here.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/../LICENSE)
file(READ ${CMAKE_CURRENT_LIST_DIR}/../LICENSE license)
if(NOT license MATCHES "^SPDX-License-Identifier: ([^\n]+)\n\n(.+)\n$")
    message(FATAL_ERROR "LICENSE: its first line must be \"SPDX-License-Identifier: NAME\", its second one empty, and "
        "the terms of use must follow.")
endif()
set(terms_name "${CMAKE_MATCH_1}")
set(terms "${CMAKE_MATCH_2}")
