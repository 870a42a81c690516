#include "style/PlainBox.h"

#include <QAccessible>
#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextOption>

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

/// A text beside its icon stands at the middle of it, or at its top where it is higher.
TEST(PlainBox, StandsAFewPixelsFurtherIn) {
    struct Stands {
        QMessageBox::Icon icon;
        QString text;
        QMargins margins;
        Qt::Alignment vertical;
    };
    for (const auto& [icon, text, margins, vertical] :
         {Stands{QMessageBox::Warning, "Now?", {18, 16, 18, 14}, Qt::AlignVCenter},
          Stands{QMessageBox::Warning, "a\nb\nc\nd\ne\nf", {18, 16, 18, 14}, Qt::AlignTop},
          Stands{QMessageBox::NoIcon, "Now?", {0, 16, 18, 14}, Qt::AlignTop}}) {
        const PlainBox box(icon, "Sure?", text, nullptr);
        auto& grid = dynamic_cast<QGridLayout&>(*box.layout());
        const QLabel& label = *box.findChild<QLabel*>("qt_msgbox_label");
        EXPECT_EQ(box.icon(), icon);
        EXPECT_EQ(grid.contentsMargins(), margins);
        EXPECT_EQ(grid.verticalSpacing(), 16);
        EXPECT_EQ(label.alignment(), Qt::AlignLeft | vertical) << text.toStdString();
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        grid.getItemPosition(grid.indexOf(&label), &row, &column, &rows, &columns);
        EXPECT_EQ(rows, 2);
        EXPECT_EQ(grid.columnStretch(column), 1);
    }
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
        EXPECT_EQ(asked.scrolled()->accessibleName(), "Sure?");
        EXPECT_EQ(asked.scrolled()->wordWrapMode() == QTextOption::WrapAnywhere, !text.contains(' '));
        const QSize display = asked.box.screen()->availableSize();
        EXPECT_EQ(asked.scrolled()->minimumSize(), QSize(display.width() / 2, display.height() * 3 / 5));
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
