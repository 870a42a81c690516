#include "desktop/LayoutBuilder.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>

namespace tallybrook {

namespace {

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

bool isOneWidget(const Layout& part) {
    return part.kind == Layout::Kind::Item || part.kind == Layout::Kind::Group;
}

}  // namespace

QLayout* LayoutBuilder::build(const Layout& layout, QWidget& parent) const {
    switch (layout.kind) {
        case Layout::Kind::Form:
            return buildForm(layout, parent);
        case Layout::Kind::Table:
            return buildTable(layout, parent);
        default:
            return buildBox(layout, parent);
    }
}

QWidget* LayoutBuilder::widgetOf(const Layout& part, QWidget& parent) const {
    QWidget& widget = widgetFor_(*part.control, parent);
    if (part.kind == Layout::Kind::Group)
        widget.setLayout(build(part.parts.front(), widget));
    return &widget;
}

QLayout* LayoutBuilder::buildBox(const Layout& layout, QWidget& parent) const {
    const bool isRow = layout.kind == Layout::Kind::Row;
    auto* const box = new QBoxLayout(isRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    for (const Layout& part : layout.parts) {
        if (part.kind == Layout::Kind::Space) {
            box->addStretch(part.stretch);
        } else if (isOneWidget(part)) {
            box->addWidget(widgetOf(part, parent), part.stretch, alignmentOf(part));
        } else {
            QLayout* const inner = build(part, parent);
            box->addLayout(inner, part.stretch);
            inner->setAlignment(alignmentOf(part));
        }
    }
    if (layout.kind == Layout::Kind::Buttons)
        box->addStretch(1);
    return box;
}

QLayout* LayoutBuilder::buildForm(const Layout& layout, QWidget& parent) const {
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(12);
    for (std::size_t i = 0; i < layout.parts.size(); ++i) {
        const Layout& part = layout.parts[i];
        const int row = static_cast<int>(i / 2);
        const int column = static_cast<int>(i % 2);
        if (isOneWidget(part))
            grid->addWidget(widgetOf(part, parent), row, column, alignmentOf(part));
        else
            grid->addLayout(build(part, parent), row, column, alignmentOf(part));
    }
    return grid;
}

QLayout* LayoutBuilder::buildTable(const Layout& layout, QWidget& parent) const {
    auto* const grid = new QGridLayout;
    grid->setSpacing(4);
    for (std::size_t i = 0; i < layout.parts.size(); ++i) {
        const Layout& part = layout.parts[i];
        const int row = static_cast<int>(i) / layout.columns;
        const int column = static_cast<int>(i) % layout.columns;
        grid->setColumnStretch(column, 1);
        if (part.kind != Layout::Kind::Space)
            grid->addWidget(widgetOf(part, parent), row, column, Qt::AlignCenter);
    }
    return grid;
}

}  // namespace tallybrook
