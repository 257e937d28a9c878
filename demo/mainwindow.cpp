#include "mainwindow.h"

#include "barfile.h"
#include "demochart.h"
#include "drawingshowcase.h"
#include "marketfeed.h"
#include "orderentry.h"
#include "orderlog.h"
#include "panelset.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageWriter>
#include <QLabel>
#include <QMenuBar>
#include <QPixmap>
#include <QStatusBar>
#include <QToolBar>

#include <cmath>

namespace {

// A toolbar entry that selects a cursor type of the chart.
struct CursorTool
{
    const char *text;
    const char *icon;
    long type;
};

const CursorTool kModes[] = {
    {QT_TRANSLATE_NOOP("MainWindow", "Arrow"), ":/Single/Resources/single/icon-arrow.png", 3},
    {QT_TRANSLATE_NOOP("MainWindow", "Crosshair"), ":/Single/Resources/single/icon-crosshair.png", 1},
    {QT_TRANSLATE_NOOP("MainWindow", "Pan"), ":/Single/Resources/single/icon-pan.png", 6},
};

const CursorTool kTools[] = {
    {QT_TRANSLATE_NOOP("MainWindow", "Trend line"), ":/Line/Resources/line/icon-trendline.png", 2},
    {QT_TRANSLATE_NOOP("MainWindow", "Ray"), ":/Line/Resources/line/icon-ray.png", 30},
    {QT_TRANSLATE_NOOP("MainWindow", "Horizontal line"), ":/Line/Resources/line/icon-horizontal.png", 28},
    {QT_TRANSLATE_NOOP("MainWindow", "Vertical line"), ":/Line/Resources/line/icon-vertical.png", 29},
    {QT_TRANSLATE_NOOP("MainWindow", "Rectangle"), ":/Polygon/Resources/iconPolygons/icon-rectangle.png", 10},
    {QT_TRANSLATE_NOOP("MainWindow", "Ellipse"), ":/Polygon/Resources/iconPolygons/icon-ellipse.png", 22},
    {QT_TRANSLATE_NOOP("MainWindow", "Triangle"), ":/Polygon/Resources/iconPolygons/icon-triangle.png", 23},
    {QT_TRANSLATE_NOOP("MainWindow", "Fibonacci retracement"), ":/Fibonacci/Resources/fibonacci/icon-retracement.png", 5},
    {QT_TRANSLATE_NOOP("MainWindow", "Fibonacci fan"), ":/Fibonacci/Resources/fibonacci/icon-fan.png", 25},
    {QT_TRANSLATE_NOOP("MainWindow", "Fibonacci expansion"), ":/Fibonacci/Resources/fibonacci/icon-expansion.png", 26},
    {QT_TRANSLATE_NOOP("MainWindow", "Fibonacci time zones"), ":/Fibonacci/Resources/fibonacci/icon-timezones.png", 4},
    {QT_TRANSLATE_NOOP("MainWindow", "Andrew's pitchfork"), ":/Objects/Resources/iconChartObjects/icon-pitchfork.png", 8},
    {QT_TRANSLATE_NOOP("MainWindow", "Price channel"), ":/Objects/Resources/iconChartObjects/icon-channel.png", 7},
};

} // namespace

MainWindow::MainWindow(const QString &dataFile, QWidget *parent)
    : QMainWindow(parent)
    , chart(new DemoChart)
    , orderLog(new OrderLog(this))
    , dataSets(new QComboBox)
    , cursorGroup(new QActionGroup(this))
    , priceLabel(new QLabel)
{
    setWindowTitle(tr("PriceGraph demo terminal"));
    setCentralWidget(chart);
    addDockWidget(Qt::BottomDockWidgetArea, orderLog);
    statusBar()->addPermanentWidget(priceLabel);

    orders = new OrderEntry(chart, orderLog, this);
    chart->setOrderEntry(orders);
    feed = new MarketFeed(chart, this);
    panels = new PanelSet(chart, feed, this);
    panels->build();
    connect(panels, &PanelSet::message, orderLog, &OrderLog::log);
    chart->SetcandleChart(1);
    connect(feed, &MarketFeed::priceChanged, this, [this](double price) {
        priceLabel->setText(tr("last %1").arg(orders->formatPrice(price)));
    });
    connect(chart, &PriceGraph::cursorTypeChanged, this, &MainWindow::onCursorTypeChanged);

    sets.append({tr("S&P 500 daily"), findDataFile(QStringLiteral("sp500_daily_2000-2020.csv")),
                 86400000.0, 2});
    sets.append({tr("USD/CHF 30 min"),
                 findDataFile(QStringLiteral("usdchf_30min_2000-10_2001-03.csv")), 1800000.0, 4});
    sets.append({tr("USD/THB 5 min"), findDataFile(QStringLiteral("usdthb_5min_1997-06.csv")),
                 300000.0, 4});
    if (!dataFile.isEmpty()) {
        // A bundled file keeps its known interval and decimals.
        DataSet own{QFileInfo(dataFile).completeBaseName(), dataFile, 0.0, 0};
        for (const DataSet &s : qAsConst(sets)) {
            if (QFileInfo(s.path).fileName() == QFileInfo(dataFile).fileName())
                own = {s.title, dataFile, s.intervalMs, s.decimals};
        }
        sets = {own};
    }
    for (const DataSet &s : qAsConst(sets))
        dataSets->addItem(s.title);

    buildToolBars();
    buildMenus();
    resize(1280, 820);
    // The log starts a few lines tall: the chart keeps most of the height.
    resizeDocks({orderLog}, {orderLog->linesHeight(3)}, Qt::Vertical);
    loadDataSet(0);
    connect(dataSets, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &MainWindow::loadDataSet);
}

