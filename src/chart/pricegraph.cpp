#include "pricegraph.h"

#include "datescaledraw.h"
#include "eventsync.h"
#include "overlaylayout.h"
#include "overlaywidget.h"
#include "panelclosebutton.h"
#include "plot.h"
#include "plotnavigator.h"
#include "plotpricelinesdata.h"
#include "plotscrollbar.h"
#include "priceline.h"
#include "pricegraphprivate.h"
#include "zoombuttons.h"

#include <QDebug>
#include <QLabel>
#include <QMutexLocker>
#include <QPointer>
#include <QSplitter>
#include <QVBoxLayout>

#include <cmath>

static void initPriceGraphResources()
{
    Q_INIT_RESOURCE(pricegraph);
}

namespace {

// Names cross the boundary as 8-bit strings; a null one names nothing.
bool toName(const char *name, const char *caller, QString *out)
{
    if (!name) {
        qWarning("PriceGraph::%s() ignored a null series name.", caller);
        return false;
    }
    *out = QString::fromLatin1(name);
    return true;
}

// A data-feed call: the named series is offered to every panel (a panel
// that does not hold the name ignores it), under the chart's lock, walking a
// copy of the panel list.
template<typename Call>
void forEachPanel(PriceGraphPrivate *d, const char *name, const char *caller, Call call)
{
    QString n;
    if (!toName(name, caller, &n))
        return;
    QMutexLocker locker(d->mutex);
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels)
        call(p, n);
}

QString toText(const char *text)
{
    return text ? QString::fromLatin1(text) : QString();
}

} // namespace

// ---- construction ----------------------------------------------------------

PriceGraph::PriceGraph(QWidget *parent)
    : QWidget(parent, Qt::WindowFlags())
    , d(new PriceGraphPrivate(this))
{
    initPriceGraphResources();
    SetCursorType(3);
    resetLayout();
}

PriceGraph::~PriceGraph()
{
    delete d;
}

// ---- panels and layout -----------------------------------------------------

long PriceGraph::AddChartPanel()
{
    QMutexLocker locker(d->mutex);
    Plot *panel = new Plot(this);
    panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    panel->setInterval(d->interval);
    // A zoom step that reaches or leaves a bound dims or lights its button.
    connect(panel->getNavigator(), &PlotNavigator::zoomButtonHighlight, d->zoomButtons,
            &ZoomButtons::setZoomButtonHighlight);
    d->panels.append(panel);
    d->splitter->addWidget(panel);
    d->panelsChanged(); // layout, synchronisation, scroll bar, time axis
    if (d->overlay)
        panel->installEventFilter(d->overlay);
    SetCursorType(d->cursorType);
    // A panel added without series shows the bars the others show, at once.
    d->eventSync->adopt(panel->getNavigator());
    if (panel != d->panels.first()) {
        Plot *main = d->panels.first();
        panel->setTextColor(main->getTextColor());
        panel->setBackgroundColor(main->getBackgroundColor());
        panel->setGridColor(main->getGridColor());
        panel->setCandleOutlineColor(main->getCandleOutlineColor());
        panel->setUpColor(main->getUpColor());
        panel->setDownColor(main->getDownColor());
        panel->setLineColor(main->getLineColor());
        panel->setPriceLineColor(main->getPriceLineColor());
    }
    return d->panels.count() - 1;
}

long PriceGraph::GetPanelCount()
{
    return d->panels.count();
}

void PriceGraph::MoveChartPanel(long from, long to)
{
    QMutexLocker locker(d->mutex);
    const long n = d->panels.count();
    if (from < 0 || from >= n || to < 0 || to >= n) {
        qWarning("PriceGraph::MoveChartPanel(%ld, %ld) ignored: %ld panels.", from, to, n);
        return;
    }
    if (from == to) {
        qWarning("PriceGraph::MoveChartPanel(%ld, %ld) ignored: the panel stays where it is.",
                 from, to);
        return;
    }
    // Whatever was fed before the move is taken into the view first, so the
    // panel that leads afterwards starts from the view the user saw.
    d->eventSync->flushPending();
    Plot *moved = d->panels.at(int(from));
    d->panels.move(int(from), int(to));
    d->splitter->insertWidget(int(to), moved);
    d->panelsChanged();
}

