# The lesson pane. One program, two sets of tests: the text pane and its host (label
# platform), and the browser-engine module on the lesson pages (label webengine), which
# needs the module built beside the program.
find_package(Qt6 COMPONENTS Network REQUIRED)
add_executable(test_webpane ${CMAKE_CURRENT_LIST_DIR}/webpane_test.cpp)
tablewright_target_options(test_webpane)
target_link_libraries(test_webpane PRIVATE tablewright_platform Qt6::Network Qt6::Test GTest::gtest GTest::gtest_main)
target_compile_definitions(test_webpane PRIVATE
  TABLEWRIGHT_TEST_LESSONS="${PROJECT_SOURCE_DIR}/app/html"
  TABLEWRIGHT_TEST_MODULE_DIR="${TABLEWRIGHT_APP_DIR}")
# One value per property: a list inside PROPERTIES would be split into separate arguments.
set(test_webpane_lsan ENVIRONMENT_MODIFICATION "LSAN_OPTIONS=set:suppressions=${PROJECT_SOURCE_DIR}/tools/lsan.supp")
gtest_discover_tests(test_webpane DISCOVERY_TIMEOUT 60 TEST_FILTER "-WebEngine.*"
  PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen ${test_webpane_lsan} LABELS platform)

# Chromium's own code trips the sanitizers (new/delete mismatches, leaks): no engine tests
# in a sanitized build.
if(TARGET tablewright_webpane AND NOT TABLEWRIGHT_SANITIZE)
  add_dependencies(test_webpane tablewright_webpane)
  gtest_discover_tests(test_webpane DISCOVERY_TIMEOUT 60 TEST_FILTER "WebEngine.*"
    PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=offscreen LABELS webengine TIMEOUT 180)
  # Once more on an X server, as the program runs: the OpenGL and window paths differ from
  # the offscreen platform's.
  find_program(XVFB_RUN xvfb-run)
  if(XVFB_RUN)
    add_test(NAME WebEngineOnX11 COMMAND ${XVFB_RUN} -a -s "-screen 0 1280x1024x24"
      $<TARGET_FILE:test_webpane> --gtest_filter=WebEngine.*)
    set_tests_properties(WebEngineOnX11 PROPERTIES ENVIRONMENT QT_QPA_PLATFORM=xcb LABELS webengine TIMEOUT 300)
  endif()
endif()
