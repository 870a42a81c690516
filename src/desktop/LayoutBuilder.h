#pragma once

#include "controls/Layout.h"

#include <QLayout>
#include <functional>

class QGridLayout;

namespace tallybrook {

/// Turns a screen's layout into the toolkit's.
class LayoutBuilder {
public:
    /// Gives the widget of a control, as a child of the widget that it is to stand in.
    using WidgetFor = std::function<QWidget&(Control& control, QWidget& parent)>;

    /// What the layouts of rows, and of buttons, are called, so that they can be found.
    static constexpr const char* kRowName = "row";
    static constexpr const char* kButtonsName = "buttons";

    explicit LayoutBuilder(WidgetFor widgetFor) : widgetFor_(std::move(widgetFor)) {}

    /// Lays the parts out in `parent`.
    [[nodiscard]] QLayout* build(const Layout& layout, QWidget& parent) const;

private:
    [[nodiscard]] QLayout* buildBox(const Layout& layout, QWidget& parent) const;
    [[nodiscard]] QLayout* buildForm(const Layout& layout, QWidget& parent) const;
    [[nodiscard]] QLayout* buildTable(const Layout& layout, QWidget& parent) const;
    /// Puts the parts into a grid row by row.
    void fill(QGridLayout& grid, const Layout& layout, int columns, QWidget& parent) const;
    [[nodiscard]] QWidget* widgetOf(const Layout& part, QWidget& parent) const;

    WidgetFor widgetFor_;
};

}  // namespace tallybrook
