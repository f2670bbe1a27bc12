# The manual pages and the completions of the command, written by a program from the command's own tables.
set(ORVALE_PAGES_DIR ${PROJECT_BINARY_DIR}/pages)
if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    message(NOTICE "Without an emulator the manual pages and completions are left out of this build for another machine.")
    return()
endif()

add_executable(orvale_write_pages ${PROJECT_SOURCE_DIR}/src/command/line/WritePages.cpp)
target_link_libraries(orvale_write_pages PRIVATE orvale_command orvale_options)
string(TIMESTAMP ORVALE_DATE "%Y-%m-%d" UTC)  # SOURCE_DATE_EPOCH goes before the clock
set(ORVALE_PAGES orvale.1 orvale.5 orvale.bash _orvale orvale.fish)
list(TRANSFORM ORVALE_PAGES PREPEND ${ORVALE_PAGES_DIR}/)
file(GLOB ORVALE_FORMAT_PAGES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/formats/*.md)
add_custom_command(OUTPUT ${ORVALE_PAGES}
    COMMAND orvale_write_pages ${ORVALE_PAGES_DIR} ${PROJECT_SOURCE_DIR}/docs/formats ${ORVALE_DATE}
    DEPENDS orvale_write_pages ${ORVALE_FORMAT_PAGES}
    COMMENT "Writing the manual pages and completions" VERBATIM)
add_custom_target(orvale_pages ALL DEPENDS ${ORVALE_PAGES})
