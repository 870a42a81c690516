#pragma once

#include <QAccessible>
#include <string>
#include <utility>
#include <vector>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace tallybrook::test {

/// Hears what the windows tell a screen reader, as long as it lives.
class Heard {
public:
    struct Told {
        QAccessible::Event event;
        std::string object;  // by its name, or by what it is called then where it has none; an alert that
                             // nobody hears, since its window is not seen yet, is told as that
        friend bool operator==(const Told&, const Told&) = default;
    };

    Heard() {
        told().clear();
        listen(true);
        before_ = QAccessible::installUpdateHandler(hear);
    }
    ~Heard() {
        QAccessible::installUpdateHandler(before_);
        listen(false);
    }
    Heard(const Heard&) = delete;
    Heard& operator=(const Heard&) = delete;

    /// The objects of which an event of that kind was told, in their order; what was told is forgotten.
    static std::vector<std::string> take(QAccessible::Event event) {
        std::vector<std::string> objects;
        for (const Told& one : std::exchange(told(), {})) {
            if (one.event == event)
                objects.push_back(one.object);
        }
        return objects;
    }

private:
    /// The toolkit tells nothing as long as nobody listens.
    static void listen(bool listens) {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(listens);
    }
    static std::vector<Told>& told() {
        static std::vector<Told> all;
        return all;
    }
    static void hear(QAccessibleEvent* event) {
        const QString name = event->object() != nullptr ? event->object()->objectName() : QString();
        const QAccessibleInterface& heard = *event->accessibleInterface();
        const QString called = name.isEmpty() ? heard.text(QAccessible::Name) : name;
        const bool isLost = event->type() == QAccessible::Alert && heard.state().invisible;
        told().push_back({event->type(), called.toStdString() + (isLost ? ", out of sight" : "")});
    }

    QAccessible::UpdateHandler before_ = nullptr;
};

}  // namespace tallybrook::test
