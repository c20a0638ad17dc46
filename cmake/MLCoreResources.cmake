# Files compiled into a module, read at run time through <MLCore/platform/ModuleResources.h>.
#
#   mlcore_add_resources(<target> NAME <name> FILE <file> TYPE <number> [NAME ... FILE ... TYPE ...]...)
#
# <target>  an executable, a shared library or a module that links MLCore. A linker may drop those of a
#           static library.
# <name>    letters, digits, "_", "-" and ".", starting with a letter or "_", whose case does not count; or "#" and a
#           number from 1 to 65535. Words of the resource scripts' language (MENU, VERSION, VALUE...) do not compile on
#           Windows.
# <file>    relative to the current source folder. The target is built again when the file changes. An empty file
#           is not found at run time.
# <number>  the type, 1 to 65535; 10 is plain data. From 1 to 24, Windows expects its own formats in the others.
#
# May be called several times for one target.
function(mlcore_add_resources target)
    get_target_property(count ${target} MLCORE_RESOURCE_COUNT)
    if(NOT count)
        set(count 0)
    endif()
    string(MAKE_C_IDENTIFIER "${target}" prefix)
    set(base "${CMAKE_CURRENT_BINARY_DIR}/mlcore_resources/${prefix}_${count}")
    set(script "")
    set(data "")
    set(declarations "")
    set(objects "")
    set(files "")

    while(ARGN)
        list(LENGTH ARGN left)
        if(left LESS 6)
            message(FATAL_ERROR "mlcore_add_resources: expected NAME <name> FILE <file> TYPE <number>, got: ${ARGN}")
        endif()
        list(POP_FRONT ARGN nameWord name fileWord file typeWord type)
        if(NOT "${nameWord} ${fileWord} ${typeWord}" STREQUAL "NAME FILE TYPE")
            message(FATAL_ERROR
                "mlcore_add_resources: expected NAME, FILE and TYPE, got: ${nameWord}, ${fileWord}, ${typeWord}")
        endif()
        string(REGEX REPLACE "^#" "" number "${name}")
        if(NOT name MATCHES "^(#[1-9][0-9]*|[A-Za-z_][A-Za-z0-9_.-]*)$" OR number GREATER 65535)
            message(FATAL_ERROR "mlcore_add_resources: not a resource name: ${name}")
        endif()
        if(NOT type MATCHES "^[1-9][0-9]*$" OR type GREATER 65535)
            message(FATAL_ERROR "mlcore_add_resources: not a resource type: ${type}")
        endif()
        cmake_path(ABSOLUTE_PATH file NORMALIZE)
        if(NOT EXISTS "${file}")
            message(FATAL_ERROR "mlcore_add_resources: no such file: ${file}")
        endif()
        list(APPEND files "${file}")

        # The system looks texts up in upper case.
        string(TOUPPER "${number}" scriptName)
        string(APPEND script "${scriptName} ${type} \"${file}\"\n")

        set(symbol "mlcore_resource_${prefix}_${count}")
        string(APPEND data
            "    .globl ${symbol}_begin, ${symbol}_end\n"
            "    .hidden ${symbol}_begin, ${symbol}_end\n"
            "    .balign 16\n"
            "${symbol}_begin:\n"
            "    .incbin \"${file}\"\n"
            "${symbol}_end:\n"
            "    .byte 0\n")
        string(APPEND declarations
            "extern const unsigned char ${symbol}_begin[] __attribute__((visibility(\"hidden\")));\n"
            "extern const unsigned char ${symbol}_end[] __attribute__((visibility(\"hidden\")));\n")
        string(APPEND objects
            "const RESOURCEREGISTRATION kResource${count}(\"${name}\", ${type}, ${symbol}_begin,\n"
            "    static_cast<std::size_t>(${symbol}_end - ${symbol}_begin));\n")
        math(EXPR count "${count} + 1")
    endwhile()
    if(NOT files)
        message(FATAL_ERROR "mlcore_add_resources: no resource given for ${target}")
    endif()

    if(WIN32)
        set(source "${base}.rc")
        set(content "${script}")
    else()
        set(source "${base}.cpp")
        set(content "// Made by mlcore_add_resources.
#include <MLCore/platform/ModuleResources.h>

#include <cstddef>

asm(R\"(
    .pushsection .rodata
${data}    .popsection
)\");

extern \"C\" {
${declarations}}

namespace {

using MLCore::platform::RESOURCEREGISTRATION;

${objects}
}
")
    endif()
    # Unchanged content leaves the file alone, and nothing is compiled again. file(CONFIGURE) would do so too, but
    # expand what looks like a variable in a name.
    set(previous "")
    if(EXISTS "${source}")
        file(READ "${source}" previous)
    endif()
    if(NOT content STREQUAL previous)
        file(WRITE "${source}" "${content}")
    endif()
    set_property(SOURCE "${source}" TARGET_DIRECTORY ${target} APPEND PROPERTY OBJECT_DEPENDS ${files})
    target_sources(${target} PRIVATE "${source}")
    set_target_properties(${target} PROPERTIES MLCORE_RESOURCE_COUNT ${count})
endfunction()
