// The controls: a drawing that stays until cleared, at the screen's pixel ratio; a label's
// click its own inside a bordered box.
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "platform/controls.h"
#include "platform/treeview.h"
#include "support/window_fixture.h"

namespace {

// Run once as it is and once with QT_SCALE_FACTOR=2: the surface has a pixel for each of the
// screen's, so what is drawn in its far corner is kept, also when the box grows, until Cls. A
// label in the box counts from inside the border, and a user's double click on it is one click,
// the label's alone.
TEST(Controls, PictureBoxKeepsItsDrawingAtTheScreensRatioUntilClsAndItsLabelsTheirClicks) {
    test_support::app();
    QWidget host;
    platform::PictureBox box(&host, QStringLiteral("box"), platform::PictureBox::Border::Sunken);
    box.setGeometryTwips(0, 0, 3210, 2820);
    host.show();  // so that a new size resizes the surface at once
    EXPECT_EQ(box.devicePixelRatioF(), qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ? 2.0 : 1.0);
    const QPoint corner =
        QPoint(box.width(), box.height()) - QPoint(1, 1) * (2 * box.borderPixels() + 1);
    box.drawOnSurface([&](QPainter& p) { p.fillRect(QRect(corner, QSize(1, 1)), Qt::red); });
    box.setGeometryTwips(0, 0, 4000, 3000);
    EXPECT_EQ(QColor(box.surfacePixel(corner.x(), corner.y())), QColor(Qt::red));
    box.Cls();
    EXPECT_EQ(qAlpha(box.surfacePixel(corner.x(), corner.y())), 0);

    platform::Label label(&box, QStringLiteral("name"));
    label.setGeometryTwips(0, 0, 3000, 300);
    EXPECT_EQ(label.pos(), QPoint(1, 1) * box.borderPixels());
    QSignalSpy labelClicks(&label, &platform::Label::Click);
    QSignalSpy boxClicks(&box, &platform::PictureBox::Click);
    QTest::mouseClick(&label, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseDClick(&label, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(std::pair(labelClicks.count(), boxClicks.count()),
              std::pair(qsizetype(1), qsizetype(0)));
}

}  // namespace

// The topic tree shows every entry whole: its column takes the widest entry shown, filled in
// while the tree was unseen, and follows a branch opening and closing; the rest scrolls
// sideways.
TEST(Controls, TreeColumnTakesTheWidestEntryShown) {
    test_support::app();
    platform::TreeView tree(nullptr, QStringLiteral("TreeView1"));
    tree.resize(120, 200);
    const int branch = tree.addNode(std::nullopt, QStringLiteral("a"), QStringLiteral("Short"));
    const QString wide = QStringLiteral("An entry far wider than the tree itself");
    tree.addNode(branch, QStringLiteral("b"), wide);
    tree.setExpanded(branch, true);
    tree.show();
    const int textWidth = tree.fontMetrics().horizontalAdvance(wide);
    EXPECT_GT(tree.columnWidth(0), textWidth);
    EXPECT_GT(tree.horizontalScrollBar()->maximum(), 0);
    tree.setExpanded(branch, false);
    EXPECT_LT(tree.columnWidth(0), textWidth);
    tree.setExpanded(branch, true);
    EXPECT_GT(tree.columnWidth(0), textWidth);
}
