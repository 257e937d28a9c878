#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QMainWindow>
#include <QVector>

class DemoChart;
class MarketFeed;
class OrderEntry;
class OrderLog;
class PanelSet;
class QAction;
class QActionGroup;
class QComboBox;
class QLabel;

// The demo terminal: the chart, a toolbar for data set, style, zoom and
// drawing tools, menus for files, view and panels, a log of order requests
// and a simulated live feed.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // `dataFile` (optional) is shown instead of the bundled data sets.
    explicit MainWindow(const QString &dataFile = QString(), QWidget *parent = nullptr);

    // Waits until the chart has drawn what it was given and saves the
    // window as a PNG; false with the writer's reason in `error`.
    bool saveSnapshot(const QString &path, QString *error);
    void setLive(bool on);
    // Runs the simulated feed `ticks` steps at once.
    void advanceFeed(int ticks);

    // Where the bundled CSV files are: next to the program, installed under
    // share/, or in the source tree it was built from.
    static QString findDataFile(const QString &name);

private Q_SLOTS:
    void loadDataSet(int index);
    void openFile();
    void onCursorTypeChanged(long type);

private:
    struct DataSet
    {
        QString title;
        QString path;
        double intervalMs;  // 0: judged from the file
        int decimals;       // 0: judged from the prices
    };

    void buildToolBars();
    void buildMenus();
    void placeOrders();
    void addDataSet(const DataSet &set);

    DemoChart *chart;
    MarketFeed *feed;
    OrderLog *orderLog;
    OrderEntry *orders;
    PanelSet *panels;
    QComboBox *dataSets;
    QActionGroup *cursorGroup;
    QAction *liveAction = nullptr;
    QLabel *priceLabel;
    QVector<DataSet> sets;
};

#endif // MAINWINDOW_H
