// pricegraph-demo: a small trading terminal around the PriceGraph widget.
//
//   pricegraph-demo                      open the window
//   pricegraph-demo --data FILE.csv      show FILE (time,open,high,low,close,volume)
//   pricegraph-demo --snapshot OUT.png   render offscreen to OUT.png and exit
//   pricegraph-demo --ticks N ...        run the simulated feed N ticks first

#include "mainwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QPalette>
#include <QStyleFactory>

#include <cstring>

namespace {

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
    // A snapshot needs no display.
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--snapshot") == 0 && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
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
    parser.addOption(snapshot);
    parser.addOption(ticks);
    parser.addOption(data);
    parser.process(app);

    MainWindow window(parser.value(data));
    window.advanceFeed(qBound(0, parser.value(ticks).toInt(), 100000));
    if (parser.isSet(snapshot)) {
        const QString out = parser.value(snapshot);
        if (!window.saveSnapshot(out)) {
            fprintf(stderr, "pricegraph-demo: cannot write %s\n", qPrintable(out));
            return 1;
        }
        printf("snapshot written to %s\n", qPrintable(QFileInfo(out).absoluteFilePath()));
        return 0;
    }
    window.show();
    return app.exec();
}
