// A main window for tests: offscreen, in a temporary application folder laid out like the
// real one, with recording seams (message boxes, sounds, opened addresses, program ends),
// instant scene waits, and a random source that plays scripted values first.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <vector>

#include "platform/mDefs.h"
#include "shell/frmMain.h"
#include "support/scripted_random.h"

namespace test_support {

// The one application object of the test process (offscreen platform).
QApplication& app();

class WindowTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    // Makes the window as the program does: Form_Load, then shown at the design size.
    void startWindow();
    // The application folder before the window starts (remove files to test their absence).
    QString appFolder() const { return folder_.path(); }

    // A click on the tree entry with this text (as a user's click).
    void clickTopic(const QString& text);
    // The keys a user can press.
    std::vector<int> enabledKeys() const;
    // A control of the window by its name, as a user's tools find it.
    template <typename Control = QWidget>
    Control* child(const QString& name) const {
        auto* control = form->findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << "no control " << name.toStdString();
        return control;
    }
    platform::CommandButton* key(int index) const {
        return child<platform::CommandButton>(QStringLiteral("cmdKey(%1)").arg(index));
    }
    platform::Label* name(int index) const {
        return child<platform::Label>(QStringLiteral("lblName(%1)").arg(index));
    }

    std::unique_ptr<frmMain> form;
    struct {
        std::vector<QString> messages, sounds, addresses;  // message boxes, sounds, opened
        std::vector<int> ends;                             // program ends
    } recorded;
    ScriptedRandom* random = nullptr;  // owned by the seams

  private:
    QTemporaryDir folder_;
};

}  // namespace test_support
