# Settings that the library, its tests, its examples and its benchmarks share.

# The language, the warnings and the visibility of everything that is compiled here. All of it is private: nobody who uses the
# library gets our warnings.
function(mlcore_target_settings target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    if(MSVC)
        # C functions of the library throw. Members of standard classes are exported as part of a class, on purpose.
        target_compile_options(${target} PUBLIC /EHs /EHc- /wd4251 /wd4275)
        target_compile_options(${target} PRIVATE /W4 /utf-8 $<$<BOOL:${MLCORE_WERROR}>:/WX>)
    else()
        # Unique symbols would keep a shared library loaded after its last user has closed it.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${MLCORE_WERROR}>:-Werror>)
    endif()
endfunction()

# A test that replaces one source file of the platform folder: SOURCES define every function of that file, the rest of the
# library comes as objects, and the rest of the platform from an archive, of which the linker takes only what is not yet defined.
function(mlcore_add_fake_platform_test name)
    add_executable(${name} ${ARGN} $<TARGET_OBJECTS:MLCoreObjects>)
    mlcore_target_settings(${name})
    # The program holds the library: its declarations must not ask for an import.
    target_compile_definitions(${name} PRIVATE
        $<IF:$<BOOL:${BUILD_SHARED_LIBS}>,MLCORE_BUILDING,MLCORE_STATIC>)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE MLCorePlatformArchive ${MLCORE_SYSTEM_LIBRARIES} gtest_main)
    mlcore_add_gtest(${name})
endfunction()
