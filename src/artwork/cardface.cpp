// The card library: the natural card size, faces by draw id, a cache of rendered faces,
// and card names.
#include "artwork/cardface.h"

#include <array>
#include <map>
#include <tuple>

#include "artwork/artwork_detail.h"
#include "cards/cards.h"

namespace platform {
namespace {

namespace detail = artwork::detail;

// Below this width pip rows and court figures stop reading; the small face takes over.
constexpr qreal kSmallFaceWidth = 44;
constexpr QRgb kWhite = 0xFFFFFF;

using CacheKey = std::tuple<int, int, int, qint64>;

// The GUI thread alone paints, so a plain map is enough; it is emptied if it ever grows
// past what a program of fixed picture sizes could need.
std::map<CacheKey, QImage>& faceCache() {
    static std::map<CacheKey, QImage> cache;
    return cache;
}
constexpr std::size_t kCacheLimit = 1024;

void paintFace(QPainter& painter, const QRectF& target, int drawId, QColor face) {
    if (!detail::isValidDrawId(drawId)) {
        detail::paintPlaceholder(painter, target);
    } else if (target.width() < kSmallFaceWidth) {
        detail::paintSmallFace(painter, target, drawId, face);
    } else {
        detail::paintFullFace(painter, target, drawId, face);
    }
}

QImage renderFace(int drawId, QSize size, qreal dpr) {
    QImage image = detail::makeCanvas(size, dpr);
    QPainter painter(&image);
    detail::prepare(painter);
    paintFace(painter, QRectF(QPointF(0, 0), QSizeF(size)), drawId, QColor(kWhite));
    return image;
}

bool isPlainTranslation(const QPainter& painter) {
    return painter.worldTransform().type() <= QTransform::TxTranslate;
}

}  // namespace

void cdtInit(std::int32_t& width, std::int32_t& height) {
    width = detail::kCardWidth;
    height = detail::kCardHeight;
}

void cdtDraw(QPainter& surface, int x, int y, int card, int /*mode*/, QRgb colour) {
    const QRectF target(x, y, detail::kCardWidth, detail::kCardHeight);
    // The white face at plain offsets is the everyday case: reuse the rendered image.
    if ((colour & 0xFFFFFF) == kWhite && isPlainTranslation(surface)) {
        const qreal dpr = surface.device() ? surface.device()->devicePixelRatioF() : 1.0;
        surface.drawImage(target.topLeft(), cardFaceImage(card, target.size().toSize(), dpr));
        return;
    }
    surface.save();
    detail::prepare(surface);
    paintFace(surface, target, card, QColor(colour));
    surface.restore();
}

QImage cardFaceImage(int drawId, QSize size, qreal devicePixelRatio) {
    if (size.isEmpty()) {
        return {};
    }
    if (!detail::isValidDrawId(drawId)) {
        drawId = -1;
    }
    const CacheKey key{drawId, size.width(), size.height(), qRound64(devicePixelRatio * 1000.0)};
    auto& cache = faceCache();
    if (const auto found = cache.find(key); found != cache.end()) {
        return found->second;
    }
    if (cache.size() >= kCacheLimit) {
        cache.clear();
    }
    return cache.emplace(key, renderFace(drawId, size, devicePixelRatio)).first->second;
}

void paintCardFace(QPainter& painter, const QRectF& target, int drawId) {
    painter.save();
    detail::prepare(painter);
    paintFace(painter, target, drawId, QColor(kWhite));
    painter.restore();
}

QString cardName(int drawId) {
    if (!detail::isValidDrawId(drawId)) {
        return {};
    }
    return QString::fromStdString(cards::CardName(static_cast<std::int16_t>(drawId)));
}

}  // namespace platform
