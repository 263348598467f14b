# The card faces and the pictures: sizes, distinct faces, colours, placement, the cache.
tablewright_add_test(test_artwork
  SOURCES ${CMAKE_CURRENT_LIST_DIR}/test_artwork.cpp
  LIBS tablewright_platform Qt6::Gui
  LABELS platform)
