# Packing is a matter of tools/package; here is its test, which installs what it
# packed, in a Wine session of its own.

if(NOT WIN32 OR NOT CMAKE_CROSSCOMPILING_EMULATOR)
    return()
endif()
find_program(MAKENSIS makensis)
find_program(ZIP zip)
if(NOT MAKENSIS OR NOT ZIP OR NOT TARGET manual OR NOT TARGET dictionaries)
    message(WARNING "nsis, zip, the manual's or the dictionaries' makers are not installed: packing will not be tested")
    return()
endif()
find_program(PYTHON3 python3 REQUIRED)
add_test(NAME package COMMAND ${CMAKE_SOURCE_DIR}/tools/winesession ${PYTHON3}
    ${CMAKE_SOURCE_DIR}/tests/tools/package_test.py
    ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/package)
set_tests_properties(package PROPERTIES TIMEOUT 600)
