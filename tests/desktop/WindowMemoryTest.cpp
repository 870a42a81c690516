#include "Desktop.h"

#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

namespace tallybrook::test {

namespace {

/// A desktop with the test screens, which remembers its windows in a file.
class RememberingDesktop {
public:
    explicit RememberingDesktop(QSettings* settings) : display({.settings = settings}) {
        program.screens.add("frmMain", [this] { return std::make_unique<frmMain>(program); });
        program.screens.add("frmOther", [this] { return std::make_unique<frmOther>(program); });
        program.screens.add("frmLists", [this] { return std::make_unique<frmLists>(program); });
        display.attach(program);
        program.openLogbook();
        load("frmMain");
    }

    void load(const std::string& name) {
        display.perform([&] { program.screens.load(name); });
    }
    /// Hides the screen in front, and shows another.
    void goTo(const std::string& name) {
        display.perform([&] {
            program.screens.hide(*program.screens.front());
            if (program.screens.find(name) == nullptr)
                program.screens.load(name);
            else
                program.screens.show(*program.screens.find(name));
        });
    }
    ScreenWindow& window(const std::string& name = "frmMain") {
        return *display.windowOf(*program.screens.find(name));
    }

    TemporaryFolder folder;
    SystemClock clock;
    DesktopDisplay display;
    Program program{display, clock, folder.path()};
};

/// Settings in a file of their own.
class Settings {
public:
    QSettings& operator*() { return settings_; }
    QSettings* get() { return &settings_; }

private:
    QTemporaryDir folder_;
    QSettings settings_{folder_.filePath("windows.ini"), QSettings::IniFormat};
};

}  // namespace

TEST(WindowMemory, WindowsHaveOnePlace) {
    RememberingDesktop desktop(nullptr);
    desktop.window().move(30, 40);
    desktop.goTo("frmOther");
    EXPECT_EQ(desktop.window("frmOther").pos(), QPoint(30, 40));
    desktop.window("frmOther").move(60, 20);
    desktop.goTo("frmMain");
    EXPECT_EQ(desktop.window().pos(), QPoint(60, 20));
}

TEST(WindowMemory, OnlyWhatTheUserChangesIsKept) {
    Settings settings;
    {
        RememberingDesktop desktop(settings.get());
        desktop.goTo("frmOther");
        desktop.goTo("frmMain");
    }
    EXPECT_EQ((*settings).allKeys(), QStringList());
    {
        RememberingDesktop desktop(settings.get());
        desktop.window().resize(700, 500);
    }
    EXPECT_EQ((*settings).allKeys(), QStringList{"sizes/frmMain"});
}

TEST(WindowMemory, SizeThatADisplayCutsIsKept) {
    Settings settings;
    (*settings).setValue("sizes/frmMain", QSize(90'000, 90'000));
    { const RememberingDesktop desktop(settings.get()); }
    EXPECT_EQ((*settings).value("sizes/frmMain"), QSize(90'000, 90'000));
}

TEST(WindowMemory, WindowThatTheUserBringsBackStaysWhereItIs) {
    RememberingDesktop desktop(nullptr);
    desktop.window().move(30, 40);
    QShowEvent back;  // which the window system tells of
    QSpontaneKeyEvent::setSpontaneous(&back);
    QCoreApplication::instance()->notify(&desktop.window(), &back);
    EXPECT_EQ(desktop.window().pos(), QPoint(30, 40));
}

TEST(WindowMemory, OutlastsTheProgram) {
    Settings settings;
    {
        RememberingDesktop desktop(settings.get());
        desktop.window().resize(700, 500);
        desktop.window().move(20, 10);
    }
    RememberingDesktop desktop(settings.get());
    EXPECT_EQ(desktop.window().size(), QSize(700, 500));
    EXPECT_EQ(desktop.window().pos(), QPoint(20, 10));
    desktop.goTo("frmOther");
    EXPECT_NE(desktop.window("frmOther").size(), QSize(700, 500));
    EXPECT_EQ(desktop.window("frmOther").pos(), QPoint(20, 10));
}

TEST(WindowMemory, MaximisedStaysMaximised) {
    Settings settings;
    {
        RememberingDesktop desktop(settings.get());
        desktop.window().showMaximized();
        desktop.goTo("frmOther");
        EXPECT_TRUE(desktop.window("frmOther").isMaximized());
    }
    RememberingDesktop desktop(settings.get());
    EXPECT_TRUE(desktop.window().isMaximized());
    desktop.window().showNormal();
    desktop.goTo("frmOther");
    EXPECT_FALSE(desktop.window("frmOther").isMaximized());
    desktop.goTo("frmMain");
    EXPECT_FALSE(desktop.window().isMaximized());
}

TEST(WindowMemory, MaximisedComesBackToWhereItWas) {
    RememberingDesktop desktop(nullptr);
    desktop.window().setGeometry(30, 40, 700, 500);
    desktop.window().showMaximized();
    desktop.window().showNormal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.window().geometry() == QRect(30, 40, 700, 500); }));
}

