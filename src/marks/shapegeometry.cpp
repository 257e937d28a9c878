#include "shapegeometry.h"

#include "markgeometry.h"

#include <algorithm>
#include <cmath>

QVector<QLineF> ShapeGeometry::pitchforkLines(QPointF pivot, QPointF centre, QPointF reaction1,
                                              QPointF reaction2, const QRectF &canvas)
{
    const QPointF along = centre - pivot;
    return {MarkGeometry::rayInside(pivot, centre, canvas),
            MarkGeometry::rayInside(reaction1, reaction1 + along, canvas),
            MarkGeometry::rayInside(reaction2, reaction2 + along, canvas),
            MarkGeometry::segmentInside(reaction1, reaction2, canvas)};
}

bool ShapeGeometry::channelHit(QPointF a, QPointF b, double offset, QPointF p)
{
    const QPointF shift(0.0, offset);
    if (MarkGeometry::nearSegment(a, b, p) || MarkGeometry::nearSegment(a + shift, b + shift, p))
        return true;
    // Inside the band: between the anchors' x and between the two lines.
    const double left = std::min(a.x(), b.x()), right = std::max(a.x(), b.x());
    if (!(p.x() >= left && p.x() <= right) || right == left)
        return false;
    const double y = a.y() + (b.y() - a.y()) * (p.x() - a.x()) / (b.x() - a.x());
    return p.y() >= std::min(y, y + offset) && p.y() <= std::max(y, y + offset);
}

bool ShapeGeometry::outlineHit(const QPolygonF &polygon, QPointF p)
{
    for (int i = 0; i < polygon.size(); ++i) {
        if (MarkGeometry::nearSegment(polygon.at(i), polygon.at((i + 1) % polygon.size()), p))
            return true;
    }
    return false;
}

bool ShapeGeometry::boxHit(const QRectF &box, QPointF p)
{
    const QRectF r = box.normalized();
    const double t = MarkGeometry::Tolerance;
    return p.x() > r.left() - t && p.x() < r.right() + t && p.y() > r.top() - t
           && p.y() < r.bottom() + t;
}

double ShapeGeometry::ellipseDistance(const QRectF &box, QPointF p)
{
    const QRectF r = box.normalized();
    const double a = r.width() * 0.5, b = r.height() * 0.5;
    const double px = std::fabs(p.x() - r.center().x()), py = std::fabs(p.y() - r.center().y());
    if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(px) || !std::isfinite(py))
        return HUGE_VAL;
    // A flat ellipse is the segment between its ends.
    if (a < 1e-9 || b < 1e-9)
        return std::hypot(px - std::min(px, a), py - std::min(py, b));
    // The nearest point of the quarter ellipse, by a few steps of a
    // trigonometry-free iteration that converges for any eccentricity.
    double tx = M_SQRT1_2, ty = M_SQRT1_2;
    for (int i = 0; i < 4; ++i) {
        const double x = a * tx, y = b * ty;
        const double ex = (a * a - b * b) * tx * tx * tx / a;
        const double ey = (b * b - a * a) * ty * ty * ty / b;
        const double rx = x - ex, ry = y - ey, qx = px - ex, qy = py - ey;
        const double rl = std::hypot(rx, ry), ql = std::hypot(qx, qy);
        if (!(ql > 0.0))
            break;
        tx = std::clamp((qx * rl / ql + ex) / a, 0.0, 1.0);
        ty = std::clamp((qy * rl / ql + ey) / b, 0.0, 1.0);
        const double t = std::hypot(tx, ty);
        tx /= t;
        ty /= t;
    }
    return std::hypot(px - a * tx, py - b * ty);
}

namespace {

struct Ellipse
{
    QPointF centre;
    double a, b;
    QPointF at(double t) const { return centre + QPointF(a * std::cos(t), b * std::sin(t)); }
};

// Splits the arc [t0, t1] until each piece is within a quarter pixel of
// its chord, dropping pieces that cannot reach `clip`.
void addArc(const Ellipse &e, double t0, double t1, const QRectF &clip, int depth,
            QVector<QPolygonF> &runs, bool &open)
{
    const QPointF p0 = e.at(t0), p1 = e.at(t1);
    const double span = t1 - t0;
    const double radius = std::max(e.a, e.b);
    const double reach = radius * span * 0.5; // how far the arc strays from its ends
    const QRectF hull = QRectF(p0, p1).normalized().adjusted(-reach, -reach, reach, reach);
    if (!hull.intersects(clip)) {
        open = false;
        return;
    }
    const double sag = radius * span * span / 8.0;
    if (sag > 0.25 && depth < 48) {
        const double mid = (t0 + t1) * 0.5;
        addArc(e, t0, mid, clip, depth + 1, runs, open);
        addArc(e, mid, t1, clip, depth + 1, runs, open);
        return;
    }
    if (!open) {
        runs.append(QPolygonF(QVector<QPointF>{p0}));
        open = true;
    }
    runs.last().append(p1);
}

} // namespace

QVector<QPolygonF> ShapeGeometry::ellipseRuns(const QRectF &box, const QRectF &clip)
{
    QVector<QPolygonF> runs;
    const QRectF r = box.normalized();
    const Ellipse e{r.center(), r.width() * 0.5, r.height() * 0.5};
    if (!std::isfinite(e.a) || !std::isfinite(e.b) || !std::isfinite(e.centre.x())
        || !std::isfinite(e.centre.y()))
        return runs;
    bool open = false;
    for (int quarter = 0; quarter < 4; ++quarter)
        addArc(e, quarter * M_PI_2, (quarter + 1) * M_PI_2, clip, 0, runs, open);
    return runs;
}

QPointF ShapeGeometry::gripPoint(QPointF a, QPointF b, int grip)
{
    const QPointF mid = (a + b) * 0.5;
    switch (grip) {
    case 0: return a;
    case 1: return QPointF(mid.x(), a.y());
    case 2: return QPointF(b.x(), a.y());
    case 3: return QPointF(b.x(), mid.y());
    case 4: return b;
    case 5: return QPointF(mid.x(), b.y());
    case 6: return QPointF(a.x(), b.y());
    default: return QPointF(a.x(), mid.y());
    }
}

void ShapeGeometry::moveGrip(QPointF &a, QPointF &b, int grip, QPointF to)
{
    switch (grip) {
    case 0: a = to; break;
    case 1: a.setY(to.y()); break;
    case 2: b.setX(to.x()); a.setY(to.y()); break;
    case 3: b.setX(to.x()); break;
    case 4: b = to; break;
    case 5: b.setY(to.y()); break;
    case 6: a.setX(to.x()); b.setY(to.y()); break;
    case 7: a.setX(to.x()); break;
    default: break;
    }
}
