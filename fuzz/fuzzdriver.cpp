#include "fuzzdriver.h"

#include "axisbars.h"
#include "barseries.h"
#include "fuzzchart.h"
#include "markgesture.h"
#include "markregistry.h"
#include "orderentrysink.h"
#include "plot.h"
#include "plotrectmark.h"
#include "plotscrollbar.h"
#include "pricegraphprivate.h"
#include "rectmark.h"
#include "sampletimetable.h"
#include "shapegeometry.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSplitter>
#include <QWheelEvent>

#include <qwt_plot_canvas.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_seriesitem.h>
#include <qwt_scale_div.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
namespace {

uint64_t g_totalCalls = 0;
const uint64_t ReportEvery = 1000000;

void quietHandler(QtMsgType type, const QMessageLogContext &, const QString &msg)
{
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "FATAL: %s\n", qPrintable(msg));
        std::fflush(stderr);
        std::abort();
    }
}

bool isFinite(double v) { return std::isfinite(v); }

} // namespace

FuzzDriver::FuzzDriver(const uint8_t *data, size_t size)
    : m_in(data, size)
    , m_chart(new FuzzChart)
    , m_sink(new OrderEntrySink)
{
    m_chart->resize(640, 400);
    m_chart->show();
}

FuzzDriver::~FuzzDriver()
{
    delete m_chart;
    delete m_sink;
    // Objects handed to deleteLater() go now, so nothing piles up across inputs.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

uint64_t FuzzDriver::totalCalls()
{
    return g_totalCalls;
}

void FuzzDriver::installQuietMessageHandler()
{
    qInstallMessageHandler(quietHandler);
}

uint64_t FuzzDriver::run()
{
    check("construction");
    while (!m_in.atEnd() && m_calls < uint64_t(MaxCalls))
        step();
    render();
    QCoreApplication::processEvents();
    check("final event processing");
    return m_calls;
}

// ---- operations ------------------------------------------------------------

void FuzzDriver::step()
{
    // PRICEGRAPH_FUZZ_TRACE=1 prints every operation with its cost (triage).
    static const bool trace = qEnvironmentVariableIntValue("PRICEGRAPH_FUZZ_TRACE") != 0;
    const uint8_t op = m_in.byte();
    QElapsedTimer timer;
    if (trace)
        timer.start();
    // Layout-heavy operations cost tens of milliseconds each under the
    // sanitizers; a budget per input keeps every input inside its second.
    switch (op % OpCount) {
    case 0: case 2: case 3: case 4: case 19: case 21: case 22: case 23: case 47: case 48:
    case 49: case 53: case 60: case 61:
        if (++m_heavy > MaxHeavy)
            return;
        break;
    default:
        break;
    }
    stepOp(op % OpCount);
    if (trace)
        std::fprintf(stderr, "op %2d: %lld us, %llu calls\n", op % OpCount,
                     static_cast<long long>(timer.nsecsElapsed() / 1000),
                     static_cast<unsigned long long>(m_calls));
}

void FuzzDriver::stepOp(int op)
{
    switch (op) {
    case 0:
        if (m_chart->GetPanelCount() >= MaxPanels)
            break;
        m_chart->AddChartPanel();
        called("AddChartPanel");
        break;
    case 1:
        m_chart->GetPanelCount();
        called("GetPanelCount");
        break;
    case 2: {
        const long from = pickPanel();
        const long to = pickPanel();
        m_chart->MoveChartPanel(from, to);
        called("MoveChartPanel");
        break;
    }
    case 3: {
        const long panel = pickPanel();
        m_chart->SetChartPanelType(panel, pickLong());
        called("SetChartPanelType");
        break;
    }
    case 4: {
        const QString name = pickQName();
        const long type = pickLong();
        long panel = pickPanel();
        // Panels are costly to build: past a dozen an input would only time out.
        if (panel >= MaxPanels && panel <= 64)
            panel = LONG_MAX;
        m_chart->AddSeries(name, type, panel, pickLong(), pickLong(), m_in.flag());
        called("AddSeries");
        break;
    }
    case 7:
        m_chart->RemoveSeries(pickName());
        called("RemoveSeries");
        break;
    case 8: case 9: case 10: case 11: case 12: {
        const char *name = pickName();
        const double t = pickTime();
        const bool show = m_in.flag();
        const double o = pickPrice(), h = pickPrice(), l = pickPrice(), c = pickPrice();
        m_chart->AppendOHLC(name, t, show, o, h, l, c, pickLong());
        called("AppendOHLC");
        break;
    }
    case 13: case 14: {
        const char *name = pickName();
        const double t = pickTime();
        const double v = pickPrice();
        m_chart->AppendValue(name, t, v, m_in.flag());
        called("AppendValue");
        break;
    }
    case 15: case 16: {
        const char *name = pickName();
        const double t = pickTime();
        const bool show = m_in.flag();
        const double o = pickPrice(), h = pickPrice(), l = pickPrice(), c = pickPrice();
        m_chart->EditOHLC(name, t, show, o, h, l, c, pickLong());
        called("EditOHLC");
        break;
    }
    case 17: {
        const char *name = pickName();
        const double t = pickTime();
        const double v = pickPrice();
        m_chart->EditValue(name, t, v, m_in.flag());
        called("EditValue");
        break;
    }
    case 18:
        m_chart->ClearValues(pickName());
        called("ClearValues");
        break;
    case 19:
        m_chart->Update();
        called("Update");
        break;
    case 20:
        m_chart->SetcandleChart(m_in.flag() ? pickLong() : long(m_in.byte() % 4));
        called("SetcandleChart");
        m_chart->GetcandleChart();
        called("GetcandleChart");
        break;
    case 21:
        m_chart->ShowVolume(pickLong());
        called("ShowVolume");
        break;
    case 22: {
        const int index = pickColorIndex();
        m_chart->SetChartColor(index, pickColor());
        called("SetChartColor");
        m_chart->GetChartColor(pickColorIndex());
        called("GetChartColor");
        break;
    }
    case 23:
        m_chart->SetInterval(m_in.flag() ? pickDouble() : 60000.0 * (1 + m_in.byte()));
        called("SetInterval");
        break;
    case 24: case 25:
        m_chart->SetCursorType(pickCursor());
        called("SetCursorType");
        m_chart->GetCursorType();
        called("GetCursorType");
        break;
    case 26:
        m_chart->UseGradient(m_in.flag());
        called("UseGradient");
        break;
    case 27:
        m_chart->ScrollLeft(pickLong());
        called("ScrollLeft");
        break;
    case 28:
        m_chart->ScrollRight(pickLong());
        called("ScrollRight");
        break;
    case 29:
        m_chart->ZoomIn(pickLong());
        called("ZoomIn");
        break;
    case 30:
        m_chart->ZoomOut(pickLong());
        called("ZoomOut");
        break;
    case 31:
        m_chart->ResetZoom();
        called("ResetZoom");
        break;
    case 32: {
        // The host may hand over a new order-entry object and drop the old one.
        switch (m_in.byte() % 3) {
        case 0:
            m_chart->setOrderEntry(m_sink);
            break;
        case 1:
            m_chart->setOrderEntry(nullptr);
            break;
        default: {
            OrderEntrySink *old = m_sink;
            m_sink = new OrderEntrySink;
            m_chart->setOrderEntry(m_sink);
            delete old;
            break;
        }
        }
        called("setOrderEntry");
        break;
    }
    case 33: case 34: case 35: {
        const long panel = pickPanel();
        const double price = pickPrice();
        const long count = pickLong();
        // Names may live in the scratch buffer: keep copies across picks.
        const char *idName = pickName();
        const std::string id = idName ? idName : "";
        const int flag = pickInt();
        const char *textName = pickName();
        m_owned = textName ? textName : "";
        m_chart->DrawPositionLine(panel, price, count, idName ? id.c_str() : nullptr, flag,
                                  m_in.flag() ? nullptr : "1.25 Lots",
                                  textName ? m_owned.c_str() : nullptr,
                                  m_in.flag() ? nullptr : "\xe9t\xe9");
        called("DrawPositionLine");
        break;
    }
    case 36: {
        const long panel = pickPanel();
        m_chart->DeletePositionLine(panel, pickName());
        called("DeletePositionLine");
        break;
    }
    case 37: {
        const long panel = pickPanel();
        const double t = pickTime();
        const double price = pickPrice();
        const int count = pickInt();
        const char *id = pickName();
        if (m_in.flag()) {
            m_chart->AddBuyPoint(panel, t, price, count, id, "a", nullptr, "", "b", nullptr);
            called("AddBuyPoint");
        } else {
            m_chart->AddSellPoint(panel, t, price, count, id, nullptr, "a", "", nullptr, "c");
            called("AddSellPoint");
        }
        break;
    }
    case 38:
        m_chart->DeleteOrderPoint(pickName());
        called("DeleteOrderPoint");
        break;
    case 39: case 40: {
        const double price = pickPrice();
        m_chart->DrawTickLine(price, pickLong());
        called("DrawTickLine");
        break;
    }
    case 41:
        m_chart->RemoveTickLine();
        called("RemoveTickLine");
        break;
    case 42: {
        const double a = pickPrice(), b = pickPrice();
        const int decimals = m_in.flag() ? pickInt() : int(m_in.byte() % 10);
        m_chart->updateL1(a, b, decimals, pickInt());
        called("updateL1");
        break;
    }
    case 43: {
        const char *text = pickName();
        m_chart->updateUserScriptComment(text, m_in.flag());
        called("updateUserScriptComment");
        break;
    }
    case 44:
        switch (m_in.byte() % 4) {
        case 0: m_chart->Print(); called("Print"); break;
        case 1: m_chart->PrintPreview(); called("PrintPreview"); break;
        case 2: m_chart->Reset(); called("Reset"); break;
        default: m_chart->LineDelete(); called("LineDelete"); break;
        }
        break;
    case 45: {
        const long a = pickLong(), b = pickLong();
        const double price = pickPrice();
        const char *id = pickName();
        if (m_in.flag()) {
            m_chart->DrawBuyTag(a, b, price, m_in.flag(), m_in.flag(), id, nullptr, pickInt());
            called("DrawBuyTag");
        } else {
            m_chart->DrawSellTag(a, b, price, m_in.flag(), m_in.flag(), nullptr, id, pickInt());
            called("DrawSellTag");
        }
        m_chart->DeleteTagByCategory(pickLong(), pickName());
        called("DeleteTagByCategory");
        m_chart->DeleteTagByNameIndex(pickLong(), pickName());
        called("DeleteTagByNameIndex");
        break;
    }
    case 46: {
        m_chart->getOriginalStartIndexDiff();
        called("getOriginalStartIndexDiff");
        m_chart->PanelFromY(pickLong());
        called("PanelFromY");
        const long a = pickLong();
        m_chart->IndexFromX(a, pickLong());
        called("IndexFromX");
        const long b = pickLong();
        m_chart->ValueFromY(b, pickLong());
        called("ValueFromY");
        break;
    }
    case 47:
        closePanel();
        break;
    case 48:
        removeSomePanels();
        break;
    case 49:
        switch (m_in.byte() % 10) {
        case 0: m_chart->resetLayout(); called("resetLayout"); break;
        case 1: m_chart->ResetSplitter(); called("ResetSplitter"); break;
        case 2: m_chart->GetMainPanel(); called("GetMainPanel"); break;
        case 3: m_chart->GetAllPanel(); called("GetAllPanel"); break;
        case 4: m_chart->getOverlayWidget(); called("getOverlayWidget"); break;
        case 5: m_chart->ValmorTimeToQwtTime(pickTime()); called("ValmorTimeToQwtTime"); break;
        case 6: m_chart->updateAxisLines(); called("updateAxisLines"); break;
        case 7: m_chart->getL1Decimal(); called("getL1Decimal"); break;
        case 8: m_chart->getL1DecimalFix(); called("getL1DecimalFix"); break;
        default: m_chart->metaObject(); m_chart->qt_metacast("PriceGraph");
            PriceGraph::tr("x", nullptr, -1);
            called("meta-object members");
            break;
        }
        break;
    case 5: case 6: case 50: case 51: case 52:
        feedBatch();
        break;
    case 53: {
        const int sizes[] = {0, 1, 10, 120, 320, 640, 800, 1024};
        const uint8_t b = m_in.byte();
        const int w = b & 0x80 ? sizes[b & 7] : 40 + m_in.u16() % 985;
        const int h = b & 0x40 ? sizes[(b >> 3) & 7] : 30 + m_in.u16() % 739;
        m_chart->resize(w, h);
        check("resize");
        break;
    }
    case 54: case 55: case 56:
        mouseGesture();
        break;
    case 57:
        wheel();
        break;
    case 58:
        key();
        break;
    case 59:
        render();
        break;
    case 60:
        QCoreApplication::processEvents();
        check("event processing");
        break;
    case 61:
        m_chart->setVisible(m_in.byte() % 4 != 0);
        check("show or hide");
        break;
    case 64:
        drawGesture();
        checkMarks("drawing gesture", true);
        break;
    case 65:
        markGesture();
        checkMarks("mark gesture", true);
        break;
    case 66:
        markKeys();
        checkMarks("mark keys", true);
        break;
    case 67:
        markHazard();
        checkMarks("mark hazard", true);
        break;
    case 76:
        panelShuffle();
        break;
    case 77:
        moveWhileBusy();
        break;
    default:
        // Navigation is where the hostile view states come from: weight it.
        switch (m_in.byte() % 4) {
        case 0: m_chart->ZoomIn(1); called("ZoomIn"); break;
        case 1: m_chart->ZoomOut(1); called("ZoomOut"); break;
        case 2: m_chart->ScrollLeft(pickLong()); called("ScrollLeft"); break;
        default: m_chart->ScrollRight(pickLong()); called("ScrollRight"); break;
        }
        break;
    }
}

// ---- invariants ------------------------------------------------------------

void FuzzDriver::called(const char *what)
{
    ++m_calls;
    if (++g_totalCalls % ReportEvery == 0) {
        std::fprintf(stderr, "pricegraph-fuzz: %llu exported calls\n",
                     static_cast<unsigned long long>(g_totalCalls));
        std::fflush(stderr);
    }
    check(what);
    if (m_calls % 8 == 0)
        render();
}

void FuzzDriver::check(const char *what)
{
    PriceGraphPrivate *d = PriceGraphPrivate::get(m_chart);
    // Not GetAllPanel(): it takes pending data into the view, which a check
    // must not do.
    const QList<Plot *> panels = PriceGraphPrivate::allPanels(m_chart);
    if (!d->splitter)
        qFatal("invariant: no splitter after %s", what);
    if (m_chart->GetPanelCount() != panels.count() || d->splitter->count() != panels.count())
        qFatal("invariant: %d panels but %d in the splitter after %s", int(panels.count()),
               d->splitter->count(), what);
    // The time axis stands on bars of a panel that is still there, and the
    // scroll bar serves one; no two panels print dates.
    const BarSeries *axis = d->axisBars.source();
    bool axisFound = !axis;
    int dateAxes = 0;
    for (Plot *p : panels) {
        axisFound = axisFound || p->barSeries() == axis;
        dateAxes += p->axisEnabled(QwtPlot::xBottom);
    }
    if (!axisFound)
        qFatal("invariant: the time axis stands on bars of no panel after %s", what);
    if (dateAxes > 1)
        qFatal("invariant: %d panels print dates after %s", dateAxes, what);
    QwtPlot *served = d->scrollBar->plot();
    if (panels.isEmpty() ? served != nullptr : !panels.contains(static_cast<Plot *>(served)))
        qFatal("invariant: the scroll bar serves no panel of the chart after %s", what);
    for (Plot *p : panels) {
        if (d->splitter->indexOf(p) < 0)
            qFatal("invariant: a panel is missing from the splitter after %s", what);
        for (int axis : {int(QwtPlot::xBottom), int(QwtPlot::yRight)}) {
            const QwtScaleDiv &div = p->axisScaleDiv(axis);
            if (!isFinite(div.lowerBound()) || !isFinite(div.upperBound()))
                qFatal("invariant: axis %d range [%g, %g] after %s", axis, div.lowerBound(),
                       div.upperBound(), what);
        }
        double x1 = 0, x2 = 0;
        p->getX(x1, x2);
        if (!isFinite(x1) || !isFinite(x2))
            qFatal("invariant: view [%g, %g] after %s", x1, x2, what);
        const BarSeries *bars = p->barSeries();
        if (!bars)
            continue;
        const std::vector<double> &times = bars->timeTable().times();
        for (size_t i = 0; i < times.size(); ++i) {
            if (!isFinite(times[i]) || (i > 0 && !(times[i - 1] < times[i])))
                qFatal("invariant: bar %d at time %g breaks the time order after %s", int(i),
                       times[i], what);
        }
        if (times.size() != size_t(bars->size()))
            qFatal("invariant: %d bars but %d times after %s", bars->size(), int(times.size()),
                   what);
    }
    checkMarks(what, false);
}

// Every mark is on a panel of this chart, with its handles on that panel's
// canvas and finite anchors. After a whole gesture no gesture is left in
// progress and no override cursor is left behind.
void FuzzDriver::checkMarks(const char *what, bool gestureOver)
{
    const QList<Plot *> panels = m_chart->GetAllPanel();
    MarkRegistry *marks = PriceGraphPrivate::markRegistryOf(m_chart);
    for (MarkSelfDraw *m : marks->all()) {
        Plot *host = dynamic_cast<Plot *>(m->plot());
        if (!host || !panels.contains(host))
            qFatal("invariant: a mark outlived its panel after %s", what);
        if (auto *rect = dynamic_cast<PlotRectMark *>(m)) {
            for (int i = 0; i < ShapeGeometry::GripCount; ++i) {
                if (rect->rectMark()->grip(i) && rect->rectMark()->grip(i)->parent() != host->canvas())
                    qFatal("invariant: a grip is off its rectangle's canvas after %s", what);
            }
        }
        for (int i = 0; i < m->count(); ++i) {
            if (m->handle(i) && m->handle(i)->parent() != host->canvas())
                qFatal("invariant: a handle is off its mark's canvas after %s", what);
            if (!isFinite(m->pointAt(i).x()) || !isFinite(m->pointAt(i).y()))
                qFatal("invariant: anchor %d at (%g, %g) after %s", i, m->pointAt(i).x(),
                       m->pointAt(i).y(), what);
        }
    }
    if (!gestureOver)
        return;
    if (QApplication::overrideCursor())
        qFatal("invariant: an override cursor is left after %s", what);
    for (Plot *p : panels) {
        if (p->markGesture()->currentMark())
            qFatal("invariant: a drawing gesture is left open after %s", what);
    }
}

// Nothing non-finite may reach Qwt: every item's data and every marker.
void FuzzDriver::checkSeries(const char *what)
{
    const QList<Plot *> panels = PriceGraphPrivate::allPanels(m_chart);
    for (Plot *p : panels) {
        for (QwtPlotItem *item : p->itemList()) {
            if (auto *marker = dynamic_cast<QwtPlotMarker *>(item)) {
                if (!isFinite(marker->xValue()) || !isFinite(marker->yValue()))
                    qFatal("invariant: marker at (%g, %g) after %s", marker->xValue(),
                           marker->yValue(), what);
            } else if (auto *series = dynamic_cast<QwtPlotSeriesItem *>(item)) {
                const QRectF r = series->boundingRect();
                if (!isFinite(r.left()) || !isFinite(r.top()) || !isFinite(r.width())
                    || !isFinite(r.height()))
                    qFatal("invariant: item %d spans a non-finite rectangle after %s",
                           item->rtti(), what);
            }
        }
        const BarSeries *bars = p->barSeries();
        for (int i = 0; bars && i < bars->size(); ++i) {
            if (!isFinite(bars->open(i)) || !isFinite(bars->high(i)) || !isFinite(bars->low(i))
                || !isFinite(bars->close(i)) || !isFinite(bars->volume(i)))
                qFatal("invariant: bar %d holds a non-finite value after %s", i, what);
        }
    }
}
