#include "desktop/ListViews.h"

#include "desktop/Ground.h"
#include "desktop/QtText.h"
#include "desktop/SizedView.h"
#include "desktop/Spoken.h"

#include <QComboBox>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QWheelEvent>
#include <algorithm>
#include <functional>

namespace tallybrook {

namespace {

QStringList textsOf(const std::vector<std::string>& texts) {
    QStringList shown;
    std::ranges::transform(texts, std::back_inserter(shown),
                           [](const std::string& text) { return inOneLine(text); });
    return shown;
}

// --- Lists that open ---------------------------------------------------------------------------------------

class ListCombo : public QComboBox {
public:
    ListCombo(QWidget& parent, const ListOptions& options)
        : QComboBox(&parent), characters_(widthOf(options)) {
        setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(
            view()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { takeChoice(); },
            Qt::QueuedConnection);
    }

    /// Called with the position of an item that was chosen by assistive technology, be the list open or not.
    std::function<void(int index)> whenChosen;

    [[nodiscard]] QSize sizeHint() const override { return sizeOf(characters_); }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeOf(std::min(characters_, 10)); }
    void showPopup() override {
        const int wanted = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
        view()->setMinimumWidth(std::min(wanted, screen()->availableSize().width() * 9 / 10));
        tellName(*view(), accessibleName());  // it has the focus as long as it is open
        QComboBox::showPopup();
    }

protected:
    /// A wheel that is turned over the closed list scrolls the window.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    /// Mouse and keys lead the current item along, which what is chosen from outside does not.
    void takeChoice() {
        const QModelIndex chosen = view()->selectionModel()->selectedIndexes().value(0);
        if (!chosen.isValid() || chosen == view()->currentIndex())
            return;
        view()->clearSelection();
        hidePopup();
        whenChosen(chosen.row());
    }

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
        combo_->whenChosen = [&list, &listener](int index) { listener.picked(list, index); };
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
        view_->whenDisturbed = [&listener] { listener.disturbed(); };
        view_->whenActivated = [&list, &listener] { listener.activated(list); };
    }
    [[nodiscard]] QWidget& widget() const override { return *view_; }
    [[nodiscard]] bool takesKey(const person::Key& key) const override { return isKeyOfRows(key); }

protected:
    void refreshContent() override {
        view_->chooseBy([this] {
            showItems();
            showChoice();
        });
        drawListGround(*view_);
    }

private:
    void showItems() {
        if (shown_ == list_.items())
            return;
        shown_ = list_.items();
        model_->setStringList(textsOf(shown_));
    }
    void showChoice() {
        const std::optional<int> picked = list_.pickedIndex();
        if (!picked)
            view_->clearSelection();
        else if (const QModelIndex index = model_->index(*picked);
                 !view_->selectionModel()->isSelected(index))
            view_->setCurrentIndex(index);
    }

    ItemList& list_;
    SizedView<QListView>* view_;
    QStringListModel* model_;
    std::vector<std::string> shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeComboView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<ComboView>(static_cast<ItemList&>(control), parent, listener);
}

std::unique_ptr<ControlView> makeListBoxView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<ListBoxView>(static_cast<ItemList&>(control), parent, listener);
}

}  // namespace tallybrook