void MainWindow::buildToolBars()
{
    QToolBar *bar = addToolBar(tr("Chart"));
    bar->setObjectName(QStringLiteral("chartBar"));
    bar->setIconSize(QSize(16, 16));
    bar->addWidget(dataSets);
    bar->addSeparator();

    QActionGroup *styles = new QActionGroup(this);
    const char *styleNames[] = {QT_TR_NOOP("Bars"), QT_TR_NOOP("Candles"), QT_TR_NOOP("Line")};
    for (long style = 0; style < 3; ++style) {
        QAction *a = bar->addAction(tr(styleNames[style]));
        a->setCheckable(true);
        a->setChecked(style == 1);
        styles->addAction(a);
        connect(a, &QAction::triggered, this, [this, style] { chart->SetcandleChart(style); });
    }
    bar->addSeparator();
    QAction *zoomIn = bar->addAction(QIcon(QStringLiteral(":/Icons/Resources/icon-zoomin.png")),
                                     tr("Zoom in"));
    connect(zoomIn, &QAction::triggered, this, [this] { chart->ZoomIn(1); });
    QAction *zoomOut = bar->addAction(QIcon(QStringLiteral(":/Icons/Resources/icon-zoomout.png")),
                                      tr("Zoom out"));
    connect(zoomOut, &QAction::triggered, this, [this] { chart->ZoomOut(1); });

    QToolBar *tools = addToolBar(tr("Tools"));
    tools->setObjectName(QStringLiteral("toolBar"));
    tools->setIconSize(QSize(16, 16));
    auto addTool = [this, tools](const CursorTool &t) {
        QAction *a = tools->addAction(QIcon(QString::fromLatin1(t.icon)), tr(t.text));
        a->setCheckable(true);
        a->setData(qlonglong(t.type));
        a->setChecked(t.type == 3);
        cursorGroup->addAction(a);
        const long type = t.type;
        connect(a, &QAction::triggered, this, [this, type] { chart->SetCursorType(type); });
    };
    for (const CursorTool &t : kModes)
        addTool(t);
    tools->addSeparator();
    for (const CursorTool &t : kTools)
        addTool(t);
    // Escape puts the tool down; Delete removes the selected mark (the chart does that).
    QAction *escape = new QAction(this);
    escape->setShortcut(QKeySequence(Qt::Key_Escape));
    connect(escape, &QAction::triggered, this, [this] { chart->SetCursorType(3); });
    addAction(escape);
}

void MainWindow::buildMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open..."), this, &MainWindow::openFile, QKeySequence::Open);
    file->addSeparator();
    file->addAction(tr("&Quit"), qApp, &QApplication::quit, QKeySequence::Quit);

    QMenu *view = menuBar()->addMenu(tr("&View"));
    liveAction = view->addAction(tr("&Live feed"));
    liveAction->setCheckable(true);
    connect(liveAction, &QAction::toggled, this, &MainWindow::setLive);
    QAction *volume = view->addAction(tr("Show &volume panel"));
    volume->setCheckable(true);
    volume->setChecked(true);
    connect(volume, &QAction::toggled, this, [this](bool on) { chart->SetChartPanelType(0, on); });
    view->addAction(tr("&Reset zoom"), this, [this] { chart->ResetZoom(); });
    view->addAction(tr("&Draw one of each tool"), this, [this] {
        // On the S&P 500 candles, one zoom step out, as the README's picture.
        dataSets->setCurrentIndex(0);
        chart->ResetZoom();
        chart->ZoomOut(1);
        QCoreApplication::processEvents();
        if (!DrawingShowcase::drawOneOfEach(*chart))
            orderLog->log(tr("no panel on screen to draw on"));
    });

    QMenu *menu = menuBar()->addMenu(tr("&Panels"));
    menu->addAction(tr("&Close the lowest panel"), panels, &PanelSet::closeLowest);
    menu->addAction(tr("&Swap the two lowest panels"), panels, &PanelSet::swapLowest);
    menu->addAction(tr("&Add an empty panel"), panels, &PanelSet::addEmpty);
    menu->addSeparator();
    QAction *showVolume = menu->addAction(tr("Show &volume"), panels, &PanelSet::showVolume);
    QAction *showAverages =
        menu->addAction(tr("Show a&verages"), panels, &PanelSet::showAverages);
    // Offered while the panel is closed (volume only for data with volume).
    const auto offer = [this, showVolume, showAverages] {
        showVolume->setEnabled(!panels->has(PanelSet::Volume) && feed->hasVolume());
        showAverages->setEnabled(!panels->has(PanelSet::Averages));
    };
    connect(panels, &PanelSet::changed, this, offer);
    connect(menu, &QMenu::aboutToShow, this, offer);
    offer();
}

