// pricegraph-bench: long histories and live ticks, PriceGraph next to plain
// Qwt and QCustomPlot on the same synthetic bars. See README.md.

#include "benchrunner.h"

#include <QApplication>
#include <QMap>
#include <QStringList>

#include <cmath>
#include <cstdio>

namespace {

void usage()
{
    std::printf(
        "usage: pricegraph-bench [options]\n"
        "  --sizes N[,N...]   history lengths (default 1000,10000,100000,1000000)\n"
        "  --reps R           repetitions, medians are reported (default 5)\n"
        "  --libs a[,b...]    libraries to run (default: all built: %s)\n"
        "  --pan-steps S      one-bar steps per pan repetition (default 100)\n"
        "  --min-batch SEC    shortest frame/tick batch (default 0.25)\n"
        "  --load-limit SEC   abandon a load slower than this (default 10)\n"
        "  --no-memory        skip the memory runs (child processes)\n"
        "  --profile W        run workload W (frame, wide, tick, pan, pan-marks,\n"
        "                     pan-marks-spread, load, load-show)\n"
        "                     of the first library at the first size, --iters times,\n"
        "                     for valgrind --tool=callgrind --toggle-collect='*profiledSection*'\n"
        "  --iters K          iterations of --profile (default 20)\n"
        "  --save FILE        --profile: write the last frame to FILE (PNG)\n"
        "  --quick            smoke run: 1000,10000 bars, 2 reps, short batches\n",
        qPrintable(BenchRunner::availableLibraries().join(QLatin1Char(','))));
}

QString grouped(long v)
{
    QString s = QString::number(v);
    for (int i = s.size() - 3; i > 0; i -= 3)
        s.insert(i, QLatin1Char(','));
    return s;
}

QString cell(double v, int width)
{
    QString s;
    if (std::isnan(v))
        s = QStringLiteral("-");
    else if (std::abs(v) >= 1000)
        s = QString::number(v, 'f', 0);
    else if (std::abs(v) >= 100)
        s = QString::number(v, 'f', 1);
    else if (std::abs(v) >= 1)
        s = QString::number(v, 'f', 2);
    else
        s = QString::number(v, 'f', 3);
    return s.rightJustified(width);
}

struct Metric
{
    const char *label;
    double RunResult::*field;
    const char *budget;
};

const Metric Metrics[] = {
    {"load (us/bar)", &RunResult::loadUs, "<= 1.0"},
    {"load, show each bar (us/bar)", &RunResult::loadShowUs, "<= 2.0"},
    {"frame, newest %1 bars (ms)", &RunResult::frameMs, "<= 0.7"},
    {"frame, widest %1 bars (ms)", &RunResult::frameWideMs, ""},
    {"tick (us)", &RunResult::tickUs, "<= 750"},
    {"pan (frames/s)", &RunResult::panFps, ">= 1200"},
    {"pan, 200 marks spread (frames/s)", &RunResult::panMarksSpreadFps, "> pan / 2"},
    {"pan, 200 marks in view (frames/s)", &RunResult::panMarksFps, "> pan / 2"},
    {"memory (bytes/bar)", &RunResult::memBytes, "<= 64"},
};

void printTable(int bars, int reps, const QVector<RunResult> &results)
{
    const RunResult *ours = nullptr;
    for (const RunResult &r : results) {
        if (r.lib == QLatin1String("pricegraph"))
            ours = &r;
    }
    std::printf("\n%s bars, 1600x900, medians of %d\n", qPrintable(grouped(bars)), reps);
    QString head = QStringLiteral("%1").arg(QString(), -34);
    for (const RunResult &r : results) {
        head += r.lib.rightJustified(12);
        if (ours && &r != ours)
            head += QStringLiteral("ours/%1")
                        .arg(r.lib == QLatin1String("qcustomplot") ? QStringLiteral("qcp") : r.lib)
                        .rightJustified(10);
    }
    head += QStringLiteral("   budget (1e6 bars)");
    std::printf("%s\n", qPrintable(head));
    for (const Metric &m : Metrics) {
        QString label = QString::fromLatin1(m.label);
        if (label.contains(QLatin1String("%1"))) {
            const RunResult &first = ours ? *ours : results.first();
            const double v = m.field == &RunResult::frameMs ? first.viewBars : first.viewWideBars;
            label = label.arg(std::isnan(v) ? QStringLiteral("?") : QString::number(v, 'f', 0));
        }
        QString line = label.leftJustified(34);
        for (const RunResult &r : results) {
            line += cell(r.*m.field, 12);
            if (ours && &r != ours)
                line += cell(ours->*m.field / (r.*m.field), 10);
        }
        line += QStringLiteral("   ") + QString::fromLatin1(m.budget);
        std::printf("%s\n", qPrintable(line));
    }
    for (const RunResult &r : results) {
        if (!r.notes.isEmpty())
            std::printf("  %s: %s\n", qPrintable(r.lib), qPrintable(r.notes.join(QStringLiteral(", "))));
    }
    std::fflush(stdout);
}

void printBudget(const QMap<int, QVector<RunResult>> &all)
{
    auto find = [&](int bars, const char *lib) -> const RunResult * {
        const auto it = all.constFind(bars);
        if (it == all.constEnd())
            return nullptr;
        for (const RunResult &r : *it) {
            if (r.lib == QLatin1String(lib))
                return &r;
        }
        return nullptr;
    };
    const int largest = all.lastKey();
    const RunResult *ours = find(largest, "pricegraph");
    if (!ours) {
        std::printf("\n");
        return;
    }
    std::printf("\nBudget, %s bars%s\n", qPrintable(grouped(largest)),
                largest == 1000000 ? "" : " (the budget is set for 1,000,000)");
    const bool atBudgetSize = largest == 1000000;
    auto check = [atBudgetSize](const char *what, double v, bool ok, const char *limit) {
        std::printf("  %-44s %10s  %-10s %s\n", what, qPrintable(cell(v, 0)), limit,
                    std::isnan(v)       ? "not measured"
                        : !atBudgetSize ? (ok ? "(would pass)" : "(would miss)")
                        : ok            ? "ok"
                                        : "MISSED");
    };
    check("frame, newest bars (ms)", ours->frameMs, ours->frameMs <= 0.7, "<= 0.7");
    if (const RunResult *small = find(1000, "pricegraph")) {
        const double ratio = ours->frameMs / small->frameMs;
        check("frame at this size / frame at 1,000 bars", ratio, ratio <= 1.2, "<= 1.2");
    }
    check("tick (us)", ours->tickUs, ours->tickUs <= 750, "<= 750");
    if (const RunResult *qcp = find(largest, "qcustomplot")) {
        const double speedup = qcp->tickUs / ours->tickUs;
        check("tick speed-up over qcustomplot", speedup, speedup >= 1.5, ">= 1.5");
    }
    check("pan (frames/s)", ours->panFps, ours->panFps >= 1200, ">= 1200");
    const double spread = ours->panMarksSpreadFps / ours->panFps;
    check("pan, 200 marks spread / pan", spread, spread > 0.5, "> 0.5");
    const double inView = ours->panMarksFps / ours->panFps;
    check("pan, 200 marks in view / pan", inView, inView > 0.5, "> 0.5");
    const double loadS = ours->loadUs * largest * 1e-6;
    const double showS = ours->loadShowUs * largest * 1e-6;
    check("load (s)", loadS, loadS <= 1.0 * largest / 1e6, "<= 1.0/1e6");
    check("load, show each bar (s)", showS, showS <= 2.0 * largest / 1e6, "<= 2.0/1e6");
    check("memory (bytes/bar)", ours->memBytes, ours->memBytes <= 64, "<= 64");
}

// The offscreen platform's chatter about window hints says nothing here.
void quietHandler(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (message.contains(QLatin1String("propagateSizeHints"))
        || message.contains(QLatin1String("XDG_RUNTIME_DIR")))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietHandler);
    QApplication app(argc, argv);

