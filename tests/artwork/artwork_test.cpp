// The card faces and pictures: every card told apart, also in the strip a fanned hand shows;
// suit colours; where cdtDraw paints; sizes at every pixel ratio.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <functional>
#include <memory>
#include <vector>

#include "artwork/artwork.h"
#include "artwork/cardface.h"

namespace {

namespace art = platform::artwork;
using platform::cardFaceImage;

QImage plain(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32);
}
using Ink = std::function<bool(QRgb)>;
const Ink redInk = [](QRgb p) { return qRed(p) > 150 && qGreen(p) < 90 && qBlue(p) < 90; };
const Ink darkInk = [](QRgb p) { return qAlpha(p) > 128 && qGray(p) < 70; };
const Ink painted = [](QRgb p) { return qAlpha(p) > 0; };

int count(const QImage& image, const Ink& test) {
    const QImage argb = plain(image);
    int n = 0;
    for (int y = 0; y < argb.height(); ++y)
        for (int x = 0; x < argb.width(); ++x)
            n += test(argb.pixel(x, y)) ? 1 : 0;
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
        app = std::make_unique<QGuiApplication>(argc, argv);
    }
    // Gone before the leak checker looks: it frees the font caches the drawing filled.
    static void TearDownTestSuite() { app.reset(); }
    static inline std::unique_ptr<QGuiApplication> app;
};

// Every face differs from every other, has clear corners, and red ink only on hearts and
// diamonds. A fanned hand shows only the left fifth of a card: that alone tells ranks apart.
TEST_F(Artwork, FacesAndTheirLeftFifthsTellEveryCardApartInTheirSuitsColour) {
    for (QSize size : {QSize(71, 96), QSize(54, 72), QSize(27, 36)}) {
        const QRect strip(0, 0, size.width() / 5, size.height());
        std::vector<QImage> faces;
        for (int id = 0; id < 52; ++id) {
            const QImage& face = faces.emplace_back(plain(cardFaceImage(id, size)));
            const bool redSuit = id % 4 == 1 || id % 4 == 2;
            const int red = count(face, redInk);
            EXPECT_TRUE(redSuit ? red > size.width() / 2 : red == 0) << nameOf(id) << " " << red;
            EXPECT_EQ(qAlpha(face.pixel(0, 0)), 0) << nameOf(id);
            EXPECT_EQ(face.pixel(size.width() / 2, 2), qRgb(255, 255, 255)) << nameOf(id);
            EXPECT_TRUE(size.width() == 27 ||
                        count(face.copy(strip), redSuit ? redInk : darkInk) > 12)
                << nameOf(id) << " has no index in its strip";
            EXPECT_EQ(redSuit ? count(face.copy(strip), darkInk) : 0, 0) << nameOf(id) << " index";
            for (int other = 0; other < id; ++other) {
                const QImage& earlier = faces[static_cast<std::size_t>(other)];
                EXPECT_NE(earlier, face) << nameOf(other) << ", " << nameOf(id) << size.width();
                EXPECT_TRUE(size.width() == 27 || other % 4 != id % 4 ||
                            earlier.copy(strip) != face.copy(strip))
                    << nameOf(other) << ", " << nameOf(id) << " strips";
            }
        }
        // Any id outside the deck paints one visible placeholder, like no card.
        const QImage placeholder = plain(cardFaceImage(-1, size));
        EXPECT_EQ(plain(cardFaceImage(1000, size)), placeholder);
        EXPECT_GT(count(placeholder, redInk), size.width());
        EXPECT_EQ(std::count(faces.begin(), faces.end(), placeholder), 0);
    }
}

TEST_F(Artwork, CdtDrawFillsJustTheCardsBoxAtTheCanvasRatioInTheColourAskedAndNamesTheCards) {
    std::int32_t width = 0, height = 0;
    platform::cdtInit(width, height);
    EXPECT_EQ(QSize(width, height), QSize(71, 96));
    QStringList names;
    for (int id : {0, 3, 6, 38, 41, 51, -1, 52})
        names << platform::cardName(id);
    EXPECT_EQ(
        names.join(','),
        "Ace of Clubs,Ace of Spades,Two of Hearts,Ten of Hearts,Jack of Diamonds,King of Spades,,");
    for (int card : {0, 17, 51, -1, 52}) {  // all of the box but its rounded corners, and no more
        const QImage drawn = canvas(
            {200, 220}, 1, [&](QPainter& p) { platform::cdtDraw(p, 37, 53, card, 0, 0xFFFFFF); });
        const int inside = count(drawn.copy(37, 53, 71, 96), painted);
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

TEST_F(Artwork, PicturesAndIconHaveTheirSizesAtEveryRatioShowTheirCardsAndStandClear) {
    for (qreal r : {1.0, 2.0}) {
        const auto all = pictures(r);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto& [image, size] = all[i];
            EXPECT_EQ(image.size(), size * r) << "row " << i << " at " << r;
            EXPECT_EQ(image.deviceIndependentSize(), QSizeF(size)) << "row " << i;
            EXPECT_GT(count(image, painted), image.width() * image.height() / 3) << "row " << i;
            const int corners =
                image.pixelColor(0, 0).alpha() + image.pixelColor(image.width() - 1, 0).alpha();
            EXPECT_TRUE(size.width() >= 65 || corners == 0)
                << "row " << i << ": a small one stands clear";
        }
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

    // The window icon: square at every size, with clear corners around an opaque middle.
    const QList<QSize> sizes = art::applicationIcon().availableSizes();
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage icon = plain(art::iconImage(size));
        EXPECT_TRUE(sizes.contains(QSize(size, size)) && icon.size() == QSize(size, size)) << size;
        EXPECT_TRUE(qAlpha(icon.pixel(0, 0)) == 0 && qAlpha(icon.pixel(size / 2, size / 2)) == 255)
            << size;
    }
}

}  // namespace
