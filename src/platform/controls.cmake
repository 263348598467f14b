list(APPEND FOLDER_SOURCES
  controls.h controls.cpp
  treeview.h treeview.cpp
  webpane.h webbrowser.h webbrowser.cpp
  mDefs.h seams.cpp
  startup.h startup.cpp)
