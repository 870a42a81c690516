#include "keeperwindow/ArchiveDialog.h"

#include <QPushButton>
#include <QTreeWidget>
#include <map>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

class AskedForEvents : public testing::Test {
protected:
    /// Three events, of which the second is not in the logbook.
    static ArchiveContents contents() {
        return {
            .counts = {.events = 3, .games = 9},
            .events = {{.key = 4, .name = "Monday", .date = "11/2/2026", .center = "Lanes", .present = 1},
                       {.key = 5, .name = "Tuesday"},
                       {.key = 7, .name = "Friday", .date = "11/6/2026", .center = "Bowl", .present = 9}}};
    }

    void press(const QString& caption) {
        for (QPushButton* const each : dialog.findChildren<QPushButton*>()) {
            if (each->text() == caption)
                return each->click();
        }
        ADD_FAILURE() << "no button " << caption.toStdString();
    }
    QTreeWidget& list() { return *dialog.findChild<QTreeWidget*>(); }
    void select(const std::vector<int>& rows) {
        list().clearSelection();
        for (const int row : rows)
            list().topLevelItem(row)->setSelected(true);
    }
    QStringList told() { return {list().topLevelItem(0)->text(3), list().topLevelItem(1)->text(3)}; }

    ArchiveDialog dialog{contents(), nullptr};
};

using Chosen = std::map<std::int64_t, Same>;

TEST_F(AskedForEvents, AreKeptUnlessSomethingElseIsChosen) {
    EXPECT_EQ(list().topLevelItemCount(), 2);
    EXPECT_EQ(list().topLevelItem(1)->text(0), "Friday");
    EXPECT_EQ(list().topLevelItem(1)->text(1), "11/6/2026");
    EXPECT_EQ(list().topLevelItem(1)->text(2), "Bowl");
    EXPECT_EQ(told(), (QStringList{"the logbook's stays", "the logbook's stays"}));
    EXPECT_EQ(dialog.choices().ofEvents, (Chosen{{4, Same::Keep}, {7, Same::Keep}}));
    EXPECT_EQ(dialog.choices().usual, Same::Keep);
}

TEST_F(AskedForEvents, AreAllChosenAtFirst) {
    press("&Take the Archive's");
    EXPECT_EQ(told(), (QStringList{"the archive's takes its place", "the archive's takes its place"}));
    EXPECT_EQ(dialog.choices().ofEvents, (Chosen{{4, Same::Take}, {7, Same::Take}}));
}

TEST_F(AskedForEvents, EachGoesItsOwnWay) {
    select({1});
    press("Keep &Both");
    EXPECT_EQ(told(), (QStringList{"the logbook's stays", "both are kept"}));
    select({0});
    press("&Take the Archive's");
    EXPECT_EQ(told(), (QStringList{"the archive's takes its place", "both are kept"}));
    EXPECT_EQ(dialog.choices().ofEvents, (Chosen{{4, Same::Take}, {7, Same::Both}}));
    select({0, 1});
    press("&Keep the Logbook's");
    EXPECT_EQ(dialog.choices().ofEvents, (Chosen{{4, Same::Keep}, {7, Same::Keep}}));
    select({});
    press("Keep &Both");
    EXPECT_EQ(told(), (QStringList{"the logbook's stays", "the logbook's stays"}));
}

TEST_F(AskedForEvents, AreReadByReturnWhereverTheFocusIs) {
    for (const QPushButton* const each : dialog.findChildren<QPushButton*>()) {
        const bool isOfTheList = each->text() == "&Keep the Logbook's" ||
                                 each->text() == "&Take the Archive's" || each->text() == "Keep &Both";
        EXPECT_EQ(each->autoDefault(), !isOfTheList) << each->text().toStdString();
    }
}

TEST_F(AskedForEvents, AreReadOrNot) {
    press("Cancel");
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    press("&Read Archive");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

}  // namespace

}  // namespace tallybrook::keeper
