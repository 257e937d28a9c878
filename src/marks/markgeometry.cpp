#include "markgeometry.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace {

int truncated(double v, double limit)
{
    if (!(v == v))
        return 0;
    return int(std::max(-limit, std::min(limit, v)));
}

} // namespace

int MarkGeometry::toPixel(double v)
{
    // A pixel mapped to plot coordinates and back comes out a hair off:
    // that noise must not truncate to the pixel before, or a handle would
    // creep one pixel up and left after every drag.
    const double whole = std::round(v);
    if (std::fabs(v - whole) < 1e-6)
        v = whole;
    return truncated(v, Reach);
}

bool MarkGeometry::segmentHit(QPoint a, QPoint b, QPoint p)
{
    const float vx = float(b.x() - a.x()), vy = float(b.y() - a.y());
    const float length = std::sqrt(vx * vx + vy * vy);
    const float ux = length > 0.0f ? vx / length : vx;
    const float uy = length > 0.0f ? vy / length : vy;
    const float wx = float(p.x() - a.x()), wy = float(p.y() - a.y());
    const float t = ux * wx + uy * wy;
    const float dx = wx - t * ux, dy = wy - t * uy;
    const float d = std::sqrt(dx * dx + dy * dy);
    return d < Tolerance && t > 0.0f && t < length;
}

bool MarkGeometry::nearLine(int line, int coordinate)
{
    return std::abs(float(coordinate) - float(line)) < Tolerance;
}

bool MarkGeometry::nearSegment(QPointF a, QPointF b, QPointF p)
{
    const QPointF v = b - a, w = p - a;
    const double length2 = QPointF::dotProduct(v, v);
    double t = length2 > 0.0 ? QPointF::dotProduct(w, v) / length2 : 0.0;
    if (!std::isfinite(t))
        return false;
    t = std::max(0.0, std::min(1.0, t));
    const QPointF off = w - t * v;
    return std::hypot(off.x(), off.y()) < Tolerance;
}

bool MarkGeometry::nearAny(const QVector<QLineF> &lines, QPointF p)
{
    for (const QLineF &line : lines) {
        if (!line.isNull() && nearSegment(line.p1(), line.p2(), p))
            return true;
    }
    return false;
}

bool MarkGeometry::clip(QPointF &a, QPointF &b, const QRectF &rect)
{
    const double dx = b.x() - a.x(), dy = b.y() - a.y();
    double t0 = 0.0, t1 = 1.0;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x() - rect.left(), rect.right() - a.x(), a.y() - rect.top(),
                         rect.bottom() - a.y()};
    for (int i = 0; i < 4; ++i) {
        if (!std::isfinite(p[i]) || !std::isfinite(q[i]))
            return false;
        if (p[i] == 0.0) {
            if (q[i] < 0.0)
                return false; // parallel to this edge and outside it
            continue;
        }
        const double r = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, r);
        else
            t1 = std::min(t1, r);
        if (t0 > t1)
            return false;
    }
    const QPointF from = a;
    a = from + t0 * QPointF(dx, dy);
    b = from + t1 * QPointF(dx, dy);
    return true;
}

QLineF MarkGeometry::rayInside(QPointF from, QPointF through, const QRectF &rect)
{
    QPointF end = rayEnd(from, through, rect);
    if (end == from)
        return QLineF();
    return segmentInside(from, end, rect);
}

QLineF MarkGeometry::segmentInside(QPointF a, QPointF b, const QRectF &rect)
{
    if (!clip(a, b, rect))
        return QLineF();
    return QLineF(a, b);
}

QRectF MarkGeometry::keepInside(QRectF box, const QRectF &rect)
{
    if (box.right() > rect.right())
        box.moveRight(rect.right());
    if (box.bottom() > rect.bottom())
        box.moveBottom(rect.bottom());
    if (box.left() < rect.left())
        box.moveLeft(rect.left());
    if (box.top() < rect.top())
        box.moveTop(rect.top());
    return box;
}

QRect MarkGeometry::spanned(QPoint a, QPoint b)
{
    return QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                 QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
}

QPointF MarkGeometry::direction(QPointF a, QPointF b)
{
    const QPointF v = b - a;
    const double length = std::hypot(v.x(), v.y());
    return length > 0.0 ? v / length : v;
}

QPointF MarkGeometry::rayEnd(QPointF a, QPointF b, const QRectF &canvas)
{
    const QPointF centre(canvas.left() + canvas.width() * 0.5, canvas.top() + canvas.height() * 0.5);
    const QPointF toCentre = centre - a;
    const double reach = std::hypot(toCentre.x(), toCentre.y()) + canvas.width() + canvas.height();
    return a + reach * direction(a, b);
}

QString MarkGeometry::rayLabel(QPointF anchor0, QPointF anchor1, QPointF direction, int decimals)
{
    const int bars = truncated(std::fabs(std::floor(anchor1.x() - anchor0.x())), INT_MAX);
    double change = anchor1.y() - anchor0.y();
    if (decimals > 1)
        change *= std::pow(10.0, decimals - 1);
    const int degrees = truncated(std::atan2(-direction.y(), direction.x()) * 57.29577957855229,
                                  180.0);
    return QString::asprintf("%d/%.1f,%d", bars, change, degrees) + QChar(0x00B0);
}
