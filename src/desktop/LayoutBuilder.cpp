#include "desktop/LayoutBuilder.h"

#include "controls/Rack.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLineEdit>
#include <QWidget>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr int kBeside = 10;  // pixels between parts beside each other
constexpr int kBelow = 8;    // and below each other
constexpr int kBelowGroup = 14;
constexpr int kInTable = 5;
constexpr int kInRack = 6;
constexpr int kApart = 10;  // beside buttons, and between those that stand apart, besides what is usual

Qt::Alignment alignmentOf(const Layout& part) {
    switch (part.align) {
        case Layout::Align::Centre:
            return Qt::AlignCenter;
        case Layout::Align::Start:
            return Qt::AlignLeft | Qt::AlignVCenter;
        case Layout::Align::Fill:
            break;
    }
    return {};
}

/// Whether the part is a list or grid, which takes what room there is below it.
bool isTall(const Layout& part) {
    return part.kind == Layout::Kind::Item && part.control->hasRows() &&
           part.control->kind() != Control::Kind::ComboBox &&
           part.control->kind() != Control::Kind::DriveList;
}

/// Cells fill their columns, and what stands in their middle is strong, as on a score sheet.
void prepareCell(QLineEdit& cell) {
    cell.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    if (!cell.alignment().testFlag(Qt::AlignHCenter))
        return;
    QFont strong = cell.font();
    strong.setWeight(QFont::DemiBold);
    cell.setFont(strong);
}

bool isOneWidget(const Layout& part) {
    return part.kind == Layout::Kind::Item || part.kind == Layout::Kind::Group;
}

bool isPinRow(const Layout& layout) {
    return std::ranges::all_of(layout.parts, [](const Layout& part) {
        return part.kind == Layout::Kind::Item && isPin(*part.control);
    });
}

/// Whether the part is a group, or a row that begins with one: it needs room around its title.
bool isGroup(const Layout& part) {
    return part.kind == Layout::Kind::Group ||
           (part.kind == Layout::Kind::Row && !part.parts.empty() && isGroup(part.parts.front()));
}

/// The pixels between the parts of a row, a column or a column of buttons.
int spacingOf(const Layout& layout) {
    if (layout.kind == Layout::Kind::Row)
        return isPinRow(layout) ? kInRack : kBeside;
    return std::ranges::any_of(layout.parts, isGroup) ? kBelowGroup : kBelow;
}

}  // namespace

QLayout* LayoutBuilder::build(const Layout& layout, QWidget& parent) const {
    switch (layout.kind) {
        case Layout::Kind::Form:
            return buildForm(layout, parent);
        case Layout::Kind::Table:
            return buildTable(layout, parent);
        case Layout::Kind::Item:
        case Layout::Kind::Group:
            return buildBox({Layout::Kind::Column, {layout}}, parent);
        default:
            return buildBox(layout, parent);
    }
}

QWidget* LayoutBuilder::widgetOf(const Layout& part, QWidget& parent) const {
    QWidget& widget = widgetFor_(*part.control, parent);
    if (part.kind == Layout::Kind::Group) {
        QLayout* const inside = build(part.parts.front(), widget);
        inside->setAlignment(alignmentOf(part.parts.front()));
        widget.setLayout(inside);
    }
    return &widget;
}

QLayout* LayoutBuilder::buildBox(const Layout& layout, QWidget& parent) const {
    const bool isRow = layout.kind == Layout::Kind::Row;
    auto* const box = new QBoxLayout(isRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    if (isRow)
        box->setObjectName(kRowName);
    if (layout.kind == Layout::Kind::Buttons)
        box->setObjectName(kButtonsName);
    box->setSpacing(spacingOf(layout));
    for (const Layout& part : layout.parts) {
        if (isRow && part.kind == Layout::Kind::Buttons)
            box->addSpacing(kApart);
        if (part.kind == Layout::Kind::Space) {
            if (layout.kind == Layout::Kind::Buttons)
                box->addSpacing(kApart);
            box->addStretch(part.stretch);
        } else if (isOneWidget(part)) {
            box->addWidget(widgetOf(part, parent), part.stretch, alignmentOf(part));
        } else {
            QLayout* const inner = build(part, parent);
            box->addLayout(inner, part.stretch);
            inner->setAlignment(alignmentOf(part));
        }
    }
    const bool hasSpace = std::ranges::count(layout.parts, Layout::Kind::Space, &Layout::kind) != 0;
    if (layout.kind == Layout::Kind::Buttons && !hasSpace)
        box->addStretch(1);
    return box;
}

QLayout* LayoutBuilder::buildForm(const Layout& layout, QWidget& parent) const {
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kBeside);
    grid->setVerticalSpacing(kBelow);
    grid->setColumnStretch(1, 1);
    fill(*grid, layout, 2, parent);
    for (std::size_t named = 1; named < layout.parts.size(); named += 2) {
        if (isTall(layout.parts[named]))
            grid->itemAtPosition(static_cast<int>(named) / 2, 0)->setAlignment(Qt::AlignTop);
    }
    return grid;
}

QLayout* LayoutBuilder::buildTable(const Layout& layout, QWidget& parent) const {
    auto* const grid = new QGridLayout;
    grid->setSpacing(kInTable);
    for (int column = 0; column < layout.columns; ++column)
        grid->setColumnStretch(column, 1);
    fill(*grid, layout, layout.columns, parent);
    for (int i = 0; i < grid->count(); ++i) {
        if (auto* const cell = qobject_cast<QLineEdit*>(grid->itemAt(i)->widget()); cell != nullptr)
            prepareCell(*cell);
    }
    return grid;
}

void LayoutBuilder::fill(QGridLayout& grid, const Layout& layout, int columns, QWidget& parent) const {
    int place = 0;
    for (const Layout& part : layout.parts) {
        const int row = place / columns;
        const int column = place % columns;
        ++place;
        if (isOneWidget(part))
            grid.addWidget(widgetOf(part, parent), row, column, alignmentOf(part));
        else if (part.kind != Layout::Kind::Space)
            grid.addLayout(build(part, parent), row, column, alignmentOf(part));
        grid.setRowStretch(row, std::max(grid.rowStretch(row), part.stretch));
    }
}

}  // namespace tallybrook
