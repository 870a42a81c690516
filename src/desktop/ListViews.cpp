#include "desktop/ListViews.h"

#include "desktop/Ground.h"
#include "desktop/QtText.h"
#include "desktop/StillView.h"

#include <QComboBox>
#include <QHeaderView>
#include <QListView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QTreeWidget>
#include <QWheelEvent>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr int kUsualWidth = 20;  // in characters, where a list does not say
constexpr int kFewestLines = 3;  // that a list is squeezed to
constexpr int kRowRole = Qt::UserRole;

QStringList textsOf(const std::vector<std::string>& texts) {
    QStringList shown;
    std::ranges::transform(texts, std::back_inserter(shown),
                           [](const std::string& text) { return toQt(text); });
    return shown;
}

// --- Lists that open ---------------------------------------------------------------------------------------

class ListCombo : public QComboBox {
public:
    ListCombo(QWidget& parent, const ListOptions& options)
        : QComboBox(&parent), characters_(options.width == 0 ? kUsualWidth : options.width) {
        setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }
    [[nodiscard]] QSize sizeHint() const override { return sizeOf(characters_); }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeOf(std::min(characters_, 10)); }
    void showPopup() override {
        view()->setMinimumWidth(view()->sizeHintForColumn(0) +
                                view()->verticalScrollBar()->sizeHint().width());
        QComboBox::showPopup();
    }

protected:
    /// A wheel that is turned over the closed list scrolls the window.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    [[nodiscard]] QSize sizeOf(int characters) const {
        const int height = QComboBox::sizeHint().height();
        return {fontMetrics().averageCharWidth() * characters + 2 * height, height};
    }

    int characters_;
};

class ComboView : public ControlView {
public:
    ComboView(ItemList& list, QWidget& parent, ViewListener& listener)
        : ControlView(list), list_(list), combo_(new ListCombo(parent, list.options())) {
        QObject::connect(combo_, &QComboBox::activated, combo_,
                         [&list, &listener](int index) { listener.picked(list, index); });
    }
    [[nodiscard]] QWidget& widget() const override { return *combo_; }
    /// The keys that open it.
    [[nodiscard]] bool takesKey(const person::Key& key) const override {
        return key.alt ? key.name == "Down" : key.name == "F4" || key.name == "Space";
    }

protected:
    void refreshContent() override {
        const QSignalBlocker quiet(combo_);
        if (shown_ != list_.items()) {
            shown_ = list_.items();
            combo_->clear();
            combo_->addItems(textsOf(shown_));
        }
        combo_->setCurrentIndex(list_.pickedIndex().value_or(-1));
    }

private:
    ItemList& list_;
    ListCombo* combo_;
    std::vector<std::string> shown_;
};

// --- Lists that are open -----------------------------------------------------------------------------------

/// A view as large as its list asks for.
template <typename View>
class SizedView : public StillView<View> {
public:
    SizedView(QWidget& parent, const ListOptions& options)
        : StillView<View>(&parent), size_(options.width == 0 ? kUsualWidth : options.width, options.lines) {
        this->setEditTriggers(QAbstractItemView::NoEditTriggers);
        this->setSelectionMode(QAbstractItemView::SingleSelection);
        this->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    }
    [[nodiscard]] QSize sizeHint() const override { return sizeOf(size_.width(), size_.height()); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return sizeOf(kUsualWidth, std::min(size_.height(), kFewestLines));
    }

private:
    [[nodiscard]] QSize sizeOf(int characters, int lines) const {
        constexpr int kRoom = 5;  // pixels around the text of a line
        const int line = std::max(this->sizeHintForRow(0), this->fontMetrics().lineSpacing() + kRoom);
        return QSize(this->fontMetrics().averageCharWidth() * characters, line * lines) +
               QSize(2, 2) * this->frameWidth();
    }

    QSize size_;  // in characters and lines
};

class ListBoxView : public ControlView {
public:
    ListBoxView(ItemList& list, QWidget& parent, ViewListener& listener)
        : ControlView(list),
          list_(list),
          view_(new SizedView<QListView>(parent, list.options())),
          model_(new QStringListModel(view_)) {
        view_->setModel(model_);
        view_->setUniformItemSizes(true);
        view_->whenClicked = [&list, &listener](const QModelIndex& index, QPoint) {
            listener.picked(list, index.row());
        };
    }
    [[nodiscard]] QWidget& widget() const override { return *view_; }

protected:
    void refreshContent() override {
        if (shown_ != list_.items()) {
            shown_ = list_.items();
            model_->setStringList(textsOf(shown_));
        }
        const std::optional<int> picked = list_.pickedIndex();
        if (!picked)
            view_->clearSelection();
        else if (const QModelIndex index = model_->index(*picked);
                 !view_->selectionModel()->isSelected(index))
            view_->setCurrentIndex(index);
        drawListGround(*view_);
    }

private:
    ItemList& list_;
    SizedView<QListView>* view_;
    QStringListModel* model_;
    std::vector<std::string> shown_;
};

// --- The tree of folders -----------------------------------------------------------------------------------

class FolderTreeView : public ControlView {
public:
    FolderTreeView(FolderList& list, QWidget& parent, ViewListener& listener)
        : ControlView(list),
          list_(list),
          listener_(listener),
          tree_(new SizedView<QTreeWidget>(parent, list.options())) {
        tree_->setHeaderHidden(true);
        tree_->header()->setStretchLastSection(false);
        tree_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        tree_->setUniformRowHeights(true);
        tree_->whenClicked = [this](const QModelIndex& index, QPoint place) { clicked(index, place); };
    }
    [[nodiscard]] QWidget& widget() const override { return *tree_; }

protected:
    void refreshContent() override {
        if (shown_ != list_.rows()) {
            shown_ = list_.rows();
            const int scrolled = tree_->verticalScrollBar()->value();
            build();
            tree_->doItemsLayout();
            tree_->verticalScrollBar()->setValue(scrolled);
        }
        showChoice();
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
            bringIntoView(cursor);
        }
        const std::optional<int> picked = list_.rowOf(list_.path());
        choice.select(picked ? folderIndex(*tree_, *picked) : QModelIndex(),
                      QItemSelectionModel::ClearAndSelect);
    }

    /// A folder picked from elsewhere comes with what is around it.
    void bringIntoView(const QModelIndex& folder) {
        const bool isSeen = tree_->viewport()->rect().contains(tree_->visualRect(folder).center());
        const bool isPicked = list_.rowOf(list_.path()) == list_.cursor();
        tree_->scrollTo(folder, isPicked && !isSeen ? QAbstractItemView::PositionAtCenter
                                                    : QAbstractItemView::EnsureVisible);
    }

    FolderList& list_;
    ViewListener& listener_;
    SizedView<QTreeWidget>* tree_;
    std::vector<FolderRow> shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeComboView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<ComboView>(static_cast<ItemList&>(control), parent, listener);
}

std::unique_ptr<ControlView> makeListBoxView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<ListBoxView>(static_cast<ItemList&>(control), parent, listener);
}

std::unique_ptr<ControlView> makeFolderTreeView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<FolderTreeView>(static_cast<FolderList&>(control), parent, listener);
}

QModelIndex folderIndex(const QAbstractItemView& tree, int row) {
    const QAbstractItemModel& model = *tree.model();
    return model.match(model.index(0, 0), kRowRole, row, 1, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

}  // namespace tallybrook
