#include "chartadapter.h"

#include <QWidget>

void ChartAdapter::render(QImage &image)
{
    widget()->render(&image);
}

QImage ChartAdapter::makeImage()
{
    return QImage(widget()->size(), QImage::Format_ARGB32_Premultiplied);
}
