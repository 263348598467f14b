set(FOLDER_SOURCES frmMain.h frmMain.cpp frmMain_controls.cpp topics.h tree.cpp form_load.cpp)
