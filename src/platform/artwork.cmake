# The card painter and the pictures of the program, all painted from code.
list(APPEND FOLDER_SOURCES
  cardface.h
  cardface.cpp
  artwork.h
  artwork_detail.h
  artwork_common.cpp
  artwork_face.cpp
  artwork_courts.cpp
  artwork_back.cpp
  artwork_fan.cpp
  artwork_table.cpp
  artwork_sample.cpp
  artwork_promotion.cpp
  artwork_icon.cpp)
