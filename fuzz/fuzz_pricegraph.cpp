// libFuzzer entry points: one offscreen QApplication for the whole run, one
// fresh chart per input (FuzzDriver).
#include "fuzzdriver.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>

namespace {

void reportTotal()
{
    std::fprintf(stderr, "pricegraph-fuzz: total %llu exported calls\n",
                 static_cast<unsigned long long>(FuzzDriver::totalCalls()));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static QApplication *app = new QApplication(*argc, *argv);
    Q_UNUSED(app);
    FuzzDriver::installQuietMessageHandler();
    std::atexit(reportTotal);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzDriver driver(data, size);
    driver.run();
    return 0;
}
