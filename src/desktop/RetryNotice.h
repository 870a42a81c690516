#pragma once

#include <QDialog>

namespace tallybrook {

/// The quiet notice beside a screen that has been waiting for a record for a while.
class RetryNotice : public QDialog {
public:
    enum class Choice { None, CloseScreen, EndProgram };

    explicit RetryNotice(QWidget* parent);
    [[nodiscard]] Choice choice() const { return choice_; }

protected:
    void reject() override {}  // waiting ends by itself or by one of the buttons

private:
    Choice choice_ = Choice::None;
};

}  // namespace tallybrook
