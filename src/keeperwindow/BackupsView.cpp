#include "keeperwindow/BackupsView.h"

#include "keeperwindow/WindowTexts.h"

#include <QPainter>
#include <QStyledItemDelegate>

namespace tallybrook::keeper {

namespace {

// What an item holds besides its words: its lines of text, the first of which is the heading.
constexpr int kLines = Qt::UserRole;
constexpr int kInset = 8;  // between an item and its text

/// Draws a heading, and below it the other lines, which may take several rows.
class LinesDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem ground = option;
        initStyleOption(&ground, index);
        ground.text.clear();
        ground.widget->style()->drawControl(QStyle::CE_ItemViewItem, &ground, painter, ground.widget);
        const bool isSelected = (option.state & QStyle::State_Selected) != 0;
        painter->save();
        painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        QRect place = option.rect.adjusted(kInset, kInset, -kInset, -kInset);
        const QStringList lines = index.data(kLines).toStringList();
        for (const QString& line : lines) {
            painter->setFont(fontOf(option, &line == &lines.front()));
            QRect taken;
            painter->drawText(place, Qt::TextWordWrap, line, &taken);
            place.setTop(taken.bottom() + 1);
        }
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        const auto* const view = dynamic_cast<const QAbstractScrollArea*>(option.widget);
        const int width = view->viewport()->width() - 2 * kInset;
        int height = 2 * kInset;
        const QStringList lines = index.data(kLines).toStringList();
        for (const QString& line : lines)
            height += QFontMetrics(fontOf(option, &line == &lines.front()))
                          .boundingRect(0, 0, width, 0, Qt::TextWordWrap, line)
                          .height();
        return {view->viewport()->width(), height};
    }

private:
    static QFont fontOf(const QStyleOptionViewItem& option, bool isHeading) {
        QFont font = option.font;
        font.setBold(isHeading);
        return font;
    }
};

QStringList linesOf(const BackupEntry& entry) {
    if (!entry.summary && entry.trouble.empty())
        return {momentText(entry.time)};
    return {momentText(entry.time), contentsText(entry), sentence(entry.inWords())};
}

}  // namespace

BackupsView::BackupsView() {
    setItemDelegate(new LinesDelegate(this));
    setResizeMode(Adjust);
    setVerticalScrollMode(ScrollPerPixel);
    setAccessibleName("Backups");
    connect(this, &QListWidget::currentRowChanged, this, [this] {
        if (onChosen)
            onChosen();
    });
}

void BackupsView::show(const std::vector<BackupEntry>& entries) {
    entries_ = entries;
    clear();
    for (std::size_t place = 0; place < entries.size(); ++place) {
        addItem(new QListWidgetItem);
        update(place, entries[place]);
    }
}

void BackupsView::update(std::size_t place, const BackupEntry& entry) {
    entries_[place] = entry;
    QListWidgetItem& shownItem = *item(static_cast<int>(place));
    shownItem.setData(kLines, linesOf(entry));
    shownItem.setText(linesOf(entry).join("\n"));  // to be read aloud
    if (currentRow() == static_cast<int>(place) && onChosen)
        onChosen();
}

const BackupEntry* BackupsView::chosen() const {
    return currentRow() < 0 ? nullptr : &entries_[static_cast<std::size_t>(currentRow())];
}

QSize BackupsView::viewportSizeHint() const {
    return {fontMetrics().averageCharWidth() * 48, fontMetrics().height() * 20};
}

}  // namespace tallybrook::keeper
