// Suit symbols as outlines (no font glyph, which a system may lack), glyph outlines for
// indices and lettering, and canvases at a device pixel ratio.
#include <QFont>
#include <QHash>
#include <QTransform>
#include <array>
#include <cmath>

#include "artwork/artwork_detail.h"

namespace platform::artwork::detail {
namespace {

// Each suit is drawn once in a unit square, then scaled to its box.
QPainterPath unitHeart() {
    QPainterPath p;
    p.moveTo(0.5, 1.0);
    p.cubicTo(0.36, 0.80, 0.0, 0.60, 0.0, 0.29);
    p.cubicTo(0.0, 0.10, 0.13, 0.0, 0.27, 0.0);
    p.cubicTo(0.39, 0.0, 0.47, 0.08, 0.5, 0.19);
    p.cubicTo(0.53, 0.08, 0.61, 0.0, 0.73, 0.0);
    p.cubicTo(0.87, 0.0, 1.0, 0.10, 1.0, 0.29);
    p.cubicTo(1.0, 0.60, 0.64, 0.80, 0.5, 1.0);
    p.closeSubpath();
    return p;
}

QPainterPath unitDiamond() {
    QPainterPath p;
    p.moveTo(0.5, 0.0);
    p.quadTo(0.66, 0.29, 0.9, 0.5);
    p.quadTo(0.66, 0.71, 0.5, 1.0);
    p.quadTo(0.34, 0.71, 0.1, 0.5);
    p.quadTo(0.34, 0.29, 0.5, 0.0);
    p.closeSubpath();
    return p;
}

QPainterPath unitStem(qreal joinY) {
    QPainterPath stem;
    stem.moveTo(0.455, joinY);
    stem.cubicTo(0.45, 0.84, 0.40, 0.94, 0.28, 1.0);
    stem.lineTo(0.72, 1.0);
    stem.cubicTo(0.60, 0.94, 0.55, 0.84, 0.545, joinY);
    stem.closeSubpath();
    return stem;
}

QPainterPath unitSpade() {
    QPainterPath p;
    p.moveTo(0.5, 0.0);
    p.cubicTo(0.60, 0.17, 1.0, 0.33, 1.0, 0.58);
    p.cubicTo(1.0, 0.75, 0.88, 0.83, 0.75, 0.83);
    p.cubicTo(0.64, 0.83, 0.56, 0.77, 0.52, 0.70);
    p.lineTo(0.48, 0.70);
    p.cubicTo(0.44, 0.77, 0.36, 0.83, 0.25, 0.83);
    p.cubicTo(0.12, 0.83, 0.0, 0.75, 0.0, 0.58);
    p.cubicTo(0.0, 0.33, 0.40, 0.17, 0.5, 0.0);
    p.closeSubpath();
    return p.united(unitStem(0.62));
}

QPainterPath unitClub() {
    constexpr qreal r = 0.225;
    QPainterPath p;
    p.addEllipse(QPointF(0.5, 0.24), r, r);
    QPainterPath left;
    left.addEllipse(QPointF(0.235, 0.56), r, r);
    QPainterPath right;
    right.addEllipse(QPointF(0.765, 0.56), r, r);
    QPainterPath heart;
    heart.addEllipse(QPointF(0.5, 0.5), 0.13, 0.15);
    return p.united(left).united(right).united(heart).united(unitStem(0.55));
}

const QPainterPath& unitSuit(Suit suit) {
    static const std::array<QPainterPath, 4> paths{unitClub(), unitDiamond(), unitHeart(),
                                                   unitSpade()};
    return paths.at(static_cast<std::size_t>(suit));
}

QFont glyphFont(bool serif) {
    QFont font;
    font.setFamilies(
        serif ? QStringList{"Liberation Serif", "Times New Roman", "Times", "DejaVu Serif", "serif"}
              : QStringList{"Liberation Sans", "Arial", "Helvetica", "DejaVu Sans", "sans-serif"});
    font.setStyleHint(serif ? QFont::Serif : QFont::SansSerif);
    font.setPixelSize(100);
    font.setWeight(QFont::Bold);
    return font;
}

// Outlines at 100 px, made once per text: faces are painted far more often than they vary.
const QPainterPath& rawGlyphs(const QString& text, bool serif) {
    static QHash<QString, QPainterPath> cache;
    const QString key = (serif ? QStringLiteral("s:") : QStringLiteral("n:")) + text;
    auto found = cache.find(key);
    if (found == cache.end()) {
        QPainterPath path;
        path.addText(0, 0, glyphFont(serif), text);
        found = cache.insert(key, path);
    }
    return *found;
}

}  // namespace

QPainterPath suitPath(Suit suit, const QRectF& box) {
    QTransform toBox;
    toBox.translate(box.left(), box.top());
    toBox.scale(box.width(), box.height());
    return toBox.map(unitSuit(suit));
}

void paintPip(QPainter& painter, Suit suit, const QRectF& box, bool upsideDown) {
    painter.save();
    if (upsideDown) {
        painter.translate(box.center());
        painter.rotate(180);
        painter.translate(-box.center());
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(suitColour(suit));
    painter.drawPath(suitPath(suit, box));
    painter.restore();
}

QPainterPath glyphPath(const QString& text, qreal centreX, qreal top, qreal height, qreal maxWidth,
                       bool serif) {
    const QPainterPath& raw = rawGlyphs(text, serif);
    const QRectF ink = raw.boundingRect();
    if (ink.isEmpty()) {
        return {};
    }
    const qreal scaleY = height / ink.height();
    const qreal scaleX = std::min(scaleY, maxWidth / ink.width());
    QTransform fit;
    fit.translate(centreX - ink.width() * scaleX / 2, top);
    fit.scale(scaleX, scaleY);
    fit.translate(-ink.left(), -ink.top());
    return fit.map(raw);
}

QString rankText(int rank) {
    static constexpr std::array<const char*, 13> kTexts{"A", "2", "3",  "4", "5", "6", "7",
                                                        "8", "9", "10", "J", "Q", "K"};
    if (rank < 1 || rank > 13) {
        return {};
    }
    return QString::fromLatin1(kTexts.at(static_cast<std::size_t>(rank - 1)));
}

QImage makeCanvas(QSize logical, qreal dpr, QColor fill) {
    const qreal ratio = dpr > 0 ? dpr : 1.0;
    QImage image(static_cast<int>(std::lround(logical.width() * ratio)),
                 static_cast<int>(std::lround(logical.height() * ratio)),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(fill);
    return image;
}

void prepare(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

}  // namespace platform::artwork::detail