QString MainWindow::findDataFile(const QString &name)
{
    const QString appDir = QCoreApplication::applicationDirPath();
    QStringList dirs;
    const QString env = qEnvironmentVariable("PRICEGRAPH_DATA_DIR");
    if (!env.isEmpty())
        dirs << env;
    dirs << appDir + QStringLiteral("/data") << appDir + QStringLiteral("/../share/pricegraph/data")
         << QStringLiteral(PRICEGRAPH_DEMO_SOURCE_DATA);
    for (const QString &dir : dirs) {
        const QString path = QDir(dir).filePath(name);
        if (QFileInfo::exists(path))
            return QDir::cleanPath(path);
    }
    return name;
}

void MainWindow::addDataSet(const DataSet &set)
{
    sets.append(set);
    dataSets->addItem(set.title);
    dataSets->setCurrentIndex(sets.size() - 1); // loads it
}

void MainWindow::openFile()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open bars"), QFileInfo(sets.value(dataSets->currentIndex()).path).absolutePath(),
        tr("Bars (*.csv);;All files (*)"));
    if (!path.isEmpty())
        addDataSet({QFileInfo(path).completeBaseName(), path, 0.0, 0});
}

void MainWindow::loadDataSet(int index)
{
    if (index < 0 || index >= sets.size())
        return;
    const DataSet &set = sets.at(index);
    BarFile file;
    if (!file.load(set.path)) {
        orderLog->log(tr("%1 not loaded: %2").arg(set.path, file.error()));
        statusBar()->showMessage(tr("No data from %1: %2").arg(set.path, file.error()));
        return;
    }
    const QVector<Bar> &bars = file.bars();
    const double interval = set.intervalMs > 0 ? set.intervalMs : BarFile::typicalInterval(bars);
    const int decimals = set.decimals > 0 ? set.decimals : BarFile::priceDecimals(bars);
    orders->clear();
    orders->setDecimals(decimals);
    feed->load(bars, interval, decimals);
    panels->dataLoaded();
    QString read = tr("%1: %2 read of %3").arg(QFileInfo(set.path).fileName(),
                                               BarFile::count(bars.size(), "bar", "bars"),
                                               BarFile::count(file.rows(), "row", "rows"));
    if (file.skippedCount() > 0) {
        QStringList reasons;
        for (const auto &s : file.skipped())
            reasons << tr("%1 %2").arg(s.second).arg(s.first);
        read += tr("; %1 skipped: %2")
                    .arg(BarFile::count(file.skippedCount(), "row", "rows"),
                         reasons.join(QStringLiteral(", ")));
    }
    orderLog->log(read);
    placeOrders();
    statusBar()->showMessage(tr("%1: %2 from %3")
                                 .arg(set.title, BarFile::count(bars.size(), "bar", "bars"),
                                      set.path));
}

void MainWindow::placeOrders()
{
    // Two buys at one price show how order labels stack; a sell above the
    // market and an open position just under it.
    const double last = feed->lastPrice();
    const double unit = std::pow(10.0, feed->decimals());
    auto price = [unit](double p) { return std::round(p * unit) / unit; };
    orders->place(QStringLiteral("Buy-1"), price(last * 0.97), 1000);
    orders->place(QStringLiteral("Buy-2"), price(last * 0.97), 500);
    orders->place(QStringLiteral("Sell-1"), price(last * 1.03), 1500);
    orders->place(QStringLiteral("Position-1"), price(last * 0.99), 2000);
    orderLog->log(tr("orders Buy-1, Buy-2, Sell-1 and Position-1 placed"));
}

void MainWindow::setLive(bool on)
{
    feed->setRunning(on);
    if (liveAction && liveAction->isChecked() != on)
        liveAction->setChecked(on);
}

void MainWindow::onCursorTypeChanged(long type)
{
    // After a drawing the chart returns to the arrow; follow it.
    for (QAction *a : cursorGroup->actions())
        a->setChecked(a->data().toLongLong() == type);
}

void MainWindow::advanceFeed(int ticks)
{
    for (int i = 0; i < ticks; ++i)
        feed->tick();
}

bool MainWindow::saveSnapshot(const QString &path, QString *error)
{
    // Opened first, so a path that cannot be written fails at once and
    // with the reason (missing folder, permission).
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly)) {
        *error = out.errorString();
        return false;
    }
    show();
    // Replots are queued on the event loop: let them run.
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 300)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    QImageWriter writer(&out, "png");
    if (!writer.write(grab().toImage())) {
        *error = writer.errorString();
        return false;
    }
    return true;
}
