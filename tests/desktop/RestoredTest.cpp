#include "OwnScreens.h"

#include <map>

namespace tallybrook::test {

namespace {

using Sizes = std::map<std::string, QSize>;

/// Goes through the program's screens, and keeps how large each is where it is seen first.
class Tour : public OwnScreens {
public:
    Sizes sizes() {
        Sizes sizes;
        tour([&] { sizes.try_emplace(screen().name(), window().size()); });
        return sizes;
    }
    /// The same where each comes up maximised and is taken out of that.
    Sizes sizesOfRestored() {
        Sizes sizes{{screen().name(), window().size()}};
        tour([&] {
            if (!sizes.contains(screen().name())) {
                EXPECT_TRUE(window().isMaximized()) << screen().name();
                window().showNormal();
                QTest::qWait(1);
                sizes.emplace(screen().name(), window().size());
            }
            window().showMaximized();
        });
        return sizes;
    }

private:
    void TestBody() override {}
};

}  // namespace

TEST(Restored, ScreensAreAsLargeAsUsual) {
    const Sizes usual = Tour().sizes();
    const Sizes restored = Tour().sizesOfRestored();
    EXPECT_GT(usual.size(), 10U);
    for (const auto& [screen, size] : usual) {
        const QSize found = restored.at(screen);
        EXPECT_EQ(found, size) << screen << ": " << found.width() << " x " << found.height()
                               << " in place of " << size.width() << " x " << size.height();
    }
}

}  // namespace tallybrook::test
