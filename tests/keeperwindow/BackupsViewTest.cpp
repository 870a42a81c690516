#include "keeperwindow/BackupsView.h"
#include "support/Drawing.h"

#include <QAbstractItemDelegate>
#include <QCoreApplication>
#include <QPainter>
#include <QStyleOptionViewItem>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

class BackupsListed : public testing::Test {
protected:
    BackupsListed() {
        view.setFont(test::Drawing::font(10));
        view.show({{.time = makeDate(2026, 11, 22)}, {.time = makeDate(2026, 11, 21)}});
        view.onChosen = [this] { ++chosen; };
    }

    static BackupEntry readEntry() {
        return {.time = makeDate(2026, 11, 22),
                .size = 49'152,
                .summary = Summary{.counts = {.events = 2}},
                .trouble = "today's logbook cannot be read"};
    }
    std::string textOf(int row) const { return view.item(row)->text().toStdString(); }
    QStyleOptionViewItem optionFor(const QRect& place, QStyle::State state) const {
        QStyleOptionViewItem option;
        option.initFrom(&view);
        option.widget = &view;
        option.font = view.font();
        option.rect = place;
        option.state = state;
        option.palette.setColor(QPalette::Text, Qt::darkBlue);
        option.palette.setColor(QPalette::HighlightedText, Qt::white);
        return option;
    }
    /// The texts of a row as they are drawn, each with its looks and its place.
    std::vector<std::string> drawn(int row, const QRect& place, QStyle::State state) const {
        test::Drawing drawing;
        QPainter painter(&drawing);
        const QModelIndex index = view.model()->index(row, 0);
        view.itemDelegate()->paint(&painter, optionFor(place, state), index);
        painter.end();
        std::vector<std::string> texts;
        std::istringstream told(drawing.told());
        for (std::string line; std::getline(told, line);) {
            if (line.starts_with("text"))
                texts.push_back(line);
        }
        return texts;
    }
    int heightOf(int row) const {
        const QStyleOptionViewItem option = optionFor({}, {});
        return view.itemDelegate()->sizeHint(option, view.model()->index(row, 0)).height();
    }

    BackupsView view;
    int chosen = 0;
};

TEST_F(BackupsListed, TellMoreOnceTheyAreRead) {
    EXPECT_EQ(textOf(0), "Sunday, November 22, 2026, 12:00 AM");
    EXPECT_EQ(textOf(1), "Saturday, November 21, 2026, 12:00 AM");
    view.update(0, readEntry());
    EXPECT_EQ(
        textOf(0),
        "Sunday, November 22, 2026, 12:00 AM\n2 events \u00b7 49.2 kB\nToday's logbook cannot be read.");
    view.update(1, {.time = makeDate(2026, 11, 21), .size = 7, .trouble = "this backup is damaged"});
    EXPECT_EQ(textOf(1), "Saturday, November 21, 2026, 12:00 AM\n7 bytes\nThis backup is damaged.");
}

TEST_F(BackupsListed, AreChosenOneAtATime) {
    EXPECT_EQ(view.chosen(), nullptr);
    view.setCurrentRow(1);
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(view.chosen()->time, makeDate(2026, 11, 21));
    view.update(0, readEntry());
    EXPECT_EQ(chosen, 1) << "what was read is not the chosen one";
    view.update(1, {.time = makeDate(2026, 11, 21), .size = 7});
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(view.chosen()->size, 7U);
    view.show({});
    EXPECT_EQ(view.chosen(), nullptr);
    EXPECT_EQ(view.count(), 0);
}

TEST_F(BackupsListed, AreDrawnWithAHeading) {
    view.update(0, readEntry());
    const QRect place(100, 200, 500, 90);
    EXPECT_EQ(drawn(0, place, QStyle::State_Enabled),
              (std::vector<std::string>{
                  "text hard 10 points bold #000080: 108 220.1 \"Sunday, November 22, 2026, 12:00 AM\"",
                  "text hard 10 points #000080: 108 236.1 \"2 events \u00b7 49.2 kB\", 108 252.1 \"Today's "
                  "logbook cannot be read.\""}));
    EXPECT_TRUE(drawn(0, place, QStyle::State_Enabled | QStyle::State_Selected)
                    .front()
                    .starts_with("text hard 10 points bold #ffffff: 108 220.1 "));
}

TEST_F(BackupsListed, TakeTheRowsThatTheirTextsNeed) {
    view.resize(600, 400);
    view.QListWidget::show();
    const int line = view.fontMetrics().boundingRect(0, 0, 500, 0, Qt::TextWordWrap, "Sunday").height();
    EXPECT_EQ(heightOf(0), line + 16);
    QFont bold = view.font();
    bold.setBold(true);
    const int heading = QFontMetrics(bold).horizontalAdvance("Sunday, November 22, 2026, 12:00 AM");
    view.resize(heading + 8 + view.width() - view.viewport()->width(), 400);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(heightOf(0), 2 * line + 16) << "there is a margin on both sides";
    view.resize(600, 400);
    view.update(0, readEntry());
    EXPECT_EQ(heightOf(0), 3 * line + 16);
    view.resize(200, 400);
    QCoreApplication::sendPostedEvents();
    EXPECT_GT(heightOf(0), 3 * line + 16) << "a long line goes on below";
}

}  // namespace

}  // namespace tallybrook::keeper
