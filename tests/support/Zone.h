#pragma once

#include <stdlib.h>
#include <time.h>

namespace orvale::test {

/// The process's time zone while the object lives; UTC afterwards, as it is for all other tests.
class Zone {
 public:
    explicit Zone(const char* name) { Set(name); }
    ~Zone() { Set("UTC"); }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

 private:
    static void Set(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }
};

}  // namespace orvale::test
