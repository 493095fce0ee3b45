# Settings that every target of this project shares: link orvane::build privately.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(orvane_build INTERFACE)
add_library(orvane::build ALIAS orvane_build)
target_compile_options(orvane_build INTERFACE
    -Wall -Wextra -Wpedantic $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow> -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    # libstdc++ 12's stable_sort calls what it deprecates itself, which only clang reports.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
    $<$<BOOL:${ORVANE_WERROR}>:-Werror>)

if(ORVANE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(ORVANE_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
