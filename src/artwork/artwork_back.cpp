// The card back: a deep blue panel with a fine lattice inside a white border, and a small
// medallion where the card is large enough to carry one.
#include <algorithm>
#include <cmath>

#include "artwork/artwork_detail.h"
#include "artwork/cardface.h"

namespace platform {
namespace {

namespace detail = artwork::detail;

const QColor kBackLight(0x244A9E);
const QColor kBackDark(0x132B6B);
const QColor kLattice(0x7E9CE0);

void paintLattice(QPainter& painter, const QRectF& panel, qreal spacing, qreal lineWidth) {
    QColor line = kLattice;
    line.setAlpha(150);
    painter.setPen(QPen(line, lineWidth));
    const qreal span = panel.width() + panel.height();
    for (qreal offset = -panel.height(); offset < span; offset += spacing) {
        const qreal x = panel.left() + offset;
        painter.drawLine(QPointF(x, panel.top()), QPointF(x + panel.height(), panel.bottom()));
        painter.drawLine(QPointF(x, panel.bottom()), QPointF(x + panel.height(), panel.top()));
    }
}

void paintMedallion(QPainter& painter, const QRectF& panel) {
    const QPointF centre = panel.center();
    const qreal rx = panel.width() * 0.26;
    const qreal ry = panel.height() * 0.17;
    painter.setPen(QPen(QColor(detail::kGold), std::max(0.6, panel.width() * 0.014)));
    painter.setBrush(kBackDark);
    painter.drawEllipse(centre, rx, ry);
    const qreal pip = ry * 1.05;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPath(
        detail::suitPath(detail::Suit::spades,
                         QRectF(centre.x() - pip * 0.45, centre.y() - pip * 0.5, pip * 0.9, pip)));
}

}  // namespace

void paintCardBack(QPainter& painter, const QRectF& target) {
    painter.save();
    detail::prepare(painter);
    detail::paintCardBody(painter, target, Qt::white);

    const qreal w = target.width();
    const qreal margin = std::max(1.5, w * 0.075);
    const QRectF panel = target.adjusted(margin, margin, -margin, -margin);
    const qreal radius = std::max(1.0, w * 0.035);
    QPainterPath panelPath;
    panelPath.addRoundedRect(panel, radius, radius);

    QLinearGradient shade(panel.topLeft(), panel.bottomRight());
    shade.setColorAt(0, kBackLight);
    shade.setColorAt(1, kBackDark);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawPath(panelPath);

    painter.save();
    painter.setClipPath(panelPath);
    paintLattice(painter, panel, std::max(2.4, w * 0.075), std::max(0.45, w * 0.009));
    painter.restore();

    if (w >= 20) {
        const qreal inset = std::max(1.2, w * 0.03);
        QColor frame(Qt::white);
        frame.setAlpha(190);
        painter.setPen(QPen(frame, std::max(0.5, w * 0.009)));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(panel.adjusted(inset, inset, -inset, -inset), radius, radius);
    }
    if (w >= 40) {
        paintMedallion(painter, panel);
    }
    painter.restore();
}

}  // namespace platform
