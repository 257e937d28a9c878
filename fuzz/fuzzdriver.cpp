#include "fuzzdriver.h"

#include "barseries.h"
#include "fuzzchart.h"
#include "orderentrysink.h"
#include "plot.h"
#include "pricegraphprivate.h"
#include "sampletimetable.h"

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

const double Inf = std::numeric_limits<double>::infinity();
const double NaN = std::numeric_limits<double>::quiet_NaN();

const double HostileDoubles[] = {
    NaN, -NaN, Inf, -Inf, -0.0, 0.0, DBL_MAX, -DBL_MAX, DBL_MIN, -DBL_MIN,
    std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
    1e-310, 1e308, -1e308, 9.2e18, 9223372036854775808.0, -9223372036854775808.0,
    2147483648.0, -2147483649.0, 4294967296.0, 1e-9, 0.5, 1.0, -1.0, 1e15, 1e-300,
    std::numeric_limits<double>::signaling_NaN(), 123456789.123456789, 0.1, 65536.0, -1e6};
const int HostileDoubleCount = int(sizeof HostileDoubles / sizeof HostileDoubles[0]);

// Julian dates: the epoch, the years 1900 and 2200 (the edges of what the
// chart shows), the year 9999, absurd values and the non-finite ones.
const double HostileTimes[] = {
    0.0, -1.0, -1e9, 1e9, 2440588.0, 2440587.5, 2415020.5, 2415020.4, 2524593.5, 2524594.5,
    5373484.5, 1e15, -1e15, NaN, Inf, -Inf, DBL_MAX, -DBL_MAX, DBL_MIN, -0.0,
    2459000.5 + 1e-9, 2459000.5 - 1e-9, 106751991167300.0, 1.0e7, 2459000.5};
const int HostileTimeCount = int(sizeof HostileTimes / sizeof HostileTimes[0]);

const double TimeSteps[] = {1.0, 1.0 / 24.0, 1.0 / 288.0, 1.0 / 1440.0, 7.0, 1.0 / 48.0};

const char *const Names[] = {
    nullptr, "", "OHLC", "volume", "MA*255#x", "band.end", "Position-1", "Buy-1", "Sell-1",
    "X1", "OHLC", "OHLC", "volume", "MA*255#x", "Position-1", "Buy-1", "Sell-1",
    "OHLC\xff\xfe", "\xe4\xb8\xad\xe6\x96\x87", "MA*", "*", "*16711680", ".end", "volume.end",
    "OHLC.end", "Position", "Buy", "Sell", "Buy-1Sell-1Position-1", "X1*-1",
    "MA*99999999999999999999", "OHLCvolume", "\x01\x7f", "band", "MA*4294967296", "Buy-2",
    "Sell-2", "Position-2", "\xff"};
const int NameCount = int(sizeof Names / sizeof Names[0]);

const std::string &megabyteName(int which)
{
    static const std::string plain(1 << 20, 'A');
    static const std::string ohlc = std::string("OHLC") + std::string((1 << 20) - 4, '\xe9');
    static const std::string position = std::string((1 << 20) - 10, 'z') + "Position-9";
    return which == 0 ? plain : which == 1 ? ohlc : position;
}

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

// ---- argument dictionaries -------------------------------------------------

double FuzzDriver::pickDouble()
{
    const uint8_t b = m_in.byte();
    if (b < 64)
        return HostileDoubles[b % HostileDoubleCount];
    if (b < 224)
        return (int(m_in.u16()) - 16384) * 0.01;
    return m_in.rawDouble();
}

double FuzzDriver::pickPrice()
{
    const uint8_t b = m_in.byte();
    if (b < 40)
        return HostileDoubles[b % HostileDoubleCount];
    if (b < 240)
        return 1.0 + m_in.u16() * 0.0125;
    return m_in.rawDouble();
}

