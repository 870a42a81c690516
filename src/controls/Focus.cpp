// Where the focus of a screen is, and how it comes and goes.

#include "controls/Screen.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

Arrival Screen::moveFocus(Control& target) {
    if (!target.canTakeFocus())
        return Arrival::Refused;
    if (leaving_) {
        redirected_ = &target;
        return Arrival::Arrived;
    }
    if (&target == focused_)
        return Arrival::Arrived;

    Control* const left = focused_;
    if (left != nullptr) {
        runLeaving(*left);
        if (Control* const elsewhere = std::exchange(redirected_, nullptr); elsewhere != nullptr) {
            place(*elsewhere);
            if (elsewhere == left)
                return Arrival::Kept;
            if (elsewhere != &target)
                return Arrival::Elsewhere;
            return Arrival::Arrived;
        }
        if (!target.canTakeFocus())
            return Arrival::Refused;
    }
    place(target);
    return Arrival::Arrived;
}

void Screen::runLeaving(Control& left) {
    redirected_ = nullptr;
    if (!left.onLostFocus)
        return;
    struct Leaving {
        explicit Leaving(bool& running) : running_(running) { running_ = true; }
        ~Leaving() { running_ = false; }
        bool& running_;
    } leaving(leaving_);
    left.onLostFocus();
}

// A text box that the focus comes to has all of its text selected, so that typing replaces it.
void Screen::place(Control& target) {
    if (focused_ != nullptr && focused_->kind() == Control::Kind::TextBox)
        static_cast<TextBox*>(focused_)->dropSelection();
    focused_ = &target;
    ledTo_ = nullptr;
    news_.clear();
    if (target.kind() == Control::Kind::TextBox)
        static_cast<TextBox&>(target).selectAll();
    if (target.onGotFocus)
        target.onGotFocus();
}

std::vector<Control*> Screen::tabOrder() const {
    std::vector<Control*> order = tabOrderFirst_;
    for (Control* control : controls_) {
        if (control->isFocusable() && std::ranges::find(tabOrderFirst_, control) == tabOrderFirst_.end())
            order.push_back(control);
    }
    return order;
}

Control* Screen::nextInTabOrder(const Control* after, bool backwards) const {
    std::vector<Control*> order = tabOrder();
    if (backwards)
        std::ranges::reverse(order);
    const auto current = std::ranges::find(order, after);
    if (current != order.end())
        std::rotate(order.begin(), current + 1, order.end());
    const auto next = std::ranges::find_if(
        order, [](const Control* control) { return control->isTabStop() && control->canTakeFocus(); });
    return next == order.end() ? nullptr : *next;
}

void Screen::reviewFocus() {
    if (focused_ == nullptr || leaving_ || focused_->canTakeFocus())
        return;
    if (Control* const next = nextInTabOrder(focused_); next != nullptr)
        place(*next);
    else
        focused_ = nullptr;
}

}  // namespace tallybrook
