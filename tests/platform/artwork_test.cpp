// The card faces and pictures: every card told apart, also in the strip a fanned hand shows;
// suit colours; where cdtDraw paints; sizes at every pixel ratio; felt under the pictures.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <functional>
#include <vector>

#include "platform/artwork.h"
#include "platform/cardface.h"

namespace {

namespace art = platform::artwork;
using platform::cardFaceImage;

QImage plain(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32);
}
using Ink = std::function<bool(QRgb)>;
const Ink redInk = [](QRgb p) { return qRed(p) > 150 && qGreen(p) < 90 && qBlue(p) < 90; };
const Ink darkInk = [](QRgb p) { return qAlpha(p) > 128 && qGray(p) < 70; };
const Ink felt = [](QRgb p) { return qGreen(p) > qRed(p) + 20 && qGreen(p) > qBlue(p) + 10; };
const Ink painted = [](QRgb p) { return qAlpha(p) > 0; };

int count(const QImage& image, const Ink& test, QRect area = {}) {
    const QImage argb = plain(image);
    int n = 0;
    for (int y = 0; y < argb.height(); ++y)
        for (int x = 0; x < argb.width(); ++x)
            n += (area.isNull() || area.contains(x, y)) && test(argb.pixel(x, y)) ? 1 : 0;
    return n;
}
// A transparent canvas of a logical size and a pixel ratio, with what `draw` painted.
QImage canvas(QSize size, qreal dpr, const std::function<void(QPainter&)>& draw) {
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter);
    return image;
}
std::string nameOf(int id) {
    return platform::cardName(id).toStdString();
}

class Artwork : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "test_artwork";
        static char* argv[] = {name, nullptr};
        static QGuiApplication app(argc, argv);
    }
};

TEST_F(Artwork, CardSizeAndNamesFollowTheDrawIds) {
    std::int32_t width = 0, height = 0;
    platform::cdtInit(width, height);
    EXPECT_EQ(QSize(width, height), QSize(71, 96));
    QStringList names;
    for (int id : {0, 3, 6, 38, 41, 51, -1, 52})
        names << platform::cardName(id);
    EXPECT_EQ(
        names.join(','),
        "Ace of Clubs,Ace of Spades,Two of Hearts,Ten of Hearts,Jack of Diamonds,King of Spades,,");
}

// Every face differs from every other at every size, shows red ink only on hearts and
// diamonds, and has clear rounded corners around a white face.
TEST_F(Artwork, FacesTellEveryCardApartInTheirSuitsColour) {
    for (QSize size : {QSize(71, 96), QSize(54, 72), QSize(27, 36)}) {
        std::vector<QImage> faces;
        for (int id = 0; id < 52; ++id) {
            faces.push_back(plain(cardFaceImage(id, size)));
            const int red = count(faces.back(), redInk);
            const bool redSuit = id % 4 == 1 || id % 4 == 2;
            EXPECT_TRUE(redSuit ? red > size.width() / 2 : red == 0) << nameOf(id) << " " << red;
            EXPECT_EQ(qAlpha(faces.back().pixel(0, 0)), 0) << nameOf(id);
            EXPECT_EQ(faces.back().pixel(size.width() / 2, 2), qRgb(255, 255, 255)) << nameOf(id);
            for (int other = 0; other < id; ++other)
                EXPECT_NE(faces[static_cast<std::size_t>(other)], faces.back())
                    << nameOf(other) << " and " << nameOf(id) << " at " << size.width();
        }
        // Any id outside the deck paints one visible placeholder, like no card.
        const QImage placeholder = plain(cardFaceImage(-1, size));
        EXPECT_EQ(plain(cardFaceImage(1000, size)), placeholder);
        EXPECT_GT(count(placeholder, redInk), size.width());
        EXPECT_EQ(std::count(faces.begin(), faces.end(), placeholder), 0);
    }
}

// A fanned hand shows only the left fifth of every card but the last: that strip alone must
// tell the ranks of a suit apart and carry the suit's ink.
TEST_F(Artwork, LeftFifthOfAFaceTellsEveryRankApart) {
    for (QSize size : {QSize(71, 96), QSize(54, 72)}) {
        const QRect strip(0, 0, size.width() / 5, size.height());
        for (int suit = 0; suit < 4; ++suit) {
            std::vector<QImage> strips;
            for (int id = suit; id < 52; id += 4) {
                const QImage face = cardFaceImage(id, size);
                EXPECT_GT(count(face, suit == 1 || suit == 2 ? redInk : darkInk, strip), 12)
                    << nameOf(id) << " has no index in its strip";
                strips.push_back(plain(face.copy(strip)));
                for (std::size_t other = 0; other + 1 < strips.size(); ++other)
                    EXPECT_NE(strips[other], strips.back()) << nameOf(id) << " at " << size.width();
            }
        }
    }
}

