# The shipped dictionaries and the sample grids. build/data has them, once for
# all presets; a program looks for its dictionaries in Dictionaries beside it.
#
# They are made by a quill that runs here at full speed. A build that has none,
# for Windows or under sanitizers, has the native preset make them.

set(scowl /usr/share/dict/scowl)
set(scowlcopyright /usr/share/doc/scowl/copyright)
if(NOT EXISTS ${scowl} OR NOT EXISTS ${scowlcopyright})
    message(WARNING "Debian's package scowl is not installed: no dictionaries will be built")
    return()
endif()

set(quilldata ${CMAKE_SOURCE_DIR}/build/data)
set(dictionarynames MainDict MainDict-UK MainDict-US Puzzle-UK Puzzle-US)
file(GLOB samplepictures CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/samples/*.txt)

foreach(name ${dictionarynames})
    list(APPEND wordlists ${quilldata}/${name}.txt)
    list(APPEND dictionaryfiles ${quilldata}/${name}.dic)
endforeach()
foreach(picture ${samplepictures})
    get_filename_component(name ${picture} NAME_WE)
    list(APPEND samplegrids ${quilldata}/${name}.qmg)
endforeach()

if(CMAKE_CROSSCOMPILING OR QUILL_SANITIZE OR QUILL_FUZZ)
    # Always looked at, since only the native build knows what is out of date.
    add_custom_target(nativedata
        COMMAND ${CMAKE_SOURCE_DIR}/tools/words/builddata
        BYPRODUCTS ${wordlists} ${dictionaryfiles} ${samplegrids}
        COMMENT "Dictionaries and samples from the native preset"
        USES_TERMINAL VERBATIM)
else()
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    set(words ${CMAKE_SOURCE_DIR}/tools/words)
    file(GLOB scowllists ${scowl}/*)
    add_custom_command(
        OUTPUT ${wordlists}
        COMMAND ${Python3_EXECUTABLE} ${words}/makelists ${quilldata}
        DEPENDS ${words}/makelists ${words}/silly.txt ${words}/leftout.txt ${scowllists}
        COMMENT "Word lists" VERBATIM)
    foreach(name ${dictionarynames})
        add_custom_command(
            OUTPUT ${quilldata}/${name}.dic
            COMMAND quill dict build ${quilldata}/${name}.dic ${quilldata}/${name}.txt
            DEPENDS quill ${quilldata}/${name}.txt
            COMMENT "Dictionary ${name}" VERBATIM)
    endforeach()
    foreach(picture ${samplepictures})
        get_filename_component(name ${picture} NAME_WE)
        add_custom_command(
            OUTPUT ${quilldata}/${name}.qmg
            COMMAND quill grid build ${quilldata}/${name}.qmg ${picture}
            DEPENDS quill ${picture}
            COMMENT "Sample ${name}" VERBATIM)
    endforeach()
endif()

# What stands beside the program. The words are another's work, whose terms go
# wherever the dictionaries go.
set(shipped ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Dictionaries)
foreach(name ${dictionarynames})
    add_custom_command(
        OUTPUT ${shipped}/${name}.dic
        COMMAND ${CMAKE_COMMAND} -E copy ${quilldata}/${name}.dic ${shipped}/${name}.dic
        DEPENDS ${quilldata}/${name}.dic
        COMMENT "Shipped dictionary ${name}" VERBATIM)
    list(APPEND shippedfiles ${shipped}/${name}.dic)
endforeach()
add_custom_command(
    OUTPUT ${shipped}/copyright-scowl.txt
    COMMAND ${CMAKE_COMMAND} -E copy ${scowlcopyright} ${shipped}/copyright-scowl.txt
    DEPENDS ${scowlcopyright}
    COMMENT "Copyright of the shipped dictionaries" VERBATIM)

# A fuzz target brings its own corpus: there the dictionaries are on request.
set(always ALL)
if(QUILL_FUZZ)
    set(always)
endif()
add_custom_target(dictionaries ${always}
    DEPENDS ${dictionaryfiles} ${samplegrids} ${shippedfiles} ${shipped}/copyright-scowl.txt)
