#include "fuzzdriver.h"

#include "fuzzchart.h"
#include "plot.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <cmath>

// Batches of bars, user gestures and renders.

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