void PriceGraph::SetChartPanelType(long, long type)
{
    ShowVolume(type);
}

void PriceGraph::OnPlotClose(Plot *plot)
{
    if (!plot || !d->panels.removeOne(plot))
        return;
    d->eventSync->removePanel(plot->getNavigator());
    if (d->tearingDown)
        return;
    // The scroll bar, the time axis and the tick line follow the panels that
    // are left at once; the splitter still holds the panel being destroyed,
    // so the layout (and the dates) follow once it is gone.
    d->regroup();
    if (!d->relayoutQueued) {
        d->relayoutQueued = true;
        QPointer<PriceGraph> self(this);
        QMetaObject::invokeMethod(
            this,
            [self]() {
                if (!self)
                    return;
                PriceGraphPrivate::get(self)->relayoutQueued = false;
                self->resetLayout();
            },
            Qt::QueuedConnection);
    }
}

void PriceGraph::removePannels(QList<Plot *> &list)
{
    if (list.isEmpty())
        return;
    QMutexLocker locker(d->mutex);
    d->eventSync->clear();
    const QList<Plot *> doomed = list;
    for (Plot *p : doomed) {
        if (d->panels.contains(p))
            delete p; // tells the chart through OnPlotClose
    }
    d->panelsChanged();
}

void PriceGraph::resetLayout()
{
    // The main panel takes twice the height of each other panel; only the
    // lowest panel shown prints dates (a volume panel switched off takes
    // them with it otherwise); every panel but the main one can be closed.
    // Panels are found in the splitter by identity: one being destroyed
    // may still sit there.
    int lowest = d->panels.count() - 1;
    while (lowest > 0 && EventSync::hiddenOnPurpose(d->panels.at(lowest)))
        --lowest;
    for (int i = 0; i < d->panels.count(); ++i) {
        Plot *p = d->panels.at(i);
        const int at = d->splitter->indexOf(p);
        if (at >= 0)
            d->splitter->setStretchFactor(at, i == 0 ? 2 : 1);
        p->enableAxis(QwtPlot::xBottom, i == lowest);
        PanelCloseButton::showFor(p, i > 0);
    }
    d->splitter->refresh();
    if (d->splitter->count() == 0)
        ResetSplitter();
    // Panels were added, moved or removed: the main panel may be another one.
    DateScaleDraw::datesChanged(this);
}

void PriceGraph::ResetSplitter()
{
    delete d->splitter;
    delete layout();

    OverlayLayout *overlayLayout = new OverlayLayout;
    overlayLayout->setContentsMargins(0, 0, 0, 0);
    overlayLayout->setSpacing(0);
    d->splitter = new QSplitter;
    d->splitter->setOrientation(Qt::Vertical);
    d->splitter->setHandleWidth(1);
    overlayLayout->addWidget(d->splitter);
    // The overlay lies on top of the panels and lets the mouse through.
    d->overlay->setParent(nullptr);
    d->overlay->setAttribute(Qt::WA_TransparentForMouseEvents);
    overlayLayout->addWidget(d->overlay);

    QVBoxLayout *vbox = new QVBoxLayout;
    vbox->setContentsMargins(0, 0, 0, 0);
    vbox->setSpacing(0);
    vbox->addLayout(overlayLayout);
    d->scrollBar->setGeometry(0, 0, 30, 100);
    d->scrollBar->setFixedHeight(29);
    d->scrollBar->setPageStep(1);
    d->scrollBar->setRange(0, 0);
    d->scrollBar->setValue(0);

    // The bar with the zoom buttons at its right end.
    vbox->addWidget(d->rebuildScrollRow(), 0);
    setLayout(vbox);
}

