#include "OwnScreens.h"
#include "desktop/MenuEntry.h"
#include "desktop/PinButton.h"
#include "desktop/RetryNotice.h"
#include "desktop/RoomyButton.h"
#include "desktop/TitledBox.h"
#include "style/Colours.h"
#include "support/Drawing.h"
#include "support/WrittenDown.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <initializer_list>

// Where everything stands on the program's windows, and how it tells itself. After a wanted change write it
// down anew with TALLYBROOK_WRITE_EXPECTED, and read the difference.
namespace tallybrook::test {

namespace {

/// A font that is as wide on all machines, as long as it lives.
class KnownFont {
public:
    KnownFont() { QApplication::setFont(Drawing::font(9)); }
    ~KnownFont() { QApplication::setFont(before_); }
    KnownFont(const KnownFont&) = delete;
    KnownFont& operator=(const KnownFont&) = delete;

private:
    QFont before_ = QApplication::font();
};

std::string numbers(const QRect& place) {
    return QString("%1 %2 %3x%4")
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height())
        .toStdString();
}

std::string numbers(QSize size) {
    return QString("%1x%2").arg(size.width()).arg(size.height()).toStdString();
}

/// The name of a widget, or its text; empty for a part of the toolkit's own.
std::string nameOf(const QWidget& widget) {
    if (!widget.objectName().isEmpty())
        return widget.objectName().startsWith("qt_") ? "" : widget.objectName().toStdString();
    if (const auto* const button = qobject_cast<const QPushButton*>(&widget))
        return button->text().toStdString();
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return label == nullptr ? "" : label->text().toStdString();
}

/// The widgets of a window that have names or texts, in sight, each with its place.
std::vector<std::pair<const QWidget*, std::string>> placesIn(const QWidget& window) {
    std::vector<std::pair<const QWidget*, std::string>> places;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const std::string name = nameOf(*widget);
        if (!name.empty() && widget->isVisibleTo(&window))
            places.emplace_back(widget,
                                name + " " + numbers({widget->mapTo(&window, QPoint()), widget->size()}));
    }
    return places;
}

/// What a widget of its kind has besides.
std::string toldOfKind(const QWidget& widget) {
    std::string text;
    if (const auto* const box = qobject_cast<const QLineEdit*>(&widget))
        text += QString(" box %1 %2").arg(box->alignment()).arg(box->isReadOnly()).toStdString();
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        text += QString(" label %1 %2").arg(label->alignment()).arg(label->wordWrap()).toStdString();
    if (const auto* const table = qobject_cast<const QTableView*>(&widget)) {
        text += " rows " + std::to_string(table->verticalHeader()->defaultSectionSize()) + " columns";
        for (int column = 0; column < table->horizontalHeader()->count(); ++column)
            text += " " + std::to_string(table->columnWidth(column));
    }
    return text;
}

std::string coloursOf(const QWidget& widget) {
    std::string text;
    for (const auto role : {QPalette::Base, QPalette::Text, QPalette::Highlight, QPalette::HighlightedText})
        text += " " + widget.palette()
                          .color(widget.isEnabled() ? QPalette::Active : QPalette::Disabled, role)
                          .name()
                          .toStdString();
    return text;
}

std::string told(const QWidget& widget) {
    const QFont font = widget.font();
    std::string text =
        std::string(" ") + widget.metaObject()->className() + (widget.isEnabled() ? "" : " off") +
        (widget.focusPolicy() == Qt::NoFocus ? "" : " focus " + std::to_string(widget.focusPolicy())) +
        QString(" %1/%2").arg(font.pointSizeF(), 0, 'f', 1).arg(font.weight()).toStdString() + " wants " +
        numbers(widget.minimumSizeHint()) + " " + numbers(widget.sizeHint());
    for (const auto& [what, said] :
         {std::pair(" is ", widget.accessibleName()), std::pair(" says ", widget.accessibleDescription()),
          std::pair(" tip ", widget.toolTip())})
        text += said.isEmpty() ? "" : what + ("\"" + said.toStdString() + "\"");
    const bool isBox = qobject_cast<const QLineEdit*>(&widget) != nullptr ||
                       qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr;
    return text + toldOfKind(widget) + (isBox ? coloursOf(widget) : "");
}

/// The menus with their entries, and which of them are off.
std::string menusOf(const QWidget& window) {
    std::string text;
    for (const QAction* const action : window.findChildren<QAction*>()) {
        if (!action->text().isEmpty() && action->isVisible())
            text += "menu " + action->text().replace('\t', "  ").toStdString() +
                    (action->isEnabled() ? "" : " off") + "\n";
    }
    return text;
}

/// Whether a widget is painted by the program itself.
bool isOwn(const QWidget& widget) {
    return dynamic_cast<const PinButton*>(&widget) != nullptr ||
           dynamic_cast<const TitledBox*>(&widget) != nullptr ||
           dynamic_cast<const RoomyButton*>(&widget) != nullptr ||
           dynamic_cast<const MenuEntry*>(&widget) != nullptr;
}

std::string drawn(QWidget& widget) {
    Drawing drawing;
    QPainter painter(&drawing);
    widget.render(&painter, QPoint(), QRegion(), QWidget::RenderFlags());
    painter.end();
    return drawing.told();
}

