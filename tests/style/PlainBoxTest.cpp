#include "style/PlainBox.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A question over no window, as it stands on the display.
class Asked {
public:
    explicit Asked(const QString& text) : box(QMessageBox::Question, "Sure?", text, nullptr) {
        box.addButton(QMessageBox::Yes);
        no = box.addButton(QMessageBox::No);
        box.setDefaultButton(no);
        box.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    }

    [[nodiscard]] QPlainTextEdit* scrolled() const { return box.findChild<QPlainTextEdit*>(); }
    [[nodiscard]] bool isInSight(const QWidget& part) const {
        return box.rect().contains({part.mapTo(&box, QPoint()), part.size()});
    }
    [[nodiscard]] bool fitsTheDisplay() const {
        constexpr int kTitleBar = 32;
        const QSize display = box.screen()->availableSize();
        return box.width() <= display.width() && box.height() + kTitleBar <= display.height();
    }

    PlainBox box;
    QPushButton* no = nullptr;
};

std::vector<QString> longTexts() {
    return {QString("A line of some words.\n").repeated(40) + "The end.", QString("word ").repeated(2'000),
            QString(10'000, 'n'), QString(1'000'000, 'n')};
}

}  // namespace

TEST(PlainBox, ShortTextStandsWithoutScrolling) {
    const Asked asked("<b>Save</b> it?\nNow & here?");
    const QLabel& label = *asked.box.findChild<QLabel*>("qt_msgbox_label");
    EXPECT_EQ(asked.scrolled(), nullptr);
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.text(), "<b>Save</b> it?\nNow & here?");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_TRUE(label.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

TEST(PlainBox, ComesWithItsTextWhereItIsReadAloud) {
    Asked asked("The disk is full.");
    const QAccessibleInterface& box = *QAccessible::queryAccessibleInterface(&asked.box);
    EXPECT_EQ(box.text(QAccessible::Name), "Sure?");
    EXPECT_EQ(box.text(QAccessible::Description), "The disk is full.");
}

TEST(PlainBox, LongTextIsScrolledAndTheButtonsStayInSight) {
    for (const QString& text : longTexts()) {
        SCOPED_TRACE(text.size());
        const Asked asked(text);
        EXPECT_TRUE(asked.fitsTheDisplay()) << asked.box.width() << " x " << asked.box.height();
        for (const QAbstractButton* const button : asked.box.buttons())
            EXPECT_TRUE(button->isVisible() && asked.isInSight(*button));
        ASSERT_NE(asked.scrolled(), nullptr);
        EXPECT_TRUE(asked.scrolled()->isVisible() && asked.isInSight(*asked.scrolled()));
        EXPECT_EQ(asked.scrolled()->toPlainText(), text);
        EXPECT_TRUE(asked.scrolled()->isReadOnly());
        EXPECT_FALSE(asked.box.findChild<QLabel*>("qt_msgbox_label")->isVisible());
        EXPECT_EQ(asked.box.text(), text);
    }
}

TEST(PlainBox, KeysAreForTheButtonsWhereTheTextIsScrolled) {
    Asked asked(longTexts().front());
    EXPECT_EQ(asked.box.focusWidget(), asked.no);
    QTest::keyClick(&asked.box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), longTexts().front());
    QTest::keyClick(asked.box.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(asked.box.clickedButton(), asked.no);
}

TEST(PlainBox, ScrolledTextIsReachedAndLeftByTab) {
    Asked asked(longTexts().front());
    for (int tabs = 0; tabs < 3 && !asked.scrolled()->hasFocus(); ++tabs)
        QTest::keyClick(asked.box.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(asked.scrolled()->hasFocus());
    QTest::keyClick(asked.scrolled(), Qt::Key_Tab);
    EXPECT_FALSE(asked.scrolled()->hasFocus());
    asked.scrolled()->setFocus();
    QTest::keyClick(asked.scrolled(), Qt::Key_Escape);
    EXPECT_FALSE(asked.box.isVisible());
}

}  // namespace tallybrook::test
