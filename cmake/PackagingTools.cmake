# Read by cpack. Without "file" it fails late and says little; without the other the package lacks its dependencies, installs
# all the same and doesn't start.
set(missing "")
foreach(tool file dpkg-shlibdeps)
    find_program(KV_PANEL_${tool} ${tool} NO_CMAKE_SYSTEM_PATH)
    if(NOT KV_PANEL_${tool})
        list(APPEND missing ${tool})
    endif()
endforeach()
if(missing)
    message(FATAL_ERROR "no package without ${missing} (Debian: file, dpkg-dev); see scripts/package.sh")
endif()
