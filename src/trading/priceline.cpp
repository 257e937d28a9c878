#include "priceline.h"

#include "linelabeltext.h"
#include "orderlinebutton.h"
#include "pricelabeltext.h"
#include "priceprecision.h"

#include <QLabel>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>
#include <qwt_scale_widget.h>

#include <cmath>

namespace {

// Lines within this many pixels of the mouse count as hovered.
const double HoverReach = 6.0;

// Attaching or detaching an item replots the whole panel when auto-replot is
// on; a marker needs no new axes, so hold that off and repaint the canvas.
class QuietPlot
{
public:
    explicit QuietPlot(QwtPlot *plot)
        : m_plot(plot)
        , m_autoReplot(plot && plot->autoReplot())
    {
        if (m_plot)
            m_plot->setAutoReplot(false);
    }
    ~QuietPlot()
    {
        if (m_plot)
            m_plot->setAutoReplot(m_autoReplot);
    }

private:
    QwtPlot *m_plot;
    bool m_autoReplot;
};

// Redraws the items from prepared data; no axis or layout work.
void repaint(QWidget *canvas)
{
    if (QwtPlotCanvas *c = qobject_cast<QwtPlotCanvas *>(canvas))
        c->replot();
    else if (canvas)
        canvas->update();
}

QPen kindPen(int r, int g, int b, int a)
{
    return QPen(QBrush(QColor(r, g, b, a)), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

} // namespace

PriceLine::PriceLine()
    : QObject(nullptr)
    , QwtPlotMarker(QString())
    , m_label(new QLabel)
{
    setLabelKind(0);
}

PriceLine::~PriceLine()
{
    retire();
    delete m_button;
    delete m_label;
}

QString PriceLine::labelStyleSheet(int kind)
{
    switch (kind) {
    case 0:
        return QStringLiteral("background-color : #698c00;") +
               QStringLiteral("color : rgba(255,255,255,201);") + QStringLiteral("font-size:10px;");
    case 1:
        return QStringLiteral("background-color : #007fff;") +
               QStringLiteral("color : rgba(255,255,255,201);") + QStringLiteral("font-size:10px;");
    case 2:
        return QStringLiteral("background-color : #067e82;") +
               QStringLiteral("color : rgba(255,255,255,201);") + QStringLiteral("font-size:10px;");
    default:
        return QString();
    }
}

void PriceLine::setLabelKind(int kind)
{
    m_kind = kind;
    switch (kind) {
    case 0:
        m_normalPen = kindPen(105, 140, 0, 255);
        m_hoverPen = kindPen(105, 140, 0, 255);
        break;
    case 1:
        m_normalPen = kindPen(0, 127, 255, 127);
        m_hoverPen = kindPen(0, 127, 255, 255);
        break;
    case 2:
        m_normalPen = kindPen(6, 126, 130, 127);
        m_hoverPen = kindPen(6, 126, 130, 127);
        break;
    default:
        return; // stored, but no pen or style of its own
    }
    setLinePen(m_normalPen);
    if (m_label)
        m_label->setStyleSheet(labelStyleSheet(kind));
}

void PriceLine::attach(QwtPlot *plot)
{
    if (!plot || this->plot())
        return; // a line lives on one panel for its whole life
    {
        QuietPlot quiet(plot);
        QwtPlotMarker::attach(plot);
    }
    setParent(plot);
    setAxes(QwtPlot::xBottom, QwtPlot::yRight);
    setLineStyle(QwtPlotMarker::HLine);
    setVisible(false);

    m_canvas = plot->canvas();
    m_canvas->setMouseTracking(true); // moves arrive without a pressed button

    QwtScaleWidget *axis = plot->axisWidget(QwtPlot::yRight);
    connect(axis, SIGNAL(scaleDivChanged()), this, SLOT(updatePartnerPos()));
    if (m_label) {
        m_label->setParent(axis);
        m_label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        m_label->hide();
    }
    updateLabel();
    m_editable = true;
    if (m_button) {
        m_button->setParent(m_canvas);
        m_button->hide();
    }
    updateButtonText();
}

void PriceLine::setMode(int mode)
{
    setEditable(mode == 0 || mode == 3);
}

void PriceLine::setEditable(bool on)
{
    if (!m_hasButton)
        return; // the tick line always follows the chart
    m_editable = on;
    // No move will come to clear what the mouse left shown.
    if (!on)
        dropHover();
}

bool PriceLine::isListening() const
{
    return m_hasButton && m_editable && canvasWidget();
}

void PriceLine::setValue(double x, double y)
{
    QwtPlotMarker::setValue(x, y);
    updateButtonText();
    updateLabel();
}

void PriceLine::setCount(long count)
{
    m_count = count;
    updateButtonText();
    placeButton();
}

void PriceLine::setButton(OrderLineButton *button)
{
    m_button = button;
    m_hasButton = button != nullptr;
}

OrderLineButton *PriceLine::button() const
{
    return m_button;
}

void PriceLine::updateButtonText()
{
    if (m_button)
        m_button->setText(LineLabelText::build(m_count, yValue(), priceDecimals()));
}

void PriceLine::setRecord(double price, const QString &id, int flag, const QString &text1,
                          const QString &text2, const QString &text3)
{
    m_price = price;
    m_id = id;
    m_flag = flag;
    m_text1 = text1;
    m_text2 = text2;
    m_text3 = text3;
}

double PriceLine::linePixelY() const
{
    const QwtPlot *p = plot();
    if (!p)
        return std::nan("");
    return p->canvasMap(yAxis()).transform(yValue());
}

void PriceLine::updateLabel()
{
    placeButton();
    QWidget *canvas = canvasWidget();
    QwtScaleWidget *axis = axisWidget();
    if (!canvas || !axis || !m_label)
        return;
    // Canvas and axis are both children of the panel: the offset between
    // them is what a trip through global coordinates would give.
    const QPoint offset = canvas->mapTo(plot(), QPoint()) - axis->mapTo(plot(), QPoint());
    // Far-off prices still get a (clamped) geometry so rounding stays defined.
    const double y = qBound(-1.0e6, linePixelY(), 1.0e6) + offset.y();

    m_label->setText(PriceLabelText::format(yValue()));
    const int top = qRound(y - 8.0);
    m_label->setGeometry(QRect(QPoint(0, top), QPoint(axis->width() - 1, top + 16)));
}

void PriceLine::updatePartnerPos()
{
    updateLabel();
}

bool PriceLine::hoverMove(const QPointF &pos)
{
    if (!highlights())
        return false;
    if (std::abs(pos.y() - linePixelY()) < HoverReach) {
        setLinePen(m_hoverPen);
        if (m_label && m_label->isHidden())
            m_label->show();
        return true;
    }
    // The hover pen also outlives a leave of the canvas, so it is dropped on
    // the first move away even when the label is hidden.
    if ((m_label && !m_label->isHidden()) || linePen() != m_normalPen) {
        setLinePen(m_normalPen);
        if (m_label)
            m_label->hide();
    }
    return false;
}

void PriceLine::mouseLeft()
{
    if (highlights() && m_label && !m_label->isHidden())
        m_label->hide();
}

void PriceLine::dropHover()
{
    if (m_button && !m_button->isHidden())
        m_button->hide();
    if (!highlights())
        return;
    if (linePen() != m_normalPen)
        setLinePen(m_normalPen);
    if (m_label && !m_label->isHidden())
        m_label->hide();
}

void PriceLine::itemChanged()
{
    repaint(canvasWidget());
}

QWidget *PriceLine::canvasWidget() const
{
    return plot() ? m_canvas.data() : nullptr;
}

QwtScaleWidget *PriceLine::axisWidget() const
{
    QwtPlot *p = const_cast<QwtPlot *>(plot());
    return p ? p->axisWidget(QwtPlot::yRight) : nullptr;
}

int PriceLine::priceDecimals() const
{
    const auto *p = dynamic_cast<const PricePrecision *>(plot());
    return p ? p->priceDecimals() : -1;
}

void PriceLine::retire()
{
    if (m_button) {
        m_button->removeEventFilter(this);
        m_button->hide();
    }
    if (m_label)
        m_label->hide();
    if (QwtPlot *p = plot()) {
        if (QwtScaleWidget *axis = p->axisWidget(QwtPlot::yRight))
            disconnect(axis, nullptr, this, nullptr);
        {
            QuietPlot quiet(p);
            QwtPlotMarker::detach();
        }
        repaint(m_canvas);
    }
}

void PriceLine::dispose()
{
    retire();
    if (m_emitDepth > 0)
        m_disposePending = true;
    else
        delete this;
}

PriceLine::EmitGuard::EmitGuard(PriceLine *line)
    : m_line(line)
{
    ++m_line->m_emitDepth;
}

PriceLine::EmitGuard::~EmitGuard()
{
    if (!m_line)
        return;
    if (--m_line->m_emitDepth == 0 && m_line->m_disposePending)
        m_line->deleteLater();
}
