#include "desktop/GridView.h"

#include "controls/Screen.h"
#include "desktop/Ground.h"
#include "desktop/QtText.h"
#include "desktop/Spoken.h"
#include "desktop/StillView.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <string>

namespace tallybrook {

namespace {

/// The rows of a grid. What a cell holds is asked for when it is drawn.
class GridModel : public QAbstractTableModel {
public:
    GridModel(const Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(&grid) {}

    /// Takes over how many rows there are by now.
    void refresh() {
        if (const int rows = grid_->rowCount(); rows != rows_) {
            beginResetModel();
            rows_ = rows;
            endResetModel();
        }
    }
    /// The grid is going away, and must not be asked any more.
    void letGo() { grid_ = nullptr; }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : rows_;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() || grid_ == nullptr ? 0 : static_cast<int>(grid_->columns().size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (grid_ == nullptr)
            return {};
        if (role == Qt::DisplayRole)
            return inOneLine(grid_->cell(index.row() + 1, index.column()));
        if (role == Qt::EditRole)
            return inOneLine(grid_->cell(index.row() + 1, index.column()), std::string::npos);
        return role == Qt::TextAlignmentRole ? alignment(index.row() + 1, index.column()) : QVariant();
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (grid_ == nullptr || orientation == Qt::Vertical)
            return {};
        if (role == Qt::DisplayRole)
            return toQt(grid_->columns()[static_cast<std::size_t>(section)].caption);
        return role == Qt::TextAlignmentRole ? alignment(1, section) : QVariant();
    }

private:
    [[nodiscard]] QVariant alignment(int row, int column) const {
        return static_cast<int>(Qt::AlignVCenter |
                                (grid_->isNumber(row, column) ? Qt::AlignRight : Qt::AlignLeft));
    }

    const Grid* grid_;
    int rows_ = 0;
};

/// Draws the current row as a whole, without a mark on one of its cells.
class WholeRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_HasFocus, false);
    }
};

int sum(const std::vector<int>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0);
}

class GridTable : public StillView<QTableView> {
public:
    GridTable(QWidget* parent, std::vector<GridColumn> columns)
        : StillView<QTableView>(parent), columns_(std::move(columns)) {
        setEditTriggers(NoEditTriggers);
        setSelectionMode(SingleSelection);
        setSelectionBehavior(SelectRows);
        setAlternatingRowColors(true);
        setShowGrid(false);
        setWordWrap(false);
        setCornerButtonEnabled(false);
        setHorizontalScrollMode(ScrollPerPixel);
        setAutoScroll(false);
        setItemDelegate(new WholeRow(this));
        verticalHeader()->hide();
        verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        horizontalHeader()->setHighlightSections(false);
        horizontalHeader()->setSectionsClickable(false);
        connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { noteArranged(); });
    }

    /// Called with the widths of the columns when the user has changed one.
    std::function<void(const QList<int>& widths)> whenArranged = [](const QList<int>&) {};

    /// Gives the columns the widths that the user has given them before; nothing where these are not as many.
    void arrange(const QList<int>& widths) {
        if (widths.size() != static_cast<qsizetype>(columns_.size()))
            return;
        isArranged_ = true;
        isSharing_ = true;
        for (int column = 0; column < static_cast<int>(widths.size()); ++column)
            horizontalHeader()->resizeSection(column, widths[column]);
        isSharing_ = false;
    }

    /// Makes rows and columns fit their texts in the font that there is by now.
    void fit() {
        constexpr int kRoom = 12;       // pixels beside and between the texts
        constexpr double kLeast = 0.6;  // of what a column wants
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRoom / 2);
        wanted_.clear();
        least_.clear();
        longest_.clear();
        for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
            const GridColumn& told = columns_[static_cast<std::size_t>(column)];
            const int header = horizontalHeader()->sectionSizeHint(column);
            const int wanted = std::max(fontMetrics().averageCharWidth() * told.width + kRoom, header);
            wanted_.push_back(wanted);
            longest_.push_back(std::max(fontMetrics().averageCharWidth() * told.longest + kRoom, wanted));
            least_.push_back(std::max(static_cast<int>(kLeast * wanted), header));
        }
        shareRoom();
    }

    /// Selects a row, from 0; -1 for none. It comes into view if it was not selected before.
    void showRow(int row) {
        if (row < 0)
            return clearSelection();
        const QModelIndex index = model()->index(row, 0);
        if (selectionModel()->isSelected(index))
            return;
        selectionModel()->setCurrentIndex(index,
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        bringIntoView(index, EnsureVisible);
    }

    [[nodiscard]] QSize sizeHint() const override { return sizeOf(sum(wanted_), 12); }
    [[nodiscard]] QSize minimumSizeHint() const override {
        return sizeOf(fontMetrics().averageCharWidth() * 30, 4);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right)
            return StillView<QTableView>::keyPressEvent(event);
        horizontalScrollBar()->triggerAction(event->key() == Qt::Key_Left
                                                 ? QAbstractSlider::SliderSingleStepSub
                                                 : QAbstractSlider::SliderSingleStepAdd);
    }
    void changeEvent(QEvent* event) override {
        StillView<QTableView>::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
            fit();
    }
    void resizeEvent(QResizeEvent* event) override {
        StillView<QTableView>::resizeEvent(event);
        shareRoom();
    }

