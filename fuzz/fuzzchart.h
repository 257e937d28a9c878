#ifndef FUZZCHART_H
#define FUZZCHART_H

#include "pricegraph.h"

// The chart as a host subclass sees it: the protected members made callable
// so the fuzz driver reaches every exported entry point.
class FuzzChart : public PriceGraph
{
public:
    using PriceGraph::PriceGraph;
    using PriceGraph::OnPlotClose;
    using PriceGraph::removePannels;
    using PriceGraph::resetLayout;
    using PriceGraph::ResetSplitter;
    using PriceGraph::GetMainPanel;
    using PriceGraph::GetAllPanel;
    using PriceGraph::getOverlayWidget;
    using PriceGraph::ValmorTimeToQwtTime;
    using PriceGraph::updateAxisLines;
    using PriceGraph::getL1Decimal;
    using PriceGraph::getL1DecimalFix;
};

#endif // FUZZCHART_H
