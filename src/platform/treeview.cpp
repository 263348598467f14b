#include "platform/treeview.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace platform {

namespace {
constexpr int kKeyRole = Qt::UserRole + 1;
}

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
    setExpandsOnDoubleClick(false);
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
}

void TreeView::setIndentationTwips(double twips) {
    setIndentation(static_cast<int>(std::nearbyint(twips / kTwipsPerPixel)));
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    keyboardNavigating_ = true;
    QTreeWidget::keyPressEvent(event);
    keyboardNavigating_ = false;
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
