// pricegraph-demo: a small trading terminal around the PriceGraph widget.
//
//   pricegraph-demo                      open the window (without a display:
//                                        render pricegraph-demo.png and exit)
//   pricegraph-demo --data FILE.csv      show FILE (time,open,high,low,close,volume)
//   pricegraph-demo --snapshot OUT.png   render offscreen to OUT.png and exit
//   pricegraph-demo --ticks N ...        run the simulated feed N ticks first
//   pricegraph-demo --verbose ...        show the library's debug lines

#include "mainwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QPalette>
#include <QStyleFactory>

#include <cstdio>
#include <cstring>

namespace {

bool hasArgument(int argc, char **argv, const char *name)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], name) == 0)
            return true;
    }
    return false;
}

// A terminal user wants the window, not the chart's diagnostics: only
// critical and fatal messages pass unless --verbose is given.
QtMessageHandler defaultHandler = nullptr;

void quietHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type != QtCriticalMsg && type != QtFatalMsg)
        return;
    if (defaultHandler)
        defaultHandler(type, context, message);
    else
        fprintf(stderr, "%s\n", qPrintable(message));
}

// Where a snapshot goes when there is no display and none was asked for.
QString defaultSnapshotPath()
{
    const QString name = QStringLiteral("pricegraph-demo.png");
    const QFileInfo here(QDir::current().absolutePath());
    return here.isWritable() ? QDir::current().absoluteFilePath(name)
                             : QDir::temp().absoluteFilePath(name);
}

// Terminals are dark; the library's icons are drawn for a dark background.
void useDarkTheme(QApplication &app)
{
    app.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette p;
    const QColor window(0x1b, 0x1b, 0x1d), base(0x12, 0x12, 0x13), text(0xd8, 0xd8, 0xd8);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, window);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, QColor(0x26, 0x26, 0x29));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::ToolTipBase, base);
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb0));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Disabled, QPalette::Text, QColor(0x70, 0x70, 0x70));
    p.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x70, 0x70, 0x70));
    app.setPalette(p);
}

} // namespace

int main(int argc, char **argv)
{
    // A snapshot needs no display; without one (and no platform chosen)
    // the demo renders its snapshot offscreen instead of failing to start.
    const bool platformChosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    const bool noDisplay = !platformChosen && qEnvironmentVariableIsEmpty("DISPLAY")
                           && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!platformChosen && (noDisplay || hasArgument(argc, argv, "--snapshot")))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!hasArgument(argc, argv, "--verbose"))
        defaultHandler = qInstallMessageHandler(quietHandler);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("pricegraph-demo"));
    useDarkTheme(app);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Demo terminal for the PriceGraph chart widget"));
    parser.addHelpOption();
    const QCommandLineOption snapshot(QStringLiteral("snapshot"),
                                      QStringLiteral("Render offscreen to <png> and exit."),
                                      QStringLiteral("png"));
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Show <csv> instead of the bundled data sets."),
                                  QStringLiteral("csv"));
    const QCommandLineOption ticks(QStringLiteral("ticks"),
                                   QStringLiteral("Run the simulated feed <n> ticks first."),
                                   QStringLiteral("n"), QStringLiteral("0"));
    const QCommandLineOption verbose(QStringLiteral("verbose"),
                                     QStringLiteral("Show the chart's debug lines."));
    parser.addOption(snapshot);
    parser.addOption(ticks);
    parser.addOption(data);
    parser.addOption(verbose);
    parser.process(app);

    MainWindow window(parser.value(data));
    window.advanceFeed(qBound(0, parser.value(ticks).toInt(), 100000));
    if (parser.isSet(snapshot) || noDisplay) {
        const QString out = parser.isSet(snapshot) ? parser.value(snapshot) : defaultSnapshotPath();
        QString error;
        if (!window.saveSnapshot(out, &error)) {
            fprintf(stderr, "pricegraph-demo: cannot write %s: %s\n", qPrintable(out),
                    qPrintable(error));
            return 1;
        }
        const QString where = QFileInfo(out).absoluteFilePath();
        if (parser.isSet(snapshot))
            printf("snapshot written to %s\n", qPrintable(where));
        else
            printf("No display: the demo was rendered offscreen to %s\n", qPrintable(where));
        return 0;
    }
    window.show();
    return app.exec();
}
