#include "fuzzdriver.h"

#include "fuzzchart.h"
#include "markregistry.h"
#include "plot.h"
#include "plotrectmark.h"
#include "rectmark.h"
#include "shapegeometry.h"
#include "pricegraphprivate.h"

#include <QApplication>
#include <QImage>

#include <qwt_plot_canvas.h>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <cmath>

// Batches of bars, panel moves among feeds, user gestures and renders.

// A run of well-formed bars at a steady pace, as a feed delivers them:
// builds the long histories that navigation and drawing then work on.
void FuzzDriver::feedBatch()
{
    const char *name = m_in.flag() ? "OHLC" : pickName();
    const std::string held = name ? name : "";
    const int n = 1 + m_in.u16() % MaxBatch;
    const double step = pickStep();
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
            m_chart->AppendValue("MA", t, price, i == n - 1);
            called("AppendValue (batch)");
        }
        t += step;
    }
    if (std::isfinite(t) && std::fabs(t - 2459000.5) < 1e6)
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

// Panels moved among feeds, navigation and volume switches, the price series
// cleared and fed again or moved to another panel: the time axis, the view,
// the scroll bar and the date axis must follow every step.
void FuzzDriver::panelShuffle()
{
    const int steps = 1 + m_in.byte() % 4;
    for (int i = 0; i < steps; ++i) {
        switch (m_in.byte() % 6) {
        case 0: {
            const long from = pickPanel();
            const long to = pickPanel();
            if (++m_moves > MaxMoves)
                break;
            m_chart->MoveChartPanel(from, to);
            called("MoveChartPanel (shuffle)");
            break;
        }
        case 1: {
            const double t = pickTime();
            const double p = pickPrice();
            m_chart->AppendOHLC(m_in.flag() ? "OHLC" : "volume", t, m_in.flag(), p, p * 1.01,
                                p * 0.99, p, pickLong());
            called("AppendOHLC (shuffle)");
            break;
        }
        case 2:
            m_chart->AppendValue("MA*255#x", pickTime(), pickPrice(), m_in.flag());
            called("AppendValue (shuffle)");
            break;
        case 3:
            switch (m_in.byte() % 4) {
            case 0: m_chart->ScrollLeft(pickLong()); called("ScrollLeft (shuffle)"); break;
            case 1: m_chart->ScrollRight(pickLong()); called("ScrollRight (shuffle)"); break;
            case 2: m_chart->ZoomIn(1); called("ZoomIn (shuffle)"); break;
            default: m_chart->ZoomOut(1); called("ZoomOut (shuffle)"); break;
            }
            break;
        case 4: {
            const bool on = m_in.flag();
            if (++m_moves > MaxMoves)
                break;
            m_chart->ShowVolume(on);
            called("ShowVolume (shuffle)");
            break;
        }
        default:
            // Another symbol: cleared and fed again, or the prices taken
            // off their panel and added to another one.
            if (m_in.flag()) {
                m_chart->ClearValues("OHLC");
                called("ClearValues (shuffle)");
            } else {
                long panel = pickPanel();
                if (panel >= MaxPanels && panel <= 64)
                    panel = 0;
                m_chart->RemoveSeries("OHLC");
                called("RemoveSeries (shuffle)");
                if (++m_moves <= MaxMoves) {
                    m_chart->AddSeries(QStringLiteral("OHLC"), 0, panel, 0, 0, false);
                    called("AddSeries (shuffle)");
                }
            }
            feedBatch();
            break;
        }
    }
}

