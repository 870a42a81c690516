#pragma once

#include <QDialog>
#include <QTimer>
#include <deque>
#include <functional>

namespace tallybrook::test {

/// Handles the boxes and dialogs that come up, in the order told in advance. A box that nobody expected fails
/// the test, and so does an expected one that does not come.
class ModalHands {
public:
    using Handle = std::function<void(QDialog& window)>;

    ModalHands();
    ~ModalHands();
    ModalHands(const ModalHands&) = delete;
    ModalHands& operator=(const ModalHands&) = delete;

    void expect(Handle handle) { expected_.push_back(std::move(handle)); }

private:
    void look();

    QTimer timer_;
    std::deque<Handle> expected_;
};

}  // namespace tallybrook::test
