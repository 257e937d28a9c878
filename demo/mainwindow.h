#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QMainWindow>
#include <QVector>

class DemoChart;
class MarketFeed;
class OrderEntry;
class QActionGroup;
class QComboBox;
class QLabel;
class QPlainTextEdit;

// The demo terminal: the chart, a toolbar for data set, style, zoom and
// drawing tools, a log of order requests and a simulated live feed.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // `dataFile` (optional) is shown instead of the bundled data sets.
    explicit MainWindow(const QString &dataFile = QString(), QWidget *parent = nullptr);

    // Waits until the chart has drawn what it was given and saves the window.
    bool saveSnapshot(const QString &path);
    void setLive(bool on);
    // Runs the simulated feed `ticks` steps at once.
    void advanceFeed(int ticks);

    // Where the bundled CSV files are: next to the program, installed under
    // share/, or in the source tree it was built from.
    static QString findDataFile(const QString &name);

private Q_SLOTS:
    void loadDataSet(int index);
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

    DemoChart *chart;
    MarketFeed *feed;
    OrderEntry *orders;
    QPlainTextEdit *log;
    QComboBox *dataSets;
    QActionGroup *cursorGroup;
    QAction *liveAction = nullptr;
    QLabel *priceLabel;
    QVector<DataSet> sets;
};

#endif // MAINWINDOW_H
