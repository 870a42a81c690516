#pragma once

#include <QSvgWidget>

namespace tallybrook {

/// A picture, which a screen reader knows as one.
class PictureWidget : public QSvgWidget {
public:
    PictureWidget(const QString& file, QWidget* parent);
};

}  // namespace tallybrook
