// Golden scenes: each scene of goldenscenes.cpp is built through the
// exported members, the whole widget is rendered offscreen and compared
// with its committed image, pixel for pixel. A mismatch leaves the actual
// image and a diff (differing pixels magenta) in the build folder.
//
// PRICEGRAPH_UPDATE_GOLDEN=1 (cmake --build build --target update-golden)
// rewrites the images that changed, and the README's screenshot, instead.
#include <QtTest>

#include "goldenimage.h"
#include "goldenscenes.h"
#include "pricegraph.h"
#include "scenehost.h"

#include <QFontDatabase>
#include <QStyleFactory>

#include <ctime>

namespace {

const char *const UpdateHint = "if the change is intended: cmake --build build --target update-golden";

QString outDir()
{
    const QString env = qEnvironmentVariable("PRICEGRAPH_GOLDEN_OUT");
    return env.isEmpty() ? QStringLiteral(PRICEGRAPH_GOLDEN_OUT) : env;
}

QString imageOf(const QString &scene)
{
    return QStringLiteral(PRICEGRAPH_GOLDEN_DIR "/%1.png").arg(scene);
}

// What the scenes depend on besides the library, fixed before Qt starts:
// the offscreen platform at 96 dpi without scaling, Roboto as the only
// font (fonts.conf), UTC, and Qt's baseline x86-64 blending and conversion
// routines (it picks SSE4/AVX variants by the CPU at run time; a machine
// with other vector units must take the same path).
void pinEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("FONTCONFIG_FILE", PRICEGRAPH_FONTS_CONF);
    qputenv("QT_NO_CPU_FEATURE", "sse3 ssse3 sse4.1 sse4.2 avx f16c avx2 avx512f avx512dq "
                                 "avx512cd avx512bw avx512vl avx512ifma avx512vbmi");
    for (const char *name :
         {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR",
          "QT_ENABLE_HIGHDPI_SCALING", "QT_FONT_DPI", "QT_DEVICE_PIXEL_RATIO",
          "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION",
          "KDE_FULL_SESSION", "GNOME_DESKTOP_SESSION_ID"})
        qunsetenv(name);
    qputenv("TZ", "UTC");
    tzset();
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
}

// A dark terminal as the demo's: Fusion with fixed colours, Roboto 9 pt.
void styleApplication()
{
    QLocale::setDefault(QLocale::c());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QPalette p;
    const QColor window(0x1b, 0x1b, 0x1d), base(0x12, 0x12, 0x13), text(0xd8, 0xd8, 0xd8);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, window);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, QColor(0x26, 0x26, 0x29));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb0));
    p.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(p);
    QApplication::setFont(QFont(QStringLiteral("Roboto"), 9));
}

} // namespace

class tst_Golden : public QObject
{
    Q_OBJECT

private:
    const bool updating = qEnvironmentVariableIntValue("PRICEGRAPH_UPDATE_GOLDEN") != 0;

    // Builds `scene` and renders it into *rendered; false with *message
    // naming the scene when it cannot be built.
    static bool render(const GoldenScene &scene, QImage *rendered, QString *message)
    {
        SceneHost host(scene.size);
        scene.build(host);
        if (!host.failed())
            *rendered = host.render();
        if (host.failed()) {
            *message = QStringLiteral("scene %1 cannot be built: %2").arg(scene.name, host.error());
            return false;
        }
        return true;
    }

    // Compares `actual` with the image at `path`; on a mismatch writes the
    // actual image and the diff into `out` and names them in *message.
    static bool compare(const QString &scene, const QImage &actual, const QString &path,
                        const QString &out, QString *message)
    {
        const QString actualPath = QStringLiteral("%1/%2-actual.png").arg(out, scene);
        const QString diffPath = QStringLiteral("%1/%2-diff.png").arg(out, scene);
        QFile::remove(actualPath);
        QFile::remove(diffPath);
        QString error;
        const QImage expected = goldenimage::load(path, &error);
        if (expected.isNull()) {
            goldenimage::save(actual, actualPath, &error);
            *message = QStringLiteral("scene %1: the golden image %2; actual: %3 (%4)")
                           .arg(scene, error, actualPath, QLatin1String(UpdateHint));
            return false;
        }
        const int differing = goldenimage::countDifferences(expected, actual);
        if (differing == 0)
            return true;
        goldenimage::save(actual, actualPath, &error);
        goldenimage::save(goldenimage::diff(expected, actual), diffPath, &error);
        *message = QStringLiteral("scene %1: %2 pixels differ from %3 (%4 x %5, drawn %6 x %7); "
                                  "actual: %8, diff: %9 (%10)")
                       .arg(scene).arg(differing).arg(path)
                       .arg(expected.width()).arg(expected.height())
                       .arg(actual.width()).arg(actual.height())
                       .arg(actualPath, diffPath, QLatin1String(UpdateHint));
        return false;
    }

