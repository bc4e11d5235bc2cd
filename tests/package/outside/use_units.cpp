// What a program without Qt does with the units library: it takes over the reports of assertions.
#include "base/exception.h"
#include "platform/smart_assert.h"

#include <cstdio>
#include <stdexcept>

int main()
{
    std::string reported;
    zel::smartassert::setReportHandler(
        [&reported](const zel::smartassert::Report& report) { reported = report.expression; });
    ZEL_SMART_ASSERT(reported == "x", "x == 1").message("none yet");
    try {
        // Thrown here and caught by the library's type: both sides have to share one type.
        throw zel::Exception("outside");
    } catch (const std::exception& error) {
        reported += std::string(" ") + error.what();
    }
    std::printf("%s\n", reported.c_str());
    return reported == "x == 1 outside" ? 0 : 1;
}
