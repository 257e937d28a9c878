#include "plotpricelinesdata.h"

#include "orderline.h"
#include "orderlinebutton.h"
#include "positionline.h"
#include "priceline.h"

#include <QDebug>
#include <QMetaObject>
#include <QMouseEvent>
#include <QPointer>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_widget.h>

namespace {

// Pause between stacked boxes of one price.
const int StackGap = 12;

bool hasSlot(QObject *target, const char *signature)
{
    return target && target->metaObject()->indexOfSlot(signature) >= 0;
}

// Connects by name, so any host object with a slot of that name will do; a
// host without it simply hears nothing (checkOrderEntry has said so).
void connectByName(QObject *line, const char *signal, QObject *target, const char *slot,
                   const char *signature)
{
    if (hasSlot(target, signature))
        QObject::connect(line, signal, target, slot);
}

} // namespace

PlotPriceLinesData::PlotPriceLinesData(QwtPlot *plot)
    : m_plot(plot)
    , m_canvas(plot->canvas())
{
    m_canvas->installEventFilter(this);
    m_canvas->setMouseTracking(true);
    m_tickLine = new PriceLine;
    m_tickLine->setLabelKind(0);
    m_tickLine->attach(plot);
    // Before the lines' own connections: every line is laid out again
    // before the hover is judged on the new scale.
    connect(plot->axisWidget(QwtPlot::yRight), &QwtScaleWidget::scaleDivChanged, this,
            &PlotPriceLinesData::rehover);
}

PlotPriceLinesData::~PlotPriceLinesData()
{
    const QMap<QString, PriceLine *> lines = m_lines;
    m_lines.clear();
    for (PriceLine *line : lines)
        line->dispose();
    delete m_tickLine;
}

void PlotPriceLinesData::checkOrderEntry(QObject *orderEntry)
{
    if (!orderEntry)
        return;
    for (const char *signature :
         {"onOrderModify(QString)", "onOrderCancel(QString)", "onPositionCancel(QString)"}) {
        if (!hasSlot(orderEntry, signature))
            qWarning("PriceGraph::setOrderEntry() the order-entry object has no slot %s; "
                     "lines will not signal it.", signature);
    }
}

void PlotPriceLinesData::drawPositionLine(double price, long count, const QString &id, int flag,
                                          const QString &text1, const QString &text2,
                                          const QString &text3, QObject *orderEntry)
{
    PriceLine *line = m_lines.value(id);
    if (!line) {
        if (id.contains(QLatin1String("Position"), Qt::CaseInsensitive)) {
            PositionLine *position = new PositionLine;
            position->setLabelKind(1);
            connectByName(position, SIGNAL(onPositionCancel(QString)), orderEntry,
                          SLOT(onPositionCancel(QString)), "onPositionCancel(QString)");
            line = position;
        } else {
            OrderLine *order = new OrderLine;
            if (id.contains(QLatin1String("Buy"), Qt::CaseInsensitive)
                || id.contains(QLatin1String("Sell"), Qt::CaseInsensitive)) {
                connectByName(order, SIGNAL(onOrderModify(QString)), orderEntry,
                              SLOT(onOrderModify(QString)), "onOrderModify(QString)");
                connectByName(order, SIGNAL(onOrderCancel(QString)), orderEntry,
                              SLOT(onOrderCancel(QString)), "onOrderCancel(QString)");
            }
            line = order;
        }
        line->setRecord(price, id, flag, text1, text2, text3);
        line->setCount(count);
        line->attach(m_plot);
        m_lines.insert(id, line);
        line->setMode(m_cursorStyle);
        // Lines hear the mouse before any canvas filter installed since.
        if (m_canvas)
            m_canvas->installEventFilter(this);
    }
    const double oldPrice = line->yValue();
    line->setPrice(price);
    line->setValue(line->xValue(), price);
    line->setCount(count);
    if (OrderLine *order = qobject_cast<OrderLine *>(line)) {
        // A line that moves leaves its old group; both groups are stacked
        // again.
        if (oldPrice != price)
            mergeOrderLinePositionLabelShow(oldPrice);
        mergeOrderLinePositionLabelShow(order->yValue());
    }
    line->setVisible(true);
    rehover();
}

