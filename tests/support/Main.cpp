#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

// The same zone, locale and code page wherever the tests run; a test that needs another sets it for itself.
int main(int argc, char** argv) {
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("ORVALE_CODEPAGE", "65001", 1);
    tzset();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