Plot *PriceGraph::GetMainPanel()
{
    // What was fed is in the panels' ranges by the time the host reads them.
    d->eventSync->flushPending();
    return d->panels.isEmpty() ? nullptr : d->panels.first();
}

QList<Plot *> PriceGraph::GetAllPanel()
{
    d->eventSync->flushPending();
    return d->panels;
}

QWidget *PriceGraph::getOverlayWidget()
{
    return d->overlay;
}

// ---- series and data feed --------------------------------------------------

long PriceGraph::AddSeries(QString name, long type, long panel, long, long, bool)
{
    QMutexLocker locker(d->mutex);
    if (panel < 0 || panel > 64) {
        qWarning("PriceGraph::AddSeries() ignored panel index %ld (0..64).", panel);
        return panel;
    }
    while (d->panels.count() <= panel)
        AddChartPanel();
    Plot *p = d->panels.at(int(panel));
    p->AddSeries(name, type);
    // A volume panel stays hidden while the chart's volume switch is off.
    p->setVisible(!p->volumeHistogram || p->tradingCurve || p->m_showVolume);
    p->setAxisFont(QwtPlot::xBottom, font());
    p->setAxisFont(QwtPlot::yRight, font());
    d->panelsChanged();
    return panel;
}

void PriceGraph::RemoveSeries(const char *name)
{
    forEachPanel(d, name, "RemoveSeries", [&](Plot *p, const QString &n) { p->RemoveSeries(n); });
}

void PriceGraph::AppendOHLC(const char *name, double time, bool show, double open, double high,
                            double low, double close, long volume)
{
    const double t = ValmorTimeToQwtTime(time);
    forEachPanel(d, name, "AppendOHLC", [&](Plot *p, const QString &n) {
        p->AppendOHLC(n, t, show, open, high, low, close, volume);
    });
}

void PriceGraph::AppendValue(const char *name, double time, double value, bool show)
{
    const double t = ValmorTimeToQwtTime(time);
    forEachPanel(d, name, "AppendValue",
                 [&](Plot *p, const QString &n) { p->AppendValue(n, t, value, show); });
}

void PriceGraph::EditOHLC(const char *name, double time, bool show, double open, double high,
                          double low, double close, long volume)
{
    const double t = ValmorTimeToQwtTime(time);
    forEachPanel(d, name, "EditOHLC", [&](Plot *p, const QString &n) {
        p->EditOHLC(n, t, show, open, high, low, close, volume);
    });
}

void PriceGraph::EditValue(const char *name, double time, double value, bool show)
{
    const double t = ValmorTimeToQwtTime(time);
    forEachPanel(d, name, "EditValue",
                 [&](Plot *p, const QString &n) { p->EditValue(n, t, value, show); });
}

void PriceGraph::ClearValues(const char *name)
{
    forEachPanel(d, name, "ClearValues", [&](Plot *p, const QString &n) { p->ClearValues(n); });
}

void PriceGraph::Update()
{
    // Samples fed with show = false are drawn by this call: each panel
    // flushes (view, separators, scales) and replots once.
    QMutexLocker locker(d->mutex);
    d->eventSync->flush();
}

// ---- display options -------------------------------------------------------

void PriceGraph::SetcandleChart(long type)
{
    QMutexLocker locker(d->mutex);
    if (Plot *main = GetMainPanel())
        main->setLineStyle(int(qBound(long(INT_MIN), type, long(INT_MAX))));
}

long PriceGraph::GetcandleChart()
{
    QMutexLocker locker(d->mutex);
    Plot *main = GetMainPanel();
    return main ? main->getLineStyle() : 0;
}