    // Rewrites the image at `path` unless it already holds these pixels
    // (so an unchanged scene leaves no diff behind).
    static bool rewrite(const QImage &actual, const QString &path, QString *message)
    {
        QString error;
        const QImage old = goldenimage::load(path, &error);
        if (!old.isNull() && goldenimage::countDifferences(old, actual) == 0)
            return true;
        if (!goldenimage::save(actual, path, message))
            return false;
        qInfo("rewrote %s", qPrintable(path));
        return true;
    }

private Q_SLOTS:
    void initTestCase()
    {
        const QString roboto = QStringLiteral(PRICEGRAPH_ROBOTO_DIR "/Roboto-Regular.ttf");
        QVERIFY2(QFileInfo::exists(roboto),
                 qPrintable(QStringLiteral("the scenes are drawn in Roboto, but %1 is missing: "
                                           "install the Debian package fonts-roboto")
                                .arg(roboto)));
        // fonts.conf lets fontconfig see Roboto only: whatever family a
        // widget asks for, Roboto draws it, on any machine.
        const QStringList families = QFontDatabase().families();
        for (const QString &family : families) {
            const QString drawn = QFontInfo(QFont(family)).family();
            QVERIFY2(drawn.startsWith(QLatin1String("Roboto")),
                     qPrintable(QStringLiteral("%1 is drawn in %2").arg(family, drawn)));
        }
        QCOMPARE(QFontInfo(QApplication::font()).family(), QStringLiteral("Roboto"));
        QCOMPARE(QFontInfo(QFont(QStringLiteral("DejaVu Sans"))).family(), QStringLiteral("Roboto"));
        QVERIFY(QDir().mkpath(outDir()));
    }

    void scene_data()
    {
        QTest::addColumn<int>("index");
        const QVector<GoldenScene> &scenes = goldenScenes();
        for (int i = 0; i < scenes.size(); ++i)
            QTest::newRow(qPrintable(scenes[i].name)) << i;
    }
    void scene()
    {
        QFETCH(int, index);
        const GoldenScene &scene = goldenScenes().at(index);
        QImage actual;
        QString message;
        QVERIFY2(render(scene, &actual, &message), qPrintable(message));
        // The README shows one scene: its picture is checked and
        // rewritten with it, so it cannot drift from what is drawn.
        QStringList paths{imageOf(scene.name)};
        if (scene.name == readmeScene())
            paths << QStringLiteral(PRICEGRAPH_SCREENSHOT);
        for (const QString &path : qAsConst(paths)) {
            if (updating)
                QVERIFY2(rewrite(actual, path, &message), qPrintable(message));
            else
                QVERIFY2(compare(scene.name, actual, path, outDir(), &message), qPrintable(message));
        }
    }

    // An image of a renamed or removed scene would never be checked again.
    void everyImageHasAScene()
    {
        QStringList names;
        for (const GoldenScene &scene : goldenScenes())
            names << scene.name + QStringLiteral(".png");
        const QDir dir(QStringLiteral(PRICEGRAPH_GOLDEN_DIR));
        QStringList orphans;
        for (const QString &file : dir.entryList({QStringLiteral("*.png")}, QDir::Files)) {
            if (names.contains(file))
                continue;
            if (updating && QFile::remove(dir.filePath(file)))
                qInfo("removed %s", qPrintable(dir.filePath(file)));
            else
                orphans << file;
        }
        QVERIFY2(orphans.isEmpty(), qPrintable(QStringLiteral("images without a scene: %1 (%2)")
                                                   .arg(orphans.join(QStringLiteral(", ")),
                                                        QLatin1String(UpdateHint))));
        QVERIFY(names.removeDuplicates() == 0);
    }

