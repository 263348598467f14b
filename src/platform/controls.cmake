list(APPEND FOLDER_SOURCES
  controls.h controls.cpp
  treeview.h treeview.cpp
  mDefs.h seams.cpp
  startup.h startup.cpp)
