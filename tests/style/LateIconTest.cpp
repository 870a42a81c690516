#include "style/LateIcon.h"
#include "style/OutlinedStyle.h"

#include <QPainter>
#include <QStyleFactory>
#include <memory>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

QIcon redIcon() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return pixmap;
}

TEST(LateIcon, IsMadeOnceAndNotBeforeItIsSeen) {
    int made = 0;
    const QIcon icon = lateIcon([&made] {
        ++made;
        return redIcon();
    });
    EXPECT_FALSE(icon.isNull());
    EXPECT_EQ(made, 0);
    EXPECT_EQ(icon.pixmap(16).toImage(), redIcon().pixmap(16).toImage());
    QImage painted(16, 16, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&painted);
    icon.paint(&painter, painted.rect());
    EXPECT_EQ(painted.pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(icon.actualSize({64, 64}), QSize(16, 16));
    EXPECT_EQ(made, 1);
}

TEST(LateIcon, OfAMenuBarIsTheToolkitsOwn) {
    constexpr auto kPicture = QStyle::SP_ToolBarHorizontalExtensionButton;
    const std::unique_ptr<QStyle> fusion(QStyleFactory::create("fusion"));
    const QImage wanted = fusion->standardIcon(kPicture).pixmap(16).toImage();
    EXPECT_FALSE(wanted.isNull());
    auto style = std::make_unique<OutlinedStyle>();
    EXPECT_EQ(style->standardIcon(kPicture, nullptr, nullptr).pixmap(16).toImage(), wanted);
    const QIcon unseen = style->standardIcon(kPicture, nullptr, nullptr);
    style.reset();
    EXPECT_TRUE(unseen.pixmap(16).isNull());
}

}  // namespace

}  // namespace tallybrook::test
