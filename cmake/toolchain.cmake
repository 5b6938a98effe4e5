# Compiler, linker and warnings, the same for every target of ours.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Paths relative to the checkout: a second clone finds what the first has compiled.
    set(launcher ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
        ${CCACHE_PROGRAM})
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM)
    add_link_options(-fuse-ld=mold)
endif()

add_library(corvane_options INTERFACE)
target_compile_options(corvane_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<CXX_COMPILER_ID:GNU>:-Werror>) # clang, which builds the fuzz targets, warns of other things
target_compile_definitions(corvane_options INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(corvane_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(CORVANE_SANITIZE)
    # The instrumented code confuses g++'s flow analysis; the other presets keep that warning.
    target_compile_options(corvane_options INTERFACE
        -fsanitize=${CORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        -Wno-maybe-uninitialized)
    add_link_options(-fsanitize=${CORVANE_SANITIZE})
endif()
