#pragma once

#include <QFrame>
#include <functional>

class QLabel;
class QPushButton;
class QTimer;

namespace tallybrook {

/// A quiet word below the report, which goes by itself after a while. It takes no focus and keeps nobody
/// waiting.
class NoticeBar : public QFrame {
public:
    NoticeBar();

    /// Shows the words.
    void tell(const QString& words);
    /// Shows the words with a button that does something about them; these stay until they are closed.
    void offer(const QString& words, const QString& caption, std::function<void()> run);
    /// Hides the bar; returns false where it was hidden already.
    bool close();

private:
    void showWords(const QString& words);

    QLabel* words_;
    QPushButton* offered_;
    QTimer* going_;
    std::function<void()> run_;
};

}  // namespace tallybrook
