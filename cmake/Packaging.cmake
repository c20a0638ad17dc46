# What cpack makes in a build folder: a pair of Debian packages with the preset "debian", the programs' part and the developers';
# elsewhere one archive of everything, a ZIP for Windows.

# The pages, for whom the tree is not there: links to what stays in it become plain words.
file(REMOVE_RECURSE "${PROJECT_BINARY_DIR}/pages")
file(GLOB_RECURSE pages CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/docs/*.md")
foreach(page IN LISTS pages ITEMS README.md)
    file(READ "${PROJECT_SOURCE_DIR}/${page}" text)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${page}")
    string(REGEX REPLACE "\\[([^]]*)\\]\\([./]*(bench|examples|CONTRIBUTING|MLCore)[^)]*\\)" "\\1" text "${text}")
    file(WRITE "${PROJECT_BINARY_DIR}/pages/${page}" "${text}")
endforeach()
install(DIRECTORY "${PROJECT_BINARY_DIR}/pages/" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    # Debian has its own form of both.
    install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
endif()

# The examples, as sources.
set(examplesDir "${CMAKE_INSTALL_DOCDIR}/examples")
mlcore_extract_guide_programs("${PROJECT_BINARY_DIR}/guide_programs" names)
list(TRANSFORM names REPLACE "(.+)" "${PROJECT_BINARY_DIR}/guide_programs/\\1.cpp" OUTPUT_VARIABLE programs)
install(FILES ${programs} "${PROJECT_SOURCE_DIR}/cmake/examples/CMakeLists.txt"
    DESTINATION "${examplesDir}" COMPONENT development)

# For Windows, what is there must run as it is unpacked: with the libraries of the compiler, and with a program that shows it.
if(WIN32 AND TARGET orders)
    install(TARGETS orders RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT development)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/orders" "${PROJECT_SOURCE_DIR}/examples/data"
        DESTINATION "${examplesDir}" COMPONENT development)
endif()
if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    foreach(name IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${name}"
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        if(NOT IS_ABSOLUTE "${file}")
            message(WARNING "The compiler has no ${name}: what is installed needs one from elsewhere")
            continue()
        endif()
        # Nine tenths of them are debug information.
        file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/runtime")
        execute_process(COMMAND "${CMAKE_STRIP}" -o "${PROJECT_BINARY_DIR}/runtime/${name}" "${file}" COMMAND_ERROR_IS_FATAL ANY)
        install(PROGRAMS "${PROJECT_BINARY_DIR}/runtime/${name}" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
    endforeach()
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/windows/NOTICE.txt" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT runtime)
endif()

set(CPACK_PACKAGE_NAME MLCore)
if(NOT CPACK_PACKAGE_CONTACT)
    set(CPACK_PACKAGE_CONTACT "The MLCore authors <mlcore@packages.invalid>")
endif()
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    if(NOT CPACK_GENERATOR AND WIN32)
        set(CPACK_GENERATOR ZIP)
    elseif(NOT CPACK_GENERATOR)
        set(CPACK_GENERATOR TGZ)
    endif()
    include(CPack)
    return()
endif()

set(debianVersion "${PROJECT_VERSION}-1")
set(debianDir "${PROJECT_BINARY_DIR}/debian")
set(debianRuntime "libmlcore${PROJECT_VERSION_MAJOR}")
set(debianDevelopment libmlcore-dev)
set(debianText "${PROJECT_DESCRIPTION}")
set(debianMore "A class library for business programs: objects with class information and a
factory, values and collections, predicates, streams, dates with business-day
calendars, protected passwords and logging.
.
This package holds")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development)
# A summary told here would be put in front of each description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE mlcore)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${debianRuntime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${debianDir}/shlibs" "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${debianText}\n${debianMore} the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${debianDevelopment})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# libsodium is what the static library needs.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${debianRuntime} (= ${debianVersion}), libsodium-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${debianText} - development files
${debianMore} the headers, the static library, the files for CMake
and pkg-config, the documents and the views for debuggers.")

# Each package tells its license and its changes; the date can be given (SOURCE_DATE_EPOCH).
string(TIMESTAMP debianDate "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file("${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in" "${debianDir}/changelog.Debian" @ONLY)
file(CONFIGURE OUTPUT "${debianDir}/shlibs"
    CONTENT "libMLCore ${PROJECT_VERSION_MAJOR} ${debianRuntime} (>= ${PROJECT_VERSION})\n")
file(COPY_FILE "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${debianDir}/changelog")
find_program(MLCORE_GZIP gzip REQUIRED)
execute_process(COMMAND "${MLCORE_GZIP}" -9nf changelog.Debian changelog
    WORKING_DIRECTORY "${debianDir}" COMMAND_ERROR_IS_FATAL ANY)
foreach(part runtime development)
    string(TOUPPER ${part} upper)
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/debian/copyright" "${debianDir}/changelog.Debian.gz" "${debianDir}/changelog.gz"
        DESTINATION "share/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}" COMPONENT ${part})
endforeach()
include(CPack)
