// What a user meets in the main window: the design's places, captions shown whole on every
// screen, and the focus after coming back from elsewhere.
#include <gmock/gmock.h>

#include <QFontMetricsF>
#include <QPushButton>
#include <QTest>

#include "promotion/frmPacific2.h"
#include "support/window_fixture.h"

namespace {

using ::testing::IsEmpty;

class UserView : public test_support::WindowTest {};

// The design's outer size, 13935 x 10200 twips with borders, gives the design's places.
TEST_F(UserView, DesignSizeGivesTheDesignsPlaces) {
    startWindow();
    const QSize frame = form->frameGeometry().size() - form->size();
    form->resize(frame.isNull() ? QSize(921, 653) : QSize(929, 680) - frame);  // usual: 8 x 27
    QCoreApplication::processEvents();
    form->Form_Resize();
    const std::pair<const char*, std::array<double, 4>> places[] = {
        {"WebBrowser1", {3300.75, 165, 10320, 9350}}, {"Frame2", {6100.5, 7082, 3135, 1890}}};
    for (const auto& [name, want] : places) {
        const auto* place = dynamic_cast<const platform::TwipsGeometry*>(child(name));
        ASSERT_NE(place, nullptr) << name;
        const std::array<double, 4> got{place->Left(), place->Top(), place->Width(),
                                        place->Height()};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(got[i], want[i], 1e-6) << name << ", " << i;
    }
}

// The captions in `window` that their control cuts off, measured with the font they are
// drawn in: a label's text, wrapped if it wraps, within its contents; a button's in its face.
std::vector<std::string> cutCaptions(const QWidget& window) {
    std::vector<std::string> found;
    for (const auto* label : window.findChildren<platform::Label*>()) {
        const QRectF room = label->contentsRect();
        const int flags = int(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
        const QRectF needed = QFontMetricsF(label->font()).boundingRect(room, flags, label->text());
        if (label->isVisibleTo(&window) &&
            (needed.width() > room.width() || needed.height() > room.height()))
            found.push_back(label->text().toStdString());
    }
    for (const auto* button : window.findChildren<QPushButton*>()) {
        const QFontMetricsF metrics(button->font());
        if (button->isVisibleTo(&window) &&
            (metrics.horizontalAdvance(button->text()) > button->width() - 4 ||
             metrics.height() > button->height()))
            found.push_back(button->text().toStdString());
    }
    return found;
}

// Each exercise screen, and the clicks after each of which it is read again ("key": the
// first key open); then every step of the sample hand, which ends with the way to the real
// game and replays, and the promotion windows. Run once as it is and once with
// QT_SCALE_FACTOR=2.
TEST_F(UserView, EveryScreenReadsWhole) {
    const std::pair<const char*, std::vector<const char*>> screens[] = {
        {"Poker Hand Names", {"cmdStart1A", "cmdStart1B", "lblName(0)", "lblName(8)"}},
        {"Poker Hand Rankings", {"cmdStart2A", "cmdStart2B", "picLabels", "picShow"}},
        {"Starting Pair Awareness", {"cmdStart3A", "cmdStart3B", "lblName(2)", "lblName(6)"}},
        {"Best Hand Recognition", {"cmdStart4", "key", "key"}},
    };
    startWindow();
    for (const auto& [topic, clicks] : screens) {
        SCOPED_TRACE(topic);
        clickTopic(topic);
        EXPECT_THAT(cutCaptions(*form), IsEmpty());
        for (const std::string name : clicks) {
            QTest::mouseClick(name == "key" ? key(enabledKeys().at(0)) : child(name.c_str()),
                              Qt::LeftButton);
            EXPECT_THAT(cutCaptions(*form), IsEmpty()) << "after " << name;
        }
    }
    clickTopic("Sample Poker Game");
    for (int step = 2; step <= 34; ++step) {
        EXPECT_TRUE(child("lblEnough")->isHidden()) << "the way out shown before the end";
        QTest::mouseClick(child("cmdNext"), Qt::LeftButton);
        EXPECT_THAT(cutCaptions(*form), IsEmpty()) << "step " << step;
    }
    EXPECT_FALSE(child("lblEnough")->isHidden()) << "no way to the real game at the end";
    QTest::mouseClick(child("cmdNext"), Qt::LeftButton);
    EXPECT_TRUE(child("lblEnough")->isHidden()) << "Next at the end does not replay";
    EXPECT_THAT(cutCaptions(frmPacific(*form)), IsEmpty());
    EXPECT_THAT(cutCaptions(frmPacific2(*form)), IsEmpty());
}

// Back from another window of the program the tree has the focus; back from another
// application the focus is where the user left it.
TEST_F(UserView, ComingBackFromAnotherApplicationLeavesTheFocusWhereItWas) {
    startWindow();
    clickTopic("Poker Hand Names");
    QWidget other;
    const auto activate = [](QWidget& window) {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    };
    ASSERT_TRUE(activate(*form));
    child("cmdStart1A")->setFocus();
    ASSERT_TRUE(activate(other));
    emit qApp->focusWindowChanged(nullptr);  // the user is in another application
    ASSERT_TRUE(activate(*form));
    EXPECT_EQ(QApplication::focusWidget(), child("cmdStart1A"));
    ASSERT_TRUE(activate(other));
    ASSERT_TRUE(activate(*form));
    EXPECT_EQ(QApplication::focusWidget(), child("TreeView1"));
}

}  // namespace
