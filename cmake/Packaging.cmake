# A Debian package: scripts/package.sh, or `cpack -G DEB` in the build folder. The program finds its fonts, its log and its printer library beside
# itself, so they stand together; the log is a link to where a log belongs.
if(NOT UNIX OR APPLE)
    return()
endif()

set(home lib/kv-panel)
set(debian ${CMAKE_SOURCE_DIR}/packaging/debian)
install(TARGETS kv_panel RUNTIME DESTINATION ${home})
install(TARGETS posdll LIBRARY DESTINATION ${home})
install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/res/fonts DESTINATION ${home}/res FILES_MATCHING PATTERN "*.ttf")
install(CODE "file(CREATE_LINK /var/log/kv-panel \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${home}/log SYMBOLIC)")
install(PROGRAMS ${debian}/kv-panel DESTINATION bin)
install(PROGRAMS ${debian}/kiosk DESTINATION ${home})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/packaging/speech DESTINATION ${home} USE_SOURCE_PERMISSIONS)
install(FILES ${debian}/kv-panel.desktop DESTINATION share/applications)
install(FILES ${CMAKE_SOURCE_DIR}/ui/images/logo.png DESTINATION share/icons/hicolor/128x128/apps RENAME kv-panel.png)
install(FILES ${CMAKE_SOURCE_DIR}/DEPLOY.md ${CMAKE_SOURCE_DIR}/docs/LICENCES.md ${debian}/copyright DESTINATION share/doc/kv-panel)
install(FILES ${debian}/lintian-overrides DESTINATION share/lintian/overrides RENAME kv-panel)
install(FILES ${debian}/kv-panel-kiosk.service DESTINATION /lib/systemd/system)
install(FILES ${debian}/60-kv-panel.rules DESTINATION /lib/udev/rules.d)
install(FILES ${debian}/kv-panel.default DESTINATION /etc/default RENAME kv-panel)
find_program(gzip gzip REQUIRED)
foreach(text changelog kv-panel.1)
    add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/${text}.gz
                       COMMAND ${gzip} -9n < ${debian}/${text} > ${CMAKE_BINARY_DIR}/${text}.gz
                       DEPENDS ${debian}/${text} VERBATIM)
endforeach()
add_custom_target(kv_package_texts ALL DEPENDS ${CMAKE_BINARY_DIR}/changelog.gz ${CMAKE_BINARY_DIR}/kv-panel.1.gz)
install(FILES ${CMAKE_BINARY_DIR}/changelog.gz DESTINATION share/doc/kv-panel)
install(FILES ${CMAKE_BINARY_DIR}/kv-panel.1.gz DESTINATION share/man/man1)

set(CPACK_PACKAGE_NAME kv-panel)
set(CPACK_PACKAGE_CONTACT "the kv_panel maintainers <maintainers@kv-panel.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "touch terminal of bath-houses, foot-massage and spa shops")
set(CPACK_PACKAGE_DESCRIPTION
    "Front desk, technicians and bath helpers run an evening's business on it:
a live room board, receipts, card readers. Rooms, cards and orders live in a
cloud back end.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is loaded at run time, which the libraries' dependencies don't tell.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "adduser, libcurl4, libqt5sql5-sqlite, qml-module-qtquick2, qml-module-qtquick-window2, qml-module-qtquick-controls2, qml-module-qtquick-templates2, qml-module-qtquick-layouts, qml-module-qtquick-shapes, qml-module-qtqml, qml-module-qtqml-models2")
# The voice; the kiosk's X server, and the login session that lets it run without root.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "qtspeech5-speechd-plugin, speech-dispatcher, espeak-ng, alsa-utils, xinit, xauth, xserver-xorg, xserver-xorg-video-all, xserver-xorg-input-all, libpam-systemd")
# Settings are entered by hand as long as there is no page for them; printers of the system.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "sqlite3, cups-client")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${debian}/postinst ${debian}/prerm ${debian}/postrm ${debian}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/PackagingTools.cmake)
include(CPack)
