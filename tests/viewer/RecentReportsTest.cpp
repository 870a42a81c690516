#include "readers/Files.h"
#include "viewer/RecentReports.h"

#include <QDir>
#include <QSettings>

namespace tallybrook::test {

namespace {

class Recent : public testing::Test {
protected:
    Files files;
    QSettings settings{files.path("settings.ini"), QSettings::IniFormat};
    RecentReports recent{settings};
};

}  // namespace

TEST_F(Recent, NewestIsFirstAndOnlyOnce) {
    EXPECT_EQ(recent.files(), QStringList());
    for (const char* const name : {"/a.txt", "/b.txt", "/c.txt", "/a.txt"})
        recent.add(name);
    EXPECT_EQ(recent.files(), (QStringList{"/a.txt", "/c.txt", "/b.txt"}));
}

TEST_F(Recent, KeepsFullPaths) {
    recent.add("a.txt");
    EXPECT_EQ(recent.files(), QStringList(QDir::current().absoluteFilePath("a.txt")));
}

TEST_F(Recent, KeepsTen) {
    for (int number = 1; number <= 12; ++number)
        recent.add(QString("/%1.txt").arg(number));
    EXPECT_EQ(recent.files().size(), 10);
    EXPECT_EQ(recent.files().first(), "/12.txt");
    EXPECT_EQ(recent.files().last(), "/3.txt");
}

TEST_F(Recent, OtherWindowsSeeIt) {
    recent.add("/a, b.txt");
    QSettings others(settings.fileName(), QSettings::IniFormat);
    RecentReports theirs(others);
    EXPECT_EQ(theirs.files(), QStringList("/a, b.txt"));
    theirs.add(QString::fromUtf8("/José.txt"));
    EXPECT_EQ(recent.files(), (QStringList{QString::fromUtf8("/José.txt"), "/a, b.txt"}));
}

TEST_F(Recent, OtherProcessesSeeIt) {
    recent.add("/a.txt");
    files.write("settings.ini", "[recent]\nfiles=/theirs.txt, /a.txt\n");
    EXPECT_EQ(recent.files(), (QStringList{"/theirs.txt", "/a.txt"}));
}

TEST_F(Recent, MayBeCleared) {
    recent.add("/a.txt");
    recent.clear();
    EXPECT_EQ(recent.files(), QStringList());
}

TEST_F(Recent, TakesNoNonsenseFromItsSettings) {
    settings.setValue("recent/files", QStringList{"", "/a.txt", "", "/b.txt"});
    EXPECT_EQ(recent.files(), (QStringList{"/a.txt", "/b.txt"}));
    settings.setValue("recent/files", 7);
    EXPECT_EQ(recent.files(), QStringList());
}

}  // namespace tallybrook::test