void PlotPriceLinesData::deletePositionLine(const QString &id)
{
    PriceLine *line = m_lines.take(id);
    if (!line)
        return;
    const double y = line->yValue();
    line->dispose();
    mergeOrderLinePositionLabelShow(y);
    rehover();
}

void PlotPriceLinesData::mergeOrderLinePositionLabelShow(double price)
{
    qDebug("PlotPriceLinesData::mergeOrderLinePositionLabelShow()\n");
    QList<QPointer<OrderLine>> group;
    for (PriceLine *line : qAsConst(m_lines)) {
        OrderLine *order = qobject_cast<OrderLine *>(line);
        // Exact comparison: only lines drawn at the very same price merge.
        if (order && order->yValue() == price)
            group.append(order);
    }
    if (group.isEmpty())
        return;

    const int n = group.size();
    for (const QPointer<OrderLine> &order : qAsConst(group)) {
        order->setButtonFollowsMouse(n == 1);
        order->setWidgets(group);
    }
    if (n == 1)
        return;

    int height = StackGap * (n - 1);
    for (const QPointer<OrderLine> &order : qAsConst(group))
        height += order->button()->height();
    const int first = group.first()->button()->height();
    int offset = 0;
    for (const QPointer<OrderLine> &order : qAsConst(group)) {
        order->setStackSlot(offset, height, first);
        offset += order->button()->height() + StackGap;
    }
}

void PlotPriceLinesData::updateLabels()
{
    for (PriceLine *line : qAsConst(m_lines))
        line->updateLabel();
    if (m_tickLine)
        m_tickLine->updateLabel();
}

void PlotPriceLinesData::refreshLabels()
{
    for (PriceLine *line : qAsConst(m_lines))
        line->setCount(line->count());
}

void PlotPriceLinesData::showTickLine(double price)
{
    if (!m_tickLine)
        return;
    m_tickLine->setValue(m_tickLine->xValue(), price);
    if (!m_tickLine->isVisible())
        m_tickLine->setVisible(true);
    if (m_tickLine->label() && m_tickLine->label()->isHidden())
        m_tickLine->label()->show();
}

void PlotPriceLinesData::hideTickLine()
{
    if (!m_tickLine)
        return;
    if (m_tickLine->isVisible())
        m_tickLine->setVisible(false);
    if (m_tickLine->label())
        m_tickLine->label()->hide();
}

void PlotPriceLinesData::setCursorStyle(int style)
{
    m_cursorStyle = style;
    for (PriceLine *line : qAsConst(m_lines))
        line->setMode(style);
}

void PlotPriceLinesData::setPriceLineColor(const QColor &color, int)
{
    m_color = color;
}

bool PlotPriceLinesData::hover(const QPointF &pos)
{
    bool claimed = false;
    const QMap<QString, PriceLine *> lines = m_lines; // a host slot may edit the map
    for (PriceLine *line : lines) {
        if (line->isListening())
            claimed = line->hoverMove(pos) || claimed;
    }
    return claimed;
}

void PlotPriceLinesData::rehover()
{
    if (!m_hovering)
        return;
    updateLabels();
    hover(m_lastHover);
}

bool PlotPriceLinesData::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_canvas || watched != m_canvas)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Resize:
        updateLabels();
        rehover();
        break;
    case QEvent::Leave: {
        m_hovering = false;
        const QMap<QString, PriceLine *> lines = m_lines;
        for (PriceLine *line : lines) {
            if (line->isListening())
                line->mouseLeft();
        }
        break;
    }
    case QEvent::MouseMove: {
        const QMouseEvent *me = static_cast<QMouseEvent *>(event);
        if (me->buttons() != Qt::NoButton) {
            // A drag (the chart pans, a tool draws): not the lines' business.
            m_hovering = false;
            const QMap<QString, PriceLine *> lines = m_lines;
            for (PriceLine *line : lines)
                line->dropHover();
            break;
        }
        m_hovering = true;
        m_lastHover = me->localPos();
        if (hover(m_lastHover)) {
            event->accept();
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
