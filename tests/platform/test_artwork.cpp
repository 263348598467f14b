// The card painter and the pictures: sizes, faces that tell every card apart (also in the
// strip a fanned hand leaves visible), suit colours, where cdtDraw paints, the cache, and
// the places on the tables where the stage puts its pictures.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "platform/artwork.h"
#include "platform/cardface.h"

namespace {

namespace art = platform::artwork;

class QtEnvironment : public ::testing::Environment {
  public:
    void SetUp() override {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        app_ = std::make_unique<QGuiApplication>(argc_, argv_.data());
    }
    void TearDown() override { app_.reset(); }

  private:
    int argc_ = 1;
    std::array<char, 14> name_{"test_artwork"};
    std::array<char*, 2> argv_{name_.data(), nullptr};
    std::unique_ptr<QGuiApplication> app_;
};

[[maybe_unused]] auto* const environment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

constexpr std::array<QSize, 3> kFaceSizes{{{71, 96}, {54, 72}, {27, 36}}};

bool isRedSuit(int drawId) {
    return drawId % 4 == 1 || drawId % 4 == 2;
}

QImage plain(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32);
}

bool isRedInk(QRgb pixel) {
    return qAlpha(pixel) > 128 && qRed(pixel) > 150 && qGreen(pixel) < 90 && qBlue(pixel) < 90;
}
bool isDarkInk(QRgb pixel) {
    return qAlpha(pixel) > 128 && qRed(pixel) < 70 && qGreen(pixel) < 70 && qBlue(pixel) < 70;
}
bool isFelt(QRgb pixel) {
    return qGreen(pixel) > qRed(pixel) + 20 && qGreen(pixel) > qBlue(pixel) + 10;
}

