#include "Lists.h"
#include "OwnScreens.h"
#include "support/WrittenDown.h"

#include <QHeaderView>
#include <QMetaProperty>
#include <QScrollBar>
#include <set>

// What the widgets are told about themselves, beside their places, looks and texts: how they scroll, what can
// be selected in them, which keys they leave alone. After a wanted change write it down anew with
// TALLYBROOK_WRITE_EXPECTED, and read the difference.
namespace tallybrook::test {

namespace {

/// What changes as a widget is used, or follows from its size.
const QStringList kPassing{"acceptableInput",
                           "blockCount",
                           "checked",
                           "count",
                           "currentIndex",
                           "cursorPosition",
                           "defaultSectionSize",
                           "down",
                           "frameShadow",
                           "hasSelectedText",
                           "isActive",
                           "margin",
                           "maximumSectionSize",
                           "minimumSectionSize",
                           "modified",
                           "redoAvailable",
                           "selectionStart",
                           "topLevelItemCount",
                           "undoAvailable"};
const QStringList kOfEveryWidget{"focusPolicy", "contextMenuPolicy", "acceptDrops"};

/// A switch, a number or a choice as it is in the code; empty for what is off, and what is of another kind.
QString toldOf(const QMetaProperty& property, const QWidget& widget) {
    const QVariant value = property.read(&widget);
    if (property.isFlagType())
        return QString::fromLatin1(property.enumerator().valueToKeys(value.toInt()));
    if (property.isEnumType())
        return QString::fromLatin1(property.enumerator().valueToKey(value.toInt()));
    const bool isPlain = value.typeId() == QMetaType::Bool || value.typeId() == QMetaType::Int;
    return isPlain && value.toInt() != 0 ? value.toString() : QString();
}

std::string kindOf(const QWidget& widget) {
    QStringList told{widget.metaObject()->className()};
    for (int index = 0; index < widget.metaObject()->propertyCount(); ++index) {
        const QMetaProperty property = widget.metaObject()->property(index);
        const QString name = property.name();
        const bool isOfKind = index >= QWidget::staticMetaObject.propertyCount() && !kPassing.contains(name);
        const QString value =
            isOfKind || kOfEveryWidget.contains(name) ? toldOf(property, widget) : QString();
        if (!value.isEmpty())
            told += name + " " + value;
    }
    if (const auto* const header = dynamic_cast<const QHeaderView*>(&widget))
        told += QString("clickable %1, resizes %2")
                    .arg(header->sectionsClickable())
                    .arg(header->sectionResizeMode(0));
    return told.join(", ").toStdString() + "\n";
}

bool isToolkits(const QWidget& widget) {
    return widget.objectName().startsWith("qt_") || dynamic_cast<const QScrollBar*>(&widget) != nullptr ||
           widget.inherits("QComboBoxPrivateContainer") || widget.metaObject() == &QWidget::staticMetaObject;
}

std::string kindsOn(const std::set<std::string>& kinds) {
    std::string all;
    for (const std::string& kind : kinds)
        all += kind;
    return all;
}

void addKinds(const QWidget& window, std::set<std::string>& kinds) {
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (!isToolkits(*widget))
            kinds.insert(kindOf(*widget));
    }
}

class KindsTest : public OwnScreens {};

TEST_F(KindsTest, OfTheProgramsWidgetsAreAsTheyWereWanted) {
    std::set<std::string> kinds;
    tour([&] { addKinds(window(), kinds); });
    EXPECT_TRUE(isAsWrittenDown(kindsOn(kinds), "desktop/kinds.txt"));
}

class KindOfListBoxTest : public Lists {};

TEST_F(KindOfListBoxTest, IsAsItWasWanted) {
    EXPECT_TRUE(isAsWrittenDown(kindOf(names()), "desktop/kind-of-list-box.txt"));
}

}  // namespace

}  // namespace tallybrook::test
