# What every target of this project is compiled with.
add_library(orvale_options INTERFACE)
target_compile_options(orvale_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wformat)
# Optimising, g++ 12 finds overlaps in its own std::string that aren't there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(orvale_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(orvale_options INTERFACE -Wno-sign-conversion)  # g++ leaves it out of -Wconversion
endif()
# What is installed reads files of strangers: a fault that slipped through ends the program sooner than it is of use.
target_compile_options(orvale_options INTERFACE
    "$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong>")
target_link_options(orvale_options INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
if(ORVALE_WERROR)
    target_compile_options(orvale_options INTERFACE -Werror)
endif()
if(ORVALE_SANITIZE)
    target_compile_options(orvale_options INTERFACE -fsanitize=${ORVALE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(orvale_options INTERFACE -fsanitize=${ORVALE_SANITIZE})
endif()
if(ORVALE_FUZZ)
    target_compile_options(orvale_options INTERFACE -fsanitize=fuzzer-no-link)  # the counters by which the engine sees new ways
endif()
if(ORVALE_COVERAGE)
    target_compile_options(orvale_options INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(orvale_options INTERFACE --coverage)
endif()