// The host moves panels while the user drags a canvas and ticks arrive.
void FuzzDriver::moveWhileBusy()
{
    const QList<QwtPlotCanvas *> canvases = m_chart->findChildren<QwtPlotCanvas *>();
    QPointer<QWidget> canvas = canvases.isEmpty() ? nullptr
                                                  : canvases.at(m_in.byte() % canvases.size());
    QPoint p = canvas ? pickPoint(canvas) : QPoint();
    const auto send = [&](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
        if (!canvas)
            return;
        QMouseEvent ev(type, p, canvas->mapToGlobal(p), button, held, Qt::NoModifier);
        QApplication::sendEvent(canvas, &ev);
        check("mouse event (busy)");
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    const int steps = 1 + m_in.byte() % 4;
    for (int i = 0; i < steps; ++i) {
        p += QPoint(int8_t(m_in.byte()), int8_t(m_in.byte()));
        send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
        switch (m_in.byte() % 3) {
        case 0: {
            const long from = pickPanel();
            const long to = pickPanel();
            if (++m_moves > MaxMoves)
                break;
            m_chart->MoveChartPanel(from, to);
            called("MoveChartPanel (busy)");
            break;
        }
        case 1: {
            const double price = pickPrice();
            m_chart->EditOHLC("OHLC", m_lastTime, true, price, price, price, price, 1);
            called("EditOHLC (busy)");
            m_chart->DrawTickLine(price, 0);
            called("DrawTickLine (busy)");
            break;
        }
        default:
            m_chart->DrawPositionLine(pickPanel(), pickPrice(), 1, m_in.flag() ? "Buy-1" : "Sell-2",
                                      0, nullptr, nullptr, nullptr);
            called("DrawPositionLine (busy)");
            break;
        }
    }
    send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
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


// ---- drawing tools ---------------------------------------------------------

namespace {

void sendMouse(QWidget *w, QEvent::Type type, QPoint p, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    if (!w)
        return;
    QMouseEvent ev(type, p, w->mapToGlobal(p), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &ev);
}

void sendKey(QObject *target, QEvent::Type type, int key)
{
    if (!target)
        return;
    QKeyEvent ev(type, key, Qt::NoModifier);
    QApplication::sendEvent(target, &ev);
}

} // namespace

long FuzzDriver::pickDrawingType()
{
    const long types[] = {2, 27, 28, 29, 30, 9, 11, 24, 31, 0, 12, 3, 4, 5, 7, 8,
                          10, 21, 22, 23, 25, 26, 5, 7, 8, 10, 22, 23, 25, 26, 4, 2};
    const uint8_t b = m_in.byte();
    return b & 0x80 ? pickCursor() : types[b % 32];
}

MarkSelfDraw *FuzzDriver::pickMark()
{
    const QList<MarkSelfDraw *> marks = PriceGraphPrivate::markRegistryOf(m_chart)->all();
    const uint8_t b = m_in.byte();
    return marks.isEmpty() ? nullptr : marks.at(b % marks.size());
}

// A tool chosen and drawn on a panel's canvas, with what a user or host may
// do in the middle of it: switch the tool, press again, close the panel,
// press Delete, navigate, resize.
void FuzzDriver::drawGesture()
{
    MarkRegistry *marks = PriceGraphPrivate::markRegistryOf(m_chart);
    long type = pickDrawingType();
    if (marks->all().size() >= MaxMarks)
        type = 3;
    m_chart->SetCursorType(type);
    called("SetCursorType (drawing)");
    // Mostly a panel's canvas, where drawing happens.
    const QList<Plot *> panels = m_chart->GetAllPanel();
    const uint8_t where = m_in.byte();
    QPointer<QWidget> target = where % 8 && !panels.isEmpty()
                                   ? panels.at((where >> 3) % panels.size())->canvas()
                                   : pickTarget();
    QPoint p = pickPoint(target);
    const Qt::MouseButton button = m_in.byte() % 5 ? Qt::LeftButton : Qt::RightButton;
    sendMouse(target, QEvent::MouseButtonPress, p, button, button);
    check("drawing press");
    const int moves = m_in.byte() % 8;
    for (int i = 0; i < moves && target; ++i) {
        const uint8_t hazard = m_in.byte();
        switch (hazard % 16) {
        case 0:
            m_chart->SetCursorType(pickDrawingType());
            called("SetCursorType (mid-gesture)");
            break;
        case 1:
            if (marks->all().size() < MaxMarks)
                sendMouse(target, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
            break;
        case 2:
            closePanel();
            break;
        case 3:
            sendKey(target, QEvent::KeyPress, Qt::Key_Delete);
            break;
        case 4:
            m_chart->ScrollLeft(long(int8_t(m_in.byte())));
            called("ScrollLeft (mid-gesture)");
            break;
        default:
            break;
        }
        check("drawing hazard");
        p += QPoint(int8_t(m_in.byte()), int8_t(m_in.byte()));
        sendMouse(target, QEvent::MouseMove, p, Qt::NoButton, button);
        check("drawing move");
    }
    sendMouse(target, QEvent::MouseButtonRelease, p, button, Qt::NoButton);
    // A release that went elsewhere: the tool is put down by the host.
    if (!target || m_in.byte() % 8 == 0)
        m_chart->SetCursorType(3);
}

// A finished mark taken by a handle or by its body, or hovered.
void FuzzDriver::markGesture()
{
    QPointer<MarkSelfDraw> mark = pickMark();
    if (!mark || !mark->plot())
        return;
    const uint8_t b = m_in.byte();
    const int i = b % qMax(1, mark->count());
    QPointer<QWidget> target = (b & 0x10) ? mark->handle(i) : mark->plot()->canvas();
    // A rectangle has grips instead of handles.
    if (auto *rect = dynamic_cast<PlotRectMark *>(mark.data()); rect && (b & 0x10))
        target = rect->rectMark()->grip((b >> 5) % ShapeGeometry::GripCount);
    if (!target)
        return;
    QPoint p(7, 7);
    if (!(b & 0x10)) {
        // On the body: between the first two handles, or on the only one.
        QPoint a, c;
        mark->handleCenter(0, a);
        c = a;
        mark->handleCenter(mark->count() - 1, c);
        p = (a + c) / 2;
    }
    const Qt::MouseButton button = (b & 0x20) ? Qt::RightButton : Qt::LeftButton;
    const bool hover = b & 0x40;
    if (!hover)
        sendMouse(target, QEvent::MouseButtonPress, p, button, button);
    const int moves = m_in.byte() % 6;
    for (int k = 0; k < moves && target; ++k) {
        p += QPoint(int8_t(m_in.byte()), int8_t(m_in.byte()));
        sendMouse(target, QEvent::MouseMove, p, Qt::NoButton,
                  hover ? Qt::NoButton : Qt::MouseButtons(button));
        check("mark move");
    }
    if (!hover)
        sendMouse(target, QEvent::MouseButtonRelease, p, button, Qt::NoButton);
}

// Delete (as a key press or a shortcut override) and Escape, sent where the
// focus might be.
void FuzzDriver::markKeys()
{
    const uint8_t b = m_in.byte();
    if (b & 0x01) {
        if (MarkSelfDraw *mark = pickMark())
            mark->setSelected(true);
    }
    QObject *target = qApp;
    switch ((b >> 1) % 4) {
    case 0: target = pickTarget(); break;
    case 1: if (MarkSelfDraw *mark = pickMark()) target = mark->handle(0); break;
    case 2: target = m_chart; break;
    default: break;
    }
    const int key = (b & 0x20) ? Qt::Key_Escape : Qt::Key_Delete;
    sendKey(target, (b & 0x40) ? QEvent::ShortcutOverride : QEvent::KeyPress, key);
    check("mark key");
}

// Whole-mark drags interrupted: Delete, the panel closed, the view moved,
// older history inserted, or the release lost.
void FuzzDriver::markHazard()
{
    QPointer<MarkSelfDraw> mark = pickMark();
    if (!mark || !mark->plot())
        return;
    QPointer<QWidget> canvas = mark->plot()->canvas();
    QPoint a, c;
    mark->handleCenter(0, a);
    c = a;
    mark->handleCenter(mark->count() - 1, c);
    QPoint p = (a + c) / 2;
    sendMouse(canvas, QEvent::MouseButtonPress, p, Qt::LeftButton, Qt::LeftButton);
    check("hazard press");
    switch (m_in.byte() % 6) {
    case 0:
        mark->setSelected(true);
        sendKey(canvas, QEvent::KeyPress, Qt::Key_Delete);
        break;
    case 1:
        if (mark) {
            Plot *host = static_cast<Plot *>(mark->plot());
            m_chart->OnPlotClose(host);
            delete host;
            called("OnPlotClose (mid-drag)");
        }
        break;
    case 2:
        m_chart->ZoomIn(1);
        called("ZoomIn (mid-drag)");
        break;
    case 3: {
        // An older bar: the bars after it, and the marks on them, move.
        const double t = m_in.flag() ? 2459000.5 - m_in.byte() : pickTime();
        m_chart->AppendOHLC("OHLC", t, true, 100.0, 101.0, 99.0, 100.5, 10);
        called("AppendOHLC (mid-drag)");
        break;
    }
    case 4:
        sendMouse(canvas, QEvent::MouseMove, p + QPoint(5, 5), Qt::NoButton, Qt::NoButton);
        break;
    default:
        break;
    }
    check("drag hazard");
    p += QPoint(int8_t(m_in.byte()), int8_t(m_in.byte()));
    sendMouse(canvas, QEvent::MouseMove, p, Qt::NoButton, Qt::LeftButton);
    sendMouse(canvas, QEvent::MouseButtonRelease, p, Qt::LeftButton, Qt::NoButton);
}
