#include "panelset.h"

#include "demochart.h"
#include "marketfeed.h"

PanelSet::PanelSet(DemoChart *c, MarketFeed *f, QObject *parent)
    : QObject(parent)
    , chart(c)
    , feed(f)
{
    connect(chart, &DemoChart::panelClosed, this, &PanelSet::panelClosed);
}

QString PanelSet::name(Role role)
{
    switch (role) {
    case Prices: return tr("price panel");
    case Volume: return tr("volume panel");
    case Averages: return tr("averages panel");
    case Empty: break;
    }
    return tr("empty panel");
}

void PanelSet::build()
{
    chart->AddSeries(QString::fromLatin1(MarketFeed::priceSeries), 0, 0, 0, 0, false);
    roles = {Prices};
    addPanel(Volume);
    addPanel(Averages);
}

int PanelSet::addPanel(Role role)
{
    const long index = chart->GetPanelCount();
    switch (role) {
    case Volume:
        chart->AddSeries(QString::fromLatin1(MarketFeed::volumeSeries), 0, index, 0, 0, false);
        break;
    case Averages:
        for (const QString &series : MarketFeed::averageSeries())
            chart->AddSeries(series, 0, index, 0, 0, false);
        break;
    default:
        chart->AddChartPanel();
        break;
    }
    roles.append(role);
    Q_EMIT changed();
    return int(index);
}

void PanelSet::dataLoaded()
{
    if (!feed->hasVolume() && has(Volume)) {
        closingForData = true;
        chart->closePanel(roles.indexOf(Volume));
        Q_EMIT message(tr("no volume in this data set: volume panel closed"));
    } else if (feed->hasVolume() && !has(Volume) && !volumeClosedByUser) {
        showVolume();
    }
}

void PanelSet::showVolume()
{
    if (has(Volume))
        return;
    volumeClosedByUser = false;
    // Back right under the prices.
    const int index = addPanel(Volume);
    if (index > 1) {
        chart->MoveChartPanel(index, 1);
        roles.move(index, 1);
    }
    feed->resendVolume();
    Q_EMIT message(tr("volume panel shown"));
}

void PanelSet::showAverages()
{
    if (has(Averages))
        return;
    addPanel(Averages);
    feed->resendAverages();
    Q_EMIT message(tr("averages panel shown"));
}

void PanelSet::addEmpty()
{
    const int index = addPanel(Empty);
    Q_EMIT message(tr("panel %1 added").arg(index));
}

bool PanelSet::closeLowest()
{
    // Reported by panelClosed(), as a close button's is.
    return chart->closePanel(chart->GetPanelCount() - 1);
}

bool PanelSet::swapLowest()
{
    const int n = int(chart->GetPanelCount());
    if (n < 3)
        return false;
    chart->MoveChartPanel(n - 1, n - 2);
    roles.move(n - 1, n - 2);
    Q_EMIT message(tr("panels %1 and %2 swapped").arg(n - 2).arg(n - 1));
    Q_EMIT changed();
    return true;
}

void PanelSet::panelClosed(int index)
{
    if (index < 0 || index >= roles.size())
        return;
    const Role role = roles.takeAt(index);
    if (role == Volume && !closingForData)
        volumeClosedByUser = true;
    if (!closingForData)
        Q_EMIT message(tr("%1 (panel %2) closed").arg(name(role)).arg(index));
    closingForData = false;
    Q_EMIT changed();
}