void PriceGraph::ShowVolume(long show)
{
    QMutexLocker locker(d->mutex);
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels)
        p->showVolume(show != 0);
    d->panelsChanged(); // a hidden volume panel may have led or printed the dates
}

void PriceGraph::SetChartColor(int index, unsigned long rgb)
{
    if (index < 0 || index > 7)
        return;
    const QColor c(int((rgb >> 16) & 0xff), int((rgb >> 8) & 0xff), int(rgb & 0xff));
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels) {
        switch (index) {
        case 0: p->setBackgroundColor(c); break;
        case 1: p->setTextColor(c); break;
        case 2: p->setGridColor(c); break;
        case 3: p->setCandleOutlineColor(c); break;
        case 4: p->setUpColor(c); break;
        case 5: p->setDownColor(c); break;
        case 6: p->setLineColor(c); break;
        case 7: p->setPriceLineColor(c); break;
        }
        p->replot();
    }
    if (index == 1) {
        d->overlay->setTextColor(c);
        d->overlay->update();
    }
}

unsigned long PriceGraph::GetChartColor(int index)
{
    Plot *main = GetMainPanel();
    if (!main || index < 0 || index > 7)
        return QColor().rgba();
    const QColor colors[] = {main->getBackgroundColor(), main->getTextColor(),
                             main->getGridColor(),       main->getCandleOutlineColor(),
                             main->getUpColor(),         main->getDownColor(),
                             main->getLineColor(),       main->getPriceLineColor()};
    return colors[index].rgba();
}

void PriceGraph::SetInterval(double interval)
{
    if (!std::isfinite(interval)) {
        qWarning("PriceGraph::SetInterval() ignored a non-finite interval.");
        return;
    }
    d->interval = interval;
    d->axisBars.timeScale()->setInterval(interval);
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels)
        p->setInterval(interval);
    DateScaleDraw::datesChanged(this);
    for (Plot *p : panels)
        p->replot();
}

void PriceGraph::SetCursorType(long type)
{
    QMutexLocker locker(d->mutex);
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels)
        p->setCursorStyle(int(qBound(long(INT_MIN), type, long(INT_MAX))));
    if (type != d->cursorType) {
        d->cursorType = type;
        Q_EMIT cursorTypeChanged(type);
    }
}

// ---- navigation ------------------------------------------------------------

void PriceGraph::ScrollLeft(long records)
{
    QMutexLocker locker(d->mutex);
    if (Plot *main = GetMainPanel())
        main->ScrollLeft(records);
}

void PriceGraph::ScrollRight(long records)
{
    QMutexLocker locker(d->mutex);
    if (Plot *main = GetMainPanel())
        main->ScrollRight(records);
}

void PriceGraph::ZoomIn(long records)
{
    QMutexLocker locker(d->mutex);
    if (Plot *main = GetMainPanel())
        main->ZoomIn(records);
}

void PriceGraph::ZoomOut(long records)
{
    QMutexLocker locker(d->mutex);
    if (Plot *main = GetMainPanel())
        main->ZoomOut(records);
}

void PriceGraph::ResetZoom()
{
    QMutexLocker locker(d->mutex);
    if (Plot *main = GetMainPanel())
        main->ResetZoom();
}

double PriceGraph::ValmorTimeToQwtTime(double t)
{
    return (t - 2440588.0 + 0.5) * 86400000.0;
}

// ---- trading overlays ------------------------------------------------------

void PriceGraph::setOrderEntry(QObject *orderEntry)
{
    PlotPriceLinesData::checkOrderEntry(orderEntry);
    d->orderEntry = orderEntry;
}

