#include <QApplication>
#include <QGenericPlugin>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <cstdio>

namespace tallybrook::test {

/// Hands for a program under test that runs as a process of its own: they answer its boxes with Yes or their
/// first button, close its windows, and write what they have seen to the standard output.
class Hands : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "hands.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*arguments*/) override {
        auto* const timer = new QTimer;
        connect(timer, &QTimer::timeout, timer, look);
        timer->start(1);
        return timer;
    }

private:
    static void look() {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            write("box: " + box->text().replace('\n', '|'));
            press(*box);
            return;
        }
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const window = qobject_cast<QMainWindow*>(widget);
            if (window == nullptr || !window->isVisible())
                continue;
            write("window: " + window->windowTitle());
            // A window may ask before it closes, and no timer fires within its own slot.
            QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        }
    }
    static void press(QMessageBox& box) {
        QAbstractButton* const yes = box.button(QMessageBox::Yes);
        (yes != nullptr ? yes : box.buttons().constFirst())->click();
    }
    static void write(const QString& line) {
        std::puts(line.toUtf8().constData());
        std::fflush(stdout);
    }
};

}  // namespace tallybrook::test

#include "Hands.moc"
