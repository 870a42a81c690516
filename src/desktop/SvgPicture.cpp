#include "desktop/SvgPicture.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace tallybrook {

namespace {

QAccessibleInterface* asPicture(const QString& /*type*/, QObject* object) {
    auto* const picture = dynamic_cast<SvgPicture*>(object);
    return picture == nullptr ? nullptr : new QAccessibleWidget(picture, QAccessible::Graphic);
}

}  // namespace

SvgPicture::SvgPicture(const QString& file, QWidget* parent) : QSvgWidget(file, parent) {
    QAccessible::installFactory(asPicture);
}

}  // namespace tallybrook
