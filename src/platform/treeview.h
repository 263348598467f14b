// The topic tree: entries with a text, an optional key and a place Index from 1.
// Selecting by program runs no click; a user's click, or a selection with the keyboard,
// runs NodeClick. It draws dotted lines from the top level down, keeps its selection marked
// when another control has the focus, folds and unfolds an entry on a double click, and
// shows every entry whole, scrolling sideways when one is wider than the tree.
#pragma once

#include <QTreeWidget>
#include <optional>

#include "platform/controls.h"

namespace platform {

class TreeView : public QTreeWidget, public TwipsGeometry {
    Q_OBJECT
  public:
    explicit TreeView(QWidget* parent, const QString& name);

    // Adds an entry at the top level, or as the last child of the entry `parentIndex`.
    // Gives the new entry's Index.
    int addNode(std::optional<int> parentIndex, const QString& key, const QString& text);
    int nodeCount() const { return static_cast<int>(nodes_.size()); }
    QTreeWidgetItem* node(int index) const;
    QString nodeText(int index) const;
    QString nodeKey(int index) const;
    void setExpanded(int index, bool expanded);
    // Selects by program: no click runs.
    void setSelected(int index);
    // The Index of the selected entry, 0 if none.
    int selectedIndex() const;
    bool isBold(int index) const;
    void setBold(int index, bool bold);
    void setIndentationTwips(double twips);

  signals:
    void NodeClick(int index);

  protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void drawBranches(QPainter* painter, const QRect& rect,
                      const QModelIndex& index) const override;

  private:
    void fitColumnToEntries();
    void onCurrentItemChanged(QTreeWidgetItem* current);
    int indexOf(const QTreeWidgetItem* item) const;

    std::vector<QTreeWidgetItem*> nodes_;  // owned by the tree widget
    bool keyboardNavigating_ = false;
};

}  // namespace platform
