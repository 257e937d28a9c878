#ifndef SHAPEGEOMETRY_H
#define SHAPEGEOMETRY_H

#include <QLineF>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QVector>

// The arithmetic of the shape and channel tools, apart from any widget: the
// lines they draw, their hit tests, and the eight grips of a box (ellipse,
// rectangle) that resize it like a window's edges. Points are canvas
// pixels, except where a box is kept in (bar, price).
class ShapeGeometry
{
public:
    // The pitchfork: the median from the pivot through the centre of the
    // reaction points, the tines through each reaction point parallel to
    // it, all to the canvas edge, and the segment joining the reaction
    // points; cut to `canvas`, null where nothing shows.
    static QVector<QLineF> pitchforkLines(QPointF pivot, QPointF centre, QPointF reaction1,
                                          QPointF reaction2, const QRectF &canvas);

    // The channel on the base line a-b whose parallel is `offset` pixels
    // below it (above when negative): within 3 pixels of the base or the
    // parallel, or inside the band between them.
    static bool channelHit(QPointF a, QPointF b, double offset, QPointF p);

    // Within 3 pixels of a side of the closed polygon.
    static bool outlineHit(const QPolygonF &polygon, QPointF p);
    // Inside `box` or within 3 pixels of its outline.
    static bool boxHit(const QRectF &box, QPointF p);

    // Distance from p to the ellipse inscribed in `box` (its outline).
    static double ellipseDistance(const QRectF &box, QPointF p);
    // The ellipse inscribed in `box` as polylines, only the runs near
    // `clip`: a huge ellipse costs no more than the part in view.
    static QVector<QPolygonF> ellipseRuns(const QRectF &box, const QRectF &clip);

    // Grips of a box spanned by corners a and b, clockwise from a's corner:
    // 0 a, 1 middle of a's side, 2 (b.x, a.y), 3 middle of b's x side, 4 b,
    // 5 middle of b's side, 6 (a.x, b.y), 7 middle of a's x side.
    static const int GripCount = 8;
    static QPointF gripPoint(QPointF a, QPointF b, int grip);
    // Grip `grip` dragged to `to`: a corner moves its two edges, a side
    // grip its own edge only. The corners may cross, so that a drag past
    // the opposite edge turns the box over instead of losing that edge.
    static void moveGrip(QPointF &a, QPointF &b, int grip, QPointF to);
};

#endif // SHAPEGEOMETRY_H
