// Two cards fanned: the face-down pairs in front of the players and the face-up pairs.
#include "artwork/artwork_detail.h"
#include "artwork/cardface.h"

namespace platform::artwork::detail {
namespace {

QRectF centredOn(QSizeF size) {
    return {QPointF(-size.width() / 2, -size.height() / 2), size};
}

template <typename PaintCard>
QImage paintFan(QSize size, qreal dpr, const Fan& fan, QColor ground, PaintCard paintCard) {
    QImage image = makeCanvas(size, dpr, ground);
    QPainter painter(&image);
    prepare(painter);
    int index = 0;
    for (const QPointF& centre : {fan.first, fan.second}) {
        painter.save();
        painter.translate(centre);
        painter.rotate(index == 0 ? -fan.degrees : fan.degrees);
        paintCard(painter, centredOn(fan.card), index);
        painter.restore();
        ++index;
    }
    return image;
}

}  // namespace

QImage fanOfFaces(QSize size, qreal dpr, const Fan& fan, int firstDrawId, int secondDrawId,
                  QColor ground) {
    return paintFan(size, dpr, fan, ground, [&](QPainter& painter, const QRectF& card, int index) {
        platform::paintCardFace(painter, card, index == 0 ? firstDrawId : secondDrawId);
    });
}

QImage fanOfBacks(QSize size, qreal dpr, const Fan& fan) {
    return paintFan(
        size, dpr, fan, Qt::transparent,
        [](QPainter& painter, const QRectF& card, int) { platform::paintCardBack(painter, card); });
}

}  // namespace platform::artwork::detail
