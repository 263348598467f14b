// The layout rules: the worked example at the design size, the 800-pixel screen, and
// storms of resizes.
#include <QTest>
#include <random>

#include "support/window_fixture.h"

namespace {

class LayoutTest : public test_support::WindowTest {};

struct Rect {
    const char* name;
    double left, top, width, height;
};

void expectRect(const platform::TwipsGeometry& control, const Rect& r) {
    SCOPED_TRACE(r.name);
    EXPECT_NEAR(control.Left(), r.left, 1e-6);
    EXPECT_NEAR(control.Top(), r.top, 1e-6);
    EXPECT_NEAR(control.Width(), r.width, 1e-6);
    EXPECT_NEAR(control.Height(), r.height, 1e-6);
}

// Sizes the window so that its outer size, borders included, is 13935 x 10200 twips,
// whatever frame the platform draws.
void resizeToDesignOuterSize(frmMain& f) {
    const int frameWidth = f.frameGeometry().width() - f.width();
    const int frameHeight = f.frameGeometry().height() - f.height();
    if (frameWidth > 0 || frameHeight > 0) {
        f.resize(929 - frameWidth, 680 - frameHeight);
    } else {
        f.resize(921, 653);  // the usual borders: 8 and 27 pixels
    }
    QCoreApplication::processEvents();
    f.Form_Resize();
}

TEST_F(LayoutTest, DesignSizeGivesTheWorkedExample) {
    startWindow();
    frmMain& f = *form;
    resizeToDesignOuterSize(f);
    expectRect(*f.TreeView1, {"TreeView1", 135, 165, 3015, 9350});
    expectRect(*f.WebBrowser1, {"WebBrowser1", 3300.75, 165, 10320, 9350});
    expectRect(*f.picQuiz, {"picQuiz", 3300.75, 165, 10320, 9350});
    expectRect(*f.picDemo, {"picDemo", 3300.75, 165, 10320, 9350});
    expectRect(*f.lblHeading1, {"lblHeading1", 3232.5, 467.5, 3855, 465});
    expectRect(*f.picShow, {"picShow", 1950, 9350.0 / 9, 3210, 2820});
    expectRect(*f.picLabels, {"picLabels", 5160, 9350.0 / 9, 3210, 2820});
    expectRect(*f.lblMessage, {"lblMessage", 1950, 9350.0 / 9 + 2820, 6420, 240});
    expectRect(*f.picSuits, {"picSuits", 1416.6, 4675, 1335, 1755});
    expectRect(*f.picKeys, {"picKeys", 2805, 4675, 6045, 1740});
    expectRect(*f.cmdClear, {"cmdClear", 4560, 7270, 1200, 855});
    expectRect(*f.Frame1, {"Frame1", 1084.5, 7082, 3135, 1890});
    expectRect(*f.Frame2, {"Frame2", 6100.5, 7082, 3135, 1890});
}

TEST_F(LayoutTest, KeysStandInThirteenColumnsOfFourSuitRows) {
    startWindow();
    const frmMain& f = *form;
    static constexpr const char* kCaptions[] = {"2", "3",  "4", "5", "6", "7", "8",
                                                "9", "10", "J", "Q", "K", "A"};
    for (int k = 0; k < 52; ++k) {
        const auto* key = f.cmdKey[static_cast<std::size_t>(k)];
        EXPECT_EQ(key->caption(), QString::fromLatin1(kCaptions[k % 13])) << k;
        EXPECT_DOUBLE_EQ(key->Left(), 465.0 * (k % 13)) << k;
        EXPECT_DOUBLE_EQ(key->Top(), 435.0 * (k / 13)) << k;
    }
    EXPECT_EQ(f.cmdKey[38]->accessibleName(), QStringLiteral("Ace of Spades"));
    EXPECT_EQ(f.cmdKey[47]->accessibleName(), QStringLiteral("Ten of Hearts"));
    EXPECT_EQ(f.cmdKey[0]->accessibleName(), QStringLiteral("Two of Clubs"));
}

TEST_F(LayoutTest, OnAnEightHundredPixelScreenTheStageOverlapsTheTree) {
    platform::seams().screenWidthPixels = [] { return 800; };
    startWindow();
    frmMain& f = *form;
    f.Form_Resize();
    EXPECT_NEAR(f.picDemo->Left(), f.WebBrowser1->Left() - 800, 1e-9);
    EXPECT_NEAR(f.picDemo->Width(), f.WebBrowser1->Width() + 950, 1e-9);
    EXPECT_NEAR(f.picQuiz->Left(), f.WebBrowser1->Left(), 1e-9);
    EXPECT_LT(f.picDemo->Left(), f.TreeView1->Left() + f.TreeView1->Width());
}

TEST_F(LayoutTest, NarrowWindowKeepsTheBrowsersLastWidthAndTheTreeNeverNarrows) {
    startWindow();
    frmMain& f = *form;
    const double width = f.WebBrowser1->Width();
    f.resize(150, 653);  // narrower than the tree plus 600 twips
    serveEvents();
    EXPECT_DOUBLE_EQ(f.WebBrowser1->Width(), width);
    EXPECT_DOUBLE_EQ(f.TreeView1->Width(), 3015);
    EXPECT_DOUBLE_EQ(f.picQuiz->Width(), width);
}

TEST_F(LayoutTest, ResizeStormKeepsThePanesInStep) {
    startWindow();
    frmMain& f = *form;
    std::mt19937 engine(7);
    std::uniform_int_distribution<int> size(-50, 3000);
    for (int i = 0; i < 400; ++i) {
        const int w = size(engine), h = size(engine);
        f.resize(std::max(w, 1), std::max(h, 1));
        f.Form_Resize();
        SCOPED_TRACE(i);
        ASSERT_DOUBLE_EQ(f.picQuiz->Width(), f.WebBrowser1->Width());
        ASSERT_DOUBLE_EQ(f.picQuiz->Height(), f.WebBrowser1->Height());
        ASSERT_DOUBLE_EQ(f.picDemo->Left(), f.WebBrowser1->Left());
        ASSERT_DOUBLE_EQ(f.TreeView1->Height(), f.WebBrowser1->Height());
        ASSERT_GE(f.WebBrowser1->Width(), 0);
    }
    resizeToDesignOuterSize(f);
    EXPECT_NEAR(f.WebBrowser1->Width(), 10320, 1e-6);
    EXPECT_NEAR(f.picKeys->Left(), 2805, 1e-6);
}

TEST_F(LayoutTest, MinimiseAndRestoreRunTheLayoutAgain) {
    startWindow();
    frmMain& f = *form;
    f.messageBlinking = false;
    f.showMinimized();
    serveEvents();
    f.showNormal();
    serveEvents();
    EXPECT_TRUE(f.messageBlinking);
    EXPECT_EQ(f.lblMessage->caption(), QStringLiteral("Click [Start] to begin..."));
}

}  // namespace
