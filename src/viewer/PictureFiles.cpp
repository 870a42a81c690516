#include "viewer/PictureFiles.h"

#include "paper/WholeFile.h"
#include "readers/FileFailure.h"
#include "viewer/Boxes.h"

#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <array>
#include <cmath>
#include <functional>

namespace tallybrook {

namespace {

constexpr double kMargin = 12;
constexpr int kPointsOfPng = 2;

/// A picture laid out as it is looked at, for a white ground.
class WhitePicture {
public:
    explicit WhitePicture(const PictureWidget& picture)
        : look_(picture.font(), paperPalette()),
          strips_(picture.picture().strips(look_, picture.width(), picture.view())),
          size_(picture.width() + 2 * kMargin, heightOf(strips_) + 2 * kMargin) {}
    WhitePicture(const WhitePicture&) = delete;
    WhitePicture& operator=(const WhitePicture&) = delete;

    [[nodiscard]] QSize size() const {
        return {static_cast<int>(std::ceil(size_.width())), static_cast<int>(std::ceil(size_.height()))};
    }
    void draw(QPainter& painter) const {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(QRectF(QPointF(), size_), Qt::white);
        painter.translate(kMargin, kMargin);
        for (const Strip& strip : strips_) {
            strip.draw(painter);
            painter.translate(0, strip.height);
        }
    }

private:
    PictureLook look_;
    Strips strips_;
    QSizeF size_;
};

QImage imageOf(const PictureWidget& picture) {
    const WhitePicture white(picture);
    QImage image(white.size() * kPointsOfPng, QImage::Format_RGB32);
    image.setDevicePixelRatio(kPointsOfPng);
    QPainter painter(&image);
    white.draw(painter);
    return image;
}

void write(const QString& file, const std::function<bool(QIODevice& stream)>& put) {
    QBuffer drawn;
    drawn.open(QIODevice::WriteOnly);
    if (!put(drawn))
        throw FileFailure("The picture cannot be drawn.");
    writeWhole(file, drawn.data());
}

/// A kind of file that a picture is saved as.
struct PictureKind {
    const char* filter;
    const char* suffix;
    void (*write)(const PictureWidget& picture, const QString& file);
};

constexpr std::array<PictureKind, 2> kPictureKinds{
    {{"SVG Files (*.svg)", "svg", writeSvg}, {"PNG Files (*.png)", "png", writePng}}};

/// The kind that a file's name ends with; otherwise the one that was chosen.
const PictureKind& kindOf(const QString& file, const QString& chosen) {
    const PictureKind* found =
        chosen == kPictureKinds.back().filter ? &kPictureKinds.back() : &kPictureKinds.front();
    for (const PictureKind& kind : kPictureKinds) {
        if (QFileInfo(file).suffix().compare(kind.suffix, Qt::CaseInsensitive) == 0)
            found = &kind;
    }
    return *found;
}

}  // namespace

void copyPicture(PictureWidget& picture) {
    QGuiApplication::clipboard()->setImage(imageOf(picture));
}

void copyTable(PictureWidget& picture) {
    QGuiApplication::clipboard()->setText(picture.table().asText());
}

void writeSvg(const PictureWidget& picture, const QString& file) {
    write(file, [&picture](QIODevice& stream) {
        const WhitePicture white(picture);
        QSvgGenerator generator;
        generator.setOutputDevice(&stream);
        generator.setTitle(picture.picture().name);
        generator.setDescription(picture.picture().summary);
        generator.setResolution(picture.logicalDpiX());
        generator.setSize(white.size());
        generator.setViewBox(QRect(QPoint(), white.size()));
        QPainter painter;
        if (!painter.begin(&generator))
            return false;
        white.draw(painter);
        return painter.end();
    });
}

void writePng(const PictureWidget& picture, const QString& file) {
    write(file, [&picture](QIODevice& stream) { return imageOf(picture).save(&stream, "PNG"); });
}

void savePicture(PictureWidget& picture) {
    QFileDialog dialog(picture.window(), "Save Picture");
    dialog.setNameFilters({kPictureKinds.front().filter, kPictureKinds.back().filter});
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(kPictureKinds.front().suffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(kindOf({}, filter).suffix);
    });
    dialog.selectFile(QString(picture.picture().name).remove(':') + ".svg");
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString file = dialog.selectedFiles().value(0);
    try {
        kindOf(file, dialog.selectedNameFilter()).write(picture, file);
    } catch (const FileFailure& failure) {
        tellFailure(picture.window(), "The picture cannot be saved:", file, failure.reason());
    }
}

}  // namespace tallybrook
