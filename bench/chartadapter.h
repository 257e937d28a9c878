#ifndef CHARTADAPTER_H
#define CHARTADAPTER_H

#include "barfeed.h"

#include <QImage>
#include <QString>

class QWidget;

// What the benchmark asks of a charting library: a 1600x900 window with a
// price panel over a volume panel, fed bar by bar, viewed and rendered.
//
// Each library is driven the way its own users drive it; the adapters keep
// the steps comparable: a data change ends with the library's normal way to
// show it, and render() paints the whole window into an image.
class ChartAdapter
{
public:
    virtual ~ChartAdapter() = default;

    virtual QString name() const = 0;
    virtual QWidget *widget() = 0;

    // Appends the next bar. `show` asks for it to be shown (libraries that
    // coalesce replots do so until the event loop runs).
    virtual void append(const Bar &bar, bool show) = 0;
    // After the last append: whatever makes the chart current (the host's
    // event loop running, or handing over the samples and replotting).
    virtual void finishLoad() = 0;
    // Replaces the newest bar with a live tick and brings it to screen state
    // (the caller renders afterwards).
    virtual void editLast(const Bar &bar) = 0;
    // A forced replot of every panel.
    virtual void replot() = 0;

    // Views. Each returns the number of bars in view (inferred where the
    // library does not say). `bars` is the count to aim at for libraries
    // that set their range directly.
    virtual double viewNewest(double bars) = 0;
    virtual double viewWidest(double bars) = 0;
    virtual void viewMiddle(double bars) = 0;
    // One bar towards newer (+1) or older (-1) bars, then replot.
    virtual void step(int direction) = 0;
    // Draws `count` trend lines on the price panel the way a user does,
    // either all in the current view or spread over `spreadBars` bars
    // around it, and leaves the view where it was. False where the library
    // has no drawing tools.
    virtual bool addMarks(int count, int spreadBars) { (void)count; (void)spreadBars; return false; }

    // Renders the whole window into `image` (which matches its size).
    void render(QImage &image);
    QImage makeImage();

protected:
    // Keeps the event loop from painting `window` into its own backing
    // store, so that every measured step paints exactly once: in render().
    static void paintOnlyOnRender(QWidget *window);
};

#endif // CHARTADAPTER_H