double FuzzDriver::pickTime()
{
    const uint8_t b = m_in.byte();
    double t;
    switch (b % 16) {
    case 1: t = m_lastTime; break;  // duplicate
    case 2: t = m_lastTime - (1 + m_in.byte()) * TimeSteps[m_in.byte() % 6]; break;
    case 3: t = 2459000.5 + int16_t(m_in.u16()); break;
    case 4: t = HostileTimes[m_in.byte() % HostileTimeCount]; break;
    case 5: t = m_in.rawDouble(); break;
    default: t = m_lastTime + TimeSteps[m_in.byte() % 6]; break;
    }
    if (isFinite(t) && std::fabs(t - 2459000.5) < 1e6)
        m_lastTime = t;
    return t;
}

const char *FuzzDriver::pickName()
{
    const uint8_t b = m_in.byte();
    if (b < 200)
        return Names[b % NameCount];
    if (b < 203) {
        // Rare: each use costs megabytes of copies.
        if (m_in.byte() == 0x4d)
            return megabyteName(b % 3).c_str();
        return Names[m_in.byte() % NameCount];
    }
    // A short name made of the input's own bytes, sometimes with a known stem.
    size_t n = 0;
    if (b & 1) {
        const char *stem = Names[2 + m_in.byte() % (NameCount - 2)];
        for (; stem[n] && n < 16; ++n)
            m_scratch[n] = stem[n];
    }
    n += m_in.bytes(m_scratch + n, sizeof m_scratch - n - 1);
    m_scratch[n] = '\0';
    return m_scratch;
}

QString FuzzDriver::pickQName()
{
    const char *name = pickName();
    if (!name)
        return QString();
    if (m_in.flag())
        return QString::fromUtf8(name);
    return QString::fromLatin1(name);
}

long FuzzDriver::pickPanel()
{
    const long count = m_chart->GetPanelCount();
    switch (m_in.byte() % 12) {
    case 0: return -1;
    case 1: case 2: return 0;
    case 3: return 1;
    case 4: return count - 1;
    case 5: return count;
    case 6: return count + 1;
    case 7: return LONG_MAX;
    case 8: return LONG_MIN;
    case 9: return count + 2;
    case 10: return 8;
    default: return m_in.byte() % 6;
    }
}

long FuzzDriver::pickLong()
{
    switch (m_in.byte() % 12) {
    case 0: return 0;
    case 1: return 1;
    case 2: return -1;
    case 3: return LONG_MAX;
    case 4: return LONG_MIN;
    case 5: return INT_MAX;
    case 6: return INT_MIN;
    case 7: return -long(m_in.byte() % 50);
    case 8: return long(int64_t(m_in.u64()));
    default: return m_in.byte() % 50;
    }
}

int FuzzDriver::pickInt()
{
    switch (m_in.byte() % 10) {
    case 0: return 0;
    case 1: return -1;
    case 2: return INT_MAX;
    case 3: return INT_MIN;
    case 4: return int(m_in.u32());
    case 5: return -int(m_in.byte() % 20);
    default: return m_in.byte() % 20;
    }
}

long FuzzDriver::pickCursor()
{
    const uint8_t b = m_in.byte();
    if (b < 210)
        return long(b % 42) - 1;
    const long odd[] = {LONG_MAX, LONG_MIN, long(INT_MAX) + 1, long(INT_MIN) - 1, 1000, -1000,
                        INT_MAX, INT_MIN};
    return odd[b % 8];
}

int FuzzDriver::pickColorIndex()
{
    const uint8_t b = m_in.byte();
    if (b < 240)
        return int(b % 14) - 2;
    return b & 1 ? INT_MAX : INT_MIN;
}

unsigned long FuzzDriver::pickColor()
{
    switch (m_in.byte() % 8) {
    case 0: return 0;
    case 1: return 0xffffff;
    case 2: return 0xffffffffUL;
    case 3: return ULONG_MAX;
    case 4: return 0x1000000;
    default: return m_in.u32();
    }
}

QPoint FuzzDriver::pickPoint(QWidget *w)
{
    const int width = qMax(1, w->width());
    const int height = qMax(1, w->height());
    switch (m_in.byte() % 10) {
    case 0: return QPoint(0, 0);
    case 1: return QPoint(width - 1, height - 1);
    case 2: return QPoint(-1, -1);
    case 3: return QPoint(width / 2, height / 2);
    case 4: return QPoint(-100000, 100000);
    case 5: return QPoint(width, height);
    default: return QPoint(m_in.u16() % width, m_in.u16() % height);
    }
}

