# Installation and the .deb.
#
# The program finds its lesson pages, sounds and 169.txt in the folder of its own executable,
# so they are installed side by side with it: lib/tablewright on Unix, bin on Windows (where
# windeployqt then adds Qt beside them). On Unix, bin/tablewright is a relative symbolic link to
# the program: Qt takes the application folder from the resolved executable (/proc/self/exe on
# Linux, the canonical path elsewhere), so the link finds the right folder, survives moving the
# whole prefix, and adds no shell between the desktop and the program.
include(GNUInstallDirs)

set(TABLEWRIGHT_APP_ID "org.example.Tablewright")
set(TABLEWRIGHT_HOMEPAGE "https://tablewright.example.org/")
set(TABLEWRIGHT_CONTACT "Tablewright developers <tablewright@example.org>")
# Also named in packaging/copyright.in; change both together.
set(TABLEWRIGHT_LICENSE "GPL-3.0-or-later")
set(TABLEWRIGHT_RELEASE_DATE "2026-11-22")
# Qt's X11 window class is the application name set at start-up.
set(TABLEWRIGHT_WM_CLASS "Tablewright")

if(WIN32)
  set(TABLEWRIGHT_INSTALL_APPDIR ${CMAKE_INSTALL_BINDIR})
else()
  set(TABLEWRIGHT_INSTALL_APPDIR lib/tablewright)
endif()
set(TABLEWRIGHT_FREEDESKTOP OFF)
if(UNIX AND NOT APPLE)
  set(TABLEWRIGHT_FREEDESKTOP ON)
endif()
set(packaging_dir ${PROJECT_BINARY_DIR}/packaging)

# The application folder.
install(TARGETS tablewright RUNTIME DESTINATION ${TABLEWRIGHT_INSTALL_APPDIR})
install(TARGETS tablewright_sound LIBRARY DESTINATION ${TABLEWRIGHT_INSTALL_APPDIR})
if(TARGET tablewright_webpane)
  install(TARGETS tablewright_webpane LIBRARY DESTINATION ${TABLEWRIGHT_INSTALL_APPDIR})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/app/html DESTINATION ${TABLEWRIGHT_INSTALL_APPDIR})
file(GLOB tablewright_wavs CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/app/wavs/*.wav)
install(FILES ${tablewright_wavs} DESTINATION ${TABLEWRIGHT_INSTALL_APPDIR}/wavs)
install(FILES ${PROJECT_SOURCE_DIR}/app/169.txt DESTINATION ${TABLEWRIGHT_INSTALL_APPDIR})

# The launcher.
if(NOT WIN32)
  file(RELATIVE_PATH launcher_target /prefix/${CMAKE_INSTALL_BINDIR}
       /prefix/${TABLEWRIGHT_INSTALL_APPDIR}/tablewright)
  file(MAKE_DIRECTORY ${packaging_dir}/bin)
  file(CREATE_LINK ${launcher_target} ${packaging_dir}/bin/tablewright SYMBOLIC)
  install(FILES ${packaging_dir}/bin/tablewright DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# The desktop entry, the icon in every size a desktop asks for, the AppStream metainfo.
if(TABLEWRIGHT_FREEDESKTOP)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/tablewright.desktop.in
                 ${packaging_dir}/${TABLEWRIGHT_APP_ID}.desktop @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/tablewright.metainfo.xml.in
                 ${packaging_dir}/${TABLEWRIGHT_APP_ID}.metainfo.xml @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/copyright.in ${packaging_dir}/copyright @ONLY)
  install(FILES ${packaging_dir}/${TABLEWRIGHT_APP_ID}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${packaging_dir}/${TABLEWRIGHT_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${packaging_dir}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tablewright)

  # The icon as the build painted it for the window (see src/shell), named for the desktop.
  foreach(size ${TABLEWRIGHT_ICON_SIZES})
    install(FILES ${TABLEWRIGHT_ICON_ROOT}/${size}x${size}/apps/tablewright.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
            RENAME ${TABLEWRIGHT_APP_ID}.png)
  endforeach()
endif()

# The package.
set(CPACK_PACKAGE_NAME tablewright)
set(CPACK_PACKAGE_VENDOR "Tablewright developers")
set(CPACK_PACKAGE_CONTACT ${TABLEWRIGHT_CONTACT})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "poker tutor for beginners, above all in Texas Hold'em")
# Lines of the package's long description, kept short for the package tools.
set(CPACK_PACKAGE_DESCRIPTION
    "Tablewright teaches poker to a beginner, and above all low-limit Texas"
    "Hold'em: lessons in a tree of topics, exercises that deal and judge real"
    "cards (hand names, hand rankings, the value of two hole cards, the best"
    "hand a board allows) and a commented sample game.")
string(JOIN "\n" CPACK_PACKAGE_DESCRIPTION ${CPACK_PACKAGE_DESCRIPTION})
set(CPACK_PACKAGE_HOMEPAGE_URL ${TABLEWRIGHT_HOMEPAGE})
set(CPACK_STRIP_FILES ON)
if(TABLEWRIGHT_FREEDESKTOP)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION games)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # What the linked libraries do not reveal: the heading font and Qt's platform plugins. (The
  # web engine's helper process comes with its library's shlibs entry.)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation2, qt6-qpa-plugins")
  # Web pages open in the desktop's browser; the answer sounds play through a sound server.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, pipewire-pulse | pulseaudio")
else()
  set(CPACK_GENERATOR ZIP)
endif()
include(CPack)
