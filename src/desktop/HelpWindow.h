#pragma once

#include "shell/Display.h"

#include <QMainWindow>

class QLineEdit;
class QTextBrowser;
class QToolBar;

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
    void addPageActions(QToolBar& bar);
    void addSearch(QToolBar& bar);
    void findNext();

    QTextBrowser* pages_;
    QLineEdit* sought_;
};

}  // namespace tallybrook