    const QStringList args = app.arguments();
    if (args.value(1) == QLatin1String("--memory-child"))
        return BenchRunner::memoryChild(args.value(2), args.value(3).toInt());

    BenchOptions options;
    QString profileWorkload;
    int profileIterations = 20;
    options.libs = BenchRunner::availableLibraries();
    for (int i = 1; i < args.size(); ++i) {
        const QString a = args[i];
        const QString v = args.value(i + 1);
        auto takeValue = [&] { ++i; return v; };
        if (a == QLatin1String("--sizes")) {
            options.sizes.clear();
            for (const QString &s : takeValue().split(QLatin1Char(','), Qt::SkipEmptyParts))
                options.sizes.append(s.toInt());
        } else if (a == QLatin1String("--reps")) {
            options.reps = qMax(1, takeValue().toInt());
        } else if (a == QLatin1String("--libs")) {
            options.libs = takeValue().split(QLatin1Char(','), Qt::SkipEmptyParts);
        } else if (a == QLatin1String("--pan-steps")) {
            options.panSteps = qMax(1, takeValue().toInt());
        } else if (a == QLatin1String("--min-batch")) {
            options.minBatchSeconds = takeValue().toDouble();
        } else if (a == QLatin1String("--load-limit")) {
            options.loadLimitSeconds = takeValue().toDouble();
        } else if (a == QLatin1String("--profile")) {
            profileWorkload = takeValue();
        } else if (a == QLatin1String("--iters")) {
            profileIterations = qMax(1, takeValue().toInt());
        } else if (a == QLatin1String("--save")) {
            options.saveImage = takeValue();
        } else if (a == QLatin1String("--no-memory")) {
            options.memory = false;
        } else if (a == QLatin1String("--quick")) {
            options.sizes = {1000, 10000};
            options.reps = 2;
            options.minBatchSeconds = 0.05;
            options.panMaxSeconds = 0.5;
            options.loadLimitSeconds = 5.0;
        } else {
            usage();
            return a == QLatin1String("--help") || a == QLatin1String("-h") ? 0 : 1;
        }
    }
    for (const QString &lib : options.libs) {
        if (!BenchRunner::availableLibraries().contains(lib)) {
            std::fprintf(stderr, "library %s is not built in\n", qPrintable(lib));
            return 1;
        }
    }
    // Ours runs first: the peers get the same number of bars in view.
    if (options.libs.removeAll(QStringLiteral("pricegraph")))
        options.libs.prepend(QStringLiteral("pricegraph"));

    if (!profileWorkload.isEmpty())
        return BenchRunner(options).profile(profileWorkload, options.sizes.value(0),
                                            profileIterations);

    std::printf("config platform=%s qt=%s sizes=%d reps=%d libs=%s\n",
                qPrintable(QGuiApplication::platformName()), qVersion(),
                int(options.sizes.size()), options.reps,
                qPrintable(options.libs.join(QLatin1Char(','))));
    BenchRunner runner(options);
    QMap<int, QVector<RunResult>> all;
    for (int bars : options.sizes) {
        all.insert(bars, runner.runSize(bars));
        printTable(bars, options.reps, all.value(bars));
    }
    if (!all.isEmpty())
        printBudget(all);
    return 0;
}
