# kelmora_embed_files(SOURCE FILES...): makes a unit that defines page_assets() of host/serve/assets.h. Each of FILES is
# "PATH=FILE": what the page calls it, and the file on disk. The assembler takes the bytes, so it takes no time.
function(kelmora_embed_files source)
    set(blocks "")
    set(table "")
    set(files "")
    set(number 0)
    foreach(pair IN LISTS ARGN)
        string(REGEX MATCH "^([^=]+)=(.+)$" pair ${pair})
        set(path ${CMAKE_MATCH_1})
        set(file ${CMAKE_MATCH_2})
        list(APPEND files ${file})
        set(name kelmora_page_${number})
        string(APPEND blocks "asm(\".section .rodata\\n\"\n    \".globl ${name}, ${name}_end\\n\"\n"
               "    \".type ${name}, %object\\n\"\n    \".balign 16\\n\"\n    \"${name}:\\n\"\n"
               "    \".incbin \\\"${file}\\\"\\n\"\n    \"${name}_end:\\n\"\n    \".byte 0\\n\"\n    \".previous\\n\");\n"
               "extern \"C\" const char ${name}[];\nextern \"C\" const char ${name}_end[];\n\n")
        string(APPEND table "        kelmora_host::Asset{\"${path}\", {${name}, ${name}_end}},\n")
        math(EXPR number "${number} + 1")
    endforeach()
    file(CONFIGURE OUTPUT ${source} CONTENT "// Made by cmake/EmbedFiles.cmake.

#include \"host/serve/assets.h\"

#include <array>

@blocks@std::span<const kelmora_host::Asset> kelmora_host::page_assets()
{
    static const std::array assets{
@table@    };
    return assets;
}
" @ONLY)
    set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${files}")
endfunction()
