#include "ModalHands.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace tallybrook::test {

ModalHands::ModalHands() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
    timer_.start(0);
}

ModalHands::~ModalHands() {
    EXPECT_TRUE(expected_.empty()) << expected_.size() << " expected boxes did not come";
}

void ModalHands::look() {
    auto* const window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (window == nullptr || window->objectName() == "retryNotice")
        return;
    if (expected_.empty()) {
        ADD_FAILURE() << "unexpected box \"" << window->windowTitle().toStdString() << "\"";
        window->done(0);
        return;
    }
    const Handle handle = std::move(expected_.front());
    expected_.pop_front();
    timer_.stop();  // what the box does meanwhile is its own business
    handle(*window);
    timer_.start(0);
}

}  // namespace tallybrook::test
