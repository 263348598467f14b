// render_artwork FOLDER: writes every picture of the program as PNG into FOLDER, at 1x,
// at 2x (name@2x.png) and blown up 4x without smoothing (name_x4.png), the card faces as
// sheets at the three sizes the program shows, fanned hands, and previews of the two
// scenes with their pictures in place.
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <array>
#include <cstdio>
#include <functional>

#include "artwork/artwork.h"
#include "artwork/cardface.h"

namespace {

namespace art = platform::artwork;
using Picture = std::function<QImage(qreal dpr)>;

QDir outputDir;
int failures = 0;

void save(const QImage& image, const QString& name) {
    const QString path = outputDir.filePath(name);
    if (!image.save(path)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        ++failures;
    }
}

void writePicture(const QString& name, const Picture& picture) {
    const QImage single = picture(1.0);
    save(single, name + ".png");
    save(picture(2.0), name + "@2x.png");
    save(single.scaled(single.size() * 4, Qt::IgnoreAspectRatio, Qt::FastTransformation),
         name + "_x4.png");
}

QImage faceSheet(QSize card, qreal dpr) {
    constexpr int gap = 4;
    const QSize sheet(13 * (card.width() + gap) + gap, 4 * (card.height() + gap) + gap);
    QImage image(sheet * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(QColor(0x1E6B3A));
    QPainter painter(&image);
    for (int suit = 0; suit < 4; ++suit) {
        for (int rank = 1; rank <= 13; ++rank) {
            const QPoint at(gap + (rank - 1) * (card.width() + gap),
                            gap + suit * (card.height() + gap));
            painter.drawImage(at, platform::cardFaceImage((rank - 1) * 4 + suit, card, dpr));
        }
    }
    return image;
}

// Each suit fanned from ace to king the way the exercises lay out a hand: a fifth of each
// card shows under the next.
QImage fanSheet(QSize card, qreal dpr) {
    const qreal step = card.width() / 5.0;
    const QSize sheet(static_cast<int>(12 * step) + card.width() + 8, 4 * (card.height() + 6) + 6);
    QImage image(sheet * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(QColor(0x008000));
    QPainter painter(&image);
    for (int suit = 0; suit < 4; ++suit) {
        for (int rank = 1; rank <= 13; ++rank) {
            const QPointF at(4 + (rank - 1) * step, 6 + suit * (card.height() + 6));
            painter.drawImage(at, platform::cardFaceImage((rank - 1) * 4 + suit, card, dpr));
        }
    }
    return image;
}

QImage backs(qreal dpr) {
    constexpr std::array<QSize, 4> sizes{{{71, 96}, {54, 72}, {27, 36}, {13, 18}}};
    QImage image(QSize(190, 104) * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(QColor(0x008000));
    QPainter painter(&image);
    int x = 4;
    for (QSize size : sizes) {
        platform::paintCardBack(painter, QRectF(QPointF(x, 4), size));
        x += size.width() + 6;
    }
    return image;
}

// The sample game's stage at the end of the hand, every picture where its control sits.
QImage stagePreview(qreal dpr) {
    QImage image(QSize(648, 584) * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.drawImage(QPoint(0, 0), art::pokerTable(dpr));
    constexpr std::array<QPoint, 8> pockets{{{146, 317},
                                             {87, 226},
                                             {127, 121},
                                             {246, 77},
                                             {381, 74},
                                             {482, 119},
                                             {522, 227},
                                             {463, 321}}};
    for (QPoint at : pockets) {
        painter.drawImage(at + QPoint(1, 1), art::pocketBacks(dpr));
    }
    constexpr std::array<int, 5> board{40, 18, 31, 22, 26};
    constexpr std::array<int, 5> boardX{220, 273, 326, 379, 431};
    for (std::size_t i = 0; i < board.size(); ++i) {
        painter.drawImage(QPoint(boardX.at(i), i == 4 ? 186 : 187),
                          art::boardCard(board.at(i), dpr));
    }
    painter.drawImage(QPoint(130, 112), art::showdownFan(36, 12, {67, 70}, dpr));
    painter.drawImage(QPoint(435, 294), art::showdownFan(42, 41, {66, 70}, dpr));
    painter.drawImage(QPoint(440, 359), art::dealerButton(dpr));
    painter.setPen(Qt::white);
    painter.drawText(QRect(327, 272, 60, 16), QStringLiteral("Pot  $10.50"));
    painter.fillRect(QRect(198, 395, 254, 119), QColor(0xC0C0C0));
    painter.fillRect(QRect(205, 400, 238, 106), QColor(0xE0E0E0));
    painter.fillRect(QRect(294, 516, 70, 21), QColor(0xD4D0C8));
    return image;
}

// The promotion window's table with the pictures placed as the window places them.
QImage promotionPreview(qreal dpr) {
    QImage image(QSize(397, 285) * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    QPainter painter(&image);
    painter.drawImage(QPoint(0, 0), art::promotionTable(dpr));
    for (QPoint at : art::kPromotionSeatTopLeft) {
        painter.drawImage(at, art::smallBacks(dpr));
    }
    painter.drawImage(QPoint(127, 150), art::frontPair(42, 41, dpr));
    constexpr std::array<int, 5> board{22, 26, 31, 40, 18};
    constexpr std::array<int, 5> boardX{128, 155, 183, 210, 237};
    for (std::size_t i = 0; i < board.size(); ++i) {
        painter.drawImage(QPoint(boardX.at(i), 95), art::smallCard(board.at(i), dpr));
    }
    return image;
}

void writeAll() {
    writePicture("poker_table", art::pokerTable);
    writePicture("pocket_backs", art::pocketBacks);
    constexpr std::array<int, 5> board{40, 18, 31, 22, 26};
    for (std::size_t i = 0; i < board.size(); ++i) {
        writePicture(QStringLiteral("board_card_%1").arg(i),
                     [&](qreal dpr) { return art::boardCard(board.at(i), dpr); });
    }
    writePicture("showdown_fan_1", [](qreal dpr) {
        return art::showdownFan(36, 12, {67, 70}, dpr);
    });
    writePicture("showdown_fan_2", [](qreal dpr) {
        return art::showdownFan(42, 41, {66, 70}, dpr);
    });
    writePicture("dealer_button", art::dealerButton);
    writePicture("promotion_table", art::promotionTable);
    writePicture("small_backs", art::smallBacks);
    writePicture("front_pair", [](qreal dpr) { return art::frontPair(42, 41, dpr); });
    for (std::size_t i = 0; i < board.size(); ++i) {
        writePicture(QStringLiteral("small_card_%1").arg(i),
                     [&](qreal dpr) { return art::smallCard(board.at(i), dpr); });
    }
    writePicture("award_badge", art::awardBadge);
    writePicture("card_backs", backs);
    writePicture("stage_preview", stagePreview);
    writePicture("promotion_preview", promotionPreview);
    for (int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage icon = art::iconImage(size);
        save(icon, QStringLiteral("icon_%1.png").arg(size));
        save(icon.scaled(icon.size() * 4, Qt::IgnoreAspectRatio, Qt::FastTransformation),
             QStringLiteral("icon_%1_x4.png").arg(size));
    }
    for (QSize card : {QSize(71, 96), QSize(54, 72), QSize(27, 36)}) {
        const QString size = QStringLiteral("%1x%2").arg(card.width()).arg(card.height());
        writePicture("faces_" + size, [card](qreal dpr) { return faceSheet(card, dpr); });
        writePicture("fan_" + size, [card](qreal dpr) { return fanSheet(card, dpr); });
    }
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: render_artwork FOLDER\n");
        return 2;
    }
    outputDir.setPath(QString::fromLocal8Bit(argv[1]));
    if (!outputDir.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "cannot make %s\n", argv[1]);
        return 1;
    }
    writeAll();
    return failures == 0 ? 0 : 1;
}