private:
    void noteArranged() {
        if (isSharing_)
            return;
        isArranged_ = true;
        QList<int> widths;
        for (int column = 0; column < horizontalHeader()->count(); ++column)
            widths << columnWidth(column);
        whenArranged(widths);
    }

    /// Columns that the user has made wider or narrower are left alone.
    void shareRoom() {
        if (isArranged_)
            return;
        const int missing = sum(wanted_) - viewport()->width();
        const std::vector<int> widths = missing > 0 ? narrowedBy(missing) : widenedBy(-missing);
        isSharing_ = true;
        for (std::size_t column = 0; column < widths.size(); ++column)
            horizontalHeader()->resizeSection(static_cast<int>(column), widths[column]);
        isSharing_ = false;
    }

    /// What each column wants; the wide ones go without some of it, but for their headers, unless the grid
    /// must be scrolled all the same.
    [[nodiscard]] std::vector<int> narrowedBy(int missing) const {
        const int spare = sum(wanted_) - sum(least_);
        const double share = missing <= spare ? static_cast<double>(missing) / spare : 0;
        std::vector<int> widths = wanted_;
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] -= static_cast<int>(std::ceil(share * (wanted_[column] - least_[column])));
        return widths;
    }

    /// What each column wants, and more: half of what is left goes to those that can do with it, the rest to
    /// those that take it all.
    [[nodiscard]] std::vector<int> widenedBy(int left) const {
        std::vector<int> widths = wanted_;
        const int lacking = sum(longest_) - sum(wanted_);
        const double share = std::min(left / 2.0 / std::max(lacking, 1), 1.0);
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] += static_cast<int>(share * (longest_[column] - wanted_[column]));
        const int rest = left - (sum(widths) - sum(wanted_));
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] += columns_[column].takesRoom ? rest : 0;
        return widths;
    }

    [[nodiscard]] QSize sizeOf(int width, int lines) const {
        const QSize bars(verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height());
        return QSize(width, horizontalHeader()->sizeHint().height() +
                                lines * verticalHeader()->defaultSectionSize()) +
               bars + QSize(2, 2) * frameWidth();
    }

    std::vector<GridColumn> columns_;
    std::vector<int> wanted_;   // the widths of the columns
    std::vector<int> least_;    // and what they come down to where there is no room
    std::vector<int> longest_;  // and can do with where there is more
    bool isSharing_ = false;
    bool isArranged_ = false;  // whether the user has changed the widths
};

class GridView : public ControlView {
public:
    GridView(Grid& grid, QWidget& parent, ViewListener& listener)
        : ControlView(grid),
          grid_(grid),
          outer_(new QWidget(&parent)),
          title_(new QLabel(outer_)),
          table_(new GridTable(outer_, grid.columns())),
          model_(new GridModel(grid, table_)) {
        QFont font = title_->font();
        font.setWeight(QFont::DemiBold);
        title_->setFont(font);
        title_->setTextFormat(Qt::PlainText);
        title_->setBuddy(table_);
        auto* const layout = new QVBoxLayout(outer_);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(title_);
        layout->addWidget(table_, 1);
        table_->setModel(model_);
        table_->fit();
        const QString name = toQt(grid.screen().name() + "." + grid.name());
        table_->arrange(listener.memory().columnsOf(name));
        table_->whenArranged = [name, &listener](const QList<int>& widths) {
            listener.memory().keepColumns(name, widths);
        };
        table_->whenDisturbed = [&listener] { listener.disturbed(); };
        table_->whenActivated = [&grid, &listener] { listener.activated(grid); };
        table_->whenClicked = [&grid, &listener](const QModelIndex& index, QPoint) {
            listener.clickedRow(grid, index.row() + 1);
        };
    }
    ~GridView() override { model_->letGo(); }
    GridView(const GridView&) = delete;
    GridView& operator=(const GridView&) = delete;

    [[nodiscard]] QWidget& widget() const override { return *table_; }
    [[nodiscard]] QWidget& outerWidget() const override { return *outer_; }
    [[nodiscard]] bool takesKey(const person::Key& key) const override {
        const bool isSideways = key.name == "Left" || key.name == "Right";
        return isKeyOfRows(key) || (!key.alt && isSideways);
    }

protected:
    void refreshContent() override {
        title_->setText(spoken(grid_.caption()));
        title_->setVisible(!grid_.caption().empty());
        tellName(*table_, spoken(grid_.caption()));
        table_->chooseBy([this] {
            model_->refresh();
            table_->showRow(grid_.currentRow() - 1);
        });
        table_->viewport()->update();  // the same number of rows may be other rows
        table_->horizontalHeader()->viewport()->update();
        drawListGround(*table_);
    }

private:
    Grid& grid_;
    QWidget* outer_;
    QLabel* title_;
    GridTable* table_;
    GridModel* model_;
};

}  // namespace

std::unique_ptr<ControlView> makeGridView(Control& control, QWidget& parent, ViewListener& listener) {
    return std::make_unique<GridView>(static_cast<Grid&>(control), parent, listener);
}

}  // namespace tallybrook
