#include "chartadapter.h"

#include <QEvent>
#include <QWidget>

namespace {

// Swallows the window's update requests: Qt keeps the dirty region and
// asks no more until it is synced, which never happens.
class UpdateRequestFilter : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::UpdateRequest;
    }
};

} // namespace

void ChartAdapter::paintOnlyOnRender(QWidget *window)
{
    window->installEventFilter(new UpdateRequestFilter(window));
}

void ChartAdapter::render(QImage &image)
{
    widget()->render(&image);
}

QImage ChartAdapter::makeImage()
{
    return QImage(widget()->size(), QImage::Format_ARGB32_Premultiplied);
}
