#pragma once

#include "controls/Control.h"

#include <utility>
#include <vector>

namespace tallybrook {

/// Where things stand on a screen, told in rows, columns, groups and forms; a display draws it.
struct Layout {
    enum class Kind {
        Item,     // one control
        Row,      // parts beside each other
        Column,   // parts below each other
        Form,     // pairs of parts: a label and what it names, the labels aligned
        Table,    // parts in `columns` columns, row by row
        Group,    // a frame control around one part
        Buttons,  // buttons of one width, below each other; those behind a space stand apart
        Space,    // room that takes up what is left over
    };
    enum class Align { Fill, Centre, Start };

    Kind kind = Kind::Space;
    Control* control = nullptr;
    std::vector<Layout> parts;
    int columns = 0;
    Align align = Align::Fill;
    int stretch = 0;  // the share of left-over room, 0 for none

    Layout() = default;
    Layout(Kind what, std::vector<Layout> inside) : kind(what), parts(std::move(inside)) {}
    Layout(Control& one) : kind(Kind::Item), control(&one) {}

    [[nodiscard]] Layout centred() && {
        align = Align::Centre;
        return std::move(*this);
    }
    [[nodiscard]] Layout atStart() && {
        align = Align::Start;
        return std::move(*this);
    }
    [[nodiscard]] Layout stretched(int share = 1) && {
        stretch = share;
        return std::move(*this);
    }
};

namespace layout {

inline Layout row(std::vector<Layout> parts) {
    return {Layout::Kind::Row, std::move(parts)};
}
inline Layout column(std::vector<Layout> parts) {
    return {Layout::Kind::Column, std::move(parts)};
}
inline Layout form(std::vector<Layout> parts) {
    return {Layout::Kind::Form, std::move(parts)};
}
inline Layout buttons(std::vector<Layout> parts) {
    return {Layout::Kind::Buttons, std::move(parts)};
}
inline Layout space() {
    return Layout{}.stretched();
}

inline Layout table(int columns, std::vector<Layout> parts) {
    Layout made{Layout::Kind::Table, std::move(parts)};
    made.columns = columns;
    return made;
}

inline Layout group(Control& frame, Layout inside) {
    Layout made{Layout::Kind::Group, {}};
    made.control = &frame;
    made.parts.push_back(std::move(inside));
    return made;
}

}  // namespace layout

}  // namespace tallybrook
