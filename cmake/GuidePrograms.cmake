# The programs in the README and in the guide's chapters. The tests compare what they print with what the pages say; the packages
# hold them as examples.

# Writes the program of each page to FOLDER/PAGE.cpp and what it prints to FOLDER/PAGE.txt; RESULT becomes the list of the pages.
function(mlcore_extract_guide_programs folder result)
    file(GLOB pages CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/docs/guide/*.md")
    set(names "")
    foreach(page IN LISTS pages)
        cmake_path(GET page STEM name)
        file(READ "${page}" text)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${page}")
        if(NOT text MATCHES "\n```cpp\n([^`]*)\n```\n\n```text\n([^`]*\n)```\n")
            message(FATAL_ERROR "${page}: no program with its output")
        endif()
        file(CONFIGURE OUTPUT "${folder}/${name}.cpp" CONTENT "${CMAKE_MATCH_1}\n" @ONLY)
        file(CONFIGURE OUTPUT "${folder}/${name}.txt" CONTENT "${CMAKE_MATCH_2}" @ONLY)
        list(APPEND names "${name}")
    endforeach()
    set(${result} ${names} PARENT_SCOPE)
endfunction()
