# AllRecords.h: allRecords() lists the meta-objects of every record and every wrapper of a reply that the headers of
# src/dto declare. kv_add_all_records(target) has it made for a target; run as a script, this file makes it.
if(NOT CMAKE_SCRIPT_MODE_FILE)
    set(KV_ALL_RECORDS_SCRIPT ${CMAKE_CURRENT_LIST_FILE})
    function(kv_add_all_records target)
        set(folder ${CMAKE_CURRENT_BINARY_DIR}/all_records)
        file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/dto/*.h)
        add_custom_command(OUTPUT ${folder}/AllRecords.h DEPENDS ${headers} ${KV_ALL_RECORDS_SCRIPT}
            COMMAND ${CMAKE_COMMAND} -DSOURCES=${CMAKE_SOURCE_DIR}/src -DOUTPUT=${folder}/AllRecords.h
                    -P ${KV_ALL_RECORDS_SCRIPT})
        target_sources(${target} PRIVATE ${folder}/AllRecords.h)
        set_source_files_properties(${folder}/AllRecords.h PROPERTIES SKIP_AUTOGEN ON)
        target_include_directories(${target} PRIVATE ${folder})
    endfunction()
    return()
endif()

set(includes "#pragma once\n\n")
set(records "")
file(GLOB_RECURSE headers RELATIVE ${SOURCES} ${SOURCES}/dto/*.h)
foreach(header ${headers})
    string(APPEND includes "#include \"${header}\"\n")
    file(STRINGS ${SOURCES}/${header} declarations REGEX "^    RECORD(_ON)?\\(")
    foreach(declaration ${declarations})
        string(REGEX REPLACE "^    RECORD(_ON)?\\(([A-Za-z0-9_]+).*" "\\2" record ${declaration})
        string(APPEND records "        &${record}::staticMetaObject,\n")
    endforeach()
endforeach()
file(WRITE ${OUTPUT} "${includes}\n#include <vector>\n\ninline const std::vector<const QMetaObject*>& allRecords()\n"
     "{\n    static const std::vector<const QMetaObject*> all = {\n${records}    };\n    return all;\n}\n")
