#include "platform/treeview.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

namespace platform {

namespace {
constexpr int kKeyRole = Qt::UserRole + 1;
constexpr int kExpanderHalf = 4;  // the plus/minus box is 9 pixels across

bool hasNextSibling(const QModelIndex& index) {
    return index.sibling(index.row() + 1, 0).isValid();
}

void drawExpander(QPainter& painter, const QPoint& centre, bool expanded, const QPalette& pal) {
    const QRect box(centre.x() - kExpanderHalf, centre.y() - kExpanderHalf, 2 * kExpanderHalf,
                    2 * kExpanderHalf);
    painter.setPen(QPen(pal.color(QPalette::Dark), 1));
    painter.setBrush(pal.color(QPalette::Base));
    painter.drawRect(box);
    painter.setPen(QPen(pal.color(QPalette::Text), 1));
    painter.drawLine(centre.x() - 2, centre.y(), centre.x() + 2, centre.y());
    if (!expanded)
        painter.drawLine(centre.x(), centre.y() - 2, centre.x(), centre.y() + 2);
}
}  // namespace

TreeView::TreeView(QWidget* parent, const QString& name)
    : QTreeWidget(parent), TwipsGeometry(this) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("Topics"));
    setHeaderHidden(true);
    setColumnCount(1);
    setRootIsDecorated(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setExpandsOnDoubleClick(true);
    // Every entry whole: the column takes the widest entry shown and the tree scrolls
    // sideways. The entries are measured when the tree shows and when a branch opens or
    // closes, not at each change made while it is filled and marked unseen (a tenth of the
    // start-up, measured).
    setTextElideMode(Qt::ElideNone);
    header()->setStretchLastSection(false);
    const auto refit = [this] {
        if (isVisible())
            fitColumnToEntries();
    };
    connect(this, &QTreeWidget::itemExpanded, this, refit);
    connect(this, &QTreeWidget::itemCollapsed, this, refit);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // The selection stays marked, in grey, while another control has the focus.
    QPalette pal = palette();
    pal.setColor(QPalette::Inactive, QPalette::Highlight, colorFromRgb(0xC0C0C0));
    pal.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
    setPalette(pal);
    connect(this, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { emit NodeClick(indexOf(item)); });
    connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        // Enter on an entry repeats its action, as a second click does.
        if (keyboardNavigating_)
            emit NodeClick(indexOf(item));
    });
    connect(this, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* current) { onCurrentItemChanged(current); });
}

int TreeView::addNode(std::optional<int> parentIndex, const QString& key, const QString& text) {
    QTreeWidgetItem* item = nullptr;
    if (parentIndex) {
        item = new QTreeWidgetItem(node(*parentIndex));
    } else {
        item = new QTreeWidgetItem(this);
    }
    item->setText(0, text);
    item->setData(0, kKeyRole, key);
    nodes_.push_back(item);
    if (isVisible())
        fitColumnToEntries();
    return nodeCount();
}

QTreeWidgetItem* TreeView::node(int index) const {
    if (index < 1 || index > nodeCount())
        return nullptr;
    return nodes_[static_cast<std::size_t>(index - 1)];
}

QString TreeView::nodeText(int index) const {
    const auto* item = node(index);
    return item ? item->text(0) : QString();
}

QString TreeView::nodeKey(int index) const {
    const auto* item = node(index);
    return item ? item->data(0, kKeyRole).toString() : QString();
}

void TreeView::setExpanded(int index, bool expanded) {
    if (auto* item = node(index))
        item->setExpanded(expanded);
}

void TreeView::setSelected(int index) {
    auto* item = node(index);
    if (!item)
        return;
    const QSignalBlocker blocker(this);
    setCurrentItem(item);
    item->setSelected(true);
}

int TreeView::selectedIndex() const {
    const auto selected = selectedItems();
    return selected.isEmpty() ? 0 : indexOf(selected.front());
}

bool TreeView::isBold(int index) const {
    const auto* item = node(index);
    return item && item->font(0).bold();
}

void TreeView::setBold(int index, bool bold) {
    auto* item = node(index);
    if (!item)
        return;
    QFont font = item->font(0);
    font.setBold(bold);
    item->setFont(0, font);
    if (isVisible())
        fitColumnToEntries();
}

void TreeView::setIndentationTwips(double twips) {
    setIndentation(static_cast<int>(std::nearbyint(twips / kTwipsPerPixel)));
}

void TreeView::showEvent(QShowEvent* event) {
    // Measured before the first paint, so that it already has the column's width and the
    // sideways scroll bar it calls for.
    fitColumnToEntries();
    QTreeWidget::showEvent(event);
}

void TreeView::fitColumnToEntries() {
    resizeColumnToContents(0);
    updateGeometries();
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    keyboardNavigating_ = true;
    QTreeWidget::keyPressEvent(event);
    keyboardNavigating_ = false;
}

// Dotted lines join each entry to its parent and its next sibling, top-level entries
// included; an entry with children has a plus or minus box where its line meets the row.
void TreeView::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    const int indent = indentation();
    const int middleY = rect.center().y();
    const int ownLeft = rect.right() + 1 - indent;
    const int ownX = ownLeft + indent / 2;
    painter->save();
    painter->fillRect(rect, palette().brush(QPalette::Base));
    painter->setPen(QPen(palette().color(QPalette::Dark), 1, Qt::DotLine));
    const bool firstOfAll = index.row() == 0 && !index.parent().isValid();
    painter->drawLine(ownX, firstOfAll ? middleY : rect.top(), ownX,
                      hasNextSibling(index) ? rect.bottom() : middleY);
    painter->drawLine(ownX, middleY, ownLeft + indent - 2, middleY);
    int ancestorX = ownX - indent;
    for (QModelIndex ancestor = index.parent(); ancestor.isValid(); ancestor = ancestor.parent()) {
        if (hasNextSibling(ancestor))
            painter->drawLine(ancestorX, rect.top(), ancestorX, rect.bottom());
        ancestorX -= indent;
    }
    if (model()->hasChildren(index))
        drawExpander(*painter, QPoint(ownX, middleY), isExpanded(index), palette());
    painter->restore();
}

void TreeView::onCurrentItemChanged(QTreeWidgetItem* current) {
    if (keyboardNavigating_ && current)
        emit NodeClick(indexOf(current));
}

int TreeView::indexOf(const QTreeWidgetItem* item) const {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        if (nodes_[i] == item)
            return static_cast<int>(i + 1);
    }
    return 0;
}

}  // namespace platform
