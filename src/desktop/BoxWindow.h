#pragma once

#include "controls/Display.h"
#include "style/PlainBox.h"

namespace tallybrook {

/// A message box of the program. One that asks for Yes or No must be answered: it cannot be closed otherwise.
class BoxWindow : public PlainBox {
public:
    BoxWindow(const MessageBox& box, QWidget* parent);

    /// Shows the box and waits for the answer.
    Answer ask();

    static StandardButton buttonOf(Answer answer);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool mustBeAnswered_;
};

}  // namespace tallybrook
