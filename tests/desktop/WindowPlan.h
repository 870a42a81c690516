#pragma once

#include "SourceFolder.h"
#include "support/SameText.h"

#include <QAbstractItemView>
#include <QAction>
#include <QBoxLayout>
#include <QMenu>
#include <QSet>
#include <QSplitter>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// Tells what a window is made of, what its parts say and in what way they differ from plain ones; neither
/// sizes nor colors, which the desktop decides.
class WindowPlan {
public:
    static QString of(const QWidget& window) {
        WindowPlan plan;
        plan.tell(window, 0, "");
        return plan.text_;
    }

private:
    void line(int depth, const QString& words) { text_ += QString(2 * qsizetype{depth}, ' ') + words + "\n"; }

    /// The properties that hold a text or another number than 0, and those that are true.
    static QString remarks(const QObject& part, std::initializer_list<const char*> properties) {
        static const QStringList kPlain{"DefaultContextMenu", "AutoText"};
        QString told;
        for (const char* const property : properties) {
            const QVariant value = part.property(property);
            const bool isText = value.typeId() == QMetaType::QString;
            const QString words = isText || value.toInt() != 0 ? value.toString() : "";
            if (words == "true")
                told += QString(", %1").arg(property);
            else if (!words.isEmpty() && !kPlain.contains(words))
                told += QString(isText ? ", %1 \"%2\"" : ", %1 %2").arg(property, words);
        }
        return told;
    }

    static QString remarksOn(const QWidget& widget) {
        return remarks(widget, {"windowTitle",
                                "title",
                                "text",
                                "plainText",
                                "placeholderText",
                                "accessibleName",
                                "accessibleDescription",
                                "toolTip",
                                "wordWrap",
                                "readOnly",
                                "checkable",
                                "checked",
                                "flat",
                                "default",
                                "tabChangesFocus",
                                "textVisible",
                                "allColumnsShowFocus",
                                "uniformRowHeights",
                                "rootIsDecorated",
                                "clearButtonEnabled",
                                "childrenCollapsible",
                                "widgetResizable",
                                "movable",
                                "acceptDrops",
                                "focusPolicy",
                                "textFormat",
                                "selectionMode",
                                "resizeMode",
                                "verticalScrollMode",
                                "contextMenuPolicy",
                                "toolButtonStyle",
                                "sizeAdjustPolicy",
                                "minimumContentsLength"}) +
               (widget.font().bold() ? ", bold" : "") + (widget.isEnabled() ? "" : ", off") +
               (widget.isHidden() ? ", hidden" : "");
    }

    void tell(const QWidget& widget, int depth, const QString& place) {
        told_.insert(&widget);
        const bool isPart = widget.objectName() != "qt_scrollarea_viewport";
        if (isPart)
            line(depth, widget.metaObject()->className() + place + remarksOn(widget));
        if (widget.inherits("QMenu") || widget.inherits("QToolBar"))
            tellActions(widget, depth + 1);
        if (const auto* const view = dynamic_cast<const QAbstractItemView*>(&widget))
            tellRows(*view, {}, depth + 1);
        if (widget.layout() != nullptr && !widget.inherits("QMainWindow"))
            tell(*widget.layout(), depth + 1, "");
        for (const QWidget* const part : partsOf(widget)) {
            if (!told_.contains(part) && !isToolkits(*part))
                tell(*part, depth + 1, "");
        }
    }

    /// What lies in a widget; in a splitter from left to right.
    static QList<const QWidget*> partsOf(const QWidget& widget) {
        QList<const QWidget*> parts;
        const auto* const splitter = dynamic_cast<const QSplitter*>(&widget);
        for (int index = 0; splitter != nullptr && index < splitter->count(); ++index)
            parts += splitter->widget(index);
        for (const QObject* const child : widget.children()) {
            if (const auto* const part = dynamic_cast<const QWidget*>(child);
                splitter == nullptr && part != nullptr)
                parts += part;
        }
        return parts;
    }

    /// Whether a part is the toolkit's own affair.
    static bool isToolkits(const QWidget& part) {
        const QString name = part.objectName();
        return (name.startsWith("qt_") && name != "qt_scrollarea_viewport") || part.inherits("QScrollBar") ||
               part.inherits("QHeaderView") || part.inherits("QComboBoxPrivateContainer") ||
               (part.inherits("QMenu") && part.property("title").toString().isEmpty()) ||
               (part.parentWidget()->inherits("QLineEdit") && part.inherits("QToolButton"));
    }

    void tell(QLayout& layout, int depth, const QString& place) {
        const auto* const box = dynamic_cast<const QBoxLayout*>(&layout);
        const QMargins around = layout.contentsMargins();
        line(depth, layout.metaObject()->className() + place + remarks(layout, {"spacing"}) +
                        QString(", margins %1 %2 %3 %4")
                            .arg(around.left())
                            .arg(around.top())
                            .arg(around.right())
                            .arg(around.bottom()));
        for (int index = 0; index < layout.count(); ++index) {
            QLayoutItem& item = *layout.itemAt(index);
            const int stretch = box == nullptr ? 0 : box->stretch(index);
            const QString itsPlace = stretch == 0 ? "" : QString(", stretch %1").arg(stretch);
            if (item.widget() != nullptr)
                tell(*item.widget(), depth + 1, itsPlace);
            else if (item.layout() != nullptr)
                tell(*item.layout(), depth + 1, itsPlace);
            else
                line(depth + 1, "space" + itsPlace);
        }
    }

    void tellActions(const QWidget& widget, int depth) {
        for (const QAction* const action : widget.actions()) {
            QStringList keys;
            for (const QKeySequence& key : action->shortcuts())
                keys += key.toString();
            line(depth, (action->isSeparator() ? "separator" : "action") +
                            remarks(*action, {"text", "iconText", "toolTip", "checkable", "checked"}) +
                            (keys.isEmpty() ? "" : ", keys " + keys.join(" or ")) +
                            (action->isEnabled() ? "" : ", off"));
        }
    }

    void tellRows(const QAbstractItemView& view, const QModelIndex& parent, int depth) {
        const QAbstractItemModel& model = *view.model();
        for (int row = parent.isValid() ? 0 : -1; row < model.rowCount(parent); ++row) {
            QStringList cells;
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex index = model.index(row, column, parent);
                const bool isTicked = index.data(Qt::CheckStateRole) == Qt::Checked;
                cells += row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                                 : index.data().toString() + (isTicked ? ", ticked" : "");
            }
            line(depth, (row < 0 ? "columns: " : "row: ") + cells.join(" | ").replace('\n', " / ").trimmed());
            if (row >= 0)
                tellRows(view, model.index(row, 0, parent), depth + 1);
        }
    }

    QString text_;
    QSet<const QWidget*> told_;
};

/// Compares the plan of a window with a file below the tests, or writes that anew with
/// TALLYBROOK_WRITE_EXPECTED. The plan says "<folder>" for a folder of the test's own.
inline void expectPlan(const QWidget& window, const std::string& name, const QString& folder = "<folder>") {
    const std::filesystem::path file = std::filesystem::path(TALLYBROOK_SOURCE_DIR) / "tests" / name;
    const std::string plan = WindowPlan::of(window).replace(folder, "<folder>").toStdString();
    if (std::getenv("TALLYBROOK_WRITE_EXPECTED") != nullptr)
        std::ofstream(file, std::ios::binary) << plan;
    EXPECT_TRUE(isSameText(plan, bytesOf(file))) << name;
}

}  // namespace tallybrook::test
