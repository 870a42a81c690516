#include "desktop/FolderTreeView.h"

#include "desktop/Ground.h"
#include "desktop/QtText.h"
#include "desktop/SizedView.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <QTreeWidget>

namespace tallybrook {

namespace {

constexpr int kRowRole = Qt::UserRole;

class FolderTree : public SizedView<QTreeWidget> {
public:
    FolderTree(QWidget& parent, const ListOptions& options) : SizedView<QTreeWidget>(parent, options) {
        setHeaderLabel("Folder");  // is read aloud
        setHeaderHidden(true);
        header()->setStretchLastSection(false);
        header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        setUniformRowHeights(true);
        setAutoScroll(false);
        setIconSize(QSize(1, 1) * fontMetrics().height());
    }
    /// Sideways the beginning of its name comes into view, however deep the folder lies.
    void bringIntoView(const QModelIndex& item, ScrollHint hint) override {
        SizedView<QTreeWidget>::bringIntoView(item, hint);
        const int name = visualRect(item).left();
        if (name < 0 || name > viewport()->width() / 2)
            horizontalScrollBar()->setValue(horizontalScrollBar()->value() + name - 2 * indentation());
    }

protected:
    /// The folder picked is marked from edge to edge.
    void resizeEvent(QResizeEvent* event) override {
        header()->setMinimumSectionSize(event->size().width());
        SizedView<QTreeWidget>::resizeEvent(event);
    }
};

class FolderTreeView : public ControlView {
public:
    FolderTreeView(FolderList& list, QWidget& parent, ViewListener& listener)
        : ControlView(list), list_(list), listener_(listener), tree_(new FolderTree(parent, list.options())) {
        tree_->whenClicked = [this](const QModelIndex& index, QPoint place) { clicked(index, place); };
        tree_->whenDisturbed = [&listener] { listener.disturbed(); };
    }
    [[nodiscard]] QWidget& widget() const override { return *tree_; }
    [[nodiscard]] bool takesKey(const person::Key& key) const override { return isKeyOfRows(key); }

protected:
    void refreshContent() override {
        tree_->chooseBy([this] {
            showFolders();
            showChoice();
        });
        drawListGround(*tree_);
    }

private:
    /// What stands beside a folder's name opens it.
    void clicked(const QModelIndex& index, QPoint place) {
        const int row = index.data(kRowRole).toInt();
        if (place.x() < tree_->visualRect(index).left())
            listener_.toggledFolder(list_, row);
        else
            listener_.pickedFolder(list_, row);
    }

    void showFolders() {
        if (shown_ == list_.rows())
            return;
        shown_ = list_.rows();
        const int scrolled = tree_->verticalScrollBar()->value();
        build();
        tree_->doItemsLayout();
        tree_->verticalScrollBar()->setValue(scrolled);
    }

    void build() {
        const QIcon icon = tree_->style()->standardIcon(QStyle::SP_DirIcon);
        tree_->clear();
        std::vector<QTreeWidgetItem*> above{tree_->invisibleRootItem()};
        for (std::size_t row = 0; row < shown_.size(); ++row) {
            const FolderRow& folder = shown_[row];
            above.resize(static_cast<std::size_t>(folder.depth) + 1);
            if (folder.depth > 0)
                above.back()->setExpanded(true);
            above.push_back(new QTreeWidgetItem(above.back(), {toQt(folder.name())}));
            above.back()->setIcon(0, icon);
            above.back()->setData(0, kRowRole, static_cast<int>(row));
            above.back()->setChildIndicatorPolicy(folder.isEmpty
                                                      ? QTreeWidgetItem::DontShowIndicatorWhenChildless
                                                      : QTreeWidgetItem::ShowIndicator);
        }
    }

    /// The folder picked is selected, and the cursor stands where it is.
    void showChoice() {
        QItemSelectionModel& choice = *tree_->selectionModel();
        if (const QModelIndex cursor = folderIndex(*tree_, list_.cursor()); cursor != tree_->currentIndex()) {
            choice.setCurrentIndex(cursor, QItemSelectionModel::NoUpdate);
            follow(cursor);
        }
        const std::optional<int> picked = list_.rowOf(list_.path());
        choice.select(picked ? folderIndex(*tree_, *picked) : QModelIndex(),
                      QItemSelectionModel::ClearAndSelect);
    }

    /// What was clicked stays under the mouse; a folder picked from elsewhere comes with what is around it.
    void follow(const QModelIndex& cursor) const {
        const QRect place = tree_->visualRect(cursor);
        const bool isSeen = place.bottom() >= 0 && place.top() < tree_->viewport()->height();
        const bool isPicked = list_.rowOf(list_.path()) == list_.cursor();
        if (!isPicked || !isSeen)
            tree_->bringIntoView(
                cursor, isPicked ? QAbstractItemView::PositionAtCenter : QAbstractItemView::EnsureVisible);
    }

    FolderList& list_;
    ViewListener& listener_;
    FolderTree* tree_;
    std::vector<FolderRow> shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeFolderTreeView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<FolderTreeView>(static_cast<FolderList&>(control), parent, listener);
}

QModelIndex folderIndex(const QAbstractItemView& tree, int row) {
    const QAbstractItemModel& model = *tree.model();
    return model.match(model.index(0, 0), kRowRole, row, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

}  // namespace tallybrook
