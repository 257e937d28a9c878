#include "demochart.h"

DemoChart::DemoChart(QWidget *parent)
    : PriceGraph(parent)
{
}

bool DemoChart::closePanel(long index)
{
    const QList<Plot *> all = GetAllPanel();
    if (index <= 0 || index >= all.size())
        return false;
    QList<Plot *> doomed{all.at(int(index))};
    removePannels(doomed);
    return true;
}
