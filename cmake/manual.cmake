# The manual, and its test. A Windows build has the help file beside the program,
# which looks for it there where it was not installed.

if(QUILL_FUZZ)
    return()
endif()
find_program(CMARK cmark-gfm)
execute_process(COMMAND ${CMAKE_SOURCE_DIR}/tools/chmcompiler --found
    RESULT_VARIABLE nocompiler OUTPUT_QUIET ERROR_QUIET)
if(NOT CMARK OR NOT nocompiler EQUAL 0)
    message(WARNING "cmark-gfm, or what tools/chmcompiler gets, is not installed: no manual will be built")
    return()
endif()

set(made ${CMAKE_BINARY_DIR}/manual)
file(GLOB pages CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/manual/*.md)
file(GLOB pictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/images/*.png)
add_custom_command(
    OUTPUT ${made}/Quillmere.chm ${made}/Quillmere.html
    COMMAND ${CMAKE_SOURCE_DIR}/tools/manual ${made}
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/manual ${pages} ${pictures}
    COMMENT "Manual" VERBATIM)
set(manualfiles ${made}/Quillmere.chm)
if(WIN32)
    set(beside ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Quillmere.chm)
    add_custom_command(
        OUTPUT ${beside}
        COMMAND ${CMAKE_COMMAND} -E copy ${made}/Quillmere.chm ${beside}
        DEPENDS ${made}/Quillmere.chm
        COMMENT "Manual beside the program" VERBATIM)
    list(APPEND manualfiles ${beside})
endif()
add_custom_target(manual ALL DEPENDS ${manualfiles})

if(NOT WIN32)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    add_test(NAME manual COMMAND Python3::Interpreter
        ${CMAKE_SOURCE_DIR}/tests/tools/manual_test.py ${CMAKE_SOURCE_DIR} ${made})
endif()
