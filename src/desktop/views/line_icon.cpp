#include "desktop/views/line_icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>
#include <initializer_list>

namespace orvik {
namespace {

// A drawing is this wide and high, and its lines are this thick.
constexpr double kSide = 24;
constexpr double kPen = 1.8;

void AddLines(QPainterPath& path, std::initializer_list<QPointF> points) {
    path.moveTo(*points.begin());
    std::for_each(
        points.begin() + 1, points.end(), [&](const QPointF& point) { path.lineTo(point); });
}

QPainterPath UndoPath() {
    QPainterPath path;
    AddLines(path, {{9, 5}, {4, 10}, {9, 15}});
    path.moveTo(4, 10);
    path.lineTo(14.5, 10);
    path.arcTo(QRectF(10, 10, 9, 9), 90, -180);
    path.lineTo(9, 19);
    return path;
}

QPainterPath PathOf(Drawing drawing) {
    QPainterPath path;
    switch (drawing) {
        case Drawing::Open:
            AddLines(path, {{3, 19}, {3, 5}, {9, 5}, {11.5, 8}, {21, 8}, {21, 19}, {3, 19}});
            AddLines(path, {{3, 11.5}, {21, 11.5}});
            break;
        case Drawing::Save:
            AddLines(path, {{4, 4}, {16.5, 4}, {20, 7.5}, {20, 20}, {4, 20}, {4, 4}});
            AddLines(path, {{8, 4}, {8, 9}, {15, 9}, {15, 4}});
            AddLines(path, {{7.5, 20}, {7.5, 13.5}, {16.5, 13.5}, {16.5, 20}});
            break;
        case Drawing::Undo:
            return UndoPath();
        case Drawing::Redo:
            return QTransform(-1, 0, 0, 1, kSide, 0).map(UndoPath());
        case Drawing::Find:
            path.addEllipse(QPointF(10, 10), 6, 6);
            AddLines(path, {{14.5, 14.5}, {20, 20}});
            break;
        case Drawing::Move:
            AddLines(path, {{13, 8}, {13, 4}, {4, 4}, {4, 20}, {13, 20}, {13, 16}});
            AddLines(path, {{9, 12}, {20.5, 12}});
            AddLines(path, {{16.5, 8}, {20.5, 12}, {16.5, 16}});
            break;
        case Drawing::Up:
            AddLines(path, {{5, 15.5}, {12, 8.5}, {19, 15.5}});
            break;
        case Drawing::Down:
            AddLines(path, {{5, 8.5}, {12, 15.5}, {19, 8.5}});
            break;
        case Drawing::Close:
            AddLines(path, {{6, 6}, {18, 18}});
            AddLines(path, {{6, 18}, {18, 6}});
            break;
    }
    return path;
}

class LineEngine : public QIconEngine {
 public:
    explicit LineEngine(Drawing drawing) : drawing_(drawing) {}

    void paint(QPainter* painter,
               const QRect& rect,
               QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color = QGuiApplication::palette().color(group, QPalette::ButtonText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kSide, rect.height() / kSide);
        painter->setPen(QPen(color, kPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(PathOf(drawing_));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return drawn;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new LineEngine(drawing_); }

 private:
    Drawing drawing_;
};

}  // namespace

QIcon LineIcon(Drawing drawing) {
    return QIcon(new LineEngine(drawing));
}

}  // namespace orvik
