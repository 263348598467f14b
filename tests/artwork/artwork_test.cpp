// The card faces and pictures: every card told apart, also in the strip a fanned hand shows;
// suit colours; where cdtDraw paints; a pixel for each of the screen's at every ratio.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <functional>
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

// How many pixels pass a test.
int count(const QImage& image, const Ink& test) {
    const QImage argb = plain(image);  // rows of whole pixels, no padding
    const auto* pixels = reinterpret_cast<const QRgb*>(argb.constBits());
    return static_cast<int>(std::count_if(pixels, pixels + argb.width() * argb.height(), test));
}

// The application of each test, gone before the leak checker looks: that frees the font caches
// the drawing filled.
class Artwork : public ::testing::Test {
  protected:
    int argc = 1;
    char name[13] = "test_artwork";
    char* argv[2] = {name, nullptr};
    QGuiApplication app{argc, argv};
};

// Every face differs from every other and from the placeholder, and has red ink only on hearts and
// diamonds. A fanned hand shows only the left fifth of a card: that alone tells ranks apart.
// Any id outside the deck paints one placeholder, like no card.
TEST_F(Artwork, FacesAndTheirLeftFifthsTellEveryCardApartInTheirSuitsColour) {
    for (QSize size : {QSize(71, 96), QSize(54, 72), QSize(27, 36)}) {
        const QRect strip(0, 0, size.width() / 5, size.height());
        std::vector<QImage> faces{plain(cardFaceImage(-1, size))};
        EXPECT_EQ(plain(cardFaceImage(1000, size)), faces.front());
        for (int id = 0; id < 52; ++id) {
            const QImage& face = faces.emplace_back(plain(cardFaceImage(id, size)));
            const bool redSuit = id % 4 == 1 || id % 4 == 2;
            EXPECT_EQ(count(face, redInk) > 0, redSuit) << id;
            EXPECT_TRUE(size.width() == 27 ||
                        count(face.copy(strip), redSuit ? redInk : darkInk) > 12)
                << id << " has no index in its strip";
            for (int other = -1; other < id; ++other) {  // -1: the placeholder
                const QImage& earlier = faces[std::size_t(other) + 1];
                EXPECT_NE(earlier, face) << other << ", " << id << " at " << size.width();
                EXPECT_TRUE(size.width() == 27 || other % 4 != id % 4 ||
                            earlier.copy(strip) != face.copy(strip))
                    << other << ", " << id << " strips";
            }
        }
    }
}

// At twice the ratio, cdtDraw paints the card's box sharp rather than blown up, in the face
// colour asked for; every picture has twice the pixels, the same logical size, and is mostly
// painted.
TEST_F(Artwork, CdtDrawAndPicturesHaveAPixelForEachOfTheScreens) {
    QImage canvas(QSize(200, 110) * 2, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(2);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    platform::cdtDraw(painter, 5, 7, 29, 0, 0xFFFFFF);
    platform::cdtDraw(painter, 90, 0, 20, 0, 0xFFFF00);
    painter.end();
    const QImage sharp = plain(cardFaceImage(29, {71, 96}, 2.0));
    EXPECT_EQ(plain(canvas).copy(10, 14, 142, 192), sharp);
    EXPECT_NE(sharp, plain(cardFaceImage(29, {71, 96})
                               .scaled(142, 192, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
    EXPECT_EQ(plain(canvas).pixel(250, 4), qRgb(255, 255, 0));

    const auto pictures = [](qreal r) {
        return std::vector<QImage>{art::pokerTable(r),     art::pocketBacks(r),
                                   art::boardCard(40, r),  art::dealerButton(r),
                                   art::promotionTable(r), art::smallBacks(r),
                                   art::smallCard(22, r),  art::frontPair(42, 41, r),
                                   art::awardBadge(r),     art::showdownFan(36, 12, {67, 70}, r)};
    };
    const auto ones = pictures(1.0), twos = pictures(2.0);
    for (std::size_t i = 0; i < ones.size(); ++i) {
        EXPECT_EQ(twos[i].size(), ones[i].size() * 2) << "row " << i;
        EXPECT_EQ(twos[i].deviceIndependentSize(), QSizeF(ones[i].size())) << "row " << i;
        EXPECT_GT(count(twos[i], painted), twos[i].width() * twos[i].height() / 3) << "row " << i;
    }
}

}  // namespace