/// The colour that the ground of a button is drawn in.
std::string groundOf(QAbstractButton& button) {
    const std::string all = drawn(button);
    return all.substr(all.find('#'), 7);
}

}  // namespace

TEST(ButtonsTest, GroundTellsWhetherTheyArePointedAtOrPressed) {
    MenuEntry plain(nullptr, false);
    MenuEntry strong(nullptr, true);
    RoomyButton next;
    next.setStandsOut(true);
    struct Look {
        QAbstractButton& button;
        QPalette::ColorRole ground;
        QColor ink;
        double pointedAt;
        double pressed;
    };
    const QColor text = plain.palette().color(QPalette::WindowText);
    for (const auto& [button, role, ink, pointedAt, pressed] :
         {Look{plain, QPalette::Window, text, 0.08, 0.18},
          Look{strong, QPalette::Highlight, text, 0.08, 0.18},
          Look{next, QPalette::Highlight, Qt::black, 0.12, 0.3}}) {
        const QColor ground = button.palette().color(role);
        EXPECT_EQ(groundOf(button), ground.name().toStdString());
        button.setAttribute(Qt::WA_UnderMouse);
        EXPECT_EQ(groundOf(button), between(ground, ink, pointedAt).name().toStdString());
        button.setDown(true);
        EXPECT_EQ(groundOf(button), between(ground, ink, pressed).name().toStdString());
    }
    for (MenuEntry* const entry : {&plain, &strong}) {
        EXPECT_TRUE(entry->testAttribute(Qt::WA_Hover));
        EXPECT_EQ(entry->cursor().shape(), Qt::PointingHandCursor);
        entry->setEnabled(false);
        EXPECT_EQ(groundOf(*entry), entry->palette().color(QPalette::Window).name().toStdString());
    }
}

/// Around what is drawn with smooth edges some points are neither full nor empty.
TEST(ButtonsTest, EdgesAreSmooth) {
    MenuEntry entry(nullptr, true);
    RoomyButton next;
    next.setStandsOut(true);
    PinButton pin(nullptr);
    TitledBox box(nullptr);
    for (QWidget* const widget : std::initializer_list<QWidget*>{&entry, &next, &pin, &box}) {
        widget->resize(60, 40);
        QImage image(widget->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        widget->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        int partly = 0;
        for (int at = 0; at < image.width() * image.height(); ++at) {
            const int alpha = image.pixelColor(at % image.width(), at / image.width()).alpha();
            partly += alpha > 0 && alpha < 255 ? 1 : 0;
        }
        EXPECT_GT(partly, 0) << widget->metaObject()->className();
    }
}

class PlacesTest : private KnownFont, public OwnScreens {
protected:
    std::string all_;

    /// The window as it comes up, and the places of what moves where it is wider or narrower.
    void tell() {
        ScreenWindow& shown = window();
        const QSize size = shown.size();
        all_ += "==== " + screen().name() + " \"" + shown.windowTitle().toStdString() + "\" " +
                numbers({QPoint(), size}) + "\n";
        all_ += menusOf(shown);
        for (const auto& [widget, place] : placesIn(shown))
            all_ += place + told(*widget) + "\n";
        for (const QSize other : {QSize(1500, 1000), QSize(460, 500)}) {
            shown.resize(other);
            QTest::qWait(0);
            all_ += "---- " + numbers({QPoint(), other}) + "\n";
            for (const auto& [widget, place] : placesIn(shown))
                all_ += place + "\n";
        }
        shown.resize(size);
        QTest::qWait(0);
    }
};

TEST_F(PlacesTest, AreAsTheyWereWanted) {
    tour([this] { tell(); });
    EXPECT_TRUE(isAsWrittenDown(all_, "desktop/places.txt"));
}

TEST_F(PlacesTest, NoticeOfAWaitingProgramSaysWhatCanBeDone) {
    const RetryNotice notice(nullptr);
    QTest::qWait(0);
    std::string text =
        notice.windowTitle().toStdString() + (notice.isModal() ? " modal" : "") + told(notice) + "\n";
    for (const auto& [widget, place] : placesIn(notice))
        text += place + told(*widget) + "\n";
    EXPECT_TRUE(isAsWrittenDown(text, "desktop/notice.txt"));
}

TEST_F(PlacesTest, AreDrawnAsTheyWereWanted) {
    const auto tellDrawn = [this] {
        for (QWidget* const widget : window().findChildren<QWidget*>()) {
            if (isOwn(*widget) && widget->isVisible())
                all_ += nameOf(*widget) + "\n" + drawn(*widget);
        }
    };
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    tellDrawn();
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Right, Qt::Key_Down}) {
        QTest::keyClick(window().focusWidget(), key);
        all_ += "focus " + nameOf(*window().focusWidget()) + "\n" + drawn(*window().focusWidget());
    }
    beginEvent();
    tellDrawn();
    beginFrames();
    click("optFirstNo");
    click("chkFirstPinfall(7)");
    tellDrawn();
    EXPECT_TRUE(isAsWrittenDown(all_, "desktop/drawn.txt"));
}

}  // namespace tallybrook::test
