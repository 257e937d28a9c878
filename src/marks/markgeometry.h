#ifndef MARKGEOMETRY_H
#define MARKGEOMETRY_H

#include <QLineF>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QString>
#include <QVector>

// The pixel arithmetic of the drawing tools, apart from any widget: hit
// tests, clipping, the ray's far end and its label text.
class MarkGeometry
{
public:
    // How far a mark's pixels may lie from the canvas: farther coordinates
    // are held there, so widget geometry and painter coordinates never
    // overflow however far an anchor is scrolled away.
    static constexpr int Reach = 100000000;
    // Pointer distance that still counts as on a line.
    static constexpr float Tolerance = 3.0f;

    // A mapped coordinate as a whole pixel: truncated (after rounding
    // away the noise of a round trip through plot coordinates), NaN as 0,
    // held within +-Reach.
    static int toPixel(double v);

    // The trend line's hit, in single precision: within Tolerance of the
    // line through a and b and strictly between them along it. A segment
    // of length 0 is never hit (its handles still are).
    static bool segmentHit(QPoint a, QPoint b, QPoint p);
    // Within Tolerance of a horizontal line at `lineY` or vertical at `lineX`.
    static bool nearLine(int line, int coordinate);

    // Within Tolerance of the segment a-b, its ends included (a segment of
    // length 0 is a point).
    static bool nearSegment(QPointF a, QPointF b, QPointF p);
    // Within Tolerance of any of `lines` that is not null.
    static bool nearAny(const QVector<QLineF> &lines, QPointF p);

    // Cuts a-b to `rect` (Liang-Barsky); false when nothing of it is inside.
    static bool clip(QPointF &a, QPointF &b, const QRectF &rect);
    // The part of the ray from `from` through `through` that `rect` shows;
    // a null line when none does or the two points coincide.
    static QLineF rayInside(QPointF from, QPointF through, const QRectF &rect);
    // The segment a-b cut to `rect`; a null line when none of it is inside.
    static QLineF segmentInside(QPointF a, QPointF b, const QRectF &rect);
    // `box` moved the least that puts it wholly inside `rect` (its top-left
    // corner inside when it is the larger).
    static QRectF keepInside(QRectF box, const QRectF &rect);
    // The rectangle whose corners are the pixels a and b, whichever way
    // round they are given (QRect::normalized is a pixel off for this).
    static QRect spanned(QPoint a, QPoint b);

    // (b - a) / |b - a|, or b - a unnormalised when the length is 0.
    static QPointF direction(QPointF a, QPointF b);
    // The ray's far end: from a through b, far enough to leave `canvas`
    // whichever end of it a lies at.
    static QPointF rayEnd(QPointF a, QPointF b, const QRectF &canvas);
    // "bars/change,angle°": the bar count |floor(x1 - x0)|, the price
    // change in pips (scaled by 10^(decimals - 1) when decimals > 1) and
    // the angle of `direction` on screen in whole degrees, truncated.
    static QString rayLabel(QPointF anchor0, QPointF anchor1, QPointF direction, int decimals);
};

#endif // MARKGEOMETRY_H
