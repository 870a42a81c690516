#include "desktop/WindowMemory.h"

#include <QSettings>
#include <QStringList>
#include <algorithm>

namespace tallybrook {

namespace {

const QString kPlace = "windows/place";
const QString kMaximised = "windows/maximised";

QString sizeKey(const QString& screen) {
    return "sizes/" + screen;
}

QString columnsKey(const QString& grid) {
    return "columns/" + grid;
}

}  // namespace

std::optional<QPoint> WindowMemory::place() const {
    const QVariant kept = value(kPlace);
    return kept.typeId() == QMetaType::QPoint ? std::optional(kept.toPoint()) : std::nullopt;
}

void WindowMemory::keepPlace(QPoint place) {
    keep(kPlace, place);
}

bool WindowMemory::isMaximised() const {
    return value(kMaximised).toString() == "true";
}

void WindowMemory::keepMaximised(bool isMaximised) {
    if (isMaximised != this->isMaximised())
        keep(kMaximised, isMaximised);
}

QSize WindowMemory::sizeOf(const QString& screen) const {
    return value(sizeKey(screen)).toSize();
}

void WindowMemory::keepSize(const QString& screen, QSize size) {
    keep(sizeKey(screen), size);
}

QList<int> WindowMemory::columnsOf(const QString& grid) const {
    QList<int> widths;
    for (const QString& width : value(columnsKey(grid)).toStringList())
        widths << width.toInt();
    const bool isSound = std::ranges::all_of(widths, [](int width) { return width > 0; });
    return isSound ? widths : QList<int>();
}

void WindowMemory::keepColumns(const QString& grid, const QList<int>& widths) {
    QStringList texts;
    for (const int width : widths)
        texts << QString::number(width);
    keep(columnsKey(grid), texts);
}

QVariant WindowMemory::value(const QString& key) const {
    const auto kept = kept_.constFind(key);
    if (kept != kept_.constEnd())
        return *kept;
    return settings_ == nullptr ? QVariant() : settings_->value(key);
}

void WindowMemory::keep(const QString& key, const QVariant& value) {
    kept_[key] = value;
    if (settings_ != nullptr)
        settings_->setValue(key, value);
}

}  // namespace tallybrook
