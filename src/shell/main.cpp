#include <QApplication>

#include "platform/startup.h"
#include "shell/frmMain.h"

int main(int argc, char* argv[]) {
    platform::prepareApplication();
    QApplication app(argc, argv);
    platform::configureApplication(app);
    int exitCode = 0;
    {
        frmMain form;
        form.Form_Load();
        form.show();
        exitCode = QApplication::exec();
    }
    return exitCode;
}
