#include "mainwindow.h"

#include "barfile.h"
#include "demochart.h"
#include "drawingshowcase.h"
#include "marketfeed.h"
#include "orderentry.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPixmap>
#include <QPlainTextEdit>
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
    , log(new QPlainTextEdit)
    , dataSets(new QComboBox)
    , cursorGroup(new QActionGroup(this))
    , priceLabel(new QLabel)
{
    setWindowTitle(tr("PriceGraph demo terminal"));
    setCentralWidget(chart);

    log->setReadOnly(true);
    log->setMaximumBlockCount(500);
    QDockWidget *dock = new QDockWidget(tr("Order log"), this);
    dock->setObjectName(QStringLiteral("orderLog"));
    dock->setWidget(log);
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {90}, Qt::Vertical);
    statusBar()->addPermanentWidget(priceLabel);

    orders = new OrderEntry(chart, log, this);
    chart->setOrderEntry(orders);
    feed = new MarketFeed(chart, this);
    chart->SetcandleChart(1);
    connect(feed, &MarketFeed::priceChanged, this, [this](double price) {
        priceLabel->setText(tr("last %1").arg(price, 0, 'f', feed->decimals()));
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
    for (const DataSet &s : sets)
        dataSets->addItem(s.title);

    buildToolBars();
    buildMenus();
    resize(1280, 820);
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
            orders->log(tr("no panel on screen to draw on"));
    });

    QMenu *panels = menuBar()->addMenu(tr("&Panels"));
    panels->addAction(tr("&Close the lowest panel"), this, [this] {
        const long n = chart->GetPanelCount();
        if (chart->closePanel(n - 1))
            orders->log(tr("panel %1 closed").arg(n - 1));
    });
    panels->addAction(tr("&Swap the two lowest panels"), this, [this] {
        const long n = chart->GetPanelCount();
        if (n >= 3) {
            chart->MoveChartPanel(n - 1, n - 2);
            orders->log(tr("panels %1 and %2 swapped").arg(n - 2).arg(n - 1));
        }
    });
    panels->addAction(tr("&Add an empty panel"), this, [this] {
        orders->log(tr("panel %1 added").arg(chart->AddChartPanel()));
    });
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

void MainWindow::loadDataSet(int index)
{
    if (index < 0 || index >= sets.size())
        return;
    const DataSet &set = sets.at(index);
    QString error;
    const QVector<Bar> bars = BarFile::load(set.path, &error);
    if (!error.isEmpty())
        orders->log(error);
    if (bars.isEmpty()) {
        statusBar()->showMessage(tr("No data: %1").arg(error));
        return;
    }
    const double interval = set.intervalMs > 0 ? set.intervalMs : BarFile::typicalInterval(bars);
    const int decimals = set.decimals > 0 ? set.decimals : BarFile::priceDecimals(bars);
    orders->clear();
    feed->load(bars, interval, decimals);
    placeOrders();
    statusBar()->showMessage(tr("%1: %2 bars from %3").arg(set.title).arg(bars.size()).arg(set.path));
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
    orders->log(tr("orders Buy-1, Buy-2, Sell-1 and Position-1 placed"));
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

bool MainWindow::saveSnapshot(const QString &path)
{
    show();
    // Replots are queued on the event loop: let them run.
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 300)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    return grab().save(path);
}
