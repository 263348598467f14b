# Installing the build into a scratch prefix lays out the program with its application folder,
# the launcher, the desktop entry, the icons and the metainfo, and the validators accept them.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_Interpreter_FOUND AND UNIX AND NOT APPLE)
  add_test(NAME system_package_layout
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/packaging/check_layout.py
            ${CMAKE_CURRENT_BINARY_DIR}/package_prefix
            --install-from ${PROJECT_BINARY_DIR} --cmake ${CMAKE_COMMAND}
            --app-source ${PROJECT_SOURCE_DIR}/app
            $<IF:$<TARGET_EXISTS:tablewright_webpane>,--webpane,--no-webpane>)
  set_tests_properties(system_package_layout PROPERTIES LABELS package TIMEOUT 120)
endif()