TEST(WindowMemory, MaximisedComesBackAsUsual) {
    const QRect usual = RememberingDesktop(nullptr).window().geometry();
    Settings settings;
    (*settings).setValue("windows/maximised", true);
    RememberingDesktop desktop(settings.get());
    ASSERT_TRUE(desktop.window().isMaximized());
    desktop.window().showNormal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.window().geometry() == usual; }))
        << desktop.window().width() << " x " << desktop.window().height();
}

TEST(WindowMemory, WindowsComeUpInSight) {
    Settings settings;
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QPoint place : {QPoint(90'000, 90'000), available.bottomRight() - QPoint(3, 3)}) {
        (*settings).setValue("windows/place", place);
        (*settings).setValue("sizes/frmMain", QSize(90'000, 90'000));
        RememberingDesktop desktop(settings.get());
        EXPECT_TRUE(available.contains(desktop.window().geometry()));
        desktop.goTo("frmOther");
        EXPECT_TRUE(available.contains(desktop.window("frmOther").geometry()));
    }
}

TEST(WindowMemory, TitleBarsStayInSight) {
    constexpr QMargins kFrame(4, 28, 4, 4);
    Settings settings;
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    (*settings).setValue("sizes/frmMain", QSize(90'000, 90'000));
    for (const QPoint place : {QPoint(), available.center(), available.bottomRight() - QPoint(3, 3)}) {
        if (!place.isNull())
            (*settings).setValue("windows/place", place);
        RememberingDesktop desktop(settings.get());
        EXPECT_EQ(desktop.window().geometry(), available.marginsRemoved(kFrame));
    }
}

TEST(WindowMemory, NonsenseIsNoMemory) {
    Settings settings;
    for (const char* const key :
         {"windows/place", "windows/maximised", "sizes/frmMain", "columns/frmLists.dgdEvents"})
        (*settings).setValue(key, "nonsense");
    RememberingDesktop desktop(settings.get());
    RememberingDesktop usual(nullptr);
    EXPECT_EQ(desktop.window().size(), usual.window().size());
    EXPECT_EQ(desktop.window().pos(), usual.window().pos());
}

TEST(WindowMemory, ColumnsKeepTheirWidths) {
    Settings settings;
    const auto tableOf = [](RememberingDesktop& desktop) {
        desktop.load("frmLists");
        const auto& lists = dynamic_cast<frmLists&>(*desktop.program.screens.find("frmLists"));
        return dynamic_cast<QTableView*>(desktop.display.widgetOf(lists.dgdEvents));
    };
    int usual = 0;
    {
        RememberingDesktop desktop(settings.get());
        QTableView* const table = tableOf(desktop);
        usual = table->columnWidth(0);
        table->horizontalHeader()->resizeSection(1, 333);
    }
    EXPECT_EQ((*settings).allKeys(),
              QStringList{"columns/frmLists.dgdEvents"});  // which older programs have written
    RememberingDesktop desktop(settings.get());
    QTableView* const table = tableOf(desktop);
    EXPECT_EQ(table->columnWidth(1), 333);
    EXPECT_EQ(table->columnWidth(0), usual);
    for (const QStringList& unsound : {QStringList{"50", "50"}, QStringList{"50", "0", "50", "50", "50"}}) {
        (*settings).setValue("columns/frmLists.dgdEvents", unsound);
        RememberingDesktop other(settings.get());
        EXPECT_EQ(tableOf(other)->columnWidth(0), usual) << unsound.size();
    }
}

}  // namespace tallybrook::test
