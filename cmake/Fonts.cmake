# The fonts beside the program and the constants of the icons' code points. Both come from res/fonts/glyphs.json.
# On a platform without these packages give KV_PANEL_TEXT_FONT and KV_PANEL_ICON_FONT.
set(KV_PANEL_FONT_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/../res/fonts)
get_filename_component(KV_PANEL_FONT_SCRIPTS ${KV_PANEL_FONT_SCRIPTS} ABSOLUTE)

find_file(KV_PANEL_TEXT_FONT wqy-microhei.ttc
          PATHS /usr/share/fonts/truetype/wqy /usr/share/fonts/wqy-microhei
          DOC "Font or collection with Latin and Chinese for the texts (Debian: fonts-wqy-microhei)")
find_file(KV_PANEL_ICON_FONT MaterialIcons-Regular.ttf
          PATHS /usr/share/fonts/truetype/material-design-icons-iconfont
          DOC "Font for the icons, with ligatures (Debian: fonts-material-design-icons-iconfont)")

# The system's interpreter first: it is the one for which the packaged fontTools is installed.
find_program(KV_PANEL_FONT_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH DOC "Python with fontTools")
find_program(KV_PANEL_FONT_PYTHON NAMES python3 python)

# kv_add_fonts(dir): the target kv_fonts makes Pinfang.ttf and iconfont.ttf in dir, and in the folder "generated" of the
# build Glyphs.js for the pages, Glyphs.h for C++ and Glyphs.qrc, which puts the script at qrc:/js/Glyphs.js. The target's property KV_FONT_DIR tells dir.
function(kv_add_fonts OUTPUT_DIR)
    foreach(needed KV_PANEL_TEXT_FONT KV_PANEL_ICON_FONT KV_PANEL_FONT_PYTHON)
        if(NOT EXISTS "${${needed}}")
            get_property(what CACHE ${needed} PROPERTY HELPSTRING)
            message(FATAL_ERROR "${needed} is \"${${needed}}\", which isn't there. ${what}")
        endif()
    endforeach()
    execute_process(COMMAND ${KV_PANEL_FONT_PYTHON} -c "import fontTools" RESULT_VARIABLE failed ERROR_QUIET)
    if(failed)
        message(FATAL_ERROR "${KV_PANEL_FONT_PYTHON} has no fontTools (Debian: python3-fonttools)")
    endif()

    set(generated ${CMAKE_BINARY_DIR}/generated)
    set(table ${KV_PANEL_FONT_SCRIPTS}/glyphs.json)
    set(reader ${KV_PANEL_FONT_SCRIPTS}/glyph_table.py)
    set(fonts ${OUTPUT_DIR}/Pinfang.ttf ${OUTPUT_DIR}/iconfont.ttf)
    set(constants ${generated}/Glyphs.js ${generated}/Glyphs.h)

    add_custom_command(
        OUTPUT ${fonts}
        COMMAND ${KV_PANEL_FONT_PYTHON} -B ${KV_PANEL_FONT_SCRIPTS}/make_fonts.py --glyphs ${table}
                --icon-source ${KV_PANEL_ICON_FONT} --text-source ${KV_PANEL_TEXT_FONT} --out ${OUTPUT_DIR}
        DEPENDS ${KV_PANEL_FONT_SCRIPTS}/make_fonts.py ${reader} ${table} ${KV_PANEL_ICON_FONT} ${KV_PANEL_TEXT_FONT}
        COMMENT "Making the fonts"
        VERBATIM)
    add_custom_command(
        OUTPUT ${constants}
        COMMAND ${KV_PANEL_FONT_PYTHON} -B ${KV_PANEL_FONT_SCRIPTS}/make_constants.py --glyphs ${table}
                --out ${generated}
        DEPENDS ${KV_PANEL_FONT_SCRIPTS}/make_constants.py ${reader} ${table}
        COMMENT "Making the constants of the icons"
        VERBATIM)
    # The compiler of the pages looks into the scripts of the resources while configuring.
    execute_process(COMMAND ${KV_PANEL_FONT_PYTHON} -B ${KV_PANEL_FONT_SCRIPTS}/make_constants.py --glyphs ${table}
                            --out ${generated} COMMAND_ERROR_IS_FATAL ANY)
    file(CONFIGURE OUTPUT ${generated}/Glyphs.qrc @ONLY CONTENT
         "<RCC><qresource prefix=\"/js\"><file>Glyphs.js</file></qresource></RCC>\n")
    add_custom_target(kv_fonts ALL DEPENDS ${fonts} ${constants})
    set_target_properties(kv_fonts PROPERTIES KV_FONT_DIR ${OUTPUT_DIR})
endfunction()
