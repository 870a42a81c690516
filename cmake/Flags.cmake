# One interface target holds every flag of the house; each room links it.
add_library(tallybrook_flags INTERFACE)
# A warning stops whoever works on the program, and nobody who builds it with another compiler for people.
# -Wrestrict is off since GCC 12 reports it falsely where a literal and a string are joined.
target_compile_options(tallybrook_flags INTERFACE
    -Wall -Wextra -Wpedantic $<$<NOT:$<CONFIG:Release>>:-Werror> -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wconversion -Wsign-conversion -Wcast-align -Wimplicit-fallthrough $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# Only libraries that are called are asked for, not all that a library's description names beside it.
target_link_options(tallybrook_flags INTERFACE LINKER:--as-needed)

# A linker that takes a second where the compiler's own takes ten. What it makes read-only at the start can begin in the
# middle of a page, at a thread's own variable, and then the program does not start. Where segments may share a page, it
# counts them anew for ever once in some thousands of times, as their number changes with the length of its answer.
find_program(MOLD mold)
if(MOLD)
    target_link_options(tallybrook_flags INTERFACE
        "$<$<NOT:$<CONFIG:Release>>:-fuse-ld=mold;LINKER:-z,norelro,-z,separate-loadable-segments>")
endif()

# Where the files of a room are compiled as one, GCC takes what a test derives from a class of its own file for a slip.
if(CMAKE_UNITY_BUILD)
    target_compile_options(tallybrook_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()

# What the standard library asks of its callers, such as that an optional that is read holds something, is looked at where
# tests run: the sanitizers do not see all of that.
target_compile_definitions(tallybrook_flags INTERFACE $<$<NOT:$<CONFIG:Release>>:_GLIBCXX_ASSERTIONS>)

if(TALLYBROOK_SANITIZE)
    # A variable that is read before it was written holds nonsense, and not by chance what it should. (GCC would take the
    # nonsense for such a fault by itself.)
    target_compile_options(tallybrook_flags INTERFACE
        -fsanitize=address,undefined,float-divide-by-zero -fno-sanitize-recover=all -fno-omit-frame-pointer
        $<$<CXX_COMPILER_ID:Clang>:-ftrivial-auto-var-init=pattern>)
    target_compile_definitions(tallybrook_flags INTERFACE TALLYBROOK_SANITIZED)
    target_link_options(tallybrook_flags INTERFACE -fsanitize=address,undefined)
else()
    # What is shipped is hardened as Debian's own programs are.
    target_compile_options(tallybrook_flags INTERFACE
        "$<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2;-fstack-protector-strong;-Wformat;-Werror=format-security>")
    target_link_options(tallybrook_flags INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
endif()

if(TALLYBROOK_FUZZ)
    target_compile_options(tallybrook_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(TALLYBROOK_COVERAGE)
    target_compile_options(tallybrook_flags INTERFACE --coverage)
    target_link_options(tallybrook_flags INTERFACE --coverage)
endif()