QWidget *FuzzDriver::pickTarget()
{
    const uint8_t b = m_in.byte();
    const QList<QwtPlotCanvas *> canvases = m_chart->findChildren<QwtPlotCanvas *>();
    if ((b & 3) != 0 && !canvases.isEmpty())
        return canvases.at(m_in.byte() % canvases.size());
    // Anything else in the widget: scroll bar, zoom buttons, axes, line buttons.
    const QList<QWidget *> all = m_chart->findChildren<QWidget *>();
    if (all.isEmpty())
        return m_chart;
    return all.at(m_in.u16() % all.size());
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
    switch (op % 64) {
    case 0: case 2: case 3: case 4: case 19: case 21: case 22: case 23: case 47: case 48:
    case 49: case 53: case 60: case 61:
        if (++m_heavy > MaxHeavy)
            return;
        break;
    default:
        break;
    }
    stepOp(op % 64);
    if (trace)
        std::fprintf(stderr, "op %2d: %lld us, %llu calls\n", op % 64,
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

// A run of well-formed bars at a steady pace, as a feed delivers them:
// builds the long histories that navigation and drawing then work on.
void FuzzDriver::feedBatch()
{
    const char *name = m_in.flag() ? "OHLC" : pickName();
    const std::string held = name ? name : "";
    const int n = 1 + m_in.u16() % MaxBatch;
    const double step = TimeSteps[m_in.byte() % 6];
    double t = pickTime();
    double price = 1.0 + m_in.u16() * 0.05;
    const bool withValue = m_in.flag();
    uint32_t seed = m_in.u32() | 1;
    for (int i = 0; i < n && m_calls < uint64_t(MaxCalls); ++i) {
        seed ^= seed << 13;
        seed ^= seed >> 17;
        seed ^= seed << 5;
        const double move = (int(seed % 201) - 100) * price * 1e-4;
        const double open = price;
        price = std::max(0.0001, price + move);
        const double high = std::max(open, price) * (1.0 + (seed >> 24) * 1e-5);
        const double low = std::min(open, price) * (1.0 - ((seed >> 16) & 0xff) * 1e-5);
        m_chart->AppendOHLC(name ? held.c_str() : nullptr, t, i == n - 1, open, high, low, price,
                            long(seed % 100000));
        called("AppendOHLC (batch)");
        if (withValue) {
            m_chart->AppendValue("MA*255#x", t, price, i == n - 1);
            called("AppendValue (batch)");
        }
        t += step;
    }
    if (isFinite(t) && std::fabs(t - 2459000.5) < 1e6)
        m_lastTime = t - step;
}

void FuzzDriver::mouseGesture()
{
    QPointer<QWidget> target = pickTarget();
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton,
                                       Qt::LeftButton};
    const uint8_t b = m_in.byte();
    const Qt::MouseButton button = buttons[b & 3];
    const Qt::KeyboardModifiers mods = Qt::KeyboardModifiers(
        (b & 0x10 ? Qt::ShiftModifier : 0) | (b & 0x20 ? Qt::ControlModifier : 0)
        | (b & 0x40 ? Qt::AltModifier : 0));
    const bool hoverOnly = b & 0x80;
    QPoint p = pickPoint(target);
    auto send = [&](QEvent::Type type, Qt::MouseButton which, Qt::MouseButtons held) {
        if (!target)
            return;
        QMouseEvent ev(type, p, target->mapToGlobal(p), which, held, mods);
        QApplication::sendEvent(target, &ev);
        check("mouse event");
    };
    if (target && (b & 0x08)) {
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(target, &enter);
        check("enter event");
    }
    if (!hoverOnly)
        send(QEvent::MouseButtonPress, button, button);
    const int moves = m_in.byte() % 10;
    for (int i = 0; i < moves && target; ++i) {
        if (m_in.byte() & 1)
            p += QPoint(int8_t(m_in.byte()), int8_t(m_in.byte()));
        else
            p = pickPoint(target);
        send(QEvent::MouseMove, Qt::NoButton, hoverOnly ? Qt::NoButton : Qt::MouseButtons(button));
    }
    if (!hoverOnly) {
        send(QEvent::MouseButtonRelease, button, Qt::NoButton);
        if (m_in.byte() % 4 == 0) {
            send(QEvent::MouseButtonDblClick, button, button);
            send(QEvent::MouseButtonRelease, button, Qt::NoButton);
        }
    }
    if (target && (b & 0x04)) {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(target, &leave);
        check("leave event");
    }
}

void FuzzDriver::wheel()
{
    QPointer<QWidget> target = pickTarget();
    const int deltas[] = {120, -120, 0, 15, -15, 1200, -1200, 1000000, -1000000, 240};
    const int dy = deltas[m_in.byte() % 10];
    const int dx = deltas[m_in.byte() % 10];
    const QPoint p = pickPoint(target);
    const Qt::KeyboardModifiers mods = m_in.flag() ? Qt::ControlModifier : Qt::NoModifier;
    QWheelEvent ev(p, target->mapToGlobal(p), QPoint(), QPoint(dx, dy), Qt::NoButton, mods,
                   Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &ev);
    check("wheel event");
}

void FuzzDriver::key()
{
    const int keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Plus,
                        Qt::Key_Minus, Qt::Key_Equal, Qt::Key_PageUp, Qt::Key_PageDown,
                        Qt::Key_Home, Qt::Key_End, Qt::Key_Escape, Qt::Key_Delete,
                        Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Space};
    const int k = keys[m_in.byte() % 16];
    const Qt::KeyboardModifiers mods = m_in.flag() ? Qt::ControlModifier : Qt::NoModifier;
    QPointer<QWidget> target;
    switch (m_in.byte() % 3) {
    case 0: target = pickTarget(); break;
    case 1: target = m_chart->GetMainPanel(); break;
    default: target = m_chart; break;
    }
    if (!target)
        return;
    QKeyEvent press(QEvent::KeyPress, k, mods);
    QApplication::sendEvent(target, &press);
    check("key press");
    if (!target)
        return;
    QKeyEvent release(QEvent::KeyRelease, k, mods);
    QApplication::sendEvent(target, &release);
    check("key release");
}

