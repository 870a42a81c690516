# One interface target holds every flag of the house; each room links it.
add_library(tallybrook_flags INTERFACE)
target_compile_options(tallybrook_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference
    -Wconversion -Wsign-conversion -Wcast-align -Wimplicit-fallthrough)

if(TALLYBROOK_SANITIZE)
    # GCC's null-dereference analysis reports false positives in instrumented code.
    target_compile_options(tallybrook_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -Wno-null-dereference)
    target_link_options(tallybrook_flags INTERFACE -fsanitize=address,undefined)
endif()

if(TALLYBROOK_COVERAGE)
    target_compile_options(tallybrook_flags INTERFACE --coverage)
    target_link_options(tallybrook_flags INTERFACE --coverage)
endif()
