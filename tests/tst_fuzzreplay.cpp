// Replays every committed fuzz input (seed corpus and past failures) through
// the fuzzer's own decoder, so a fault once found stays fixed in every build.
#include <QtTest>

#include "fuzzdriver.h"

class tst_FuzzReplay : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        // The inputs are hostile on purpose; their warnings are noise here.
        // Invariant violations stay fatal.
        FuzzDriver::installQuietMessageHandler();
    }

    void replay_data()
    {
        QTest::addColumn<QString>("path");
        const QDir root(QStringLiteral(PRICEGRAPH_FUZZ_DIR));
        int rows = 0;
        for (const QString &folder : {QStringLiteral("regressions"), QStringLiteral("corpus")}) {
            const QDir dir(root.filePath(folder));
            for (const QString &name : dir.entryList(QDir::Files, QDir::Name)) {
                if (name.endsWith(QLatin1String(".md")))
                    continue;
                const QString path = dir.filePath(name);
                QTest::newRow(qPrintable(folder + QLatin1Char('/') + name)) << path;
                ++rows;
            }
        }
        QVERIFY2(rows > 0, "no fuzz inputs found");
    }

    void replay()
    {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray input = file.readAll();
        FuzzDriver driver(reinterpret_cast<const uint8_t *>(input.constData()),
                          size_t(input.size()));
        // Any fault aborts inside run(); reaching here means every call and
        // every invariant check after it passed.
        const uint64_t calls = driver.run();
        QVERIFY(calls <= uint64_t(FuzzDriver::MaxCalls) + 8);
    }
};

QTEST_MAIN(tst_FuzzReplay)
#include "tst_fuzzreplay.moc"