// A panel goes away the way a closed panel does: the chart is told, then it
// is destroyed. Telling the chart about no panel at all must be harmless too.
void FuzzDriver::closePanel()
{
    const QList<Plot *> panels = m_chart->GetAllPanel();
    const uint8_t b = m_in.byte();
    if (panels.isEmpty() || b % 4 == 0) {
        m_chart->OnPlotClose(nullptr);
        called("OnPlotClose");
        return;
    }
    Plot *p = panels.at(b % panels.size());
    m_chart->OnPlotClose(p);
    delete p;
    called("OnPlotClose");
}

void FuzzDriver::removeSomePanels()
{
    const QList<Plot *> panels = m_chart->GetAllPanel();
    QList<Plot *> doomed;
    const int n = m_in.byte() % 4;
    for (int i = 0; i < n; ++i) {
        const uint8_t b = m_in.byte();
        doomed.append(panels.isEmpty() || b == 0xff ? nullptr : panels.at(b % panels.size()));
    }
    m_chart->removePannels(doomed);
    called("removePannels");
}

void FuzzDriver::render()
{
    if (m_renders >= MaxRenders)
        return;
    ++m_renders;
    const QSize size = m_chart->size();
    if (size.isEmpty())
        return;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    m_chart->render(&image);
    checkSeries("render");
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
    const QList<Plot *> panels = m_chart->GetAllPanel();
    if (!d->splitter)
        qFatal("invariant: no splitter after %s", what);
    if (m_chart->GetPanelCount() != panels.count() || d->splitter->count() != panels.count())
        qFatal("invariant: %d panels but %d in the splitter after %s", int(panels.count()),
               d->splitter->count(), what);
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
}

// Nothing non-finite may reach Qwt: every item's data and every marker.
void FuzzDriver::checkSeries(const char *what)
{
    const QList<Plot *> panels = m_chart->GetAllPanel();
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
