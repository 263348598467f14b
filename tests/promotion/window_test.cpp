// The promotion windows from inside: the link leaves without a promotion; the room's name is
// the build's. (tests/system closes the real process's windows: the promotion window opens and
// ends the program.)
#include <gmock/gmock.h>

#include <QLabel>

#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

class PromotionTest : public test_support::WindowTest {};

// A close that comes while the address opens (the session ending, say) runs no promotion.
TEST_F(PromotionTest, TheLinkLeavesAtOnceAndNoPromotionFollows) {
    startWindow();
    platform::seams().openAddress = [this](const QString& address) {
        recorded.addresses.push_back(address);
        QTimer::singleShot(0, form.get(), [this] { form->close(); });
        QTimer::singleShot(0, [] { QApplication::closeAllWindows(); });  // a wrong promotion ends
    };
    form->lblEnough_Click();
    EXPECT_THAT(recorded.addresses, ::testing::ElementsAre(QStringLiteral(TABLEWRIGHT_SCHOOL_URL)));
    EXPECT_EQ(form->promotionWindow(), nullptr);
    EXPECT_THAT(recorded.ends, ::testing::ElementsAre(0));
}

// The room's name and trade-mark line are the build's, in both windows.
TEST_F(PromotionTest, TheWindowsNameTheRoomTheBuildGives) {
    startWindow();
    const QString name = QStringLiteral(TABLEWRIGHT_ROOM_NAME);
    const QString mark = QStringLiteral(TABLEWRIGHT_ROOM_TRADEMARK);
    frmPacific room(*form);
    frmPacific2 school(*form);
    EXPECT_EQ(school.Label2->text(), name + " Sample Table");
    EXPECT_EQ(QStringList({room.Label2->text(), room.findChild<QLabel*>("Label25")->text()}),
              QStringList({name, name}));
    EXPECT_EQ(QStringList({school.Label1->text(), room.Label1->text()}), QStringList({mark, mark}));
}

}  // namespace
