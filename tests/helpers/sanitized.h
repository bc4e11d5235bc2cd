#pragma once

// ZEL_TEST_SANITIZED is defined where a sanitizer, or a build without optimisation, makes the code
// so slow that tests of generated inputs take fewer of them.
#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
#define ZEL_TEST_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZEL_TEST_SANITIZED
#endif
#endif