void PriceGraph::DrawPositionLine(long panel, double price, long count, const char *id, int flag,
                                  const char *text1, const char *text2, const char *text3)
{
    QMutexLocker locker(d->mutex);
    if (panel < 0 || panel >= d->panels.count())
        return;
    if (!id) {
        qWarning("PriceGraph::DrawPositionLine() ignored a null line id.");
        return;
    }
    if (!std::isfinite(price)) {
        qWarning("PriceGraph::DrawPositionLine() ignored a non-finite price for %s.", id);
        return;
    }
    Plot *p = d->panels.at(int(panel));
    if (p && p->getPriceLines())
        p->getPriceLines()->drawPositionLine(price, count, QString::fromLatin1(id), flag,
                                             toText(text1), toText(text2), toText(text3),
                                             d->orderEntry);
}

void PriceGraph::DeletePositionLine(long panel, const char *id)
{
    QMutexLocker locker(d->mutex);
    if (panel < 0 || panel >= d->panels.count() || !id)
        return;
    Plot *p = d->panels.at(int(panel));
    if (p && p->getPriceLines())
        p->getPriceLines()->deletePositionLine(QString::fromLatin1(id));
}

void PriceGraph::AddBuyPoint(long, double, double, int, const char *, const char *, const char *,
                             const char *, const char *, const char *)
{
}

void PriceGraph::AddSellPoint(long, double, double, int, const char *, const char *, const char *,
                              const char *, const char *, const char *)
{
}

void PriceGraph::DeleteOrderPoint(const char *) {}

void PriceGraph::DrawTickLine(double price, long)
{
    QMutexLocker locker(d->mutex);
    if (!std::isfinite(price)) {
        qWarning("PriceGraph::DrawTickLine() ignored a non-finite price.");
        return;
    }
    if (d->panels.isEmpty())
        return;
    // Only the first panel shows a tick line; it moves with the panel order.
    d->tickPrice = price;
    d->tickShown = true;
    d->placeTickLine();
}

void PriceGraph::RemoveTickLine()
{
    QMutexLocker locker(d->mutex);
    d->tickShown = false;
    d->placeTickLine();
}

void PriceGraph::updateL1(double price1, double price2, int decimals, int extra)
{
    const bool changed = decimals != d->l1Decimals;
    if (changed && decimals >= 1)
        d->l1DecimalFix = 1.0 / std::pow(10.0, double(decimals) + 2.0); // INT_MAX + 2 overflows an int
    d->l1A = price1;
    d->l1B = price2;
    d->l1Decimals = decimals;
    d->l1Extra = extra;
    // L1 arrives with every quote; the boxes only need new texts when the
    // precision changes.
    if (changed)
        updateAxisLines();
}

void PriceGraph::updateAxisLines()
{
    QMutexLocker locker(d->mutex);
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels) {
        if (p->getPriceLines())
            p->getPriceLines()->refreshLabels();
    }
}

int PriceGraph::getL1Decimal()
{
    return d->l1Decimals;
}

double PriceGraph::getL1DecimalFix()
{
    return d->l1DecimalFix;
}

void PriceGraph::updateUserScriptComment(const char *comment, bool append)
{
    const QList<Plot *> panels = d->panels;
    for (Plot *p : panels)
        p->updateUserScriptComment(comment, append);
}

// ---- kept for binary compatibility; they do nothing -------------------------

void PriceGraph::Print() {}
void PriceGraph::PrintPreview() {}
void PriceGraph::Reset() {}
void PriceGraph::LineDelete() {}
void PriceGraph::DrawBuyTag(long, long, double, bool, bool, const char *, const char *, int) {}
void PriceGraph::DrawSellTag(long, long, double, bool, bool, const char *, const char *, int) {}
void PriceGraph::DeleteTagByCategory(long, const char *) {}
void PriceGraph::DeleteTagByNameIndex(long, const char *) {}
long PriceGraph::GetCursorType() { return 0; }
long PriceGraph::getOriginalStartIndexDiff() { return 0; }
void PriceGraph::UseGradient(bool) {}
long PriceGraph::PanelFromY(long) { return 0; }
long PriceGraph::IndexFromX(long, long) { return 0; }
double PriceGraph::ValueFromY(long, long) { return 0.0; }
