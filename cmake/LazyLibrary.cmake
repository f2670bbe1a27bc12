# A library that a program loads at the first use: its headers are built against, and its name as the loader knows it is
# in SWITCH_SONAME. SWITCH is defined as 1.
find_package(PkgConfig REQUIRED)
function(orvale_use_lazily target switch module library)
    pkg_check_modules(${switch}_PC REQUIRED IMPORTED_TARGET ${module})
    find_library(${switch}_LIBRARY ${library} HINTS ${${switch}_PC_LIBRARY_DIRS} REQUIRED)
    file(REAL_PATH "${${switch}_LIBRARY}" file)
    string(REGEX MATCH "lib${library}\\.so\\.[0-9]+" soname "${file}")
    if(NOT soname)
        message(FATAL_ERROR "${file} isn't a shared library with a version")
    endif()
    target_include_directories(${target} SYSTEM PRIVATE ${${switch}_PC_INCLUDE_DIRS})
    target_compile_definitions(${target} PRIVATE ${switch}=1 ${switch}_SONAME="${soname}")
endfunction()
