# How every library and program of the tree is compiled, and the short ways of
# adding one.

option(QUILL_SANITIZE "build with ASan and UBSan" OFF)
option(QUILL_FUZZ "build the libFuzzer targets (clang)" OFF)

find_package(Threads REQUIRED)

add_library(quillflags INTERFACE)
target_include_directories(quillflags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(quillflags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wmissing-declarations -Wformat=2 -Wvla -Werror)

# Texts are code page 1252 inside; sources are UTF-8. clang has no such option,
# so a literal above 127 is written as an escape.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(quillflags INTERFACE -fexec-charset=CP1252)
endif()

# Asserts document what can't happen; they stay in every build.
foreach(config DEBUG RELEASE RELWITHDEBINFO MINSIZEREL)
    string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_${config} "${CMAKE_CXX_FLAGS_${config}}")
endforeach()

if(WIN32)
    # The narrow calls of a process that lives in code page 1252.
    target_compile_definitions(quillflags INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
    # vsnprintf and friends with the standard's rules, on both word sizes.
    target_compile_definitions(quillflags INTERFACE __USE_MINGW_ANSI_STDIO=1)
    # The same programs from the same sources, wherever and whenever they are built.
    target_compile_options(quillflags INTERFACE
        -ffile-prefix-map=${CMAKE_SOURCE_DIR}/= -ffile-prefix-map=../../=)
    add_link_options(-Wl,--no-insert-timestamp)
endif()

if(QUILL_SANITIZE OR QUILL_FUZZ)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(QUILL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# The product's own code: no exceptions, no run-time types.
function(quilllibrary name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC quillflags)
    target_compile_options(${name} PRIVATE -fno-exceptions -fno-rtti)
endfunction()

function(quillprogram name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE quillflags)
    target_compile_options(${name} PRIVATE -fno-exceptions -fno-rtti)
endfunction()

# What the resource files of the program include, which a build doesn't see by itself.
# It holds for the folder that says so.
function(quillresources)
    set(resources ${CMAKE_SOURCE_DIR}/resources)
    set_source_files_properties(${resources}/quillmere.rc PROPERTIES
        OBJECT_DEPENDS "${resources}/Messages.txt;${resources}/quillmere.manifest")
    set_source_files_properties(${resources}/pictures.rc PROPERTIES OBJECT_DEPENDS
        "${resources}/quillmere.ico;${resources}/hand.cur;${resources}/splith.cur;${resources}/Sprites.spr")
    set_source_files_properties(${resources}/templates.rc ${resources}/menus.rc PROPERTIES
        OBJECT_DEPENDS "${resources}/identifiers.h")
endfunction()