int countPixels(const QImage& image, const QRect& area, const std::function<bool(QRgb)>& test) {
    const QImage argb = plain(image);
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            count += test(argb.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

QImage blankCanvas(QSize size, qreal dpr = 1.0) {
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::transparent);
    return image;
}

// ---- The card library ----------------------------------------------------------------

TEST(CardLibrary, CardSizeIs71By96) {
    std::int32_t width = 0;
    std::int32_t height = 0;
    platform::cdtInit(width, height);
    EXPECT_EQ(width, 71);
    EXPECT_EQ(height, 96);
}

TEST(CardLibrary, NamesFollowTheDrawIdNumbering) {
    EXPECT_EQ(platform::cardName(0), "Ace of Clubs");
    EXPECT_EQ(platform::cardName(3), "Ace of Spades");
    EXPECT_EQ(platform::cardName(4), "Two of Clubs");
    EXPECT_EQ(platform::cardName(7), "Two of Spades");
    EXPECT_EQ(platform::cardName(6), "Two of Hearts");
    EXPECT_EQ(platform::cardName(38), "Ten of Hearts");
    EXPECT_EQ(platform::cardName(41), "Jack of Diamonds");
    EXPECT_EQ(platform::cardName(46), "Queen of Hearts");
    EXPECT_EQ(platform::cardName(51), "King of Spades");
    EXPECT_TRUE(platform::cardName(-1).isEmpty());
    EXPECT_TRUE(platform::cardName(52).isEmpty());
    std::vector<QString> names;
    for (int id = 0; id < 52; ++id) {
        names.push_back(platform::cardName(id));
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
}

TEST(CardFaces, AllFiftyTwoDifferAtEverySize) {
    for (QSize size : kFaceSizes) {
        std::vector<QImage> faces;
        for (int id = 0; id < 52; ++id) {
            faces.push_back(plain(platform::cardFaceImage(id, size)));
        }
        for (int a = 0; a < 52; ++a) {
            for (int b = a + 1; b < 52; ++b) {
                EXPECT_NE(faces[a], faces[b]) << platform::cardName(a).toStdString() << " and "
                                              << platform::cardName(b).toStdString() << " at "
                                              << size.width() << "x" << size.height();
            }
        }
    }
}

// A fanned hand shows only the left fifth of every card but the last: that strip alone must
// tell the ranks of a suit apart and carry the suit's ink.
TEST(CardFaces, LeftFifthTellsEveryRankApart) {
    for (QSize size : {QSize(71, 96), QSize(54, 72)}) {
        const QRect strip(0, 0, size.width() / 5, size.height());
        for (int suit = 0; suit < 4; ++suit) {
            std::vector<QImage> strips;
            for (int rank = 0; rank < 13; ++rank) {
                const int id = rank * 4 + suit;
                const QImage face = platform::cardFaceImage(id, size);
                strips.push_back(plain(face.copy(strip)));
                const auto ink = isRedSuit(id) ? isRedInk : isDarkInk;
                EXPECT_GT(countPixels(face, strip, ink), 12)
                    << platform::cardName(id).toStdString() << " has no index in its strip";
            }
            for (int a = 0; a < 13; ++a) {
                for (int b = a + 1; b < 13; ++b) {
                    EXPECT_NE(strips[a], strips[b])
                        << "ranks " << a + 1 << " and " << b + 1 << " of suit " << suit << " at "
                        << size.width();
                }
            }
        }
    }
}

TEST(CardFaces, RedInkOnlyOnHeartsAndDiamonds) {
    for (QSize size : kFaceSizes) {
        for (int id = 0; id < 52; ++id) {
            const QImage face = platform::cardFaceImage(id, size);
            const int red = countPixels(face, face.rect(), isRedInk);
            if (isRedSuit(id)) {
                EXPECT_GT(red, size.width() / 2) << platform::cardName(id).toStdString();
            } else {
                EXPECT_EQ(red, 0) << platform::cardName(id).toStdString();
            }
        }
    }
}

TEST(CardFaces, RoundedCornersStayClearAndTheFaceIsWhite) {
    for (QSize size : kFaceSizes) {
        const QImage face = plain(platform::cardFaceImage(12, size));
        EXPECT_EQ(qAlpha(face.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(face.pixel(size.width() - 1, size.height() - 1)), 0);
        // Between the top index and the first pip row lies plain face.
        EXPECT_EQ(face.pixel(size.width() / 2, 2), qRgb(255, 255, 255)) << size.width();
    }
}

// ---- cdtDraw ------------------------------------------------------------------------------

QRect touchedArea(const QImage& image) {
    const QImage argb = plain(image);
    QRect area;
    for (int y = 0; y < argb.height(); ++y) {
        for (int x = 0; x < argb.width(); ++x) {
            if (qAlpha(argb.pixel(x, y)) != 0) {
                area |= QRect(x, y, 1, 1);
            }
        }
    }
    return area;
}

TEST(CdtDraw, PaintsOnlyInsideTheCardsBox) {
    for (int card : {0, 3, 17, 38, 47, 51, -1, 52}) {
        QImage canvas = blankCanvas({200, 220});
        QPainter painter(&canvas);
        platform::cdtDraw(painter, 37, 53, card, 0, 0xFFFFFF);
        painter.end();
        const QRect touched = touchedArea(canvas);
        EXPECT_TRUE(QRect(37, 53, 71, 96).contains(touched)) << card;
        // ...and fills it, bar the rounded corners.
        EXPECT_EQ(touched.width(), 71) << card;
        EXPECT_EQ(touched.height(), 96) << card;
    }
}

TEST(CdtDraw, FollowsThePaintersScaleAndStaysInItsBox) {
    QImage canvas = blankCanvas({300, 300});
    QPainter painter(&canvas);
    painter.scale(2, 2);
    platform::cdtDraw(painter, 10, 20, 44, 0, 0xFFFFFF);
    painter.end();
    const QRect touched = touchedArea(canvas);
    EXPECT_TRUE(QRect(20, 40, 142, 192).contains(touched));
    EXPECT_GT(touched.width(), 136);
}

TEST(CdtDraw, RendersAtTheSurfacesPixelRatio) {
    QImage canvas = blankCanvas({100, 120}, 2.0);
    QPainter painter(&canvas);
    platform::cdtDraw(painter, 5, 7, 29, 0, 0xFFFFFF);
    painter.end();
    const QImage face = platform::cardFaceImage(29, {71, 96}, 2.0);
    ASSERT_EQ(face.size(), QSize(142, 192));
    EXPECT_EQ(plain(canvas.copy(10, 14, 142, 192)), plain(face));
}

TEST(CdtDraw, UsesTheGivenFaceColour) {
    QImage canvas = blankCanvas({80, 100});
    QPainter painter(&canvas);
    platform::cdtDraw(painter, 0, 0, 20, 0, 0xFFFF00);
    painter.end();
    EXPECT_EQ(plain(canvas).pixel(35, 2), qRgb(255, 255, 0));
    EXPECT_EQ(plain(canvas).pixel(35, 93), qRgb(255, 255, 0));
}

TEST(CdtDraw, AnIdOutsideTheDeckPaintsAVisiblePlaceholder) {
    const QImage placeholder = plain(platform::cardFaceImage(-1, {71, 96}));
    const int marked = countPixels(placeholder, placeholder.rect(), [](QRgb pixel) {
        return qAlpha(pixel) > 128 && pixel != qRgb(255, 255, 255);
    });
    EXPECT_GT(marked, 71 * 96 / 2);
    EXPECT_GT(countPixels(placeholder, placeholder.rect(), isRedInk), 100);
    for (int id : {52, 1000, -7}) {
        EXPECT_EQ(plain(platform::cardFaceImage(id, {71, 96})), placeholder) << id;
    }
    for (int id = 0; id < 52; ++id) {
        EXPECT_NE(plain(platform::cardFaceImage(id, {71, 96})), placeholder) << id;
    }
}

// ---- The cache ----------------------------------------------------------------------------

TEST(FaceCache, SameKeyGivesTheSameImage) {
    const QImage first = platform::cardFaceImage(9, {54, 72}, 1.0);
    const QImage again = platform::cardFaceImage(9, {54, 72}, 1.0);
    EXPECT_EQ(first.cacheKey(), again.cacheKey());
    EXPECT_NE(platform::cardFaceImage(9, {54, 72}, 2.0).cacheKey(), first.cacheKey());
    EXPECT_NE(platform::cardFaceImage(9, {27, 36}, 1.0).cacheKey(), first.cacheKey());
    EXPECT_NE(platform::cardFaceImage(10, {54, 72}, 1.0).cacheKey(), first.cacheKey());
}

TEST(FaceCache, ImagesCarryTheirPixelRatio) {
    for (qreal dpr : {1.0, 1.5, 2.0, 3.0}) {
        const QImage face = platform::cardFaceImage(33, {54, 72}, dpr);
        EXPECT_EQ(face.devicePixelRatio(), dpr);
        EXPECT_EQ(face.deviceIndependentSize(), QSizeF(54, 72)) << dpr;
    }
    // A 2x face is drawn at 2x, not blown up from 1x.
    const QImage sharp = plain(platform::cardFaceImage(33, {71, 96}, 2.0));
    const QImage blown =
        plain(platform::cardFaceImage(33, {71, 96}, 1.0)
                  .scaled(142, 192, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    EXPECT_NE(sharp, blown);
}

// ---- The pictures -------------------------------------------------------------------------

struct Picture {
    const char* name;
    std::function<QImage(qreal)> make;
    QSize size;
};

std::vector<Picture> allPictures() {
    return {
        {"pokerTable", art::pokerTable, {643, 539}},
        {"pocketBacks", art::pocketBacks, {39, 41}},
        {"boardCard", [](qreal dpr) { return art::boardCard(40, dpr); }, {54, 72}},
        {"showdownFan 1",
         [](qreal dpr) {
             return art::showdownFan(36, 12, {67, 70}, dpr);
         },
         {67, 70}},
        {"showdownFan 2",
         [](qreal dpr) {
             return art::showdownFan(42, 41, {66, 70}, dpr);
         },
         {66, 70}},
        {"dealerButton", art::dealerButton, {26, 23}},
        {"promotionTable", art::promotionTable, {397, 285}},
        {"smallBacks", art::smallBacks, {20, 21}},
        {"frontPair", [](qreal dpr) { return art::frontPair(42, 41, dpr); }, {40, 42}},
        {"smallCard", [](qreal dpr) { return art::smallCard(22, dpr); }, {27, 36}},
        {"awardBadge", art::awardBadge, {62, 17}},
    };
}

TEST(Pictures, HaveTheirExactSizesAtEveryPixelRatio) {
    for (const Picture& picture : allPictures()) {
        for (qreal dpr : {1.0, 2.0}) {
            const QImage image = picture.make(dpr);
            EXPECT_EQ(image.deviceIndependentSize(), QSizeF(picture.size)) << picture.name;
            EXPECT_EQ(image.size(), picture.size * dpr) << picture.name << " at " << dpr;
        }
    }
}

TEST(Pictures, AreNotBlank) {
    for (const Picture& picture : allPictures()) {
        const QImage image = plain(picture.make(1.0));
        const int painted = countPixels(image, image.rect(), [](QRgb p) { return qAlpha(p) > 0; });
        EXPECT_GT(painted, image.width() * image.height() / 3) << picture.name;
    }
}

TEST(Pictures, BoardAndSmallCardsAreTheCardFaces) {
    EXPECT_EQ(plain(art::boardCard(18, 2.0)), plain(platform::cardFaceImage(18, {54, 72}, 2.0)));
    EXPECT_EQ(plain(art::smallCard(31)), plain(platform::cardFaceImage(31, {27, 36})));
}

// Every card of a fanned pair must show: changing either card changes the picture.
TEST(Pictures, BothCardsOfAFanShow) {
    const QImage showdown = plain(art::showdownFan(36, 12, {67, 70}));
    EXPECT_NE(showdown, plain(art::showdownFan(32, 12, {67, 70})));
    EXPECT_NE(showdown, plain(art::showdownFan(36, 8, {67, 70})));
    const QImage front = plain(art::frontPair(42, 41));
    EXPECT_NE(front, plain(art::frontPair(46, 41)));
    EXPECT_NE(front, plain(art::frontPair(42, 45)));
}

TEST(Pictures, SmallPicturesStandOnAClearGround) {
    for (const QImage& image : {art::pocketBacks(), art::smallBacks(), art::dealerButton(),
                                art::frontPair(42, 41), art::awardBadge()}) {
        const QImage argb = plain(image);
        EXPECT_EQ(qAlpha(argb.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(argb.pixel(argb.width() - 1, 0)), 0);
    }
}

TEST(Pictures, DealerButtonIsAWhiteDiscWithADarkLetter) {
    const QImage button = plain(art::dealerButton());
    const QRect middle(8, 5, 10, 12);
    EXPECT_GT(countPixels(button, middle, isDarkInk), 15);
    EXPECT_GT(countPixels(button, QRect(2, 2, 22, 17),
                          [](QRgb p) { return qAlpha(p) == 255 && qGray(p) > 220; }),
              100);
}

TEST(Pictures, PocketBacksAreFaceDown) {
    const QImage backs = plain(art::pocketBacks());
    const int blue = countPixels(backs, backs.rect(), [](QRgb p) {
        return qAlpha(p) > 200 && qBlue(p) > qRed(p) + 40 && qBlue(p) > qGreen(p) + 20;
    });
    EXPECT_GT(blue, 300);
    EXPECT_EQ(countPixels(backs, backs.rect(), isRedInk), 0);
}

// ---- The tables: where the stage lays its pictures must be felt ------------------------

void expectOnFelt(const QImage& table, const QRect& box, const char* what) {
    const QImage argb = plain(table);
    for (QPoint corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
        EXPECT_TRUE(isFelt(argb.pixel(corner)))
            << what << " corner at " << corner.x() << "," << corner.y();
    }
}

TEST(Tables, SampleTableHasItsSeatsAndBoardOnTheFeltAndDarkCorners) {
    const QImage table = art::pokerTable();
    constexpr std::array<QPoint, 8> pockets{{{146, 317},
                                             {87, 226},
                                             {127, 121},
                                             {246, 77},
                                             {381, 74},
                                             {482, 119},
                                             {522, 227},
                                             {463, 321}}};
    for (QPoint at : pockets) {
        expectOnFelt(table, QRect(at, QSize(41, 43)), "pocket cards");
    }
    expectOnFelt(table, QRect(220, 187, 265, 72), "board");
    expectOnFelt(table, QRect(129, 111, 69, 72), "first showdown pair");
    expectOnFelt(table, QRect(434, 293, 68, 72), "second showdown pair");
    expectOnFelt(table, QRect(527, 272, 26, 23), "dealer button at home");
    expectOnFelt(table, QRect(440, 359, 26, 23), "dealer button after the deal");
    const QImage argb = plain(table);
    for (QPoint corner : {QPoint(0, 0), QPoint(642, 0), QPoint(0, 538), QPoint(642, 538)}) {
        const QRgb pixel = argb.pixel(corner);
        EXPECT_LT(std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}), 24);
    }
    // Below the table, where the comment panel stands, lies the dark room.
    EXPECT_LT(qGray(argb.pixel(325, 530)), 40);
}

TEST(Tables, PromotionTableHasItsNineSeatsOnTheFeltOnWindowGrey) {
    const QImage table = art::promotionTable();
    constexpr std::array<QPoint, 9> seats{{{41, 112},
                                           {61, 58},
                                           {129, 37},
                                           {258, 37},
                                           {312, 58},
                                           {332, 114},
                                           {306, 158},
                                           {237, 169},
                                           {69, 156}}};
    for (QPoint at : seats) {
        expectOnFelt(table, QRect(at, QSize(22, 23)), "seat");
    }
    expectOnFelt(table, QRect(127, 150, 40, 42), "front pair");
    expectOnFelt(table, QRect(128, 95, 136, 36), "spread board");
    const QImage argb = plain(table);
    for (QPoint corner : {QPoint(0, 0), QPoint(396, 0), QPoint(0, 284), QPoint(396, 284)}) {
        EXPECT_EQ(argb.pixel(corner), qRgb(0xC0, 0xC0, 0xC0));
    }
}

// ---- The icon -----------------------------------------------------------------------------

TEST(Icon, EverySizeIsSquareWithClearCornersAndAFeltMiddle) {
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage icon = plain(art::iconImage(size));
        ASSERT_EQ(icon.size(), QSize(size, size));
        EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0) << size;
        EXPECT_EQ(qAlpha(icon.pixel(size / 2, size / 2)), 255) << size;
        EXPECT_GT(countPixels(icon, icon.rect(), isFelt), size * size / 5) << size;
        EXPECT_GT(countPixels(icon, icon.rect(), isDarkInk), size * size / 50) << size;
    }
}

TEST(Icon, OffersAllSizes) {
    const QList<QSize> sizes = art::applicationIcon().availableSizes();
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
    }
}

}  // namespace
