# What Debian's copyright file tells, written into COPYRIGHT: for the build, and by itself for a source package, as in
#     cmake -D COPYRIGHT=debian/copyright -P packaging/Copyright.cmake
include(${CMAKE_CURRENT_LIST_DIR}/../cmake/Terms.cmake)

# A field goes on in lines that begin with a space, an empty one as a point.
string(REGEX REPLACE "\n\n+" "\n.\n" terms_paragraph "${terms}")
string(REPLACE "\n" "\n " terms_paragraph "${terms_paragraph}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright.in ${COPYRIGHT} @ONLY)
