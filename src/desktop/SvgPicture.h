#pragma once

#include <QSvgWidget>

namespace tallybrook {

/// A picture, which a screen reader knows as one.
class SvgPicture : public QSvgWidget {
public:
    SvgPicture(const QString& file, QWidget* parent);
};

}  // namespace tallybrook
