#include "Window.h"
#include "viewer/BusyPointer.h"
#include "viewer/PictureFiles.h"
#include "viewer/PictureWidget.h"

#include <QClipboard>
#include <QFileDialog>
#include <QPainter>

// Pictures that leave the window: with a margin of 12 on white, two points for one in bitmaps.
namespace tallybrook::test {

namespace {

/// A red bar as wide as the picture, 20 high, below 10 of nothing.
ReportPicture redBar() {
    const auto lay = [](const PictureLook&, double width, const PictureView&) {
        Strip strip{20.4, [width](QPainter& painter) { painter.fillRect(QRectF(0, 0, width, 20), Qt::red); }};
        return Strips{gapStrip(10), strip};
    };
    return {"Game 1: 118", "A red bar.", lay, [](const PictureView&) { return PictureTable(); }};
}

class PictureFiles : public testing::Test {
protected:
    PictureFiles() { widget.resize(100, 31); }

    /// Saves the picture under a name, with a kind of file chosen.
    void save(const QString& name, const QString& kind) {
        hands.expect([=, this](QDialog& opened) {
            auto& dialog = dynamic_cast<QFileDialog&>(opened);
            EXPECT_EQ(dialog.nameFilters(), (QStringList{"SVG Files (*.svg)", "PNG Files (*.png)"}));
            EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "Game 1 118.svg");
            dialog.selectNameFilter(kind);
            emit dialog.filterSelected(kind);
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(files.path(name));
            opened.accept();
        });
        savePicture(widget);
    }

    PictureWidget widget{redBar()};
    Files files;
    ModalHands hands;
};

void expectRedBar(const QImage& image) {
    EXPECT_EQ(image.size(), QSize(2 * 124, 2 * 55));
    const auto isRed = [&](int x, int y) { return image.pixelColor(x, y) == QColor(Qt::red); };
    for (const QPoint corner : {QPoint(24, 44), QPoint(223, 44), QPoint(24, 83), QPoint(223, 83)})
        EXPECT_TRUE(isRed(corner.x(), corner.y())) << corner.x() << ", " << corner.y();
    for (const QPoint beside : {QPoint(23, 60), QPoint(224, 60), QPoint(100, 43), QPoint(100, 84)})
        EXPECT_EQ(image.pixelColor(beside), QColor(Qt::white)) << beside.x() << ", " << beside.y();
}

}  // namespace

TEST_F(PictureFiles, BitmapsHaveTheirMargins) {
    writePng(widget, files.path("bar.png"));
    expectRedBar(QImage(files.path("bar.png")));
    copyPicture(widget);
    expectRedBar(QApplication::clipboard()->image());
}

TEST_F(PictureFiles, DrawingsTellWhatTheyAre) {
    writeSvg(widget, files.path("bar.svg"));
    const QByteArray svg = Files::read(files.path("bar.svg"));
    for (const char* const part : {"<title>Game 1: 118</title>", "<desc>A red bar.</desc>",
                                   R"(viewBox="0 0 124 55")", "matrix(1,0,0,1,12,22)", "#ff0000"})
        EXPECT_TRUE(svg.contains(part)) << part << " in " << svg.toStdString();
}

TEST_F(PictureFiles, KindIsThatOfTheNameOrElseTheChosenOne) {
    const QStringList kinds{"SVG Files (*.svg)", "PNG Files (*.png)"};
    const auto isBitmap = [this](const QString& name) {
        const QByteArray bytes = Files::read(files.path(name));
        EXPECT_FALSE(bytes.isEmpty()) << name.toStdString();
        return bytes.startsWith("\x89PNG");
    };
    save("a", kinds[0]);
    save("b", kinds[1]);
    save("c.PNG", kinds[0]);
    save("d.svg", kinds[1]);
    save("e.txt", kinds[1]);
    save("f.txt", kinds[0]);
    EXPECT_FALSE(isBitmap("a.svg"));
    EXPECT_TRUE(isBitmap("b.png"));
    EXPECT_TRUE(isBitmap("c.PNG"));
    EXPECT_FALSE(isBitmap("d.svg"));
    EXPECT_TRUE(isBitmap("e.txt"));
    EXPECT_FALSE(isBitmap("f.txt"));
}

TEST(BusyPointer, IsBusyAsLongAsItLives) {
    {
        const BusyPointer busy;
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace tallybrook::test
