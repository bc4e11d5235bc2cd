#pragma once

#include <cstdio>

/// What the pages promise is checked while their code runs: main() returns failedExpectations().
inline int& failedExpectations()
{
    static int failed = 0;
    return failed;
}

#define EXPECT(condition)                                                                          \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition);           \
            ++failedExpectations();                                                                \
        }                                                                                          \
    } while (false)
