#pragma once

#include <QMainWindow>

class QLineEdit;
class QToolBar;

namespace tallybrook {

class HelpBrowser;

/// The help, from the program's own pages alone, with a search over all of them.
class HelpWindow : public QMainWindow {
public:
    /// `dataFolder` is what the pages can open.
    explicit HelpWindow(const QString& dataFolder = {});
    /// Shows a page by its name, as in "index", in front.
    void open(const QString& page);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addPageActions(QToolBar& bar);
    void addSearch(QToolBar& bar);

    HelpBrowser* pages_;
    QLineEdit* sought_;
};

}  // namespace tallybrook
