#pragma once

#include "controls/Display.h"

#include <QMainWindow>

class QLineEdit;
class QToolBar;

namespace tallybrook {

class HelpBrowser;

/// The help, from the program's own pages alone, with a search over all of them.
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

    HelpBrowser* pages_;
    QLineEdit* sought_;
};

}  // namespace tallybrook