TEST_F(Artwork, CdtDrawFillsJustTheCardsBoxAtTheCanvasRatioInTheColourAsked) {
    for (int card : {0, 17, 51, -1, 52}) {  // all of the box but its rounded corners, and no more
        const QImage drawn = canvas(
            {200, 220}, 1, [&](QPainter& p) { platform::cdtDraw(p, 37, 53, card, 0, 0xFFFFFF); });
        const int inside = count(drawn, painted, QRect(37, 53, 71, 96));
        EXPECT_TRUE(inside == count(drawn, painted) && inside > 71 * 96 - 50)
            << card << " " << inside;
    }
    const QImage two = plain(canvas({200, 110}, 2, [](QPainter& p) {
        platform::cdtDraw(p, 5, 7, 29, 0, 0xFFFFFF);  // drawn sharp at 2x, not blown up
        platform::cdtDraw(p, 90, 0, 20, 0, 0xFFFF00);
    }));
    const QImage sharp = plain(cardFaceImage(29, {71, 96}, 2.0));
    EXPECT_EQ(sharp.size(), QSize(142, 192));
    EXPECT_EQ(two.copy(10, 14, 142, 192), sharp);
    EXPECT_NE(sharp, plain(cardFaceImage(29, {71, 96})
                               .scaled(142, 192, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
    EXPECT_EQ(two.pixel(250, 4), qRgb(255, 255, 0)) << "the face colour asked for";
}

// Every picture at a pixel ratio, with its logical size.
std::vector<std::pair<QImage, QSize>> pictures(qreal r) {
    return {
        {art::pokerTable(r), {643, 539}},      {art::pocketBacks(r), {39, 41}},
        {art::boardCard(40, r), {54, 72}},     {art::showdownFan(36, 12, {67, 70}, r), {67, 70}},
        {art::dealerButton(r), {26, 23}},      {art::showdownFan(42, 41, {66, 70}, r), {66, 70}},
        {art::promotionTable(r), {397, 285}},  {art::smallBacks(r), {20, 21}},
        {art::frontPair(42, 41, r), {40, 42}}, {art::smallCard(22, r), {27, 36}},
        {art::awardBadge(r), {62, 17}}};
}

TEST_F(Artwork, PicturesHaveTheirSizesAtEveryRatioShowTheirCardsAndSmallOnesStandClear) {
    for (qreal r : {1.0, 2.0}) {
        const auto all = pictures(r);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto& [image, size] = all[i];
            EXPECT_EQ(image.size(), size * r) << "row " << i << " at " << r;
            EXPECT_EQ(image.deviceIndependentSize(), QSizeF(size)) << "row " << i;
            EXPECT_GT(count(image, painted), image.width() * image.height() / 3) << "row " << i;
        }
    }
    for (const QImage& image : {art::pocketBacks(), art::smallBacks(), art::dealerButton(),
                                art::frontPair(42, 41), art::awardBadge()}) {
        const QImage argb = plain(image);
        EXPECT_EQ(qAlpha(argb.pixel(0, 0)) + qAlpha(argb.pixel(argb.width() - 1, 0)), 0)
            << argb.width();
    }
    EXPECT_EQ(plain(art::boardCard(18, 2.0)), plain(cardFaceImage(18, {54, 72}, 2.0)));
    EXPECT_EQ(plain(art::smallCard(31)), plain(cardFaceImage(31, {27, 36})));
    // Changing either card of a fanned pair changes the picture: both show.
    const QImage fan = plain(art::showdownFan(36, 12, {67, 70}));
    EXPECT_NE(fan, plain(art::showdownFan(32, 12, {67, 70})));
    EXPECT_NE(fan, plain(art::showdownFan(36, 8, {67, 70})));
    const QImage pair = plain(art::frontPair(42, 41));
    EXPECT_NE(pair, plain(art::frontPair(46, 41)));
    EXPECT_NE(pair, plain(art::frontPair(42, 45)));
}

// Where the stage puts its pictures (pockets, board, showdown pairs, dealer button; the
// promotion's nine seats, front pair and spread board) each corner lies on felt.
TEST_F(Artwork, TablesHaveFeltWhereverThePicturesLie) {
    const QImage sample = plain(art::pokerTable());
    const QImage promotion = plain(art::promotionTable());
    const int places[][5] = {{0, 146, 317, 41, 43}, {0, 87, 226, 41, 43},  {0, 127, 121, 41, 43},
                             {0, 246, 77, 41, 43},  {0, 381, 74, 41, 43},  {0, 482, 119, 41, 43},
                             {0, 522, 227, 41, 43}, {0, 463, 321, 41, 43}, {0, 220, 187, 265, 72},
                             {0, 129, 111, 69, 72}, {0, 434, 293, 68, 72}, {0, 527, 272, 26, 23},
                             {0, 440, 359, 26, 23}, {1, 41, 112, 22, 23},  {1, 61, 58, 22, 23},
                             {1, 129, 37, 22, 23},  {1, 258, 37, 22, 23},  {1, 312, 58, 22, 23},
                             {1, 332, 114, 22, 23}, {1, 306, 158, 22, 23}, {1, 237, 169, 22, 23},
                             {1, 69, 156, 22, 23},  {1, 127, 150, 40, 42}, {1, 128, 95, 136, 36}};
    for (const auto& [table, x, y, w, h] : places) {
        const QRect box(x, y, w, h);
        for (QPoint corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()})
            EXPECT_TRUE(felt((table ? promotion : sample).pixel(corner))) << x << "," << y;
    }
}

TEST_F(Artwork, IconComesAtEverySizeSquareWithClearCornersAndAFeltMiddle) {
    const QList<QSize> sizes = art::applicationIcon().availableSizes();
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
        const QImage icon = plain(art::iconImage(size));
        ASSERT_EQ(icon.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0) << size;
        EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255) << size;
        EXPECT_GT(count(icon, felt), size * size / 5) << size;
        EXPECT_GT(count(icon, darkInk), size * size / 50) << size;
    }
}

}  // namespace
