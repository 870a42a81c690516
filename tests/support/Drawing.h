#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <string>

namespace tallybrook::test {

/// Something to paint on that keeps in words what is painted: each text, line and shape with its place, its
/// pen and its brush. Things of one kind that follow each other stand on one line.
class Drawing : public QPaintDevice {
public:
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine_; }
    /// What was painted, line by line; lengths are pixels.
    [[nodiscard]] std::string told() const { return (engine_.lines_.join('\n') + '\n').toStdString(); }

    /// A font that measures the same on all machines.
    static QFont font(double points) {
        QFont font("DejaVu Sans");
        font.setPointSizeF(points);
        font.setHintingPreference(QFont::PreferNoHinting);
        return font;
    }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        constexpr int kDotsPerInch = 96;
        constexpr int kSide = 10000;
        switch (metric) {
            case PdmWidth:
            case PdmHeight:
                return kSide;
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return kDotsPerInch;
            default:
                return QPaintDevice::metric(metric);
        }
    }

private:
    class Engine : public QPaintEngine {
    public:
        Engine() : QPaintEngine(AllFeatures) {}

        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        [[nodiscard]] Type type() const override { return User; }

        void updateState(const QPaintEngineState& now) override {
            if (now.state().testFlag(DirtyHints))
                hints_ = now.renderHints().testFlag(QPainter::Antialiasing) ? "" : " hard";
            if (now.state().testFlag(DirtyClipPath))
                add("clip", {}, told(now.transform().mapRect(now.clipPath().boundingRect())));
            if (now.state().testFlag(DirtyClipRegion))
                add("clip", {}, told(now.transform().mapRect(QRectF(now.clipRegion().boundingRect()))));
        }
        void drawRects(const QRectF* rects, int count) override {
            for (int index = 0; index < count; ++index)
                add("rectangle", strokeAndFill(), told(mapped(rects[index])));
        }
        void drawLines(const QLineF* lines, int count) override {
            for (int index = 0; index < count; ++index)
                add("line", stroke(),
                    told(mapped(lines[index].p1())) + " to " + told(mapped(lines[index].p2())));
        }
        void drawEllipse(const QRectF& rect) override { add("ellipse", strokeAndFill(), told(mapped(rect))); }
        void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
            QStringList places;
            for (int index = 0; index < count; ++index)
                places += told(mapped(points[index]));
            const bool isLine = mode == PolylineMode;
            add(isLine ? "polyline" : "polygon", isLine ? stroke() : strokeAndFill(), places.join(" to "));
        }
        void drawPath(const QPainterPath& path) override {
            QStringList places;
            for (int index = 0; index < path.elementCount(); ++index)
                places += told(mapped(path.elementAt(index)));
            add("path", strokeAndFill(), places.join(' '));
        }
        void drawTextItem(const QPointF& place, const QTextItem& text) override {
            const QFont font = painter()->font();
            const QString size = font.pixelSize() > 0 ? told(font.pixelSize()) + " pixels"
                                                      : told(font.pointSizeF()) + " points";
            add("text", " " + size + (font.bold() ? " bold " : " ") + told(painter()->pen().color()),
                told(mapped(place)) + " \"" + text.text() + "\"");
        }
        void drawPixmap(const QRectF& place, const QPixmap&, const QRectF&) override {
            add("picture", {}, told(mapped(place)));
        }

    private:
        friend class Drawing;

        /// Each of the same kind as the one before stands behind it.
        void add(const QString& kind, const QString& looks, const QString& what) {
            const QString head = kind + (kind == "clip" ? QString() : hints_) + looks + ":";
            if (head == head_)
                lines_.last() += ", " + what;
            else
                lines_ += head + " " + what;
            head_ = head;
        }

        [[nodiscard]] QPointF mapped(const QPointF& point) const { return painter()->transform().map(point); }
        [[nodiscard]] QRectF mapped(const QRectF& rect) const { return painter()->transform().mapRect(rect); }
        [[nodiscard]] QString stroke() const {
            const QPen& pen = painter()->pen();
            if (pen.style() == Qt::NoPen)
                return {};
            return " " + told(pen.color()) + " " + told(pen.widthF()) +
                   (pen.style() == Qt::SolidLine ? "" : " dashed") +
                   (pen.capStyle() == Qt::RoundCap ? " round ends" : "") +
                   (pen.joinStyle() == Qt::RoundJoin ? " round corners" : "");
        }
        [[nodiscard]] QString strokeAndFill() const {
            const QBrush& brush = painter()->brush();
            return stroke() + (brush.style() == Qt::NoBrush ? QString() : " filled " + told(brush.color()));
        }
        static QString told(double length) { return QString::number(qRound(10 * length) / 10.0); }
        static QString told(const QPointF& place) { return told(place.x()) + " " + told(place.y()); }
        static QString told(const QRectF& place) {
            return told(place.topLeft()) + " " + told(place.width()) + "x" + told(place.height());
        }
        static QString told(const QColor& colour) {
            return colour.name(colour.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb);
        }

        QStringList lines_;
        QString head_;
        QString hints_ = " hard";
    };

    mutable Engine engine_;
};

}  // namespace tallybrook::test