    // The harness itself: a changed pixel is reported with both images.
    void mismatchWritesActualAndDiff()
    {
        if (updating)
            QSKIP("rewriting the images");
        const GoldenScene scene{QStringLiteral("harness_small"), QSize(200, 120), [](SceneHost &h) {
                                    h.feedBars(SceneHost::madeBars(20, 10.0, 0.1), 86400000.0, 2);
                                }};
        QImage actual;
        QString message;
        QVERIFY2(render(scene, &actual, &message), qPrintable(message));
        QTemporaryDir dir;
        QImage golden = actual;
        const QList<QPoint> changed{{0, 0}, {100, 60}, {199, 119}};
        for (const QPoint &p : changed)
            golden.setPixel(p, golden.pixel(p) ^ 0x00ffffffu);
        QString error;
        QVERIFY2(goldenimage::save(golden, dir.filePath("golden.png"), &error), qPrintable(error));
        QVERIFY(!compare(scene.name, actual, dir.filePath("golden.png"), dir.path(), &message));
        QVERIFY2(message.startsWith(QLatin1String("scene harness_small: 3 pixels differ")),
                 qPrintable(message));
        const QString actualPath = dir.filePath("harness_small-actual.png");
        const QString diffPath = dir.filePath("harness_small-diff.png");
        QVERIFY(message.contains(actualPath) && message.contains(diffPath));
        QCOMPARE(goldenimage::load(actualPath, &error), actual);
        const QImage diff = goldenimage::load(diffPath, &error);
        QCOMPARE(diff.size(), actual.size());
        int magenta = 0;
        for (int y = 0; y < diff.height(); ++y) {
            for (int x = 0; x < diff.width(); ++x)
                magenta += diff.pixel(x, y) == qRgb(255, 0, 255);
        }
        QCOMPARE(magenta, changed.size());
        for (const QPoint &p : changed)
            QCOMPARE(diff.pixel(p), qRgb(255, 0, 255));
    }

    // A scene that cannot be built or checked fails by name, and the
    // suite goes on.
    void brokenSceneFailsByName_data()
    {
        QTest::addColumn<QString>("dataFile");
        QTest::addColumn<QByteArray>("imageBytes"); // empty: no image file
        QTest::addColumn<QString>("expected");
        QTest::newRow("missing data file") << QStringLiteral("no_such_bars.csv") << QByteArray()
                                           << QStringLiteral("cannot be built: cannot open data file");
        QTest::newRow("missing image") << QString() << QByteArray()
                                       << QStringLiteral("golden.png does not exist");
        QTest::newRow("image that does not load") << QString() << QByteArray("\x89PNG garbage")
                                                  << QStringLiteral("golden.png does not load");
    }
    void brokenSceneFailsByName()
    {
        if (updating)
            QSKIP("rewriting the images");
        QFETCH(QString, dataFile);
        QFETCH(QByteArray, imageBytes);
        QFETCH(QString, expected);
        const GoldenScene scene{QStringLiteral("harness_broken"), QSize(200, 120),
                                [dataFile](SceneHost &h) {
                                    if (dataFile.isEmpty())
                                        h.feedBars(SceneHost::madeBars(5, 10.0, 0.1), 86400000.0, 2);
                                    else
                                        h.feedFile(dataFile, 86400000.0, 2, SceneHost::Candles);
                                }};
        QTemporaryDir dir;
        const QString image = dir.filePath("golden.png");
        if (!imageBytes.isEmpty()) {
            QFile file(image);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(imageBytes);
        }
        QImage actual;
        QString message;
        const bool ok = render(scene, &actual, &message)
                        && compare(scene.name, actual, image, dir.path(), &message);
        QVERIFY(!ok);
        QVERIFY2(message.startsWith(QLatin1String("scene harness_broken")), qPrintable(message));
        QVERIFY2(message.contains(expected), qPrintable(message));
    }
};

int main(int argc, char **argv)
{
    pinEnvironment();
    QApplication app(argc, argv);
    styleApplication();
    tst_Golden test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_golden.moc"
