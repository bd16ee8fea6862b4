# What every target of ours is built with. Third-party code never links kv_warnings.
add_library(kv_warnings INTERFACE)
if(MSVC)
    target_compile_options(kv_warnings INTERFACE /W4 /WX /utf-8)
else()
    target_compile_options(kv_warnings INTERFACE -Wall -Wextra -Werror)
endif()

if(KV_PANEL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(KV_PANEL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()

# One library for one folder of src/: kv_library(net LINK kv_common Qt5::Core).
# Sources are all of the folder, so that a new file needs no edit here.
function(kv_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*/*.cpp)
    file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.h
         ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*/*.h)
    add_library(kv_${name} STATIC ${sources} ${headers})
    set_target_properties(kv_${name} PROPERTIES AUTOMOC ON UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 16)
    target_include_directories(kv_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(kv_${name} PUBLIC ${ARG_LINK} PRIVATE kv_warnings)
endfunction()
