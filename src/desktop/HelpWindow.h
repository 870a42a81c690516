#pragma once

#include "shell/Display.h"

#include <QMainWindow>

class QLineEdit;
class QTextBrowser;

namespace tallybrook {

/// The help, from the program's own pages alone.
class HelpWindow : public QMainWindow {
public:
    HelpWindow();
    /// Shows a topic, in front.
    void open(HelpTopic topic);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void findNext();

    QTextBrowser* pages_;
    QLineEdit* sought_;
};

}  // namespace tallybrook
