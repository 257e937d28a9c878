#ifndef MARKREGISTRY_H
#define MARKREGISTRY_H

#include <QList>
#include <QPointer>
#include <QVector>

#include "markselfdraw.h"

class QPainter;
class QWidget;
class QwtPlot;

// Every mark of one chart, one list per kind of tool, in creation order.
// The pointers are guarded: a mark deleted anywhere (Delete key, its panel
// closed) simply drops out. The chart owns the registry, the panels own
// the marks.
class MarkRegistry
{
public:
    // The kinds, in the registry's order.
    enum Kind {
        Text,
        Rectangle,
        Icon,
        FibonacciRetracement,
        TrendLine,
        FibonacciTimeZones,
        PriceChannel,
        Pitchfork,
        Ellipse,
        Triangle,
        FibonacciFan,
        FibonacciExpansion,
        VerticalLine,
        HorizontalLine,
        Ray,
        KindCount
    };

    void add(Kind kind, MarkSelfDraw *mark);
    // The live marks of one kind, oldest first.
    QList<MarkSelfDraw *> marks(Kind kind) const;
    // The live marks of every kind, in kind order; with `plot`, only those
    // attached to it.
    QList<MarkSelfDraw *> all(const QwtPlot *plot = nullptr) const;

    // k bars were inserted before bar i: every mark, on every panel, moves
    // its anchors at or after i by k, so it stays on its bars.
    void barsInserted(int index, int count);

    // The overlay's paint pass: the vertical lines cross every panel.
    void paintOverlay(QPainter *painter, QWidget *overlay) const;

private:
    QVector<QPointer<MarkSelfDraw>> m_lists[KindCount];
};

#endif // MARKREGISTRY_H
