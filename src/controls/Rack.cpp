#include "controls/Rack.h"

#include "controls/Screen.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace tallybrook {

namespace {

using Row = std::vector<Control*>;
using Rack = std::vector<Row>;

bool hasPins(const Row& row) {
    return std::ranges::any_of(row, [](const Control* control) { return isPin(*control); });
}

/// The rows of a part of a layout, with what can be pressed in them.
Rack rowsOf(const Layout& layout) {
    Rack rows;
    for (const Layout& part : layout.parts) {
        if (part.kind != Layout::Kind::Row)
            continue;
        Row& row = rows.emplace_back();
        for (const Layout& one : part.parts) {
            if (one.control != nullptr && isPressable(*one.control))
                row.push_back(one.control);
        }
    }
    return rows;
}

bool holds(const Rack& rack, const Control& control) {
    return std::ranges::any_of(rack, [&](const Row& row) { return std::ranges::count(row, &control) != 0; });
}

/// The rack that a control stands on; empty if there is none.
Rack rackOf(const Layout& layout, const Control& control) {
    Rack rows = rowsOf(layout);
    if (std::ranges::any_of(rows, hasPins) && holds(rows, control))
        return rows;
    for (const Layout& part : layout.parts) {
        if (Rack inner = rackOf(part, control); !inner.empty())
            return inner;
    }
    return {};
}

/// How far to the right of the middle of its row a control stands, in pins.
double across(const Row& row, Row::const_iterator one) {
    return static_cast<double>(one - row.begin()) - static_cast<double>(row.size() - 1) / 2;
}

Control* nextPin(const Rack& rack, const Control& from, bool backwards) {
    Row order;
    for (const Row& row : rack)
        std::ranges::copy_if(row, std::back_inserter(order), [](const Control* one) { return isPin(*one); });
    if (backwards)
        std::ranges::reverse(order);
    std::rotate(order.begin(), std::ranges::find(order, &from) + 1, order.end());
    const auto next = std::ranges::find_if(order, &Control::canTakeFocus);
    return next == order.end() ? nullptr : *next;
}

/// What of a row stands nearest to a place and can take the focus; of two as near the left one.
Control* nearestIn(const Row& row, double place) {
    Control* nearest = nullptr;
    double least = 0;
    for (auto one = row.begin(); one != row.end(); ++one) {
        const double distance = std::abs(across(row, one) - place);
        if ((*one)->canTakeFocus() && (nearest == nullptr || distance < least)) {
            nearest = *one;
            least = distance;
        }
    }
    return nearest;
}

Control* nearestBelow(const Rack& rack, const Control& from) {
    auto row = std::ranges::find_if(rack, [&](const Row& one) { return holds({one}, from); });
    const double place = across(*row, std::ranges::find(*row, &from));
    Control* found = nullptr;
    while (found == nullptr && ++row != rack.end())
        found = nearestIn(*row, place);
    return found;
}

}  // namespace

bool isPin(const Control& control) {
    return control.kind() == Control::Kind::CheckBox &&
           static_cast<const CheckBox&>(control).look() == CheckBoxLook::Pin;
}

bool isOnRack(const Control& control) {
    return isPressable(control) && !rackOf(control.screen().layout(), control).empty();
}

Control* besideOnRack(const Control& from, std::string_view key) {
    Rack rack = rackOf(from.screen().layout(), from);
    if (key == "Left" || key == "Right")
        return isPin(from) ? nextPin(rack, from, key == "Left") : nullptr;
    if (key == "Up")
        std::ranges::reverse(rack);
    return nearestBelow(rack, from);
}

}  // namespace tallybrook
